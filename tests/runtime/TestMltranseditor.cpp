// The translation editor without widgets: what a person sees, does and writes.
#include <functional>
#include <gtest/gtest.h>

#include "base/Errors.h"
#include "host/Commonlibrary.h"
#include "ide/Headlesside.h"
#include "runtime/Mltranseditor.h"
#include "runtime/Runtime.h"
#include "support/Memoryfiles.h"
#include "support/Memoryregistry.h"
#include "support/Scripteduser.h"
#include "tables/Extendedtable.h"

namespace tml {
namespace {

constexpr const char* kMain =
    "object MainForm: TMainForm\n  Caption = 'Hafen'\n  object btnOK: TButton\n    Caption = 'OK'\n  end\n"
    "  object btnTide: TButton\n    Caption = 'Flut'\n  end\n  object mlLang1: TmlLang\n"
    "    NumOfLanguages = 3\n    LangNames.Strings = (\n      'English'\n      'German'\n      'Hebrew'\n    "
    ")\n"
    "    Language = 'German'\n    Captions.Strings = (\n      '.Caption'#1'Harbour'#1'Hafen'#1'Namal'\n"
    "      'btnOK.Caption'#1'OK'#1'OK'#1\n      'btnTide.Caption'#1'Tide'#1'Flut'#1'Geut'\n    )\n"
    "    Strings.Strings = (\n      'IDS_0'#1'Tide'#1#1'Tide'\n      "
    "'IDS_1'#1'Two'#13#10'lines'#1#1#1'extra'\n"
    "    )\n    Locales.Strings = (\n      '.Locale'#1'en'#1'de'#1'he'\n    )\n    States.Strings = (\n"
    "      'Captions'#1'btnTide.Caption'#1'2'#1'stale'#1'Tides'\n    )\n  end\nend\n";
constexpr const char* kAbout =
    "object AboutForm: TAboutForm\n  Caption = 'About'\n  object mlLang1: TmlLang\n    NumOfLanguages = 2\n"
    "    LangNames.Strings = (\n      'English'\n      'German'\n    )\n    Captions.Strings = (\n"
    "      '.Caption'#1'About'#1'Info'\n      'lblTide.Caption'#1'Tide'#1\n    )\n  end\nend\n";

/// Both forms in an IDE.
struct TTransEditorTest : testing::Test {
    TTransEditorTest() {
        Put("Main", kMain);
        Put("About", kAbout);
        Files.Files["/p/P.dpr"] =
            "program P;\nuses Forms, Main in 'Main.pas' {MainForm}, About in 'About.pas' "
            "{AboutForm};\nbegin\nend.\n";
        Runtime->Dialogs = &User;
        Runtime->CommonLibrary = Common.get();
        Ide.OpenProject("/p/P.dpr");
    }
    void Put(const std::string& unit, const std::string& form) {
        const std::string name = unit + "Form";
        Files.Files["/p/" + unit + ".lfm"] = form;
        Files.Files["/p/" + unit + ".pas"] = "unit " + unit + ";\ninterface\nuses Forms, Mllang;\ntype\n  T" +
                                             name +
                                             " = class(TForm)\n  end;\nimplementation\n{$R *.lfm}\nend.\n";
    }
    std::shared_ptr<TmlCustomLang> Lang(const std::string& unit) {
        const auto module = Ide.GetModuleServices()->OpenModule("/p/" + unit + ".pas", false);
        return Runtime->AsCustomLang(module->GetFormEditor()->FindComponent("mlLang1"));
    }
    /// The form's file as it would be saved.
    std::string Form(const std::string& unit) {
        Ide.SaveAll();
        return Files.Files["/p/" + unit + ".lfm"];
    }
    using TUse = std::function<void(TfrmTransEditor&)>;
    /// Opens the editor on both forms, and gives the names of those that it has changed.
    std::string Edit(const TUse& use, const TTransEditorPlace& place = {.IsLast = true}) {
        const auto main = Lang("Main");
        const auto about = Lang("About");
        User.OnWindow<TfrmTransEditor>("frmTransEditor", use);
        std::string changed;
        for (TmlCustomLang* lang : Runtime->TransEditorForms({main.get(), about.get()}, place, OnChangeStrID))
            changed += lang->GetComponent()->GetOwner()->GetName() + ";";
        return changed;
    }

