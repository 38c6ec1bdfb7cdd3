; Kept as it is.
[Options]
Version=1
Delimiter=~!@#$
Tool = someone's

[Language names - for internal use only!]
1=English
2=German
5=Hebrew

[Harbour/MainForm]
Languages=1,2
Note=kept

[Harbour/MainForm/Captions]
; the title
.Caption=Harbour~!@#$Hafen
btnOK.Caption=OK~!@#$OK

Column.Caption=\sTide	~!@#$\d!@#$ \e
lblEmpty.Caption=~!@#$

[Harbour/MainForm/MultiLines]
memHelp.Lines=First\nSecond~!@#$Erstens\r\nZweitens
; behind the last

[Harbour/MainForm/Strings]
IDS_0=One ship~!@#$Ein Schiff
\bids\q\e=Twice~!@#$[x];=y
\c\s=\z~!@#$ä€😀
IDS_0=Again~!@#$Nochmals

[harbour/mainform/states]
Captions:2:btnOK.Caption=same
Strings:2:IDS_0=stale~!@#$No ships\nat: all

[Harbour/MainForm/ExtendedTranslations]
Chart1:Title.Text=Tides~!@#$Gezeiten

[Somebody else]
a=b

[/MainForm]
Languages=5,2,1

[/MainForm/Locales]
.Locale=he~!@#$de~!@#$en
[/MainForm/ListView_TreeView_Items]
List1.Items[0].Caption=א~!@#$~!@#$a
