#include "forms/Formbinaryreader.h"

#include "base/Errors.h"
#include "forms/Formchars.h"

namespace tml {

namespace {

std::size_t IntegerSize(TFormMark mark) {
    switch (mark) {
        case TFormMark::Int8:
            return 1;
        case TFormMark::Int16:
            return 2;
        case TFormMark::Int32:
            return 4;
        case TFormMark::Int64:
            return 8;
        default:
            return 0;
    }
}

}  // namespace

unsigned TFormBytes::Peek() const {
    if (Left() == 0) Fail("the form ends too early");
    return static_cast<unsigned char>(bytes_[offset_]);
}

unsigned TFormBytes::Byte() {
    const unsigned byte = Peek();
    ++offset_;
    return byte;
}

std::string_view TFormBytes::Take(std::uint64_t count) {
    if (count > Left()) Fail("a length of " + std::to_string(count) + " reaches beyond the end of the form");
    const std::string_view taken = bytes_.substr(offset_, static_cast<std::size_t>(count));
    offset_ += taken.size();
    return taken;
}

std::uint32_t TFormBytes::Size() {
    return static_cast<std::uint32_t>(Number(4));
}

std::int64_t TFormBytes::Number(std::size_t count) {
    const std::string_view taken = Take(count);
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < count; ++i) {
        number |= static_cast<std::uint64_t>(static_cast<unsigned char>(taken[i])) << (8 * i);
    }
    const std::size_t unused = 64 - 8 * count;
    return static_cast<std::int64_t>(number << unused) >> unused;
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
    const auto mark = static_cast<TFormMark>(bytes_.Peek());
    if (mark > TFormMark::Double) bytes_.Fail("unknown kind of value " + std::to_string(bytes_.Peek()));
    bytes_.Byte();
    switch (mark) {
        case TFormMark::Int8:
        case TFormMark::Int16:
        case TFormMark::Int32:
        case TFormMark::Int64:
            return ReadNumber(mark);
        case TFormMark::Extended:
            return ReadFloat(TFormFloatKind::Extended, 10);
        case TFormMark::Single:
            return ReadFloat(TFormFloatKind::Single, 4);
        case TFormMark::Double:
            return ReadFloat(TFormFloatKind::Double, 8);
        case TFormMark::Currency:
            return ReadFloat(TFormFloatKind::Currency, 8);
        case TFormMark::Date:
            return ReadFloat(TFormFloatKind::Date, 8);
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
        case TFormMark::False:
            return ReadName("False");
        case TFormMark::True:
            return ReadName("True");
        case TFormMark::Nil:
            return ReadName("nil");
        case TFormMark::Null:
            return ReadName("Null");
        case TFormMark::Binary:
            return ReadBinary();
        case TFormMark::Set:
            return ReadSet();
        case TFormMark::List:
            return ReadList(depth);
        case TFormMark::Collection:
            return ReadCollection(depth);
    }
}

void TBinaryValueReader::ReadNumber(TFormMark mark) {
    const std::int64_t number = bytes_.Number(IntegerSize(mark));
    if (sink_ != nullptr) sink_->Integer(number, {});
}

void TBinaryValueReader::ReadFloat(TFormFloatKind kind, std::size_t size) {
    const std::string_view raw = bytes_.Take(size);
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
    const std::size_t size = IntegerSize(static_cast<TFormMark>(bytes_.Peek()));
    if (size == 0 || size > 4) bytes_.Fail("expected a position");
    bytes_.Byte();
    return static_cast<int>(bytes_.Number(size));
}

}  // namespace tml
