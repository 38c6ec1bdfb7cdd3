#include <QScreen>
#include <set>

#include "desktop/Deskfixture.h"
#include "editors/Mllangcomboeditor.h"
#include "scan/Dntcedit.h"
#include "scan/Skippedstrings.h"
#include "setup/Dictionaryfillform.h"
#include "setup/Exclude.h"
#include "translations/Projmngsaskfilename.h"
#include "windows/Stringlisteditor.h"

namespace tml {
namespace {

struct TScreens : TDesktop {
    /// Expects a window and closes it after a look at its size.
    void Expect(const QScreen& screen) {
        User.On([&](QWidget& window) {
            seen_.insert(FromQt(window.objectName()));
            EXPECT_EQ(window.screen(), &screen);
            EXPECT_LE(window.width(), RoomFor(window).width()) << FromQt(window.objectName());
            EXPECT_LE(window.height(), RoomFor(window).height()) << FromQt(window.objectName());
            ExpectInSight(window);
            if (window.objectName() == "frmFound") User.Answer("This will close", "Yes");
            window.close();
        });
    }
    /// The buttons that end a window, and three rows of a table that is worked in, without scrolling.
    static void ExpectInSight(QWidget& window) {
        for (const char* name : {"btOK", "btCancel", "btClose", "btHelp", "btnOK", "btnCancel", "btnHelp"})
            if (const auto* button = window.findChild<QPushButton*>(name)) {
                EXPECT_EQ(button->visibleRegion().boundingRect(), button->rect())
                    << FromQt(window.objectName()) << ' ' << name;
            }
        for (const char* name : {"sgStrings", "grTexts"})
            if (const auto* table = window.findChild<QTableView*>(name)) {
                EXPECT_GE(table->viewport()->visibleRegion().boundingRect().height(),
                          3 * table->rowHeight(0));
            }
    }
    void ShowChoosers(const QScreen& screen) {
        TfrmNotTranslate names(*Window->Host().Host().Registry, TStringList({"Button1"}), {});
        TfrmSkippedStrings skipped(Context(), Window->Host().Expert()->Subjects().Scan);
        TfrmAsk4FileName file(Context(), true);
        TfrmMlLangComboEditor combo({{"English", {}, {}, {}, -1}});
        TfrmStringList lines("Lines", TStringList({"one"}));
        TExclusionForm sample{"MainForm", "", {{"", "MainForm", "TMainForm", -1}}, {}, {}, false};
        sample.Texts.push_back({{0, "Caption", "Orchard"}});
        TfrmExclude exclude(Window->Host().Host(), {sample}, {});
        const TDictionary dictionary;
        TfrmFillDictionary fill({}, dictionary, {}, nullptr);
        for (TForm* form :
             std::initializer_list<TForm*>{&names, &skipped, &file, &combo, &lines, &exclude, &fill}) {
            Expect(screen);
            Context().Dialogs().ShowModal(*form);
        }
    }

    void EveryWindowFits(const QScreen& screen);

    std::set<std::string> seen_;
};

void TScreens::EveryWindowFits(const QScreen& screen) {
    OpenOrchard();
    Window->move(screen.geometry().topLeft());
    Window->resize(RoomFor(*Window));
    QApplication::processEvents();
    EXPECT_EQ(Window->height(), RoomFor(*Window).height());
    EXPECT_EQ(Window->width(), RoomFor(*Window).width());
    SelectForm("MainForm");
    for (const char* command :
         {"Options1", "ProjectSettings1", "tbLanguages", "SourceWithForm1", "SourceWithoutForm1",
          "SaveProjectProperties1", "tbTranslate", "Dictionary1"}) {
        Expect(screen);
        Click(command);
    }
    ShowChoosers(screen);
    Click("Contents1");
    const auto& help = Find<QDialog>("help");
    EXPECT_EQ(help.size().boundedTo(RoomFor(help)), help.size());
    EXPECT_EQ(seen_,
              (std::set<std::string>{"frmAsk4FileName", "frmDictionary", "frmExclude", "frmFillDictionary",
                                     "frmFound", "frmLangConfig", "frmMlLangComboEditor", "frmNotTranslate",
                                     "frmOptions", "frmProjectTranslationSettings", "frmSkippedStrings",
                                     "frmStringList", "frmTransEditor", "frmTranslUnits"}));
}

TEST_F(TScreens, EveryWindowFitsALaptops) {
    EveryWindowFits(*QApplication::screens().at(0));
}

TEST_F(TScreens, EveryWindowFitsAtTwiceTheScale) {
    EveryWindowFits(*QApplication::screens().at(1));
}

}  // namespace
}  // namespace tml
