#include <algorithm>
#include <tuple>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "support/Expertfixture.h"
#include "translations/Langconfig.h"

namespace tml {
namespace {

struct TInsertion : TExpertFixture, testing::Test {
    std::vector<std::string> Names(const std::string& form) {
        const TModuleLease lease(Context(), Row(form).FileName);
        const auto lang = GetmlLang(Context(), form);
        return lang == nullptr ? std::vector<std::string>() : lang->GetLangNames().Items();
    }
    void Languages(std::function<void(TfrmLangConfig&)> use) {
        User.OnWindow<TfrmLangConfig>("frmLangConfig", std::move(use));
        Expert->Window()->Run("Languages");
    }
};

TEST_F(TInsertion, PutsANamedComponentOnTheFormAndConfiguresItsRowOnly) {
    PutForm(2, "");
    Registry.Values["\\Software\\Velmora\\TmlLang\\ExpSettings\\DefaultLangNames"] =
        std::string("English,German,Czech");
    Open();
    Expert->Window()->SelectAll1Click();
    InsertTmlLang(Context(), Row("Form1"));
    EXPECT_EQ(List(), "Form2|Unit2|0||0;Form1|Unit1|2|TmlLang|1;") << "the class is shown, only for this row";
    EXPECT_EQ(Row("Form1").Component.ClassName, "TmlLang");
    EXPECT_EQ(GetmlLang(Context(), "Form1")->GetName(), "mlLang_Form1");
    EXPECT_EQ(Names("Form1"), (std::vector<std::string>{"English", "German"}));
    EXPECT_EQ(Context().Rows.StatusPanels[2], "Forms translated: 1 of 2");
    EXPECT_EQ(Ide.GetModuleServices()->GetCurrentSourceEditor()->GetFileName(), "/p/Unit1.pas")
        << "it is shown";
    InsertTmlLang(Context(), Row("Form1"));
    EXPECT_EQ(GetFormEditor(Context(), "Form1")->GetRootComponent()->GetComponentCount(), 2) << "once only";
    Expert->RunItemClick();
    EXPECT_EQ(List(), "Form2|Unit2|0||0;Form1|Unit1|2|mlLang_Form1|1;");
}

TEST_F(TInsertion, TakesAComponentThatIsThere) {
    Open();
    TFormRow& row = Row("Form2");
    UpdateItem(&row, {});
    InsertTmlLang(Context(), row);
    EXPECT_EQ(row.Cell(fcLanguages) + row.Cell(fcComponent), "3mlLang1");
}

TEST(Insertion, TheNameIsFreeFromTheStart) {
    // What stands in the form and in its class, and the name.
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"", "    mlLang1: Integer;\r\n", "mlLang_Form1"},
        {"", "    procedure Old; // mlLang_Form1\r\n", "mlLang_Form1"},
        {"", "    mlLang_Form1: TmlLang;\r\n", "mlLang_Form1"},
        {"  object MLLANG_form1: TTimer\n  end\n", "", "mlLang_Form1_2"},
        {"", "    mlLang_Form1: TButton;\r\n    mllang_form1_2: TButton;\r\n", "mlLang_Form1_3"},
        {"", "    procedure mlLang_Form1;\r\n", "mlLang_Form1_2"},
        {"", "  private\r\n    property mlLang_Form1: Integer read Tag;\r\n", "mlLang_Form1_2"},
    };
    for (const auto& [component, member, name] : rows) {
        TExpertFixture test;
        test.PutForm(1, "");
        const std::string edit = "  object Edit1: TEdit\r\n    Lang = mlLang1\r\n  end\r\n";
        test.Files.Files["/p/Unit1.dfm"].insert(test.Files.Files["/p/Unit1.dfm"].find("  object"),
                                                edit + component);
        std::string& unit = test.Files.Files["/p/Unit1.pas"];
        unit.insert(unit.find("  end;"), member);
        const std::size_t size = unit.size();
        test.Open();
        InsertTmlLang(test.Context(), test.Row("Form1"));
        test.Ide.SaveAll();
        EXPECT_EQ(GetmlLang(test.Context(), "Form1")->GetName(), name) << member;
        EXPECT_EQ(test.Row("Form1").Component.ComponentName, name);
        const std::string line = "    " + std::string(name) + ": TmlLang;\r\n";
        EXPECT_TRUE(Contains(unit, line)) << unit;
        EXPECT_EQ(unit.size(), size + std::string(", Mllang").size() + (member == line ? 0 : line.size()));
        EXPECT_TRUE(Contains(test.Files.Files["/p/Unit1.dfm"], edit)) << "the names of others stay";
    }
}

