// A form shows another language and the first one again.
#include <filesystem>
#include <gtest/gtest.h>

#include "base/Utf8.h"
#include "ide/Headlesside.h"
#include "runtime/Runtime.h"
#include "support/Corpora.h"
#include "support/Memoryfiles.h"
#include "tables/Pseudo.h"
#include "tables/Textmerge.h"

namespace tml {
namespace {

/// A project of one form, whose first line names its class, with a component of three languages at its end.
struct TShownForm {
    TShownForm(const std::string& form, const std::string& className, const std::string& tables,
               const std::string& ancestor = "") {
        Put("Main", className, form.substr(0, form.rfind("end")) + kLang + tables + "  end\nend\n",
            ancestor.empty() ? "TForm" : "TBase");
        if (!ancestor.empty()) Put("Base", "TBase", ancestor, "TForm");
        Files.Files["/p/P.dpr"] = "program P;\nuses Forms, Base in 'Base.pas' {Base}, Main in 'Main.pas' {" +
                                  className.substr(1) + "};\nbegin\nend.\n";
    }
    void Put(const std::string& unit, const std::string& className, const std::string& form,
             const std::string& ancestor) {
        Files.Files["/p/" + unit + ".lfm"] = form;
        Files.Files["/p/" + unit + ".pas"] =
            "unit " + unit + ";\ninterface\nuses Forms, Base, Mllangtlv;\ntype\n  " + className +
            " = class(" + ancestor + ")\n  end;\nimplementation\n{$R *.lfm}\nend.\n";
    }
    /// Work on the component in an IDE that reads the files anew.
    template <typename Work>
    void Do(Work work) {
        const auto runtime = MakeMlRuntime();
        THeadlessIde ide(Files, *runtime);
        ide.OpenProject("/p/P.dpr");
        const auto module = ide.GetModuleServices()->OpenModule("/p/Main.pas", false);
        work(*runtime->AsCustomLang(module->GetFormEditor()->FindComponent("mlLang1")));
        ide.SaveAll();
    }
    void Show(int from, int to) {
        Do([&](TmlCustomLang& lang) { lang.ShowLanguage(from, to); });
    }
    std::string Form() { return Files.Files["/p/Main.lfm"]; }
    /// What stands in front of the localization component.
    std::string Shown() { return Form().substr(0, Form().find("  object mlLang1")); }

    TMemoryFileSystem Files;

