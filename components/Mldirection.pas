{ Languages that are written from right to left, by their tags. }
unit Mldirection;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

{ Tag is a BCP 47 tag such as "ar" or "ku-Arab-IQ". }
function IsRightToLeft(const Tag: string): Boolean;

implementation

uses
  SysUtils;

const
  Scripts = ',arab,hebr,syrc,thaa,nkoo,adlm,';
  Languages = ',ar,dv,fa,he,iw,ji,ks,ku-iq,nqo,ps,sd,syr,ug,ur,yi,';

function IsIn(const Part, List: string): Boolean;
begin
  Result := Pos(',' + Part + ',', List) > 0;
end;

function IsRightToLeft(const Tag: string): Boolean;
var
  Language, Script, Region, Rest: string;

  function NextPart: string;
  var
    Dash: Integer;
  begin
    Dash := Pos('-', Rest + '-');
    Result := Copy(Rest, 1, Dash - 1);
    Delete(Rest, 1, Dash);
  end;

begin
  Rest := LowerCase(StringReplace(Tag, '_', '-', [rfReplaceAll]));
  Language := NextPart;
  Script := NextPart;
  Region := Script;
  if Length(Script) = 4 then
    Result := IsIn(Script, Scripts)
  else
    Result := (Language <> '') and (IsIn(Language, Languages) or IsIn(Language + '-' + Region, Languages));
end;

end.
