#include "forms/Formtextwriter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <utility>

#include "base/Errors.h"
#include "forms/Formchars.h"
#include "forms/Formfloat.h"
#include "forms/Formpieces.h"
#include "forms/Formstrings.h"

namespace tml {

namespace {

constexpr std::array<std::string_view, 3> kPrefixWords{"object", "inherited", "inline"};
constexpr std::size_t kBytesInHexLine = 32;
constexpr std::size_t kPieceLength = 64;

/// True for characters that can stand between quotes as they are, whatever the style.
bool IsPrintable(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c < 0x7F && c != '\''; });
}

/// True for a word that is none of a property when it stands in front of "=" without quotes.
bool BeginsOrEndsNode(std::string_view name) {
    return IsKeyword(name, "end") || std::any_of(kPrefixWords.begin(), kPrefixWords.end(),
                                                 [&](auto word) { return IsKeyword(name, word); });
}

template <typename Number>
void AppendNumber(std::string& out, Number number) {
    std::array<char, 24> buffer{};
    out.append(buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr);
}

}  // namespace

TFormTextWriter::TFormTextWriter(const TFormFile& file, const TFormTextStyle& style, std::string& out,
                                 std::string base)
    : file_(file), style_(style), out_(out), indent_(std::move(base)) {}

void TFormTextWriter::NewLine() {
    out_ += style_.LineEnd;
    out_ += indent_;
}

void TFormTextWriter::BeginNode(const TFormHead& head) {
    // The first line of a whole form has no line break before it.
    if (!out_.empty()) NewLine();
    out_ += kPrefixWords[static_cast<std::size_t>(head.Prefix)];
    out_ += ' ';
    if (!head.Name.empty()) {
        Identifier(head.Name);
        out_ += ": ";
    }
    if (!head.ClassName.empty()) Identifier(head.ClassName);
    if (head.Position) {
        if (style_.Layout == TFormDialect::Dfm) out_ += ' ';
        out_ += '[';
        AppendNumber(out_, *head.Position);
        out_ += ']';
    }
    Deeper();
}

void TFormTextWriter::EndNode() {
    Shallower();
    NewLine();
    out_ += "end";
}

void TFormTextWriter::Property(std::string_view name) {
    NewLine();
    const bool isQuoted = !IsFormName(name) || BeginsOrEndsNode(name);
    if (isQuoted && name.find_first_of("'\r\n") != name.npos) Refuse(name);
    if (isQuoted) out_ += '\'';
    out_ += name;
    if (isQuoted) out_ += '\'';
    out_ += " = ";
}

void TFormTextWriter::Integer(std::int64_t number, std::string_view text) {
    if (!text.empty()) {
        out_ += text;
    } else {
        AppendNumber(out_, number);
    }
}

void TFormTextWriter::Float(const TFormFloat& value) {
    const bool hasSuffix = !FloatSuffix(value.Kind).empty();
    if (!value.Text.empty()) {
        out_ += value.Text;
    } else if (hasSuffix) {
        out_ += ShortFloatText(value);
        out_ += FloatSuffix(value.Kind);
    } else {
        out_ += LongFloatText(ExtendedBytes(value));
    }
}

void TFormTextWriter::String(const TFormString& value) {
    if (WritePlain(value)) return;
    std::string wide;
    AppendWide(value, file_, wide);
    out_ += TFormPieces(file_, style_, style_.LineEnd + indent_ + style_.Indent).Write(wide);
}

// Most strings need neither codes nor pieces.
bool TFormTextWriter::WritePlain(const TFormString& value) {
    const bool fits = style_.Layout == TFormDialect::Lfm || value.Bytes.size() <= kPieceLength;
    if (value.Kind == TFormStringKind::Wide || !fits || !IsPrintable(value.Bytes)) return false;
    out_ += '\'';
    out_ += value.Bytes;
    out_ += '\'';
    return true;
}

void TFormTextWriter::Identifier(std::string_view name) {
    if (!IsFormName(name)) Refuse(name);
    out_ += name;
}

// Only a binary file holds such names, and they are handed over where they stand in its bytes.
void TFormTextWriter::Refuse(std::string_view name) const {
    const std::less<> isBefore;
    const std::string& bytes = file_.Bytes();
    const bool isOfFile = !isBefore(name.data(), bytes.data()) &&
                          !isBefore(bytes.data() + bytes.size(), name.data() + name.size());
    const std::string place = isOfFile ? "at byte " + std::to_string(name.data() - bytes.data()) + ": " : "";
    throw EBadInput(file_.FileName(), 0, place + "a name that the text of a form cannot hold",
                    "Keep the form in its binary form");
}

void TFormTextWriter::Set(const std::vector<std::string_view>& names) {
    out_ += '[';
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i != 0) out_ += ", ";
        Identifier(names[i]);
    }
    out_ += ']';
}

void TFormTextWriter::Binary(std::string_view bytes) {
    const bool isLfm = style_.Layout == TFormDialect::Lfm;
    out_ += '{';
    if (!isLfm && bytes.size() < kBytesInHexLine) {
        WriteHexLine(bytes);
    } else {
        Deeper();
        for (std::size_t i = 0; i < bytes.size(); i += kBytesInHexLine) {
            NewLine();
            WriteHexLine(bytes.substr(i, kBytesInHexLine));
        }
        Shallower();
        if (isLfm) NewLine();
    }
    out_ += '}';
}

void TFormTextWriter::WriteHexLine(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const std::size_t begin = out_.size();
    out_.resize(begin + 2 * bytes.size());
    char* digit = out_.data() + begin;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        *digit++ = kDigits[byte >> 4];
        *digit++ = kDigits[byte & 0xF];
    }
}

void TFormTextWriter::BeginList() {
    out_ += '(';
    isEmpty_ = true;
    Deeper();
}

void TFormTextWriter::ListItem() {
    NewLine();
    isEmpty_ = false;
}

// In an .lfm the bracket stands on its own line; that of an empty list is only moved by the indent.
void TFormTextWriter::EndList() {
    Shallower();
    if (style_.Layout == TFormDialect::Lfm) {
        if (isEmpty_) {
            out_ += indent_;
        } else {
            NewLine();
        }
    }
    isEmpty_ = false;
    out_ += ')';
}

void TFormTextWriter::BeginCollection() {
    out_ += '<';
}

void TFormTextWriter::BeginItem(std::optional<int> position) {
    if (style_.Layout == TFormDialect::Lfm) out_ += indent_;
    Deeper();
    NewLine();
    out_ += "item";
    if (position) {
        out_ += " [";
        AppendNumber(out_, *position);
        out_ += ']';
    }
    Deeper();
}

void TFormTextWriter::EndItem() {
    Shallower();
    NewLine();
    out_ += "end";
    Shallower();
}

void TFormTextWriter::EndCollection() {
    out_ += '>';
}

}  // namespace tml
