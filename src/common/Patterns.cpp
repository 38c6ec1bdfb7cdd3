#include "common/Patterns.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <new>
#include <pcre2.h>

namespace tml {
namespace {

constexpr std::size_t kMaxPatterns = 1000;
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

}  // namespace

void TPatterns::TFree::operator()(pcre2_real_code_8* code) const {
    pcre2_code_free(code);
}

const pcre2_real_code_8* TPatterns::Compiled(const std::string& pattern) {
    if (const auto known = codes_.find(pattern); known != codes_.end()) return known->second.get();
    if (codes_.size() >= kMaxPatterns) codes_.clear();
    int error = 0;
    PCRE2_SIZE place = 0;
    // The whole text must match, whatever alternatives the pattern has at its top.
    constexpr std::uint32_t kOptions = PCRE2_UTF | PCRE2_UCP | PCRE2_ANCHORED | PCRE2_ENDANCHORED;
    TCode code(pcre2_compile(reinterpret_cast<PCRE2_SPTR>(pattern.data()), pattern.size(), kOptions, &error,
                             &place, nullptr));
    return codes_.emplace(pattern, std::move(code)).first->second.get();
}

bool TPatterns::Matches(std::string_view text, const std::string& pattern) {
    thread_local const TMatchContext context;
    thread_local const TMatchData data(pcre2_match_data_create(1, nullptr), &pcre2_match_data_free);
    const pcre2_real_code_8* code = Compiled(pattern);
    if (code == nullptr || data == nullptr) return false;
    const int result = pcre2_match(code, reinterpret_cast<PCRE2_SPTR>(text.data()), text.size(), 0, 0,
                                   data.get(), context.Context);
    // 0 is a match whose groups did not fit into the match data.
    return result >= 0;
}

}  // namespace tml
