procedure TMainForm.A; begin Say('b'#13'c' + 'd', {x}'e'); end;
