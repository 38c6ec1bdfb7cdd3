#include <gtest/gtest.h>

#include "base/Format.h"
#include "forms/Formtree.h"
#include "layout/Layouttesting.h"
#include "support/Corpora.h"
#include "support/Growth.h"

namespace tml {
namespace {

using std::string;

struct TPlacesCase {
    const char* Name;
    const char* Inside;  ///< what stands in a form with a client area of 200 by 100
    const char* Places;
};

string Around(const string& inside) {
    return "object Form1: TForm1\n  Left = 40\n  Top = 30\n  Width = 200\n  Height = 100\n  ClientWidth = "
           "200\n"
           "  ClientHeight = 100\n" +
           inside + "\nend\n";
}

class FormLayout : public testing::TestWithParam<TPlacesCase> {};

TEST_P(FormLayout, PutsControlsWhereTheRunningFormDoes) {
    EXPECT_EQ(TLaidOut(Around(GetParam().Inside)).Places(), GetParam().Places);
}

const TPlacesCase kCases[] = {
    {"AsDesigned", "object A: TButton Left = 8 Top = 16 Width = 70 Height = 24 end", "A 8,16 70x24\n"},
    {"ClassSizes", "object A: TButton end object B: TMemo end", "A 0,0 75x25\nB 0,0 150x90\n"},
    {"UnknownClassesAreBoxes",
     "object A: TGauge Left = 3 Width = 50 Height = 9 end object B: TTimer Left = 5 Top = 6 end",
     "A 3,0 50x9\n"},
    {"AlignTakesFromTheRest",
     "object B: TPanel Align = alTop Top = 20 Height = 20 end object A: TPanel Align = alTop Height = 20 end "
     "object C: TPanel Align = alLeft Width = 30 end object D: TMemo Align = alClient end",
     "B 0,20 200x20\nA 0,0 200x20\nC 0,40 30x60\nD 30,40 170x60\n"},
    {"OutermostOnTheFarSidesFirst",
     "object A: TPanel Align = alBottom Top = 60 Height = 10 end object B: TPanel Align = alBottom Top = 90 "
     "Height = 10 end object C: TPanel Align = alRight Left = 180 Width = 20 end",
     "A 0,80 200x10\nB 0,90 200x10\nC 180,0 20x80\n"},
    {"AlignAtOnePlacePutsTheLaterOneOutside",
     "object A: TPanel Align = alTop Height = 20 end object B: TPanel Align = alTop Height = 30 end",
     "A 0,30 200x20\nB 0,0 200x30\n"},
    {"SpacesBesideEachOtherAreShared",
     "object A: TPanel Align = alTop Height = 20 BorderSpacing.Around = 6 end "
     "object B: TMemo Align = alClient BorderSpacing.Around = 4 end",
     "A 6,6 188x20\nB 4,32 192x64\n"},
    {"HiddenOnesTakeNoRoom",
     "object A: TPanel Align = alTop Height = 20 Visible = False end object B: TMemo Align = alClient end",
     "A 0,0 170x20\nB 0,0 200x100\n"},
    {"AnchorsKeepTheDistanceOfTheDesign",
     "object P: TPanel Align = alClient BevelOuter = bvNone ClientWidth = 100 ClientHeight = 50 "
     "object A: TButton Left = 70 Width = 20 Height = 20 Anchors = [akTop, akRight] end "
     "object B: TEdit Left = 10 Top = 5 Width = 80 AutoSize = False Height = 20 Anchors = [akLeft, akTop, "
     "akRight, "
     "akBottom] end object C: TButton Left = 40 Top = 20 Width = 20 Height = 10 Anchors = [] end end",
     "P 0,0 200x100\nA 170,0 20x20\nB 10,5 180x70\nC 90,45 20x10\n"},
    {"ConstraintsHold",
     "object A: TPanel Align = alTop Height = 20 Constraints.MaxWidth = 150 Constraints.MinHeight = 30 end",
     "A 0,0 150x30\n"},
    {"SidesAreTiedToSiblings",
     "object B: TButton AnchorSideLeft.Control = A AnchorSideLeft.Side = asrBottom AnchorSideTop.Control = A "
     "AnchorSideTop.Side = asrCenter AnchorSideRight.Control = Owner AnchorSideRight.Side = asrBottom Height "
     "= 10 "
     "Anchors = [akTop, akLeft, akRight] BorderSpacing.Around = 5 end "
     "object A: TButton Left = 10 Top = 20 Width = 40 Height = 30 BorderSpacing.Right = 8 end",
     "B 58,30 137x10\nA 10,20 40x30\n"},
    {"ATieToWhatIsHiddenGoesOn",
     "object A: TButton Left = 10 Top = 7 Width = 40 end object B: TButton AnchorSideLeft.Control = A "
     "AnchorSideLeft.Side = asrBottom Visible = False end object C: TButton AnchorSideLeft.Control = B end",
     "A 10,7 40x25\nB 0,0 75x25\nC 50,0 75x25\n"},
    {"LabelsTakeTheirText",
     "object A: TLabel Caption = '&Name && more' end object B: TLabel Caption = 'one two' Width = 20 Anchors "
     "= "
     "[akLeft, akTop, akRight] AnchorSideRight.Control = C WordWrap = True end object C: TButton Left = 30 "
     "end",
     "A 0,0 66x15\nB 0,0 30x30\nC 30,0 75x25\n"},
    {"FontsAreHandedDown",
     "object P: TPanel Align = alClient Font.Height = -20 ParentFont = False object A: TLabel Caption = 'ab' "
     "end "
     "object B: TLabel Caption = 'ab' Font.Height = -8 ParentFont = False end end",
     "P 0,0 200x100\nA 0,0 20x25\nB 0,0 8x10\n"},
    {"APanelTakesItsChildren",
     "object P: TPanel Left = 10 Top = 10 AutoSize = True BevelOuter = bvNone ChildSizing.LeftRightSpacing = "
     "4 "
     "object A: TButton Left = 30 Top = 20 Width = 40 Height = 20 end "
     "object B: TButton Left = 80 Top = 30 Width = 40 Height = 20 end end",
     "P 10,10 98x30\nA 4,0 40x20\nB 54,10 40x20\n"},
    {"AGroupKeepsItsTitleFree",
     "object G: TGroupBox Align = alClient Caption = 'Title' object A: TMemo Align = alClient end end",
     "G 0,0 200x100\nA 0,0 196x83\n"},
    {"PagesFillTheirControl",
     "object P: TPageControl Align = alClient ActivePage = A object A: TTabSheet Caption = 'One' end "
     "object B: TTabSheet TabVisible = False end end",
     "P 0,0 200x100\nA 0,0 196x71\nB 0,0 196x71\n"},
    {"ItemsOfAGroupStandInColumns",
     "object G: TRadioGroup Width = 200 Height = 100 Columns = 2 Items.Strings = ( 'a' 'bb' 'c' ) end",
     "G 0,0 200x100\nG[0] 6,14 29x19\nG[1] 95,14 35x19\nG[2] 6,62 29x19\n"},
    {"ChildrenAreSpread",
     "object P: TPanel Align = alClient BevelOuter = bvNone ChildSizing.Layout = "
     "cclLeftToRightThenTopToBottom "
     "ChildSizing.ControlsPerLine = 2 ChildSizing.EnlargeHorizontal = crsHomogenousChildResize "
     "ChildSizing.HorizontalSpacing = 10 object A: TButton end object B: TButton end object C: TButton end "
     "end",
     "P 0,0 200x100\nA 0,0 95x25\nB 105,0 95x25\nC 0,25 95x25\n"},
    {"ButtonsStandInRows",
     "object T: TToolBar Width = 60 Align = alLeft Visible = False end "
     "object B: TToolBar AutoSize = True EdgeBorders = [] ButtonWidth = 90 "
     "object X: TToolButton Left = 5 end object Y: TToolButton Left = 100 Style = tbsSeparator end "
     "object Z: TToolButton Left = 110 end object E: TEdit Left = 150 Width = 40 end end",
     "T 0,0 60x32\nB 0,0 200x45\nX 1,0 90x22\nY 91,0 8x22\nZ 99,0 90x22\nE 1,22 40x23\n"},
    {"FromRightToLeftColumnsAreTurned",
     "BiDiMode = bdRightToLeft object G: TRadioGroup Width = 200 Height = 100 Columns = 2 Items.Strings = ( "
     "'a' 'bb' "
     "'c' ) end",
     "G 0,0 200x100\nG[0] 161,14 29x19\nG[1] 66,14 35x19\nG[2] 161,62 29x19\n"},
    {"InAMirrorAllButCellsAreTurnedOnce",
     "BiDiMode = bdRightToLeft MirrorLayout = True object A: TButton Left = 8 Width = 50 end "
     "object P: TPanel Align = alLeft Width = 60 BevelOuter = bvNone object B: TButton Left = 5 Width = 20 "
     "end "
     "end inline F: TFrame1 Left = 60 Width = 50 Height = 9 MirrorLayout = False object C: TButton Left = 4 "
     "end end object G: TRadioGroup Left = 100 Width = 100 Height = 50 Columns = 2 Items.Strings = ( 'a' 'b' "
     ") "
     "end",
     "A 142,0 50x25\nP 140,0 60x100\nB 35,0 20x25\nF 90,0 50x9\nC 4,0 75x25\nG 0,0 100x50\n"
     "G[0] 61,13 29x19\nG[1] 19,13 29x19\n"},
    {"TheTabsOfPagesTakeRoomAtTheirSide",
     "object P: TPageControl Width = 100 Height = 60 TabPosition = tpLeft object S: TTabSheet Caption = "
     "'Long' "
     "end end object Q: TPageControl Left = 100 Width = 100 Height = 60 TabPosition = tpBottom object T: "
     "TTabSheet Caption = 'T' end end",
     "P 0,0 100x60\nS 0,0 62x56\nQ 100,0 100x60\nT 0,0 96x31\n"},
    {"ActionsGiveCaptions",
     "object L: TActionList object X: TAction Caption = '&Long' end end object A: TCheckBox Action = X end "
     "inline F: TFrame1 Top = 30 Width = 90 Height = 50 object M: TActionList object X: TAction Caption = "
     "'No' end "
     "end object B: TCheckBox Action = X end end object T: TToolBar Align = alBottom ShowCaptions = True "
     "object C: "
     "TToolButton Action = X end end",
     "A 0,0 47x19\nF 0,30 90x50\nB 0,0 35x19\nT 0,68 200x32\nC 1,2 32x22\n"},
    {"OnAFrameTheOwnerIsTheFrame",
     "inline F: TFrame1 Left = 20 Width = 100 Height = 50 object A: TButton Anchors = [akTop, akRight] "
     "AnchorSideRight.Control = Owner AnchorSideRight.Side = asrBottom end end",
     "F 20,0 100x50\nA 25,0 75x25\n"},
    {"BarsTakeRoom",
     "object S: TScrollBox Align = alClient BorderStyle = bsNone object A: TPanel Align = alTop Height = 130 "
     "end end",
     "S 0,0 200x100\nA 0,0 183x130\n"},
    {"MarksBarsAndArrowsAreNoSmallerThanTheThemeMakesThem",
     "object A: TCheckBox Caption = 'x' Font.Height = -4 end object S: TStatusBar Font.Height = -40 end "
     "object C: TComboBox Font.Height = -4 end object L: TComboBox Style = csDropDownList Font.Height = -4 "
     "Items.Strings = ('a') end",
     "A 0,0 25x19\nS 0,81 200x19\nC 0,0 100x25\nL 0,0 100x23\n"},
    {"AToolButtonHasTheTextAndThePictureOfItsAction",
     "object L: TActionList object X: TAction Caption = 'Hi' ImageIndex = 1 end end object I: TImageList "
     "Width = 20 end object T: TToolBar Height = 26 Images = I List = True ShowCaptions = True object B: "
     "TToolButton Action = X end object D: TToolButton Caption = 'Hi' Left = 50 Style = tbsDropDown end end",
     "T 0,0 200x26\nB 1,2 45x22\nD 46,2 35x22\n"},
    {"AMenuBarTakesRoom",
     "Menu = M object M: TMainMenu object I: TMenuItem Caption = 'File' end end object A: TMemo Align = "
     "alClient end",
     "A 0,0 200x75\n"},
};

INSTANTIATE_TEST_SUITE_P(Cases, FormLayout, ::testing::ValuesIn(kCases),
                         [](const auto& info) { return info.param.Name; });

TEST(FormLayoutScaling, FormsAreScaledFromTheirResolutionToTheScreens) {
    const string form =
        "object F: TF DesignTimePPI = 120 Width = 250 Height = 125 object A: TButton Left = 10 "
        "Top = 20 Width = 100 Height = 40 Font.Height = -15 Anchors = [akTop, akRight] end end";
    EXPECT_EQ(TLaidOut(form).Places(), "A 8,16 80x32\n");
    EXPECT_EQ(TLaidOut(form).Layout.Items[1].Font.Height, 12);
    EXPECT_EQ(TLaidOut(form, {TLayoutLook::Lcl, 96, false}).Places(), "A 10,20 100x40\n");
    EXPECT_EQ(TLaidOut(form, {TLayoutLook::Lcl, 240, true}).Places(), "A 20,40 200x80\n");
}

TEST(FormLayoutLooks, TheOlderLibraryHasItsOwnMeasures) {
    const string inside =
        "Menu = M object M: TMainMenu object I: TMenuItem end end object G: TGroupBox Width = 100 Height = "
        "50 "
        "Caption = 'G' object A: TPanel Align = alTop Height = 10 end end object P: TPageControl Top = 50 "
        "Width = 100 "
        "Height = 40 object S: TTabSheet end end object C: TCheckBox Left = 150 Width = 40 Height = 17 end "
        "object T: TToolBar Align = alBottom object X: TToolButton Width = 9 Style = tbsSeparator end "
        "object Y: TToolButton end end";
    const TLaidOut whole(Around(inside), {TLayoutLook::Vcl});
    EXPECT_EQ(whole.Places(),
              "G 0,0 100x50\nA 2,15 96x10\nP 0,50 100x40\nS 0,0 92x10\nC 150,0 40x17\n"
              "T 0,68 200x32\nX 0,0 9x22\nY 9,0 23x22\n");
    EXPECT_EQ(whole.Layout.Items[0].Place, (TLayoutRect{0, 0, 200, 122}));
    const TLaidOut framed("object F: TF Width = 216 Height = 139 PixelsPerInch = 192 end",
                          {TLayoutLook::Vcl});
    EXPECT_EQ(framed.Layout.Items[0].Place, (TLayoutRect{0, 0, 100, 50}));
    const TLaidOut frame("object F: TF Width = 161 Height = 120 TabOrder = 0 end", {TLayoutLook::Vcl});
    EXPECT_EQ(frame.Layout.Items[0].Place, (TLayoutRect{0, 0, 161, 120})) << "a frame has no window";
}

TEST(FormLayoutDrawing, ItemsSayWhatIsSeenAndHow) {
    const TLaidOut laidOut(Around(
        "Menu = M object M: TMainMenu object I: TMenuItem Caption = '&File' end end "
        "object P: TPageControl Left = 50 Top = 10 Width = 100 Height = 60 ActivePage = B object A: "
        "TTabSheet "
        "Caption = 'One' object X: TButton end end object B: TTabSheet Caption = 'Two' object Y: TCheckBox "
        "Caption = 'On' Left = 70 Checked = True Enabled = False end end end"));
    const std::vector<TLayoutItem>& items = laidOut.Layout.Items;
    ASSERT_EQ(items.size(), 6U);
    EXPECT_EQ(items[0].Parts[0].Text, "&File");
    EXPECT_EQ(items[1].Place, (TLayoutRect{50, 35, 100, 60}));
    EXPECT_EQ(items[1].Parts[1].Text, "Two");
    EXPECT_TRUE(items[1].Parts[1].IsOn);
    EXPECT_EQ(items[3].Node->Name, "X");
    EXPECT_EQ(items[3].Seen.Width, 0);
    const TLayoutItem& box = items[5];
    EXPECT_EQ(box.Kind, TLayoutKind::CheckBox);
    EXPECT_EQ(box.Place, (TLayoutRect{122, 62, 35, 19}));
    EXPECT_EQ(box.Seen, (TLayoutRect{122, 62, 26, 19}));
    EXPECT_EQ(box.Text, "On");
    EXPECT_TRUE(box.IsOn);
    EXPECT_FALSE(box.Enabled);
}

TEST(FormLayoutDrawing, TabsStandAtTheirSideAndButtonsShowWhatTheirBarSays) {
    const TLaidOut laidOut(Around(
        "object P: TPageControl Width = 100 Height = 60 TabPosition = tpRight object S: TTabSheet Caption = "
        "'Long' end object U: TTabSheet Caption = 'T' end end object I: TImageList Width = 20 end "
        "object B: TToolBar Top = 70 Align = alBottom Images = I object X: TToolButton Caption = 'Hid' "
        "ImageIndex = 2 "
        "end end object V: TBitBtn Top = 70 Kind = bkOK Layout = blGlyphTop end"));
    const std::vector<TLayoutItem>& items = laidOut.Layout.Items;
    ASSERT_EQ(items.size(), 7U) << "without the list of images";
    EXPECT_EQ(items[1].Parts[0].Place, (TLayoutRect{64, 0, 36, 23}));
    EXPECT_EQ(items[1].Parts[1].Place, (TLayoutRect{64, 23, 36, 23}));
    EXPECT_EQ(items[5].Text, "");
    EXPECT_EQ(items[5].Glyph, (TLayoutSize{20, 16}));
    EXPECT_EQ(items[6].Glyph, (TLayoutSize{20, 20}));
    EXPECT_EQ(items[6].GlyphSide, TLayoutGlyphSide::Top);
}

TEST(FormLayoutDrawing, BandsReachFromOneControlOfACoolBarToTheNext) {
    const TLaidOut laidOut(
        Around("object C: TCoolBar Align = alNone AutoSize = False Width = 200 Height = 60 Bands = <item "
               "Control = A "
               "Text = 'First' end item Control = B end item Control = D end item Control = Gone end> "
               "object A: TPanel Left = 40 Top = 4 Width = 30 Height = 20 end "
               "object B: TPanel Left = 90 Top = 3 Width = 40 Height = 20 end "
               "object D: TPanel Left = 20 Top = 30 Width = 40 Height = 20 end end"));
    const std::vector<TLayoutPart>& bands = laidOut.Layout.Items[1].Parts;
    ASSERT_EQ(bands.size(), 3U);
    EXPECT_EQ(bands[0].Text, "First");
    EXPECT_EQ(bands[0].Place, (TLayoutRect{0, 4, 70, 20}));
    EXPECT_EQ(bands[1].Place, (TLayoutRect{70, 3, 130, 20}));
    EXPECT_EQ(bands[2].Place, (TLayoutRect{0, 30, 200, 20}));
}

TEST(FormLayoutDrawing, TheComponentsOfADataModuleAreIconsWithNames) {
    const string module =
        "object Data: TData Height = 40 Width = 50 object Q: TQuery Left = 60 Top = 10 object F: TField end "
        "end object LongName: TSource Left = 8 Top = 10 end object T: TTimer end end";
    const TLaidOut laidOut(module);
    EXPECT_EQ(laidOut.Places(), "Q 60,10 32x47\nLongName 0,10 48x47\nT 44,65 32x47\n");
    EXPECT_EQ(laidOut.Layout.Items[0].Place, (TLayoutRect{0, 0, 100, 120}));
    EXPECT_EQ(laidOut.Layout.Items[1].Kind, TLayoutKind::Component);
    EXPECT_EQ(TLaidOut("object F: TF Caption = '' object T: TTimer end end").Places(), "") << "a form";
}

TEST(FormLayoutBadInput, CirclesOfAnchorsAreBrokenAndNoted) {
    const TLaidOut laidOut(
        Around("object A: TButton AnchorSideLeft.Control = B Left = 5 end "
               "object B: TButton AnchorSideLeft.Control = A Left = 9 end "
               "object C: TButton AnchorSideTop.Control = C Top = 4 end"));
    EXPECT_EQ(laidOut.Layout.Notes, std::vector<string>{"Circle of anchors at B"});
    EXPECT_EQ(laidOut.Places(), "A 9,0 75x25\nB 9,0 75x25\nC 0,4 75x25\n");
}

TEST(FormLayoutBadInput, AbsurdValuesStayInRange) {
    const TLaidOut laidOut(Around(
        "object A: TPanel Width = 99999999999999 Height = -5 Align = alTop BorderSpacing.Around = 2147483647 "
        "end "
        "object B: TMemo Left = -99999 Width = 99999 Anchors = [akRight] Constraints.MinWidth = -7 end "
        "object C: TButton Align = 3 Anchors = 4 Font.Height = 'x' Caption = 5 Top = alTop end "
        "object D: TPanel PixelsPerInch = 0 ChildSizing.Layout = cclTopToBottomThenLeftToRight "
        "ChildSizing.ControlsPerLine = -3 object E: TButton Height = 88888888888 end end"));
    for (const TLayoutItem& item : laidOut.Layout.Items) {
        EXPECT_GE(item.Bounds.Width, 0) << item.Node->Name;
        EXPECT_GE(item.Bounds.Height, 0) << item.Node->Name;
        EXPECT_LE(std::max(item.Bounds.Width, item.Bounds.Height), 100'000) << item.Node->Name;
    }
    EXPECT_EQ(laidOut.Layout.Items.size(), 6U);
}

/// Chains of anchors, of alignments, of parents, a table and a bar, of so many controls.
string LargeForm(int size) {
    string inside;
    for (int i = 0; i < size; ++i)
        inside += Format(
            "object A%d: TButton AnchorSideTop.Control = A%d AnchorSideTop.Side = asrBottom end\n"
            "object B%d: TPanel Align = alTop Top = %d AutoSize = True end\n",
            i, i + 1, i, size - i);
    inside += "object T: TToolBar\n";
    for (int i = 0; i < size; ++i)
        inside += Format("object C%d: TToolButton Left = %d end\n", i, size - i);
    inside +=
        "end object P: TPanel AutoSize = True ChildSizing.Layout = cclLeftToRightThenTopToBottom "
        "ChildSizing.ControlsPerLine = 7 ChildSizing.EnlargeVertical = crsScaleChilds\n";
    for (int i = 0; i < size; ++i)
        inside += Format("object D%d: TEdit end\n", i);
    inside += "end\n";
    return Around(inside);
}

TEST(FormLayoutGrowth, TimeGrowsWithTheNumberOfControls) {
    ExpectLinearGrowth(150, [](int size) {
        return TLaidOut(LargeForm(size)).Layout.Items.size() == 4 * static_cast<std::size_t>(size) + 3;
    });
}

TEST(FormLayoutGrowth, DeepFormsAreLaidOut) {
    TLayoutNode form;
    form.ClassName = "TForm1";
    TLayoutNode* inner = &form;
    for (int i = 0; i < 5000; ++i) {
        inner->Children.resize(1);
        inner = &inner->Children.front();
        inner->ClassName = "TPanel";
        inner->Properties.push_back({"AutoSize", TFormValue::Boolean(true)});
    }
    EXPECT_EQ(LayOutForm(form, TFixedMeasure()).Items.size(), 5001U);
}

TEST(FormLayoutCorpus, EveryPackagedFormIsLaidOut) {
    const auto files = PartOf(FilesBelow("/usr/lib/lazarus", {".lfm"}), 4);
    ASSERT_FALSE(files.empty()) << "install the package lazarus-src";
    for (const auto& file : files) {
        const TLaidOut laidOut(ReadFileOf(file));
        EXPECT_FALSE(laidOut.Layout.Items.empty()) << file;
        for (const TLayoutItem& item : laidOut.Layout.Items)
            EXPECT_TRUE(item.Bounds.Width >= 0 && item.Bounds.Height >= 0) << file << " " << item.Node->Name;
    }
}

}  // namespace
}  // namespace tml
