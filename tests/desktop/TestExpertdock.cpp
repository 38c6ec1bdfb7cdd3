#include "desktop/Deskfixture.h"

namespace tml {
namespace {

struct TDock : TDesktop {
    void CloseExpert() { ChooseFromBar(*Dock().findChild<QMenuBar*>(), "File", "Exit"); }
};

TEST_F(TDock, TheExpertDocksFloatsAndComesBack) {
    OpenOrchard();
    auto* dock = &Find<QDockWidget>("TmlLangExpertIDEDockableForm");
    EXPECT_TRUE(dock->isVisible());
    EXPECT_FALSE(dock->isFloating());
    EXPECT_EQ(dock->windowTitle(), "TmlLang Expert (VCL Edition)");
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Find<QMenu>("File1").title(), "File") << "the IDE's menu bar has the accelerator";
    Click("Dockable2");
    EXPECT_TRUE(dock->isFloating());
    EXPECT_EQ(dock->size(), QSize(700, 400));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Find<QMenu>("File1").title(), "&File");
    EXPECT_EQ(dock->allowedAreas(), Qt::NoDockWidgetArea);
    Click("StayOnTop2");
    EXPECT_TRUE(dock->windowFlags() & Qt::WindowStaysOnTopHint);
    CloseExpert();
    EXPECT_EQ(Window->Host().ExpertWindow(), nullptr);
    EXPECT_TRUE(Window->isVisible());
    Click("mlLangExpertMenuItem");
    ASSERT_NE(Window->Host().ExpertWindow(), nullptr);
    EXPECT_TRUE(Find<QDockWidget>("TmlLangExpertIDEDockableForm").isVisible());
}

TEST_F(TDock, TheExpertComesBackToItsPlace) {
    OpenOrchard();
    Window->addDockWidget(Qt::RightDockWidgetArea, &Dock());
    CloseExpert();
    Click("mlLangExpertMenuItem");
    EXPECT_EQ(Window->dockWidgetArea(&Dock()), Qt::RightDockWidgetArea) << "in the same run";
    for (const bool floating : {false, true}) {
        Dock().setFloating(floating);
        if (floating) Dock().setGeometry(40, 60, 640, 300);
        Window->close();
        Window = nullptr;
        Window = std::make_unique<TMainWindow>(TDeskFolders{Path("settings"), TML_BIN});
        Window->show();
        OpenOrchard();
        EXPECT_EQ(Dock().isFloating(), floating);
        EXPECT_EQ(Window->dockWidgetArea(&Dock()), Qt::RightDockWidgetArea);
    }
    EXPECT_EQ(Dock().size(), QSize(640, 300));
}

TEST_F(TDock, CtrlLGivesItTheFocusAndEnterGoesThere) {
    OpenOrchard();
    GoTo("orchard/Main.pas", 1);
    const QString before = EditorText();
    Activate(*Window);
    QTest::keyClick(Window->Tabs().Current(), Qt::Key_L, Qt::ControlModifier);
    QApplication::processEvents();
    ASSERT_EQ(QApplication::focusWidget(), &Find<QTableView>("lvFormNames"));
    SelectForm("AboutBox");
    User.On([](QWidget& window) {
        EXPECT_EQ(window.objectName(), "frmTransEditor");
        Press(window, "btnCancel");
    });
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    GoTo("orchard/Main.pas", 1);
    EXPECT_EQ(EditorText(), before);
}

TEST_F(TDock, ClosedByThePersonItStaysClosed) {
    OpenOrchard();
    for (const bool closed : {true, false}) {
        if (closed)
            Dock().close();
        else
            Click("mlLangExpertMenuItem");
        for (const bool again : {false, true}) {
            if (again) {
                Window->close();
                Window = nullptr;
                Window = std::make_unique<TMainWindow>(TDeskFolders{Path("settings"), TML_BIN});
                Window->show();
            }
            OpenOrchard();
            EXPECT_EQ(Window->Host().ExpertWindow() == nullptr, closed) << (again ? "in the next run" : "");
        }
    }
}

}  // namespace
}  // namespace tml
