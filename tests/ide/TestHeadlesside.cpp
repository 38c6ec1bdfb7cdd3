#include <gtest/gtest.h>
#include <random>

#include "base/Errors.h"
#include "support/Sampleproject.h"
#include "support/Wrappedfiles.h"

namespace tml {
namespace {

TChangeSet SourceChange(const std::string& file, const std::shared_ptr<const std::string>& text,
                        TEdits edits) {
    TChangeSet set;
    set.Title = "Change " + file;
    set.Sources.push_back({file, text, std::move(edits)});
    return set;
}

struct TIdeTest : testing::Test, TSampleIde {
    IOTAModuleServices& Services = *Ide.GetModuleServices();
    std::shared_ptr<IOTASourceEditor> Editor(const std::string& file) {
        return Open(file)->GetSourceEditor(0);
    }
    void Insert(const std::string& file, const std::string& text) {
        Editor(file)->CreateUndoableWriter()->Insert(text);
    }
};

TEST_F(TIdeTest, ProjectIsSeen) {
    const auto project = Services.GetActiveProject();
    std::string units;
    for (int i = 0; i < project->GetModuleCount(); ++i) {
        const TOTAModuleInfo info = project->GetModule(i);
        units += info.Name + " " + info.FileName + " " + info.FormName + "\n";
    }
    EXPECT_EQ(units, "Unit1 /p/Unit1.pas Form1\nUnit2 /p/sub/App.Unit2.pas Form2\nPlain /p/Plain.pas \n");
    EXPECT_TRUE(Ide.Problems().empty());
    EXPECT_EQ(Services.FindModule("/p/UNIT1.dfm"), nullptr);
    const auto module = Services.OpenModule("/p/sub/app.unit2.dfm", true);
    EXPECT_EQ(module->GetFileName(), "/p/sub/App.Unit2.pas");
    EXPECT_EQ(Services.FindModule("/P/sub/../sub/APP.UNIT2.PAS"), module);
    EXPECT_EQ(Services.GetCurrentSourceEditor()->GetFileName(), module->GetFileName());
    Files.Links["/q/Same.pas"] = "/p/sub/App.Unit2.pas";
    EXPECT_EQ(Services.OpenModule("/q/Same.pas", false), module) << "one file is one module";
    EXPECT_EQ(Open("/p/Plain.pas")->GetFormEditor(), nullptr);
}

TEST_F(TIdeTest, AFileIsNotTakenForOneWhoseNameDiffersInCaseOnly) {
    Files.Files["/p/plain.PAS"] = "unit Other;";
    Files.Files["/p/unit1.dfm"] = "";
    EXPECT_THROW(Open("/p/plain.PAS"), EBadInput);
    const auto module = Open("/p/Plain.pas");
    EXPECT_EQ(Open("/P/../p/Plain.pas"), module);
    EXPECT_THROW(Open("/p/plain.PAS"), EBadInput);
    EXPECT_EQ(Open("/p/PLAIN.pas"), module) << "there is no such file";
    EXPECT_EQ(Open("/p/Unit1.pas")->GetFormEditor()->GetFileName(), "/p/Unit1.dfm");
}

TEST_F(TIdeTest, EditorsReadWriteAndPlace) {
    const auto editor = Editor("/p/Plain.pas");
    const auto view = editor->GetEditView(0);
    EXPECT_EQ(view->PosToCharPos(13), (TOTACharPos{2, 0}));
    EXPECT_EQ(view->CharPosToPos({2, 99}), 22);
    EXPECT_EQ(view->CharPosToPos({99, 3}), static_cast<int>(editor->GetText()->size()));
    EXPECT_EQ(view->PosToCharPos(-4), (TOTACharPos{1, 0}));
    EXPECT_EQ(editor->CreateReader()->GetText(5, 5) + editor->CreateReader()->GetText(999, 5), "Plain");
    {
        const auto writer = editor->CreateUndoableWriter();
        EXPECT_THROW(editor->CreateUndoableWriter(), EBadInput);
        writer->CopyTo(5);
        writer->DeleteTo(10);
        writer->Insert("Simple");
        writer->CopyTo(11);
        writer->Insert(" // x\n");
    }
    EXPECT_EQ(editor->GetText()->substr(0, 24), "unit Simple; // x\r\n\r\nint");
    EXPECT_TRUE(editor->GetModified());
    EXPECT_EQ(Ide.Undo(), "Edit Plain.pas");
    EXPECT_FALSE(editor->GetModified());
    Ide.Redo();
    Open("/p/Plain.pas")->Save();
    EXPECT_EQ(Files.Files["/p/Plain.pas"].substr(0, 22), "unit Simple; // x\n\nint");
    EXPECT_FALSE(editor->GetModified());
}

TEST_F(TIdeTest, CommandsNestRollBackAndShowTheirPatch) {
    const std::string form = Files.Files["/p/Unit1.dfm"];
    {
        const auto outer = Services.BeginCommand("outer");
        Component("Button1")->SetPropValue("Caption", TFormValue::String("Yes"));
        {
            const auto inner = Services.BeginCommand("inner");
            Insert("/p/Plain.pas", "// lost\r\n");
            Component("mlLang1")->Delete();
        }
        EXPECT_NE(Component("mlLang1"), nullptr);
        Insert("/p/Plain.pas", "// kept\r\n");
        EXPECT_EQ(outer->Patch(),
                  "--- a/Plain.pas\n+++ b/Plain.pas\n@@ -1,3 +1,4 @@\n+// kept\n unit Plain;\n interface\n"
                  " implementation\n"
                  "--- a/Unit1.dfm\n+++ b/Unit1.dfm\n@@ -2,7 +2,7 @@\n   Caption = 'Main'\r\n"
                  "   object Panel1: TPanel\r\n     object Button1: TButton\r\n-      Caption = '&OK'\r\n"
                  "+      Caption = 'Yes'\r\n     end\r\n   end\r\n   inline Frame1: TFrame1\r\n");
        Open("/p/Unit1.pas")->Save();
        EXPECT_FALSE(Open("/p/Unit1.pas")->GetModified());
        Open("/p/Unit1.pas")->Close();
        EXPECT_EQ(Files.Files["/p/Unit1.dfm"], form);
        EXPECT_EQ(Component("Button1")->GetPropValue("Caption"), TFormValue::String("Yes"));
        outer->Commit();
    }
    EXPECT_NE(Files.Files["/p/Unit1.dfm"].find("'Yes'"), std::string::npos);
    EXPECT_TRUE(Open("/p/Plain.pas")->GetModified());
    EXPECT_EQ(Ide.Undo(), "outer");
    EXPECT_EQ(Component("Button1")->GetPropValue("Caption"), TFormValue::String("&OK"));
    EXPECT_TRUE(Open("/p/Unit1.pas")->GetModified()) << "opened anew since";
    EXPECT_FALSE(Open("/p/Plain.pas")->GetModified());
    Ide.Redo();
    EXPECT_FALSE(Open("/p/Unit1.pas")->GetModified());
    {
        const auto command = Services.BeginCommand("dropped");
        Component("Button1")->SetPropValue("Caption", TFormValue::String("No"));
        Open("/p/Unit1.pas")->Save();
    }
    EXPECT_EQ(Component("Button1")->GetPropValue("Caption"), TFormValue::String("Yes"));
    EXPECT_FALSE(Open("/p/Unit1.pas")->GetModified());
}

TEST_F(TIdeTest, UndoWantsTheTopmostStepInEveryDocument) {
    TChangeSet both = SourceChange("/p/Plain.pas", nullptr, {{0, 0, "{1}"}});
    both.Title = "both";
    both.Properties.push_back({"Form1", "Button1", "Caption", TFormValue::String("A")});
    Open("/p/Plain.pas");
    Open("/p/Unit1.pas");
    Services.ApplyChangeSet(both);
    Component("Button1")->SetPropValue("Hint", TFormValue::String("B"));
    try {
        Ide.Undo("/p/Plain.pas");
        ADD_FAILURE();
    } catch (const EBadInput& error) {
        EXPECT_EQ(error.File(), "/p/Unit1.dfm");
    }
    EXPECT_EQ(Ide.Undo("/p/Unit1.dfm"), "Set Button1.Hint");
    EXPECT_EQ(Ide.Undo("/p/Plain.pas"), "both");
    EXPECT_FALSE(Open("/p/Plain.pas")->GetModified() || Open("/p/Unit1.pas")->GetModified());
    EXPECT_EQ(Ide.Undo(), "");
    EXPECT_EQ(Ide.Redo("/p/Plain.pas"), "both");
    Insert("/p/Plain.pas", "x");
    EXPECT_EQ(Ide.Redo(), "Set Button1.Hint");
    EXPECT_EQ(Ide.Redo(), "");
}

TEST_F(TIdeTest, ChangeSetsThatDoNotFitChangeNothing) {
    Files.Files["/p/Cyr.pas"] = "unit Cyr; // \xCF\xF0\xE8\xE2\xE5\xF2, \xEC\xE8\xF0\nend.\n";
    Files.Files["/p/Project1.dof"] = "CodePage=1251\n";
    Ide.OpenProject("/p/Project1.dpr");
    const auto text = Editor("/p/Plain.pas")->GetText();
    Open("/p/Unit1.pas");
    Open("/p/Cyr.pas");
    const TPropertyChange good = {"Form1", "Button1", "Caption", TFormValue::String("A")};
    std::vector<TChangeSet> sets = {
        SourceChange("/p/Plain.pas", std::make_shared<const std::string>("other"), {{0, 0, "x"}}),
        SourceChange("/p/Plain.pas", text, {{5, 9999, "x"}}),
        SourceChange("/p/Closed.pas", nullptr, {}),
        SourceChange("/p/Cyr.pas", nullptr, {{0, 0, "\xE6\x97\xA5"}}),
    };
    sets.resize(6, SourceChange("/p/Plain.pas", text, {{0, 0, "x"}}));
    sets[4].Properties = {good, {"Form1", "Nobody", "Caption", TFormValue::String("A")}};
    sets[5].UsedUnits = {{"/p/Closed.pas", "Unit1"}};
    for (TChangeSet& set : sets) {
        set.Properties.insert(set.Properties.begin(), good);
        EXPECT_THROW(Services.ApplyChangeSet(set), EBadInput);
        for (const auto& module : Ide.Modules())
            EXPECT_FALSE(module->GetModified());
    }
    EXPECT_EQ(Ide.Undo(), "");
}

TEST_F(TIdeTest, AChangeSetMovesOverWhatItsOwnCommandHasDone) {
    const auto text = Editor("/p/Plain.pas")->GetText();
    const TChangeSet clash = SourceChange("/p/Plain.pas", text, {{15, 16, "x"}});
    const auto command = Services.BeginCommand("both");
    Insert("/p/Plain.pas", "{1}");
    Services.ApplyChangeSet(SourceChange("/p/Plain.pas", text, {{13, 22, "INTERFACE"}}));
    EXPECT_TRUE(Editor("/p/Plain.pas")->GetText()->starts_with("{1}unit Plain;\r\nINTERFACE\r\n"));
    EXPECT_THROW(Services.ApplyChangeSet(clash), EBadInput);
    command->Commit();
    EXPECT_THROW(Services.ApplyChangeSet(SourceChange("/p/Plain.pas", text, {{0, 4, "x"}})), EBadInput)
        << "that command is over";
}

TEST_F(TIdeTest, SavingIsAllOrNothing) {
    TChangeSet set = SourceChange("/p/Plain.pas", nullptr, {{0, 0, "{1}"}});
    set.Properties.push_back({"Form1", "Button1", "Caption", TFormValue::String("A")});
    set.UsedUnits = {{"/p/Plain.pas", "Unit1.pas"}};
    Open("/p/Plain.pas");
    Open("/p/Unit1.pas");
    Services.ApplyChangeSet(set);
    EXPECT_NE(Editor("/p/Plain.pas")->GetText()->find("uses\r\n  Unit1;"), std::string::npos);
    const std::string form = Files.Files["/p/Unit1.dfm"];
    Files.Files["/p/Unit1.dfm"] = form + " ";
    const auto before = Files.Files;
    EXPECT_THROW(Ide.SaveAll(), EFileError);
    EXPECT_EQ(Files.Files, before);
    EXPECT_TRUE(Open("/p/Plain.pas")->GetModified());
    Files.Files["/p/Unit1.dfm"] = form;
    Ide.SaveAll();
    EXPECT_EQ(Files.Files.size(), before.size());
    EXPECT_FALSE(Open("/p/Plain.pas")->GetModified());
    Ide.Undo();
    EXPECT_TRUE(Open("/p/Plain.pas")->GetModified());
}

TEST_F(TIdeTest, BadFilesGiveOneMessageAndOpenNothing) {
    const std::string good = Files.Files["/p/Unit1.dfm"];
    std::string deep;
    for (int i = 0; i < 100000; ++i)
        deep += "object a: B\n";
    const std::string forms[] = {"",
                                 "garbage",
                                 good.substr(0, good.size() / 2),
                                 deep,
                                 "\xFF\xD8\xFF\xE0" + deep,
                                 std::string("TPF0\x05TForm\xFF\xFF\xFF", 13)};
    for (const std::string& form : forms) {
        Files.Files["/p/Unit1.dfm"] = form;
        EXPECT_THROW(Open("/p/Unit1.pas"), EBadInput);
    }
    EXPECT_TRUE(Ide.Modules().empty());
    Files.Files.erase("/p/Plain.pas");
    EXPECT_THROW(Open("/p/Plain.pas"), EFileError);
    Ide.OpenProject("/p/Project1.dpr");
    ASSERT_EQ(Ide.Problems().size(), 1U);
    EXPECT_EQ(Ide.Problems()[0].Line, 7);
    EXPECT_THROW(Ide.OpenProject("/p/none.dproj"), EFileError);
    EXPECT_NE(Services.GetActiveProject(), nullptr) << "a project that cannot be opened closes nothing";
}

TEST_F(TIdeTest, DamagedFilesNeverDoMoreThanFail) {
    std::mt19937 random(1);
    const std::map<std::string, std::string> whole = Files.Files;
    int opened = 0;
    int refused = 0;
    for (int round = 0; round < 300; ++round) {
        Files.Files = whole;
        for (const char* path : {"/p/Project1.dpr", "/p/Unit1.pas", "/p/Unit1.dfm"}) {
            std::string& bytes = Files.Files[path];
            if (round % 3 == 0) bytes.resize(random() % bytes.size());
            if (!bytes.empty()) bytes[random() % bytes.size()] = static_cast<char>(random());
        }
        try {
            Ide.OpenProject("/p/Project1.dpr");
            Open("/p/Unit1.pas")->GetFormEditor()->CreateComponent(nullptr, "TmlLang", 0, 0, 0, 0, "");
            Ide.Undo();
            EXPECT_FALSE(Open("/p/Unit1.pas")->GetModified());
            ++opened;
        } catch (const EBadInput&) {
            ++refused;
        }
    }
    EXPECT_GT(opened, 20);
    EXPECT_GT(refused, 20);
}

TEST_F(TIdeTest, ClosedFilesAreUndoneWhereTheDiskHoldsWhatTheCommandLeft) {
    ICommandFiles& view = *Runtime->Files;
    Files.Files["/p/Old.txt"] = "old";
    const auto before = Files.Files;
    {
        const auto command = Services.BeginCommand("all");
        Component("Button1")->SetPropValue("Caption", TFormValue::String("Yes"));
        Insert("/p/Plain.pas", "// kept\r\n");
        view.WriteFile("/p/New.txt", "1");
        {
            const auto inner = Services.BeginCommand("inner");
            view.WriteFile("/p/New.txt", "2");
            view.RemoveFile("/p/Unit2.pas");
        }
        view.RemoveFile("/p/Old.txt");
        EXPECT_EQ(view.ReadFile("/p/New.txt").value(), "1");
        EXPECT_EQ(view.ReadFile("/p/Old.txt"), std::nullopt);
        EXPECT_NE(view.ReadFile("/p/Unit1.dfm")->find("'Yes'"), std::string::npos);
        EXPECT_THROW(view.WriteFile("/p/Plain.pas", ""), EBadInput) << "it is open";
        EXPECT_EQ(Files.Files, before);
        Open("/p/Unit1.pas")->Save();
        Open("/p/Unit1.pas")->Close();
        command->Commit();
    }
    auto after = Files.Files;
    EXPECT_EQ(after["/p/New.txt"], "1");
    EXPECT_FALSE(after.contains("/p/Old.txt"));
    Files.Files["/p/Unit1.dfm"] += " ";
    try {
        Ide.Undo();
        ADD_FAILURE();
    } catch (const EBadInput& error) {
        EXPECT_EQ(error.File(), "/p/Unit1.dfm");
    }
    Files.Files["/p/Unit1.dfm"] = after["/p/Unit1.dfm"];
    EXPECT_TRUE(Open("/p/Plain.pas")->GetModified());
    EXPECT_EQ(Ide.Undo("/p/unit1.PAS"), "all") << "by a file that is closed";
    EXPECT_EQ(Files.Files, before);
    EXPECT_FALSE(Open("/p/Plain.pas")->GetModified());
    EXPECT_EQ(Ide.Redo(), "all");
    EXPECT_EQ(Files.Files, after);
    EXPECT_EQ(Editor("/p/Plain.pas")->GetText()->substr(0, 7), "// kept");
}

TEST_F(TIdeTest, WhatWasClosedUnsavedIsNoLongerUndone) {
    Insert("/p/Plain.pas", "1");
    Open("/p/Plain.pas")->Save();
    Insert("/p/Plain.pas", "2");
    Component("Button1")->SetPropValue("Hint", TFormValue::String("B"));
    TChangeSet both = SourceChange("/p/Plain.pas", nullptr, {{0, 0, "3"}});
    both.Properties.push_back({"Form1", "Button1", "Caption", TFormValue::String("A")});
    Services.ApplyChangeSet(both);
    Open("/p/Plain.pas")->Close();
    EXPECT_THROW(Ide.Undo(), EBadInput) << "half of it is gone";
    Open("/p/Unit1.pas")->Close();
    EXPECT_EQ(Ide.Undo(), "Edit Plain.pas");
    EXPECT_EQ(Files.Files["/p/Plain.pas"][0], 'u');
    EXPECT_EQ(Ide.Undo(), "");
}

/// Logs what it is told; may remove itself or refuse.
struct TIdeNotifier : IOTAIDENotifier {
    explicit TIdeNotifier(IOTAServices& services) : Services(services) {}
    IOTAServices& Services;
    int RemoveOnCall = -1;
    bool Refuse = false;
    std::string Log;
    void AfterSave() override {}
    void BeforeSave() override {}
    void Destroyed() override {}
    void Modified() override {}
    void FileNotification(TOTAFileNotification code, const std::string& file, bool& cancel) override {
        const char* names[] = {"opening ", "opened ", "closing ", "active ", "desktop "};
        Log += names[static_cast<int>(code)] + file + "\n";
        cancel = Refuse;
        if (RemoveOnCall >= 0) Services.RemoveNotifier(RemoveOnCall);
        throw std::runtime_error("must not reach the IDE");
    }
    void FilesRestored(const std::vector<std::string>& fileNames) override {
        for (const std::string& fileName : fileNames)
            Log += "restored " + fileName + "\n";
    }
    void BeforeCompile(const std::string&, bool&) override {}
    void AfterCompile(bool) override {}
    void BeforeCompile(const std::string&, bool, bool&) override {}
    void AfterCompile(bool, bool) override {}
};

TEST_F(TIdeTest, NotificationsComeOnceInOrderOverACopy) {
    IOTAServices& services = *Ide.GetServices();
    const auto first = std::make_shared<TIdeNotifier>(services);
    const auto second = std::make_shared<TIdeNotifier>(services);
    services.AddNotifier(first);
    first->RemoveOnCall = services.AddNotifier(second);
    Open("/p/Unit1.pas");
    EXPECT_EQ(second->Log, "opening /p/Unit1.pas\n");
    Open("/p/Unit1.dfm");
    Open("/p/Unit1.pas")->Close();
    Ide.OpenProject("/p/Project1.dpr");
    EXPECT_EQ(first->Log,
              "opening /p/Unit1.pas\nopened /p/Unit1.pas\nclosing /p/Unit1.pas\nclosing /p/Unit1.dfm\n"
              "closing /p/Project1.dpr\nactive /p/Project1.dpr\n");
    first->Refuse = true;
    EXPECT_THROW(Open("/p/Plain.pas"), EmlLangSilent);
    EXPECT_TRUE(Ide.Modules().empty());
}

TEST_F(TIdeTest, EveryWayBackNamesItsFiles) {
    const auto notifier = std::make_shared<TIdeNotifier>(*Ide.GetServices());
    Component("Button1");
    Ide.GetServices()->AddNotifier(notifier);
    const auto told = [&] { return std::exchange(notifier->Log, {}); };
    {
        const auto outer = Services.BeginCommand("outer");
        Open("/p/Unit1.pas")->GetFormEditor()->MarkModified();
        const auto inner = Services.BeginCommand("inner");
        Component("Button1")->SetPropValue("Hint", TFormValue::String("B"));
    }
    EXPECT_EQ(told(), "restored /p/Unit1.dfm\n") << "the outer one has changed nothing";
    Component("Button1")->SetName("Button2");
    const TChangeSet set = SourceChange("/p/Unit1.pas", nullptr, {{0, 0, "{}"}});
    Services.ApplyChangeSet(set);
    Ide.Undo();
    EXPECT_EQ(told(), "restored /p/Unit1.pas\n");
    Ide.Undo();
    EXPECT_EQ(told(), "restored /p/Unit1.dfm\nrestored /p/Unit1.pas\n");
    Ide.Redo();
    Ide.SaveAll();
    told();
    Open("/p/Unit1.pas")->Close();
    EXPECT_EQ(told(), "closing /p/Unit1.pas\nclosing /p/Unit1.dfm\n");
    Ide.Undo();
    EXPECT_EQ(told(), "restored /p/Unit1.dfm\nrestored /p/Unit1.pas\n");
    Insert("/p/Unit1.pas", "{}");
    told();
    Open("/p/Unit1.pas")->Close();
    EXPECT_EQ(told(), "closing /p/Unit1.pas\nclosing /p/Unit1.dfm\nrestored /p/Unit1.pas\n");
}

TEST(HeadlessIde, MenusWindowsAndPackages) {
    TSampleIde plain(false);
    EXPECT_EQ(plain.Ide.GetNTAServices()->GetFormClasses("ProjectManagerForm")[1], "TForm");
    EXPECT_EQ(plain.Ide.GetNTAServices()->CreateDockHost("TDockableForm"), nullptr);
    TSampleIde sample;
    INTAServices& native = *sample.Ide.GetNTAServices();
    EXPECT_EQ(native.GetFormClasses("ProjectManagerForm")[2], "TDockableForm");
    EXPECT_TRUE(native.GetFormClasses("Other").empty());
    std::string sections;
    for (const auto& section : native.GetMainMenu().Items) {
        sections += section->Name + " ";
        EXPECT_GE(section->Items.size(), 2U);
    }
    EXPECT_EQ(sections,
              "FileMenu EditMenu SearchMenu ViewsMenu ProjectMenu RunMenu ComponentMenu ToolsMenu HelpMenu ");

    std::string log;
    const auto package = [&](const std::string& name, bool fails) {
        return TPackage{name,
                        [&log, fails, name](IRegistration& registration) {
                            registration.RegisterPackageWizard(std::shared_ptr<IOTAWizard>(
                                nullptr, [&log, name](IOTAWizard*) { log += "released " + name + ";"; }));
                            if (fails) throw EConvertError("no");
                        },
                        [&log, name] { log += "finalized " + name + ";"; }};
    };
    EXPECT_THROW(sample.Ide.LoadPackage(package("bad", true)), EConvertError);
    {
        TSampleIde other;
        other.Ide.LoadPackage(package("a", false));
        other.Ide.LoadPackage(package("b", false));
        other.Ide.UnloadPackage("none");
    }
    EXPECT_EQ(log, "released bad;finalized bad;released b;finalized b;released a;finalized a;");
}

struct TTestEditor : IPropertyEditor {
    explicit TTestEditor(IDesigner& designer) : Designer(designer) {}
    std::vector<TPropertyAttribute> GetAttributes() override { return {TPropertyAttribute::paDialog}; }
    void GetValues(const std::function<void(const std::string&)>&) override {}
    void Edit() override { Designer.Modified(); }
    IDesigner& Designer;
};

TEST(HeadlessIde, KeepsWhatAPackageRegistersUntilItIsUnloaded) {
    TSampleIde sample;
    sample.Ide.LoadPackage({"editors",
                            [](IRegistration& registration) {
                                registration.RegisterComponents("Page", {"TmlLang", "TmlLabel"});
                                registration.RegisterActions("Category", {"TAction"});
                                registration.RegisterComponentEditor("TmlLang", nullptr);
                                registration.RegisterSelectionEditor("TComponent", nullptr);
                                registration.RegisterPropertyEditor(
                                    "TStrings", "TmlCustomLang", "Captions",
                                    [](const auto&, const std::string&, IDesigner& designer) {
                                        return std::make_unique<TTestEditor>(designer);
                                    });
                            },
                            {}});
    const TRegistrations kept = sample.Ide.Registered();
    ASSERT_EQ(kept.Components.size() + kept.Actions.size() + kept.ComponentEditors.size() +
                  kept.SelectionEditors.size() + kept.PropertyEditors.size(),
              5U);
    EXPECT_EQ(kept.Components[0].Title, "Page");
    EXPECT_EQ(kept.Components[0].Classes, (std::vector<std::string>{"TmlLang", "TmlLabel"}));
    EXPECT_EQ(kept.Actions[0].Title + kept.ComponentEditors[0].ComponentClass +
                  kept.SelectionEditors[0].ComponentClass,
              "CategoryTmlLangTComponent");
    EXPECT_EQ(kept.PropertyEditors[0].PropertyType + "." + kept.PropertyEditors[0].PropertyName,
              "TStrings.Captions");
    const auto editor = sample.Open("/p/Unit1.pas")->GetFormEditor();
    kept.PropertyEditors[0]
        .Editor(editor->FindComponent("mlLang1"), "Captions", editor->GetDesigner())
        ->Edit();
    EXPECT_TRUE(editor->GetModified());
    sample.Ide.UnloadPackage("editors");
    EXPECT_TRUE(sample.Ide.Registered().PropertyEditors.empty());
    EXPECT_TRUE(sample.Ide.Registered().Components.empty());
}

TEST(HeadlessIde, AFormIsThatOfTheActiveProjectAndIsUndoneWithItsUnit) {
    TMemoryFileSystem files;
    AddSampleProject(files);
    for (const char* file : {"Unit1.pas", "Unit1.dfm", "Project1.dpr"})
        files.Files[std::string("/q/") + file] = files.Files[std::string("/p/") + file];
    files.Files["/All.bpg"] =
        "PROJECTS = A.exe B.exe\r\nA.exe: p\\Project1.dpr\r\nB.exe: q\\Project1.dpr\r\n";
    const auto runtime = MakeMlRuntime();
    THeadlessIde ide(files, *runtime);
    ide.OpenProject("/All.bpg");
    IOTAModuleServices& services = *ide.GetModuleServices();
    services.OpenModule("/p/Unit1.pas", false);
    EXPECT_EQ(services.FindFormModule("form1")->GetFileName(), "/p/Unit1.pas");
    services.GetMainProjectGroup()->SetActiveProject(services.GetMainProjectGroup()->GetProject(1));
    EXPECT_EQ(services.FindFormModule("form1")->GetFileName(), "/p/Unit1.pas") << "better than none";
    const auto module = services.OpenModule("/q/Unit1.pas", false);
    EXPECT_EQ(services.FindFormModule("form1"), module);
    const auto form = module->GetFormEditor()->GetRootComponent();
    form->SetPropValue("Caption", TFormValue::String("Changed"));
    EXPECT_EQ(ide.Undo("/p/Unit1.pas"), "");
    EXPECT_NE(ide.Undo("/q/Unit1.pas"), "");
    EXPECT_EQ(form->GetPropValue("Caption"), TFormValue::String("Main"));
    EXPECT_EQ(ide.Undo("/q/Unit1.pas"), "");
}

TEST_F(TIdeTest, ACommandThatChangesNothingModifiesNothing) {
    const auto form = Open("/p/Unit1.pas")->GetFormEditor();
    const auto run = [&] {
        const auto command = Services.BeginCommand("nothing");
        Component("Button1")->SetPropValue("Hint", TFormValue::String("B"));
        Component("Button1")->RemoveProp("Hint");
        form->MarkModified();
        command->Commit();
        return form->GetModified();
    };
    EXPECT_FALSE(run());
    EXPECT_EQ(Ide.Undo(), "");
    form->MarkModified();
    EXPECT_TRUE(run()) << "it was before";
    Component("Button1")->SetPropValue("Hint", TFormValue::String("B"));
    EXPECT_TRUE(run());
    Ide.SaveAll();
    EXPECT_FALSE(run());
}

TEST_F(TIdeTest, AFormThatCannotBeReadIsMendedAsAText) {
    std::vector<std::string> written;
    Ide.TellWritten([&](const std::string& title, const std::vector<std::string>& files) {
        for (const std::string& file : files)
            written.push_back(title + ": " + file);
    });
    const std::string form = "/p/Unit1.dfm", whole = Files.Files[form];
    Files.Files[form].insert(0, "x");
    EXPECT_THROW(Open(form), EBadInput);
    const auto text = Ide.OpenText(form);
    EXPECT_EQ(text->GetFormEditor(), nullptr);
    text->GetSourceEditor(0)->CreateUndoableWriter()->DeleteTo(1);
    EXPECT_THROW(Open("/p/Unit1.pas"), EBadInput) << "not saved yet";
    text->Save();
    EXPECT_EQ(Files.Files[form], whole);
    EXPECT_EQ(written, (std::vector<std::string>{"Save Unit1.dfm: " + form}));
    const auto unit = Open("/p/Unit1.pas");
    EXPECT_EQ(Services.FindModule(form), unit);
    EXPECT_EQ(Ide.Modules().size(), 1U) << "the text is closed";
    unit->Close();
    Files.Files[form] = "TPF0x";
    EXPECT_THROW(Ide.OpenText(form), EBadInput);
}

TEST(HeadlessIde, OpeningAndLookingTouchesNothing) {
    TMemoryFileSystem files;
    AddSampleProject(files);
    TLoggingFileSystem log(files);
    const auto runtime = MakeMlRuntime();
    THeadlessIde ide(log, *runtime);
    ide.OpenProject("/p/Project1.dpr");
    const auto module = ide.GetModuleServices()->OpenModule("/p/Unit1.pas", true);
    module->GetFormEditor()->MarkModified();
    EXPECT_TRUE(module->GetModified());
    ide.SaveAll();
    EXPECT_FALSE(module->GetModified());
    EXPECT_TRUE(log.Changes().empty());
}

}  // namespace
}  // namespace tml
