#include <QProcess>
#include <QTreeWidget>
#include <fstream>

#include "desktop/Deskfixture.h"
#include "translations/Transferreport.h"

namespace tml {
namespace {

struct TMessages : TDesktop {
    void ClickMessage(int row) {
        auto& messages = Window->Messages();
        QTest::mouseClick(messages.viewport(), Qt::LeftButton, {},
                          messages.visualItemRect(messages.topLevelItem(row)).center());
    }
    /// 1-based, in the text in front.
    int CursorLine() {
        int line = 0, column = 0;
        Window->Tabs().CurrentText()->getCursorPosition(&line, &column);
        return line + 1;
    }
};

TEST_F(TMessages, ProgressComesLateAndCanBeStopped) {
    IDialogs& dialogs = *Window->Host().Host().Dialogs;
    EXPECT_TRUE(dialogs.ShowProgress("Working", 1, 3));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    QTest::qSleep(120);
    bool goesOn = true;
    for (int i = 0; i < 500 && goesOn; ++i) {
        QTest::qSleep(10);
        goesOn = dialogs.ShowProgress("Working", 2, 3);
        if (QWidget* box = QApplication::activeModalWidget())
            QTest::mouseClick(box->findChild<QPushButton*>(), Qt::LeftButton);
    }
    EXPECT_FALSE(goesOn);
    dialogs.HideProgress();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(TMessages, LongMessagesLeaveRoomForTheButtons) {
    std::string text = "first line\n" + std::string(10'000, 'x') + "\n";
    for (int i = 0; i < 500; ++i)
        text += "x\n";
    User.On([&](QWidget& window) {
        auto& box = dynamic_cast<QMessageBox&>(window);
        EXPECT_LT(box.height(), 600);
        EXPECT_TRUE(box.text().startsWith("first line")) << FromQt(box.text());
        EXPECT_TRUE(box.text().endsWith("Continue?"));
        EXPECT_TRUE(FromQt(box.detailedText()) == text + "Continue?");
        box.close();
    });
    EXPECT_EQ(Window->Host().Host().Dialogs->MessageDlg(text + "Continue?", TMsgDlgType::mtConfirmation,
                                                        {mrYes, mrNo}),
              mrNo);
}

TEST_F(TMessages, WhatALongReportDoesNotShowIsCountedOnceAndInTheDetails) {
    TTransferReport report;
    for (int i = 0; i < 40; ++i)
        report.Dropped.Add("Captions Button" + std::to_string(i) + ".Caption (German): 'Los'");
    User.On([](QWidget& window) {
        auto& box = dynamic_cast<QMessageBox&>(window);
        EXPECT_EQ(box.text().count("dropped: "), 15) << FromQt(box.text());
        EXPECT_EQ(box.text().count(" more"), 1);
        EXPECT_TRUE(box.text().contains("... (25 more lines)"));
        EXPECT_EQ(box.detailedText().count("dropped: "), 40);
        box.close();
    });
    ShowReports(Context().Dialogs(), {{"MainForm", report}});
}

TEST_F(TMessages, ProblemsOfAProjectLeadToTheirFile) {
    std::filesystem::remove(Path("orchard/units/Pricing.pas"));
    OpenOrchard();
    auto& messages = Window->Messages();
    ASSERT_EQ(messages.topLevelItemCount(), 1);
    EXPECT_TRUE(messages.isVisible());
    auto& tree = Find<QTreeWidget>("projectTree");
    for (QTreeWidgetItem* item : tree.findItems("MainForm", Qt::MatchStartsWith | Qt::MatchRecursive))
        Q_EMIT tree.itemActivated(item, 0);
    ASSERT_NE(Window->Tabs().Current(), nullptr);
    EXPECT_EQ(Window->Tabs().Current()->FileName(), Path("orchard/Main.pas"));
    ClickMessage(0);
    EXPECT_EQ(Window->Tabs().Current()->FileName(), Path("orchard/Orchard.dproj"));
}

TEST_F(TMessages, AFormThatCannotBeReadIsNamedInTheMessages) {
    std::ofstream(Path("orchard/Main.dfm")) << "object MainForm: TMainForm\n  Caption = 'x\nend\n";
    OpenOrchard();
    SelectForm("MainForm");
    Click("ViewForm2");
    Click("ViewForm2");
    auto& messages = Window->Messages();
    EXPECT_TRUE(messages.isVisible());
    ASSERT_EQ(messages.topLevelItemCount(), 1) << "the same message stands once";
    EXPECT_EQ(messages.topLevelItem(0)->text(0) + messages.topLevelItem(0)->text(1), "Main.dfm2");
    ClickMessage(0);
    ASSERT_EQ(Window->Tabs().CurrentFile(), Path("orchard/Main.dfm"));
    EXPECT_EQ(CursorLine(), 2);
    QTest::keyClick(Window->Tabs().Current(), Qt::Key_End);
    QTest::keyClicks(Window->Tabs().Current(), "'");
    Click("Save1");
    EXPECT_EQ(messages.topLevelItemCount(), 0);
    Click("ViewForm2");
    EXPECT_EQ(Window->Tabs().count(), 1);
    EXPECT_FALSE(Window->Host().Modules().FindFormModule("MainForm")->GetModified()) << "mended";
}

TEST_F(TMessages, AMessageOnAFormThatCanBeReadLeadsIntoItsText) {
    OpenOrchard();
    GoTo("orchard/Main.pas", 1);
    Window->Messages().AddMessage(Path("orchard/Main.dfm"), 5, "Look here");
    Click("Messages1");
    ClickMessage(0);
    EXPECT_EQ(Window->Tabs().CurrentFile(), Path("orchard/Main.dfm"));
    EXPECT_EQ(CursorLine(), 5);
}

TEST_F(TMessages, ATitleIsWhole) {
    const std::string title(60, 'W');
    std::string value;
    User.On([&](QWidget& box) {
        EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance(ToQt(title)) + 100);
        box.close();
    });
    EXPECT_FALSE(Context().Dialogs().InputQuery(title, "Name:", value));
}

TEST_F(TMessages, HelpVersionAndUsageAreSaidAtOnce) {
    const auto output = [](const char* option) {
        QProcess program;
        program.setProcessEnvironment({});
        program.start(TML_BIN "/tmllang-workbench", {option});
        EXPECT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
        return QString::fromUtf8(program.readAllStandardOutput());
    };
    EXPECT_TRUE(output("--help").contains("PROJECT"));
    const QString version = output("--version").trimmed().section(' ', 1);
    EXPECT_FALSE(version.isEmpty());
    QProcess two;
    two.start(TML_BIN "/tmllang-workbench", {"a.lpi", "b.lpi"});
    EXPECT_TRUE(two.waitForFinished());
    EXPECT_EQ(two.exitCode(), 2);
    EXPECT_TRUE(two.readAllStandardError().contains("b.lpi is one project too many; usage: "));
    User.Answer("TmlLang Expert\r\nVersion " + version, "OK");
    Window->Host().Host().Runtime->ShowAboutBox();
}

}  // namespace
}  // namespace tml