    TMemoryFileSystem Files;
    TScriptedUser User;
    std::unique_ptr<ICommonLibraryLoader> Common = MakeCommonLibraryLoader(TML_BIN "/TmlLang_Common.so");
    TMemoryRegistry Registry;
    std::unique_ptr<IMlRuntime> Runtime = MakeMlRuntime(&Registry);
    THeadlessIde Ide{Files, *Runtime};
    TChangeStrID OnChangeStrID;
};

std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : text)
        escaped += c == '\r' ? "\\r" : c == '\n' ? "\\n" : std::string(1, c);
    return escaped;
}

/// "MainForm btnOK.Caption|OK|OK missing|missing", a state behind each text that has one but done.
std::string RowText(const TfrmTransEditor& editor, TTransRow row) {
    const TTransTexts& texts = editor.Texts();
    std::string line = texts.FormOf(row).Name + " " + texts.Text(row, 0);
    for (int column = 1; column < editor.ColumnCount(); ++column) {
        const auto state = texts.State(row, column);
        line += "|" + Escaped(texts.Text(row, column));
        if (state && *state != TTextState::Done) line += " " + std::string(NameOf(*state));
    }
    return line;
}

std::string AllRows(const TfrmTransEditor& editor) {
    std::string lines;
    for (int table = 0; table < static_cast<int>(editor.Texts().Tables().size()); ++table)
        for (int entry = 0; entry < editor.Texts().Tables()[static_cast<std::size_t>(table)].Count(); ++entry)
            if (editor.Texts().Find({table, entry}) != nullptr)
                lines += RowText(editor, {table, entry}) + "\n";
    return lines;
}

std::string ShownKeys(const TfrmTransEditor& editor) {
    std::string keys;
    for (int place = 0; place < editor.Grid().Count(); ++place)
        keys += editor.Text(place, 0) + ";";
    return keys;
}

/// The place of a key of MainForm, which stands before AboutForm.
int PlaceOf(const TfrmTransEditor& editor, const std::string& key) {
    for (int place = 0; place < editor.Grid().Count(); ++place)
        if (editor.Text(place, 0) == key) return place;
    ADD_FAILURE() << key << " is not shown";
    return 0;
}

std::string CurrentCell(const TfrmTransEditor& editor) {
    const TTransCell cell = editor.Grid().Current();
    return editor.Texts().FormOf(cell.Row).Name + " " + editor.Texts().Text(cell.Row, 0) + " " +
           editor.ColumnCaption(cell.Column);
}

constexpr const char* kRows =
    "MainForm .Caption|Harbour|Hafen|Namal\nMainForm btnOK.Caption|OK|OK missing| missing\n"
    "MainForm btnTide.Caption|Tide|Flut stale|Geut\nMainForm IDS_0|Tide| missing|Tide missing\n"
    "MainForm IDS_1|Two\\r\\nlines| missing| missing\nMainForm .Locale|en|de|he\n"
    "AboutForm .Caption|About|Info|\nAboutForm lblTide.Caption|Tide| missing|\n";

TEST_F(TTransEditorTest, ShowsTheTablesOfAllFormsAndHowFarTheyAre) {
    EXPECT_EQ(Edit([](TfrmTransEditor& editor) {
                  EXPECT_EQ(AllRows(editor), kRows);
                  EXPECT_EQ(editor.Grid().Count(), 8);
                  std::string tree;
                  for (const TTransNode& node : editor.Tree)
                      tree += std::string(static_cast<std::size_t>(node.Level), ' ') + node.Caption + ";";
                  EXPECT_EQ(
                      tree,
                      "All forms; MainForm;  Captions;  Strings;  Locales; AboutForm;  Captions;  Strings;");
                  std::string columns;
                  for (int column = 0; column < editor.ColumnCount(); ++column)
                      columns += editor.ColumnCaption(column) + ";";
                  EXPECT_EQ(columns, "Key;English;German;Hebrew;");
                  EXPECT_FALSE(editor.Texts().Languages()[1].IsRightToLeft);
                  EXPECT_TRUE(editor.Texts().Languages()[2].IsRightToLeft);
                  EXPECT_EQ(editor.NodeProgress(0, 2).Texts, 7);
                  EXPECT_EQ(editor.NodeProgress(0, 2).Done(), 2);
                  EXPECT_EQ(editor.NodeProgress(3, 3).Texts, 2);
                  EXPECT_EQ(editor.NodeProgress(5, 3).Texts, 0) << "AboutForm has no Hebrew";
                  EXPECT_EQ(editor.FormerBase(PlaceOf(editor, "btnTide.Caption"), 2), "Tides");
                  EXPECT_TRUE(editor.IsEditable(PlaceOf(editor, "IDS_0"), 0));
                  EXPECT_FALSE(editor.IsEditable(PlaceOf(editor, "btnOK.Caption"), 0));
                  EXPECT_FALSE(editor.IsEditable(PlaceOf(editor, "lblTide.Caption"), 3));
                  editor.SelectNode(3);
                  EXPECT_EQ(ShownKeys(editor), "IDS_0;IDS_1;");
                  editor.btnOKClick();
              }),
              "");
    EXPECT_EQ(Form("Main"), kMain) << "an unedited form stays as it is, odd entries included";
    EXPECT_EQ(Form("About"), kAbout);
}

