#include <gtest/gtest.h>

#include "base/Errors.h"
#include "support/Sampleproject.h"

namespace tml {
namespace {

/// Keeps the renames that it is told.
struct TRenames : IOTAFormNotifier {
    std::string Log;
    void AfterSave() override {}
    void BeforeSave() override {}
    void Destroyed() override { Log += "destroyed;"; }
    void Modified() override {}
    void FormActivated() override {}
    void FormSaving() override {}
    void ComponentRenamed(TComponentHandle, const std::string& oldName, const std::string& newName) override {
        Log += oldName + "->" + newName + ";";
    }
};

struct TDesignerTest : testing::Test, TSampleIde {
    std::shared_ptr<IOTAModule> Module = Open("/p/Unit1.pas");
    std::shared_ptr<IOTAFormEditor> Form = Module->GetFormEditor();
    std::string Source() { return *Module->GetSourceEditor(0)->GetText(); }
    bool SourceHas(const std::string& text) { return Source().find(text) != std::string::npos; }
    std::map<std::string, std::string> Saved() {
        Ide.SaveAll();
        return Files.Files;
    }
};

TEST_F(TDesignerTest, OwnedComponents) {
    const auto root = Form->GetRootComponent();
    std::string names;
    for (int i = 0; i < root->GetComponentCount(); ++i)
        names += root->GetComponent(i)->GetName() + " ";
    EXPECT_EQ(names, "Panel1 Button1 Frame1 mlLang1 ");
    EXPECT_EQ(Form->FindComponent("frame1")->GetComponent(0)->GetOwner()->GetName(), "Frame1");
    EXPECT_EQ(Form->FindComponent("Inner"), nullptr);
    EXPECT_EQ(root->GetOwner(), nullptr);
    EXPECT_EQ(root->GetComponent(1)->GetComponentHandle(),
              Form->FindComponent("BUTTON1")->GetComponentHandle());
    EXPECT_EQ(Module->GetFormName(), "Form1");
}

TEST_F(TDesignerTest, CreateRenameDeleteKeepTheSourceInStepAndUndoExactly) {
    const auto before = Files.Files;
    const auto created = Form->CreateComponent(nullptr, "TmlLang", 8, 0, 0, 0, "");
    ASSERT_NE(created, nullptr);
    EXPECT_EQ(created->GetName(), "mlLang2");
    EXPECT_EQ(created->GetPropValue("Left"), TFormValue::Integer(8));
    EXPECT_TRUE(SourceHas("    mlLang2: TmlLang;\r\n")) << Source();
    EXPECT_TRUE(SourceHas("Forms, Mllang;")) << Source();
    created->SetName("mlLang_Form1");
    EXPECT_TRUE(SourceHas("    mlLang_Form1: TmlLang;\r\n")) << Source();
    const auto after = Saved();
    created->Delete();
    EXPECT_THROW(created->GetName(), EBadInput);
    EXPECT_FALSE(SourceHas("mlLang_Form1"));
    Ide.Undo();
    EXPECT_EQ(created->GetName(), "mlLang_Form1");
    EXPECT_EQ(Form->FindComponent("mlLang_Form1"), created);
    Ide.Undo();
    EXPECT_EQ(created->GetName(), "mlLang2");
    EXPECT_EQ(Ide.Undo(), "Create mlLang2");
    EXPECT_THROW(created->GetName(), EBadInput);
    EXPECT_EQ(Saved(), before);
    Ide.Redo();
    Ide.Redo();
    EXPECT_EQ(created->GetName(), "mlLang_Form1");
    EXPECT_EQ(Saved(), after);
    EXPECT_EQ(Form->CreateComponent(nullptr, "TButton", 0, 0, 0, 0, ""), nullptr);
}

TEST_F(TDesignerTest, CppFormsFollowInTheHeader) {
    Files.Files["/p/Main.cpp"] = "#include \"Main.h\"\nTForm3 *Form3;\n";
    Files.Files["/p/Main.h"] =
        "#include <Forms.hpp>\nclass TForm3 : public TForm\n{\n__published:\n    TButton "
        "*Button1;\npublic:\n};\n";
    Files.Files["/p/Main.dfm"] = "object Form3: TForm3\nend\n";
    const auto module = Open("/p/main.DFM");
    EXPECT_EQ(module->GetFileName(), "/p/Main.cpp");
    module->GetFormEditor()->CreateComponent(nullptr, "TmlLang", 0, 0, 0, 0, "");
    module->Save();
    EXPECT_EQ(Files.Files["/p/Main.h"],
              "#include <Forms.hpp>\n#include \"Mllang.hpp\"\nclass TForm3 : public TForm\n{\n__published:\n"
              "    TButton *Button1;\n    TmlLang *mlLang1;\npublic:\n};\n");
    module->GetFormEditor()->GetRootComponent()->SetName("MainForm");
    EXPECT_EQ(*module->GetSourceEditor(0)->GetText(), "#include \"Main.h\"\r\nTForm3 *MainForm;\r\n");
}

TEST_F(TDesignerTest, NamesAreCheckedAndTold) {
    const auto notifier = std::make_shared<TRenames>();
    Form->AddNotifier(notifier);
    const auto button = Form->FindComponent("Button1");
    for (const std::string name : {"", "1x", "a b", "MLLANG1", "form1"})
        EXPECT_THROW(button->SetName(name), EBadInput) << name;
    EXPECT_THROW(Form->FindComponent("Frame1")->GetComponent(0)->SetName("X"), EBadInput);
    EXPECT_THROW(Form->GetRootComponent()->Delete(), EBadInput);
    EXPECT_FALSE(Module->GetModified());
    button->SetName("OkButton");
    Form->GetRootComponent()->SetName("MainForm");
    EXPECT_EQ(Ide.GetModuleServices()->FindFormModule("mainform"), Module);
    EXPECT_TRUE(SourceHas("  MainForm: TForm1;")) << Source();
    Ide.Undo();
    EXPECT_EQ(Ide.GetModuleServices()->FindFormModule("MainForm"), nullptr);
    Module->Close();
    EXPECT_EQ(notifier->Log, "Button1->OkButton;Form1->MainForm;destroyed;");
    EXPECT_THROW(button->GetName(), EBadInput);
}

TEST_F(TDesignerTest, AFormWithoutItsClassIsLeftAlone) {
    Module->Close();
    Files.Files["/p/Unit1.pas"] = "unit Unit1;\r\ninterface\r\nimplementation\r\nend.\r\n";
    Module = Open("/p/Unit1.pas");
    Form = Module->GetFormEditor();
    EXPECT_THROW(Form->CreateComponent(nullptr, "TmlLang", 0, 0, 0, 0, ""), EBadInput);
    EXPECT_FALSE(Module->GetModified());
    EXPECT_EQ(Form->FindComponent("mlLang2"), nullptr);
}

TEST_F(TDesignerTest, ReferencesFollow) {
    Form->FindComponent("Panel1")->SetPropValue("ActiveControl", TFormValue::Identifier("Button1"));
    Form->FindComponent("Button1")->SetName("Ok");
    EXPECT_EQ(Form->FindComponent("Panel1")->GetPropValue("ActiveControl"), TFormValue::Identifier("Ok"));
    EXPECT_EQ(Form->FindComponent("Panel1")->GetPropComponent("ActiveControl"), Form->FindComponent("Ok"));
    Form->FindComponent("Ok")->Delete();
    EXPECT_EQ(Form->FindComponent("Panel1")->GetPropValue("ActiveControl"), std::nullopt);
}

TEST_F(TDesignerTest, PropertiesParentsAndSelection) {
    const auto button = Form->FindComponent("Button1");
    EXPECT_EQ(button->GetParent()->GetName(), "Panel1");
    EXPECT_EQ(Form->GetRootComponent()->GetParent(), nullptr);
    std::string names;
    for (const TFormProperty& property : Form->FindComponent("mlLang1")->GetProperties())
        names += property.Name + " ";
    EXPECT_EQ(names,
              "NumOfLanguages LangNames.Strings Dispatcher Captions.Strings ExcludedProperties.Strings ");

    IDesigner& designer = Form->GetDesigner();
    EXPECT_EQ(designer.GetRoot(), Form->GetRootComponent());
    designer.SetSelections({button, Form->FindComponent("mlLang1")});
    button->Delete();
    ASSERT_EQ(designer.GetSelections().size(), 1U);
    EXPECT_EQ(designer.GetSelections()[0]->GetName(), "mlLang1");
    const auto other = Open("/p/sub/App.Unit2.pas")->GetFormEditor()->FindComponent("Disp");
    EXPECT_THROW(designer.SetSelections({other}), EBadInput);
    EXPECT_EQ(designer.GetSelections().size(), 1U);
}

TEST(Designer, TellsWhereComponentsComeFrom) {
    TSampleIde sample;
    std::string& unit = sample.Files.Files["/p/Unit1.pas"];
    unit.replace(unit.find("class(TForm)"), 12, "class(TForm2)");
    sample.Files.Files["/p/Unit1.dfm"] =
        "inherited Form1: TForm1\r\n  inherited Disp: TmlLangDispatcher\r\n  end\r\n  inline Part: TForm2\r\n"
        "  end\r\n  inline Strange: TFrame9\r\n  end\r\n  object Own: TButton\r\n  end\r\nend\r\n";
    const auto editor = sample.Open("/p/Unit1.pas")->GetFormEditor();
    const auto ancestorOf = [](const std::shared_ptr<IOTAComponent>& component) {
        const auto ancestor = component->GetAncestor();
        return ancestor == nullptr ? "" : ancestor->GetName();
    };
    EXPECT_EQ(ancestorOf(editor->GetRootComponent()), "Form2");
    EXPECT_EQ(ancestorOf(editor->FindComponent("Part")), "Form2");
    EXPECT_EQ(ancestorOf(editor->FindComponent("Disp")), "Disp");
    for (const char* name : {"Strange", "Own"})
        EXPECT_EQ(ancestorOf(editor->FindComponent(name)), "") << name;
    EXPECT_EQ(editor->FindComponent("Disp")->GetOrigin(), TComponentOrigin::coInherited);
    EXPECT_EQ(editor->FindComponent("Part")->GetOrigin(), TComponentOrigin::coFrame);
    EXPECT_EQ(editor->FindComponent("Own")->GetOrigin(), TComponentOrigin::coOwn);
    EXPECT_EQ(ancestorOf(editor->GetRootComponent()->GetAncestor()), "")
        << "its class is none of the project";
}

}  // namespace
}  // namespace tml
