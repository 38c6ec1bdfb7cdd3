// The editors of components and properties, through what the package registers.
#include <gtest/gtest.h>

#include "editors/Mllangcomboeditor.h"
#include "runtime/Mltranseditor.h"
#include "setup/Exclude.h"
#include "support/Expertfixture.h"
#include "tables/Extendedtable.h"
#include "translations/Langconfig.h"

namespace tml {
namespace {

/// Writes down what is registered, in its order.
struct TLoggedRegistration : IRegistration {
    std::string Log;
    std::shared_ptr<IOTAWizard> Wizard;

    void RegisterPackageWizard(std::shared_ptr<IOTAWizard> wizard) override {
        Log += "wizard " + wizard->GetName() + "\n";
        Wizard = std::move(wizard);
    }
    void RegisterComponents(const std::string& page, const std::vector<std::string>& classes) override {
        Log += page + ": " + TStringList(classes).CommaText() + "\n";
    }
    void RegisterComponentEditor(const std::string& componentClass, TComponentEditorClass) override {
        Log += "component " + componentClass + "\n";
    }
    void RegisterPropertyEditor(const std::string& type, const std::string& componentClass,
                                const std::string& property, TPropertyEditorClass) override {
        Log += "property " + type + " " + componentClass + "." + property + "\n";
    }
    void RegisterSelectionEditor(const std::string& componentClass, TSelectionEditorClass) override {
        Log += "selection " + componentClass + "\n";
    }
    void RegisterActions(const std::string& category, const std::vector<std::string>& classes) override {
        Log += "actions " + category + ": " + TStringList(classes).CommaText() + "\n";
    }
};

TEST(Editors, AreRegisteredInTheirOrder) {
    TExpertFixture fixture;
    TLoggedRegistration registration;
    const TPackage package = MakePackage(fixture.Host());
    package.Register(registration);
    EXPECT_EQ(
        registration.Log,
        "Velmora: TmlLang,TmlLangRTSE,TmlLangRT,TmlLangLinked,TmlLangTLV,TmlLangDispatcher,TmlLabel,"
        "TmlFormStorage\ncomponent TmlCustomLang\nproperty TStrings TmlCustomLang.Captions\n"
        "property TStrings TmlCustomLang.Hints\nproperty TStrings TmlCustomLang.DisplayLabels\n"
        "property TStrings TmlCustomLang.Strings\nproperty TStrings TmlCustomLang.Fonts\n"
        "property TStrings TmlCustomLang.MultiLines\nproperty TStrings TmlCustomLang.DlgsCaptions\n"
        "property TStrings TmlCustomLang.OtherStrings\nproperty TStrings TmlCustomLang.Locales\n"
        "property TStrings TmlCustomLang.CharSets\nproperty TStrings TmlCustomLang.Collections\n"
        "property TStrings TmlLangTLV.ListView_TreeView_Items\nwizard TmlLang Expert by Velmora\n"
        "property TmlCustomLang TmlLangLinked.CommonContainer\n"
        "property TStrings TmlCustomLang.DoNotTranslate\nproperty TStrings TmlCustomLang.ExcludedProperties\n"
        "property TStrings TmlCustomLang.SmartExcludeProps\nactions mlLang: TmlLangChangeLanguage\n"
        "component TmlLangDispatcher\nproperty TCollection TmlCustomLang.ExtendedTranslations\n"
        "property string TmlCustomLang.Language\nproperty string TmlLangDispatcher.Language\n"
        "Velmora: TmlLangCombo\nproperty TLanguageInfos TmlLangCombo.LanguageInfos\n"
        "component TmlLangCombo\nselection TComponent\n"
        "mlDialogs: TmlOpenDialog,TmlSaveDialog,TmlOpenPictureDialog,TmlSavePictureDialog,TmlFontDialog,"
        "TmlColorDialog,TmlPrintDialog,TmlPrinterSetupDialog,TmlFindDialog,TmlReplaceDialog,"
        "TmlBrowseForFolder,TmlTaskDialog\ncomponent TmlOpenDialog\ncomponent TmlSaveDialog\n"
        "component TmlOpenPictureDialog\ncomponent TmlSavePictureDialog\ncomponent TmlFontDialog\n"
        "component TmlColorDialog\ncomponent TmlPrintDialog\ncomponent TmlPrinterSetupDialog\n"
        "component TmlFindDialog\ncomponent TmlReplaceDialog\ncomponent TmlBrowseForFolder\n"
        "component TmlTaskDialog\n");
    registration.Wizard.reset();
    package.Finalization();
}

/// The expert with Form2 open, which has components of the family.
struct TEditorsTest : testing::Test, TExpertFixture {
    TEditorsTest() {
        PutForm(2,
                "  object mlLang1: TmlLang\n    NumOfLanguages = 2\n    LangNames.Strings = (\n"
                "      'English'\n      'German')\n    Captions.Strings = (\n"
                "      'Button1.Caption'#1'Go'#1'Los'\n      'Gone.Caption'#1'Gone'#1'Weg')\n    "
                "ExcludedProperties.Strings = (\n"
                "      '!button1')\n  end\n"
                "  object disp: TmlLangDispatcher\n    NumOfLanguages = 2\n    LangNames.Strings = (\n"
                "      'Irish'\n      'Welsh')\n  end\n"
                "  object linked: TmlLangLinked\n  end\n"
                "  object combo: TmlLangCombo\n    Languages = disp\n    LanguageInfos = <\n      item\n"
                "        Language = 'Welsh'\n        Font.Height = -12\n      end>\n  end\n"
                "  object dlgOpen: TmlOpenDialog\n    Title = 'Pick'\n  end\n"
                "  object dlgFont: TmlFontDialog\n  end\n");
        Start();
        Module = Parts.Modules().OpenModule("/p/Unit2.pas", true);
    }
    IDesigner& Designer() { return Module->GetFormEditor()->GetDesigner(); }
    std::shared_ptr<IOTAComponent> Component(const std::string& name) {
        return Module->GetFormEditor()->FindComponent(name);
    }
    /// The editor that serves the component: the last one registered for its class or an ancestor.
    std::unique_ptr<IComponentEditor> EditorOf(const std::string& name) {
        const auto component = Component(name);
        const TRegistrations all = Ide.Registered();
        for (auto entry = all.ComponentEditors.rbegin(); entry != all.ComponentEditors.rend(); ++entry)
            if (Runtime->InheritsFrom(component->GetComponentType(), entry->ComponentClass))
                return entry->Editor(component, Designer());
        return nullptr;
    }
    std::unique_ptr<IPropertyEditor> PropertyEditorOf(const std::string& name, const std::string& property) {
        const auto component = Component(name);
        const TRegistrations all = Ide.Registered();
        for (auto entry = all.PropertyEditors.rbegin(); entry != all.PropertyEditors.rend(); ++entry)
            if (entry->PropertyName == property &&
                Runtime->InheritsFrom(component->GetComponentType(), entry->ComponentClass))
                return entry->Editor(component, property, Designer());
        return nullptr;
    }
    std::unique_ptr<ISelectionEditor> SelectionEditor() {
        return Ide.Registered().SelectionEditors.front().Editor(Designer());
    }
    std::string Values(const std::string& name, const std::string& property) {
        TStringList values;
        PropertyEditorOf(name, property)->GetValues([&](const std::string& value) { values.Add(value); });
        return values.CommaText();
    }
    TStringList Excluded() {
        return Runtime->AsCustomLang(Component("mlLang1"))->GetExclusions(TExclusionList::ExcludedProperties);
    }

