#include "forms/Formpieces.h"

#include <array>
#include <charconv>
#include <utility>

#include "base/Utf8.h"
#include "forms/Formstrings.h"

namespace tml {

namespace {

/// A long string is cut behind so many characters (UTF-16 units).
constexpr std::size_t kPieceUnits = 64;
constexpr char32_t kDelete = 0x7F;

}  // namespace

TFormPieces::TFormPieces(const TFormFile& file, const TFormTextStyle& style, std::string lineBreak)
    : file_(file), style_(style), lineBreak_(std::move(lineBreak)) {}

std::string TFormPieces::Write(std::string_view wide) {
    const std::size_t count = wide.size() / 2;
    if (count == 0) return "''";
    text_.reserve(wide.size());
    const bool isSplit = style_.Layout == TFormDialect::Dfm && count > kPieceUnits;
    if (isSplit) text_ = lineBreak_;
    std::size_t inPiece = 0;
    for (std::size_t i = 0; i < count; ++i, ++inPiece) {
        if (isSplit && inPiece >= kPieceUnits) {
            Close();
            text_ += " +" + lineBreak_;
            inPiece = 0;
        }
        if (style_.RawCharacters && IsPairAt(wide, i) && PutRaw(PairAt(wide, i))) {
            ++i;
            ++inPiece;
        } else {
            Put(WideUnit(wide, i));
        }
    }
    Close();
    return std::move(text_);
}

void TFormPieces::Put(char32_t unit) {
    const bool isRaw = style_.RawCharacters && unit > kDelete && !IsSurrogate(unit);
    if (unit >= ' ' && unit < kDelete && unit != '\'') {
        if (!inQuotes_) Open();
        text_.push_back(static_cast<char>(unit));
    } else if (unit == '\'' && style_.DoubledApostrophe) {
        Open();
        text_ += "''";
    } else if (!isRaw || !PutRaw(unit)) {
        PutCode(unit);
    }
}

bool TFormPieces::PutRaw(char32_t codePoint) {
    std::string character;
    AppendCodePoint(character, codePoint);
    std::string bytes;
    if (!Encode(file_.Encoding(), character, bytes)) return false;
    Open();
    text_ += bytes;
    return true;
}

void TFormPieces::PutCode(char32_t code) {
    Close();
    std::array<char, 11> number = {'#'};
    const auto end =
        std::to_chars(number.data() + 1, number.data() + number.size(), static_cast<std::uint32_t>(code));
    text_.append(number.data(), end.ptr);
}

void TFormPieces::Open() {
    if (!inQuotes_) text_.push_back('\'');
    inQuotes_ = true;
}

void TFormPieces::Close() {
    if (inQuotes_) text_.push_back('\'');
    inQuotes_ = false;
}

}  // namespace tml
