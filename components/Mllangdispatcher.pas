{ One language for many forms: number, names and language of a dispatcher hold for the components linked to it. }
unit Mllangdispatcher;

{$IFDEF FPC}{$MODE Delphi}{$ENDIF}

interface

uses
  Classes, Mlchange, Mllanguages;

type
  TmlLangDispatcher = class(TmlLanguages)
  private
    FClients: TFPList;
    FStreamedPlace: Integer;
    FTeller: TmlParticipant;
    FKeptTeller: ImlApplier;
  protected
    procedure ChangeTo(Place: Integer); override;
    procedure Loaded; override;
  public
    constructor Create(AOwner: TComponent); override;
    destructor Destroy; override;
    procedure EndLoading; override;
    procedure AddAppliers(Appliers: TInterfaceList); override;
    procedure AddClient(Client: TmlLanguages);
    procedure RemoveClient(Client: TmlLanguages);
    { The language in which forms that are linked to it were saved. }
    property StreamedPlace: Integer read FStreamedPlace;
  published
    property NumOfLanguages;
    property LangNames;
    property Language;
    property OnChangeLanguage;
  end;

implementation

uses
  Mlloading, Mlproglang;

type
  { Tells the program of a change; does not know how long the dispatcher lives. }
  TmlTeller = class(TmlParticipant)
  private
    FDispatcher: TmlLangDispatcher;
  public
    constructor Create(Dispatcher: TmlLangDispatcher);
    procedure Tell; override;
  end;

constructor TmlTeller.Create(Dispatcher: TmlLangDispatcher);
begin
  inherited Create;
  FDispatcher := Dispatcher;
end;

procedure TmlTeller.Tell;
begin
  if FDispatcher <> nil then FDispatcher.Tell(FDispatcher);
end;

constructor TmlLangDispatcher.Create(AOwner: TComponent);
begin
  inherited Create(AOwner);
  FStreamedPlace := 1;
  FClients := TFPList.Create;
  FTeller := TmlTeller.Create(Self);
  FKeptTeller := FTeller;
  RegisterForProgram(Self);
end;

destructor TmlLangDispatcher.Destroy;
begin
  TmlTeller(FTeller).FDispatcher := nil;
  ForgetLoading(Self);
  UnregisterForProgram(Self);
  FClients.Free;
  inherited Destroy;
end;

procedure TmlLangDispatcher.Loaded;
begin
  inherited Loaded;
  FStreamedPlace := ActivePlace;
  AwaitEndOfLoading(Self);
end;

procedure TmlLangDispatcher.EndLoading;
begin
  TakeProgramLanguage(Self);
end;

procedure TmlLangDispatcher.AddAppliers(Appliers: TInterfaceList);
var
  I: Integer;
begin
  for I := 0 to FClients.Count - 1 do
    TmlLanguages(FClients[I]).AddAppliers(Appliers);
  Appliers.Add(FKeptTeller);
end;

procedure TmlLangDispatcher.ChangeTo(Place: Integer);
begin
  StoreLanguage(Place);
  ApplyLanguages([Self]);
end;

procedure TmlLangDispatcher.AddClient(Client: TmlLanguages);
begin
  FClients.Add(Client);
end;

procedure TmlLangDispatcher.RemoveClient(Client: TmlLanguages);
begin
  FClients.Remove(Client);
end;

initialization
  RegisterClass(TmlLangDispatcher);

end.
