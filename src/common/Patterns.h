#pragma once

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
    using TCode = std::unique_ptr<pcre2_real_code_8, TFree>;

    const pcre2_real_code_8* Compiled(const std::string& pattern);

    std::unordered_map<std::string, TCode> codes_;
};

}  // namespace tml
