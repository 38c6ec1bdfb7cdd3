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
    /// is not UTF-8 or the match takes more steps than a sensible pattern does.
    bool Matches(std::string_view text, const std::string& pattern);

  private:
    struct TFree {
        void operator()(pcre2_real_code_8* code) const;
    };
    struct TCompiled {
        std::unique_ptr<pcre2_real_code_8, TFree> Code;  ///< null when the pattern does not compile
        std::bitset<128> Starts;                         ///< the ASCII characters that a match may begin with
    };

    const TCompiled& Compiled(const std::string& pattern);

    std::unordered_map<std::string, TCompiled> compiled_;
};

}  // namespace tml
