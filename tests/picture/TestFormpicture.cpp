#include <QImage>
#include <filesystem>
#include <gtest/gtest.h>

#include "support/Workfolder.h"

namespace tml {
namespace {

namespace fs = std::filesystem;

struct TFormPictures : testing::Test {
    TFormPictures() { Work.Copy("examples/harbour", "harbour"); }

    /// The picture, and what was said of it in Messages.
    QImage Draw(const std::string& arguments) {
        Run("> form.png", arguments);
        return QImage((Work / "form.png").c_str());
    }
    int Run(const std::string& to, const std::string& arguments, const std::string& before = {}) {
        const std::string command =
            before + Work.Program() + " form-picture harbour/Harbour.lpi " + arguments;
        const auto run = Work.Run(command + " " + to + " 2>messages");
        Messages = BytesOf(Work / "messages");
        return run.Exit;
    }

    TWorkFolder Work;
    std::string Messages;
};

TEST_F(TFormPictures, AFormIsDrawnInItsLanguagesAndColours) {
    const QImage plain = Draw("AboutDialog");
    EXPECT_EQ(Messages, "");
    ASSERT_GT(plain.width(), 200);
    EXPECT_EQ(plain, Draw("aboutdialog --language English")) << "the active language";
    const QImage german = Draw("AboutDialog --language German");
    EXPECT_EQ(german.size(), plain.size());
    EXPECT_NE(german, plain);
    EXPECT_EQ(Draw("AboutDialog --scale 2").size(), plain.size() * 2);
    const QImage dark = Draw("AboutDialog --dark");
    EXPECT_LT(qGray(dark.pixel(2, 2)), qGray(plain.pixel(2, 2)));
}

TEST_F(TFormPictures, FormsAreMirroredWithTheirLanguageAndFramesHaveTheirOwnTexts) {
    const QImage english = Draw("ShipDialog");
    const QImage hebrew = Draw("ShipDialog --language Hebrew");
    ASSERT_EQ(english.size(), QSize(360, 230));
    constexpr QPoint kField(300, 25), kMirrored(59, 25);
    EXPECT_NE(english.pixel(kField), english.pixel(kMirrored));
    EXPECT_EQ(english.pixel(kField), hebrew.pixel(kMirrored));
    EXPECT_EQ(english.pixel(kMirrored), hebrew.pixel(kField));
    const QRect onFrame(70, 115, 270, 25);
    EXPECT_NE(english.copy(onFrame), Draw("ShipDialog --language German").copy(onFrame));
}

TEST_F(TFormPictures, WithoutWhatItNeedsThereIsAMessageAndNoPicture) {
    EXPECT_EQ(Run("> /dev/full", "AboutDialog"), 2);
    EXPECT_EQ(Messages.find("tmllang: standard output: cannot be written"), 0U) << Messages;

    WriteBytes(Work / "fonts.conf", "<fontconfig></fontconfig>");
    EXPECT_EQ(Run("> form.png", "AboutDialog", "FONTCONFIG_FILE=\"$PWD/fonts.conf\" "), 2);
    EXPECT_NE(Messages.find("there are no fonts on this machine"), std::string::npos) << Messages;

    fs::create_directory(Work / "alone");
    fs::copy(TML_BIN "/tmllang", Work / "alone");
    const auto run =
        Work.Run("alone/tmllang --config config form-picture harbour/Harbour.lpi AboutDialog 2>&1 >form.png");
    EXPECT_EQ(run.Exit, 2);
    EXPECT_NE(run.Output.find("the program tmllang-draw-form, which draws forms, is not there"),
              std::string::npos)
        << run.Output;
    EXPECT_EQ(BytesOf(Work / "form.png"), "");
}

struct TOddForm {
    const char* Form;  ///< without its head
    QSize Size;
    QPoint Red;  ///< a point of its picture; none for a left below 0
    const char* Messages;
};

std::string Controls(int count) {
    std::string controls;
    for (int i = 0; i < count; ++i)
        controls += "object L" + std::to_string(i) + ": TLabel Caption = 'x' end\n";
    return controls;
}

TEST_F(TFormPictures, OddFormsAreDrawnAsWellAsPossibleAndWhatIsOddIsSaid) {
    // The one font of which every machine has the same characters.
    WriteBytes(Work / "fonts.conf", "<fontconfig><dir>/usr/share/fonts/truetype/dejavu</dir></fontconfig>");
    const std::string red = "Color = clRed BevelOuter = bvNone end end\n";
    const std::string many = "Width = 90 Height = 40 " + Controls(5000) + "object P: TPanel " + red;
    const TOddForm kForms[] = {
        {"Width = 1000000000 Height = 40 Color = clRed end",
         {8192, 40},
         {8191, 39},
         "Of 100000 x 40 pixels only 8192 x 8192 are drawn\n"},
        {"Width = -7 Height = 0 Color = clRed end", {1, 1}, {-1, -1}, ""},
        {"Width = 90 Height = 40 object P: TPanel Left = -50 Top = -3 Width = 70 Height = 20 Color = clRed "
         "end end",
         {90, 40},
         {19, 16},
         ""},
        {"Width = 90 Height = 40 object P: TPanel AnchorSideLeft.Control = Q Color = clRed end "
         "object Q: TPanel AnchorSideLeft.Control = P Left = 5 end end",
         {90, 40},
         {8, 8},
         "Circle of anchors at Q\n"},
        {"Width = 90 Height = 40 Font.Name = 'Nowhere' Color = clRed end",
         {90, 40},
         {3, 3},
         "Another font stands for Nowhere\n"},
        {"Width = 90 Height = 40 Color = clRed object L: TLabel Top = 20 Caption = #55308#56320'!' end "
         "object M: TLabel Caption = 'm'#233 end end",
         {90, 40},
         {80, 39},
         "No font has all characters of the texts of L\n"},
        {many.c_str(), {90, 40}, {80, 39}, ""},
    };
    for (const TOddForm& odd : kForms) {
        WriteBytes(Work / "form", std::string("object F: TF ") + odd.Form + "\n");
        const auto run = Work.Run("FONTCONFIG_FILE=\"$PWD/fonts.conf\" '" TML_BIN
                                  "/tmllang-draw-form' <form 2>messages >form.png");
        const QImage picture((Work / "form.png").c_str());
        const std::string shown = std::string(odd.Form).substr(0, 80);
        EXPECT_EQ(run.Exit, 0) << shown;
        EXPECT_EQ(picture.size(), odd.Size) << shown;
        EXPECT_EQ(BytesOf(Work / "messages"), odd.Messages) << shown;
        if (odd.Red.x() < 0) continue;
        EXPECT_EQ(picture.pixelColor(odd.Red), QColor(Qt::red)) << shown;
    }
    WriteBytes(Work / "form", "object F: TF\n  Width = \nend\n");
    EXPECT_EQ(Work.Run("'" TML_BIN "/tmllang-draw-form' <form 2>messages").Exit, 2);
    EXPECT_EQ(BytesOf(Work / "messages").find("standard input:2: "), 0U) << BytesOf(Work / "messages");
}

}  // namespace
}  // namespace tml
