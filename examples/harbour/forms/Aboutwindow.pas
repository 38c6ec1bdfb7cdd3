{ What this program is. }
unit Aboutwindow;

{$mode objfpc}{$H+}

interface

uses
  Classes, Forms, StdCtrls, Basewindow;

type
  TAboutDialog = class(TBaseDialog)
    lblTitle: TLabel;
    memAbout: TMemo;
  end;

implementation

{$R *.lfm}

end.
