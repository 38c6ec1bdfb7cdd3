void TMainForm::A() { Say(L"b" /* x */ "c", "d\n"); }
