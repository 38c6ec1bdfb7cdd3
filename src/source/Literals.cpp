// The text of a literal, and a literal for a text.
#include "source/Literals.h"

#include <algorithm>
#include <array>

#include "base/Utf8.h"
#include "source/Characters.h"
#include "source/Charclass.h"
#include "source/Cppskim.h"

namespace tml {
namespace {

struct TEscape {
    char Letter;
    char Value;
};
constexpr std::array<TEscape, 12> kEscapes = {{{'n', '\n'},
                                               {'r', '\r'},
                                               {'t', '\t'},
                                               {'a', '\a'},
                                               {'b', '\b'},
                                               {'f', '\f'},
                                               {'v', '\v'},
                                               {'e', '\x1B'},
                                               {'\\', '\\'},
                                               {'"', '"'},
                                               {'\'', '\''},
                                               {'?', '?'}}};

std::string DecodePascalQuotes(std::string_view body) {
    std::string text;
    text.reserve(body.size());
    for (std::size_t pos = 0; pos < body.size();) {
        const std::size_t end = std::min(body.find('\'', pos), body.size() - 1) + 1;
        text.append(body, pos, end - pos);
        pos = end + 1;  // behind the second apostrophe
    }
    return text;
}

/// The lines of a ''' text without the indent of its last line and without its first and last line end.
std::string DecodePascalLongText(std::string_view body) {
    const std::size_t indent = body.size() - LineStart(body, body.size());
    std::string text;
    std::size_t line = body.find('\n') + 1;
    for (std::size_t next = 0; (next = body.find('\n', line)) != std::string_view::npos; line = next + 1) {
        const std::size_t first = std::min({body.find_first_not_of(" \t", line), line + indent, next});
        text += body.substr(first, next + 1 - first);
    }
    while (!text.empty() && IsLineEnd(text.back())) {
        const bool wasLf = text.back() == '\n';
        text.pop_back();
        if (!wasLf || text.empty() || text.back() != '\r') break;
    }
    return text;
}

/// Bytes of u8"..." are UTF-8, whatever the file is in.
const TByteEncodings kUnicodeBytes = ByteEncodingsOf({}, {});

/// Decodes the pieces of a C++ literal one after the other. Numeric escapes of narrow strings are bytes, in
/// wide strings they are code units.
class TCppDecoder {
  public:
    void Add(std::string_view body, bool wide, const TByteEncodings& encodings) {
        for (std::size_t pos = 0; pos < body.size();) {
            const std::size_t next = std::min(body.find('\\', pos), body.size());
            characters_.Add(body.substr(pos, next - pos));
            const bool escapes = next + 1 < body.size();
            if (next + 1 == body.size()) characters_.Add("\\");
            pos = escapes ? AddEscape(body, next + 1, wide ? nullptr : &encodings) : body.size();
        }
    }
    /// Whatever ends a line of the source, the compiler sees a line feed.
    void AddRaw(std::string_view body) {
        for (std::size_t i = 0; i < body.size(); ++i)
            if (body[i] != '\r' || body.substr(i + 1, 1) != "\n") characters_.Add(body.substr(i, 1));
    }
    std::string Take() { return characters_.Take(); }

  private:
    std::size_t AddEscape(std::string_view body, std::size_t pos, const TByteEncodings* encodings) {
        const char letter = body[pos];
        if (letter == '\n') return pos + 1;
        if (letter == '\r') return pos + (body.substr(pos, 2) == "\r\n" ? 2 : 1);
        if (letter == 'x') return AddNumber(body, pos + 1, 16, 8, encodings);
        if (letter == 'u') return AddNumber(body, pos + 1, 16, 4, nullptr);
        if (letter == 'U') return AddNumber(body, pos + 1, 16, 8, nullptr);
        if (letter >= '0' && letter <= '7') return AddNumber(body, pos, 8, 3, encodings);
        const auto known = std::find_if(kEscapes.begin(), kEscapes.end(),
                                        [&](const TEscape& escape) { return escape.Letter == letter; });
        characters_.Add({known == kEscapes.end() ? &body[pos] : &known->Value, 1});
        return pos + 1;
    }

