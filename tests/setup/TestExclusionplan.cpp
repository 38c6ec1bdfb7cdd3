#include <gtest/gtest.h>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "setup/Exclusionchanges.h"

namespace tml {
namespace {

/// A form with a panel that holds a label, and a frame. Every component but the panel has a hint; the label
/// on the form is translated.
TExclusionForm SampleForm() {
    TExclusionForm form{"MainForm", "Main.pas", {}, {}, {}, false};
    form.Owners = {{"", "MainForm", "TMainForm", -1},  {"lblName", "lblName", "TLabel", 0},
                   {"btnOK", "btnOK", "TButton", 0},   {"pnl", "pnl", "TPanel", 0},
                   {"lblIn", "lblIn", "TLabel", 3},    {"fra", "fra", "TCargo", 0},
                   {"fra.lblIn", "lblIn", "TLabel", 5}};
    for (int owner = 0; owner < static_cast<int>(form.Owners.size()); ++owner)
        for (const char* property : {"Caption", "Hint"})
            if (owner != 3 || property == std::string("Caption"))
                form.Texts.push_back({{owner, property, owner == 2 ? "readme.txt" : "Text"}});
    form.Texts.push_back({{2, "Columns[0].Title.Caption", "Tide"}});
    form.Texts[2].HasEntry = true;
    form.Texts[2].Translations = 2;
    return form;
}

/// "TLabel D:pnl S:Path" as lists.
TExclusionLists ListsOf(const std::string& entries) {
    TExclusionLists lists;
    std::size_t begin = 0;
    while (begin < entries.size()) {
        const std::size_t end = std::min(entries.find(' ', begin), entries.size());
        const std::string entry = entries.substr(begin, end - begin);
        if (entry.starts_with("D:"))
            AddExclusion(lists, TExclusionList::DoNotTranslate, entry.substr(2));
        else if (entry.starts_with("S:"))
            AddExclusion(lists, TExclusionList::SmartExcludeProps, entry.substr(2));
        else
            AddExclusion(lists, TExclusionList::ExcludedProperties, entry);
        begin = end + 1;
    }
    return lists;
}

std::string ShownLists(const TExclusionLists& lists) {
    std::string text;
    const auto add = [&](const char* mark, TExclusionList list) {
        for (const std::string& entry : lists[list])
            text += (text.empty() ? "" : " ") + std::string(mark) + entry;
    };
    add("", TExclusionList::ExcludedProperties);
    add("D:", TExclusionList::DoNotTranslate);
    add("S:", TExclusionList::SmartExcludeProps);
    return text;
}

std::string ExcludedKeys(const TExclusionForm& form, const TExclusionLists& lists) {
    std::string keys;
    const std::vector<int> by = ExcludedBy(form, UsesOf(form, lists));
    for (std::size_t i = 0; i < by.size(); ++i)
        if (by[i] >= 0)
            keys += (keys.empty() ? "" : " ") + form.Texts[i].KeyOf(form.OwnerOf(form.Texts[i]).Path);
    return keys;
}

TEST(ExclusionPlan, AnEntryLeavesOutWhatItMeans) {
    const TExclusionForm form = SampleForm();
    struct TCase {
        const char* Lists;
        const char* Keys;
        const char* Effect;
    };
    for (const TCase& each : {
             TCase{"", "", ""},
             {"!btnok", "btnOK.Caption btnOK.Hint btnOK.Columns[0].Title.Caption",
              "3 texts leave the tables with the next update"},
             {"TLabel",
              "lblName.Caption lblName.Hint lblIn.Caption lblIn.Hint fra.lblIn.Caption fra.lblIn.Hint",
              "6 texts leave the tables with the next update; 2 translations are dropped"},
             {"TMainForm", ".Caption .Hint", "2 texts leave the tables with the next update"},
             {"TMainForm.Hint", ".Hint", "1 text leaves the tables with the next update"},
             {".Title.Caption .Columns.Title.Caption", "btnOK.Columns[0].Title.Caption",
              "1 text leaves the tables with the next update"},
             {"fra.lblIn.Hint", "fra.lblIn.Hint", "1 text leaves the tables with the next update"},
             {"TCustomLabel.Hint", "lblName.Hint lblIn.Hint fra.lblIn.Hint",
              "3 texts leave the tables with the next update"},
             {"D:pnl", "pnl.Caption lblIn.Caption lblIn.Hint",
              "3 texts leave the tables with the next update"},
             {"D:fra", "fra.Caption fra.Hint fra.lblIn.Caption fra.lblIn.Hint",
              "4 texts leave the tables with the next update"},
             {"S:Path", "btnOK.Caption btnOK.Hint", "2 texts leave the tables with the next update"},
             {"S:Path:TLabel", "", ""},
             {"!btnGone TEdit TGone.Caption", "", ""},
         }) {
        EXPECT_EQ(ExcludedKeys(form, ListsOf(each.Lists)), each.Keys) << each.Lists;
        EXPECT_EQ(EffectText(EffectOf(form, {}, ListsOf(each.Lists))), each.Effect) << each.Lists;
    }
    EXPECT_EQ(EffectText(EffectOf(form, ListsOf("TLabel"), ListsOf(".Hint"))),
              "3 texts leave the tables with the next update, 3 come back");
    EXPECT_EQ(EffectText(EffectOf(form, ListsOf("TLabel"), {})), "6 texts come back with the next update");
}

TEST(ExclusionPlan, WhatStaysInTheTablesDoesNotLeave) {
    TExclusionForm form = SampleForm();
    form.KeepsEntries = true;
    EXPECT_EQ(EffectOf(form, {}, ListsOf("!lblName")), (TExclusionEffect{1, 0, 0})) << "the hint";
    form.Texts[2].Text = "readme.txt";
    EXPECT_EQ(ExcludedKeys(form, ListsOf("S:Path")), "btnOK.Caption btnOK.Hint") << "what is entered stays";
    form.Texts[3].IsForReaders = false;
    EXPECT_EQ(EffectOf(form, {}, ListsOf("!lblName")), TExclusionEffect()) << "never entered";
}

TEST(ExclusionPlan, TakingBackLeavesTheRestExcluded) {
    const TExclusionForm form = SampleForm();
    struct TCase {
        const char* Lists;
        const char* Back;  ///< the beginning of the keys that are wanted
        const char* Result;
    };
    for (const TCase& each : {
             TCase{"!btnOK TEdit", "btnOK.", "TEdit"},
             {"!btnOK", "btnOK.Hint", "btnOK.Caption btnOK.Columns[0].Title.Caption"},
             {"TLabel !lblIn", "lblName.", "!lblIn !fra.lblIn"},
             {"TLabel", "lblName.Hint", "lblName.Caption !lblIn !fra.lblIn"},
             {"TLabel .Hint", "lblName.Hint",
              "TMainForm.Hint lblName.Caption btnOK.Hint !lblIn fra.Hint !fra.lblIn"},
             {".Hint", ".Hint", "lblName.Hint btnOK.Hint lblIn.Hint fra.Hint fra.lblIn.Hint"},
             {"TMainForm", ".Caption", "TMainForm.Hint"},
             {"D:pnl", "lblIn.Caption", "!pnl lblIn.Hint"},
             {"S:Path !btnOK", "btnOK.Caption", "btnOK.Columns[0].Title.Caption S:Path"},
             {"TLabel", "btnOK.", "TLabel"},
         }) {
        TTextFlags back;
        for (const TExclusionText& text : form.Texts)
            back.push_back(text.KeyOf(form.OwnerOf(text).Path).starts_with(each.Back));
        const TExclusionLists lists = TakenBack(form, ListsOf(each.Lists), back);
        EXPECT_EQ(ShownLists(lists), each.Result) << each.Lists << " without " << each.Back;
        const std::vector<int> was = ExcludedBy(form, UsesOf(form, ListsOf(each.Lists)));
        const std::vector<int> is = ExcludedBy(form, UsesOf(form, lists));
        const TTextFlags smart = UseOf(form, TExclusionList::SmartExcludeProps, "Path").Texts;
        const bool hasSmart = Contains(each.Lists, "S:");
        for (std::size_t i = 0; i < back.size(); ++i)
            EXPECT_EQ(is[i] >= 0, (was[i] >= 0 && !back[i]) || (hasSmart && smart[i])) << each.Lists << i;
    }
}

TEST(ExclusionPlan, ChangesGoWhereTheyMatch) {
    const TExclusionForm form = SampleForm();
    const std::vector<TExclusionChange> changes = {{TExclusionList::ExcludedProperties, "TEdit"},
                                                   {TExclusionList::ExcludedProperties, "TButton"},
                                                   {TExclusionList::ExcludedProperties, "tlabel", false},
                                                   {TExclusionList::SmartExcludeProps, "Number"}};
    EXPECT_EQ(ShownLists(WithChanges(form, ListsOf("TLabel"), changes, TAddedTo::WhereItMatches)),
              "TButton S:Number");
    EXPECT_EQ(ShownLists(WithChanges(form, ListsOf("TLabel"), changes, TAddedTo::EveryForm)),
              "TEdit TButton S:Number");
    EXPECT_EQ(ListFor("path:TEdit.*"), TExclusionList::SmartExcludeProps);
    EXPECT_EQ(ListFor("TPath"), TExclusionList::ExcludedProperties);
    for (const TExclusionChange& bad : {TExclusionChange{TExclusionList::ExcludedProperties, " "},
                                        {TExclusionList::DoNotTranslate, "!"},
                                        {TExclusionList::SmartExcludeProps, "Guess"}})
        EXPECT_THROW(CheckExclusion(bad), EBadInput) << bad.Entry;
}

}  // namespace
}  // namespace tml
