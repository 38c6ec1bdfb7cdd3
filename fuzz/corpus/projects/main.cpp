USEFORM("forms\Main.cpp", MainForm); /* TDataModule: File Type */
USEUNIT("U.pas");
