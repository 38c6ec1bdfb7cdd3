// The panes of the form designer, with real clicks and keys.
#include <QComboBox>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTreeView>
#include <QTreeWidget>
#include <fstream>

#include "desktop/Deskfixture.h"

namespace tml {
namespace {

constexpr const char* kAboutBox = R"(object AboutBox: TAboutBox
  ClientHeight = 140
  ClientWidth = 260
  object SmallPanel: TPanel
    Left = 16
    Top = 50
    Width = 100
    Height = 40
    object WideLabel: TLabel
      Left = 10
      Top = 10
      Width = 60
      Height = 20
      AutoSize = False
      Caption = 'Wide'
      Visible = True
    end
  end
  object CloseButton: TButton
    Left = 60
    Top = 104
    Width = 140
    Height = 25
    Caption = 'Close'
  end
  object mlLang_AboutBox: TmlLang
    NumOfLanguages = 2
    LangNames.Strings = (
      'English'
      'German')
    Captions.Strings = (
      'CloseButton.Caption'#1'Close'#1'Schlie'#223'en')
  end
  object combo: TmlLangCombo
    Left = 150
    Top = 20
    Width = 90
    Height = 21
    Languages = mlLang_AboutBox
    Items.Strings = (
      'English')
  end
  object pages: TPageControl
    Left = 130
    Top = 50
    Width = 120
    Height = 50
    ActivePage = tsOne
    object tsOne: TTabSheet
      Caption = 'One'
      object OnOne: TPanel
        Left = 4
        Top = 2
        Width = 40
        Height = 18
      end
    end
    object tsTwo: TTabSheet
      Caption = 'Two'
      object OnTwo: TPanel
        Left = 4
        Top = 2
        Width = 40
        Height = 18
      end
    end
  end
  object dlgOpen: TmlOpenDialog
    Title = 'Pick'
  end
end
)";

constexpr QPoint kButtonPlace(100, 112);
constexpr QPoint kLabel(40, 70);
constexpr QPoint kPanel(100, 55);

struct TDesignPanes : TDesktop {
    TDesignPanes() {
        std::ofstream(Path("orchard/forms/About.dfm")) << kAboutBox;
        OpenOrchard();
        Window->Runner().Run([&] { Window->Tabs().ShowForm(Path("orchard/forms/About.pas")); });
        QApplication::processEvents();
        Activate(*Window);
    }
    QWidget& Picture() { return Find<QWidget>("formPicture"); }
    QTreeWidget& Tree() { return Find<QTreeWidget>("componentTree"); }
    QTableView& Inspector() { return Find<QTableView>("inspector"); }
    QTreeWidget& Messages() { return Window->Messages(); }
    QString Title() { return TextOf(*Window, "inspectorTitle"); }
    void ClickPicture(const QPoint& at, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(&Picture(), Qt::LeftButton, keys, at);
    }
    static void ExpectSoon(const std::function<bool()>& isTrue) { EXPECT_TRUE(QTest::qWaitFor(isTrue)); }
    static QTreeWidgetItem* ItemOf(QTreeWidget& tree, const QString& name) {
        const auto found = tree.findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
        EXPECT_EQ(found.size(), 1) << FromQt(name);
        return found.value(0);
    }
    static void ClickTree(QTreeWidget& tree, const QString& name, Qt::KeyboardModifiers keys = {}) {
        QTreeWidgetItem* item = ItemOf(tree, name);
        tree.scrollToItem(item);
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, keys, tree.visualItemRect(item).center());
    }
    static void DoubleClickTree(QTreeWidget& tree, const QString& name) {
        ClickTree(tree, name);
        QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {},
                           tree.visualItemRect(ItemOf(tree, name)).center());
        QApplication::processEvents();
    }
    QStringList SelectedNames() {
        QStringList names;
        for (const QTreeWidgetItem* item : Tree().selectedItems())
            names += item->text(0);
        names.sort();
        return names;
    }
    QModelIndex Row(const QString& property, int column = 1) {
        const auto& model = *Inspector().model();
        for (int row = 0; row < model.rowCount(); ++row)
            if (model.index(row, 0).data() == property) return model.index(row, column);
        ADD_FAILURE() << "no row " << FromQt(property);
        return {};
    }
    QString Value(const QString& property) { return Row(property).data().toString(); }
    void ClickRow(const QString& property, int column = 1) {
        const QModelIndex index = Row(property, column);
        Inspector().scrollTo(index);
        QTest::mouseClick(Inspector().viewport(), Qt::LeftButton, {}, Inspector().visualRect(index).center());
        QApplication::processEvents();
    }
    /// Enter begins, what is typed takes the place of the value, Enter ends.
    void TypeValue(const QString& property, const QString& text) {
        ClickRow(property, 0);
        QTest::keyClick(&Inspector(), Qt::Key_Return);
        auto* editor = Inspector().viewport()->findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr) << FromQt(property);
        editor->selectAll();
        QTest::keyClicks(editor, text);
        auto* box = qobject_cast<QComboBox*>(editor->parentWidget());
        QTest::keyClick(box == nullptr ? static_cast<QWidget*>(editor) : box, Qt::Key_Return);
        ExpectSoon([&] { return Inspector().viewport()->findChild<QLineEdit*>() == nullptr; });
    }
    static QWidget& OpenMenu(QWidget& target, const QPoint& at) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, target.mapToGlobal(at));
        QApplication::sendEvent(&target, &event);
        return *QApplication::activePopupWidget();
    }
    std::string FormText() { return FromQt(Window->Tabs().CurrentText()->text()); }
    bool IsModified() { return Window->Host().Modules().FindFormModule("AboutBox")->GetModified(); }
    void Undo() {
        Activate(*Window);
        QTest::keyClick(Window.get(), Qt::Key_Z, Qt::ControlModifier);
        QApplication::processEvents();
    }
};

