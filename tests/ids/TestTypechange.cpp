#include <gtest/gtest.h>

#include "base/Errors.h"
#include "forms/Formtree.h"
#include "ids/Typechange.h"
#include "support/Expertfixture.h"

namespace tml {
namespace {

constexpr const char* kLang = "  object mlLang1: TmlLang\n    NumOfLanguages = 2\n  end\n";

struct TTypeFixture : TExpertFixture {
    TTypeFixture() {
        PutForm(1, kLang);
        PutForm(2, "  object Other: TmlLang\n  end\n  object mlLang1: TmlLang\n  end\n");
        auto& unit = Files.Files["/p/Unit1.pas"];
        unit.replace(unit.find("StdCtrls"), 8, "Mllang, StdCtrls");
        Files.Files["/p/Unit1.dfm"] = FormBytes(true);
        Before = Files.Files;
        Open();
    }
    std::string FormBytes(bool binary) {
        const auto tree = TFormTree::Parse(Files.Files["/p/Unit1.dfm"], "Unit1.dfm");
        return binary ? tree->Binary() : tree->Text();
    }
    std::string TextOf(const std::string& file) { return Files.Files[file]; }
    void Change(const std::string& form, int index) {
        Select(form);
        ToTmlLang1Click(Context(), index);
    }
    bool Has(const std::string& file, const std::string& text) {
        return TextOf(file).find(text) != std::string::npos;
    }
    std::map<std::string, std::string> Before;
};

TEST(Typechange, AClassForAnEntry) {
    TTypeFixture f;
    EXPECT_EQ(TypeCaptions(*f.Runtime),
              (std::vector<std::string>{"&0. TmlLang", "&1. TmlLangRTSE", "&2. TmlLangRT",
                                        "&3. TmlLangLinked", "&4. TmlLangTLV"}));
}

TEST(Typechange, FormAndUnitThereAndBack) {
    TTypeFixture f;
    f.Change("Form1", 1);
    EXPECT_TRUE(f.FormBytes(false).find("object mlLang1: TmlLangRTSE") != std::string::npos);
    EXPECT_TRUE(f.Has("/p/Unit1.pas", "uses\r\n  Forms, Mllangrtse, StdCtrls;"));
    EXPECT_TRUE(f.Has("/p/Unit1.pas", "    mlLang1: TmlLangRTSE;\r\n"));
    EXPECT_EQ(f.Row("Form1").Component.ClassName, "TmlLangRTSE");
    f.Change("Form1", 0);
    EXPECT_EQ(f.Files.Files, f.Before);
    f.Change("Form1", 4);
    f.Ide.Undo();
    EXPECT_EQ(f.Files.Files, f.Before);
    EXPECT_EQ(f.Row("Form1").Component.ClassName, "TmlLang");
    f.Change("Form1", 0);
    EXPECT_EQ(f.Files.Files, f.Before);
    EXPECT_TRUE(f.Ide.Modules().empty());
}

TEST(Typechange, OnlyTheFirstOfTheClass) {
    TTypeFixture f;
    auto& unit = f.Files.Files["/p/Unit2.pas"];
    unit.replace(unit.find("    mlLang1"), 0, "    Other: TmlLang;\r\n");
    f.Change("Form2", 2);
    EXPECT_TRUE(f.Has("/p/Unit2.dfm", "object Other: TmlLangRT\r\n")) << f.TextOf("/p/Unit2.dfm");
    EXPECT_TRUE(f.Has("/p/Unit2.dfm", "object mlLang1: TmlLang\r\n"));
    EXPECT_TRUE(f.Has("/p/Unit2.pas", "    Other: TmlLangRT;\r\n    mlLang1: TmlLang;\r\n"));
    EXPECT_TRUE(f.Has("/p/Unit2.pas", "Mllangrt;"));
}

TEST(Typechange, ADeclarationInAnotherStyleStays) {
    TTypeFixture f;
    auto& unit = f.Files.Files["/p/Unit1.pas"];
    unit.replace(unit.find(": TmlLang;"), 10, ": TmlLang ;");
    const std::string before = unit;
    f.Change("Form1", 1);
    EXPECT_EQ(unit, before);
    EXPECT_NE(f.FormBytes(false).find("TmlLangRTSE"), std::string::npos);
}

TEST(Typechange, OpenUnitsAreSavedClosedAndOpenedAgain) {
    TTypeFixture f;
    const auto editor = f.Ide.GetModuleServices()->OpenModule("/p/Unit1.pas", true)->GetSourceEditor(0);
    editor->CreateUndoableWriter()->Insert("// typed\r\n");
    f.Change("Form1", 1);
    EXPECT_TRUE(f.Has("/p/Unit1.pas", "// typed\r\nunit Unit1;"));
    EXPECT_TRUE(f.Has("/p/Unit1.pas", "mlLang1: TmlLangRTSE;"));
    ASSERT_EQ(f.Ide.Modules().size(), 1U);
    const auto form = f.Ide.Modules()[0]->GetFormEditor();
    EXPECT_EQ(form->FindComponent("mlLang1")->GetComponentType(), "TmlLangRTSE");
}

TEST(Typechange, WhatCannotBeChangedStaysAsItWas) {
    TTypeFixture f;
    EXPECT_THROW(f.Change("none", 9), std::out_of_range);
    f.Change("none", 1);
    f.Files.Files["/p/Unit1.dfm"] = "object Form1: TForm1\r\n  Caption = \r\nend\r\n";
    const auto broken = f.Files.Files;
    EXPECT_THROW(f.Change("Form1", 1), EBadInput);
    EXPECT_EQ(f.Files.Files, broken);
    f.Files.Files["/p/Unit1.dfm"] = "object Form1: TForm1\r\nend\r\n";
    const auto without = f.Files.Files;
    EXPECT_THROW(f.Change("Form1", 1), EBadInput);
    EXPECT_EQ(f.Files.Files, without);
}

TEST(Typechange, AFormLineWithTextBehindTheClassStays) {
    TTypeFixture f;
    f.Files.Files["/p/Unit1.dfm"] =
        "object Form1: TForm1\r\n  object mlLang1: TmlLang [0]\r\n  end\r\nend\r\n";
    const std::string form = f.TextOf("/p/Unit1.dfm");
    f.User.OnMessage(
        "/p/Unit1.dfm: mlLang1 stays TmlLang, whose name does not end its line. Only the unit says "
        "TmlLangRTSE now.");
    f.Change("Form1", 1);
    EXPECT_EQ(f.TextOf("/p/Unit1.dfm"), form);
    EXPECT_TRUE(f.Has("/p/Unit1.pas", "    mlLang1: TmlLangRTSE;\r\n"));
    EXPECT_EQ(f.Row("Form1").Component.ClassName, "TmlLangRTSE");
}

TEST(Typechange, PropertiesThatGoAreAskedAbout) {
    TTypeFixture f;
    f.PutForm(1, "  object mlLang1: TmlLangLinked\n    CommonContainer = Form2.mlLang1\n  end\n");
    f.Expert->RunItemClick();
    const auto before = f.Files.Files;
    const char* question =
        "TmlLang has no CommonContainer: what mlLang1 holds of it would be lost. Continue?";
    f.User.OnMessage(question, mrNo);
    f.Change("Form1", 0);
    EXPECT_EQ(f.Files.Files, before);
    f.User.OnMessage(question, mrYes);
    f.Change("Form1", 0);
    EXPECT_FALSE(f.Has("/p/Unit1.dfm", "CommonContainer"));
    EXPECT_TRUE(f.Has("/p/Unit1.dfm", "object mlLang1: TmlLang\r\n"));
}

TEST(Typechange, PropertiesOfACommonAncestorStay) {
    TTypeFixture f;
    f.PutForm(1, "  object mlLang1: TmlLangRT\n    FileName = 'App.mll'\n  end\n");
    f.Expert->RunItemClick();
    f.Change("Form1", 1);
    EXPECT_TRUE(f.Has("/p/Unit1.dfm", "object mlLang1: TmlLangRTSE\r\n    FileName = 'App.mll'\r\n"));
    f.User.OnMessage("TmlLang has no FileName: what mlLang1 holds of it would be lost. Continue?", mrYes);
    f.Change("Form1", 0);
    EXPECT_FALSE(f.Has("/p/Unit1.dfm", "FileName"));
}

}  // namespace
}  // namespace tml
