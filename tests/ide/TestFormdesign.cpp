// A form in its designer, as the panes of the workbench show and change it.
#include <gtest/gtest.h>

#include "base/Errors.h"
#include "ide/Formdesign.h"
#include "ide/Module.h"
#include "support/Expertfixture.h"
#include "windows/Stringlisteditor.h"

namespace tml {
namespace {

constexpr const char* kComponents = R"(  object mlLang1: TmlLang
    NumOfLanguages = 2
    LangNames.Strings = (
      'English'
      'German')
    Captions.Strings = (
      'Button1.Caption'#1'Go'#1'Los')
    Left = 8
    Top = 8
  end
  object disp: TmlLangDispatcher
  end
  object linked: TmlLangLinked
    CommonContainer = mlLang1
  end
  object Panel1: TPanel
    Align = alTop
    Anchors = [akLeft, akTop]
    Color = clBtnFace
    Height = 40
    Hint = 'One'#13#10'Two'
    Visible = False
    object Edit1: TEdit
      Left = 4
      Width = 80
    end
  end
  object List1: TListBox
    Items.Strings = (
      'one'
      'two')
  end
  object Label1: TLabel
    FocusControl = Edit1
    OnClick = Go
  end
)";

struct TFormDesignTest : testing::Test, TExpertFixture {
    TFormDesignTest() {
        PutForm(2, kComponents);
        Put("/p/Unit1.dfm",
            "inherited Form1: TForm1\n  Caption = 'Heir'\n  inherited Panel1: TPanel\n    Height = 50\n"
            "  end\n  object mlHeir: TmlLang\n    NumOfLanguages = 2\n    Dispatcher = Form2.disp\n"
            "    LangNames.Strings = (\n      'English'\n      'German')\n    Captions.Strings = (\n"
            "      '.Caption'#1'Heir'#1'Erbe')\n  end\nend\n");
        std::string& unit = Files.Files["/p/Unit1.pas"];
        unit.replace(unit.find("class(TForm)"), 12, "class(TForm2)");
        Start();
    }
    void Show(const std::string& unit = "/p/Unit2.pas") {
        Module = Parts.Modules().OpenModule(unit, true);
        Design.Follow(Module->GetFormEditor());
    }
    void Select(const std::vector<std::string>& paths) {
        std::vector<int> indexes;
        for (const std::string& path : paths)
            indexes.push_back(Design.Find(path));
        Design.Select(indexes);
    }
    /// As typed into the inspector; the reason where it is refused.
    std::string Set(const std::string& path, const std::string& property, const std::string& text) {
        Select({path});
        std::string refusal;
        try {
            Design.Inspector().SetText(property, text);
        } catch (const EBadInput& error) {
            refusal = error.Problem();
        }
        Design.Follow(Module->GetFormEditor());
        return refusal;
    }
    const TInspectedProperty* FindRow(const std::string& property) {
        for (const TInspectedProperty& row : Design.Inspector().Rows())
            if (row.Name == property) return &row;
        return nullptr;
    }
    const TInspectedProperty& Row(const std::string& property) {
        if (const TInspectedProperty* row = FindRow(property)) return *row;
        throw std::runtime_error("no row " + property);
    }
    std::string Value(const std::string& path, const std::string& property) {
        Select({path});
        return Row(property).Value;
    }
    std::string Form() { return std::dynamic_pointer_cast<TModule>(Module)->Files().Form->Bytes(); }
    std::string Source() { return *Module->GetSourceEditor(0)->GetText(); }