TEST_F(TDesignPanes, APictureAndATreeSelectTheSame) {
    EXPECT_EQ(Title(), "AboutBox: TAboutBox");
    ClickPicture(kButtonPlace);
    EXPECT_EQ(SelectedNames(), QStringList{"CloseButton"});
    EXPECT_EQ(Title(), "CloseButton: TButton");
    ClickPicture(kLabel, Qt::ControlModifier);
    EXPECT_EQ(SelectedNames(), (QStringList{"CloseButton", "WideLabel"}));
    ClickPicture(kButtonPlace, Qt::ShiftModifier);
    EXPECT_EQ(SelectedNames(), QStringList{"WideLabel"});
    const QRgb mark = Window->palette().color(QPalette::Highlight).rgb();
    const QPoint corner(25, 59), inside(26, 60);  // of the label
    EXPECT_EQ(Picture().grab().toImage().pixel(corner), mark);
    EXPECT_NE(Picture().grab().toImage().pixel(inside), mark) << "a text begins there";
    QTest::keyClick(&Picture(), Qt::Key_Escape);
    EXPECT_EQ(SelectedNames(), QStringList{"SmallPanel"});
    EXPECT_NE(Picture().grab().toImage().pixel(corner), mark);
    QTest::keyClick(&Picture(), Qt::Key_Right);
    EXPECT_EQ(SelectedNames(), QStringList{"WideLabel"});
    ClickTree(Tree(), "CloseButton");
    EXPECT_EQ(Title(), "CloseButton: TButton");
    EXPECT_EQ(Picture().grab().toImage().pixel(59, 103), mark);
    QTest::keyClick(&Tree(), Qt::Key_Down);
    EXPECT_EQ(Title(), "mlLang_AboutBox: TmlLang");
    ClickTree(Tree(), "CloseButton", Qt::ControlModifier);
    EXPECT_EQ(Title(), "2 components");
    ClickPicture({5, 5});
    EXPECT_EQ(SelectedNames(), QStringList{"AboutBox"});
    EXPECT_FALSE(IsModified());
}

