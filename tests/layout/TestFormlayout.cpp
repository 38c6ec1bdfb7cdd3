#include <gtest/gtest.h>

#include "layout/Layouttesting.h"

namespace tml {
namespace {

struct TPlacesCase {
    const char* Name;
    const char* Form;  ///< what stands in a form with a client area of 200 by 100
    const char* Places;
};

std::string Around(const std::string& inside) {
    return "object Form1: TForm1\n  Left = 40\n  Top = 30\n  Width = 200\n  Height = 100\n  ClientWidth = "
           "200\n"
           "  ClientHeight = 100\n" +
           inside + "\nend\n";
}

class FormLayout : public testing::TestWithParam<TPlacesCase> {};

TEST_P(FormLayout, PutsControlsWhereTheRunningFormDoes) {
    EXPECT_EQ(TLaidOut(Around(GetParam().Form)).Places(), GetParam().Places);
}

const TPlacesCase kCases[] = {
    {"AsDesigned", "object A: TButton Left = 8 Top = 16 Width = 70 Height = 24 end", "A 8,16 70x24\n"},
    {"ClassSizes", "object A: TButton end object B: TMemo end", "A 0,0 75x25\nB 0,0 150x90\n"},
    {"AlignTakesFromTheRest",
     "object B: TPanel Align = alTop Top = 20 Height = 20 end object A: TPanel Align = alTop Height = 20 end "
     "object C: TPanel Align = alLeft Width = 30 end object D: TMemo Align = alClient end",
     "B 0,20 200x20\nA 0,0 200x20\nC 0,40 30x60\nD 30,40 170x60\n"},
    {"AlignAtOnePlacePutsTheLaterOneOutside",
     "object A: TPanel Align = alTop Height = 20 end object B: TPanel Align = alTop Height = 30 end",
     "A 0,30 200x20\nB 0,0 200x30\n"},
    {"SpacesBesideEachOtherAreShared",
     "object A: TPanel Align = alTop Height = 20 BorderSpacing.Around = 6 end "
     "object B: TMemo Align = alClient BorderSpacing.Around = 4 end",
     "A 6,6 188x20\nB 4,32 192x64\n"},
};

INSTANTIATE_TEST_SUITE_P(Cases, FormLayout, ::testing::ValuesIn(kCases),
                         [](const auto& info) { return info.param.Name; });

TEST(FormLayoutNotes, CircleOfAnchorsIsNoted) {
    const TLaidOut laidOut(
        Around("object A: TButton AnchorSideLeft.Control = B Left = 5 end "
               "object B: TButton AnchorSideLeft.Control = A Left = 9 end"));
    EXPECT_EQ(laidOut.Layout.Notes, std::vector<std::string>{"Circle of anchors at B"});
    EXPECT_EQ(laidOut.Places(), "A 9,0 75x25\nB 9,0 75x25\n");
}

}  // namespace
}  // namespace tml
