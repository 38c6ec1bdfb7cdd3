#pragma once

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDockWidget>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTabBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest/QtTest>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

#include "base/Diskfiles.h"
#include "desktop/Codeeditor.h"
#include "desktop/Editortabs.h"
#include "desktop/Mainwindow.h"
#include "desktop/Messagepane.h"
#include "desktop/Resources.h"
#include "desktop/Texts.h"
#include "expert/Mllangexp.h"
#include "expert/Mlmainform.h"

namespace tml {

/// Keys reach a window only when it is in front, and without a window manager it is not in front again when a
/// box has closed.
inline void Activate(QWidget& window) {
    QPointer<QWidget> guard = &window;
    EXPECT_TRUE(QTest::qWaitFor([guard] {
        if (guard == nullptr) return true;
        guard->activateWindow();
        QApplication::processEvents();
        return guard == nullptr || guard->isActiveWindow();
    }));
}

inline void Press(QWidget& window, const char* button) {
    // A check box answers to its box and text only, wherever the rest of its row ends.
    QTest::mouseClick(window.findChild<QAbstractButton*>(button), Qt::LeftButton, {}, {8, 8});
}

/// Accelerators that two of the visible controls, tabs and menus have, each as their letter.
inline QString DoubleAccelerators(const QWidget& window) {
    QString keys, doubles;
    const auto add = [&](const QString& text) {
        const QString key = QKeySequence::mnemonic(text).toString();
        if (!key.isEmpty()) (keys.contains(key.back()) ? doubles : keys) += key.back();
    };
    for (const auto* button : window.findChildren<QAbstractButton*>())
        if (button->isVisible()) add(button->text());
    for (const auto* label : window.findChildren<QLabel*>())
        if (label->isVisible() && label->buddy() != nullptr) add(label->text());
    for (const auto* bar : window.findChildren<QTabBar*>())
        for (int tab = 0; tab < bar->count() && bar->isVisible(); ++tab)
            add(bar->tabText(tab));
    for (const auto* bar : window.findChildren<QMenuBar*>())
        for (const QAction* menu : bar->actions())
            if (bar->isVisible()) add(menu->text());
    return doubles;
}

/// The line of a field, which may be the field itself.
inline QLineEdit& EditOf(QWidget& window, const char* name) {
    auto* field = window.findChild<QWidget*>(name);
    auto* edit = qobject_cast<QLineEdit*>(field);
    return edit == nullptr ? *field->findChild<QLineEdit*>() : *edit;
}

inline void Type(QWidget& window, const char* name, const QString& text) {
    QLineEdit& edit = EditOf(window, name);
    edit.setFocus();
    edit.selectAll();
    QTest::keyClicks(&edit, text);
}

inline QString TextOf(QWidget& window, const char* label) {
    return window.findChild<QLabel*>(label)->text();
}

inline void ClickItem(QListWidget& list, int row, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    list.scrollToItem(list.item(row));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, keys, list.visualItemRect(list.item(row)).center());
}

/// Clicks an entry of the menu that has popped up; false when none has.
inline bool ClickEntry(const QString& text) {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) return false;
    for (QAction* action : menu->actions())
        if (action->text().remove('&') == text) {
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
            return true;
        }
    menu->close();
    ADD_FAILURE() << "no entry " << FromQt(text);
    return true;
}

/// The same for an entry of a menu that opens inside the one that has popped up.
inline bool ClickEntry(const QString& subMenu, const QString& text) {
    if (!ClickEntry(subMenu)) return false;
    const auto isOpen = [&] {
        const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        return menu != nullptr && menu->title().remove('&') == subMenu;
    };
    return QTest::qWaitFor(isOpen) && ClickEntry(text);
}

/// The person at the workbench: what is done with each modal window, in the order in which they come. A
/// window that nobody expects ends the test.
class TDeskUser {
  public:
    TDeskUser() { Arm(); }
    ~TDeskUser() { EXPECT_TRUE(steps_.empty()) << "a window that was expected has not come"; }

    void On(std::function<void(QWidget&)> step) { steps_.push_back(std::move(step)); }
    /// Expects a box whose text begins so and clicks the button.
    void Answer(const QString& text, const QString& button) {
        On([text, button](QWidget& window) {
            auto* box = qobject_cast<QMessageBox*>(&window);
            ASSERT_NE(box, nullptr);
            EXPECT_TRUE(box->text().startsWith(text)) << FromQt(box->text());
            for (QAbstractButton* candidate : box->buttons())
                if (candidate->text().remove('&') == button)
                    return QTest::mouseClick(candidate, Qt::LeftButton);
            ADD_FAILURE() << "no button " << FromQt(button);
        });
    }
    /// Expects a box for a text and gives it.
    void AnswerInput(const QString& text) {
        On([text](QWidget& window) {
            dynamic_cast<QInputDialog&>(window).setTextValue(text);
            dynamic_cast<QInputDialog&>(window).accept();
        });
    }
    /// Expects the dialog for files and types a name.
    void ChooseFile(const QString& file) {
        On([file](QWidget& window) {
            auto& dialog = dynamic_cast<QFileDialog&>(window);
            Type(dialog, "fileNameEdit", file);
            QTest::keyClick(&EditOf(dialog, "fileNameEdit"), Qt::Key_Return);
        });
    }