TEST_F(TDesignPanes, AValueIsTypedChosenRefusedAndUndone) {
    const std::string before = FormText();
    ClickPicture(kButtonPlace);
    TypeValue("Caption", "Shut");
    ExpectSoon([&] { return Value("Caption") == QString("Shut"); });
    EXPECT_NE(FormText().find("Caption = 'Shut'"), std::string::npos);
    EXPECT_TRUE(IsModified());
    EXPECT_TRUE(Window->Tabs().tabText(Window->Tabs().currentIndex()).endsWith('*'));
    Undo();
    EXPECT_EQ(FormText(), before);
    EXPECT_FALSE(IsModified());
    User.Answer(ToQt(Path("orchard/forms/About.dfm")) + ": CloseButton.Width takes a whole number", "OK");
    TypeValue("Width", "wide");
    ExpectSoon([&] { return Messages().topLevelItemCount() == 1; });
    EXPECT_EQ(Value("Width"), "140");
    EXPECT_EQ(FormText(), before);
    EXPECT_FALSE(IsModified());
    Activate(*Window);
    TypeValue("Name", "EndButton");
    ExpectSoon([&] { return Title() == QString("EndButton: TButton"); });
    EXPECT_EQ(SelectedNames(), QStringList{"EndButton"});
    Window->Runner().Run([&] { Window->GoTo(Path("orchard/forms/About.pas"), 0); });
    EXPECT_TRUE(EditorText().contains("EndButton: TButton")) << FromQt(EditorText());
    Undo();
    EXPECT_FALSE(EditorText().contains("EndButton: TButton"));
}

TEST_F(TDesignPanes, AValueIsResetToItsDefault) {
    const std::string before = FormText();
    const auto reset = [this](const QString& property) {
        const QModelIndex row = Row(property);
        Inspector().scrollTo(row);
        ChooseFromMenu(*Inspector().viewport(), Inspector().visualRect(row).center(), "Reset to Default");
    };
    ClickTree(Tree(), "WideLabel");
    reset("AutoSize");
    EXPECT_EQ(FormText().find("AutoSize"), std::string::npos);
    Undo();
    EXPECT_EQ(FormText(), before);
    ClickTree(Tree(), "combo");
    reset("Items");
    EXPECT_EQ(FormText().find("Items.Strings"), std::string::npos) << "a list";
    Undo();
    ClickTree(Tree(), "mlLang_AboutBox");
    TypeValue("Language", "German");
    ExpectSoon([&] { return FormText().find("Language = 'German'") != std::string::npos; });
    reset("Language");
    EXPECT_EQ(FormText(), before) << "the form shows its first language again";
    for (const char* needed : {"Name", "LangNames", "Language"}) {
        const QModelIndex row = Row(needed);
        Inspector().scrollTo(row);
        QWidget& menu = OpenMenu(*Inspector().viewport(), Inspector().visualRect(row).center());
        EXPECT_FALSE(menu.actions().last()->isEnabled()) << needed;
        menu.close();
    }
}

TEST_F(TDesignPanes, PagesComeToFrontWithWhatIsSelectedAndByTheirTabs) {
    constexpr QPoint kOnPage(145, 84);
    ClickPicture(kOnPage);
    EXPECT_EQ(SelectedNames(), QStringList{"OnOne"});
    ClickTree(Tree(), "OnTwo");
    ClickPicture(kOnPage);
    EXPECT_EQ(SelectedNames(), QStringList{"OnTwo"});
    ClickPicture(kButtonPlace);
    ClickPicture(kOnPage);
    EXPECT_EQ(SelectedNames(), QStringList{"OnTwo"}) << "the page stays";
    ClickPicture({140, 60});
    EXPECT_EQ(SelectedNames(), QStringList{"tsOne"});
    ClickPicture(kOnPage);
    EXPECT_EQ(SelectedNames(), QStringList{"OnOne"});
    EXPECT_FALSE(IsModified());
}