TEST_F(TTransEditorTest, ShowsWhatAFilterLetsPass) {
    struct TFilterCase {
        TTransFilter Filter;
        const char* Keys;
    };
    const TFilterCase cases[] = {
        {{TTransShow::Missing}, "btnOK.Caption;IDS_0;IDS_1;lblTide.Caption;"},
        {{TTransShow::Missing, "hebrew"}, "btnOK.Caption;IDS_0;IDS_1;"},
        {{TTransShow::Stale}, "btnTide.Caption;"},
        {{TTransShow::Stale, "Hebrew"}, ""},
        {{TTransShow::SameAsBase}, "btnOK.Caption;IDS_0;"},
        {{TTransShow::All, "", "tide"}, "btnTide.Caption;IDS_0;lblTide.Caption;"},
        {{TTransShow::Missing, "", "TIDE"}, "IDS_0;lblTide.Caption;"},
        {{TTransShow::All, "", "EXTRA"}, ""},
        {{TTransShow::All, "", "aboutf"}, ".Caption;lblTide.Caption;"},
        {{TTransShow::All, "", "^AboutForm +l", true}, "lblTide.Caption;"},
        {{TTransShow::All, "", "^tide$", true}, "btnTide.Caption;IDS_0;lblTide.Caption;"},
        {{TTransShow::All, "", "\\.lo|^.$", true}, ".Locale;"},
        {{TTransShow::All, "", "wo.*ne", true}, ""},
        {{TTransShow::All, "", "(", true}, ""},
        {{TTransShow::All, "", "a)(b", true}, ""},
    };
    Edit([&](TfrmTransEditor& editor) {
        for (const TFilterCase& one : cases) {
            editor.SetFilter(one.Filter);
            EXPECT_EQ(ShownKeys(editor), one.Keys) << one.Filter.Text << static_cast<int>(one.Filter.Show);
            EXPECT_EQ(editor.Notice.empty(), one.Filter.Text.find('(') == std::string::npos);
        }
        editor.SetFilter({});
        EXPECT_EQ(editor.Grid().Count(), 8);
        editor.btnOKClick();
    });
}

struct TEditCase {
    const char* What;
    const char* Key;  ///< of the current cell, in MainForm where it can be
    int Column;
    std::function<void(TfrmTransEditor&)> Do;
    const char* Rows;  ///< those that are others then; without texts: one that has gone
};

/// kRows with other rows in their place.
std::string RowsWith(std::string_view others) {
    std::string rows = kRows;
    while (!others.empty()) {
        const std::string other(others.substr(0, others.find('\n') + 1));
        others.remove_prefix(other.size());
        const bool goes = other.find('|') == std::string::npos;
        const std::string head = goes ? other.substr(0, other.size() - 1) : other.substr(0, other.find('|'));
        const std::size_t begin = rows.find(head + "|");
        rows.replace(begin, rows.find('\n', begin) + 1 - begin, goes ? "" : other);
    }
    return rows;
}

/// Selects so many rows and columns from the current cell on.
void Extend(TfrmTransEditor& editor, int rows, int columns) {
    const TTransRange from = editor.Grid().Selection();
    editor.Select(
        {from.FirstRow, from.FirstRow + rows - 1, from.FirstColumn, from.FirstColumn + columns - 1});
}

void Type(TfrmTransEditor& editor, const std::string& text) {
    editor.SetText(editor.Grid().Place(), editor.Grid().Column(), text);
}

void PasteText(TfrmTransEditor& editor, const std::string& text) {
    editor.ReadClipboard = [text] { return text; };
    editor.acPaste();
}

