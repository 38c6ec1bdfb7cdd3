#include "base/Languagetags.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <unicode/uldnames.h>
#include <unicode/uloc.h>
#include <unicode/ustring.h>
#include <unordered_map>

#include "base/Utf8.h"

namespace tml {
namespace {

struct TCloseNames {
    void operator()(ULocaleDisplayNames* names) const { uldn_close(names); }
};
using TNames = std::unique_ptr<ULocaleDisplayNames, TCloseNames>;

TNames NamesIn(const char* locale, UDialectHandling dialects) {
    UErrorCode error = U_ZERO_ERROR;
    return TNames(uldn_open(locale, dialects, &error));
}

std::string NameOf(const TNames& names, const char* locale) {
    UErrorCode error = U_ZERO_ERROR;
    std::array<UChar, 200> wide;
    std::array<char, 3 * wide.size()> text;
    std::int32_t size = uldn_localeDisplayName(names.get(), locale, wide.data(), wide.size(), &error);
    u_strToUTF8(text.data(), text.size(), &size, wide.data(), size, &error);
    return U_FAILURE(error) ? std::string() : std::string(text.data(), static_cast<std::size_t>(size));
}

std::string TagOf(const char* locale) {
    UErrorCode error = U_ZERO_ERROR;
    std::array<char, ULOC_FULLNAME_CAPACITY> tag;
    const std::int32_t size = uloc_toLanguageTag(locale, tag.data(), tag.size(), true, &error);
    return U_FAILURE(error) ? std::string() : std::string(tag.data(), static_cast<std::size_t>(size));
}

/// Tags by names and by themselves, upper-cased.
using TTags = std::unordered_map<std::string, std::string>;

template <typename Work>
void ForEachLocale(Work work) {
    for (std::int32_t i = 0; i < uloc_countAvailable(); ++i)
        work(uloc_getAvailable(i));
}

TTags ReadEnglish() {
    const TNames plain = NamesIn("en", ULDN_STANDARD_NAMES);
    const TNames dialects = NamesIn("en", ULDN_DIALECT_NAMES);
    TTags tags;
    ForEachLocale([&](const char* locale) {
        const std::string tag = TagOf(locale);
        for (const std::string& name : {tag, NameOf(plain, locale), NameOf(dialects, locale)})
            tags.emplace(UpperCase(name), tag);
    });
    return tags;
}

/// What languages call themselves, which costs more to find out.
TTags ReadOwn() {
    TTags tags;
    ForEachLocale([&](const char* locale) {
        const bool isLanguage = std::string_view(locale).find('_') == std::string_view::npos;
        if (isLanguage)
            tags.emplace(UpperCase(NameOf(NamesIn(locale, ULDN_STANDARD_NAMES), locale)), TagOf(locale));
    });
    return tags;
}

constexpr std::string_view kRightScripts = ",ARAB,HEBR,SYRC,THAA,NKOO,ADLM,";
constexpr std::string_view kRightLanguages = ",AR,DV,FA,HE,IW,JI,KS,KU-IQ,NQO,PS,SD,SYR,UG,UR,YI,";

bool IsAmong(std::string_view list, const std::string& part) {
    return list.find("," + part + ",") != std::string_view::npos;
}

}  // namespace

std::string LanguageTagOf(std::string_view name) {
    static const TTags english = ReadEnglish();
    const std::string upper = UpperCase(Trim(name));
    if (const auto found = english.find(upper); found != english.end()) return found->second;
    static const TTags own = ReadOwn();
    const auto found = own.find(upper);
    return found == own.end() ? std::string() : found->second;
}

bool IsRightToLeft(std::string_view tag) {
    std::string rest = UpperCase(tag);
    std::replace(rest.begin(), rest.end(), '_', '-');
    const std::string language = rest.substr(0, rest.find('-'));
    rest.erase(0, language.size() + 1);
    const std::string second = rest.substr(0, rest.find('-'));
    constexpr std::size_t kScriptSize = 4;
    if (second.size() == kScriptSize) return IsAmong(kRightScripts, second);
    return IsAmong(kRightLanguages, language) || IsAmong(kRightLanguages, language + "-" + second);
}

}  // namespace tml
