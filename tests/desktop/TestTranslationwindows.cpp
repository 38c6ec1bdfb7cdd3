#include "desktop/Deskfixture.h"

namespace tml {
namespace {

struct TTranslationWindows : TDesktop {
    void FromSaveLoad(const QString& entry) {
        ChooseFromBar(*Dock().findChild<QMenuBar*>(), "File", entry, "Save/Load Translation");
    }
};

TEST_F(TTranslationWindows, ChosenPropertiesAreSavedFromTheirMenu) {
    OpenOrchard();
    User.On([](QWidget& chooser) {
        EXPECT_EQ(chooser.windowTitle(), "Selecting Properties");
        EXPECT_EQ(TextOf(chooser, "lblInstruction"), "Please select properties that will be saved to file.");
        EXPECT_EQ(TextOf(chooser, "lblSelected"), "&Selected properties:");
        auto& available = *chooser.findChild<QListWidget*>("lbComps");
        EXPECT_EQ(available.item(available.count() - 1)->text(), "ExtendedTranslations");
        for (int row = 0; row < available.count(); ++row)
            if (available.item(row)->text() == "Strings") ClickItem(available, row);
        Press(chooser, "btAdd");
        EXPECT_EQ(chooser.findChild<QListWidget*>("lbSelected")->count(), 1);
        Press(chooser, "btOK");
    });
    User.ChooseFile(ToQt(Path("orchard/strings.mll")));
    User.AnswerInput("|");
    FromSaveLoad("Save Project Properties...");
    const std::string written = OnDisk("orchard/strings.mll");
    EXPECT_NE(written.find("IDS_0=Orchard order book|Orchard-Bestellbuch"), std::string::npos) << written;
    EXPECT_EQ(written.find("Captions"), std::string::npos) << written;
}

}  // namespace
}  // namespace tml
