#include "ids/Idcheck.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/Format.h"
#include "base/Utf8.h"
#include "scan/Calls.h"
#include "source/Charclass.h"

namespace tml {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
/// In the order in which a line is searched for them, whatever their places in it.
constexpr std::array<std::string_view, 6> kPatterns{
    "GetText(", "GetTextOrDefault(", "GetTextC(", "GetTextOrDefaultC(", "GetTextW(", "GetTextOrDefaultW("};

bool IsIDChar(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

bool IsAt(std::string_view text, std::size_t place, std::string_view pattern) {
    return SameText(text.substr(place, pattern.size()), pattern);
}

/// The calls of one kind, in the order of the text. Byte offsets, 0-based.
struct TCalls {
    std::string Pattern;              ///< with the ID's opening quote
    std::vector<std::size_t> Places;  ///< of the methods' names
    std::size_t Next = 0;             ///< index of the first one that has not been passed

    std::size_t IDOf(std::size_t method) const { return method + Pattern.size(); }
};

/// Where the name of a call's method begins, and where its ID does.
struct TCall {
    std::size_t Method = kNone;
    std::size_t ID = kNone;
};

class TIDCheck {
  public:
    TIDCheck(std::string_view text, const TLanguage& language, const std::string& formName,
             const std::string& fileName, const TIDHolders& holders)
        : text_(text),
          language_(language),
          formName_(formName),
          fileName_(fileName),
          holders_(holders),
          own_(formName.empty() ? nullptr : holders(formName)),
          inForce_(own_) {
        FindCalls();
    }

    std::vector<TBadID> Run() {
        if (own_ != nullptr && !text_.empty()) FindUnused();
        int number = 1;
        for (std::size_t begin = 0; begin < text_.size(); ++number) {
            const std::size_t end = FindByte<TLineEnd>(text_, begin);
            CheckLine(begin, end, number);
            begin = end + (text_.substr(end, 2) == "\r\n" ? 2 : 1);
        }
        return std::move(found_);
    }

  private:
    using TLineEnd = TByteSet<'\r', '\n'>;

    void FindCalls();
    void FindUnused();
    /// Whether a call names each entry of the table; of an ID that stands twice the first one counts.
    std::vector<bool> NamedEntries() const;
    std::ptrdiff_t MostQuotes() const;
    void CheckLine(std::size_t begin, std::size_t end, int number);
    TCall NextCall(std::size_t begin, std::size_t end);
    std::optional<std::string> FormOf(std::string_view before) const;
    bool EndsCall(std::string_view behind) const;
    void Add(TBadIDKind kind, std::string_view id, int place, const std::string& form);

    std::string_view text_;
    const TLanguage& language_;
    const std::string& formName_;
    const std::string& fileName_;
    const TIDHolders& holders_;
    const TIDHolder* own_;
    const TIDHolder* inForce_;
    std::array<TCalls, kPatterns.size()> calls_;
    std::vector<TBadID> found_;
};

void TIDCheck::FindCalls() {
    for (std::size_t i = 0; i < kPatterns.size(); ++i)
        calls_[i].Pattern = std::string(kPatterns[i]) + language_.Delimiter();
    for (const std::size_t place : FindMethodStarts(text_))
        for (TCalls& calls : calls_)
            if (IsAt(text_, place, calls.Pattern)) calls.Places.push_back(place);
}

void TIDCheck::FindUnused() {
    const std::vector<bool> named = NamedEntries();
    const std::vector<TTableEntry>& entries = own_->Strings.Entries();
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (!named[static_cast<std::size_t>(own_->Strings.Find(entries[i].Key))])
            Add(TBadIDKind::Unused, entries[i].Key, static_cast<int>(i), formName_);
}

/// What stands between each call's first quote and the next one of its line, or a later one where there are
/// IDs with quotes.
std::vector<bool> TIDCheck::NamedEntries() const {
    std::vector<bool> named(own_->Strings.Entries().size());
    const std::ptrdiff_t quotes = MostQuotes();
    for (const TCalls& calls : calls_)
        for (const std::size_t method : calls.Places) {
            const std::size_t begin = calls.IDOf(method);
            std::size_t end = begin;
            for (std::ptrdiff_t i = 0; i <= quotes; ++i, ++end) {
                const std::size_t from = end;
                end = text_.find(language_.Delimiter(), from);
                if (end == kNone || FindByte<TLineEnd>(text_.substr(0, end), from) != end) break;
                const int entry = own_->Strings.Find(text_.substr(begin, end - begin));
                if (entry >= 0) named[static_cast<std::size_t>(entry)] = true;
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

/// Between two places that ascend from call to call.
TCall TIDCheck::NextCall(std::size_t begin, std::size_t end) {
    for (TCalls& calls : calls_) {
        while (calls.Next < calls.Places.size() && calls.Places[calls.Next] < begin)
            ++calls.Next;
        if (calls.Next == calls.Places.size() || calls.Places[calls.Next] >= end) continue;
        const std::size_t method = calls.Places[calls.Next];
        return {method, calls.IDOf(method)};
    }
    return {};
}

void TIDCheck::CheckLine(std::size_t begin, std::size_t end, int number) {
    const std::string_view line = text_.substr(0, end);
    for (TCall call; (call = NextCall(begin, end)).Method != kNone;) {
        const std::optional<std::string> form = FormOf(line.substr(begin, call.Method - begin));
        if (form) inForce_ = form->empty() ? nullptr : holders_(*form);
        begin = call.ID;
        const std::size_t quote = line.find(language_.Delimiter(), begin);
        const std::string_view id = line.substr(begin, quote == kNone ? 0 : quote - begin);
        if (id.empty()) return;
        if (inForce_ != nullptr && inForce_->Strings.Find(id) >= 0) continue;
        const bool isMissing = inForce_ != nullptr && EndsCall(line.substr(quote + 1));
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
    return TIDCheck(text, language, formName, fileName, holders).Run();
}

}  // namespace tml
