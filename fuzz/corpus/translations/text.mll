[Options]
Version=1
Delimiter=~
[Language names - for internal use only!]
1=English
2=German
[P/F]
Languages=1,2
[P/F/Captions]
.Caption=A\nB~ x\s
[P/F/States]
Captions:2:.Caption=stale~old
[P/F/ExtendedTranslations]
C:T.X=1~2
