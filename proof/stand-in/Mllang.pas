unit Mllang;

{$ifdef FPC}{$mode objfpc}{$H+}{$endif}

interface

type
  TmlLang = class
    function GetText(const ID: string): string;
    function GetTextC(const ID: string): PChar;
    function GetTextOrDefault(const ID: string): string;
    function GetTextOrDefaultC(const ID: string): PChar;
  end;

implementation

function TmlLang.GetText(const ID: string): string;
begin
  GetText := ID;
end;

function TmlLang.GetTextC(const ID: string): PChar;
begin
  GetTextC := PChar(ID);
end;

function TmlLang.GetTextOrDefault(const ID: string): string;
begin
  GetTextOrDefault := ID;
end;

function TmlLang.GetTextOrDefaultC(const ID: string): PChar;
begin
  GetTextOrDefaultC := PChar(ID);
end;

end.