TEST_F(TInsertion, AFormOfAnotherNameThanItsRowsIsToldOf) {
    Files.Files["/p/Unit1.dfm"].replace(7, 5, "Other");
    Open();
    const auto files = Files.Files;
    Select("Form1");
    for (const char* command : {"SourceWithForm", "ConstWithForm"}) {
        User.OnMessage("Unable to obtain the interface of form module! Please check your project source.");
        Expert->Window()->Run(command);
    }
    User.OnMessage("Unable to obtain the interface of form module! Please check your project source.");
    EXPECT_THROW(InsertTmlLang(Context(), Row("Form1")), EmlLangSilent);
    // The name is that of another unit's form.
    Files.Files["/p/Unit1.dfm"].replace(7, 5, "Form2");
    GetModuleFromFileName(Context(), "/p/Unit1.pas")->Close();
    OpenFile(Context(), "/p/Unit2.pas", true);
    TFormRow& twin = Rows().Add("Form2", "Unit1", "/p/Unit1.pas");
    EXPECT_THROW(InsertTmlLang(Context(), twin), EBadInput);
    Ide.SaveAll();
    EXPECT_EQ(Files.Files.at("/p/Unit1.pas"), files.at("/p/Unit1.pas"));
    EXPECT_EQ(Files.Files.at("/p/Unit2.dfm"), files.at("/p/Unit2.dfm"));
    GetModuleFromFileName(Context(), "/p/Unit2.pas")->Close();
    InsertTmlLang(Context(), twin);
    EXPECT_EQ(GetModuleFromFileName(Context(), "/p/Unit2.pas"), nullptr)
        << "the row before has that name, too";
    EXPECT_EQ(AnalyzeFile(Context(), twin.FileName).ComponentName, "mlLang_Form2");
}

TEST_F(TInsertion, ARowThatCannotBeReadKeepsNoOtherBack) {
    Open();
    for (const int bad : {1, 2}) {
        const std::string good = std::to_string(3 - bad);
        PutForm(bad, "  object mlLang1: TmlLang\n    NumOfLanguages = many\n  end\n");
        PutForm(3 - bad, "  object mlLang1: TmlLang\n    NumOfLanguages = 7\n  end\n");
        EXPECT_THROW(Expert->FilesRestored({"/p/Unit1.dfm", "/p/Unit2.dfm"}), EBadInput);
        EXPECT_EQ(Row("Form" + good).Cell(fcLanguages), "7");
    }
}

TEST_F(TInsertion, TheRowFollowsUndoRedoAndAClosingWithoutSave) {
    Open();
    Select("Form1");
    const std::string list = List();
    const std::vector<std::string> files{"/p/Unit1.pas", "/P/unit1.dfm"};
    InsertTmlLang(Context(), Row("Form1"));
    const std::string inserted = List();
    EXPECT_EQ(inserted, "Form2|Unit2|3|mlLang1|1;Form1|Unit1|2|TmlLang|1;");
    Ide.Undo();
    Expert->FilesRestored(files);
    EXPECT_EQ(List(), list);
    Ide.Redo();
    Expert->FilesRestored(files);
    EXPECT_EQ(List(), inserted);
    Expert->FilesRestored({"/p/Unit2.dfm", "/p/Other.dfm"});
    GetModuleFromFileName(Context(), "/p/Unit1.pas")->Close();
    EXPECT_EQ(List(), list);
    EXPECT_EQ(Context().Rows.StatusPanels[2], "Forms translated: 1 of 2");
}

