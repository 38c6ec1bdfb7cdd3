#include "ids/Idcheck.h"

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_set>

#include "base/Format.h"
#include "base/Stringlist.h"
#include "base/Utf8.h"

namespace tml {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
/// In the order in which a line is searched for them, whatever their places in it.
constexpr std::array<std::string_view, 6> kPatterns{
    "GETTEXT(", "GETTEXTORDEFAULT(", "GETTEXTC(", "GETTEXTORDEFAULTC(", "GETTEXTW(", "GETTEXTORDEFAULTW("};

bool IsIDChar(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

/// With the letters of ASCII in upper case, so that places stay those of the text.
std::string AsciiUpperOf(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return upper;
}

/// A line with what is left of it to be searched.
struct TRest {
    std::string_view Text;
    std::string_view Upper;

    void Cut(std::size_t count) {
        Text.remove_prefix(count);
        Upper.remove_prefix(count);
    }
};

/// A call in the rest of a line: where its method's name begins, and where its ID does.
struct TCall {
    std::size_t Method = kNone;
    std::size_t ID = kNone;
};

class TIDCheck {
  public:
    TIDCheck(const TLanguage& language, const std::string& formName, const std::string& fileName,
             const TIDHolders& holders)
        : language_(language),
          formName_(formName),
          fileName_(fileName),
          holders_(holders),
          own_(formName.empty() ? nullptr : holders(formName)) {
        for (std::size_t i = 0; i < kPatterns.size(); ++i)
            patterns_[i] = std::string(kPatterns[i]) + language.Delimiter();
    }

    std::vector<TBadID> Run(std::string_view text) {
        const TStringList lines = TStringList::FromText(text);
        if (lines.Empty()) return {};
        if (own_ != nullptr) FindUnused(lines);
        inForce_ = own_;
        for (int i = 0; i < lines.Count(); ++i)
            CheckLine(lines[i], i + 1);
        return std::move(found_);
    }

  private:
    void FindUnused(const TStringList& lines);
    /// What calls name, upper-cased: with as many quotes as an ID of the table has at most.
    std::unordered_set<std::string> NamedIDs(const TStringList& lines) const;
    std::ptrdiff_t MostQuotes() const;
    void CheckLine(std::string_view line, int number);
    TCall NextCall(std::string_view upper) const;
    std::optional<std::string> FormOf(std::string_view before) const;
    bool EndsCall(std::string_view behind) const;
    void Add(TBadIDKind kind, std::string_view id, int place, const std::string& form);

    const TLanguage& language_;
    const std::string& formName_;
    const std::string& fileName_;
    const TIDHolders& holders_;
    const TIDHolder* own_;
    const TIDHolder* inForce_ = nullptr;
    std::array<std::string, kPatterns.size()> patterns_;
    std::vector<TBadID> found_;
};

/// One walk finds what stands between each call's first quote and the next one, or a later one where there
/// are IDs with quotes.
void TIDCheck::FindUnused(const TStringList& lines) {
    const std::unordered_set<std::string> named = NamedIDs(lines);
    const std::vector<TTableEntry>& entries = own_->Strings.Entries();
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (!named.contains(UpperCase(entries[i].Key)))
            Add(TBadIDKind::Unused, entries[i].Key, static_cast<int>(i), formName_);
}

std::unordered_set<std::string> TIDCheck::NamedIDs(const TStringList& lines) const {
    std::unordered_set<std::string> named;
    const std::ptrdiff_t quotes = MostQuotes();
    for (const std::string& line : lines) {
        const std::string upper = AsciiUpperOf(line);
        for (const std::string& pattern : patterns_)
            for (std::size_t at = upper.find(pattern); at != kNone; at = upper.find(pattern, at + 1)) {
                const std::size_t begin = at + pattern.size();
                std::size_t end = line.find(language_.Delimiter(), begin);
                for (std::ptrdiff_t i = 0; i <= quotes && end != kNone; ++i) {
                    named.insert(UpperCase(std::string_view(line).substr(begin, end - begin)));
                    end = line.find(language_.Delimiter(), end + 1);
                }
            }
    }
    return named;
}

std::ptrdiff_t TIDCheck::MostQuotes() const {
    std::ptrdiff_t most = 0;
    for (const TTableEntry& entry : own_->Strings.Entries())
        most = std::max(most, std::count(entry.Key.begin(), entry.Key.end(), language_.Delimiter()));
    return most;
}

TCall TIDCheck::NextCall(std::string_view upper) const {
    for (const std::string& pattern : patterns_)
        if (const std::size_t at = upper.find(pattern); at != kNone) return {at, at + pattern.size()};
    return {};
}

void TIDCheck::CheckLine(std::string_view line, int number) {
    const std::string upper = AsciiUpperOf(line);
    TRest rest{line, upper};
    for (TCall call; (call = NextCall(rest.Upper)).Method != kNone;) {
        const std::optional<std::string> form = FormOf(rest.Text.substr(0, call.Method));
        if (form) inForce_ = form->empty() ? nullptr : holders_(*form);
        rest.Cut(call.ID);
        const std::size_t end = rest.Text.find(language_.Delimiter());
        const std::string_view id = rest.Text.substr(0, end == kNone ? 0 : end);
        if (id.empty()) return;
        if (inForce_ != nullptr && inForce_->Strings.Find(id) >= 0) continue;
        const bool isMissing = inForce_ != nullptr && EndsCall(rest.Text.substr(end + 1));
        Add(isMissing ? TBadIDKind::NotFound : TBadIDKind::Undecided, id, number, form.value_or(formName_));
    }
}

/// The form's name in front of the component's, none where the call shows none.
std::optional<std::string> TIDCheck::FormOf(std::string_view before) const {
    constexpr std::string_view kMemberSigns = ".->";
    const auto takeBack = [&](auto isPart) {
        std::size_t begin = before.size();
        while (begin > 0 && isPart(before[begin - 1]))
            --begin;
        const std::string_view taken = before.substr(begin);
        before = before.substr(0, begin);
        return taken;
    };
    const auto isSign = [&](char c) { return kMemberSigns.find(c) != kNone; };
    if (takeBack(isSign) != language_.METHODPOINT) return std::nullopt;
    takeBack(IsIDChar);
    if (before.empty() || !isSign(before.back())) return std::nullopt;
    before.remove_suffix(before.ends_with(language_.METHODPOINT) ? language_.METHODPOINT.size() : 1);
    const std::string_view form = takeBack(IsIDChar);
    if (form.empty()) return std::nullopt;
    return SameText(form, language_.IsCPPSource ? "this" : "Self") ? formName_ : std::string(form);
}

/// True where the call has no second argument. A comment in front does not count, nor does the blank that a
/// rewrite leaves behind it.
bool TIDCheck::EndsCall(std::string_view behind) const {
    behind = Trim(behind);
    if (!behind.starts_with(language_.COMMENTSTART)) return behind.starts_with(")");
    const std::size_t end = behind.find(language_.COMMENTEND);
    if (end == kNone) return false;
    behind.remove_prefix(end + language_.COMMENTEND.size());
    return behind.starts_with(")") || (behind.size() > 1 && behind[1] == ')');
}

void TIDCheck::Add(TBadIDKind kind, std::string_view id, int place, const std::string& form) {
    TBadID bad{kind, std::string(id), place, {}, {}, fileName_, {}};
    const TIDHolder* holder = kind == TBadIDKind::Unused ? own_ : inForce_;
    if (kind != TBadIDKind::Undecided) {
        bad.FormName = form;
        bad.ComponentName = holder->Name;
    }
    found_.push_back(std::move(bad));
}

}  // namespace

std::string TBadID::Type() const {
    if (Kind == TBadIDKind::Unused) return "Not used in source of current module.";
    if (Kind == TBadIDKind::Undecided) return "Can't be autochecked.";
    return Format("Not found in %s.%s", FormName, ComponentName);
}

std::string TBadID::Info() const {
    return (Kind == TBadIDKind::Unused ? "Index: " : "Line: ") + std::to_string(Place);
}

std::vector<TBadID> CheckIDs(std::string_view text, const TLanguage& language, const std::string& formName,
                             const std::string& fileName, const TIDHolders& holders) {
    return TIDCheck(language, formName, fileName, holders).Run(text);
}

}  // namespace tml