const TEditCase kEditCases[] = {
    {"a typed text is done", "btnTide.Caption", 2, [](auto& e) { Type(e, "Tide"); },
     "MainForm btnTide.Caption|Tide|Tide missing|Geut\n"},
    {"line breaks are those of the entry", "IDS_1", 2, [](auto& e) { Type(e, "Zwei\nZeilen"); },
     "MainForm IDS_1|Two\\r\\nlines|Zwei\\r\\nZeilen| missing\n"},
    {"other base text: what equals it follows, the rest is in doubt", "IDS_0", 1,
     [](auto& e) { Type(e, "Tides"); }, "MainForm IDS_0|Tides| missing|Tides missing\n"},
    {"of a translated one", ".Caption", 1, [](auto& e) { Type(e, "harbour"); },
     "MainForm .Caption|harbour|Hafen touched|Namal touched\n"},
    {"back to what had been translated", "btnTide.Caption", 1, [](auto& e) { Type(e, "Tides"); },
     "MainForm btnTide.Caption|Tides|Flut|Geut stale\n"},
    {"copy base over a range", "btnOK.Caption", 2,
     [](auto& e) {
         Extend(e, 2, 2);
         e.acCopyBase();
     },
     "MainForm btnOK.Caption|OK|OK missing|OK missing\nMainForm btnTide.Caption|Tide|Tide missing|Tide "
     "missing\n"},
    {"fill the empty ones of a language", ".Caption", 2, [](auto& e) { e.acFillFromBase(); },
     "MainForm IDS_0|Tide|Tide missing|Tide missing\nMainForm IDS_1|Two\\r\\nlines|Two\\r\\nlines missing| "
     "missing\n"
     "AboutForm lblTide.Caption|Tide|Tide missing|\n"},
    {"confirm what is in doubt", "btnTide.Caption", 2, [](auto& e) { e.acConfirm(); },
     "MainForm btnTide.Caption|Tide|Flut|Geut\n"},
    {"confirm what equals the base text", "btnOK.Caption", 2, [](auto& e) { e.acConfirm(); },
     "MainForm btnOK.Caption|OK|OK| missing\n"},
    {"mark as stale", ".Caption", 2,
     [](auto& e) {
         Extend(e, 1, 2);
         e.acMarkStale();
     },
     "MainForm .Caption|Harbour|Hafen stale|Namal stale\n"},
    {"mark as touched: the former base text stays on record", "btnTide.Caption", 2,
     [](auto& e) {
         e.acMarkTouched();
         EXPECT_EQ(e.FormerBase(e.Grid().Place(), 2), "Tides");
     },
     "MainForm btnTide.Caption|Tide|Flut touched|Geut\n"},
    {"clear", ".Caption", 1,
     [](auto& e) {
         Extend(e, 1, 3);
         e.acClear();
     },
     "MainForm .Caption|Harbour| missing| missing\n"},
    {"equal base texts get the translation, in all forms", "btnTide.Caption", 2,
     [](auto& e) { e.acTranslateEqual(); },
     "MainForm IDS_0|Tide|Flut|Tide missing\nAboutForm lblTide.Caption|Tide|Flut|\n"},
    {"paste a range", "btnOK.Caption", 2,
     [](auto& e) { PasteText(e, "Gut\tTov\r\n\"Ebbe\nund \"\"Flut\"\"\"\tGeut\r\n"); },
     "MainForm btnOK.Caption|OK|Gut|Tov\nMainForm btnTide.Caption|Tide|Ebbe\\nund \"Flut\"|Geut\n"},
    {"paste one text into a range", "IDS_0", 2,
     [](auto& e) {
         Extend(e, 2, 1);
         PasteText(e, "x");
     },
     "MainForm IDS_0|Tide|x|Tide missing\nMainForm IDS_1|Two\\r\\nlines|x| missing\n"},
    {"what has no cell is left out, and said", ".Caption", 0,
     [](auto& e) {
         e.SetCurrent(6, 0);
         PasteText(e, ".Caption\tAbout\tÜber\tx\ty\nother\tTide\n\tz");
         EXPECT_EQ(e.Notice, "Texts without a cell that takes them: 5");
         EXPECT_EQ(e.Grid().Selection(), (TTransRange{6, 7, 0, 3})) << "cut to what is there";
     },
     "AboutForm .Caption|About|Über|\n"},
    {"delete an ID", "IDS_0", 0, [](auto& e) { e.acDeleteID(); }, "MainForm IDS_0\n"},
};