TEST_F(TInsertion, EndsWithoutAMessageWhereTheUnitCannotBeOpened) {
    Open();
    Files.Files.erase("/p/Unit1.pas");
    EXPECT_THROW(InsertTmlLang(Context(), Row("Form1")), EmlLangSilent);
    Select("Form1");
    Expert->Window()->Run("SourceWithForm");
    EXPECT_EQ(List(), "Form2|Unit2|3|mlLang1|1;Form1|Unit1|0||0;");
}

TEST_F(TInsertion, AClosedFormIsConfiguredSavedAndClosed) {
    Open();
    const auto files = Files.Files;
    ConfigureLangComponent(Context(), &Row("Form2"), {2, "", "TmlCustomLang", false, "A,B,C"});
    EXPECT_FALSE(IsFileOpen(Context(), "/p/Unit2.pas"));
    EXPECT_NE(Files.Files["/p/Unit2.dfm"].find("NumOfLanguages = 2\r\n"), std::string::npos);
    EXPECT_EQ(Names("Form2"), (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(Row("Form2").Cell(fcLanguages), "2");

    Ide.GetModuleServices()->OpenModule("/p/Unit2.pas", true);
    const auto saved = Files.Files;
    ConfigureLangComponent(Context(), &Row("Form2"), {1, "MLLANG1", "TmlCustomLang", false, ""});
    ConfigureLangComponent(Context(), &Row("Form2"), {9, "Other", "TmlCustomLang", false, ""});
    EXPECT_EQ(GetmlLang(Context(), "Form2")->GetNumLang(), 1);
    EXPECT_TRUE(GetFormEditor(Context(), "Form2")->GetModified());
    EXPECT_EQ(Files.Files, saved) << "an open form stays open and unsaved";
}

TEST_F(TInsertion, TheFormShowsTheActiveLanguageWhichGoesWithItsTexts) {
    PutForm(2,
            "  object mlLang1: TmlLang\n    NumOfLanguages = 3\n    LangNames.Strings = (\n"
            "      'English'\n      'German'\n      'French')\n    Captions.Strings = (\n"
            "      '.Caption'#1'Form2'#1'Fenster'#1'Feuille'\n      'Button1.Caption'#1'Go'#1'Los'#1)\n"
            "    OtherStrings.Strings = (\n      'Nobody.Text'#1'Go'#1'Los'#1'Va'\n"
            "      'mlLang1.LangNames'#1'a'#1'b'#1'c'\n      'Tag'#1'a'#1'b'#1'c')\n  end\n");
    Open();
    const std::string form = Files.Files["/p/Unit2.dfm"];
    // Active before, with its texts; the languages from now on; what is active and shown then.
    const struct {
        const char *Active, *Window, *Button, *Names, *NewActive, *NewWindow, *NewButton;
    } rows[] = {
        {"English", "Form2", "Go", "English,French", "English", "Form2", "Go"},
        {"English", "Form2", "Go", "German,English", "German", "Fenster", "Los"},
        {"English", "Mine", "Go", "German,English", "German", "Mine", "Los"},
        {"English", "Form2", "Go", "French,English", "French", "Feuille", "Go"},
        {"English", "Form2", "Go", "Polish", "Polish", "Form2", "Go"},
        {"German", "Fenster", "Los", "English,French,German", "German", "Fenster", "Los"},
        {"German", "Fenster", "Los", "German,English", "German", "Fenster", "Los"},
        {"German", "Fenster", "Los", "French,English", "French", "Feuille", "Go"},
        {"German", "Fenster", "Los", "English", "English", "Form2", "Go"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.Active) + " " + row.Names);
        Files.Files["/p/Unit2.dfm"] = form;
        const TModuleLease lease(Context(), "/p/Unit2.pas");
        const auto root = GetFormEditor(Context(), "Form2")->GetRootComponent();
        const auto button = GetFormEditor(Context(), "Form2")->FindComponent("Button1");
        const auto lang = GetmlLang(Context(), "Form2");
        lang->SetLanguage(row.Active);
        root->SetPropValue("Caption", TFormValue::String(row.Window));
        button->SetPropValue("Caption", TFormValue::String(row.Button));
        const int count = TStringList::FromCommaText(row.Names).Count();
        ConfigureLangComponent(Context(), &Row("Form2"), {count, "", "TmlCustomLang", false, row.Names});
        EXPECT_EQ(lang->GetLanguage(), row.NewActive);
        EXPECT_EQ(root->GetPropValue("Caption")->Text, row.NewWindow);
        EXPECT_EQ(button->GetPropValue("Caption")->Text, row.NewButton);
        EXPECT_EQ(lang->GetTable(TStringsType::stCaptions).Entries()[1].Base(),
                  row.NewActive == std::string("German") && count == 2 ? "Los" : "Go");
    }
}

TEST_F(TInsertion, TheLanguagesCommandSetsEverySelectedRow) {
    Open();
    Expert->Settings().SetDefaultLangNames("English");
    Select("Form1");
    Languages([](TfrmLangConfig& window) {
        EXPECT_EQ(window.lbLangNames, TStringList({"English", "Language N2"}));
        window.ModalResult = mrCancel;
    });
    EXPECT_EQ(Row("Form1").Cell(fcLanguages), "0");
    Select("Form2");
    Row("Form1").Selected = true;
    Languages([](TfrmLangConfig& window) {
        EXPECT_EQ(window.lbLangNames, TStringList({"English", "German", "French"}));
        window.edLangCountChange("4");
        window.ModalResult = mrOk;
    });
    EXPECT_EQ(List(), "Form2|Unit2|4|mlLang1|1;Form1|Unit1|4|TmlLang|1;");
    EXPECT_EQ(Names("Form1"), (std::vector<std::string>{"English", "German", "French", "Language N4"}));
    EXPECT_FALSE(IsFileOpen(Context(), "/p/Unit2.pas"));
    EXPECT_NE(Files.Files["/p/Unit2.dfm"].find("NumOfLanguages = 4"), std::string::npos);
}

TEST_F(TInsertion, TextsGoWithTheirLanguages) {
    const std::string form = Files.Files["/p/Unit2.dfm"];
    std::string other = form;
    other.replace(other.find("Form2: TForm2"), 13, "Form1: TForm1");
    other.replace(other.find("'German'"), 8, "'Tongue'");
    other.replace(other.find("'French'"), 8, "'German'");
    // The line of the one string, "|" between its fields.
    const auto lineOf = [this](const char* file) {
        std::string line = Files.Files[file];
        line.erase(0, line.find("'IDS_0") + 1);
        line.erase(line.find(')') - 1);
        for (std::size_t at = line.find("'#1'"); at != std::string::npos; at = line.find("'#1'"))
            line.replace(at, 4, "|");
        std::replace(line.begin(), line.end(), '\x01', '|');
        return line;
    };
    // What is selected in the window of Form2 and then deleted, moved up or renamed; the question and its
    // answer; the texts of Form2 and, where it is a further row, of Form1 (English, Tongue, German).
    enum TAction { Delete, Up, Rename };
    const struct {
        std::vector<bool> Selected;
        TAction Action;
        const char* Asked;
        TModalResult Answer;
        const char *Texts, *OtherTexts;
    } rows[] = {
        {{false, true, false}, Delete, "", mrNone, "IDS_0|Known|Connu", ""},
        {{false, false, true}, Up, "", mrNone, "IDS_0|Known|Connu|Bekannt", ""},
        {{false, true, false}, Rename, "", mrNone, "IDS_0|Known|Bekannt|Connu", ""},
        {{false, true, false},
         Rename,
         "the texts of Tongue of Form1",
         mrYes,
         "IDS_0|Known|Bekannt|Connu",
         "IDS_0|Known|Connu|Known"},
        {{false, true, false},
         Delete,
         "the texts of Tongue of Form1",
         mrYes,
         "IDS_0|Known|Connu",
         "IDS_0|Known|Known"},
        {{true, false, false},
         Delete,
         "English as the base language of Form2",
         mrNo,
         "IDS_0|Known|Bekannt|Connu",
         ""},
        {{true, false, false},
         Delete,
         "English as the base language of Form2",
         mrYes,
         "IDS_0|Bekannt|Connu",
         ""},
        {{false, true, false},
         Up,
         "English as the base language of Form2; English as the base language of Form1; the texts of Tongue "
         "of Form1",
         mrYes,
         "IDS_0|Bekannt|Known|Connu",
         "IDS_0|Connu|Known|Connu"},
    };
    for (const auto& row : rows) {
        Files.Files["/p/Unit2.dfm"] = form;
        Files.Files["/p/Unit1.dfm"] = other;
        if (Expert == nullptr) Open();
        Expert->RunItemClick();
        Select("Form2");
        Row("Form1").Selected = *row.OtherTexts != 0;
        Languages([&](TfrmLangConfig& window) {
            window.Selected = row.Selected;
            if (row.Action == Delete) User.OnMessage("Delete selected language name(s)?", mrYes);
            if (row.Action == Rename) User.OnInput("Enter new language name:", "Deutsch");
            if (row.Action == Delete) window.btnDeleteClick();
            if (row.Action == Rename) window.btnRenameClick();
            if (row.Action == Up) window.btnMoveUpClick();
            if (row.Answer != mrNone)
                User.OnMessage("These languages would give up " + std::string(row.Asked) + ". Continue?",
                               row.Answer);
            window.ModalResult = mrOk;
            if (row.Answer != mrNo) return;
            EXPECT_FALSE(window.FormCloseQuery()) << "what was entered is not lost";
            window.ModalResult = mrCancel;
        });
        EXPECT_EQ(lineOf("/p/Unit2.dfm"), row.Texts) << row.Asked;
        if (*row.OtherTexts != 0) {
            EXPECT_EQ(lineOf("/p/Unit1.dfm"), row.OtherTexts);
        }
    }
}

TEST(Insertion, AFormThatFailsTakesNothingOfTheOthersBack) {
    for (const std::string fault : {"no unit", "another name", "no class"}) {
        TExpertFixture test;
        if (fault == "another name") test.Files.Files["/p/Unit1.dfm"].replace(7, 5, "Other");
        if (fault == "no class")
            test.Put("/p/Unit1.pas", "unit Unit1;\n\ninterface\n\nimplementation\n\nend.\n");
        test.Open();
        if (fault == "no unit") test.Files.Files.erase("/p/Unit1.pas");
        test.Select("Form2");
        test.Row("Form1").Selected = true;
        test.User.OnWindow<TfrmLangConfig>("frmLangConfig", [](TfrmLangConfig& window) {
            window.edLangCountChange("4");
            window.ModalResult = mrOk;
        });
        if (fault == "another name")
            test.User.OnMessage(
                "Unable to obtain the interface of form module! Please check your project source.");
        test.Context().ComponentName = "of a row before";
        const auto run = [&] { test.Expert->Window()->Run("Languages"); };
        if (fault == "no class")
            EXPECT_THROW(run(), EBadInput);
        else
            run();
        EXPECT_EQ(test.List(), "Form2|Unit2|4|mlLang1|1;Form1|Unit1|0||0;") << fault;
        EXPECT_EQ(test.Context().ComponentName, "mlLang1") << "the window follows all the same";
        EXPECT_TRUE(Contains(test.Files.Files["/p/Unit2.dfm"], "NumOfLanguages = 4")) << fault;
    }
}

TEST_F(TInsertion, AClassThatIsNoneOfLocalizationIsRefused) {
    Open();
    Expert->Settings().SetDefaultComp("TmlLangDispatcher");
    Select("Form1");
    EXPECT_THROW(InsertTmlLang(Context(), Row("Form1")), EBadInput);
    EXPECT_THROW(Expert->Window()->Run("SourceWithForm"), EBadInput);
}

constexpr const char* kEditDispatcher =
    "Selected component is linked to a dispatcher! Do you wish to edit languages of the dispatcher "
    "component?";

TEST_F(TInsertion, ADispatcherIsEditedInTheComponentsStead) {
    // The component on Form2 has a column more than the dispatcher has languages.
    PutForm(1,
            "  object D: TmlLangDispatcher\n    NumOfLanguages = 2\n    LangNames.Strings = (\n"
            "      'One'\n      'Two')\n  end\n  object mlLang1: TmlLang\n    NumOfLanguages = 2\n"
            "    Dispatcher = D\n    Captions.Strings = (\n      'Button1.Caption'#1'Go'#1'Los')\n  end\n");
    PutForm(2,
            "  object mlLang1: TmlLang\n    NumOfLanguages = 3\n    Dispatcher = form1.d\n"
            "    Captions.Strings = (\n      'Button1.Caption'#1'Go'#1'Los'#1'Va')\n  end\n"
            "  object mlLang2: TmlLang\n    NumOfLanguages = 2\n    Captions.Strings = (\n"
            "      'Button1.Caption'#1'Go'#1'Los')\n  end\n");
    Open();
    const auto captions = [this](const char* form, const char* component) {
        const TModuleLease lease(Context(), Row(form).FileName);
        const auto lang = Runtime->AsCustomLang(GetFormEditor(Context(), form)->FindComponent(component));
        return std::to_string(lang->GetNumLang()) + " " + lang->GetLangNames().CommaText() + " " +
               lang->GetTable(TStringsType::stCaptions).Lines("|")[0];
    };
    Select("Form1");
    User.OnMessage(kEditDispatcher, mrYes);
    Languages([this](TfrmLangConfig& window) {
        EXPECT_EQ(window.lbLangNames, TStringList({"One", "Two"}));
        window.Selected = {false, true};
        window.btnMoveUpClick();
        window.edLangCountChange("3");
        window.ModalResult = mrOk;
        User.OnMessage("These languages would give up One as the base language of D. Continue?", mrYes);
    });
    EXPECT_EQ(List(), "Form2|Unit2|3|mlLang1|1;Form1|Unit1|3|mlLang1|1;");
    EXPECT_EQ(captions("Form1", "mlLang1"), "3 Two,One,\"Language N3\" Button1.Caption|Los|Go|Los");
    EXPECT_EQ(captions("Form2", "mlLang1"), "3 Two,One,\"Language N3\" Button1.Caption|Los|Go|Va");
    EXPECT_EQ(captions("Form2", "mlLang2"), "2 \"Language N1\",\"Language N2\" Button1.Caption|Go|Los");
    for (const char* file : {"/p/Unit1.dfm", "/p/Unit2.dfm"})
        EXPECT_TRUE(Contains(Files.Files[file], "    Caption = 'Los'")) << "the form shows the base language";
    EXPECT_TRUE(Contains(Files.Files["/p/Unit1.dfm"], "NumOfLanguages = 3")) << Files.Files["/p/Unit1.dfm"];
    ConfigureLangComponent(Context(), &Row("Form1"), {1, "", "TmlLangDispatcher", false, "Two"});
    EXPECT_EQ(captions("Form1", "mlLang1"), "1 Two Button1.Caption|Los");
}

TEST_F(TInsertion, OnlyALocalizationComponentCounts) {
    PutForm(1, "  object D: TmlLangDispatcher\n  end\n");
    Open();
    ConfigureLangComponent(Context(), &Row("Form1"), {3, "d", "TmlLangDispatcher", false, ""});
    EXPECT_TRUE(Contains(Files.Files["/p/Unit1.dfm"], "NumOfLanguages = 3")) << Files.Files["/p/Unit1.dfm"];
    EXPECT_EQ(Row("Form1").Cell(fcLanguages), "0");
}

TEST_F(TInsertion, ADispatchersFormIsSavedAndClosedAgain) {
    PutForm(1, "  object mlLang1: TmlLang\n    Dispatcher = Form2.D\n  end\n");
    PutForm(2, "  object D: TmlLangDispatcher\n    LangNames.Strings = (\n      'One')\n  end\n");
    Open();
    Select("Form1");
    for (const TModalResult result : {mrCancel, mrOk}) {
        User.OnMessage(kEditDispatcher, mrYes);
        Languages([result](TfrmLangConfig& window) {
            window.edLangCountChange("2");
            window.ModalResult = result;
        });
        EXPECT_FALSE(IsFileOpen(Context(), "/p/Unit2.pas"));
        EXPECT_EQ(Contains(Files.Files["/p/Unit2.dfm"], "'Language N2'"), result == mrOk);
    }
}

}  // namespace
}  // namespace tml
