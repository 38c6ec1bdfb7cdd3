#include <QCheckBox>
#include <QTreeView>

#include "desktop/Deskfixture.h"
#include "desktop/Exclusionpicture.h"

namespace tml {
namespace {

/// The exclusion editor on a program in English, German and Hebrew.
class TExcludeWindow : public TDesktop {
  public:
    TExcludeWindow() {
        std::filesystem::copy(std::filesystem::path(TML_TESTS) / "../examples/harbour", Path("harbour"),
                              std::filesystem::copy_options::recursive);
        Window->OpenProject(ToQt(Path("harbour/Harbour.lpi")));
        SelectForm("MainForm");
    }
    static QModelIndex Row(QTreeView& tree, const QStringList& path) {
        QModelIndex index;
        for (const QString& caption : path) {
            tree.expand(index);
            int row = 0;
            while (row < tree.model()->rowCount(index) &&
                   tree.model()->index(row, 0, index).data().toString() != caption)
                ++row;
            index = tree.model()->index(row, 0, index);
            EXPECT_TRUE(index.isValid()) << FromQt(caption);
        }
        tree.scrollTo(index);
        return index;
    }
    static void ClickRow(QTreeView& tree, const QModelIndex& index) {
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(index).center());
    }
    static void ClickBox(QTreeView& tree, const QModelIndex& index) {
        const QRect row = tree.visualRect(index);
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, {row.left() + 10, row.center().y()});
    }
    static QVariant Box(const QModelIndex& index) { return index.data(Qt::CheckStateRole); }
    /// The entries of the current form behind those that the program comes with, with what they match.
    static QString Entries(const QTableView& table) {
        QStringList entries;
        for (int row = kOwnEntries; row < table.model()->rowCount(); ++row)
            entries += Cell(table, row, 1) + ' ' + Cell(table, row, 2);
        return entries.join(", ");
    }
    static constexpr int kOwnEntries = 3;
};

TEST_F(TExcludeWindow, BoxesSearchAndEntriesByTheMouse) {
    User.On([this](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Exclude from Translation");
        EXPECT_EQ(DoubleAccelerators(window), "");
        auto& tree = *window.findChild<QTreeView*>("tree");
        auto& picture = *window.findChild<QWidget*>("exclusionPicture");
        const QImage before = picture.grab().toImage();
        ClickBox(tree, Row(tree, {"MainForm", "TLabel", "lblLog"}));
        EXPECT_EQ(Box(Row(tree, {"MainForm", "TLabel"})), Qt::PartiallyChecked);
        EXPECT_EQ(Box(Row(tree, {"MainForm", "TLabel", "lblLog", "Caption"})), Qt::Checked);
        EXPECT_EQ(Row(tree, {"MainForm", "TLabel", "lblLog", "Caption"}).siblingAtColumn(2).data(),
                  "!lblLog in ExcludedProperties");
        EXPECT_EQ(
            TextOf(window, "lblEffect"),
            "1 form changes: 1 text leaves the tables with the next update; 2 translations are dropped");
        EXPECT_NE(picture.grab().toImage(), before) << "it is marked";
        auto& entries = *window.findChild<QTableView*>("lvEntries");
        EXPECT_EQ(Entries(entries), "!lblLog 1");
        Press(window, "ckbOnlyExcluded");
        EXPECT_EQ(tree.model()->rowCount(Row(tree, {"MainForm"})), 2) << "actions and labels";
        Press(window, "ckbOnlyExcluded");

        Type(window, "edSearch", "pilot");
        QTest::keyClick(window.findChild<QLineEdit*>("edSearch"), Qt::Key_Return);
        EXPECT_TRUE(window.isVisible()) << "it leads to the tree";
        EXPECT_TRUE(tree.hasFocus());
        const QModelIndex items = Row(tree, {"MainForm", "TListBox", "lstServices", "Items"});
        EXPECT_EQ(tree.model()->rowCount(Row(tree, {"MainForm"})), 1);
        ClickRow(tree, items);
        ChooseFromMenu(*tree.viewport(), tree.visualRect(items).center(),
                       "Exclude Property Items Everywhere");
        EXPECT_EQ(Entries(entries), "!lblLog 1, .Items 1");
        ClickCell(entries, kOwnEntries + 1, 1);
        Press(window, "btnRemoveEntry");
        User.AnswerInput("TMemo");
        Press(window, "btnAddEntry");
        Press(window, "smartPath");
        EXPECT_EQ(Entries(entries), "!lblLog 1, TMemo 1, Path matches nothing");
        User.Answer("1 form changes: 2 texts leave", "Yes");
        Press(window, "btOK");
    });
    Click("Exclude1");
    EXPECT_TRUE(QTest::qWaitFor([this] { return Window->isActiveWindow(); })) << "two windows went at once";
    const std::string form = OnDisk("harbour/forms/Mainwindow.lfm");
    EXPECT_NE(form.find("ExcludedProperties.Strings = (\n      '!lblLog'\n      'TMemo'\n    )"),
              std::string::npos);
    EXPECT_NE(form.find("SmartExcludeProps.Strings = (\n      'Path'\n    )"), std::string::npos);
}

TEST_F(TExcludeWindow, AClickOnThePictureGoesToItsRow) {
    User.On([](QWidget& window) {
        auto& tree = *window.findChild<QTreeView*>("tree");
        auto& picture = dynamic_cast<TExclusionPicture&>(*window.findChild<QWidget*>("exclusionPicture"));
        for (const TLayoutItem& item : picture.Layout().Items)
            if (item.Node->Name == "lblServices")
                QTest::mouseClick(&picture, Qt::LeftButton, {}, {item.Seen.Left + 4, item.Seen.Top + 4});
        EXPECT_EQ(tree.currentIndex().data(), "lblServices");
        Press(window, "ckbFormView");
        EXPECT_FALSE(window.findChild<QWidget*>("formPane")->isVisible());
        Press(window, "btCancel");
    });
    Click("Exclude1");
}

}  // namespace
}  // namespace tml