TEST_F(TDesignPanes, AcceleratorsLeadIntoThePanes) {
    const auto press = [](QWidget& from, Qt::Key key) { QTest::keyClick(&from, key, Qt::AltModifier); };
    const auto isReached = [](const QWidget& widget) {
        return QTest::qWaitFor([&] { return widget.hasFocus(); });
    };
    ClickPicture(kButtonPlace);
    press(Picture(), Qt::Key_M);
    EXPECT_TRUE(isReached(Tree()));
    press(Tree(), Qt::Key_L);
    EXPECT_TRUE(isReached(Find<QTreeWidget>("palette")));
    press(Find<QTreeWidget>("palette"), Qt::Key_M);
    EXPECT_TRUE(isReached(Tree()));
    QTest::keyClick(&Tree(), Qt::Key_F11);
    EXPECT_TRUE(isReached(Inspector()));
    press(Inspector(), Qt::Key_X);
    EXPECT_TRUE(isReached(*Window->Tabs().CurrentText()));
    press(*Window->Tabs().CurrentText(), Qt::Key_I);
    EXPECT_TRUE(isReached(Picture()));
    auto& languages = Find<QComboBox>("formLanguages");
    ExpectSoon([&] { return languages.isVisible(); });
    press(Picture(), Qt::Key_G);
    EXPECT_TRUE(isReached(languages));
    Click("Find1");
    Click("showPicture");
    EXPECT_TRUE(Find<QWidget>("Findbar").isVisible() && Tree().isVisible());
    EXPECT_EQ(DoubleAccelerators(*Window), "");
}

TEST_F(TDesignPanes, AListOffersValues) {
    ClickTree(Tree(), "WideLabel");
    ClickRow("Visible", 0);
    QTest::keyClick(&Inspector(), Qt::Key_F2);
    auto* box = Inspector().viewport()->findChild<QComboBox*>();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->itemText(0) + box->itemText(1), "FalseTrue");
    box->showPopup();
    auto* list = box->view();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualRect(box->model()->index(0, 0)).center());
    ExpectSoon([&] { return Value("Visible") == QString("False"); });
    ClickTree(Tree(), "mlLang_AboutBox");
    TypeValue("Language", "German");
    ExpectSoon([&] { return Value("Language") == QString("German"); });
    ClickPicture(kButtonPlace);
    EXPECT_EQ(Value("Caption"), QString::fromUtf8("Schlie\u00dfen")) << "the form shows the language";
    Undo();
    EXPECT_EQ(Value("Caption"), "Close");
}

TEST_F(TDesignPanes, AnEllipsisOpensTheEditorOfTheProperty) {
    ClickTree(Tree(), "mlLang_AboutBox");
    User.On([](QWidget& window) {
        EXPECT_EQ(window.objectName(), "frmTransEditor");
        window.close();
    });
    ClickRow("Captions", 2);
    User.On([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Exclude from Translation");
        EXPECT_EQ(window.findChild<QTreeView*>("tree")->model()->index(0, 0).data(), "AboutBox");
        window.close();
    });
    ClickRow("ExcludedProperties", 2);
    ClickTree(Tree(), "combo");
    User.On([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "combo.Items");
        auto& lines = *window.findChild<QPlainTextEdit*>("mmLines");
        QTest::keyClicks(&lines, "German");
        QTest::keyClick(&lines, Qt::Key_Return);
        EXPECT_EQ(TextOf(window, "lblLines"), "2 lines");
        QTest::keyClick(&lines, Qt::Key_Return, Qt::ControlModifier);
    });
    ClickRow("Items", 0);
    QTest::keyClick(&Inspector(), Qt::Key_Return, Qt::ControlModifier);
    ExpectSoon([&] { return Value("Items") == QString("(2 lines)"); });
    Undo();
    EXPECT_EQ(Value("Items"), "(1 line)");
    EXPECT_FALSE(IsModified());
}

