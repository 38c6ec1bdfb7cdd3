#pragma once

#include "forms/Formfile.h"

namespace tml {

/// The bytes that begin a value in a binary form.
enum class TFormMark : std::uint8_t {
    Null = 0x00,
    List = 0x01,
    Int8 = 0x02,
    Int16 = 0x03,
    Int32 = 0x04,
    Extended = 0x05,
    ShortString = 0x06,
    Identifier = 0x07,
    False = 0x08,
    True = 0x09,
    Binary = 0x0A,
    Set = 0x0B,
    LongString = 0x0C,
    Nil = 0x0D,
    Collection = 0x0E,
    Single = 0x0F,
    Currency = 0x10,
    Date = 0x11,
    WideString = 0x12,
    Int64 = 0x13,
    Utf8String = 0x14,
    Double = 0x15,
};

/// From 15 on Free Pascal counts its kinds of values otherwise. No file says so.
enum class TFormKinds : std::uint8_t { Common, FreePascal };

/// What begins a value in a binary form of Free Pascal alone.
enum class TFreePascalMark : std::uint8_t {
    UnicodeString = 0x15,
    QWord = 0x16,
};

/// Begins the form proper.
constexpr std::string_view kFormSignature = "TPF0";
/// Begins the resource around it: type RCDATA by number, then the resource's name.
constexpr std::string_view kResourceSignature{"\xFF\x0A\x00", 3};
/// Between the resource's name and its 32-bit size.
constexpr std::string_view kResourceFlags{"\x00\x30\x10", 3};
/// The bits of a byte from F0 on in front of a component.
constexpr unsigned kPrefixByte = 0xF0;
constexpr unsigned kInheritedBit = 1;
constexpr unsigned kPositionBit = 2;
constexpr unsigned kInlineBit = 4;

/// What the strings and names of a binary form with characters above 127 tell about it.
struct TFormStringHabits {
    std::string AnsiSample;  ///< those that need a code page, a line each
    bool HasWide = false;
    bool HasUtf8 = false;
    /// A double that begins as the length of a text in Free Pascal would.
    bool HasOddDouble = false;
};

/// A form in its binary form.
class TBinaryFormFile : public TFormFile {
  public:
    using TFormFile::TFormFile;

    static bool IsBinaryForm(std::string_view bytes) {
        return bytes.starts_with(kFormSignature) || bytes.starts_with(kResourceSignature);
    }

    bool IsBinary() const override { return true; }
    std::unique_ptr<TFormNode> Parse() override;
    void Read(TFormSpan value, TFormSink& sink, IFormPlaces* places = nullptr) const override;
    bool MayHoldTexts(TFormSpan value) const override;
    std::string_view Name(TFormSpan name) const override;

    const TFormStringHabits& Habits() const { return habits_; }
    /// Where the resource's size stands; none for a form without that header.
    std::optional<std::size_t> SizeOffset() const { return sizeOffset_; }

  protected:
    TEncoding FindEncoding() const override;

  private:
    std::unique_ptr<TFormNode> ParseAs(TFormKinds kinds);

    TFormKinds kinds_ = TFormKinds::Common;
    TFormStringHabits habits_;
    std::optional<std::size_t> sizeOffset_;
};

}  // namespace tml
