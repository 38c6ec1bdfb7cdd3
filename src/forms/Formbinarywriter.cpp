#include "forms/Formbinarywriter.h"

#include <array>
#include <cctype>
#include <limits>
#include <utility>

#include "base/Errors.h"
#include "forms/Formbinary.h"
#include "forms/Formchars.h"
#include "forms/Formfloat.h"
#include "forms/Formstrings.h"

namespace tml {

namespace {

constexpr std::size_t kMaxShort = 255;

constexpr std::array<std::pair<std::string_view, TFormMark>, 3> kWords{
    {{"true", TFormMark::True}, {"false", TFormMark::False}, {"nil", TFormMark::Nil}}};

char MarkByte(TFormMark mark) {
    return static_cast<char>(mark);
}

template <typename Narrow>
bool Fits(std::int64_t number) {
    return number >= std::numeric_limits<Narrow>::min() && number <= std::numeric_limits<Narrow>::max();
}

TFormMark FloatMark(TFormFloatKind kind) {
    switch (kind) {
        case TFormFloatKind::Single:
            return TFormMark::Single;
        case TFormFloatKind::Double:
            return TFormMark::Double;
        case TFormFloatKind::Currency:
            return TFormMark::Currency;
        case TFormFloatKind::Date:
            return TFormMark::Date;
        case TFormFloatKind::Extended:
            break;
    }
    return TFormMark::Extended;
}

}  // namespace

std::string SizeBytes(std::size_t size) {
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>((size >> shift) & 0xFF);
    return bytes;
}

void TFormBinaryWriter::ShortString(std::string_view name) {
    if (name.size() > kMaxShort) {
        throw EBadInput(file_.FileName(), 0,
                        "a name of more than 255 bytes: " + std::string(name.substr(0, 40)), "Shorten it");
    }
    out_ += static_cast<char>(name.size());
    out_ += name;
}

void TFormBinaryWriter::Number(std::int64_t number, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) {
        out_ += static_cast<char>((static_cast<std::uint64_t>(number) >> (8 * i)) & 0xFF);
    }
}

void TFormBinaryWriter::BeginNode(const TFormHead& head) {
    unsigned bits = 0;
    if (head.Prefix == TFormPrefix::Inherited) bits |= kInheritedBit;
    if (head.Prefix == TFormPrefix::Inline) bits |= kInlineBit;
    if (head.Position) bits |= kPositionBit;
    // Without a class the first byte would be that of the end of a list of components.
    if (bits != 0 || head.ClassName.empty()) out_ += static_cast<char>(kPrefixByte + bits);
    if (head.Position) Integer(*head.Position, {});
    ShortString(head.ClassName);
    ShortString(head.Name);
}

void TFormBinaryWriter::Integer(std::int64_t number, std::string_view /*text*/) {
    if (Fits<std::int8_t>(number)) {
        out_ += MarkByte(TFormMark::Int8);
        Number(number, 1);
    } else if (Fits<std::int16_t>(number)) {
        out_ += MarkByte(TFormMark::Int16);
        Number(number, 2);
    } else if (Fits<std::int32_t>(number)) {
        out_ += MarkByte(TFormMark::Int32);
        Number(number, 4);
    } else {
        out_ += MarkByte(TFormMark::Int64);
        Number(number, 8);
    }
}

void TFormBinaryWriter::Float(const TFormFloat& value) {
    out_ += MarkByte(FloatMark(value.Kind));
    out_ += value.Raw.empty() ? FloatBytes(value.Text) : std::string(value.Raw);
}

// A text with a UTF-8 mark says what its bytes are, and so must the binary made of it. Other bytes above
// 127 stay what they are, in whatever code page.
void TFormBinaryWriter::String(const TFormString& value) {
    TFormStringKind kind = value.Kind;
    const bool isPlain = kind != TFormStringKind::Wide && IsAscii(value.Bytes);
    if (!isPlain && kind == TFormStringKind::Ansi && !file_.IsBinary() && file_.Encoding().Bom == kUtf8Mark) {
        kind = TFormStringKind::Utf8;
    } else if (!isPlain && kind == TFormStringKind::Utf8) {
        kind = modelStrings_;
    }
    if (isPlain) return AnsiString(value.Bytes);
    if (kind == TFormStringKind::Ansi) {
        return AnsiString(value.Kind == kind ? std::string(value.Bytes) : EncodeFor(file_, value.Bytes));
    }
    if (kind == TFormStringKind::Utf8) {
        out_ += MarkByte(TFormMark::Utf8String);
        out_ += SizeBytes(value.Bytes.size());
        out_ += value.Bytes;
        return;
    }
    std::string wide;
    AppendWide(value, file_, wide);
    out_ += MarkByte(TFormMark::WideString);
    out_ += SizeBytes(wide.size() / 2);
    out_ += wide;
}

void TFormBinaryWriter::AnsiString(std::string_view bytes) {
    if (bytes.size() <= kMaxShort) {
        out_ += MarkByte(TFormMark::ShortString);
        out_ += static_cast<char>(bytes.size());
    } else {
        out_ += MarkByte(TFormMark::LongString);
        out_ += SizeBytes(bytes.size());
    }
    out_ += bytes;
}

void TFormBinaryWriter::Identifier(std::string_view name) {
    for (const auto& [word, mark] : kWords) {
        if (IsKeyword(name, word)) {
            out_ += MarkByte(mark);
            return;
        }
    }
    out_ += MarkByte(TFormMark::Identifier);
    ShortString(name);
}

void TFormBinaryWriter::Set(const std::vector<std::string_view>& names) {
    out_ += MarkByte(TFormMark::Set);
    for (const std::string_view name : names)
        ShortString(name);
    out_ += '\0';
}

void TFormBinaryWriter::Binary(std::string_view bytes) {
    out_ += MarkByte(TFormMark::Binary);
    out_ += SizeBytes(bytes.size());
    out_ += bytes;
}

void TFormBinaryWriter::BeginList() {
    out_ += MarkByte(TFormMark::List);
}

void TFormBinaryWriter::BeginCollection() {
    out_ += MarkByte(TFormMark::Collection);
}

void TFormBinaryWriter::BeginItem(std::optional<int> position) {
    if (position) Integer(*position, {});
    out_ += MarkByte(TFormMark::List);
}

std::string ResourceHeader(std::string_view className) {
    std::string header(kResourceSignature);
    for (const char c : className)
        header += c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
    header += kResourceFlags;
    return header + SizeBytes(0);
}

}  // namespace tml