    std::shared_ptr<IOTAModule> Module;
};

TEST_F(TEditorsTest, TheVerbsOfALocalizationComponent) {
    const auto editor = EditorOf("mlLang1");
    TStringList verbs;
    for (int i = 0; i < editor->GetVerbCount(); ++i)
        verbs.Add(editor->GetVerb(i));
    EXPECT_EQ(verbs.Items(),
              (std::vector<std::string>{"Translation Editor...", "Update Translations", "Clear Translations",
                                        "Ignore Removals", "-", "Translate source"}));
    const auto lang = Runtime->AsCustomLang(Component("mlLang1"));
    const auto caption = [&] { return lang->GetTable(TStringsType::stCaptions).Lines("|").CommaText(); };
    User.OnWindow<TfrmTransEditor>("frmTransEditor", [](TfrmTransEditor& window) { window.btnOKClick(); });
    editor->Edit();
    EXPECT_FALSE(Module->GetModified());
    const auto fill = [](TfrmTransEditor& window) {
        window.SetText(0, 2, "Fort");
        window.btnOKClick();
    };
    User.OnWindow<TfrmTransEditor>("frmTransEditor", fill);
    editor->ExecuteVerb(0);
    EXPECT_EQ(caption(), "Button1.Caption|Go|Fort,Gone.Caption|Gone|Weg");
    EXPECT_TRUE(Module->GetModified());
    User.OnMessage("This will delete all translation data stored in component! Continue?", mrNo);
    editor->ExecuteVerb(2);
    EXPECT_EQ(caption(), "Button1.Caption|Go|Fort,Gone.Caption|Gone|Weg");
    User.OnMessage("This will delete all translation data stored in component! Continue?", mrYes);
    editor->ExecuteVerb(2);
    EXPECT_EQ(caption(), "Button1.Caption|Go|,Gone.Caption|Gone|");
    lang->SetExclusions(TExclusionList::ExcludedProperties, {});
    editor->ExecuteVerb(1);
    EXPECT_EQ(caption(), "Button1.Caption|Go|") << "brought up to the form";
    EXPECT_EQ(Ide.Undo(), "Update Translations");
    TMenuItem item;
    for (const bool isChecked : {false, true}) {
        editor->PrepareItem(3, item);
        EXPECT_EQ(item.Checked, isChecked);
        editor->ExecuteVerb(3);
    }
}

TEST_F(TEditorsTest, TheSourceIsTranslatedFromTheFormsList) {
    TMenuItem item;
    EditorOf("mlLang1")->PrepareItem(5, item);
    ASSERT_EQ(item.Items.size(), 2U);
    EXPECT_EQ(item.Items[0]->Caption + "," + item.Items[1]->Caption, "Source,CONST Declaration");
    // No string is found in the unit of the row that is selected.
    User.OnMessage("No strings found in the \"Unit2.pas\" source!");
    item.Items[0]->Click();
    EXPECT_NE(Expert->Window(), nullptr);
}

TEST_F(TEditorsTest, PropertiesHaveListsOrDialogs) {
    EXPECT_EQ(Values("mlLang1", "Language"), "English,German");
    EXPECT_EQ(Values("disp", "Language"), "Irish,Welsh");
    EXPECT_EQ(Values("linked", "CommonContainer"), "mlLang1") << "never a linked one";
    using enum TPropertyAttribute;
    EXPECT_EQ(PropertyEditorOf("disp", "Language")->GetAttributes(),
              (std::vector{paMultiSelect, paRevertable, paValueList}));
    for (const char* const property : {"Captions", "Collections", "ExtendedTranslations", "DoNotTranslate"})
        EXPECT_EQ(PropertyEditorOf("mlLang1", property)->GetAttributes(),
                  (std::vector{paMultiSelect, paDialog}));
    for (const TTableKind& kind : kTableKinds) {
        if (kind.Type == TStringsType::stListView_TreeView_Items) continue;
        User.OnWindow<TfrmTransEditor>("frmTransEditor", [&](TfrmTransEditor& window) {
            const TTransScope& scope = window.Tree[static_cast<std::size_t>(window.Node())].Scope;
            const TTransTable& table = window.Texts().Tables().at(static_cast<std::size_t>(scope.Table));
            EXPECT_EQ(table.Property(), kind.Property);
            window.btnOKClick();
        });
        PropertyEditorOf("mlLang1", std::string(kind.Property))->Edit();
    }
    const auto dialog = Runtime->TransEditorDlg;
    std::string opened;
    Runtime->TransEditorDlg = [&](TmlCustomLang&, const TTransEditorPlace& place, const TChangeStrID&) {
        opened = PropertyOf(place.Table);
        return place.IsLast;
    };
    PropertyEditorOf("mlLang1", "ExtendedTranslations")->Edit();
    EXPECT_EQ(opened, "ExtendedTranslations");
    Runtime->TransEditorDlg = dialog;
    EXPECT_FALSE(Module->GetModified());
    User.OnWindow<TfrmExclude>("frmExclude", [](TfrmExclude& window) {
        EXPECT_EQ(window.Lists(0)[TExclusionList::ExcludedProperties].CommaText(), "!button1");
        window.SmartBoxClick(0, true);
        window.btOKClick();
    });
    PropertyEditorOf("mlLang1", "ExcludedProperties")->Edit();
    EXPECT_TRUE(Module->GetModified());
    EXPECT_EQ(Runtime->AsCustomLang(Component("mlLang1"))
                  ->GetExclusions(TExclusionList::SmartExcludeProps)
                  .CommaText(),
              "Empty");
}

TEST_F(TEditorsTest, ADoubleClickEditsLanguages) {
    Expert->RunItemClick();
    User.OnWindow<TfrmLangConfig>("frmLangConfig", [](TfrmLangConfig& window) {
        EXPECT_EQ(window.lbLangNames.CommaText(), "Irish,Welsh");
        window.edLangCountChange("3");
        window.Close(mrOk);
    });
    EditorOf("disp")->Edit();
    EXPECT_EQ(Runtime->AsDispatcher(Component("disp"))->GetNumOfLanguages(), 3);
    User.OnWindow<TfrmMlLangComboEditor>("frmMlLangComboEditor", [](TfrmMlLangComboEditor& window) {
        EXPECT_EQ(window.Caption, "Edit Language Settings");
        ASSERT_EQ(window.lbLanguages.size(), 3U);
        window.Current()->ImageIndex = 4;
        window.lbLanguagesClick(1);
        window.Current()->DisplayText = "Cymraeg";
        window.btnOKClick();
    });
    EditorOf("combo")->Edit();
    Ide.SaveAll();
    Component("combo")->RemoveProp("Languages");
    Component("combo")->RemoveProp("LanguageInfos");
    User.OnWindow<TfrmMlLangComboEditor>("frmMlLangComboEditor", [](TfrmMlLangComboEditor& window) {
        EXPECT_TRUE(window.lbLanguages.empty());
        EXPECT_EQ(window.lblReason.find("combo is linked to no languages. Set its property Languages"), 0U);
        window.btnCancelClick();
    });
    EditorOf("combo")->Edit();
    const std::string form = Files.Files["/p/Unit2.dfm"];
    EXPECT_NE(form.find("Language = 'Irish'\r\n        ImageIndex = 4\r\n"), std::string::npos) << form;
    EXPECT_NE(
        form.find("Language = 'Welsh'\r\n        Font.Height = -12\r\n        DisplayText = 'Cymraeg'\r\n"),
        std::string::npos)
        << "what is not shown stays: " << form;
}

TEST_F(TEditorsTest, ASelectedComponentIsExcluded) {
    const auto editor = SelectionEditor();
    EXPECT_EQ(editor->GetVerb(0), "Exclude from translation...");
    TMenuItem item;
    const auto isAvailable = [&](const std::vector<std::shared_ptr<IOTAComponent>>& selected) {
        Designer().SetSelections(selected);
        editor->PrepareItem(0, item);
        return item.Enabled;
    };
    EXPECT_FALSE(isAvailable({Component("mlLang1")}));
    EXPECT_FALSE(isAvailable({Component("disp")}));
    EXPECT_FALSE(isAvailable({Component("combo"), Component("Button1")}));
    EXPECT_TRUE(isAvailable({Component("Button1")}));
    const std::string question =
        "Click \"Yes\" to exclude Button1 from translations.\r\nClick \"Yes to All\" to exsclude all TButton "
        "components from translations.\r\nClick \"Cancel\" to cancel this action.";
    const char* const kExpected[] = {"!button1", "!button1,!Button1", "!button1,!Button1",
                                     "!button1,!Button1,TButton", "!button1,!Button1,TButton"};
    const TModalResult kAnswers[] = {mrCancel, mrYes, mrYes, mrYesToAll, mrYesToAll};
    for (std::size_t i = 0; i < std::size(kAnswers); ++i) {
        User.OnMessage(question, kAnswers[i]);
        editor->ExecuteVerb(0);
        EXPECT_EQ(Excluded().CommaText(), kExpected[i]);
        EXPECT_EQ(Module->GetModified(), i > 0);
    }
    Component("mlLang1")->Delete();
    Component("linked")->Delete();
    User.OnMessage("Unable to locate TmlLang component!");
    editor->ExecuteVerb(0);
}

TEST_F(TEditorsTest, DialogsAreTried) {
    const auto editor = EditorOf("dlgOpen");
    EXPECT_EQ(editor->GetVerb(0), "Test TmlOpenDialog...");
    User.OnMessage("This will execute test for the selected dialog.");
    User.OnWindow<TOpenDialog>("", [](TOpenDialog& dialog) {
        EXPECT_EQ(dialog.Caption, "Pick");
        dialog.Close(mrCancel);
    });
    editor->Edit();
    User.OnMessage("This will execute test for the selected dialog.");
    User.OnMessage("TmlFontDialog is shown by the running program only.");
    EditorOf("dlgFont")->ExecuteVerb(0);
}

}  // namespace
}  // namespace tml
