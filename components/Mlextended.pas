{ Texts of properties that the rules leave out. }
unit Mlextended;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes;

type
  TmlExtendedTranslation = class(TCollectionItem)
  private
    FComponent, FProperty: string;
    FValues: TStringList;
    procedure SetComponent(const Value: string);
    procedure SetProperty(const Value: string);
    procedure SetValues(Value: TStrings);
    function GetValues: TStrings;
    procedure ValuesChanged(Sender: TObject);
  protected
    function GetDisplayName: string; override;
  public
    constructor Create(ACollection: TCollection); override;
    destructor Destroy; override;
    procedure Assign(Source: TPersistent); override;
    { The entry as a table has it. }
    function Line(const Delimiter: string): string;
  published
    { A path as in keys, '' for the owner of the localization component. }
    property Component: string read FComponent write SetComponent;
    property &Property: string read FProperty write SetProperty;
    { A text a language. }
    property Values: TStrings read GetValues write SetValues;
  end;

  TmlExtendedTranslations = class(TOwnedCollection)
  private
    FOnChange: TNotifyEvent;
  protected
    procedure Update(Item: TCollectionItem); override;
  public
    constructor Create(AOwner: TPersistent);
    procedure AddLines(Lines: TStrings; const Delimiter: string);
    property OnChange: TNotifyEvent read FOnChange write FOnChange;
  end;

implementation

uses
  Mlcodec;

constructor TmlExtendedTranslation.Create(ACollection: TCollection);
begin
  FValues := TStringList.Create;
  FValues.OnChange := ValuesChanged;
  inherited Create(ACollection);
end;

destructor TmlExtendedTranslation.Destroy;
begin
  inherited Destroy;
  FValues.Free;
end;

procedure TmlExtendedTranslation.Assign(Source: TPersistent);
begin
  if not (Source is TmlExtendedTranslation) then
  begin
    inherited Assign(Source);
    Exit;
  end;
  FComponent := TmlExtendedTranslation(Source).FComponent;
  FProperty := TmlExtendedTranslation(Source).FProperty;
  FValues.Assign(TmlExtendedTranslation(Source).FValues);
  Changed(False);
end;

procedure TmlExtendedTranslation.ValuesChanged(Sender: TObject);
begin
  Changed(False);
end;

procedure TmlExtendedTranslation.SetComponent(const Value: string);
begin
  FComponent := Value;
  Changed(False);
end;

procedure TmlExtendedTranslation.SetProperty(const Value: string);
begin
  FProperty := Value;
  Changed(False);
end;

procedure TmlExtendedTranslation.SetValues(Value: TStrings);
begin
  FValues.Assign(Value);
end;

function TmlExtendedTranslation.GetValues: TStrings;
begin
  Result := FValues;
end;

function TmlExtendedTranslation.GetDisplayName: string;
begin
  Result := FComponent + '.' + FProperty;
end;

function TmlExtendedTranslation.Line(const Delimiter: string): string;
var
  Fields: array of string;
  I: Integer;
begin
  SetLength(Fields, FValues.Count + 1);
  Fields[0] := GetDisplayName;
  for I := 0 to FValues.Count - 1 do
    Fields[I + 1] := FValues[I];
  Result := JoinFields(Fields, Delimiter);
end;

constructor TmlExtendedTranslations.Create(AOwner: TPersistent);
begin
  inherited Create(AOwner, TmlExtendedTranslation);
end;

procedure TmlExtendedTranslations.Update(Item: TCollectionItem);
begin
  inherited Update(Item);
  if Assigned(FOnChange) then FOnChange(Self);
end;

procedure TmlExtendedTranslations.AddLines(Lines: TStrings; const Delimiter: string);
var
  I: Integer;
begin
  for I := 0 to Count - 1 do
    Lines.Add(TmlExtendedTranslation(Items[I]).Line(Delimiter));
end;

end.
