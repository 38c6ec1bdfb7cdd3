#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "base/Stringlist.h"
#include "platform/Mlcommon.h"
#include "source/Language.h"

namespace tml {

// The reasons for a skip, by value: enumerator, short word, text for the person.
#define TML_SKIP_REASONS(X)                                                                                 \
    X(ssrNone, "none", "None")                                                                              \
    X(ssrBadChars, "excluded-characters",                                                                   \
      "Found string consists of the only characters specified for exclusion. Please see \"Exclude strings " \
      "containing only characters like:\" option settings.")                                                \
    X(ssrByLine, "skipped-line",                                                                            \
      "Found string contains phrase specified for skip. Please see \"Skip lines containing:\" option "      \
      "settings.")                                                                                          \
    X(ssrByPhrase, "skipped-phrase",                                                                        \
      "Found string is equal to phrase specified for skip. Please see \"Skip words and phrases:\" option "  \
      "settings.")                                                                                          \
    X(ssrByPhrasesRE, "skipped-pattern",                                                                    \
      "Found string matches to Regular Expression specified for skip. Please see \"Skip words and "         \
      "phrases:\" option settings.")                                                                        \
    X(ssByIgnoreTag, "ignore-tag",                                                                          \
      "Source line with found string contains TML:IGNORE tag, that forces Expert to skip this line.")       \
    X(ssrComments, "comment", "The string is found in source comments.")

enum TStringSkipReason : std::uint8_t {
#define TML_SKIP_REASON(name, word, text) name,
    TML_SKIP_REASONS(TML_SKIP_REASON)
#undef TML_SKIP_REASON
};

/// The text shown for a reason, its short word, and the enumerator's name.
std::string_view SkipReasonText(TStringSkipReason reason);
std::string_view SkipReasonWord(TStringSkipReason reason);
std::string_view SkipReasonName(TStringSkipReason reason);

/// A literal or line that the scan passed over for a reason that the person can read.
struct TmlSkippedString {
    std::string Text;            ///< the whole line for ssrByLine and ssByIgnoreTag, else the literal's text
    std::int32_t Position = 0;   ///< 1-based byte offset of the literal, set by the ordinary scan
    std::int32_t ConstLine = 0;  ///< set instead by the scan of a const section
    TStringSkipReason Reason = ssrNone;
};
using TmlSkippedStrings = std::vector<TmlSkippedString>;

/// Appends a record; position goes to ConstLine when constSection is set.
void SkipString(TmlSkippedStrings& skipped, std::string_view text, std::int32_t position,
                TStringSkipReason reason, bool constSection);

/// The expert's settings that decide what is skipped.
struct TSkipSettings {
    TStringList SkipWords;
    TStringList SkipLines;
    std::string ExcludeChars;
    int IgnorableLength = 1;  ///< literals of this raw length (bytes) or less are dropped
    bool UseRegExpForSkip = false;

    bool operator==(const TSkipSettings&) const = default;
};

/// Follows the source tags from line to line.
class TTagState {
  public:
    explicit TTagState(const TLanguage& language, bool inBlock = false)
        : language_(&language), inBlock_(inBlock) {}

    /// Takes the next line (with or without its end); true when it is to be scanned for literals.
    bool NextLine(std::string_view line);
    /// True when a tag lets the next line that is scanned through although it stands in an ignored block.
    bool TranslatesNext() const { return translateNext_; }

  private:
    const TLanguage* language_;
    bool inBlock_;
    bool ignoreNext_ = false;
    bool translateNext_ = false;
};

/// True when the line, blanks around it aside, is one of the five tags.
bool IsTagLine(std::string_view line, const TLanguage& language);

/// What goes in front of a text and behind it so that later scans take nothing of it: each tag on a line of
/// its own, whether or not the text begins at the start of a line and ends with a line's end.
struct TIgnoreTags {
    TIgnoreTags(const TLanguage& language, bool beginsLine, bool endsLine);

    std::string Before;
    std::string Behind;
};

/// True when a line of the text can change a TTagState, so that its lines have to be followed.
bool HasTagLines(std::string_view text, const TLanguage& language);

/// Whether a scan that starts behind the given text starts inside an ignored block.
bool StartsInsideBlock(std::string_view before, const TLanguage& language);

/// The tests on lines and literals, for one scan. The settings and the library must outlive it.
class TSkipRules {
  public:
    TSkipRules(const TSkipSettings& settings, const TLanguage& language, ICommonLibrary* common);

    /// Whether the line may hold a literal to offer, whatever the settings.
    bool HasCandidate(std::string_view line, bool constSection) const;
    /// Whether the line is to be searched for literals. One with a candidate that is refused for a tag or a
    /// phrase is recorded with the position (see SkipString).
    bool FindValidDelimitor(std::string_view line, bool constSection, std::int32_t position,
                            TmlSkippedStrings& skipped) const;

    /// Why a line is refused whatever literals it holds: ssByIgnoreTag, ssrByLine, or ssrNone.
    TStringSkipReason RefusalOf(std::string_view line) const;

    /// The tests on one literal's decoded text; position and line are 0-based, line -1 in the ordinary scan.
    TStringSkipReason IsExcludeString(const std::string& text, std::int32_t position,
                                      std::int32_t line) const;

  private:
    bool IsSkipWord(const std::string& text) const;
    bool MatchesSkipWord(const std::string& text) const;
    bool HasOnlyExcludedChars(std::string_view text) const;

    const TSkipSettings* settings_;
    const TLanguage* language_;
    ICommonLibrary* common_;
    std::vector<std::string> upperLines_;
    std::unordered_set<std::string> upperWords_;
    std::array<bool, 256> wordLengths_{};
    std::array<bool, 128> excludedAscii_{};
    std::unordered_set<char32_t> excludedOthers_;
};

}  // namespace tml
