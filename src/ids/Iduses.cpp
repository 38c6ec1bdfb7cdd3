#include "ids/Iduses.h"

#include <algorithm>
#include <optional>
#include <tuple>

#include "base/Files.h"
#include "base/Format.h"
#include "base/Utf8.h"

namespace tml {
namespace {

struct TDoubtRow {
    TIDDoubt Doubt;
    std::string_view Word;
    std::string_view Text;
};
constexpr TDoubtRow kDoubts[] = {
    {TIDDoubt::None, "", ""},
    {TIDDoubt::SwitchedOff, "switched-off", "asked for in code that a directive can switch off"},
    {TIDDoubt::OtherComponent, "other-component", "asked for through another form's component"},
    {TIDDoubt::BuiltID, "built-id", "an ID is put together at run time"},
    {TIDDoubt::UnreadUnit, "unread-unit", "a unit cannot be read"},
};

const TDoubtRow& RowOf(TIDDoubt doubt) {
    return *std::find_if(std::begin(kDoubts), std::end(kDoubts),
                         [&](const TDoubtRow& row) { return row.Doubt == doubt; });
}

/// Whether a text has to do with the suite at all: accessors of other libraries have the same names.
bool NamesSuite(std::string_view text) {
    const std::string upper = UpperCase(text);
    return Contains(upper, "MLLANG") || Contains(upper, "TMLCUSTOMLANG");
}

}  // namespace

std::string_view TIDUse::Word() const {
    if (Kind == TIDUseKind::Unused) return "unused";
    return Kind == TIDUseKind::Used ? "used" : "undecidable";
}

std::string_view TIDUse::Reason() const {
    return RowOf(Doubt).Word;
}

std::string TIDUse::Text() const {
    if (Kind == TIDUseKind::Unused) return std::string(Word());
    const std::string place = FileNameOf(FileName) + (Line == 0 ? std::string() : ":" + std::to_string(Line));
    if (Kind == TIDUseKind::Used) return Format("used in %s", place);
    return Format("undecidable: %s (%s)", RowOf(Doubt).Text, place);
}

void TIDUses::Add(const std::string& fileName, const std::string& formName, const TSourceText& source) {
    std::optional<bool> isOfSuite;
    const auto namesSuite = [&] {
        if (!isOfSuite) isOfSuite = NamesSuite(source.Text());
        return *isOfSuite;
    };
    for (const TIDCall& call : ReadIDCalls(source)) {
        const std::string form = forms_.FormAsked(call, formName);
        const TCall use{fileName, call.Line, UpperCase(form), call.IsOptional};
        const std::string id = UpperCase(call.ID);
        if (call.Argument == TIDArgument::Whole)
            whole_[id].push_back(use);
        else if (!form.empty() || forms_.IsComponent(call.Component) || namesSuite())
            built_[use.Form].emplace(id, use);
    }
}

void TIDUses::AddReference(const std::string& fileName, const std::string& formName,
                           const std::string& reference, const std::string& id) {
    whole_[UpperCase(id)].push_back({fileName, 0, UpperCase(forms_.FormReferred(reference, formName))});
}

void TIDUses::AddUnread(const std::string& fileName) {
    if (unread_.empty()) unread_ = fileName;
}

std::vector<const TIDUses::TCall*> TIDUses::FindBuilt(const std::unordered_set<std::string>& askers,
                                                      const std::string& id) const {
    std::vector<const TCall*> found;
    for (const std::string& asker : askers) {
        const auto calls = built_.find(asker);
        if (calls == built_.end()) continue;
        for (std::size_t length = 0; length <= id.size(); ++length)
            if (const auto call = calls->second.find(id.substr(0, length)); call != calls->second.end())
                found.push_back(&call->second);
    }
    std::sort(found.begin(), found.end(), [](const TCall* a, const TCall* b) {
        return std::tie(a->FileName, a->Line) < std::tie(b->FileName, b->Line);
    });
    return found;
}

std::vector<TIDUse> TIDUses::UsesOf(const std::string& formName, std::string_view id) const {
    const TIDForms::TAskers& askers = forms_.AskersOf(formName);
    const std::string upper = UpperCase(id);
    std::vector<TIDUse> uses;
    const auto add = [&uses](TIDDoubt doubt, const TCall& call) {
        const TIDUseKind kind = doubt == TIDDoubt::None ? TIDUseKind::Used : TIDUseKind::Undecidable;
        uses.push_back({kind, doubt, call.FileName, call.Line, call.Form});
    };
    if (const auto calls = whole_.find(upper); calls != whole_.end())
        for (const TCall& call : calls->second) {
            if (!askers.All.contains(call.Form)) continue;
            const TIDDoubt own = call.IsOptional ? TIDDoubt::SwitchedOff : TIDDoubt::None;
            add(askers.Kin.contains(call.Form) ? own : TIDDoubt::OtherComponent, call);
        }
    for (const TCall* built : FindBuilt(askers.All, upper))
        add(TIDDoubt::BuiltID, *built);
    if (!unread_.empty()) add(TIDDoubt::UnreadUnit, {unread_, 0, {}, false});
    return uses;
}

TIDUse TIDUses::UseOf(const std::string& formName, std::string_view id) const {
    const std::vector<TIDUse> uses = UsesOf(formName, id);
    const auto strongest = std::min_element(
        uses.begin(), uses.end(), [](const TIDUse& a, const TIDUse& b) { return a.Doubt < b.Doubt; });
    return strongest == uses.end() ? TIDUse() : *strongest;
}

}  // namespace tml
