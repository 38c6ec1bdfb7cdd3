{ This file was automatically created by Lazarus. Do not edit!
  This source is only used to compile and install the package.
 }

unit tmllang_dsgn;

{$warn 5023 off : no warning about unused units}
interface

uses
  Mlreg, LazarusPackageIntf;

implementation

procedure Register;
begin
  RegisterUnit('Mlreg', @Mlreg.Register);
end;

initialization
  RegisterPackage('tmllang_dsgn', @Register);
end.
