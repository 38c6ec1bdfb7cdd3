#include "base/Encodings.h"

#include <algorithm>
#include <array>
#include <memory>
#include <unicode/ucnv.h>
#include <unicode/ucsdet.h>

#include "base/Utf8.h"

namespace tml {
namespace {

constexpr const char* kUtf8 = "UTF-8";
constexpr const char* kFallback = "windows-1252";
/// What the detector reads at most; more does not make it surer, only slower.
constexpr std::size_t kDetectorBytes = 65536;
/// Below this confidence (of 100) the detector is guessing.
constexpr int kSure = 50;

struct TMark {
    std::string_view Bytes;
    const char* Name;
};
constexpr std::array<TMark, 3> kMarks = {{
    {"\xEF\xBB\xBF", kUtf8},
    {"\xFF\xFE", "UTF-16LE"},
    {"\xFE\xFF", "UTF-16BE"},
}};

/// The detector names the standard's sets; the files were written with the Windows pages that extend them.
struct TAlias {
    std::string_view Detected;
    const char* Name;
};
constexpr std::array<TAlias, 12> kAliases = {{
    {"ISO-8859-1", "windows-1252"},
    {"ISO-8859-2", "windows-1250"},
    {"ISO-8859-7", "windows-1253"},
    {"ISO-8859-8", "windows-1255"},
    {"ISO-8859-8-I", "windows-1255"},
    {"ISO-8859-9", "windows-1254"},
    {"Shift_JIS", "windows-932"},
    {"GB18030", "GB18030"},
    {"Big5", "windows-950"},
    {"EUC-KR", "windows-949"},
    {"EUC-JP", "EUC-JP"},
    {"KOI8-R", "KOI8-R"},
}};

bool IsAscii(std::string_view bytes) {
    return FindNonAscii(bytes, 0) == bytes.size();
}

struct TCloseConverter {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using TConverter = std::unique_ptr<UConverter, TCloseConverter>;

TConverter OpenConverter(const std::string& name) {
    UErrorCode error = U_ZERO_ERROR;
    TConverter converter(ucnv_open(name.c_str(), &error));
    return U_SUCCESS(error) ? std::move(converter) : nullptr;
}

/// Opening a converter costs more than converting a line, and one text has one encoding.
UConverter* ConverterOf(const std::string& name) {
    thread_local std::string openName;
    thread_local TConverter open;
    if (open == nullptr || openName != name) {
        open = OpenConverter(name);
        openName = name;
    }
    if (open != nullptr) ucnv_reset(open.get());
    return open.get();
}

/// holdsZero: the bytes hold a zero, without which a text is not UTF-16, whatever looks like a mark in it.
std::string NameOfDetected(std::string_view detected, bool holdsZero) {
    const auto* known = std::find_if(kAliases.begin(), kAliases.end(),
                                     [&](const TAlias& alias) { return alias.Detected == detected; });
    if (known != kAliases.end()) return known->Name;
    const bool isKnown =
        detected.rfind("windows-", 0) == 0 || (holdsZero && detected.rfind("UTF-16", 0) == 0);
    return isKnown ? std::string(detected) : std::string();
}

/// What the detector is given: the words with bytes above 127, a blank behind each. Keywords and names in
/// between would make every source look like an English text. A trail byte of a two-byte character is no
/// less than "@", so such characters stay whole. A text with zero bytes may be UTF-16 and is given as it is.
std::string TellingWords(std::string_view bytes) {
    if (bytes.find('\0') != std::string_view::npos) return std::string(bytes.substr(0, kDetectorBytes));
    const auto belongs = [](char c) { return static_cast<unsigned char>(c) >= '@'; };
    std::string words;
    for (std::size_t pos = FindNonAscii(bytes, 0); pos < bytes.size() && words.size() < kDetectorBytes;
         pos = FindNonAscii(bytes, pos)) {
        std::size_t begin = pos;
        while (begin > 0 && belongs(bytes[begin - 1]))
            --begin;
        while (pos < bytes.size() && belongs(bytes[pos]))
            ++pos;
        words.append(bytes, begin, pos - begin) += ' ';
    }
    return words;
}

/// The detector's best guess, empty where it is not sure.
std::string Detected(std::string_view bytes) {
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<UCharsetDetector, void (*)(UCharsetDetector*)> detector(ucsdet_open(&error),
                                                                                  ucsdet_close);
    const std::string words = TellingWords(bytes).substr(0, kDetectorBytes);
    ucsdet_setText(detector.get(), words.data(), static_cast<int32_t>(words.size()), &error);
    const UCharsetMatch* match = ucsdet_detect(detector.get(), &error);
    if (U_FAILURE(error) || match == nullptr || ucsdet_getConfidence(match, &error) < kSure) return {};
    const char* name = ucsdet_getName(match, &error);
    return U_SUCCESS(error) ? NameOfDetected(name, words.find('\0') != std::string::npos) : std::string();
}

bool DecodeUtf8(std::string_view bytes, std::string& text) {
    if (IsValidUtf8(bytes)) {
        text += bytes;
        return true;
    }
    for (std::size_t pos = 0; pos < bytes.size();)
        AppendCodePoint(text, DecodeCodePoint(bytes, pos));
    return false;
}

std::u16string ToUtf16(UConverter* converter, std::string_view bytes) {
    std::u16string wide(bytes.size() * 2 + 16, u'\0');
    UErrorCode error = U_ZERO_ERROR;
    const int32_t size = ucnv_toUChars(converter, wide.data(), static_cast<int32_t>(wide.size()),
                                       bytes.data(), static_cast<int32_t>(bytes.size()), &error);
    wide.resize(U_SUCCESS(error) ? static_cast<std::size_t>(size) : 0);
    return wide;
}

/// Appends as UTF-8; false when there was a replacement character or half a surrogate pair.
bool AppendUtf16(std::u16string_view wide, std::string& text) {
    bool clean = true;
    for (std::size_t i = 0; i < wide.size(); ++i) {
        char32_t codePoint = wide[i];
        const bool high = codePoint >= 0xD800 && codePoint < 0xDC00;
        if (high && i + 1 < wide.size() && wide[i + 1] >= 0xDC00 && wide[i + 1] < 0xE000)
            codePoint = 0x10000 + ((codePoint - 0xD800) << 10U) + (wide[++i] - 0xDC00U);
        else if (codePoint >= 0xD800 && codePoint < 0xE000)
            codePoint = 0xFFFD;
        clean = clean && codePoint != 0xFFFD;
        AppendCodePoint(text, codePoint);
    }
    return clean;
}

std::u16string Utf16Of(std::string_view text) {
    std::u16string wide;
    for (std::size_t pos = 0; pos < text.size();) {
        const char32_t codePoint = DecodeCodePoint(text, pos);
        if (codePoint < 0x10000) {
            wide += static_cast<char16_t>(codePoint);
            continue;
        }
        wide += static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10U));
        wide += static_cast<char16_t>(0xDC00 + ((codePoint - 0x10000) & 0x3FFU));
    }
    return wide;
}

bool IsWide(const TEncoding& encoding) {
    return encoding.Name.rfind("UTF-16", 0) == 0;
}

}  // namespace

