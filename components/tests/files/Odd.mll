[Options]
Delimiter="^ "
Version=1
[Language names - for internal use only!]
de=Deutsch
en=English
[P/F]
Languages="de", en

[P/F/Captions]
a=Eins^ One
  b=^ 

 ; Again 
c = \sx^ y	 
[P/G]
Languages=de
