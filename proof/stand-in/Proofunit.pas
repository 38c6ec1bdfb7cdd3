unit Proofunit;

{$ifdef FPC}{$mode objfpc}{$H+}{$endif}

interface

uses
  Forms, Mllang;

type
  TProofForm = class(TForm)
    mlLang1: TmlLang;
  end;

var
  ProofForm: TProofForm;

implementation

end.
