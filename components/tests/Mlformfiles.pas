{ Forms read from text files without their classes: a form stands in for the form's class, a frame for a frame's. }
unit Mlformfiles;

{$MODE Delphi}

interface

uses
  Classes, Forms;

type
  TFormFiles = class
  private
    FFrames: TStringList;
    FFrameClass: string;
    procedure FindClass(Reader: TReader; const Name: string; var ComponentClass: TComponentClass);
    procedure MakeComponent(Reader: TReader; ComponentClass: TComponentClass; var Component: TComponent);
    procedure FindMethod(Reader: TReader; const Name: string; var Address: CodePointer; var Error: Boolean);
  public
    constructor Create;
    destructor Destroy; override;
    { The text of a frame that forms hold. }
    procedure AddFrame(const Text: string);
    { Reads the form into the root; for an inherited form each of its texts in turn, the ancestor's first. }
    procedure Read(const Text: string; Root: TComponent);
    { The form as a writer writes it, under the name of its class; without what its ancestor (or nil) has, too. }
    function Written(Root, Ancestor: TComponent; const ClassOfRoot: string): string;
  end;

function TextOfFile(const FileName: string): string;

{ "object Name: TClass" has it behind the colon. }
function ClassIn(const Text: string): string;

implementation

uses
  SysUtils, LResources;

type
  TInlined = class(TComponent)
  end;

function TextOfFile(const FileName: string): string;
var
  Stream: TStringStream;
begin
  Stream := TStringStream.Create('');
  try
    Stream.LoadFromFile(FileName);
    Result := Stream.DataString;
  finally
    Stream.Free;
  end;
end;

function ClassIn(const Text: string): string;
begin
  Result := Copy(Text, Pos(':', Text) + 1, MaxInt);
  Result := Trim(Copy(Result, 1, Pos(#10, Result)));
end;

constructor TFormFiles.Create;
begin
  inherited Create;
  FFrames := TStringList.Create;
end;

destructor TFormFiles.Destroy;
begin
  FFrames.Free;
  inherited Destroy;
end;

procedure TFormFiles.AddFrame(const Text: string);
begin
  FFrames.Values[ClassIn(Text)] := StringReplace(Text, #10, #1, [rfReplaceAll]);
end;

procedure TFormFiles.FindClass(Reader: TReader; const Name: string; var ComponentClass: TComponentClass);
begin
  FFrameClass := '';
  if ComponentClass = nil then ComponentClass := TComponentClass(GetClass(Name));
  if (ComponentClass <> nil) or (FFrames.IndexOfName(Name) < 0) then Exit;
  ComponentClass := TFrame;
  FFrameClass := Name;
end;

procedure TFormFiles.MakeComponent(Reader: TReader; ComponentClass: TComponentClass; var Component: TComponent);
var
  Text: string;
begin
  if FFrameClass = '' then Exit;
  Text := StringReplace(FFrames.Values[FFrameClass], #1, #10, [rfReplaceAll]);
  FFrameClass := '';
  Component := TFrame(TFrame.NewInstance);
  TInlined(Component).SetInline(True);
  Component.Create(Reader.Owner);
  Read(Text, Component);
end;

procedure TFormFiles.FindMethod(Reader: TReader; const Name: string; var Address: CodePointer; var Error: Boolean);
begin
  Error := False;
end;

procedure TFormFiles.Read(const Text: string; Root: TComponent);
var
  Lines: TStringStream;
  Binary: TMemoryStream;
  Reader: TReader;
begin
  Lines := TStringStream.Create(Text);
  Binary := TMemoryStream.Create;
  try
    LRSObjectTextToBinary(Lines, Binary);
    Binary.Position := 0;
    Reader := TReader.Create(Binary, 4096);
    try
      Reader.OnFindComponentClass := FindClass;
      Reader.OnCreateComponent := MakeComponent;
      Reader.OnFindMethod := FindMethod;
      Reader.ReadRootComponent(Root);
    finally
      Reader.Free;
    end;
  finally
    Lines.Free;
    Binary.Free;
  end;
end;

function TFormFiles.Written(Root, Ancestor: TComponent; const ClassOfRoot: string): string;
var
  Lines: TStringStream;
  Binary: TMemoryStream;
begin
  Lines := TStringStream.Create('');
  Binary := TMemoryStream.Create;
  try
    Binary.WriteDescendent(Root, Ancestor);
    Binary.Position := 0;
    LRSObjectBinaryToText(Binary, Lines);
    Result := StringReplace(Lines.DataString, ': ' + Root.ClassName, ': ' + ClassOfRoot, []);
  finally
    Lines.Free;
    Binary.Free;
  end;
end;

end.