TEST_F(TTransEditorTest, EveryEditIsOneStepOfUndo) {
    for (const TEditCase& one : kEditCases) {
        SCOPED_TRACE(one.What);
        EXPECT_EQ(Edit([&](TfrmTransEditor& editor) {
                      editor.SetFilter({});
                      editor.SelectNode(0);
                      editor.SetCurrent(PlaceOf(editor, one.Key), one.Column);
                      one.Do(editor);
                      const std::string edited = AllRows(editor);
                      EXPECT_EQ(edited, RowsWith(one.Rows));
                      editor.acUndo();
                      EXPECT_EQ(AllRows(editor), kRows);
                      EXPECT_EQ(editor.Grid().Count(), 8);
                      EXPECT_FALSE(editor.CanUndo());
                      EXPECT_FALSE(editor.Texts().HasEdits());
                      editor.acRedo();
                      EXPECT_EQ(AllRows(editor), edited);
                      User.OnMessage("What you have edited is not written yet. Close and lose it?", mrYes);
                      editor.btnCancelClick();
                  }),
                  "");
    }
    EXPECT_EQ(Form("Main"), kMain);
}

/// A text with a part replaced; it must be there.
std::string With(std::string text, const std::string& part, const std::string& other) {
    const std::size_t begin = text.find(part);
    EXPECT_NE(begin, std::string::npos) << part;
    return begin == std::string::npos ? text : text.replace(begin, part.size(), other);
}

TEST_F(TTransEditorTest, OKWritesWhatDiffersAsOneStepAndTheFormFollowsInItsLanguage) {
    EXPECT_EQ(Edit([](TfrmTransEditor& editor) {
                  editor.SetText(PlaceOf(editor, "btnTide.Caption"), 2, "Gezeit");
                  editor.SetText(PlaceOf(editor, "btnOK.Caption"), 1, "Okay");
                  editor.SetText(PlaceOf(editor, "IDS_1"), 3, "Shtayim");
                  editor.SetCurrent(PlaceOf(editor, "IDS_0"), 0);
                  editor.acDeleteID();
                  editor.btnOKClick();
              }),
              "MainForm;");
    std::string form = With(kMain, "Caption = 'OK'", "Caption = 'Okay'");
    form = With(form, "Caption = 'Flut'", "Caption = 'Gezeit'");
    form = With(form, "'OK'#1'OK'#1", "'Okay'#1'Okay'#1");
    form = With(form, "'Tide'#1'Flut'", "'Tide'#1'Gezeit'");
    form = With(form, "      'IDS_0'#1'Tide'#1#1'Tide'\n", "");
    form = With(form, "'Two'#13#10'lines'#1#1#1'extra'", "'Two'#2'r'#2'nlines'#1#1'Shtayim'#1'extra'");
    form = With(form,
                "    States.Strings = (\n      'Captions'#1'btnTide.Caption'#1'2'#1'stale'#1'Tides'\n    )\n",
                "");
    EXPECT_EQ(Form("Main"), form);
    EXPECT_EQ(Form("About"), kAbout);
    EXPECT_EQ(Ide.Undo(), "Translation Editor");
    EXPECT_EQ(Form("Main"), kMain);
}

TEST_F(TTransEditorTest, OpensAtAPlaceOrWhereThePersonWasLast) {
    Edit(
        [](TfrmTransEditor& editor) {
            EXPECT_EQ(ShownKeys(editor), "IDS_0;IDS_1;");
            EXPECT_EQ(CurrentCell(editor), "MainForm IDS_1 Hebrew");
            editor.SetFilter({TTransShow::Missing, "German", "i", false});
            editor.SelectNode(5);
            editor.SetCurrent(0, 2);
            editor.btnCancelClick();
        },
        {TStringsType::stStrings, 1, 3});
    Edit([](TfrmTransEditor& editor) {
        EXPECT_EQ(ShownKeys(editor), "lblTide.Caption;");
        EXPECT_EQ(CurrentCell(editor), "AboutForm lblTide.Caption German");
        EXPECT_EQ(editor.Filter(), (TTransFilter{TTransShow::Missing, "German", "i", false}));
        editor.btnCancelClick();
    });
    Edit(
        [](TfrmTransEditor& editor) {
            EXPECT_EQ(ShownKeys(editor), "IDS_0;IDS_1;") << "whatever the filter was";
            EXPECT_EQ(CurrentCell(editor), "MainForm IDS_0 Key");
            editor.btnCancelClick();
        },
        {TStringsType::stStrings, 0});
    // The program has ended meanwhile, and what it had stored has been damaged a little.
    Registry.WriteInteger("\\Software\\Velmora\\TmlLang\\TransEditor", "Show", 77);
    const auto runtime = MakeMlRuntime(&Registry);
    runtime->Dialogs = &User;
    const auto main = Lang("Main");
    User.OnWindow<TfrmTransEditor>("frmTransEditor", [](TfrmTransEditor& editor) {
        EXPECT_EQ(CurrentCell(editor), "MainForm IDS_0 Key");
        EXPECT_EQ(ShownKeys(editor), "IDS_0;IDS_1;");
        EXPECT_EQ(editor.Filter(), TTransFilter());
        editor.btnCancelClick();
    });
    runtime->TransEditorForms({main.get()}, {.IsLast = true}, {});
}

