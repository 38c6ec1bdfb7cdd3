#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <fstream>

#include "desktop/Deskfixture.h"

namespace tml {
namespace {

constexpr const char* kDrawnForm = R"(object AboutBox: TAboutBox
  ClientHeight = 140
  ClientWidth = 260
  Font.Name = 'No such font'
  object NoteLabel: TLabel
    Left = 16
    Top = 16
    Width = 90
    Height = 25
    AutoSize = False
    Caption = 'Note'
    Color = clRed
  end
  object SmallPanel: TPanel
    Left = 16
    Top = 50
    Width = 100
    Height = 40
    Color = 65280
    object WideLabel: TLabel
      Left = 50
      Top = 10
      Width = 150
      Height = 20
      AutoSize = False
      Color = clBlue
      ParentColor = False
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
    Language = 'German'
    Captions.Strings = (
      'CloseButton.Caption'#1'Close this window'#1'Close')
  end
end
)";

struct TFormPage : TDesktop {
    void ViewForm() {
        std::ofstream(Path("orchard/forms/About.dfm")) << kDrawnForm;
        OpenOrchard();
        SelectForm("AboutBox");
        auto& forms = Find<QTableView>("lvFormNames");
        ChooseFromMenu(*forms.viewport(), forms.visualRect(forms.currentIndex()).center(), "View Form");
    }
    QImage Picture() { return Find<QWidget>("formPicture").grab().toImage(); }
    /// Around what is not of the colour that is in the upper left corner.
    static QRect Inked(const QImage& picture, const QRect& place) {
        QRect inked;
        for (int y = place.top(); y <= place.bottom(); ++y)
            for (int x = place.left(); x <= place.right(); ++x)
                if (picture.pixel(x, y) != picture.pixel(place.topLeft())) inked |= QRect(x, y, 1, 1);
        return inked;
    }
};

constexpr QRect kButton(65, 108, 130, 17);

TEST_F(TFormPage, ControlsStandInTheirPlacesAndWithinTheirParents) {
    ViewForm();
    const QImage picture = Picture();
    ASSERT_EQ(picture.size(), QSize(260, 140));
    const QRgb paper = Window->palette().color(QPalette::Window).rgb();
    const struct {
        QPoint Place;
        QRgb Colour;
        const char* What;
    } kPixels[] = {
        {{15, 28}, paper, "before the label"},
        {{104, 39}, qRgb(255, 0, 0), "the label's end"},
        {{106, 28}, paper, "behind the label"},
        {{20, 55}, qRgb(0, 255, 0), "the panel"},
        {{110, 70}, qRgb(0, 0, 255), "what the panel holds"},
        {{125, 70}, paper, "what it holds, outside of it"},
        {{66, 110}, Window->palette().color(QPalette::Button).rgb(), "the button"},
    };
    for (const auto& pixel : kPixels)
        EXPECT_EQ(picture.pixel(pixel.Place), pixel.Colour) << pixel.What;
    const QPoint off = Inked(picture, kButton).center() - kButton.center();
    EXPECT_LE(off.manhattanLength(), 4) << "its text in the middle";
    EXPECT_TRUE(Find<QLabel>("formNotes").text().contains("No such font"));
}

TEST_F(TFormPage, AnotherLanguageIsDrawnAndTheFormStaysAsItIs) {
    ViewForm();
    auto& languages = Find<QComboBox>("formLanguages");
    EXPECT_EQ(languages.currentText(), "German") << "the active one first";
    const QRect before = Inked(Picture(), kButton);
    EXPECT_GT(before.width(), 10);
    QTest::keyClick(&languages, Qt::Key_Down);
    EXPECT_EQ(languages.currentText(), "English");
    const QRect after = Inked(Picture(), kButton);
    EXPECT_GT(after.width(), before.width() * 2) << "'Close this window' instead of 'Close'";
    EXPECT_LE(qAbs(after.center().x() - kButton.center().x()), 2);
    EXPECT_FALSE(Window->Host().Modules().FindFormModule("AboutBox")->GetModified());
    Window->Runner().Run([] {});
    EXPECT_EQ(languages.currentText(), "English") << "whatever else is done";
}

TEST_F(TFormPage, ItsTextIsBesideThePictureAndAMessageLeadsThere) {
    ViewForm();
    auto& text = Find<QWidget>("formText");
    EXPECT_FALSE(text.isVisible());
    Click("showText");
    EXPECT_TRUE(text.isVisible());
    EXPECT_TRUE(Window->Tabs().CurrentText()->text().startsWith("object AboutBox: TAboutBox"));
    Click("showPicture");
    EXPECT_FALSE(text.isVisible());
    GoTo("orchard/forms/About.dfm", 5);
    EXPECT_TRUE(text.isVisible());
}

}  // namespace
}  // namespace tml
