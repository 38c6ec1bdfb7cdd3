#include "tables/Propertykinds.h"

namespace tml {
namespace {

TLangTexts Texts(const TStringList& languages,
                 const std::vector<std::pair<TStringsType, TTableEntry>>& entries,
                 std::vector<TExtendedItem> extended) {
    TLangTexts texts = TextsIn(languages);
    texts.Extended = std::move(extended);
    for (const auto& [type, entry] : entries)
        texts.Tables[static_cast<std::size_t>(type)].Append(entry);
    return texts;
}

/// "Captions a=x|y; Chart:Title=z|w;" with marks behind texts.
std::string Shown(const TLangTexts& texts) {
    std::string shown = texts.Languages.CommaText() + ": ";
    for (const TTable& table : texts.Tables)
        for (const TTableEntry& entry : table.Entries()) {
            shown += std::string(KindOf(table.Type()).Property) + " " + entry.Key;
            for (const TTableValue& value : entry.Values)
                shown += "|" + value.Text +
                         (value.Mark == TValueMark::Stale ? "(stale " + value.Former + ")" : "");
            shown += "; ";
        }
    for (const TExtendedItem& item : texts.Extended) {
        shown += item.Component + ":" + item.Property;
        for (const std::string& value : item.Values)
            shown += "|" + value;
        shown += "; ";
    }
    return shown;
}

TEST(Propertykinds, ChosenOnesTakeThePlaceOfTheFilesAndTheOthersStay) {
    using enum TStringsType;
    const TLangTexts form = Texts(TStringList({"English", "German", "Greek"}),
                                  {{stCaptions, {"a", {{"A"}, {"Ä", TValueMark::Stale, "B"}, {"Α"}}}},
                                   {stHints, {"a", {{"new"}, {"neu"}, {"νέο"}}}}},
                                  {{"Chart", "Title", {"Tides", "Gezeiten", ""}}});
    const TLangTexts file = Texts(TStringList({"English", "French", "German"}),
                                  {{stCaptions, {"old", {{"Old"}, {"Vieux"}, {"Alt"}}}},
                                   {stHints, {"a", {{"Hint"}, {"Mot"}, {"Wort"}}}}},
                                  {{"Chart", "Foot", {"Foot", "Pied", "Fuß"}}});
    const std::string languages = "English,German,Greek,French: ";
    EXPECT_EQ(Shown(WithKindsOf(form, file, PropertyKindsOf(TStringList({"captions"})))),
              languages +
                  "Captions a|A|Ä(stale B)|Α|A; Hints a|Hint|Wort|Hint|Mot; Chart:Foot|Foot|Fuß|Foot|Pied; ");
    EXPECT_EQ(Shown(WithKindsOf(form, file, PropertyKindsOf(TStringList({"hints"})))),
              languages +
                  "Captions old|Old|Alt|Old|Vieux; Hints a|new|neu|νέο|Mot; Chart:Foot|Foot|Fuß|Foot|Pied; ");
    EXPECT_EQ(Shown(WithKindsOf(form, file, PropertyKindsOf(TStringList({"ExtendedTranslations", "x"})))),
              languages +
                  "Captions old|Old|Alt|Old|Vieux; Hints a|Hint|Wort|Hint|Mot; "
                  "Chart:Title|Tides|Gezeiten||Tides; ");
}

TEST(Propertykinds, AreKnownByName) {
    const TStringList names = PropertyKindNames();
    EXPECT_EQ(names.CommaText(),
              "Captions,Hints,DisplayLabels,Fonts,MultiLines,DlgsCaptions,Strings,OtherStrings,Locales,"
              "Collections,CharSets,ListView_TreeView_Items,ExtendedTranslations");
    EXPECT_EQ(PropertyKindsOf(TStringList({"HINTS", "Captions"})).Tables.to_ulong(), 3U);
    EXPECT_TRUE(PropertyKindsOf(TStringList({"extendedtranslations"})).None()) << "with case, on purpose";
    EXPECT_TRUE(PropertyKindsOf(names).Tables.all());
}

}  // namespace
}  // namespace tml
