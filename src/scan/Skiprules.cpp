#include "scan/Skiprules.h"

#include <algorithm>

#include "base/Utf8.h"
#include "source/Charclass.h"

namespace tml {
namespace {

constexpr std::string_view kLineBreak = "\r\n";

char AsciiUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// True when the text begins with the tag, whose letters are ASCII capitals, in any case.
bool StartsWithTag(std::string_view text, std::string_view tag) {
    return text.size() >= tag.size() &&
           std::equal(tag.begin(), tag.end(), text.begin(),
                      [](char wanted, char c) { return wanted == AsciiUpper(c); });
}

bool IsTag(std::string_view trimmedLine, std::string_view tag) {
    return trimmedLine.size() == tag.size() && StartsWithTag(trimmedLine, tag);
}

/// True when the tag occurs in the text in any case. Looks for its first sign, which is no letter.
bool ContainsTag(std::string_view text, std::string_view tag) {
    for (std::size_t pos = 0; (pos = text.find(tag.front(), pos)) != std::string_view::npos; ++pos)
        if (StartsWithTag(text.substr(pos), tag)) return true;
    return false;
}

std::string_view WithoutLineEnd(std::string_view line) {
    while (!line.empty() && IsLineEnd(line.back()))
        line.remove_suffix(1);
    return line;
}

}  // namespace

std::string_view SkipReasonText(TStringSkipReason reason) {
#define TML_SKIP_REASON(name, word, text) text,
    // NOLINTNEXTLINE(bugprone-suspicious-missing-comma): long texts are written in two parts
    static constexpr std::string_view kTexts[] = {TML_SKIP_REASONS(TML_SKIP_REASON)};
#undef TML_SKIP_REASON
    return kTexts[reason];
}

std::string_view SkipReasonWord(TStringSkipReason reason) {
#define TML_SKIP_REASON(name, word, text) word,
    static constexpr std::string_view kWords[] = {TML_SKIP_REASONS(TML_SKIP_REASON)};
#undef TML_SKIP_REASON
    return kWords[reason];
}

std::string_view SkipReasonName(TStringSkipReason reason) {
#define TML_SKIP_REASON(name, word, text) #name,
    static constexpr std::string_view kNames[] = {TML_SKIP_REASONS(TML_SKIP_REASON)};
#undef TML_SKIP_REASON
    return kNames[reason];
}

void SkipString(TmlSkippedStrings& skipped, std::string_view text, std::int32_t position,
                TStringSkipReason reason, bool constSection) {
    TmlSkippedString& record = skipped.emplace_back();
    record.Text = text;
    (constSection ? record.ConstLine : record.Position) = position;
    record.Reason = reason;
}

bool TTagState::NextLine(std::string_view line) {
    const std::string_view trimmed = Trim(line);
    if (IsTag(trimmed, language_->STOPIGNORE)) {
        inBlock_ = false;
        return false;
    }
    if (inBlock_) {
        if (ignoreNext_) {
            ignoreNext_ = false;
            inBlock_ = false;
        } else if (IsTag(trimmed, language_->TRANSLATENEXTLINE)) {
            translateNext_ = true;
            inBlock_ = false;
        }
        return false;
    }
    if (IsTag(trimmed, language_->STARTIGNORE)) {
        inBlock_ = true;
        return false;
    }
    if (IsTag(trimmed, language_->IGNORENEXTLINE)) {
        inBlock_ = true;
        ignoreNext_ = true;
        return false;
    }
    inBlock_ = translateNext_;
    translateNext_ = false;
    return true;
}

TIgnoreTags::TIgnoreTags(const TLanguage& language, bool beginsLine, bool endsLine)
    : Before(beginsLine ? "" : kLineBreak), Behind(endsLine ? "" : kLineBreak) {
    Before.append(language.STARTIGNORE).append(kLineBreak);
    Behind.append(language.STOPIGNORE).append(kLineBreak);
}

bool IsTagLine(std::string_view line, const TLanguage& language) {
    const std::string_view trimmed = Trim(line);
    const auto tags = {language.IGNORELINE, language.STARTIGNORE, language.STOPIGNORE,
                       language.IGNORENEXTLINE, language.TRANSLATENEXTLINE};
    return std::any_of(tags.begin(), tags.end(), [&](std::string_view tag) { return IsTag(trimmed, tag); });
}

bool HasTagLines(std::string_view text, const TLanguage& language) {
    // All tags begin alike; what stands in front of ":" and the word behind it tell them apart.
    const std::string_view common = language.STARTIGNORE.substr(0, language.STARTIGNORE.find(':') + 1);
    return ContainsTag(text, common);
}

bool StartsInsideBlock(std::string_view before, const TLanguage& language) {
    while (!before.empty()) {
        const std::size_t begin = LineStart(before, before.size() - (before.back() == '\n' ? 1 : 0));
        const std::string_view line = Trim(before.substr(begin));
        if (IsTag(line, language.STOPIGNORE)) return false;
        if (IsTag(line, language.STARTIGNORE)) return true;
        before = before.substr(0, begin);
    }
    return false;
}

TSkipRules::TSkipRules(const TSkipSettings& settings, const TLanguage& language, ICommonLibrary* common)
    : settings_(&settings), language_(&language), common_(common) {
    for (const std::string& phrase : settings.SkipLines)
        upperLines_.push_back(UpperCase(phrase));
    for (const std::string& word : settings.SkipWords) {
        upperWords_.insert(UpperCase(word));
        wordLengths_[word.size() % wordLengths_.size()] = true;
    }
    for (std::size_t pos = 0; pos < settings.ExcludeChars.size();) {
        const char32_t c = DecodeCodePoint(settings.ExcludeChars, pos);
        if (c < excludedAscii_.size())
            excludedAscii_[c] = true;
        else
            excludedOthers_.insert(c);
    }
}

bool TSkipRules::HasCandidate(std::string_view line, bool constSection) const {
    const std::size_t delimiter = line.find(language_->Delimiter());
    if (delimiter == std::string_view::npos) return false;
    if (line.substr(0, delimiter).find("//") != std::string_view::npos) return false;
    return !constSection || line.find('=') != std::string_view::npos;
}

bool TSkipRules::FindValidDelimitor(std::string_view line, bool constSection, std::int32_t position,
                                    TmlSkippedStrings& skipped) const {
    if (!HasCandidate(line, constSection)) return false;
    const TStringSkipReason reason = RefusalOf(line);
    if (reason != ssrNone) SkipString(skipped, WithoutLineEnd(line), position, reason, constSection);
    return reason == ssrNone;
}

TStringSkipReason TSkipRules::RefusalOf(std::string_view line) const {
    if (ContainsTag(line, language_->IGNORELINE)) return ssByIgnoreTag;
    if (Contains(line.substr(0, line.find(language_->Delimiter())), language_->STARTIGNORE))
        return ssByIgnoreTag;
    if (upperLines_.empty()) return ssrNone;
    const std::string upper = UpperCase(line);
    const bool refused = std::any_of(upperLines_.begin(), upperLines_.end(),
                                     [&](const std::string& phrase) { return Contains(upper, phrase); });
    return refused ? ssrByLine : ssrNone;
}

TStringSkipReason TSkipRules::IsExcludeString(const std::string& text, std::int32_t position,
                                              std::int32_t line) const {
    if (IsSkipWord(text)) return ssrByPhrase;
    // At the very start of a unit, where the ordinary scan passes 0 and -1, nothing is asked: a literal
    // that opens there is in no comment.
    const bool classifies = common_ != nullptr && common_->HasClassifier() && (line > -1 || position > 0);
    if (classifies && common_->IsCommentAt(line + 1, position + 1, language_->IsCPPSource))
        return ssrComments;
    if (MatchesSkipWord(text)) return ssrByPhrasesRE;
    return HasOnlyExcludedChars(text) ? ssrBadChars : ssrNone;
}

bool TSkipRules::IsSkipWord(const std::string& text) const {
    // The case mapping keeps lengths, so most texts are told apart without it.
    return wordLengths_[text.size() % wordLengths_.size()] && upperWords_.contains(UpperCase(text));
}

bool TSkipRules::MatchesSkipWord(const std::string& text) const {
    if (!settings_->UseRegExpForSkip || common_ == nullptr || !common_->HasMatcher()) return false;
    return std::any_of(settings_->SkipWords.begin(), settings_->SkipWords.end(),
                       [&](const std::string& word) { return common_->mlREStringMatches(text, word); });
}

bool TSkipRules::HasOnlyExcludedChars(std::string_view text) const {
    for (std::size_t pos = 0; pos < text.size();) {
        const char32_t c = DecodeCodePoint(text, pos);
        const bool excluded = c < excludedAscii_.size() ? excludedAscii_[c] : excludedOthers_.contains(c);
        if (!excluded) return false;
    }
    return true;
}

}  // namespace tml