TEncoding DetectEncoding(std::string_view bytes, std::string_view codePage) {
    for (const TMark& mark : kMarks)
        if (bytes.substr(0, mark.Bytes.size()) == mark.Bytes) return {mark.Name, std::string(mark.Bytes)};
    if (IsValidUtf8(bytes)) return {kUtf8, {}};
    std::string name = EncodingOfCodePage(codePage);
    if (name.empty()) name = Detected(bytes);
    if (name.empty()) name = kFallback;
    return {name, {}};
}

std::string EncodingOfCodePage(std::string_view codePage) {
    if (codePage.empty()) return {};
    if (codePage == "65001") return kUtf8;
    const std::string name = "windows-" + std::string(codePage);
    return OpenConverter(name) != nullptr ? name : std::string();
}

bool Decode(const TEncoding& encoding, std::string_view bytes, std::string& text) {
    if (encoding.Name == kUtf8) return DecodeUtf8(bytes, text);
    if (!IsWide(encoding) && IsAscii(bytes)) {
        text += bytes;
        return true;
    }
    UConverter* converter = ConverterOf(encoding.Name);
    if (converter == nullptr) return DecodeUtf8(bytes, text);
    return AppendUtf16(ToUtf16(converter, bytes), text);
}

bool Encode(const TEncoding& encoding, std::string_view text, std::string& bytes) {
    if (encoding.Name == kUtf8 || (!IsWide(encoding) && IsAscii(text))) {
        bytes += text;
        return true;
    }
    UConverter* converter = ConverterOf(encoding.Name);
    if (converter == nullptr) return false;
    UErrorCode error = U_ZERO_ERROR;
    ucnv_setFromUCallBack(converter, UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
    const std::u16string wide = Utf16Of(text);
    std::string result(wide.size() * static_cast<std::size_t>(ucnv_getMaxCharSize(converter)) + 16, '\0');
    const int32_t size = ucnv_fromUChars(converter, result.data(), static_cast<int32_t>(result.size()),
                                         wide.data(), static_cast<int32_t>(wide.size()), &error);
    if (U_FAILURE(error)) return false;
    bytes.append(result, 0, static_cast<std::size_t>(size));
    return true;
}

TByteEncodings ByteEncodingsOf(const TEncoding& file, std::string_view codePage) {
    if (!file.Name.starts_with("UTF-")) return {file.Name};
    const std::string ofProject = EncodingOfCodePage(codePage);
    return {kUtf8, ofProject.empty() ? kFallback : ofProject};
}

}  // namespace tml
