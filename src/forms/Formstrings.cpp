#include "forms/Formstrings.h"

#include "base/Errors.h"
#include "base/Utf8.h"
#include "forms/Formchars.h"

namespace tml {

namespace {

/// Units of UTF-16 that are all below 128.
void AppendNarrow(std::string_view wide, std::string& text) {
    const std::size_t begin = text.size();
    text.resize(begin + wide.size() / 2);
    for (std::size_t i = 0; i < wide.size() / 2; ++i)
        text[begin + i] = wide[2 * i];
}

std::string WideToUtf8(std::string_view wide) {
    std::string text;
    const std::size_t count = wide.size() / 2;
    text.reserve(count + count / 2);
    for (std::size_t i = 0; i < count; ++i) {
        std::size_t end = i;
        while (end < count && WideUnit(wide, end) < 0x80)
            ++end;
        AppendNarrow(wide.substr(2 * i, 2 * (end - i)), text);
        i = end;
        if (i == count) break;
        char32_t code = WideUnit(wide, i);
        if (IsPairAt(wide, i)) {
            code = PairAt(wide, i++);
        } else if (IsSurrogate(code)) {
            code = 0xFFFD;
        }
        AppendCodePoint(text, code);
    }
    return text;
}

void AppendUnit(char32_t unit, std::string& wide) {
    wide.push_back(static_cast<char>(unit & 0xFF));
    wide.push_back(static_cast<char>(unit >> 8));
}

void AppendAscii(std::string_view text, std::string& wide) {
    const std::size_t begin = wide.size();
    wide.resize(begin + 2 * text.size());
    for (std::size_t i = 0; i < text.size(); ++i)
        wide[begin + 2 * i] = text[i];
}

}  // namespace

std::string DecodeFrom(const TFormFile& file, std::string_view bytes) {
    if (IsAscii(bytes)) return std::string(bytes);
    std::string text;
    Decode(file.Encoding(), bytes, text);
    return text;
}

std::string EncodeFor(const TFormFile& file, std::string_view text) {
    if (IsAscii(text)) return std::string(text);
    std::string bytes;
    if (!Encode(file.Encoding(), text, bytes)) {
        throw EBadInput(file.FileName(), 0,
                        "the file's encoding " + file.Encoding().Name + " cannot hold the text '" +
                            std::string(LeftCodePoints(text, 60)) + "'",
                        "Use other characters or save the form in another encoding");
    }
    return bytes;
}

std::string ToUtf8(const TFormString& value, const TFormFile& file) {
    if (value.Kind == TFormStringKind::Wide) return WideToUtf8(value.Bytes);
    if (value.Kind == TFormStringKind::Ansi) return DecodeFrom(file, value.Bytes);
    if (IsValidUtf8(value.Bytes)) return std::string(value.Bytes);
    std::string text;
    for (std::size_t pos = 0; pos < value.Bytes.size();) {
        AppendCodePoint(text, DecodeCodePoint(value.Bytes, pos));
    }
    return text;
}

void AppendWide(char32_t codePoint, std::string& wide) {
    if (codePoint < 0x10000) return AppendUnit(codePoint, wide);
    AppendUnit(0xD800 + ((codePoint - 0x10000) >> 10), wide);
    AppendUnit(0xDC00 + ((codePoint - 0x10000) & 0x3FF), wide);
}

void AppendWide(const TFormString& value, const TFormFile& file, std::string& wide) {
    if (value.Kind == TFormStringKind::Wide) {
        wide.append(value.Bytes);
    } else if (IsAscii(value.Bytes)) {
        AppendAscii(value.Bytes, wide);
    } else {
        const std::string text = ToUtf8(value, file);
        for (std::size_t pos = 0; pos < text.size();) {
            const std::size_t end = FindNonAscii(text, pos);
            AppendAscii(std::string_view(text).substr(pos, end - pos), wide);
            pos = end;
            if (pos < text.size()) AppendWide(DecodeCodePoint(text, pos), wide);
        }
    }
}

void TFormStringRuns::Clear() {
    isWide_ = false;
    bytes_.clear();
}

void TFormStringRuns::Append(std::string_view token) {
    for (std::size_t i = 0; i < token.size();) {
        if (token[i] == '\'') {
            const std::size_t close = token.find('\'', i + 1);
            AppendBytes(token.substr(i + 1, close - i - 1));
            i = close + 1;
            // Two pieces without anything between them are a doubled apostrophe.
            if (i < token.size() && token[i] == '\'') AppendBytes("'");
        } else {
            char32_t code = 0;
            for (++i; i < token.size() && IsFormChar(token[i], kDigit); ++i) {
                code = code * 10 + static_cast<char32_t>(token[i] - '0');
            }
            AppendCode(code);
        }
    }
}

void TFormStringRuns::AppendBytes(std::string_view bytes) {
    if (isWide_) {
        AppendWide({TFormStringKind::Ansi, bytes}, file_, bytes_);
    } else {
        bytes_.append(bytes);
    }
}

void TFormStringRuns::AppendCode(char32_t code) {
    if (!isWide_ && code < 0x80) return bytes_.push_back(static_cast<char>(code));
    if (!isWide_) {
        std::string wide;
        wide.reserve(4 * bytes_.size() + 256);
        AppendWide(String(), file_, wide);
        bytes_ = std::move(wide);
        isWide_ = true;
    }
    AppendWide(code, bytes_);
}

TFormString TFormStringRuns::String() const {
    return {isWide_ ? TFormStringKind::Wide : TFormStringKind::Ansi, bytes_};
}

}  // namespace tml
