unit Forms;

{$ifdef FPC}{$mode objfpc}{$endif}

interface

type
  TForm = class
  end;

implementation

end.
