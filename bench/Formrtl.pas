{ bench-formrtl TEXTFORM BINARYFORM: the same conversions as bench-forms by the Free Pascal run-time library.
  Writes the binary form, and prints the processor time of each conversion in seconds, that of a second
  call. }
program Formrtl;

{$mode objfpc}{$H+}

uses
  Linux, UnixType, SysUtils, Classes;

type
  TConversion = procedure(Input, Output: TStream);

function ProcessorTime: Double;
var
  Time: TTimeSpec;
begin
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, @Time);
  Result := Time.tv_sec + Time.tv_nsec / 1e9;
end;

procedure Convert(Conversion: TConversion; Input, Output: TMemoryStream);
begin
  Input.Position := 0;
  Output.Clear;
  Conversion(Input, Output);
end;

{ The library has each twice, so that their addresses alone do not say which one is meant. }
procedure TextToBinary(Input, Output: TStream);
begin
  ObjectTextToBinary(Input, Output);
end;

procedure BinaryToText(Input, Output: TStream);
begin
  ObjectBinaryToText(Input, Output);
end;

{ Prints the seconds of the second of two calls. }
procedure Timed(Conversion: TConversion; Input, Output: TMemoryStream);
var
  Start: Double;
begin
  Convert(Conversion, Input, Output);
  Start := ProcessorTime;
  Convert(Conversion, Input, Output);
  WriteLn((ProcessorTime - Start):0:6);
end;

var
  Text, Binary, Back: TMemoryStream;
begin
  if ParamCount <> 2 then
  begin
    WriteLn(StdErr, 'bench-formrtl TEXTFORM BINARYFORM');
    Halt(2);
  end;
  Text := TMemoryStream.Create;
  Binary := TMemoryStream.Create;
  Back := TMemoryStream.Create;
  Text.LoadFromFile(ParamStr(1));
  Timed(@TextToBinary, Text, Binary);
  Timed(@BinaryToText, Binary, Back);
  Binary.SaveToFile(ParamStr(2));
end.
