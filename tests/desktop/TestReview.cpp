#include <QLineEdit>

#include "desktop/Deskfixture.h"
#include "desktop/Rowtable.h"

namespace tml {
namespace {

const std::string kKey = "\\Software\\Velmora\\TmlLang\\FoundStrings";

/// The review of the sample's main form, given up at its end.
struct TReview : TDesktop {
    void Review(const std::function<void(QWidget& review)>& work) {
        User.On([this, work](QWidget& review) {
            work(review);
            User.Answer("This will close the Found Strings form! Continue?", "Yes");
            review.close();
        });
        Click("SourceWithForm1");
    }
    static TRowTable& Rows(QWidget& review) { return *review.findChild<TRowTable*>("sgStrings"); }
    static void Press(QWidget& review, Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
        Activate(review);
        QTest::keyClick(review.focusWidget(), key, with);
    }
};

TEST_F(TReview, ThePreviewKeepsItsHeight) {
    OpenOrchard();
    IRegistry& registry = *Window->Host().Host().Registry;
    registry.WriteInteger(kKey, "PreviewHeight", 150);
    for (const int height : {620, 700}) {
        SelectForm("MainForm");
        Review([height](QWidget& review) {
            EXPECT_NEAR(review.findChild<QWidget*>("previewPane")->height(), 150, 2);
            review.resize(900, height);
        });
        EXPECT_NEAR(registry.ReadInteger(kKey, "PreviewHeight").value_or(0), 150, 2);
    }
}

}  // namespace
}  // namespace tml
