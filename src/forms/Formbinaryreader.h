#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "forms/Formbinary.h"
#include "forms/Formsink.h"

namespace tml {

/// Reads bytes in order and never beyond their end.
class TFormBytes {
  public:
    TFormBytes(std::string_view bytes, std::size_t offset, const std::string& fileName)
        : bytes_(bytes), offset_(offset), fileName_(fileName) {}

    std::size_t Offset() const { return offset_; }
    std::size_t Left() const { return bytes_.size() - offset_; }
    unsigned Peek() const {
        if (Left() == 0) Fail("the form ends too early");
        return static_cast<unsigned char>(bytes_[offset_]);
    }
    unsigned Byte() {
        const unsigned byte = Peek();
        ++offset_;
        return byte;
    }
    std::string_view Take(std::uint64_t count) {
        if (count > Left()) FailAt(count);
        const std::string_view taken(bytes_.data() + offset_, static_cast<std::size_t>(count));
        offset_ += taken.size();
        return taken;
    }
    std::uint32_t Size();
    /// A length byte and so many bytes.
    std::string_view ShortString() { return Take(Byte()); }
    /// A little-endian number with its sign.
    std::int64_t Number(std::size_t count);
    [[noreturn]] void Fail(const std::string& problem) const;

  private:
    [[noreturn]] void FailAt(std::uint64_t count) const;

    std::string_view bytes_;
    std::size_t offset_;
    const std::string& fileName_;
};

/// Reads property values of a binary form. Without a sink it only checks and passes over.
class TBinaryValueReader {
  public:
    /// habits (if given) takes what the strings tell.
    TBinaryValueReader(TFormBytes& bytes, TFormKinds kinds, TFormSink* sink, IFormPlaces* places,
                       TFormStringHabits* habits)
        : bytes_(bytes), kinds_(kinds), sink_(sink), places_(places), habits_(habits) {}

    /// depth counts the components, lists and collections around the value.
    void Read(int depth);
    /// Reads an integer value that stands for a position; throws EBadInput for another value.
    int ReadPosition();

  private:
    void ReadAny(int depth);
    void ReadFreePascal(TFreePascalMark mark);
    void ReadNumber(std::size_t size);
    void ReadFloat(TFormFloatKind kind, std::size_t size);
    void ReadString(TFormStringKind kind, std::string_view content);
    void ReadName(std::string_view name);
    void ReadSet();
    void ReadBinary();
    void ReadList(int depth);
    void ReadCollection(int depth);
    void ReadItem(int depth);
    void Note(TFormStringKind kind, std::string_view content);

    TFormBytes& bytes_;
    TFormKinds kinds_;
    TFormSink* sink_;
    IFormPlaces* places_;
    TFormStringHabits* habits_;
};

}  // namespace tml
