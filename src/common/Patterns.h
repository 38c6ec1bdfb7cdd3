#pragma once

#include <bitset>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

struct pcre2_real_code_8;

namespace tml {

/// Matches texts against regular expressions (PCRE2, UTF-8). Compiled patterns are kept, so that many
/// texts can be tried against the same few patterns.
class TPatterns {
  public:
    /// True when the pattern matches the whole text. False when the pattern does not compile, the text
    /// is not UTF-8 or the match takes more steps than a sensible pattern does; a pattern that has taken so
    /// many matches nothing more in this scan, so that it costs a scan no more than a match.
    bool Matches(std::string_view text, const std::string& pattern);
    void BeginScan() { ++scan_; }

  private:
    struct TFree {
        void operator()(pcre2_real_code_8* code) const;
    };
    /// Counts scans, from 1 on.
    using TScanNumber = std::uint64_t;
    struct TCompiled {
        std::unique_ptr<pcre2_real_code_8, TFree> Code;  ///< null when the pattern does not compile
        std::bitset<128> Starts;                         ///< the ASCII characters that a match may begin with
        TScanNumber GivenUp = 0;                         ///< the scan in which it took too many steps
    };

    TCompiled& Compiled(const std::string& pattern);

    std::unordered_map<std::string, TCompiled> compiled_;
    TScanNumber scan_ = 1;
};

}  // namespace tml
