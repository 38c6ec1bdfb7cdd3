{ What classes publish, compared with what the tool knows of them. }
unit Mlclasschecks;

{$MODE Delphi}

interface

{ Properties that the class has and its ancestor has not, in any order, separated by blanks. }
procedure ExpectProperties(AClass: TClass; const Properties: string);

implementation

uses
  Classes, TypInfo, Mltesting;

{ Up to the library's own classes. }
function AncestorOf(AClass: TClass): TClass;
begin
  Result := AClass.ClassParent;
  while Result.ClassNameIs('TmlLanguages') do
    Result := Result.ClassParent;
end;

function Published(AClass: TClass): string;
var
  Names: TStringList;
  List: PPropList;
  I: Integer;
begin
  Names := TStringList.Create;
  Names.Sorted := True;
  Names.Delimiter := ' ';
  List := nil;
  for I := 0 to GetPropList(AClass.ClassInfo, List) - 1 do
    if GetPropInfo(AncestorOf(AClass).ClassInfo, List^[I].Name) = nil then Names.Add(List^[I].Name);
  FreeMem(List);
  Result := Names.DelimitedText;
  Names.Free;
end;

procedure ExpectProperties(AClass: TClass; const Properties: string);
var
  Names: TStringList;
begin
  Names := TStringList.Create;
  Names.Delimiter := ' ';
  Names.DelimitedText := Properties;
  Names.Sort;
  ExpectText(Names.DelimitedText, Published(AClass), AClass.ClassName);
  Names.Free;
end;

end.
