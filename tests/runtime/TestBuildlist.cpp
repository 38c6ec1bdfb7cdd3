#include <gtest/gtest.h>

#include "ide/Headlesside.h"
#include "runtime/Runtime.h"
#include "support/Memoryfiles.h"
#include "tables/Itemdata.h"
#include "tables/States.h"

namespace tml {
namespace {

/// A project whose form Main descends from Base and has the frame Cargo.
struct TBuildTest : testing::Test {
    void SetUp() override {
        Put("Base", "",
            "object Base: TBase\n  Caption = 'Ships'\n  object btnOK: TButton\n    Caption = '&OK'\n"
            "    Hint = 'Done'\n  end\nend\n");
        Put("Cargo", "",
            "object Cargo: TCargo\n  object lblWeight: TLabel\n    Caption = 'Weight:'\n  end\nend\n");
        Put("Main", "", Main("  object lblTide: TLabel\n    Caption = 'Tide'\n  end\n", ""));
        Files.Files["/p/P.dpr"] =
            "program P;\nuses Forms, Base in 'Base.pas' {Base}, Cargo in 'Cargo.pas' {Cargo: TFrame},"
            "\n  Main in 'Main.pas' {Main};\nbegin\nend.\n";
    }
    static std::string Main(const std::string& components, const std::string& lang) {
        return "inherited Main: TMain\n  Caption = 'Harbour'\n  inherited btnOK: TButton\n    Hint = 'Go'\n  "
               "end\n"
               "  inline fra: TCargo\n    inherited lblWeight: TLabel\n      Hint = 'In tons'\n    end\n  "
               "end\n" +
               components +
               "  object mlLang1: TmlLangTLV\n    NumOfLanguages = 2\n    LangNames.Strings = (\n      "
               "'English'\n"
               "      'German')\n" +
               lang + "  end\nend\n";
    }
    void Put(const std::string& name, const std::string& base, const std::string& form) {
        const std::string ancestor = !base.empty()     ? base
                                     : name == "Main"  ? "TBase"
                                     : name == "Cargo" ? "TFrame"
                                                       : "TForm";
        Files.Files["/p/" + name + ".dfm"] = form;
        Files.Files["/p/" + name + ".pas"] =
            "unit " + name + ";\ninterface\nuses Forms" + std::string(name == "Main" ? ", Base, Cargo" : "") +
            ";\ntype\n  T" + name + " = class(" + ancestor + ")\n  end;\nimplementation\n{$R *.dfm}\nend.\n";
    }
    std::shared_ptr<TmlCustomLang> Lang() {
        if (Ide.GetModuleServices()->GetActiveProject() == nullptr) Ide.OpenProject("/p/P.dpr");
        const auto module = Ide.GetModuleServices()->OpenModule("/p/Main.pas", false);
        return Runtime->AsCustomLang(module->GetFormEditor()->FindComponent("mlLang1"));
    }
    /// All tables, those with entries only, and the states.
    std::string Tables() {
        std::string text;
        for (const TTableKind& kind : kTableKinds)
            for (const std::string& line : Lang()->GetTable(kind.Type).Lines("|"))
                text += std::string(kind.Property) + ":" + line + "\n";
        return text;
    }
    std::string Form() { return Files.Files["/p/Main.dfm"]; }