TEST_F(TTransEditorTest, WhatIsDoneLeavesTheFilterAndItsPlaceToTheNextText) {
    const TTransFilter filter{TTransShow::Missing, "German"};
    Edit([&](TfrmTransEditor& editor) {
        editor.SetFilter(filter);
        editor.SetCurrent(PlaceOf(editor, "IDS_0"), 2);
        editor.SetText(editor.Grid().Place(), 2, "Flut");
        editor.btnOKClick();
    });
    Edit([](TfrmTransEditor& editor) {
        EXPECT_EQ(CurrentCell(editor), "MainForm IDS_1 German");
        EXPECT_EQ(ShownKeys(editor), "btnOK.Caption;IDS_1;lblTide.Caption;");
        for (int place = 0; place < editor.Grid().Count(); ++place)
            editor.SetText(place, 2, "x");
        editor.btnOKClick();
    });
    Edit([&](TfrmTransEditor& editor) {
        EXPECT_EQ(ShownKeys(editor), "");
        EXPECT_EQ(editor.Filter(), filter);
        EXPECT_EQ(editor.Notice, "Nothing is missing any more");
        editor.btnCancelClick();
    });
    const auto other = Lang("About");
    User.OnWindow<TfrmTransEditor>("frmTransEditor", [](TfrmTransEditor& editor) {
        EXPECT_EQ(editor.Filter(), TTransFilter()) << "what was looked for was in other forms";
        editor.btnCancelClick();
    });
    Runtime->TransEditorForms({other.get()}, {.IsLast = true}, {});
}

TEST_F(TTransEditorTest, AStepTakenBackShowsItsCell) {
    Edit([this](TfrmTransEditor& editor) {
        editor.SetText(PlaceOf(editor, "IDS_0"), 3, "Geut");
        for (const auto swap : {&TfrmTransEditor::acUndo, &TfrmTransEditor::acRedo}) {
            editor.SetCurrent(0, 1);
            (editor.*swap)();
            EXPECT_EQ(CurrentCell(editor), "MainForm IDS_0 Hebrew");
        }
        User.OnMessage("What you have edited is not written yet. Close and lose it?", mrYes);
        editor.btnCancelClick();
    });
}

TEST_F(TTransEditorTest, NextGoesRoundAmongWhatIsShown) {
    Edit([](TfrmTransEditor& editor) {
        std::string way;
        editor.SetCurrent(0, 2);
        for (int i = 0; i < 6; ++i) {
            editor.acNextUntranslated();
            way += editor.Texts().Text(editor.Grid().Current().Row, 0) + ";";
        }
        EXPECT_EQ(way, "btnOK.Caption;btnTide.Caption;IDS_0;IDS_1;lblTide.Caption;btnOK.Caption;");
        editor.SetCurrent(PlaceOf(editor, "IDS_0"), 2);
        editor.acConfirm();
        EXPECT_EQ(CurrentCell(editor), "MainForm IDS_0 German") << "it has no text yet";
        EXPECT_NE(editor.Notice, "");
        editor.SetCurrent(PlaceOf(editor, "btnTide.Caption"), 2);
        editor.acConfirm();
        EXPECT_EQ(CurrentCell(editor), "MainForm IDS_0 German");
        editor.acUndo();
        editor.SetFilter({TTransShow::All, "", "^about$", true});
        editor.acNextUntranslated();
        EXPECT_EQ(editor.Notice, "Nothing that is shown is left to be translated; of what is not shown: 5");
        editor.acCopy();
        editor.WriteClipboard = [](const std::string& text) { EXPECT_EQ(text, ".Caption\tAbout\r\n"); };
        editor.Select({0, 0, 0, 1});
        editor.acCopy();
        editor.btnOKClick();
    });
}

TEST_F(TTransEditorTest, WhatEqualsTheBaseTextOnPurposeDoesSoInEqualTextsToo) {
    Edit([](TfrmTransEditor& editor) {
        const int place = PlaceOf(editor, "btnTide.Caption");
        editor.SetText(place, 3, "Tide");
        editor.SetCurrent(place, 3);
        editor.acMarkDone();
        editor.acTranslateEqual();
        EXPECT_EQ(editor.Notice, "Translated alike: 1");
        EXPECT_EQ(editor.State(PlaceOf(editor, "IDS_0"), 3), TTextState::Done);
        editor.btnOKClick();
    });
}

