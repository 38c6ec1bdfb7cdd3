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
    EXPECT_EQ(List(), "Form2|Unit2|3|mlLang1|1;Form1|Unit1|2|mlLang_Form1|1;");
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

TEST_F(TInsertion, TheActiveLanguageKeepsItsPlace) {
    Open();
    Ide.GetModuleServices()->OpenModule("/p/Unit2.pas", true);
    GetmlLang(Context(), "Form2")->SetLanguage("German");
    ConfigureLangComponent(Context(), &Row("Form2"),
                           {3, "", "TmlCustomLang", false, "English,Deutsch,German"});
    EXPECT_EQ(GetmlLang(Context(), "Form2")->GetLanguage(), "Deutsch");
    ConfigureLangComponent(Context(), &Row("Form2"), {1, "", "TmlCustomLang", false, ""});
    EXPECT_EQ(GetmlLang(Context(), "Form2")->GetLanguage(), "English");
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
    // Base, German and French are deleted or moved in the window, or by their names; confirmed, where asked.
    const struct {
        std::vector<bool> Selected;
        bool Up;
        const char* Asked;
        TModalResult Answer;
        const char *Texts, *OtherTexts;
    } rows[] = {
        {{false, true, false}, false, "", mrNone, "IDS_0|Known|Connu", "IDS_0|Known|Bekannt"},
        {{false, false, true}, true, "", mrNone, "IDS_0|Known|Connu|Bekannt", ""},
        {{true, false, false},
         false,
         "German would be the base language in place of English, for every text. "
         "Continue?",
         mrNo,
         "IDS_0|Known|Bekannt|Connu",
         ""},
        {{true, false, false},
         false,
         "German would be the base language in place of English, for every text. "
         "Continue?",
         mrYes,
         "IDS_0|Bekannt|Connu",
         ""},
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
            if (row.Up) {
                window.btnMoveUpClick();
            } else {
                User.OnMessage("Delete selected language name(s)?", mrYes);
                window.btnDeleteClick();
            }
            if (row.Answer != mrNone) User.OnMessage(row.Asked, row.Answer);
            window.ModalResult = mrOk;
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

TEST_F(TInsertion, ADispatcherIsEditedInTheComponentsStead) {
    PutForm(1,
            "  object D: TmlLangDispatcher\n    LangNames.Strings = (\n      'One')\n  end\n"
            "  object mlLang1: TmlLang\n    Dispatcher = D\n  end\n");
    Open();
    Select("Form1");
    User.OnMessage(
        "Selected component is linked to a dispatcher! Do you wish to edit languages of the "
        "dispatcher component?",
        mrYes);
    Languages([](TfrmLangConfig& window) {
        EXPECT_EQ(window.lbLangNames, TStringList({"One"}));
        window.edLangCountChange("2");
        window.ModalResult = mrOk;
    });
    const TLangSetUp setUp{3, "", "TmlLangDispatcher", false, ""};
    EXPECT_EQ(Row("Form1").Cell(fcLanguages), "1");
    ConfigureLangComponent(Context(), &Row("Form1"), setUp);
    EXPECT_EQ(Row("Form1").Cell(fcLanguages), "1") << "only a localization component counts";
    EXPECT_NE(Files.Files["/p/Unit1.dfm"].find("NumOfLanguages = 3"), std::string::npos)
        << Files.Files["/p/Unit1.dfm"];
    EXPECT_NE(Files.Files["/p/Unit1.dfm"].find("'Language N2'"), std::string::npos)
        << Files.Files["/p/Unit1.dfm"];
}

TEST_F(TInsertion, ADispatchersFormIsSavedAndClosedAgain) {
    PutForm(1, "  object mlLang1: TmlLang\n    Dispatcher = Form2.D\n  end\n");
    PutForm(2, "  object D: TmlLangDispatcher\n    LangNames.Strings = (\n      'One')\n  end\n");
    Open();
    Select("Form1");
    for (const TModalResult result : {mrCancel, mrOk}) {
        User.OnMessage(
            "Selected component is linked to a dispatcher! Do you wish to edit languages of the "
            "dispatcher component?",
            mrYes);
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
