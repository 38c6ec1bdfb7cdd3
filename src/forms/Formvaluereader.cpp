#include "forms/Formvaluereader.h"

#include <charconv>
#include <limits>

#include "forms/Formchars.h"
#include "forms/Formfloat.h"

namespace tml {

namespace {

/// A number above the largest signed one keeps its bits, as an unsigned 64-bit property is stored.
bool ToNumber(std::string_view text, std::int64_t& number) {
    const bool isHex = text.front() == '$';
    if (isHex) text.remove_prefix(1);
    const char* const end = text.data() + text.size();
    const int base = isHex ? 16 : 10;
    if (!isHex && std::from_chars(text.data(), end, number, base).ec == std::errc{}) return true;
    std::uint64_t bits = 0;
    if (std::from_chars(text.data(), end, bits, base).ec != std::errc{}) return false;
    number = static_cast<std::int64_t>(bits);
    return true;
}

/// The content of a token that is one quoted piece; false for any other.
bool IsPlain(std::string_view token, std::string_view& content) {
    if (token.front() != '\'') return false;
    content = token.substr(1, token.size() - 2);
    return token.find('\'', 1) == token.size() - 1;
}

}  // namespace

std::string_view UnquotedName(std::string_view name) {
    return name.starts_with('\'') ? name.substr(1, name.size() - 2) : name;
}

TTextValueReader::TTextValueReader(const TFormFile& file, TFormLexer& lexer, TFormSink* sink,
                                   IFormPlaces* places)
    : file_(file), lexer_(lexer), sink_(sink), places_(places), runs_(file) {}

void TTextValueReader::Advance() {
    lastEnd_ = lexer_.End();
    lexer_.Next();
}

std::size_t TTextValueReader::Read(int depth) {
    if (places_ != nullptr) places_->BeginValue(lexer_.Begin());
    ReadAny(depth);
    if (places_ != nullptr) places_->EndValue(lastEnd_);
    return lastEnd_;
}

void TTextValueReader::ReadAny(int depth) {
    if (depth > kMaxFormDepth) lexer_.Fail("more than 1000 levels of nesting");
    switch (lexer_.Kind()) {
        case TFormToken::String:
            return ReadString();
        case TFormToken::Integer:
            return ReadInteger();
        case TFormToken::Float:
            return ReadFloat();
        case TFormToken::Name:
            if (sink_ != nullptr) sink_->Identifier(lexer_.Text());
            return Advance();
        default:
            break;
    }
    if (lexer_.IsSymbol('[')) return ReadSet();
    if (lexer_.IsSymbol('(')) return ReadList(depth);
    if (lexer_.IsSymbol('<')) return ReadCollection(depth);
    if (lexer_.IsSymbol('{')) return ReadBinary();
    lexer_.Fail("expected a value");
}

void TTextValueReader::ReadString() {
    const std::string_view first = lexer_.Text();
    Advance();
    std::string_view content;
    if (sink_ != nullptr && !lexer_.IsSymbol('+') && IsPlain(first, content)) {
        return sink_->String({TFormStringKind::Ansi, content});
    }
    if (sink_ != nullptr) {
        runs_.Clear();
        runs_.Append(first);
    }
    while (lexer_.IsSymbol('+')) {
        lexer_.Next();
        if (lexer_.Kind() != TFormToken::String) lexer_.Fail("expected the rest of a string after '+'");
        if (sink_ != nullptr) runs_.Append(lexer_.Text());
        Advance();
    }
    if (sink_ != nullptr) sink_->String(runs_.String());
}

void TTextValueReader::ReadInteger() {
    const std::string_view text = lexer_.Text();
    std::int64_t number = 0;
    if (!ToNumber(text, number)) lexer_.Fail("a number of more than 64 bits");
    if (sink_ != nullptr) sink_->Integer(number, text.front() == '$' ? std::string_view{} : text);
    Advance();
}

void TTextValueReader::ReadFloat() {
    if (sink_ != nullptr) sink_->Float({FloatKindOf(lexer_.Text()), lexer_.Text(), {}});
    Advance();
}

void TTextValueReader::ReadSet() {
    std::vector<std::string_view> names;
    Advance();
    while (!lexer_.IsSymbol(']')) {
        if (lexer_.Kind() != TFormToken::Name) lexer_.Fail("expected a name or ']' in a set");
        if (sink_ != nullptr) names.push_back(lexer_.Text());
        Advance();
        if (lexer_.IsSymbol(',')) {
            Advance();
            if (lexer_.Kind() != TFormToken::Name) lexer_.Fail("expected a name after ',' in a set");
        } else if (!lexer_.IsSymbol(']')) {
            lexer_.Fail("expected ',' or ']' in a set");
        }
    }
    Advance();
    if (sink_ != nullptr) sink_->Set(names);
}

void TTextValueReader::ReadList(int depth) {
    if (sink_ != nullptr) sink_->BeginList();
    Advance();
    while (!lexer_.IsSymbol(')')) {
        if (lexer_.Kind() == TFormToken::End) lexer_.Fail("expected ')' at the end of a list");
        if (sink_ != nullptr) sink_->ListItem();
        Read(depth + 1);
    }
    Advance();
    if (sink_ != nullptr) sink_->EndList();
}

void TTextValueReader::ReadCollection(int depth) {
    if (sink_ != nullptr) sink_->BeginCollection();
    Advance();
    while (!lexer_.IsSymbol('>')) {
        if (!lexer_.IsWord("item")) lexer_.Fail("expected 'item' or '>' in a collection");
        ReadItem(depth + 1);
    }
    Advance();
    if (sink_ != nullptr) sink_->EndCollection();
}

void TTextValueReader::ReadItem(int depth) {
    if (places_ != nullptr) places_->BeginItem(lexer_.Begin());
    Advance();
    const std::optional<int> position = ReadPosition();
    if (sink_ != nullptr) sink_->BeginItem(position);
    while (!lexer_.IsWord("end")) {
        const TFormSpan name = ReadPropertyName();
        if (sink_ != nullptr) sink_->Property(UnquotedName(file_.At(name)));
        Read(depth + 1);
    }
    Advance();
    if (places_ != nullptr) places_->EndItem(lastEnd_);
    if (sink_ != nullptr) sink_->EndItem();
}

void TTextValueReader::ReadBinary() {
    std::string bytes;
    lexer_.ReadBlock(sink_ != nullptr ? &bytes : nullptr);
    Advance();
    if (sink_ != nullptr) sink_->Binary(bytes);
}

std::optional<int> TTextValueReader::ReadPosition() {
    if (!lexer_.IsSymbol('[')) return std::nullopt;
    Advance();
    std::int64_t number = 0;
    if (lexer_.Kind() != TFormToken::Integer || !ToNumber(lexer_.Text(), number) ||
        number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max()) {
        lexer_.Fail("expected a position after '['");
    }
    Advance();
    if (!lexer_.IsSymbol(']')) lexer_.Fail("expected ']' after the position");
    Advance();
    return static_cast<int>(number);
}

TFormSpan TTextValueReader::ReadPropertyName() {
    std::string_view content;
    const bool isQuoted = lexer_.Kind() == TFormToken::String;
    if (isQuoted ? !IsPlain(lexer_.Text(), content) || content.empty() : lexer_.Kind() != TFormToken::Name) {
        lexer_.Fail("expected the name of a property or 'end'");
    }
    const TFormSpan name{static_cast<std::uint32_t>(lexer_.Begin()),
                         static_cast<std::uint32_t>(lexer_.End())};
    Advance();
    if (!lexer_.IsSymbol('=')) lexer_.Fail("expected '=' after the name of a property");
    const int line = lexer_.Line();
    Advance();
    if (lexer_.Kind() == TFormToken::End || (lexer_.AfterLineBreak() && lexer_.IsWord("end"))) {
        lexer_.FailAt(line, "expected a value after '='");
    }
    return name;
}

}  // namespace tml
