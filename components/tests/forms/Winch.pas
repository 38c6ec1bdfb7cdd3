unit Winch;

interface

uses
  Forms, StdCtrls;

type
  TWinchFrame = class(TFrame)
    lblLoad: TLabel;
    btnStop: TButton;
  end;

var
  WinchFrame: TWinchFrame;

implementation

{$R *.lfm}

end.
