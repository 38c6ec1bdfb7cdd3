#include "common/Patterns.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <algorithm>
#include <new>
#include <pcre2.h>

namespace tml {
namespace {

constexpr std::size_t kMaxPatterns = 10'000;
constexpr std::uint32_t kMatchLimit = 100'000;
constexpr std::uint32_t kHeapLimitKiB = 16 * 1024;

struct TMatchContext {
    TMatchContext() : Context(pcre2_match_context_create(nullptr)) {
        if (Context == nullptr) throw std::bad_alloc();
        pcre2_set_match_limit(Context, kMatchLimit);
        pcre2_set_depth_limit(Context, kMatchLimit);
        pcre2_set_heap_limit(Context, kHeapLimitKiB);
    }
    ~TMatchContext() { pcre2_match_context_free(Context); }
    TMatchContext(const TMatchContext&) = delete;
    TMatchContext& operator=(const TMatchContext&) = delete;

    pcre2_match_context* Context;
};

using TMatchData = std::unique_ptr<pcre2_match_data, decltype(&pcre2_match_data_free)>;

/// What pcre2_match gives.
int Match(const pcre2_code& code, std::string_view text, std::uint32_t options) {
    thread_local const TMatchContext context;
    thread_local const TMatchData data(pcre2_match_data_create(1, nullptr), &pcre2_match_data_free);
    if (data == nullptr) return PCRE2_ERROR_NOMEMORY;
    return pcre2_match(&code, reinterpret_cast<PCRE2_SPTR>(text.data()), text.size(), 0, options, data.get(),
                       context.Context);
}

}  // namespace

void TPatterns::TFree::operator()(pcre2_real_code_8* code) const {
    pcre2_code_free(code);
}

TPatterns::TCompiled& TPatterns::Compiled(const std::string& pattern) {
    if (const auto known = compiled_.find(pattern); known != compiled_.end()) return known->second;
    if (compiled_.size() >= kMaxPatterns) compiled_.clear();
    int error = 0;
    PCRE2_SIZE place = 0;
    constexpr std::uint32_t kOptions = PCRE2_UTF | PCRE2_UCP | PCRE2_ANCHORED;
    TCompiled& compiled = compiled_[pattern];
    compiled.Code.reset(pcre2_compile(reinterpret_cast<PCRE2_SPTR>(pattern.data()), pattern.size(), kOptions,
                                      &error, &place, nullptr));
    if (compiled.Code == nullptr) return compiled;
    for (std::size_t c = 0; c < compiled.Starts.size(); ++c) {
        const char start = static_cast<char>(c);
        compiled.Starts[c] = Match(*compiled.Code, {&start, 1}, PCRE2_PARTIAL_HARD) != PCRE2_ERROR_NOMATCH;
    }
    return compiled;
}

bool TPatterns::Matches(std::string_view text, const std::string& pattern) {
    TCompiled& compiled = Compiled(pattern);
    if (compiled.Code == nullptr || compiled.GivenUp == scan_) return false;
    // Most texts are told apart by their first character, which costs much less than to start a match.
    const bool isAscii = !text.empty() && static_cast<unsigned char>(text.front()) < compiled.Starts.size();
    if (isAscii && !compiled.Starts[static_cast<unsigned char>(text.front())]) return false;
    // The whole text must match, whatever alternatives the pattern has at its top. 0 is a match whose groups
    // did not fit into the match data.
    const int result = Match(*compiled.Code, text, PCRE2_ENDANCHORED);
    const auto limits = {PCRE2_ERROR_MATCHLIMIT, PCRE2_ERROR_DEPTHLIMIT, PCRE2_ERROR_HEAPLIMIT};
    if (std::find(limits.begin(), limits.end(), result) != limits.end()) compiled.GivenUp = scan_;
    return result >= 0;
}

}  // namespace tml
