#pragma once

#include <memory>
#include <string>

#include "expert/Mllangexp.h"
#include "expert/Mlmainform.h"
#include "host/Experthost.h"
#include "source/Language.h"
#include "support/Memoryfiles.h"
#include "support/Memoryregistry.h"
#include "support/Scripteduser.h"

namespace tml {

/// The expert in a headless IDE, over a small project in memory: two forms (Form2 has a component with
/// three languages), one unit without a form.
struct TExpertFixture {
    explicit TExpertFixture(bool dockable = true) : Parts(Files, Registry, User, nullptr, dockable) {
        Put("/p/Demo.dpr",
            "program Demo;\n\nuses\n  Forms,\n  Unit1 in 'Unit1.pas' {Form1},\n  Unit2 in 'Unit2.pas' "
            "{Form2},\n"
            "  Helper in 'Helper.pas';\n\nbegin\nend.\n");
        PutForm(1, "");
        PutForm(2,
                "  object mlLang1: TmlLang\n    NumOfLanguages = 3\n    LangNames.Strings = (\n"
                "      'English'\n      'German'\n      'French')\n    Strings.Strings = (\n"
                "      'IDS_0\x01"
                "Known\x01"
                "Bekannt\x01"
                "Connu')\n  end\n");
        Put("/p/Helper.pas", "unit Helper;\n\ninterface\n\nimplementation\n\nend.\n");
    }

    /// Loads the expert's package and opens the project.
    void Start() {
        Parts.LoadExpert();
        Expert = Parts.Expert();
        Ide.OpenProject("/p/Demo.dpr");
    }
    void Open() {
        Start();
        Expert->RunItemClick();
    }

    const THost& Host() { return Parts.Host(); }
    TContext& Context() { return Expert->Context(); }
    TScanMemory& ScanMemory() { return Expert->Subjects().Scan; }
    TFormRows& Rows() { return Expert->Context().Rows.FormNames; }
    TFormRow& Row(const std::string& form) { return *Rows().FindForm(form); }
    void Select(const std::string& form) {
        for (const auto& row : Rows().Items())
            row->Selected = row->FormName == form;
        Expert->Window()->lvFormNamesChange();
    }
    /// Rows as text, in order: "Form1|Unit1|0||0;" with the state image last.
    std::string List() {
        std::string text;
        for (const auto& row : Rows().Items())
            text += row->FormName + "|" + row->UnitName + "|" + row->Cell(fcLanguages) + "|" +
                    row->Cell(fcComponent) + "|" + std::to_string(row->StateIndex()) + ";";
        return text;
    }

    void Put(const std::string& path, const std::string& text) {
        std::string bytes;
        for (const char c : text)
            bytes += c == '\n' ? "\r\n" : std::string(1, c);
        Files.Files[path] = bytes;
    }
    void PutForm(int number, const std::string& components, const std::string& code = {}) {
        const std::string n = std::to_string(number);
        Put("/p/Unit" + n + ".dfm", "object Form" + n + ": TForm" + n + "\n  Caption = 'Form" + n + "'\n" +
                                        components +
                                        "  object Button1: TButton\n    Caption = 'Go'\n  end\nend\n");
        const std::string field = components.empty() ? "" : "    mlLang1: TmlLang;\n";
        Put("/p/Unit" + n + ".pas",
            "unit Unit" + n + ";\n\ninterface\n\nuses\n  Forms, StdCtrls;\n\ntype\n  TForm" + n +
                " = class(TForm)\n" + field +
                "    Button1: TButton;\n    procedure Go;\n  end;\n\nvar\n  Form" + n + ": TForm" + n +
                ";\n\nimplementation\n\n{$R *.dfm}\n\nprocedure TForm" + n + ".Go;\nbegin\n" + code +
                "end;\n\nend.\n");
    }

    TMemoryFileSystem Files;
    TMemoryRegistry Registry;
    TScriptedUser User;
    TExpertHost Parts;
    THeadlessIde& Ide = Parts.Ide();
    IMlRuntime* Runtime = Parts.Host().Runtime;
    TmlLangExpert* Expert = nullptr;
};

}  // namespace tml