    /// encodings is nullptr for a code unit.
    std::size_t AddNumber(std::string_view body, std::size_t pos, unsigned base, int digits,
                          const TByteEncodings* encodings) {
        std::uint32_t value = 0;
        for (; digits > 0 && pos < body.size() && IsHexDigit(body[pos]); --digits, ++pos) {
            const auto c = static_cast<unsigned char>(body[pos]);
            const unsigned digit = IsDigit(body[pos]) ? c - '0' : (c | 0x20U) - 'a' + 10;
            if (digit >= base) break;
            value = value * base + digit;
        }
        if (encodings != nullptr && value <= 0xFF)
            characters_.AddByte(static_cast<unsigned char>(value), *encodings);
        else
            characters_.AddUnit(value);
        return pos;
    }

    TCharacters characters_;
};

std::string DecodeCpp(const TSourceText& source, const TLiteral& literal) {
    const std::string_view text = source.Text();
    TCppDecoder decoder;
    TRawStrings rawStrings(text.substr(0, literal.End));
    for (std::size_t pos = literal.Open; pos < literal.End;) {
        if (text[pos] == '/') {
            pos = CppCommentEnd(text, pos);
        } else if (text[pos] != '"') {
            ++pos;
        } else {
            const std::string_view prefix = PrefixBefore(text, pos);
            const TQuoted raw = IsRawPrefix(prefix) ? rawStrings.Read(pos) : TQuoted{};
            const TQuoted quoted = raw.Closed ? raw : ReadCppQuotes(text, pos);
            const std::string_view body = text.substr(quoted.BodyBegin, quoted.BodyEnd - quoted.BodyBegin);
            const bool isUtf8 = prefix == "u8";
            if (raw.Closed)
                decoder.AddRaw(body);
            else
                decoder.Add(body, !prefix.empty() && !isUtf8,
                            isUtf8 ? kUnicodeBytes : source.ByteEncodings());
            pos = quoted.End;
        }
    }
    return decoder.Take();
}

std::string EncodePascal(std::string_view text) {
    std::string body;
    bool inCodes = false;
    for (const char c : text) {
        const bool isCode = (static_cast<unsigned char>(c) < ' ' && c != '\t') || c == '\x7F';
        if (isCode != inCodes) body += '\'';
        inCodes = isCode;
        if (isCode)
            body += '#' + std::to_string(static_cast<unsigned char>(c));
        else
            body.append(c == '\'' ? 2 : 1, c);
    }
    return inCodes ? body + '\'' : body;
}

std::string EncodeCpp(std::string_view text) {
    std::string body;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const auto known = std::find_if(kEscapes.begin(), kEscapes.end(), [&](const TEscape& escape) {
            return escape.Value == c && c != '\'' && c != '?' && escape.Letter != 'e';
        });
        if (known != kEscapes.end())
            body.append(1, '\\').append(1, known->Letter);
        else if (byte < ' ' || byte == 0x7F)
            body += {'\\', static_cast<char>('0' + byte / 64), static_cast<char>('0' + byte / 8 % 8),
                     static_cast<char>('0' + byte % 8)};
        else
            body += c;
    }
    return body;
}

}  // namespace

std::string DecodeLiteral(const TSourceText& source, const TLiteral& literal) {
    const std::string_view body = source.Text().substr(literal.BodyBegin, literal.RawLength());
    if (!source.Language().IsCPPSource) {
        const bool isLong = literal.BodyBegin > literal.Open + 1;
        return isLong ? DecodePascalLongText(body) : DecodePascalQuotes(body);
    }
    return DecodeCpp(source, literal);
}

std::string EncodeLiteralBody(std::string_view text, const TLanguage& language) {
    return language.IsCPPSource ? EncodeCpp(text) : EncodePascal(text);
}

}  // namespace tml