TEST_F(TTransEditorTest, LongWorkCanBeStopped) {
    std::string strings;
    for (int i = 0; i < 2000; ++i)
        strings += "      'IDS_" + std::to_string(i) + "'#1'Tide'#1\n";
    Put("About", With(kAbout, "    Captions", "    Strings.Strings = (\n" + strings + "    )\n    Captions"));
    Edit([&](TfrmTransEditor& editor) {
        editor.SetCurrent(PlaceOf(editor, "btnTide.Caption"), 2);
        User.StopAt = "Translating equal texts...";
        editor.acTranslateEqual();
        EXPECT_EQ(editor.Notice, "Stopped: nothing is changed");
        EXPECT_FALSE(editor.CanUndo());
        User.StopAt = "Searching...";
        editor.SetFilter({TTransShow::All, "", "tide", true});
        EXPECT_EQ(editor.Notice, "Stopped: there may be more");
        editor.SetFilter({});
        editor.SetText(PlaceOf(editor, "btnTide.Caption"), 2, "Ebbe");
        User.StopAt = "Writing translations...";
        EXPECT_THROW(editor.btnOKClick(), EmlLangSilent);
        EXPECT_TRUE(editor.Texts().HasEdits());
        EXPECT_TRUE(editor.Texts().Changed().empty());
        User.StopAt.clear();
        editor.btnOKClick();
    });
    User.StopAt = "Reading translations...";
    const auto main = Lang("Main");
    EXPECT_TRUE(Runtime->TransEditorForms({main.get()}, {.IsLast = true}, {}).empty());
}

TEST_F(TTransEditorTest, StringIDsAreAddedAndRenamedAtOnce) {
    std::string told;
    OnChangeStrID = [&](const std::string& form, const std::string& oldID, const std::string& newID) {
        const TTable strings = Lang("Main")->GetTable(TStringsType::stStrings);
        told += form + " " + oldID + ">" + newID + (strings.Find(newID) < 0 ? "?;" : ";");
        if (newID == "Bad") throw EBadInput("", 0, "no");
    };
    const std::string changed = Edit(
        [&](TfrmTransEditor& editor) {
            User.OnInput("String ID of MainForm:", "ids_1");
            User.OnInput("The string ID \"ids_1\" is there already!\r\nString ID of MainForm:", "odd id!");
            User.OnMessage(
                "\"odd id!\" has other characters than letters, digits, \"_\", \"-\" and \".\", which are "
                "hard to "
                "read in a source. Use it all the same?",
                mrNo);
            User.OnInput("String ID of MainForm:", "IDS_2");
            editor.acAddID();
            EXPECT_EQ(User.Proposed, "odd id!") << "what was typed is there again";
            EXPECT_EQ(CurrentCell(editor), "MainForm IDS_2 English");
            EXPECT_EQ(ShownKeys(editor), "IDS_0;IDS_1;IDS_2;");
            editor.SetText(0, 2, "Flut");
            for (const char* id : {"", "IDS_1", "ids_2"}) {
                const std::string problem =
                    *id == 0 ? "'' is no string ID. An ID is not empty and has no line break, no control "
                               "character and no blank at its ends"
                             : "The string ID \"" + std::string(id) + "\" is there already!";
                User.OnInput(problem + "\r\nString ID of MainForm:", std::nullopt);
                editor.SetText(0, 0, id);
                EXPECT_EQ(User.Proposed, id);
            }
            User.OnInput(
                "'ID ' is no string ID. An ID is not empty and has no line break, no control character and "
                "no "
                "blank at its ends\r\nString ID of MainForm:",
                std::nullopt);
            editor.SetText(0, 0, "ID ");
            User.OnMessage(
                "The string ID It's has a quote or a backslash: where a source doubles or escapes it, the "
                "check "
                "of string IDs does not find it. Use it all the same?",
                mrNo);
            User.OnInput("String ID of MainForm:", std::nullopt);
            editor.SetText(0, 0, "It's");
            EXPECT_THROW(editor.SetText(0, 0, "Bad"), EBadInput);
            EXPECT_EQ(ShownKeys(editor), "IDS_0;IDS_1;IDS_2;");
            editor.SetCurrent(0, 0);
            User.OnInput("String ID of MainForm:", "IDS_TIDE");
            editor.acRenameID();
            editor.acUndo();
            EXPECT_EQ(ShownKeys(editor), "IDS_TIDE;IDS_1;IDS_2;");
            EXPECT_EQ(editor.Text(0, 2), "");
            User.OnMessage(
                "What you have edited is not written yet. Close and lose it?\r\nString IDs that were "
                "renamed stay renamed.",
                mrYes);
            editor.btnCancelClick();
        },
        {TStringsType::stStrings});
    EXPECT_EQ(changed, "MainForm;");
    EXPECT_EQ(told, "MainForm IDS_0>Bad;MainForm IDS_0>IDS_TIDE;");
    EXPECT_EQ(Form("Main"), With(kMain, "'IDS_0'", "'IDS_TIDE'"));
    EXPECT_EQ(Ide.Undo(), "Rename IDS_0");
    EXPECT_EQ(Form("Main"), kMain);
}

