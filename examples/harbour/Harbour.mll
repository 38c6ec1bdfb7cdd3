[Options]
Version=1
Delimiter=~!@#$

[Language names - for internal use only!]
1=English
2=German
3=Hebrew

[Harbour/MainForm]
Languages=1,2,3

[Harbour/MainForm/Captions]
.Caption=Harbour~!@#$Hafen~!@#$נמל
lblServices.Caption=&Services~!@#$&Dienste~!@#$&שירותים
lblLog.Caption=&Log~!@#$&Protokoll~!@#$&יומן
mniFile.Caption=&File~!@#$&Datei~!@#$&קובץ
mniArrival.Caption=&New arrival...~!@#$&Neue Ankunft...~!@#$אונייה &חדשה...
mniSaveLog.Caption=&Save the log...~!@#$Protokoll &speichern...~!@#$&שמירת היומן...
mniQuit.Caption=&Quit~!@#$&Beenden~!@#$&יציאה
mniView.Caption=&View~!@#$&Ansicht~!@#$&תצוגה
mniTides.Caption=&Tides~!@#$&Gezeiten~!@#$&גאות ושפל
mniLanguage.Caption=&Language~!@#$&Sprache~!@#$&שפה
mniHelp.Caption=&Help~!@#$&Hilfe~!@#$&עזרה
mniAbout.Caption=&About...~!@#$Ü&ber...~!@#$&אודות...

[Harbour/MainForm/Hints]
lstServices.Hint=What the port has for ships~!@#$Was der Hafen den Schiffen bietet~!@#$מה שיש בנמל לאוניות

[Harbour/MainForm/MultiLines]
lstServices.Items=Pilot\nTug\nFresh water\nFuel~!@#$Lotse\nSchlepper\nTrinkwasser\nTreibstoff~!@#$נתב\nגוררת\nמים מתוקים\nדלק
memLog.Lines=The fairway is clear.\nFog is expected towards evening.~!@#$Die Fahrrinne ist frei.\nGegen Abend wird Nebel erwartet.~!@#$נתיב השיט פנוי.\nצפוי ערפל לקראת ערב.

[Harbour/MainForm/Strings]
IDS_0=%d ships, %d tons in port~!@#$%d Schiffe, %d Tonnen im Hafen~!@#$%d אוניות, %d טונות בנמל
IDS_1=The log is in %s.~!@#$Das Protokoll steht in %s.~!@#$היומן נמצא ב־%s.

[Harbour/MainForm/Locales]
.Locale=en~!@#$de~!@#$he

[Harbour/MainForm/Collections]
lvShips.Columns[0].Caption=Ship~!@#$Schiff~!@#$אונייה
lvShips.Columns[1].Caption=Tons~!@#$Tonnen~!@#$טונות
lvShips.Columns[2].Caption=State~!@#$Stand~!@#$מצב
barStatus.Panels[0].Text=Ebb until 15:40~!@#$Ebbe bis 15:40~!@#$שפל עד 15:40

[Harbour/MainForm/ListView_TreeView_Items]
trvBerths.Items[0].Text=North quay~!@#$Nordkai~!@#$רציף צפוני
trvBerths.Items[0][0].Text=Berth 1~!@#$Liegeplatz 1~!@#$מעגן 1
trvBerths.Items[0][1].Text=Berth 2~!@#$Liegeplatz 2~!@#$מעגן 2
trvBerths.Items[1].Text=South quay~!@#$Südkai~!@#$רציף דרומי
trvBerths.Items[1][0].Text=Berth 3~!@#$Liegeplatz 3~!@#$מעגן 3
trvBerths.Items[1][1].Text=Dry dock~!@#$Trockendock~!@#$מבדוק יבש

[Harbour/BaseDialog]
Languages=1,2,3

[Harbour/BaseDialog/Captions]
.Caption=Dialog~!@#$Dialog~!@#$חלון
btnOK.Caption=&OK~!@#$&OK~!@#$&אישור
btnCancel.Caption=&Cancel~!@#$Abbre&chen~!@#$&ביטול

[Harbour/BaseDialog/Locales]
.Locale=en~!@#$de~!@#$he

[Harbour/BaseDialog/States]
Captions:2:.Caption=same
Captions:2:btnOK.Caption=same

[Harbour/ShipDialog]
Languages=1,2,3

[Harbour/ShipDialog/Captions]
.Caption=A ship arrives~!@#$Ein Schiff kommt an~!@#$אונייה מגיעה
btnOK.Caption=&Arrive~!@#$&Ankommen~!@#$ה&געה
btnCancel.Caption=&Cancel~!@#$Abbre&chen~!@#$&ביטול
lblName.Caption=&Name:~!@#$&Name:~!@#$&שם:
lblTons.Caption=&Tons:~!@#$&Tonnen:~!@#$&טונות:
fraCargo.grpCargo.Caption=Cargo on board~!@#$Ladung an Bord~!@#$המטען באונייה

