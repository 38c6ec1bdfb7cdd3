#pragma once

#include <memory>
#include <string>

#include "ide/Headlesside.h"
#include "runtime/Runtime.h"
#include "support/Memoryfiles.h"

namespace tml {

/// A project in memory: /p/Project1.dpr with two forms, a plain unit, and Form1's localization component
/// linked to the dispatcher on Form2.
inline void AddSampleProject(TMemoryFileSystem& files) {
    files.Files["/p/Project1.dpr"] =
        "program Project1;\r\n\r\nuses\r\n  Forms,\r\n  Unit1 in 'Unit1.pas' {Form1},\r\n"
        "  App.Unit2 in 'sub\\App.Unit2.pas' {Form2},\r\n  Plain in 'Plain.pas';\r\n\r\nbegin\r\nend.\r\n";
    files.Files["/p/Unit1.pas"] =
        "unit Unit1;\r\n\r\ninterface\r\n\r\nuses\r\n  Forms;\r\n\r\ntype\r\n  TForm1 = class(TForm)\r\n"
        "    Button1: TButton;\r\n    mlLang1: TmlLang;\r\n  end;\r\n\r\nvar\r\n  Form1: TForm1;\r\n\r\n"
        "implementation\r\n\r\n{$R *.dfm}\r\n\r\nend.\r\n";
    files.Files["/p/Unit1.dfm"] =
        "object Form1: TForm1\r\n  Caption = 'Main'\r\n  object Panel1: TPanel\r\n"
        "    object Button1: TButton\r\n      Caption = '&OK'\r\n    end\r\n  end\r\n"
        "  inline Frame1: TFrame1\r\n    object Inner: TLabel\r\n    end\r\n  end\r\n"
        "  object mlLang1: TmlLang\r\n    NumOfLanguages = 2\r\n    LangNames.Strings = (\r\n"
        "      'English'\r\n      'German')\r\n    Dispatcher = Form2.Disp\r\n    Captions.Strings = (\r\n"
        "      'Button1.Caption'#1'&OK'#1'&Gut'\r\n      'Button11.Caption'#1'No'#1'Nein')\r\n"
        "    ExcludedProperties.Strings = (\r\n      '!Button1'\r\n      'TButton')\r\n  end\r\nend\r\n";
    files.Files["/p/sub/App.Unit2.pas"] =
        "unit App.Unit2;\ninterface\nuses\n  Forms;\ntype\n  TForm2 = class(TForm)\n  end;\n"
        "implementation\nend.\n";
    files.Files["/p/sub/App.Unit2.DFM"] =
        "object Form2: TForm2\n  object Disp: TmlLangDispatcher\n  end\nend\n";
    files.Files["/p/Plain.pas"] = "unit Plain;\ninterface\nimplementation\nend.\n";
}

/// A headless IDE over the sample project.
struct TSampleIde {
    explicit TSampleIde(bool dockableForms = true) : Ide(Files, *Runtime, dockableForms) {
        AddSampleProject(Files);
        Ide.OpenProject("/p/Project1.dpr");
    }
    std::shared_ptr<IOTAModule> Open(const std::string& file) {
        return Ide.GetModuleServices()->OpenModule(file, false);
    }
    std::shared_ptr<IOTAComponent> Component(const std::string& name) {
        return Open("/p/Unit1.pas")->GetFormEditor()->FindComponent(name);
    }

    TMemoryFileSystem Files;
    std::unique_ptr<IMlRuntime> Runtime = MakeMlRuntime();
    THeadlessIde Ide;
};

}  // namespace tml