TEST_F(TDesignPanes, ADoubleClickOpensTheEditorOfTheComponent) {
    User.On([](QWidget& window) {
        EXPECT_EQ(window.objectName(), "frmTransEditor");
        window.close();
    });
    DoubleClickTree(Tree(), "mlLang_AboutBox");
    User.On([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Edit Language Settings");
        ClickItem(*window.findChild<QListWidget*>("lbLanguages"), 1);
        EXPECT_EQ(window.findChild<QSpinBox*>("edImage")->text(), "(No image)");
        Type(window, "edName", "Deutsch");
        QTest::keyClick(window.findChild<QSpinBox*>("edImage"), Qt::Key_Up);
        Press(window, "btOK");
    });
    ClickPicture({200, 30});
    QTest::mouseDClick(&Picture(), Qt::LeftButton, {}, {200, 30});
    ExpectSoon([&] { return FormText().find("DisplayText = 'Deutsch'") != std::string::npos; });
    EXPECT_NE(FormText().find("ImageIndex = 0"), std::string::npos);
    Undo();
    EXPECT_EQ(FormText().find("DisplayText"), std::string::npos);
    EXPECT_FALSE(IsModified());
}

TEST_F(TDesignPanes, MenusHoldTheVerbs) {
    User.Answer("Click \"Yes\" to exclude CloseButton from translations.", "Yes");
    ChooseFromMenu(Picture(), kButtonPlace, "Exclude from translation...");
    EXPECT_NE(FormText().find("'!CloseButton'"), std::string::npos);
    Undo();
    EXPECT_FALSE(IsModified());
    User.Answer("This will execute test for the selected dialog.", "OK");
    User.On([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Pick");
        window.close();
    });
    ClickTree(Tree(), "dlgOpen");
    ChooseFromMenu(*Tree().viewport(), Tree().visualItemRect(ItemOf(Tree(), "dlgOpen")).center(),
                   "Test TmlOpenDialog...");
    ClickPicture(kPanel);
    User.Answer("Click \"Yes\" to exclude SmallPanel from translations.", "Cancel");
    QTest::keyClick(&OpenMenu(Picture(), kPanel), Qt::Key_E);
    QApplication::processEvents();
    ChooseFromMenu(Picture(), kPanel, "Delete");
    EXPECT_EQ(FormText().find("WideLabel"), std::string::npos);
    Undo();
    EXPECT_NE(FormText().find("WideLabel"), std::string::npos);
    EXPECT_FALSE(IsModified());
}

TEST_F(TDesignPanes, ThePaletteFillsAndDeleteEmptiesTheForm) {
    Find<QTabWidget>("designTabs").setCurrentIndex(1);
    auto& palette = Find<QTreeWidget>("palette");
    DoubleClickTree(palette, "TmlTaskDialog");
    EXPECT_EQ(Title(), "mlTaskDialog1: TmlTaskDialog");
    EXPECT_NE(FormText().find("object mlTaskDialog1: TmlTaskDialog"), std::string::npos);
    ClickTree(palette, "TmlLangDispatcher");
    QTest::keyClick(&palette, Qt::Key_Return);
    ExpectSoon([&] { return Title() == QString("mlLangDispatcher1: TmlLangDispatcher"); });
    Undo();
    EXPECT_EQ(FormText().find("TmlLangDispatcher"), std::string::npos);
    ClickPicture(kButtonPlace);
    QTest::keyClick(&Picture(), Qt::Key_Delete);
    ExpectSoon([&] { return FormText().find("CloseButton: TButton") == std::string::npos; });
    Undo();
    EXPECT_NE(FormText().find("CloseButton: TButton"), std::string::npos);
    Undo();
    EXPECT_EQ(FormText().find("mlTaskDialog1"), std::string::npos);
    EXPECT_FALSE(IsModified());
}

}  // namespace
}  // namespace tml