  private:
    static constexpr const char* kLang =
        "  object mlLang1: TmlLangTLV\n    NumOfLanguages = 3\n    LangNames.Strings = (\n      'English'\n"
        "      'German'\n      'Polish'\n    )\n";
};

struct TShowCase {
    const char* What;
    const char* Component;  ///< in English, without its head and end
    const char* Table;
    const char* Line;    ///< of a table, behind the component's name
    const char* German;  ///< the component then
};

const TShowCase kShowCases[] = {
    {"a text", "Caption = 'Tide'\n", "Captions", ".Caption'#1'Tide'#1'Flut'#1", "Caption = 'Flut'\n"},
    {"an empty value shows the base text", "Hint = 'Tide'\n", "Hints", ".Hint'#1'Tide'#1#1'x'",
     "Hint = 'Tide'\n"},
    {"what the person has written stays", "Caption = 'Tides'\n", "Captions", ".Caption'#1'Tide'#1'Flut'#1",
     "Caption = 'Tides'\n"},
    {"of a key that stands twice the first counts", "Caption = 'Tide'\n", "Captions",
     ".Caption'#1'Tide'#1'Flut'#1\n      'cmp.Caption'#1'Tide'#1'Ebbe'#1", "Caption = 'Flut'\n"},
    {"lines take the value's", "Lines.Strings = (\n      'One'\n      'Two'\n    )\n", "MultiLines",
     ".Lines'#1'One'#2'nTwo'#1'Eins'#1'Raz'#2'nDwa'#2'nTrzy'", "Lines.Strings = (\n      'Eins'\n    )\n"},
    {"items keep their number, the selected one its text",
     "ItemIndex = 1\n    Items.Strings = (\n      'One'\n      'Two'\n      'Three'\n    )\n    Text = "
     "'Two'\n",
     "MultiLines", ".Items'#1'One'#2'nTwo'#2'nThree'#1'Eins'#2'nZwei'#1'a'#2'nb'#2'nc'#2'nd'",
     "ItemIndex = 1\n    Items.Strings = (\n      'Eins'\n      'Zwei'\n      'Three'\n    )\n    Text = "
     "'Zwei'\n"},
    {"items that the designer has sorted",
     "Items.Strings = (\n      'Alder'\n      'Birch'\n    )\n    Sorted = True\n", "MultiLines",
     ".Items'#1'Birch'#2'nAlder'#1'Birke'#2'nErle'#1",
     "Items.Strings = (\n      'Erle'\n      'Birke'\n    )\n    Sorted = True\n"},
    {"a font, whose parts stand together", "Font.Height = -12\n    ParentFont = False\n", "Fonts",
     ".Font'#1'Height=-12'#1'Name=Sans;Style=Bold,Italic'#1'Height=-14'",
     "Font.Height = -12\n    Font.Name = 'Sans'\n    Font.Style = [fsBold, fsItalic]\n    ParentFont = "
     "False\n"},
    {"a font that has a part of the person's", "Font.Height = -12\n    Font.Name = 'Own'\n", "Fonts",
     ".Font'#1'Height=-12'#1'Name=Sans'#1", "Font.Height = -12\n    Font.Name = 'Own'\n"},
    {"a character set, and its number", "Font.Charset = RUSSIAN_CHARSET\n    Font.Height = -12\n", "CharSets",
     ".Font.Charset'#1'RUSSIAN_CHARSET'#1'204'#1'ANSI_CHARSET'",
     "Font.Charset = 204\n    Font.Height = -12\n"},
    {"items of collections by index and name",
     "Columns = <    \n      item\n        Title.Caption = 'One'\n      end    \n      item\n        Name = "
     "'second'\n        PickList.Strings = (\n          'a'\n          'b'\n        )\n        "
     "Title.Font.Height "
     "= -12\n      end>\n",
     "Collections",
     ".Columns[0].Title.Caption'#1'One'#1'Eins'#1)\n    MultiLines.Strings = (\n      "
     "'cmp.Columns[Second].PickList'#1'a'#2'nb'#1'c'#2'nd'#1)\n    Fonts.Strings = (\n      "
     "'cmp.Columns[second].Title.Font'#1'Height=-12'#1'Height=-9'#1'Height=-7'",
     "Columns = <    \n      item\n        Title.Caption = 'Eins'\n      end    \n      item\n        Name = "
     "'second'\n        PickList.Strings = (\n          'c'\n          'd'\n        )\n        "
     "Title.Font.Height "
     "= -9\n      end>\n"},
    {"items in binary",
     "Items.LazData = {\n      2500000001000000FFFFFFFFFFFFFFFFFFFFFFFF01000000020000004F6E0300\n      "
     "000054776FFFFFFFFF\n    }\n",
     "ListView_TreeView_Items", ".Items[0].Caption'#1'On'#1'An'#1",
     "Items.LazData = {\n      2500000001000000FFFFFFFFFFFFFFFFFFFFFFFF0100000002000000416E0300\n"},
    {"extended translations", "Tag2 = 'Tide'\n", nullptr,
     "ExtendedTranslations = <\n      item\n        Component = 'cmp'\n        Property = 'Tag2'\n        "
     "Values.Strings = (\n          'Tide'\n          'Flut'\n        )\n      end>\n",
     "Tag2 = 'Flut'\n"},
};

std::string FormWith(const std::string& component) {
    return "object Main: TMain\n  object cmp: TThing\n    " + component + "  end\nend\n";
}

TEST(Showlanguage, EveryShapeIsCheckedSetAndComesBack) {
    for (const TShowCase& row : kShowCases) {
        const std::string table =
            row.Table == nullptr
                ? std::string("    ") + row.Line
                : "    " + std::string(row.Table) + ".Strings = (\n      'cmp" + row.Line + "\n    )\n";
        TShownForm form(FormWith(row.Component), "TMain", table);
        const std::string before = form.Form();
        form.Show(1, 2);
        EXPECT_NE(form.Shown().find("    " + std::string(row.German)), std::string::npos) << row.What << "\n"
                                                                                          << form.Shown();
        form.Show(2, 3);
        form.Show(3, 2);
        form.Show(2, 1);
        EXPECT_EQ(form.Form(), before) << row.What;
    }
}

TEST(Showlanguage, WhatAFormInheritsIsOverriddenAndThenNot) {
    TShownForm form("inherited Main: TMain\n  inherited btn: TButton\n    Hint = 'Go'\n  end\nend\n", "TMain",
                    "    Captions.Strings = (\n      'btn.Caption'#1'&OK'#1'&Gut'#1\n      "
                    "'lbl.Caption'#1'Tide'#1'Flut'#1)\n",
                    "object Base: TBase\n  object btn: TButton\n    Caption = '&OK'\n  end\n  object lbl: "
                    "TLabel\n    Caption "
                    "= 'Tide'\n  end\nend\n");
    const std::string before = form.Form();
    form.Show(1, 2);
    EXPECT_EQ(form.Shown(),
              "inherited Main: TMain\n  inherited btn: TButton\n    Hint = 'Go'\n    Caption = "
              "'&Gut'\n  end\n");
    EXPECT_TRUE(form.Form().ends_with("  inherited lbl: TLabel\n    Caption = 'Flut'\n  end\nend\n"))
        << form.Form();
    form.Show(2, 1);
    EXPECT_EQ(form.Form(), before);
}

TEST(Showlanguage, WhatStandsInTheBlockOfAnInheritedFrameRepeatsTheFramesComponent) {
    TShownForm form(
        "inherited Main: TMain\n  inherited fra: TCargo\n    inherited lbl: TLabel\n      Hint = "
        "'Go'\n    end\n  end\nend\n",
        "TMain",
        "    Captions.Strings = (\n      'lbl.Caption'#1'Tide'#1'Flut'#1\n      "
        "'fra.lbl.Caption'#1'Load'#1'Last'#1)\n",
        "object Base: TBase\n  inline fra: TCargo\n  end\n  object lbl: TLabel\n    Caption = "
        "'Tide'\n  end\nend\n");
    form.Put("Cargo", "TCargo",
             "object Cargo: TCargo\n  object lbl: TLabel\n    Caption = 'Load'\n  end\nend\n", "TFrame");
    form.Files.Files["/p/P.dpr"].insert(std::string("program P;\nuses ").size(),
                                        "Cargo in 'Cargo.pas' {Cargo}, ");
    const std::string before = form.Form();
    form.Show(1, 2);
    EXPECT_EQ(form.Shown(),
              "inherited Main: TMain\n  inherited fra: TCargo\n    inherited lbl: TLabel\n      Hint = 'Go'\n"
              "      Caption = 'Last'\n    end\n  end\n");
    EXPECT_TRUE(form.Form().ends_with("  inherited lbl: TLabel\n    Caption = 'Flut'\n  end\nend\n"))
        << form.Form();
    form.Show(2, 1);
    EXPECT_EQ(form.Form(), before);
}

/// Another value for each entry: of what is no text one that a form can hold.
std::string Other(TStringsType type, const std::string& base) {
    if (type == TStringsType::stFonts) return "Name=Other;Height=-77;Style=Bold,Underline";
    if (type == TStringsType::stCharSets) return base == "ANSI_CHARSET" ? "OEM_CHARSET" : "ANSI_CHARSET";
    return PseudoText(base);
}

/// Gives the number of entries whose second language is another one.
int Translate(TmlCustomLang& lang) {
    int count = 0;
    std::vector<TTable> tables = lang.GetTables();
    for (TTable& table : tables)
        for (int i = 0; i < static_cast<int>(table.Entries().size()); ++i) {
            const std::string base = table.Entries()[static_cast<std::size_t>(i)].Base();
            table.SetText(i, 2, Other(table.Type(), base));
            count += Other(table.Type(), base) == base ? 0 : 1;
        }
    lang.SetTables(tables);
    return count;
}

/// The form's class as its first line names it, "" for a form that has an ancestor or is no text.
std::string ClassOf(const std::string& form) {
    const std::size_t colon = form.find(": ");
    if (!form.starts_with("object ") || colon > form.find('\n')) return {};
    return form.substr(colon + 2, form.find_first_of("\r\n") - colon - 2);
}

bool HoldsMoreThanTexts(const std::string& form) {
    return Contains(form, ".Strings = (") || Contains(form, "Font.") || Contains(form, "  item") ||
           Contains(form, "Items.");
}

TEST(Showlanguage, PackagedFormsComeBackByteForByte) {
    int forms = 0;
    int entries = 0;
    for (const auto& path : PartOf(FilesBelow("/usr/lib/lazarus", {".lfm"}), 20)) {
        const std::string text = ReadFileOf(path);
        if (ClassOf(text).empty() || !HoldsMoreThanTexts(text)) continue;
        TShownForm form(text, ClassOf(text), "");
        form.Do([&](TmlCustomLang& lang) {
            lang.BuildList();
            entries += Translate(lang);
        });
        const std::string before = form.Form();
        form.Show(1, 2);
        form.Do([&](TmlCustomLang& lang) {
            const std::vector<TTable> tables = lang.GetTables();
            lang.SetLanguage("German");
            lang.BuildList();
            for (const TTable& table : tables)
                EXPECT_EQ(lang.GetTable(table.Type()).Lines("|").Text(), table.Lines("|").Text()) << path;
            lang.SetLanguage("English");
        });
        form.Show(2, 1);
        EXPECT_EQ(form.Form(), before) << path;
        ++forms;
    }
    ASSERT_GT(forms, 0) << "the package lazarus-src is wanted";
    EXPECT_GT(entries, 5 * forms);
}

}  // namespace
}  // namespace tml
