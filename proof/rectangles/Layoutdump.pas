{ Writes down where the controls of the shown forms stand. A line a control, its fields separated by tabs: form's class,
  names from the form on, class, left, top, width, height, client width and height, "visible", "hidden" or "covered" (in
  something hidden), and "auto" or "fixed" for its size. It asks the live controls and shares no code with the system. }
unit Layoutdump;

{$MODE ObjFPC}{$H+}
{ Protected members are looked at, in programs that check their casts, too. }
{$OBJECTCHECKS OFF}

interface

uses
  Classes, Controls, Forms;

{ Shows the form, every page of its page controls once, and lets it come to rest: the LCL lays out what has been
  shown. }
procedure ShowAtRest(Form: TCustomForm);
procedure AddControls(Root: TWinControl; Lines: TStrings);

implementation

uses
  SysUtils, ComCtrls, ExtCtrls;

const
  { Rounds of messages after which a form is not waited for any longer. }
  Rounds = 20;

type
  TOpenControl = class(TControl);

procedure Rest;
var
  I: Integer;
begin
  for I := 1 to Rounds do
  begin
    Application.ProcessMessages;
    Sleep(1);
  end;
end;

procedure ShowPages(Parent: TWinControl);
var
  I, Open: Integer;
begin
  if (Parent is TPageControl) and (TPageControl(Parent).PageCount > 1) then
  begin
    Open := TPageControl(Parent).ActivePageIndex;
    for I := 0 to TPageControl(Parent).PageCount - 1 do
    begin
      TPageControl(Parent).ActivePageIndex := I;
      Application.ProcessMessages;
    end;
    TPageControl(Parent).ActivePageIndex := Open;
  end;
  if Parent is TNotebook then
  begin
    Open := TNotebook(Parent).PageIndex;
    for I := 0 to TNotebook(Parent).PageCount - 1 do
    begin
      TNotebook(Parent).PageIndex := I;
      Application.ProcessMessages;
    end;
    TNotebook(Parent).PageIndex := Open;
  end;
  for I := 0 to Parent.ControlCount - 1 do
    if Parent.Controls[I] is TWinControl then ShowPages(TWinControl(Parent.Controls[I]));
end;

procedure ShowAtRest(Form: TCustomForm);
begin
  Form.Show;
  Rest;
  ShowPages(Form);
  Rest;
end;

function PathOf(Control: TControl; Root: TWinControl): string;
var
  Owner: TComponent;
begin
  Result := Control.Name;
  Owner := Control.Owner;
  while (Owner <> nil) and (Owner <> Root) do
  begin
    Result := Owner.Name + '.' + Result;
    Owner := Owner.Owner;
  end;
end;

{ Other pages than the open one are not hidden. }
function StateOf(Control: TControl; Root: TWinControl): string;
var
  Parent: TWinControl;
begin
  if Control.Visible or (Control = Root) then Result := 'visible' else Result := 'hidden';
  if Control = Root then Exit;
  Parent := Control.Parent;
  while Parent <> Root do
  begin
    if not (Parent.Visible or (Parent is TCustomPage) or (Parent is TPage)) then Result := 'covered';
    Parent := Parent.Parent;
  end;
end;

procedure AddControl(Control: TControl; Root: TWinControl; Lines: TStrings);
const
  Sized: array[Boolean] of string = ('fixed', 'auto');
var
  I: Integer;
  Path: string;
begin
  if Control = Root then Path := '' else Path := PathOf(Control, Root);
  if (Control = Root) or (Control.Name <> '') then
    Lines.Add(Format('%s'#9'%s'#9'%s'#9'%d'#9'%d'#9'%d'#9'%d'#9'%d'#9'%d'#9'%s'#9'%s', [Root.ClassName, Path,
      Control.ClassName, Control.Left, Control.Top, Control.Width, Control.Height, Control.ClientWidth,
      Control.ClientHeight, StateOf(Control, Root), Sized[TOpenControl(Control).AutoSize]]));
  if Control is TWinControl then
    for I := 0 to TWinControl(Control).ControlCount - 1 do
      AddControl(TWinControl(Control).Controls[I], Root, Lines);
end;

procedure AddControls(Root: TWinControl; Lines: TStrings);
begin
  AddControl(Root, Root, Lines);
end;

end.
