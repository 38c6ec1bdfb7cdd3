#include <QComboBox>
#include <QSplitter>
#include <QToolButton>

#include "desktop/Deskfixture.h"
#include "scan/Dntcedit.h"

namespace tml {
namespace {

using TNameChoosers = TDesktop;

QStringList Texts(const QListWidget& list) {
    QStringList texts;
    for (int row = 0; row < list.count(); ++row)
        texts += list.item(row)->text();
    return texts;
}

TEST_F(TNameChoosers, MovesTheStringsOfAUnitWithoutAForm) {
    OpenOrchard();
    User.On([&](QWidget& chooser) {
        EXPECT_EQ(chooser.windowTitle(), "Translate units without a form");
        auto& units = *chooser.findChild<QListWidget*>("lbUnits");
        auto& ok = *chooser.findChild<QPushButton*>("btOK");
        const int pricing = static_cast<int>(Texts(units).indexOf("units/Pricing.pas"));
        ASSERT_GE(pricing, 0);
        EXPECT_FALSE(ok.isEnabled());
        ClickItem(units, pricing);
        EXPECT_FALSE(ok.isEnabled()) << "no form receives the strings yet";
        QTest::keyClicks(chooser.findChild<QComboBox*>("cbForm"), "MainF");
        EXPECT_TRUE(ok.isEnabled());
        Press(chooser, "btSelectAll");
        EXPECT_EQ(units.selectedItems().size(), units.count());
        QTest::keyClick(&units, Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(chooser.focusWidget(), "LETTERS");
        EXPECT_EQ(units.selectedItems().size(), 2) << "what is hidden is not selected";
        EXPECT_TRUE(units.item(pricing)->isHidden());
        chooser.findChild<QLineEdit*>("filter")->findChild<QToolButton*>()->click();
        ClickItem(units, pricing);
        EXPECT_EQ(units.selectedItems().size(), 1);
        QTest::keyClick(&units, Qt::Key_Return);
    });
    User.On([&](QWidget& review) {
        EXPECT_EQ(review.windowTitle(), "Found String Constants (Pricing.pas)");
        User.Answer("This will apply changes and modify source code.", "Yes");
        User.Answer("Source file translated.", "OK");
        review.findChild<QAction*>("ModifySource")->trigger();
    });
    Click("SourceWithoutForm1");
    EXPECT_EQ(Window->Tabs().Current()->FileName(), Path("orchard/units/Pricing.pas"));
    EXPECT_TRUE(EditorText().contains("MainForm.mlLang_MainForm.GetTextOrDefault('IDS_0' (* 'for free' *) )"))
        << FromQt(EditorText());
}

TEST_F(TNameChoosers, NamesMoveBetweenTwoLists) {
    IRegistry& registry = *Window->Host().Host().Registry;
    const std::string key = "\\Software\\Velmora\\TmlLang\\ExcludeComponents";
    registry.WriteInteger(key, "LeftWidth", 180);
    registry.WriteInteger(key, "Width", 640);
    TfrmNotTranslate form(registry, TStringList({"Button1", "Edit1", "Label1", "Memo1"}), {});
    User.On([&](QWidget& chooser) {
        auto& left = *chooser.findChild<QListWidget*>("lbComps");
        auto& right = *chooser.findChild<QListWidget*>("lbSelected");
        const auto enabled = [&] {
            QString states;
            for (const char* name : {"btAdd", "btAddAll", "btRemove", "btRemoveAll"})
                states += chooser.findChild<QAbstractButton*>(name)->isEnabled() ? '1' : '0';
            return states;
        };
        EXPECT_EQ(chooser.width(), 640);
        EXPECT_EQ(chooser.findChild<QSplitter*>("splitter")->sizes().front(), 180);
        EXPECT_EQ(enabled(), "0100");
        ClickItem(left, 1);
        ClickItem(left, 3, Qt::ShiftModifier);
        EXPECT_EQ(enabled(), "1100");
        Press(chooser, "btAdd");
        EXPECT_EQ(Texts(right), QStringList({"Edit1", "Label1", "Memo1"}));
        EXPECT_EQ(enabled(), "0101");
        const QPoint second = right.visualItemRect(right.item(1)).center();
        QTest::mouseClick(right.viewport(), Qt::LeftButton, {}, second);
        QTest::mouseDClick(right.viewport(), Qt::LeftButton, {}, second);
        EXPECT_EQ(Texts(left), QStringList({"Button1", "Label1"}));
        Press(chooser, "btAddAll");
        EXPECT_EQ(enabled(), "0001");
        Press(chooser, "btRemoveAll");
        EXPECT_EQ(enabled(), "0100");
        ClickItem(left, 0);
        Press(chooser, "btAdd");
        chooser.findChild<QSplitter*>("splitter")->setSizes({250, 300});
        Press(chooser, "btOK");
    });
    EXPECT_EQ(Window->Host().Host().Dialogs->ShowModal(form), mrOk);
    EXPECT_EQ(form.lbSelected.Items, TStringList({"Button1"}));
    EXPECT_GT(registry.ReadInteger(key, "LeftWidth"), 200);
    EXPECT_EQ(registry.ReadInteger(key, "Width"), 640);
    EXPECT_TRUE(registry.ReadInteger(key, "Top").has_value());
}

}  // namespace
}  // namespace tml
