#include "forms/Formbinaryreader.h"

#include <array>

#include "base/Errors.h"
#include "forms/Formchars.h"

namespace tml {

namespace {

/// What is special about the kinds of value whose size is fixed, by mark.
struct TMarkRow {
    std::size_t IntegerSize = 0;
    std::size_t FloatSize = 0;
    TFormFloatKind FloatKind = TFormFloatKind::Extended;
    std::string_view Word = {};
};

constexpr std::size_t At(TFormMark mark) {
    return static_cast<std::size_t>(mark);
}

constexpr auto kMarks = [] {
    std::array<TMarkRow, At(TFormMark::Double) + 1> rows{};
    rows[At(TFormMark::Int8)].IntegerSize = 1;
    rows[At(TFormMark::Int16)].IntegerSize = 2;
    rows[At(TFormMark::Int32)].IntegerSize = 4;
    rows[At(TFormMark::Int64)].IntegerSize = 8;
    rows[At(TFormMark::Extended)] = {0, 10, TFormFloatKind::Extended, {}};
    rows[At(TFormMark::Single)] = {0, 4, TFormFloatKind::Single, {}};
    rows[At(TFormMark::Double)] = {0, 8, TFormFloatKind::Double, {}};
    rows[At(TFormMark::Currency)] = {0, 8, TFormFloatKind::Currency, {}};
    rows[At(TFormMark::Date)] = {0, 8, TFormFloatKind::Date, {}};
    rows[At(TFormMark::False)].Word = "False";
    rows[At(TFormMark::True)].Word = "True";
    rows[At(TFormMark::Nil)].Word = "nil";
    rows[At(TFormMark::Null)].Word = "Null";
    return rows;
}();

constexpr std::size_t kMaxPositionSize = 4;

/// Few doubles begin so, and every text of Free Pascal that is not empty and shorter than 65536.
bool BeginsAsLength(std::string_view raw) {
    constexpr std::string_view kZeros{"\x00\x00", 2};
    return raw.substr(2, 2) == kZeros && !raw.starts_with(kZeros);
}

}  // namespace

std::uint32_t TFormBytes::Size() {
    return static_cast<std::uint32_t>(Number(4));
}

std::int64_t TFormBytes::Number(std::size_t count) {
    const std::string_view taken = Take(count);
    // From the last byte on, whose first bit is the sign.
    std::int64_t number = !taken.empty() && static_cast<signed char>(taken.back()) < 0 ? -1 : 0;
    for (auto byte = taken.rbegin(); byte != taken.rend(); ++byte)
        number = number << 8 | static_cast<unsigned char>(*byte);
    return number;
}

void TFormBytes::FailAt(std::uint64_t count) const {
    Fail("a length of " + std::to_string(count) + " reaches beyond the end of the form");
}

void TFormBytes::Fail(const std::string& problem) const {
    throw EBadInput(fileName_, 0, "at byte " + std::to_string(offset_) + ": " + problem,
                    "The file is damaged; take it from a copy");
}

void TBinaryValueReader::Read(int depth) {
    if (depth > kMaxFormDepth) bytes_.Fail("more than 1000 levels of nesting");
    if (places_ != nullptr) places_->BeginValue(bytes_.Offset());
    ReadAny(depth);
    if (places_ != nullptr) places_->EndValue(bytes_.Offset());
}

void TBinaryValueReader::ReadAny(int depth) {
    const bool isFreePascal = kinds_ == TFormKinds::FreePascal && bytes_.Peek() >= At(TFormMark::Double) &&
                              bytes_.Peek() <= static_cast<unsigned>(TFreePascalMark::QWord);
    if (isFreePascal) return ReadFreePascal(static_cast<TFreePascalMark>(bytes_.Byte()));
    if (bytes_.Peek() >= kMarks.size()) {
        bytes_.Fail("unknown kind of value " + std::to_string(bytes_.Peek()));
    }
    const auto mark = static_cast<TFormMark>(bytes_.Byte());
    const TMarkRow& row = kMarks[At(mark)];
    if (row.IntegerSize != 0) return ReadNumber(row.IntegerSize);
    if (row.FloatSize != 0) return ReadFloat(row.FloatKind, row.FloatSize);
    if (!row.Word.empty()) return ReadName(row.Word);
    switch (mark) {
        case TFormMark::ShortString:
            return ReadString(TFormStringKind::Ansi, bytes_.ShortString());
        case TFormMark::LongString:
            return ReadString(TFormStringKind::Ansi, bytes_.Take(bytes_.Size()));
        case TFormMark::Utf8String:
            return ReadString(TFormStringKind::Utf8, bytes_.Take(bytes_.Size()));
        case TFormMark::WideString:
            return ReadString(TFormStringKind::Wide, bytes_.Take(std::uint64_t{2} * bytes_.Size()));
        case TFormMark::Identifier:
            return ReadName(bytes_.ShortString());
        case TFormMark::Binary:
            return ReadBinary();
        case TFormMark::Set:
            return ReadSet();
        case TFormMark::Collection:
            return ReadCollection(depth);
        default:
            return ReadList(depth);
    }
}

void TBinaryValueReader::ReadFreePascal(TFreePascalMark mark) {
    if (mark == TFreePascalMark::UnicodeString)
        return ReadString(TFormStringKind::Wide, bytes_.Take(std::uint64_t{2} * bytes_.Size()));
    const std::int64_t number = bytes_.Number(8);
    const std::string text = std::to_string(static_cast<std::uint64_t>(number));
    if (sink_ != nullptr) sink_->Integer(number, text);
}

void TBinaryValueReader::ReadNumber(std::size_t size) {
    const std::int64_t number = bytes_.Number(size);
    if (sink_ != nullptr) sink_->Integer(number, {});
}

void TBinaryValueReader::ReadFloat(TFormFloatKind kind, std::size_t size) {
    const std::string_view raw = bytes_.Take(size);
    if (habits_ != nullptr && kind == TFormFloatKind::Double && BeginsAsLength(raw))
        habits_->HasOddDouble = true;
    if (sink_ != nullptr) sink_->Float({kind, {}, raw});
}

void TBinaryValueReader::ReadString(TFormStringKind kind, std::string_view content) {
    if (habits_ != nullptr) Note(kind, content);
    if (sink_ != nullptr) sink_->String({kind, content});
}

void TBinaryValueReader::Note(TFormStringKind kind, std::string_view content) {
    if (kind == TFormStringKind::Wide) {
        habits_->HasWide = true;
    } else if (IsAscii(content)) {
        return;
    } else if (kind == TFormStringKind::Utf8) {
        habits_->HasUtf8 = true;
    } else {
        habits_->AnsiSample.append(content).push_back('\n');
    }
}

void TBinaryValueReader::ReadName(std::string_view name) {
    if (habits_ != nullptr) Note(TFormStringKind::Ansi, name);
    if (sink_ != nullptr) sink_->Identifier(name);
}

void TBinaryValueReader::ReadSet() {
    std::vector<std::string_view> names;
    for (std::string_view name = bytes_.ShortString(); !name.empty(); name = bytes_.ShortString()) {
        if (habits_ != nullptr) Note(TFormStringKind::Ansi, name);
        if (sink_ != nullptr) names.push_back(name);
    }
    if (sink_ != nullptr) sink_->Set(names);
}

void TBinaryValueReader::ReadBinary() {
    const std::string_view content = bytes_.Take(bytes_.Size());
    if (sink_ != nullptr) sink_->Binary(content);
}

void TBinaryValueReader::ReadList(int depth) {
    if (sink_ != nullptr) sink_->BeginList();
    while (bytes_.Peek() != 0) {
        if (sink_ != nullptr) sink_->ListItem();
        Read(depth + 1);
    }
    bytes_.Byte();
    if (sink_ != nullptr) sink_->EndList();
}

void TBinaryValueReader::ReadCollection(int depth) {
    if (sink_ != nullptr) sink_->BeginCollection();
    while (bytes_.Peek() != 0)
        ReadItem(depth + 1);
    bytes_.Byte();
    if (sink_ != nullptr) sink_->EndCollection();
}

void TBinaryValueReader::ReadItem(int depth) {
    if (places_ != nullptr) places_->BeginItem(bytes_.Offset());
    std::optional<int> position;
    if (bytes_.Peek() != static_cast<unsigned>(TFormMark::List)) position = ReadPosition();
    if (bytes_.Peek() != static_cast<unsigned>(TFormMark::List)) bytes_.Fail("expected an item");
    bytes_.Byte();
    if (sink_ != nullptr) sink_->BeginItem(position);
    while (bytes_.Peek() != 0) {
        const std::string_view name = bytes_.ShortString();
        if (habits_ != nullptr) Note(TFormStringKind::Ansi, name);
        if (sink_ != nullptr) sink_->Property(name);
        Read(depth + 1);
    }
    bytes_.Byte();
    if (places_ != nullptr) places_->EndItem(bytes_.Offset());
    if (sink_ != nullptr) sink_->EndItem();
}

int TBinaryValueReader::ReadPosition() {
    const unsigned mark = bytes_.Peek();
    const std::size_t size = mark < kMarks.size() ? kMarks[mark].IntegerSize : 0;
    if (size == 0 || size > kMaxPositionSize) bytes_.Fail("expected a position");
    bytes_.Byte();
    return static_cast<int>(bytes_.Number(size));
}

}  // namespace tml
