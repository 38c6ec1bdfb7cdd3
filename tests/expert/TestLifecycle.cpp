#include "base/Errors.h"
#include "core/Modules.h"
#include "platform/Projectoptions.h"
#include "support/Expertfixture.h"
#include "translations/Langconfig.h"
#include "windows/Shortcuts.h"

namespace tml {
namespace {

const std::string kExp = "\\Software\\Velmora\\TmlLang\\ExpSettings\\";

/// A common library that notes when it goes.
struct TNotedLibrary : ICommonLibraryLoader {
    std::vector<std::string>& Log;
    explicit TNotedLibrary(std::vector<std::string>& log) : Log(log) {}
    ICommonLibrary* Load() override { return nullptr; }
    void Unload() override { Log.push_back("library unloaded"); }
};

struct TLifecycle : TExpertFixture, testing::Test {
    TMenuItem& Section(const std::string& name) {
        for (const auto& item : Ide.GetNTAServices()->GetMainMenu().Items)
            if (item->Name == name) return *item;
        throw std::logic_error(name);
    }
    int PlaceOfItem(const std::string& section) {
        const auto& items = Section(section).Items;
        for (std::size_t i = 0; i < items.size(); ++i)
            if (items[i]->Name == "mlLangExpertMenuItem") return static_cast<int>(i);
        return -1;
    }
    static TMenuItem* Find(const TMenuItem& menu, const std::string& name) {
        for (const auto& item : menu.Items) {
            if (item->Name == name) return item.get();
            if (TMenuItem* found = Find(*item, name)) return found;
        }
        return nullptr;
    }
};

TEST_F(TLifecycle, TheMenuItemIsTheThirdOfItsSectionAndRebuiltAtEveryNotification) {
    Registry.Values[kExp + "ShortCut"] = std::string("Ctrl+Shift+F2");
    Start();
    EXPECT_EQ(PlaceOfItem("ToolsMenu"), 2);
    const auto item = Section("ToolsMenu").Items[2];
    EXPECT_EQ(item->Caption, "Tml&Lang Expert");
    EXPECT_EQ(item->ShortCut, TextToShortCut("Ctrl+Shift+F2"));
    Expert->Settings().SetMenuSection("HelpMenu");
    EXPECT_EQ(PlaceOfItem("ToolsMenu"), 2) << "a setter leaves the menu alone";
    for (int i = 0; i < 5; ++i) {
        Ide.GetModuleServices()->OpenModule("/p/Unit1.pas", true)->Close();
        EXPECT_EQ(PlaceOfItem("ToolsMenu"), -1);
        EXPECT_EQ(PlaceOfItem("HelpMenu"), 2);
    }
    EXPECT_EQ(Ide.GetNTAServices()->GetEditorLocalMenu().Items.back()->Caption, "View Translation by ID");
    Ide.UnloadPackage("TmlLang");
    EXPECT_EQ(PlaceOfItem("HelpMenu"), -1);
    EXPECT_EQ(Find(Ide.GetNTAServices()->GetEditorLocalMenu(), "ViewTranslationByID"), nullptr);
}

TEST_F(TLifecycle, WithoutTheSectionThereIsNoItemAndNothingFails) {
    Registry.Values[kExp + "MenuSection"] = std::string("toolsmenu");
    Start();
    EXPECT_EQ(PlaceOfItem("ToolsMenu"), -1);
}

TEST_F(TLifecycle, ASettingThatIsNoNumberKeepsTheExpertOut) {
    Registry.Values[kExp + "DefNumLang"] = std::string("many");
    EXPECT_THROW(Start(), EConvertError);
    EXPECT_EQ(Expert, nullptr);
    EXPECT_EQ(PlaceOfItem("ToolsMenu"), -1);
}

TEST_F(TLifecycle, TheFirstClickDocksTheWindowAndTheNextRefreshesIt) {
    Put("/p/Demo.mlproj", "[Settings]\nDispatcherForm=X\n");
    Start();
    Section("ToolsMenu").Items[2]->Click();
    ASSERT_EQ(User.Shown.size(), 1U);
    TForm* const host = User.Shown.front();
    EXPECT_EQ(host->Name, "TmlLangExpertIDEDockableForm");
    EXPECT_EQ(host->Caption, "TmlLang Expert (VCL Edition)");
    EXPECT_NE(host->Menu, nullptr);
    TfrmmlLang* const window = Expert->Window();
    EXPECT_EQ(window->Menu, nullptr);
    EXPECT_EQ(window->Parent, host);
    EXPECT_EQ(List(), "Form2|Unit2|3|mlLang1|1;Form1|Unit1|0||0;") << "sorted in the stored direction";
    EXPECT_EQ(Context().Project.ProjectFiles.Count(), 3);
    EXPECT_EQ(Context().Project.UnitFiles, TStringList({"/p/Helper.pas"}));
    EXPECT_EQ(Context().Rows.StatusPanels[1], "Units count: 1");
    EXPECT_EQ(std::get<std::string>(Runtime->mlLangProjectSettings->GetOptionValue("DispatcherForm")), "X");
    Ide.GetModuleServices()->OpenModule("/p/Unit1.pas", true);
    Section("ToolsMenu").Items[2]->Click();
    EXPECT_EQ(Expert->Window(), window);
    EXPECT_EQ(User.Shown, (std::vector<TForm*>{host, host}));
    EXPECT_TRUE(Row("Form1").Selected) << "the row of the file in the editor";
    EXPECT_EQ(Expert->Settings().Get().SortOrder, -1);
    window->lvFormNamesColumnClick(3);
    EXPECT_EQ(Registry.Writes.back(), "ExpSettings\\SortedColumn=integer 3");
    EXPECT_EQ(List(), "Form1|Unit1|0||0;Form2|Unit2|3|mlLang1|1;");
}

TEST_F(TLifecycle, ClosingTheWindowStoresTheWidthsAndForgetsTheProject) {
    Open();
    Runtime->mlLangProjectSettings->SetOptionValue("DispatcherForm", std::string("Form2"));
    Expert->Window()->lvFormNames.Columns[1].Width = 99;
    Expert->Window()->Run("Exit");
    EXPECT_EQ(Expert->Window(), nullptr);
    EXPECT_EQ(Expert->Settings().Get().ColumnWidths, "76,99,145,70,315");
    EXPECT_EQ(Runtime->mlLangProjectSettings, nullptr);
    EXPECT_EQ(Files.Files["/p/Demo.mlproj"], "[Settings]\r\nDispatcherForm=Form2\r\n");
    Expert->RunItemClick();
    EXPECT_EQ(Expert->Window()->lvFormNames.Columns[1].Width, 99);
    EXPECT_EQ(Rows().Count(), 2);
}

TEST_F(TLifecycle, SettingsThatCannotBeWrittenDoNotKeepTheWindowFromOpeningAndClosing) {
    Registry.IsReadOnly = true;
    Open();
    EXPECT_EQ(List(), "Form2|Unit2|3|mlLang1|1;Form1|Unit1|0||0;") << "sorted all the same";
    EXPECT_THROW(Expert->Window()->FormClose(), EFileError);
    EXPECT_EQ(Expert->Window(), nullptr);
}

TEST_F(TLifecycle, ProjectSettingsThatCannotBeWrittenDoNotKeepTheProject) {
    Put("/p/Demo.mlproj", "");
    Files.ReadOnlyFiles.insert("/p/Demo.mlproj");
    for (const bool closesWindow : {false, true}) {
        if (!closesWindow) Open();
        Expert->RunItemClick();
        Runtime->mlLangProjectSettings->SetOptionValue("DispatcherForm", std::string("Form2"));
        if (closesWindow) {
            EXPECT_THROW(Expert->Window()->FormClose(), EFileError);
            EXPECT_EQ(Expert->Window(), nullptr);
        } else {
            EXPECT_THROW(Expert->ProjectClosed(), EFileError);
            EXPECT_FALSE(Find(*Expert->Window()->MainMenu, "ProjectSettings1")->Enabled);
        }
        EXPECT_EQ(List(), "");
    }
}

TEST_F(TLifecycle, WhatANotificationFailsWithIsNoted) {
    Open();
    PutForm(1, "  object mlLang1: TmlLang\n    NumOfLanguages = many\n  end\n");
    Ide.OpenProject("/p/Demo.dpr");
    EXPECT_EQ(List(), "") << "some of the forms would pass for all";
    ASSERT_EQ(User.Noted.size(), 1U);
    EXPECT_NE(User.Noted[0].find("many"), std::string::npos) << User.Noted[0];
}

TEST_F(TLifecycle, UnloadingSavesTheProjectSettings) {
    Open();
    Runtime->mlLangProjectSettings->SetOptionValue("DispatcherForm", std::string("Form2"));
    Ide.UnloadPackage("TmlLang");
    EXPECT_EQ(Runtime->mlLangProjectSettings, nullptr);
    EXPECT_EQ(Files.Files["/p/Demo.mlproj"], "[Settings]\r\nDispatcherForm=Form2\r\n");
}

/// Rows of the external files as text: "Form|Unit|file|languages;".
std::string ExternalRows(TContext& context) {
    std::string text;
    for (const auto& row : context.Rows.ExternalFiles.Items())
        text +=
            row->FormName + "|" + row->UnitName + "|" + row->FileName + "|" + row->Cell(fcLanguages) + ";";
    return text;
}

TEST_F(TLifecycle, ExternalFilesHaveRowsAndAreKeptWithTheProject) {
    Put("/q/More.pas", Files.Files["/p/Unit2.pas"]);
    Files.Files["/q/More.dfm"] = Files.Files["/p/Unit2.dfm"];
    const std::string more = "Form2|More|/q/More.pas|3;";
    const std::string helper = "|Helper|/p/Helper.pas|0;";
    Open();
    TfrmmlLang& window = *Expert->Window();
    const auto button = [&window](const std::string& name) -> TMenuItem& {
        const auto& bar = window.ToolBar;
        return **std::find_if(bar.begin(), bar.end(), [&](const auto& item) { return item->Name == name; });
    };
    EXPECT_FALSE(button("tbAddExternalFile").Visible);
    window.pcFormsListChange(TFormsPage::ExternalFiles);
    EXPECT_TRUE(button("tbAddExternalFile").Visible);
    EXPECT_FALSE(button("tbRemoveExternalFile").Enabled);
    Ide.GetModuleServices()->OpenModule("/q/More.pas", true);
    User.OnWindow<TOpenDialog>("odExternalFile", [](TOpenDialog& dialog) {
        EXPECT_EQ(dialog.DefaultExt + " " + dialog.Filter, "pas Pascal Files(*.pas)|*.pas");
        dialog.Files = {"/p/Helper.pas", "/q/More.pas", "/p/Helper.pas"};
        dialog.ModalResult = mrOk;
    });
    button("tbAddExternalFile").Click();
    EXPECT_EQ(Expert->ExternalFiles().Files(),
              TStringList({"/p/Helper.pas", "/q/More.pas", "/p/Helper.pas"}));
    EXPECT_FALSE(IsFileOpen(Context(), "/p/Helper.pas"));
    EXPECT_TRUE(IsFileOpen(Context(), "/q/More.pas"));
    EXPECT_EQ(ExternalRows(Context()), helper + more);
    const std::string stored = "[External Files]\r\nFiles=Helper.pas,../q/More.pas,Helper.pas\r\n";
    EXPECT_EQ(Files.Files["/p/Demo.mlproj"], stored);

    Expert->RunItemClick();
    EXPECT_EQ(ExternalRows(Context()), helper + more);
    EXPECT_EQ(Files.Files["/p/Demo.mlproj"], stored) << "read, not changed";
    for (const auto& row : Context().Rows.ExternalFiles.Items())
        row->Selected = true;
    window.CheckEnableActions();
    Files.ReadOnlyFiles = {"/p/Demo.mlproj"};
    EXPECT_THROW(button("tbRemoveExternalFile").Click(), EFileError);
    EXPECT_EQ(ExternalRows(Context()), "");
    Files.ReadOnlyFiles = {};
    Ide.CloseProject();
    EXPECT_EQ(Files.Files["/p/Demo.mlproj"], "[External Files]\r\nFiles=\r\n") << "the emptied list, too";
}

TEST_F(TLifecycle, CommandsTakeTheRowOfAnExternalFileNotTheFormOfItsName) {
    Put("/q/More.pas", Files.Files["/p/Unit2.pas"]);
    Put("/q/More.dfm", "object Form2: TForm2\n  object mlLang1: TmlLang\n  end\nend\n");
    Put("/p/Demo.mlproj", "[External Files]\nFiles=../q/More.pas,Helper.pas\n");
    Open();
    Expert->Window()->pcFormsListChange(TFormsPage::ExternalFiles);
    const auto choose = [this](int chosen) {
        for (int row = 0; row < 2; ++row)
            Context().Rows.ExternalFiles.Row(row).Selected = row == chosen;
        Expert->Window()->lvFormNamesChange();
    };
    choose(0);
    Ide.GetModuleServices()->OpenModule("/p/Unit2.pas", true);
    User.OnWindow<TfrmLangConfig>("frmLangConfig", [](TfrmLangConfig& languages) {
        EXPECT_EQ(languages.lbLangNames.Count(), 1) << "those of the row's form";
        languages.Close(mrOk);
    });
    EXPECT_THROW(Expert->Window()->Run("Languages"), EBadInput) << "two open forms have the name";
    EXPECT_EQ(Row("Form2").Component.NumLang, 3);
    choose(1);
    User.OnMessage("Unable to obtain the interface of form module! Please check your project source.");
    Expert->Window()->Run("SourceWithForm");
}

TEST_F(TLifecycle, WithoutAProjectOnlyTheStatusIsRefreshed) {
    Start();
    Ide.CloseProject();
    Expert->RunItemClick();
    EXPECT_EQ(Expert->Window(), nullptr);
}

TEST_F(TLifecycle, OpeningAllFormsReadsThemThroughTheIDE) {
    Registry.Values[kExp + "OpenAllForms"] = true;
    PutForm(1, "  object mlLang1: TmlLang [0]\n    NumOfLanguages = 5\n  end\n");
    Open();
    EXPECT_EQ(Ide.Modules().size(), 2U);
    EXPECT_EQ(List(), "Form2|Unit2|3|mlLang1|1;Form1|Unit1|5|mlLang1|1;");
}

TEST_F(TLifecycle, ReadingAndOpeningFormsCanBeStopped) {
    Registry.Values[kExp + "OpenAllForms"] = true;
    User.StopAt = "Opening forms...";
    Open();
    EXPECT_EQ(Ide.Modules().size(), 0U);
    EXPECT_EQ(Context().Rows.FormNames.Count(), 2);
    User.StopAt = "Reading forms...";
    Expert->RunItemClick();
    EXPECT_EQ(List(), "") << "some of the forms would pass for all";
    EXPECT_FALSE(User.ProgressShown);
}

TEST_F(TLifecycle, CommandsAreEnabledByTheirTags) {
    Open();
    TfrmmlLang& window = *Expert->Window();
    const auto enabled = [&](const char* name) {
        TMenuItem* item = Find(*window.MainMenu, name);
        if (item == nullptr) item = Find(*window.pmEditor, name);
        return item != nullptr && item->Enabled;
    };
    window.CheckEnableActions();
    EXPECT_FALSE(enabled("SourceWithForm1"));
    EXPECT_TRUE(enabled("ProjectSettings1"));
    Expert->ProjectClosed();
    EXPECT_FALSE(enabled("ProjectSettings1"));
    Expert->RunItemClick();
    EXPECT_TRUE(enabled("Exit1"));
    Select("Form2");
    EXPECT_TRUE(enabled("SourceWithForm1"));
    EXPECT_TRUE(enabled("Translatesource2"));
    EXPECT_EQ(Context().ComponentName, "mlLang1");
    EXPECT_TRUE(Find(*window.MainMenu, "ConstSection1")->Visible);
    Rows().Add("Form3", "Unit3", "/p/Unit3.CPP");
    Select("Form3");
    EXPECT_FALSE(Find(*window.MainMenu, "ConstSection1")->Visible);
    EXPECT_FALSE(Find(*window.pmEditor, "TranslateConst2")->Visible);
    for (const TCommand& command : AllCommands())
        if (!command.IsBuilt()) {
            EXPECT_FALSE(enabled((std::string(command.Name) + "1").c_str())) << command.Name;
        }
    for (const auto& button : window.ToolBar)
        EXPECT_TRUE(button->Enabled || !button->Visible) << button->Name << " is not worth its place";
}

TEST_F(TLifecycle, UnloadingReleasesTheExpertAndTheLibraryLast) {
    std::vector<std::string> log;
    TNotedLibrary library(log);
    THost host = Host();
    host.CommonLibrary = &library;
    TPackage package = MakePackage(host);
    package.Register = [&](IRegistration& registration) {
        Expert = &ExpRegister(host, registration);
        Runtime->ShowAboutBox =
            [held = std::shared_ptr<void>(nullptr, [&](void*) { log.emplace_back("expert released"); })] {};
    };
    Ide.LoadPackage(package);
    Ide.OpenProject("/p/Demo.dpr");
    Ide.GetModuleServices()->OpenModule("/p/Unit2.pas", true);
    Expert->RunItemClick();
    Ide.UnloadPackage("TmlLang");
    EXPECT_EQ(log, (std::vector<std::string>{"expert released", "library unloaded"}));
    // Whatever was registered is gone: nothing of the expert is called any more.
    const auto module = Ide.GetModuleServices()->FindModule("/p/Unit2.pas");
    module->GetFormEditor()->FindComponent("Button1")->SetName("Go1");
    module->Close();
    Ide.CloseProject();
}

struct TFloating : TExpertFixture, testing::Test {
    TFloating() : TExpertFixture(false) {}
};

TEST_F(TFloating, WithoutDockableFormsTheWindowStandsAlone) {
    Open();
    TfrmmlLang* const window = Expert->Window();
    EXPECT_EQ(User.Shown, (std::vector<TForm*>{window}));
    EXPECT_EQ(window->Parent, nullptr);
    EXPECT_NE(window->Menu, nullptr);
    Expert->RunItemClick();
    EXPECT_EQ(User.Shown, (std::vector<TForm*>{window, window})) << "brought to the front";
}

}  // namespace
}  // namespace tml
