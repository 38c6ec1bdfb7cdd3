#include "base/Errors.h"
#include "core/Modules.h"
#include "support/Expertfixture.h"

namespace tml {
namespace {

struct TNotifiers : TExpertFixture, testing::Test {
    std::shared_ptr<IOTAModule> OpenUnit(int number) {
        return Ide.GetModuleServices()->OpenModule("/p/Unit" + std::to_string(number) + ".pas", true);
    }
    static void Rename(const std::shared_ptr<IOTAModule>& module, const std::string& from,
                       const std::string& to) {
        module->GetFormEditor()->FindComponent(from)->SetName(to);
    }
};

TEST_F(TNotifiers, OpeningAFileReadsItsRow) {
    Open();
    PutForm(1, "  object mlLang1: TmlLang\n  end\n");
    OpenUnit(1);
    EXPECT_EQ(Row("Form1").Cell(fcLanguages) + Row("Form1").Cell(fcComponent), "1mlLang1");
    EXPECT_EQ(Context().Rows.StatusPanels[2], "Forms translated: 2 of 2");
}

TEST_F(TNotifiers, RenamingTheFormRenamesItsRow) {
    const auto module = [this] {
        Start();
        return OpenUnit(1);
    }();
    Expert->RunItemClick();
    ASSERT_NE(Row("Form1").Notifier, nullptr);
    Rename(module, "Form1", "FormX");
    EXPECT_NE(Rows().FindForm("FormX"), nullptr);
    module->Close();
    EXPECT_NE(Rows().FindForm("Form1"), nullptr) << "it was not saved";
}

TEST_F(TNotifiers, OnlyANotifierWithoutARowLetsTranslationsFollow) {
    PutForm(2, "  object mlLang1: TmlLang\n    Captions.Strings = (\n      'Button1\x01Go')\n  end\n");
    Start();
    const auto module = OpenUnit(2);
    const auto captions = [&] {
        return FindCustomLang(*Runtime, *module->GetFormEditor())
            ->GetTable(TStringsType::stCaptions)
            .Entries()[0]
            .Key;
    };
    ASSERT_EQ(captions(), "Button1");
    Rename(module, "Button1", "OK");
    EXPECT_EQ(captions(), "OK");
    Ide.Undo();
    EXPECT_EQ(captions(), "Button1");
    EXPECT_EQ(Ide.Redo(), "Rename Button1") << "the undo changed nothing more";
    EXPECT_EQ(captions(), "OK");

    module->Save();
    module->Close();
    Expert->RunItemClick();
    const auto reopened = OpenUnit(2);
    Expert->RunItemClick();
    TmlModuleNotifier& withRow = *Row("Form2").Notifier;
    withRow.ComponentRenamed(nullptr, "OK", "Yes");
    const auto table =
        FindCustomLang(*Runtime, *reopened->GetFormEditor())->GetTable(TStringsType::stCaptions);
    EXPECT_EQ(table.Find("OK"), 0);
    withRow.ComponentRenamed(nullptr, "", "Form9");
    withRow.ComponentRenamed(nullptr, "form2", "Form9");
    EXPECT_EQ(Row("Form2").FormName, "Form2");
}

TEST_F(TNotifiers, ClosingTheProjectEmptiesTheList) {
    Open();
    const auto notify = [&](TOTAFileNotification code, const std::string& file) {
        Expert->FileNotified(code, file);
        return Rows().Count();
    };
    Ide.GetModuleServices()->OpenModule("/p/Demo.dpr", true)->Close();
    EXPECT_EQ(Rows().Count(), 2) << "the project is open without its source";
    EXPECT_EQ(notify(TOTAFileNotification::ofnFileClosing, "/p/Other.dpr"), 2);
    EXPECT_EQ(notify(TOTAFileNotification::ofnFileClosing, "/P/demo.DPR"), 0);
    EXPECT_EQ(Runtime->mlLangProjectSettings, nullptr);
    EXPECT_EQ(notify(TOTAFileNotification::ofnActiveProjectChanged, "/p/Demo.dpr"), 2) << "read again";
    Ide.CloseProject();
    EXPECT_EQ(Rows().Count(), 0);
}

TEST_F(TNotifiers, AUnitWithoutAFormAndAnErrorAreSwallowed) {
    Open();
    Ide.GetModuleServices()->OpenModule("/p/Helper.pas", true);
    EXPECT_THROW(Expert->FileNotified(TOTAFileNotification::ofnFileOpened, "/p/Helper.pas"), EmlLangSilent);
    const auto notifier = std::make_shared<TmlAddInNotifier>(Context().Gate, *Expert);
    bool cancel = false;
    notifier->FileNotification(TOTAFileNotification::ofnFileOpened, "/p/Helper.pas", cancel);
    EXPECT_FALSE(cancel);
}

TEST_F(TNotifiers, NotificationsFromOutsideWaitForTheCommand) {
    Open();
    {
        const TCommandGate::TCommand running(Context().Gate);
        PutForm(1, "  object mlLang1: TmlLang\n  end\n");
        OpenUnit(1);  // not by the command
        EXPECT_EQ(Row("Form1").Cell(fcLanguages), "0");
        PutForm(2, "");
        EXPECT_TRUE(OpenFile(Context(), "/p/Unit2.pas", false));  // by the command
        EXPECT_EQ(Row("Form2").Cell(fcLanguages), "0");
    }
    EXPECT_EQ(Row("Form1").Cell(fcLanguages), "1");
}

}  // namespace
}  // namespace tml