TEST_F(TTransEditorTest, AnAddedIDIsWrittenBehindTheOthers) {
    Edit(
        [&](TfrmTransEditor& editor) {
            User.OnInput("String ID of MainForm:", "IDS_2");
            editor.acAddID();
            editor.SetText(2, 1, "Three");
            editor.SetCurrent(0, 1);
            Extend(editor, 2, 1);
            editor.acDeleteID();
            EXPECT_EQ(ShownKeys(editor), "IDS_2;");
            EXPECT_EQ(editor.RowCount(), 1);
            User.OnInput("The string ID \"ids_1\" is there already!\r\nString ID of MainForm:", std::nullopt);
            editor.SetText(0, 0, "ids_1");
            editor.btnOKClick();
        },
        {TStringsType::stStrings});
    const TTable strings = Lang("Main")->GetTable(TStringsType::stStrings);
    EXPECT_EQ(strings.Lines("|").Items(), std::vector<std::string>{"IDS_2|Three||"});
}

TEST_F(TTransEditorTest, ExtendedTranslationsAreTextsWithoutStates) {
    const std::string extended =
        "    ExtendedTranslations = <\n      item\n        Component = 'btnOK'\n        Property = "
        "'HelpKeyword'\n"
        "        Values.Strings = (\n          'ok'\n          'gut'\n        )\n      end>\n";
    const std::string form = With(kAbout, "    LangNames", extended + "    LangNames");
    Put("About", form);
    const auto fill = [](TfrmTransEditor& editor) {
        EXPECT_EQ(editor.Tree.back().Caption, "ExtendedTranslations");
        const int place = PlaceOf(editor, "btnOK.HelpKeyword");
        EXPECT_EQ(editor.Text(place, 2), "gut");
        EXPECT_EQ(editor.State(place, 2), std::nullopt);
        editor.SetText(place, 2, "fein");
        editor.btnOKClick();
    };
    EXPECT_EQ(Edit(fill), "AboutForm;");
    EXPECT_EQ(Form("About"), With(form, "'gut'", "'fein'"));
    const auto about = Lang("About");
    User.OnWindow<TfrmTransEditor>("frmTransEditor", [](TfrmTransEditor& editor) {
        EXPECT_EQ(CurrentCell(editor), "AboutForm btnOK.HelpKeyword German");
        EXPECT_EQ(editor.RowCount(), 1) << "the table itself";
        editor.btnCancelClick();
    });
    Runtime->TransEditorDlg(*about, {kExtendedTable, -1}, {});
}

TEST_F(TTransEditorTest, ShowsAnIDInTheSourceAndTheAboutBox) {
    Edit([&](TfrmTransEditor& editor) {
        editor.SetCurrent(PlaceOf(editor, "IDS_1"), 2);
        EXPECT_FALSE(editor.CanJump());
        std::string shown;
        Runtime->NavigateToSource = [&](const std::string& form, const std::string& id) {
            shown = form + " " + id;
        };
        Runtime->ShowAboutBox = [&] { shown += "; about"; };
        editor.acAbout();
        EXPECT_EQ(shown, "; about");
        editor.SetCurrent(0, 2);
        EXPECT_FALSE(editor.CanJump());
        editor.SetCurrent(PlaceOf(editor, "IDS_1"), 2);
        editor.SetText(PlaceOf(editor, "IDS_1"), 2, "Zwei");
        editor.acJumpToSource();
        EXPECT_EQ(shown, "MainForm IDS_1");
        EXPECT_EQ(editor.ModalResult, mrOk) << "the source is behind the window";
    });
    EXPECT_NE(Form("Main").find("'Zwei'"), std::string::npos);
}

}  // namespace
}  // namespace tml