    TMemoryFileSystem Files;
    std::unique_ptr<IMlRuntime> Runtime = MakeMlRuntime();
    THeadlessIde Ide{Files, *Runtime};
};

TEST_F(TBuildTest, TextsOfAncestorsAndFramesAreTheForms) {
    EXPECT_TRUE(Lang()->BuildList().Empty());
    const std::string tables =
        "Captions:.Caption|Harbour|Harbour\nCaptions:btnOK.Caption|&OK|&OK\n"
        "Captions:fra.lblWeight.Caption|Weight:|Weight:\nCaptions:lblTide.Caption|Tide|Tide\n"
        "Hints:btnOK.Hint|Go|Go\nHints:fra.lblWeight.Hint|In tons|In tons\nLocales:.Locale|en|de\n";
    EXPECT_EQ(Tables(), tables);
    Ide.SaveAll();
    const std::string saved = Form();
    Lang()->BuildList();
    EXPECT_FALSE(Ide.GetModuleServices()->FindModule("/p/Main.pas")->GetModified())
        << "nothing to write twice";
    EXPECT_EQ(Form(), saved);
}

TEST_F(TBuildTest, LanguagesWhoseNamesTellWhatTheyAreGetTheirTags) {
    const std::pair<const char*, const char*> cases[] = {
        {"German", "de"},
        {"deutsch", "de"},
        {"PT-br", "pt-BR"},
        {"Portuguese (Brazil)", "pt-BR"},
        {"Brazilian Portuguese", "pt-BR"},
        {"Chinese (Simplified)", "zh-Hans"},
        {"\xD7\xA2\xD7\x91\xD7\xA8\xD7\x99\xD7\xAA", "he"},
        {"Language N2", ""},
        {"Pirate", ""},
    };
    for (const auto& [name, tag] : cases) {
        Lang()->SetLangNames(TStringList({"English", name}));
        Lang()->SetTable(TTable(TStringsType::stLocales));
        Lang()->BuildList();
        EXPECT_EQ(Lang()->GetTable(TStringsType::stLocales).Lines("|")[0], ".Locale|en|" + std::string(tag));
    }
    Lang()->SetTable(TTable(TStringsType::stLocales, TStringList({".Locale|en-GB|"}), "|"));
    Lang()->SetLangNames(TStringList({"English", "German"}));
    Lang()->BuildList();
    EXPECT_EQ(Lang()->GetTable(TStringsType::stLocales).Lines("|")[0], ".Locale|en-GB|de") << "a tag stays";
    Lang()->SetNumLang(3);
    EXPECT_EQ(Lang()->GetTable(TStringsType::stLocales).Lines("|")[0], ".Locale|en-GB|de|");
}

TEST_F(TBuildTest, WhatRepeatsAFormThatIsNotThereIsSaidAndItsTextsStay) {
    Put("Main", "TElsewhere", Main("", "    Captions.Strings = (\n      'lblGone.Caption'#1'a'#1'x')\n"));
    const TStringList notes = Lang()->BuildList();
    ASSERT_EQ(notes.Count(), 1);
    EXPECT_TRUE(notes[0].starts_with("Main: the form that it repeats")) << notes[0];
    EXPECT_NE(Tables().find("Captions:lblGone.Caption|a|x\nCaptions:.Caption|Harbour|Harbour\n"),
              std::string::npos);
}

TEST_F(TBuildTest, AFrameWithAComponentOfItsOwnTranslatesItself) {
    Put("Cargo", "",
        "object Cargo: TCargo\n  object lblWeight: TLabel\n    Caption = 'Weight:'\n  end\n"
        "  object lblKept: TLabel\n    Caption = 'Kept'\n  end\n  object mlLang1: TmlLang\n  end\nend\n");
    Put("Main", "", Main("", "    Captions.Strings = (\n      'fra.lblKept.Caption'#1'Kept'#1'Bleibt')\n"));
    Lang()->BuildList();
    const std::string tables = Tables();
    EXPECT_EQ(tables.find("fra.lblWeight.Caption"), std::string::npos) << tables;
    EXPECT_NE(tables.find("Hints:fra.lblWeight.Hint|In tons|In tons\n"), std::string::npos) << tables;
    EXPECT_NE(tables.find("Captions:fra.lblKept.Caption|Kept|Bleibt\n"), std::string::npos) << tables;
}

TEST_F(TBuildTest, EveryShapeOfTextHasItsTable) {
    Put("Main", "",
        Main("  object Grid: TStringGrid\n    Columns = <\n      item\n        Title.Caption = 'Name'\n      "
             "  Title.Font.Name = 'Sans'\n"
             "        Title.Font.Style = [fsBold, fsItalic]\n      end>\n    Font.Charset = "
             "RUSSIAN_CHARSET\n    Font.Height = -12\n  end\n"
             "  object Memo: TMemo\n    Lines.Strings = (\n      'Two'\n      'lines')\n  end\n"
             "  object Dlg: TOpenDialog\n    Title = 'Open'\n  end\n"
             "  object List: TListView\n    Items.LazData = {\n      "
             "540000000200000000000000FFFFFFFFFFFFFFFF02000000050000004E657720\n"
             "      31050000005375622031050000005375622032FFFFFFFFFFFFFFFFFFFFFFFF00\n"
             "      000000050000004E65772032FFFFFFFFFFFFFFFF}\n  end\n"
             "  object Tree: TTreeView\n    Items.Data = {00112233}\n  end\n",
             ""));
    const TStringList notes = Lang()->BuildList();
    EXPECT_EQ(notes.Text(), "Tree: its Items.Data cannot be read; it stays as it is\r\n");
    const std::string tables = Tables();
    for (const char* line :
         {"Fonts:Grid.Columns[0].Title.Font|Name=Sans;Style=Bold,Italic|Name=Sans;Style=Bold,Italic\n",
          "Fonts:Grid.Font|Height=-12|Height=-12\n",
          "CharSets:Grid.Font.Charset|RUSSIAN_CHARSET|RUSSIAN_CHARSET\n",
          "Collections:Grid.Columns[0].Title.Caption|Name|Name\n",
          "MultiLines:Memo.Lines|Two\x02nlines|Two\x02nlines\n", "DlgsCaptions:Dlg.Title|Open|Open\n",
          "ListView_TreeView_Items:List.Items[0].SubItems[1]|Sub 2|Sub 2\n",
          "ListView_TreeView_Items:List.Items[1].Caption|New 2|New 2\n"})
        EXPECT_NE(tables.find(line), std::string::npos) << line << tables;
}

TEST_F(TBuildTest, AFormInItsSecondLanguageIsCollectedIntoThat) {
    const std::string lang =
        "    Captions.Strings = (\n      'lblTide.Caption'#1'Tide'#1'Flut'\n      "
        "'.Caption'#1'Harbour'#1'Hafen'\n"
        "      'btnOK.Caption'#1'&OK'#1'&Gut'\n      'memo.Text'#1'a'#1'x')\n    Hints.Strings = (\n"
        "      'lblTide.Hint'#1'High'#1'Hoch'\n      'Gone.Hint'#1'a'#1'x')\n"
        "    States.Strings = (\n      'Captions'#1'lblTide.Caption'#1'2'#1'stale'#1'Low tide')\n";
    Put("Main", "",
        Main("  object lblTide: TLabel\n    Caption = 'Gezeiten'\n  end\n  object New: TLabel\n    Caption = "
             "'Neu'\n  end\n",
             "    Language = 'German'\n" + lang));
    Lang()->BuildList();
    EXPECT_EQ(
        Tables(),
        "Captions:lblTide.Caption|Tide|Gezeiten\nCaptions:.Caption|Harbour|Hafen\nCaptions:btnOK.Caption|&OK|"
        "&Gut\n"
        "Captions:fra.lblWeight.Caption|Weight:|Weight:\nCaptions:New.Caption|Neu|Neu\n"
        "Hints:lblTide.Hint|High|Hoch\nHints:btnOK.Hint|Go|Go\nHints:fra.lblWeight.Hint|In tons|In tons\n"
        "Locales:.Locale|en|de\n")
        << "the base text in an inherited form is no German one; a hint may be the default in German";
    Ide.SaveAll();
    EXPECT_EQ(Form().find("States"), std::string::npos) << "the German text was written anew";
}

TEST_F(TBuildTest, ExclusionsAndExtendedTranslations) {
    Put("Main", "",
        Main("  object pnl: TPanel\n    object lblIn: TLabel\n      Caption = 'Inside'\n    end\n  end\n"
             "  object lblTide: TLabel\n    Caption = 'Tide'\n    Hint = 'x'\n    Tag2 = 'Special'\n  end\n",
             "    Captions.Strings = (\n      'pnl.Caption'#1'Was'#1'War')\n"
             "    DoNotTranslate.Strings = (\n      'pnl')\n    ExcludedProperties.Strings = (\n      "
             "'!btnOK'\n      '.Hint'\n"
             "      'TCargo')\n    ExtendedTranslations = <\n      item\n        Component = 'lblTide'\n"
             "        Property = 'Tag2'\n        Values.Strings = (\n          'Old'\n          'Alt')\n     "
             " end>\n"));
    Lang()->BuildList();
    EXPECT_EQ(Tables(),
              "Captions:.Caption|Harbour|Harbour\nCaptions:fra.lblWeight.Caption|Weight:|Weight:\n"
              "Captions:lblTide.Caption|Tide|Tide\nLocales:.Locale|en|de\n");
    Ide.SaveAll();
    EXPECT_NE(Form().find("'Special'\n          'Alt'"), std::string::npos) << Form();
    Lang()->ClearTranslations();
    EXPECT_EQ(Tables(),
              "Captions:.Caption|Harbour|\nCaptions:fra.lblWeight.Caption|Weight:|\nCaptions:lblTide.Caption|"
              "Tide|\nLocales:.Locale|en|de\n");
    Ide.SaveAll();
    EXPECT_NE(Form().find("'Special'\n          ''"), std::string::npos) << Form();
}

TEST_F(TBuildTest, AnExcludedFontIsNotEnteredAndABlankLineExcludesNothing) {
    Put("Main", "",
        Main("  object lblTide: TLabel\n    Caption = 'Tide'\n    Font.Name = 'Sans'\n  end\n",
             "    DoNotTranslate.Strings = (\n      ' ')\n    ExcludedProperties.Strings = (\n      "
             "'lblTide.Font')\n"));
    Lang()->BuildList();
    EXPECT_NE(Tables().find("lblTide.Caption|Tide"), std::string::npos) << Tables();
    EXPECT_EQ(Tables().find("Font"), std::string::npos) << Tables();
}

/// Little endian.
std::string Int(std::int32_t number) {
    std::string bytes;
    for (int i = 0; i < 4; ++i)
        bytes += static_cast<char>((static_cast<std::uint32_t>(number) >> (8 * i)) & 0xFF);
    return bytes;
}
std::string Wide(const std::string& ascii) {
    std::string bytes(1, static_cast<char>(ascii.size()));
    for (const char c : ascii)
        bytes += {c, '\0'};
    return bytes;
}
std::string Short(const std::string& text) {
    return static_cast<char>(text.size()) + text;
}

TEST(Itemdata, EveryLayoutGivesItsTextsAndTakesOthers) {
    const std::string none = Int(-1) + Int(-1) + Int(-1);
    const auto sized = [](const std::string& node) {
        return Int(static_cast<std::int32_t>(node.size())) + node;
    };
    const auto oldNode = [&](int children, const std::string& text) {
        return sized(none + Int(-1) + Int(0) + Int(children) + Short(text));
    };
    const auto newNode = [&](int children, const std::string& text) {
        return sized(none + Int(-1) + Int(0) + Int(0) + Int(children) + "\x01" + Wide(text));
    };
    const std::string lclNode = none + Int(-1);
    const auto list = [](std::size_t front, const std::string& items) {
        return Int(static_cast<std::int32_t>(items.size() + 8 + front)) + Int(1) + items;
    };
    struct TItemCase {
        const char* Property;
        std::string Bytes;
        std::string Texts;
    };
    const TItemCase cases[] = {
        {"Items.LazData", list(0, none + Int(1) + Int(1) + "a" + Int(2) + "bc" + Int(-1)),
         "[0].Caption=a;[0].SubItems[0]=bc;"},
        {"Items.Data", list(0, none + Int(1) + Int(0) + Short("a") + Short("bc") + "\xFF\xFF"),
         "[0].Caption=a;[0].SubItems[0]=bc;"},
        {"Items.ItemData",
         "\x05" + list(1, none + Int(1) + Int(-1) + Int(0) + Wide("a") + Wide("bc") + Int(0) + "\xFF\xFF"),
         "[0].Caption=a;[0].SubItems[0]=bc;"},
        {"Items.ItemData", "\x03" + list(1, none + Int(0) + Int(-1) + Int(0) + Wide("a")), "[0].Caption=a;"},
        {"Items.Data", Int(1) + oldNode(1, "a") + oldNode(0, "bc"), "[0].Text=a;[0][0].Text=bc;"},
        {"Items.NodeData", "\x03" + Int(1) + newNode(1, "a") + newNode(0, "bc"),
         "[0].Text=a;[0][0].Text=bc;"},
        {"Items.Data",
         Int(-7) + std::string("\x02\0", 2) + Int(1) + lclNode + Int(1) + Int(0) + std::string(1, '\0') +
             Int(1) + "a" + lclNode + Int(0) + Int(0) + std::string(1, '\0') + Int(2) + "bc",
         "[0].Text=a;[0][0].Text=bc;"},
    };
    for (const TItemCase& row : cases) {
        auto data = TItemData::Read(row.Property, row.Bytes);
        ASSERT_TRUE(data) << row.Property << " " << row.Texts;
        std::string texts;
        for (const TItemData::TText& text : data->Texts())
            texts += text.Place + "=" + text.Text + ";";
        EXPECT_EQ(texts, row.Texts);
        EXPECT_EQ(data->Bytes(), row.Bytes);
        EXPECT_TRUE(data->SetText(0, "longer \xC3\xA4"));
        const auto changed = TItemData::Read(row.Property, data->Bytes());
        ASSERT_TRUE(changed) << row.Property;
        EXPECT_EQ(changed->Texts()[0].Text, "longer \xC3\xA4");
        EXPECT_TRUE(data->SetText(0, "a"));
        EXPECT_EQ(data->Bytes(), row.Bytes) << "back";
        for (std::size_t size = 1; size + 2 < row.Bytes.size(); ++size) {
            const auto cut = TItemData::Read(row.Property, row.Bytes.substr(0, size));
            EXPECT_TRUE(!cut || cut->Texts().size() == data->Texts().size()) << "cut off at " << size;
        }
        EXPECT_EQ(data->SetText(0, std::string(300, 'x')), row.Bytes.find(Int(1) + "a") != std::string::npos);
    }
}

}  // namespace
}  // namespace tml
