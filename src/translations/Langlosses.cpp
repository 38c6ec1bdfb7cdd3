#include "translations/Langlosses.h"

#include "base/Errors.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "tables/Languageplaces.h"

namespace tml {
namespace {

/// Nobody reads more in one message.
constexpr int kMostTold = 10;

std::string Joined(const TStringList& parts, const char* separator) {
    std::string text;
    for (const std::string& part : parts)
        text += (text.empty() ? "" : separator) + part;
    return text;
}

std::string LossOfRow(TContext& context, const TFormRow& row, const TLangSetUp& setUp,
                      const TStringList& givenUp) {
    if (!row.HasComponent()) return {};
    const TModuleLease lease(context, row.FileName);
    const auto lang = GetmlLang(context, row);
    return lang == nullptr ? std::string() : LossOf(*lang, row.FormName, setUp, givenUp);
}

}  // namespace

std::string LossOf(ILanguages& languages, const std::string& name, const TLangSetUp& setUp,
                   const TStringList& givenUp) {
    const std::vector<int> places = PlacesOf(languages, setUp);
    const TStringList present = languages.GetLangNames();
    TStringList texts, losses;
    for (const std::string& lost : LostLanguages(present, places))
        if (givenUp.IndexOf(lost) < 0) texts.Add(lost);
    if (!present.Empty() && places.front() != 1) losses.Add(present[0] + " as the base language of " + name);
    if (!texts.Empty()) losses.Add("the texts of " + Joined(texts, ", ") + " of " + name);
    return Joined(losses, "; ");
}

std::string LossesOf(TContext& context, const std::vector<TFormRow*>& rows, const TLangSetUp& setUp,
                     const TStringList& givenUp) {
    TStringList losses;
    int more = 0;
    for (const TFormRow* row : rows) {
        try {
            const std::string loss = LossOfRow(context, *row, setUp, givenUp);
            if (loss.empty()) continue;
            if (losses.Count() < kMostTold)
                losses.Add(loss);
            else
                ++more;
        } catch (const EBadInput&) {
        } catch (const EmlLangSilent&) {
        }
    }
    if (more > 0) losses.Add("the like of " + std::to_string(more) + " more forms");
    return Joined(losses, "; ");
}

}  // namespace tml