[Harbour/ShipDialog/Strings]
IDS_0=A ship needs a name.~!@#$Ein Schiff braucht einen Namen.~!@#$לאונייה צריך להיות שם.

[Harbour/ShipDialog/OtherStrings]
edtName.TextHint=As on the bow~!@#$Wie am Bug~!@#$כמו על החרטום

[Harbour/ShipDialog/Locales]
.Locale=en~!@#$de~!@#$he

[Harbour/ShipDialog/States]
Captions:2:lblName.Caption=same

[Harbour/AboutDialog]
Languages=1,2,3

[Harbour/AboutDialog/Captions]
.Caption=About Harbour~!@#$Über Hafen~!@#$אודות נמל
btnOK.Caption=&OK~!@#$&OK~!@#$&אישור
btnCancel.Caption=&Cancel~!@#$Abbre&chen~!@#$&ביטול
lblTitle.Caption=Harbour, a sample program~!@#$Hafen, ein Beispielprogramm~!@#$נמל, תוכנית לדוגמה

[Harbour/AboutDialog/Fonts]
lblTitle.Font=Name=Sans;Height=-16;Style=Bold~!@#$Name=Sans;Height=-16;Style=Bold~!@#$Name=Sans;Height=-16;Style=Bold

[Harbour/AboutDialog/MultiLines]
memAbout.Lines=Its forms hold their texts in three languages.\nChoose another one from the menu while it runs.~!@#$Seine Formulare halten ihre Texte in drei Sprachen.\nDie Sprache ist im Menü umzuschalten, während es läuft.~!@#$החלונות שלה מחזיקים את הטקסטים בשלוש שפות.\nאפשר להחליף שפה בתפריט בזמן הריצה.

[Harbour/AboutDialog/Locales]
.Locale=en~!@#$de~!@#$he

[Harbour/AboutDialog/States]
Captions:2:btnOK.Caption=same

[Harbour/TidesForm]
Languages=1,2,3

[Harbour/TidesForm/Captions]
.Caption=Tides~!@#$Gezeiten~!@#$גאות ושפל
lblPort.Caption=Water at the harbour mouth today~!@#$Wasserstände an der Hafeneinfahrt heute~!@#$גובה המים בפתח הנמל היום

[Harbour/TidesForm/Strings]
IDS_0=High water~!@#$Hochwasser~!@#$גאות
IDS_1=Low water~!@#$Niedrigwasser~!@#$שפל
IDS_2=%.1f m~!@#$%.1f m~!@#$%.1f מ׳

[Harbour/TidesForm/Locales]
.Locale=en~!@#$de~!@#$he

[Harbour/TidesForm/Collections]
grdTides.Columns[0].Title.Caption=Time~!@#$Zeit~!@#$שעה
grdTides.Columns[1].Title.Caption=Tide~!@#$Wasserstand~!@#$מצב
grdTides.Columns[2].Title.Caption=Height~!@#$Höhe~!@#$גובה

[Harbour/TidesForm/States]
Strings:2:IDS_2=same

[Harbour/CargoFrame]
Languages=1,2,3

[Harbour/CargoFrame/Captions]
grpCargo.Caption=Cargo~!@#$Ladung~!@#$מטען
lblKind.Caption=&Kind:~!@#$&Art:~!@#$&סוג:
chkDangerous.Caption=&Dangerous goods~!@#$&Gefahrgut~!@#$חומרים &מסוכנים

[Harbour/CargoFrame/Hints]
chkDangerous.Hint=Explosives, gas and acids~!@#$Sprengstoff, Gas und Säuren~!@#$חומרי נפץ, גז וחומצות

[Harbour/CargoFrame/MultiLines]
cmbKind.Items=Grain\nTimber\nCars~!@#$Getreide\nHolz\nAutos~!@#$תבואה\nעצים\nמכוניות

[Harbour/CargoFrame/OtherStrings]
cmbKind.Text=Grain~!@#$Getreide~!@#$תבואה

[Harbour/CargoFrame/Locales]
.Locale=en~!@#$de~!@#$he

[Harbour/PortData]
Languages=1,2,3

[Harbour/PortData/DlgsCaptions]
dlgSave.Title=Save the log~!@#$Protokoll speichern~!@#$שמירת היומן
dlgSave.Filter=Text files|*.txt|All files|*~!@#$Textdateien|*.txt|Alle Dateien|*~!@#$קובצי טקסט|*.txt|כל הקבצים|*

[Harbour/PortData/Strings]
IDS_0=Expected~!@#$Erwartet~!@#$צפויה
IDS_1=In port~!@#$Im Hafen~!@#$בנמל
IDS_2=Sailed~!@#$Ausgelaufen~!@#$הפליגה
IDS_3=The %s of %d tons is here.~!@#$Die %s mit %d Tonnen ist da.~!@#$האונייה %s, %d טונות, כאן.

[Harbour/PortData/Locales]
.Locale=en~!@#$de~!@#$he