  private:
    void Arm() {
        QTimer::singleShot(10, &timers_, [this] { Look(); });
    }
    void Look() {
        // First, so that windows that the step opens are seen too.
        Arm();
        QPointer<QWidget> window = QApplication::activeModalWidget();
        if (window == nullptr || !window->isVisible() || seen_.contains(window)) return;
        // On a machine that is busy any command may show how far it is.
        if (qobject_cast<QProgressDialog*>(window) != nullptr) return;
        seen_ += window;
        if (steps_.empty()) {
            const auto* box = qobject_cast<QMessageBox*>(window);
            GiveUp("nobody expects " + window->objectName() + " " + window->windowTitle() +
                   (box == nullptr ? QString() : ": " + box->text()));
        }
        const auto step = std::move(steps_.front());
        steps_.pop_front();
        Activate(*window);
        step(*window);
        if (testing::Test::HasFatalFailure()) GiveUp("the window would stay open");
    }

    /// A modal window that nobody closes would hold the test for ever.
    [[noreturn]] static void GiveUp(const QString& why) {
        ADD_FAILURE() << FromQt(why);
        std::_Exit(EXIT_FAILURE);
    }

    QObject timers_;
    std::deque<std::function<void(QWidget&)>> steps_;
    QList<QPointer<QWidget>> seen_;
};

/// The workbench on a copy of the sample project, without a screen.
class TDesktop : public testing::Test {
  public:
    TDesktop() {
        namespace fs = std::filesystem;
        fs::copy(fs::path(TML_TESTS) / "../examples/orchard", Path("orchard"), fs::copy_options::recursive);
        Window = std::make_unique<TMainWindow>(TDeskFolders{Path("settings"), TML_BIN});
        Window->show();
    }

    static void SetUpTestSuite() {
        static int count = 1;
        static char name[] = "tests";
        static char* arguments[] = {name, nullptr};
        // A laptop's screen, and beside it the same one at twice the scale.
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" TML_TESTS "/desktop/Screens.json");
        if (qApp == nullptr) new QApplication(count, arguments);
        LoadResources();
    }

    std::string Path(const std::string& name) const { return FromQt(folder_.path()) + "/" + name; }
    std::string OnDisk(const std::string& name) const { return MakeDiskFileSystem()->Read(Path(name)); }
    void OpenOrchard() {
        Window->OpenProject(ToQt(Path("orchard/Orchard.dproj")));
        QApplication::processEvents();
    }
    template <typename Widget>
    Widget& Find(const QString& name) {
        auto* found = Window->findChild<Widget*>(name);
        if (found == nullptr) throw std::runtime_error("no " + FromQt(name));
        return *found;
    }
    /// Clicks a menu entry or tool button by its component name and waits until it is done.
    void Click(const QString& action) {
        // Menus that have been made anew leave their old entries for the event loop to delete.
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Find<QAction>(action).trigger();
        QApplication::processEvents();
    }
    /// Opens the local menu at a place of a widget and clicks an entry with the mouse.
    void ChooseFromMenu(QWidget& target, const QPoint& at, const QString& entry) {
        bool clicked = false;
        // For a menu that is waited for; another one stands open when the event has been sent.
        QTimer::singleShot(0, Window.get(), [&] { clicked = clicked || ClickEntry(entry); });
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, target.mapToGlobal(at));
        QApplication::sendEvent(&target, &event);
        clicked = clicked || ClickEntry(entry);
        EXPECT_TRUE(clicked) << "no menu";
        // As the event loop does it: what is to be deleted goes before what is queued runs.
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }
    /// Opens a menu of a menu bar, and a menu in that, and clicks an entry, all with the mouse.
    static void ChooseFromBar(QMenuBar& bar, const QString& menu, const QString& entry,
                              const QString& subMenu = {}) {
        // Menus that have been made anew leave their old ones for the event loop to delete.
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (QAction* action : bar.actions())
            if (action->text().remove('&') == menu)
                QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(action).center());
        EXPECT_TRUE(subMenu.isEmpty() ? ClickEntry(entry) : ClickEntry(subMenu, entry))
            << "no menu " << FromQt(menu + ' ' + subMenu);
        QApplication::processEvents();
    }
    static void ClickCell(QTableView& table, int row, int column,
                          Qt::KeyboardModifiers keys = Qt::NoModifier) {
        const QModelIndex index = table.model()->index(row, column);
        table.scrollTo(index);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, keys, table.visualRect(index).center());
    }
    static QString Cell(const QTableView& table, int row, int column) {
        return table.model()->index(row, column).data().toString();
    }
    void SelectForm(const QString& form) {
        auto& table = Find<QTableView>("lvFormNames");
        for (int row = 0; row < table.model()->rowCount(); ++row)
            if (Cell(table, row, 0) == form) return ClickCell(table, row, 0);
        FAIL() << "no form " << FromQt(form);
    }
    TContext& Context() { return Window->Host().Expert()->Context(); }
    QDockWidget& Dock() { return Find<QDockWidget>("TmlLangExpertIDEDockableForm"); }
    void GoTo(const std::string& file, int line) {
        Window->Runner().Run([&] { Window->GoTo(Path(file), line); });
    }
    QString EditorText() { return Window->Tabs().Current()->text(); }

    TDeskUser User;
    std::unique_ptr<TMainWindow> Window;

  private:
    QTemporaryDir folder_;
};

}  // namespace tml
