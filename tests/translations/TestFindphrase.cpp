#include <gtest/gtest.h>

#include "base/Errors.h"
#include "ids/Stridrepl.h"
#include "support/Expertfixture.h"
#include "translations/Findphrase.h"

namespace tml {
namespace {

const std::string kOne = "1 occurrence was replaced.";
const std::string kLeft =
    "\r\nThese identifiers are names of components or would be empty; they stay:\r\n"
    "Form1 Captions Button1.Caption";

/// Form1's texts are 'OK', 'Look' and 'banana', its button shows the first one.
struct TFindFixture : TExpertFixture {
    TFindFixture() {
        PutForm(
            1,
            "  object mlLang1: TmlLang\n    NumOfLanguages = 2\n    LangNames.Strings = (\n      'English'\n"
            "      'German')\n    Captions.Strings = (\n      'Button1.Caption\x01"
            "Go\x01"
            "Los')\n    Strings.Strings = (\n      'ok_1\x01"
            "OK\x01"
            "Gut'\n      'S2\x01"
            "banana\x01"
            "Look')\n  end\n",
            "  mlLang1.GetText('ok_1');\n");
        Before = Files.Files;
        Open();
        for (const auto& row : Rows().Items())
            row->Selected = true;
    }
    void OnFind(const std::function<void(TfrmFind&)>& use, TModalResult answer = mrOk) {
        User.OnWindow<TfrmFind>("frmFind", [use, answer](TfrmFind& find) {
            use(find);
            find.Close(answer);
        });
    }
    TPhrasesMemory& Phrases() { return Expert->Subjects().Phrases; }
    std::string Find(const std::function<void(TfrmFind&)>& use) {
        OnFind(use);
        Findword1Click(Context(), Phrases());
        std::string rows;
        for (const auto& row : Phrases().Found->lvIDs.Items())
            rows += row->Cell(fpFileName) + "|" + row->Cell(fpProperty) + "|" + row->Cell(fpLine) + "|" +
                    row->Cell(fpLocation) + "|" + row->Cell(fpKey) + "|" + row->Cell(fpText) + "\n";
        return rows;
    }
    /// Answers for the questions before each replacement: "location: text -> result" each.
    void OnConfirm(const std::string& question, int answer) {
        User.OnWindow<TfrmReplConfirm>("frmReplConfirm", [question, answer](TfrmReplConfirm& window) {
            EXPECT_EQ(window.lblLocation + ": " + window.memCurrent + " -> " + window.memResult, question);
            EXPECT_EQ(window.lblQuestion, "Replace this occurence?");
            window.Close(static_cast<TModalResult>(answer));
        });
    }
    /// told is the message in the end; expect tells what else comes.
    void Replace(const std::string& text, const std::string& by, const std::string& told,
                 const std::function<void(TfrmFind&)>& use = {}, const std::function<void()>& expect = {}) {
        OnFind([&, use](TfrmFind& find) {
            EXPECT_TRUE(find.ReplaceVisible);
            find.edFindText = text;
            find.edReplace = by;
            if (use) use(find);
        });
        if (expect) expect();
        User.OnMessage(told);
        Replacephrase1Click(Context());
        Ide.SaveAll();
    }
    bool Has(const std::string& text) { return Files.Files["/p/Unit1.dfm"].find(text) != std::string::npos; }
    std::map<std::string, std::string> Before;
};

TEST(Findphrase, ListsEveryHit) {
    TFindFixture f;
    EXPECT_EQ(f.Find([](TfrmFind& find) {
        EXPECT_FALSE(find.ReplaceVisible);
        find.edFindText = "ok";
    }),
              "/p/Unit1.pas|Strings|0|English|ok_1|OK\n/p/Unit1.pas|Strings|1|German|S2|Look\n");
    EXPECT_EQ(f.User.Shown.back(), f.Phrases().Found.get());
    EXPECT_TRUE(f.Ide.Modules().empty()) << "closed units stay closed";
    EXPECT_EQ(f.Find([](TfrmFind& find) {
        find.edFindText = "ok";
        find.ckbWhole = true;
    }),
              "/p/Unit1.pas|Strings|0|English|ok_1|OK\n");
    EXPECT_EQ(f.Find([](TfrmFind& find) {
        find.edFindText = "ok";
        find.ckbSensit = find.ckbIdent = true;
    }),
              "/p/Unit1.pas|Strings|0|Identifier|ok_1|ok_1\n/p/Unit1.pas|Strings|1|German|S2|Look\n");
    EXPECT_EQ(f.Find([](TfrmFind& find) { find.edFindText = "none"; }), "");
    f.OnFind([](TfrmFind&) {}, mrCancel);
    Findword1Click(f.Context(), f.Phrases());
    f.Select("none");
    Findword1Click(f.Context(), f.Phrases());
}

TEST(Findphrase, AHitOpensTheTranslationEditor) {
    TFindFixture f;
    f.Find([](TfrmFind& find) { find.edFindText = "Look"; });
    f.Phrases().Found->lvIDs.Row(0).Selected = true;
    TTransEditorPlace place;
    f.Runtime->TransEditorDlg = [&](TmlCustomLang&, const TTransEditorPlace& at, const TChangeStrID&) {
        place = at;
        return false;
    };
    f.Phrases().Found->LVIDsKeyDown(0x0D);
    EXPECT_EQ(place.Table, TStringsType::stStrings);
    EXPECT_EQ(place.Entry, 1);
    EXPECT_EQ(place.Field, 2);
}

TEST(Findphrase, ReplacesTheFirstPlaceOfAField) {
    TFindFixture f;
    f.Replace("A", "b", "2 occurrences were replaced.");
    EXPECT_TRUE(f.Has("'S2'#1'bbnana'#1'Look'")) << f.Files.Files["/p/Unit1.dfm"];
    EXPECT_EQ(f.Ide.Modules().size(), 2U) << "changed units stay open";
    f.Ide.Undo();
    f.Ide.SaveAll();
    EXPECT_EQ(f.Files.Files, f.Before);
}

TEST(Findphrase, WhatIsNotThereIsSaid) {
    TFindFixture f;
    f.Replace("none", "b", "'none' was not found.");
    EXPECT_EQ(f.Files.Files, f.Before);
    f.PutForm(1, "");
    f.Expert->RunItemClick();
    f.Select("Form1");
    f.OnFind([](TfrmFind&) {});
    Replacephrase1Click(f.Context());
}

TEST(Findphrase, ABaseTextIsShownAndPutsTranslationsInDoubt) {
    TFindFixture f;
    f.Replace("Go", "Walk", kOne, [](TfrmFind& find) { find.ckbWhole = true; });
    EXPECT_TRUE(f.Has("'Button1.Caption'#1'Walk'#1'Los'")) << f.Files.Files["/p/Unit1.dfm"];
    EXPECT_TRUE(f.Has("Caption = 'Walk'"));
    EXPECT_TRUE(f.Has("'stale'#1'Go'"));
}

TEST(Findphrase, AsksBeforeEach) {
    TFindFixture f;
    f.Select("Form1");
    f.Replace(
        "o", "0", "2 occurrences were replaced.", [](TfrmFind& find) { find.ckbDoPrompt = true; },
        [&] {
            f.OnConfirm("English: Go -> G0", 8);
            f.OnConfirm("German: Los -> L0s", mrNo);
            f.OnConfirm("English: OK -> 0K", mrYes);
            f.OnConfirm("German: Look -> L0ok", mrCancel);
        });
    EXPECT_TRUE(f.Has("'Button1.Caption'#1'G0'#1'Los'")) << f.Files.Files["/p/Unit1.dfm"];
    EXPECT_TRUE(f.Has("'ok_1'#1'0K'#1'Gut'"));
    EXPECT_TRUE(f.Has("Look'"));
}

TEST(Findphrase, AnIDTakesItsCallsAlong) {
    TFindFixture f;
    const auto confirm = [](TfrmStrReplace& window) { window.btReplaceClick(); };
    f.Replace(
        "ok_1", "yes", kOne, [](TfrmFind& find) { find.ckbIdent = find.ckbWhole = true; },
        [&] {
            f.User.OnWindow<TfrmStrReplace>("frmStrReplace", confirm);
            f.User.OnWindow<TfrmStrReplace>("frmStrReplace", confirm);
        });
    EXPECT_TRUE(f.Has("'yes'#1'OK'")) << f.Files.Files["/p/Unit1.dfm"];
    EXPECT_NE(f.Files.Files["/p/Unit1.pas"].find("GetText('yes')"), std::string::npos);
    f.Replace("Button1", "B", "0 occurrences were replaced." + kLeft,
              [](TfrmFind& find) { find.ckbIdent = true; });
    EXPECT_TRUE(f.Has("Button1.Caption"));
}

TEST(Findphrase, AnIDThatIsTakenDoesNotKeepTheOthers) {
    TFindFixture f;
    std::string& form = f.Files.Files["/p/Unit1.dfm"];
    form.replace(form.find("'S2"), 3, "'ok_2\x01x\x01x'\r\n      'S1");
    const auto expect = [&f] {
        f.User.OnWindow<TfrmStrReplace>("frmStrReplace",
                                        [](TfrmStrReplace& window) { window.Close(mrCancel); });
    };
    EXPECT_THROW(f.Replace(
                     "1", "2", kOne + kLeft, [](TfrmFind& find) { find.ckbIdent = true; }, expect),
                 EBadInput);
    f.Ide.SaveAll();
    EXPECT_TRUE(f.Has("'ok_1\x01")) << form;
    EXPECT_TRUE(f.Has("'S2'#1'banana'")) << form;
}

}  // namespace
}  // namespace tml
