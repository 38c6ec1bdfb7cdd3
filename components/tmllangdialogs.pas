{ This file was automatically created by Lazarus. Do not edit!
  This source is only used to compile and install the package.
 }

unit tmllangdialogs;

{$warn 5023 off : no warning about unused units}
interface

uses
  Mldialog_reg, Mldialogs, LazarusPackageIntf;

implementation

procedure Register;
begin
  RegisterUnit('Mldialog_reg', @Mldialog_reg.Register);
end;

initialization
  RegisterPackage('tmllangdialogs', @Register);
end.