    TFormDesign Design{Ide, *Runtime};
    std::shared_ptr<IOTAModule> Module;
};

TEST_F(TFormDesignTest, ShowsComponentsByWhatTheyStandIn) {
    const auto tree = [&] {
        std::string text;
        for (const TTreeComponent& one : Design.Components())
            text += std::to_string(one.Parent) + " " + one.Path + (one.IsControl ? "" : " unseen") +
                    (one.Origin == TComponentOrigin::coInherited ? " inherited;" : ";");
        return text;
    };
    Show();
    EXPECT_EQ(
        tree(),
        "-1 ;0 mlLang1 unseen;0 disp unseen;0 linked unseen;0 Panel1;4 Edit1;0 List1;0 Label1;0 Button1;");
    Select({"Edit1", "Button1"});
    EXPECT_EQ(Design.Selected(), (std::vector<int>{Design.Find("Edit1"), Design.Find("Button1")}));
    EXPECT_EQ(Design.Components()[static_cast<std::size_t>(Design.ParentOfSelected())].Name, "Panel1");
    Show("/p/Unit1.pas");
    EXPECT_EQ(tree(),
              "-1 ;0 mlLang1 unseen inherited;0 disp unseen inherited;0 linked unseen inherited;0 Panel1 "
              "inherited;4 Edit1 inherited;0 List1 inherited;0 Label1 inherited;0 Button1 inherited;0 mlHeir "
              "unseen;");
}

TEST_F(TFormDesignTest, TakesValuesAsOneStepEach) {
    Show();
    const struct {
        const char* Path;
        const char* Property;
        const char* Text;
        const char* Shown;
    } kValues[] = {
        {"Panel1", "Align", "ALCLIENT", "alClient"},
        {"Panel1", "Anchors", "[akRight, akTop]", "[akRight,akTop]"},
        {"Panel1", "Anchors", "[]", "[]"},
        {"Panel1", "Color", "$FF", "255"},
        {"Panel1", "Color", "clRed", "clRed"},
        {"Panel1", "Height", " -7 ", "-7"},
        {"Panel1", "Visible", "true", "True"},
        {"Panel1", "ShowHint", "True", "True"},
        {"Label1", "FocusControl", "Panel1", "Panel1"},
        {"Label1", "FocusControl", "", ""},
        {"Label1", "OnClick", "", ""},
        {"Button1", "Caption", "It's 'so'", "It's 'so'"},
        {"", "Caption", "Title", "Title"},
        {"mlLang1", "Dispatcher", "disp", "disp"},
        {"linked", "CommonContainer", "", ""},
        {"disp", "NumOfLanguages", "3", "3"},
    };
    for (const auto& value : kValues) {
        const std::string before = Form();
        EXPECT_EQ(Set(value.Path, value.Property, value.Text), "") << value.Property;
        const auto rows = [&] {
            Select({value.Path});
            for (const TInspectedProperty& row : Design.Inspector().Rows())
                if (row.Name == value.Property) return row.Value;
            return std::string();
        };
        EXPECT_EQ(rows(), value.Shown) << value.Property;
        EXPECT_TRUE(Module->GetModified());
        EXPECT_NE(Form(), before) << value.Property;
        Ide.Undo("/p/Unit2.pas");
        EXPECT_EQ(Form(), before) << value.Property;
        EXPECT_FALSE(Module->GetModified()) << "nothing else was a step: " << value.Property;
        Design.Follow(Module->GetFormEditor());
    }
}

TEST_F(TFormDesignTest, RefusesWhatAPropertyCannotTake) {
    Show();
    const std::string before = Form();
    const std::string source = Source();
    const struct {
        const char* Path;
        const char* Property;
        const char* Text;
        const char* Reason;
    } kRefused[] = {
        {"Panel1", "Align", "alMiddle", "takes one of alNone, alTop, alBottom, alLeft"},
        {"Panel1", "Anchors", "akLeft", "takes names in brackets, among akLeft"},
        {"Panel1", "Anchors", "[alLeft]", "takes names in brackets, among akLeft"},
        {"Panel1", "Color", "red", "takes a whole number of 32 bits or a name that begins with \"cl\""},
        {"Panel1", "Height", "12.5", "takes a whole number of 32 bits, not \"12.5\""},
        {"Panel1", "Height", "4294967296", "takes a whole number of 32 bits"},
        {"Panel1", "Height", "", "takes a whole number of 32 bits"},
        {"Panel1", "Visible", "yes", "takes True or False, not \"yes\""},
        {"Label1", "FocusControl", "Nobody", "there is no component Nobody"},
        {"Label1", "FocusControl", "disp", "Label1.FocusControl takes no TmlLangDispatcher"},
        {"Label1", "OnClick", "Nothing", "the form's class has no method Nothing"},
        {"Label1", "OnClick", "Panel1", "the form's class has no method Panel1"},
        {"linked", "CommonContainer", "linked", "linked.CommonContainer takes no TmlLangLinked"},
        {"mlLang1", "Captions", "text", "is not changed by typing"},
        {"mlLang1", "Language", "Welsh", "\"Welsh\" is none of the languages English,German"},
        {"mlLang1", "NumOfLanguages", "0", "NumOfLanguages takes a whole number from 1 to"},
        {"Button1", "Name", "1st", "\"1st\" is no name for a component"},
        {"Button1", "Name", "End", "\"End\" is no name for a component"},
        {"Button1", "Name", "Panel1", "the form has a component Panel1 already"},
    };
    for (const auto& refused : kRefused) {
        const std::string reason = Set(refused.Path, refused.Property, refused.Text);
        EXPECT_NE(reason.find(refused.Reason), std::string::npos) << refused.Text << ": " << reason;
        EXPECT_EQ(Form(), before) << refused.Text;
        EXPECT_EQ(Source(), source) << refused.Text;
    }
    EXPECT_FALSE(Module->GetModified());
    EXPECT_EQ(Ide.Undo(), "") << "no step was left behind";
}

TEST_F(TFormDesignTest, OffersTheValuesThatAPropertyTakes) {
    Show();
    const struct {
        const char* Path;
        const char* Property;
        const char* Values;
    } kOffered[] = {
        {"mlLang1", "Language", "English,German"},
        {"mlLang1", "Dispatcher", "disp"},
        {"linked", "CommonContainer", "mlLang1"},
        {"Panel1", "Visible", "False,True"},
        {"Label1", "FocusControl", "Panel1,Edit1,List1,Label1,Button1"},
        {"Panel1", "Align", "alNone,alTop,alBottom,alLeft,alRight,alClient,alCustom"},
        {"Panel1", "Height", ""},
    };
    for (const auto& offered : kOffered) {
        Select({offered.Path});
        EXPECT_EQ(Design.Inspector().Values(offered.Property).CommaText(), offered.Values)
            << offered.Property;
    }
    EXPECT_EQ(Value("mlLang1", "Language"), "English");
    EXPECT_FALSE(Row("Language").IsHeld) << "the first one without being stored";
}

TEST_F(TFormDesignTest, AReferenceNamesWhatIsInheritedAndWhatIsOnOtherFormsToo) {
    PutForm(3, "  object away: TmlLang\n  end\n  object linkedAway: TmlLangLinked\n  end\n");
    std::string& program = Files.Files["/p/Demo.dpr"];
    program.replace(program.find("  Helper"), 0, "  Unit3 in 'Unit3.pas' {Form3},\r\n");
    std::string& heir = Files.Files["/p/Unit1.dfm"];
    heir.replace(heir.find("  object mlHeir"), 0,
                 "  inline Frame31: TForm3\r\n  end\r\n  object linkedHeir: TmlLangLinked\r\n  end\r\n");
    Ide.CloseProject();
    Ide.OpenProject("/p/Demo.dpr");
    Show("/p/Unit1.pas");
    Select({"linkedHeir"});
    const auto offered = [this] { return Design.Inspector().Values("CommonContainer").CommaText(); };
    EXPECT_EQ(offered(), "mlHeir,mlLang1,Frame31.away,Form2.mlLang1,Form3.away")
        << "forms that this one repeats are open with it";
    const struct {
        const char* Text;
        const char* Reason;
    } kTyped[] = {
        {"mllang1", ""},
        {"Form2.mlLang1", ""},
        {"form1.MLHEIR", ""},
        {"Frame31.away", ""},
        {"Form3.away", ""},
        {"Form2.linked", "linkedHeir.CommonContainer takes no TmlLangLinked"},
        {"Form3.linkedAway", "linkedHeir.CommonContainer takes no TmlLangLinked"},
        {"Form1.linkedHeir", "linkedHeir.CommonContainer takes no TmlLangLinked"},
        {"Form2.disp", "linkedHeir.CommonContainer takes no TmlLangDispatcher"},
        {"Form2.Nobody", "there is no component Form2.Nobody"},
    };
    for (const auto& typed : kTyped) {
        const std::string before = Form();
        const std::string reason = Set("linkedHeir", "CommonContainer", typed.Text);
        EXPECT_EQ(reason.substr(0, reason.find(". The form")), typed.Reason) << typed.Text;
        EXPECT_EQ(Form() == before, *typed.Reason != '\0') << typed.Text;
    }
    EXPECT_EQ(Value("linkedHeir", "CommonContainer"), "Form3.away");
    Select({"mlHeir"});
    EXPECT_EQ(Design.Inspector().Values("Dispatcher").CommaText(), "disp,Form2.disp");
}

TEST_F(TFormDesignTest, AFormThatIsClosedIsOpenedForTheReferenceThatIsTyped) {
    Show();
    EXPECT_EQ(Set("linked", "CommonContainer", "Form1.mlHeir"), "");
    EXPECT_EQ(Value("linked", "CommonContainer"), "Form1.mlHeir");
}

TEST_F(TFormDesignTest, EditsWhatSeveralComponentsHaveInCommon) {
    Show();
    Select({"Panel1", "Button1"});
    EXPECT_EQ(Design.Inspector().Title(), "2 components");
    std::string names;
    for (const TInspectedProperty& row : Design.Inspector().Rows())
        names += row.Name + ' ';
    EXPECT_EQ(names, "Enabled ShowHint Visible ");
    Design.Inspector().SetText("Enabled", "False");
    Design.Follow(Module->GetFormEditor());
    EXPECT_EQ(Value("Panel1", "Enabled") + Value("Button1", "Enabled"), "FalseFalse");
    EXPECT_EQ(Ide.Undo(), "Set Panel1.Enabled");
    EXPECT_FALSE(Module->GetModified());
}

TEST_F(TFormDesignTest, RenamesInFormAndUnit) {
    Show();
    EXPECT_EQ(Set("Button1", "Name", "StartButton"), "");
    EXPECT_NE(Source().find("StartButton: TButton;"), std::string::npos) << Source();
    EXPECT_EQ(Value("StartButton", "Name"), "StartButton");
    EXPECT_NE(Form().find("'StartButton.Caption'#1'Go'#1'Los'"), std::string::npos) << Form();
    EXPECT_EQ(Ide.Undo(), "Set Button1.Name");
    EXPECT_NE(Source().find("    Button1: TButton;"), std::string::npos);
    EXPECT_FALSE(Module->GetModified());
}

TEST_F(TFormDesignTest, ALanguageIsShownAndTakenBackToTheByte) {
    Show();
    const std::string before = Form();
    EXPECT_EQ(Set("mlLang1", "Language", "German"), "");
    EXPECT_EQ(Value("Button1", "Caption"), "Los");
    EXPECT_EQ(Set("mlLang1", "Language", "English"), "");
    EXPECT_EQ(Form(), before);
    // A dispatcher drives the components of other forms, which are opened for it.
    Select({"disp"});
    User.OnWindow<TfrmStringList>("frmStringList", [](TfrmStringList& window) {
        window.Lines = TStringList({"A", "B"});
        window.Close(mrOk);
    });
    EXPECT_EQ(Set("disp", "NumOfLanguages", "2"), "");
    Select({"disp"});
    Design.Inspector().Edit("LangNames");
    EXPECT_EQ(Set("disp", "Language", "B"), "");
    const auto heir = Parts.Modules().FindModule("/p/Unit1.pas");
    ASSERT_NE(heir, nullptr);
    EXPECT_EQ(heir->GetFormEditor()->GetRootComponent()->GetPropValue("Caption"), TFormValue::String("Erbe"));
    EXPECT_EQ(Ide.Undo(), "Set disp.Language");
    EXPECT_FALSE(heir->GetModified());
    Show("/p/Unit1.pas");
    EXPECT_EQ(Set("mlHeir", "Language", "B"),
              "mlHeir has the languages of its dispatcher. The form is as it was");
}

TEST_F(TFormDesignTest, LinesAreEditedInTheirWindow) {
    Show();
    const auto edit = [&](const char* path, const char* property, const char* shown,
                          const TStringList& lines) {
        Select({path});
        EXPECT_TRUE(Row(property).HasDialog);
        User.OnWindow<TfrmStringList>("frmStringList", [&](TfrmStringList& window) {
            EXPECT_EQ(window.Lines.CommaText(), shown);
            window.Lines = lines;
            window.Close(mrOk);
        });
        Design.Inspector().Edit(property);
        Design.Follow(Module->GetFormEditor());
    };
    edit("List1", "Items", "one,two", TStringList({"one", "three"}));
    EXPECT_NE(Form().find("'three'"), std::string::npos) << Form();
    EXPECT_EQ(Ide.Undo(), "Set List1.Items");
    Select({"Panel1"});
    EXPECT_FALSE(Row("Hint").CanType) << "it has a line break";
    edit("Panel1", "Hint", "One,Two", TStringList({"One", "2"}));
    EXPECT_NE(Form().find("Hint = 'One'#13#10'2'"), std::string::npos) << Form();
    EXPECT_EQ(Ide.Undo(), "Set Panel1.Hint");
    EXPECT_FALSE(Module->GetModified());
}

TEST_F(TFormDesignTest, ThePaletteIsInTheOrderOfItsRegistration) {
    Show();
    const std::vector<TClassGroup> pages = Design.Palette();
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_EQ(pages[0].Title + ":" + TStringList(pages[0].Classes).CommaText(),
              "Velmora:TmlLang,TmlLangRTSE,TmlLangRT,TmlLangLinked,TmlLangTLV,TmlLangDispatcher,TmlLabel,"
              "TmlFormStorage,TmlLangCombo");
    EXPECT_EQ(pages[1].Title + ":" + pages[1].Classes.front(), "mlDialogs:TmlOpenDialog");
    const auto place = [&](const char* className, const char* name) {
        Design.Place(className);
        Design.Follow(Module->GetFormEditor());
        EXPECT_EQ(Design.Components()[static_cast<std::size_t>(Design.Selected().at(0))].Name, name);
        EXPECT_NE(Source().find(std::string(name) + ": " + className), std::string::npos);
        return Value(name, "Left") + "," + Value(name, "Top");
    };
    EXPECT_EQ(place("TmlOpenDialog", "mlOpenDialog1"), "48,8") << "beside mlLang1";
    EXPECT_EQ(place("TmlTaskDialog", "mlTaskDialog1"), "88,8");
    Select({"Edit1"});
    EXPECT_EQ(place("TmlLabel", "mlLabel1"), "8,8");
    EXPECT_EQ(Design.Components()[static_cast<std::size_t>(Design.ParentOfSelected())].Name, "Panel1");
    for (const char* name : {"mlLabel1", "mlTaskDialog1", "mlOpenDialog1"})
        EXPECT_EQ(Ide.Undo(), std::string("Create ") + name);
    EXPECT_FALSE(Module->GetModified());
}

TEST_F(TFormDesignTest, DeletesWhatIsSelectedOrNothing) {
    Show();
    const std::string before = Form();
    Select({"Panel1", "Edit1", "Button1"});
    Design.Delete();
    Design.Follow(Module->GetFormEditor());
    EXPECT_EQ(Design.Find("Panel1") + Design.Find("Edit1") + Design.Find("Button1"), -3);
    EXPECT_EQ(Source().find("Button1: TButton"), std::string::npos);
    EXPECT_EQ(Ide.Undo(), "Delete 3 components");
    EXPECT_EQ(Form(), before);
    Show("/p/Unit1.pas");
    const std::string heir = Form();
    Select({"mlHeir", "Panel1"});
    EXPECT_THROW(Design.Delete(), EBadInput);
    EXPECT_EQ(Form(), heir) << "the form has the first one again";
}

TEST_F(TFormDesignTest, AnInheritedComponentIsRepeatedOnceItIsChanged) {
    Show("/p/Unit1.pas");
    const std::string before = Form();
    Select({"Edit1"});
    EXPECT_EQ(Row("Width").Value, "80");
    EXPECT_FALSE(Row("Width").IsHeld);
    EXPECT_EQ(Set("Edit1", "Width", "90"), "");
    EXPECT_TRUE(Row("Width").IsHeld);
    EXPECT_NE(Form().find("inherited Edit1: TEdit"), std::string::npos) << Form();
    EXPECT_EQ(Design.Selected(), std::vector<int>{Design.Find("Edit1")});
    Ide.Undo();
    EXPECT_EQ(Form(), before);
}

TEST_F(TFormDesignTest, MenusHoldTheVerbsInTheirOrder) {
    Show();
    const auto menu = [&](const std::vector<std::string>& paths) {
        Select(paths);
        std::string text;
        for (const auto& item : Design.Menu())
            text += item->Caption + (item->Enabled ? "" : " off") + "|";
        return text;
    };
    EXPECT_EQ(
        menu({"mlLang1"}),
        "Translation Editor...|Update Translations|Clear Translations|Ignore Removals|-|Translate source|-|"
        "Exclude from translation... off|-|&Delete|");
    EXPECT_EQ(menu({"Button1"}), "Exclude from translation...|-|&Delete|");
    EXPECT_EQ(menu({"Button1", "Edit1"}), "Exclude from translation... off|-|&Delete|");
    EXPECT_EQ(menu({""}), "Exclude from translation...|-|&Delete off|");
    Select({"Button1"});
    const auto items = Design.Menu();
    User.OnMessage(
        "Click \"Yes\" to exclude Button1 from translations.\r\nClick \"Yes to All\" to exsclude all TButton "
        "components from translations.\r\nClick \"Cancel\" to cancel this action.",
        mrYes);
    items.front()->Click();
    Design.Follow(Module->GetFormEditor());
    EXPECT_EQ(Value("mlLang1", "ExcludedProperties"), "(1 line)");
    EXPECT_EQ(Ide.Undo(), "Exclude from translation");
    EXPECT_FALSE(Module->GetModified());
}

TEST_F(TFormDesignTest, ADataModuleIsOfferedNothingOfControls) {
    Put("/p/Unit2.dfm",
        "object Form2: TForm2\n  Height = 150\n  Width = 215\n  object disp: TmlLangDispatcher\n  "
        "end\nend\n");
    Show("/p/Unit1.pas");
    Select({""});
    EXPECT_NE(FindRow("ShowHint"), nullptr) << "it has a caption";
    Show();
    Select({""});
    for (const char* const property : {"Enabled", "Hint", "ShowHint", "Visible"})
        EXPECT_EQ(FindRow(property), nullptr) << property;
    EXPECT_NE(FindRow("Height"), nullptr);
}

}  // namespace
}  // namespace tml
