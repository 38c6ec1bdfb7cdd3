#include <fstream>

#include "desktop/Deskfixture.h"
#include "windows/Filedialogs.h"

namespace tml {
namespace {

using TFileDialogs = TDesktop;

TEST_F(TFileDialogs, SeveralFilesThatExist) {
    OpenOrchard();
    std::ofstream(Path("orchard/Other.pas")) << "unit Other;";
    TOpenDialog files;
    files.Filter = "Pascal Files(*.pas)|*.pas|All files|*.*";
    files.FileMustExist = true;
    files.AllowMultiSelect = true;
    files.Files = {Path("orchard/Orchard.dpr")};
    User.On([this](QWidget& window) {
        auto& dialog = dynamic_cast<QFileDialog&>(window);
        EXPECT_EQ(dialog.nameFilters(), QStringList({"Pascal Files (*.pas)", "All files (*)"}));
        Type(dialog, "fileNameEdit", "none.pas");
        User.On([](QWidget& message) { message.close(); });
        QTest::keyClick(&EditOf(dialog, "fileNameEdit"), Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        Activate(dialog);
        Type(dialog, "fileNameEdit", "\"Main.pas\" \"Other.pas\"");
        QTest::keyClick(&EditOf(dialog, "fileNameEdit"), Qt::Key_Return);
    });
    EXPECT_EQ(Window->Host().Host().Dialogs->ShowModal(files), mrOk);
    EXPECT_EQ(files.Files, (std::vector{Path("orchard/Main.pas"), Path("orchard/Other.pas")}));
    User.On([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(Window->Host().Host().Dialogs->ShowModal(files), mrCancel);
}

TEST_F(TFileDialogs, AFileToWriteAndAFolder) {
    OpenOrchard();
    TSaveDialog save;
    save.DefaultExt = "mll";
    save.Filter = "TmlLang text files (*.mll)|*.mll|TmlLang binary files (*.mlb)|*.mlb";
    save.FilterIndex = 2;
    save.OverwritePrompt = true;
    std::ofstream(Path("orchard/There.mlb")) << "x";
    User.On([this](QWidget& window) {
        auto& dialog = dynamic_cast<QFileDialog&>(window);
        EXPECT_EQ(dialog.selectedNameFilter(), "TmlLang binary files (*.mlb)");
        Type(dialog, "fileNameEdit", "There");
        User.On([](QWidget& question) { QTest::keyClick(&question, Qt::Key_Escape); });
        QTest::keyClick(&EditOf(dialog, "fileNameEdit"), Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        Activate(dialog);
        Type(dialog, "fileNameEdit", "New");
        QTest::keyClick(&EditOf(dialog, "fileNameEdit"), Qt::Key_Return);
    });
    EXPECT_EQ(Window->Host().Host().Dialogs->ShowModal(save), mrOk);
    EXPECT_EQ(save.Files, std::vector{Path("orchard/New.mlb")});
    EXPECT_EQ(save.FilterIndex, 2);

    TSelectDirectory folder;
    folder.Folder = Path("orchard");
    User.On([](QWidget& dialog) { QTest::keyClick(&EditOf(dialog, "fileNameEdit"), Qt::Key_Return); });
    EXPECT_EQ(Window->Host().Host().Dialogs->ShowModal(folder), mrOk);
    EXPECT_EQ(folder.Folder, Path("orchard"));
}

}  // namespace
}  // namespace tml
