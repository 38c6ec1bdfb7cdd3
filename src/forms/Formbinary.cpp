// The binary form of a form, numbers little-endian:
//
//     [FF 0A 00, resource name, 00, 30 10, size of the rest]  "TPF0"  component
//     component: [F0 + bits, position if bit 2], class, name, (property name, value)..., 00, component..., 00
//
// Names have a length byte. What follows the root is kept and not looked at. Every length is compared with
// what is left of the file before it is used; the first thing that does not fit ends the reading with a
// message that names its byte.
#include "forms/Formbinary.h"

#include <algorithm>
#include <array>
#include <exception>

#include "base/Errors.h"
#include "forms/Formbinaryreader.h"
#include "forms/Formchars.h"
#include "forms/Formstrings.h"

namespace tml {

namespace {

std::uint32_t Narrow(std::size_t offset) {
    return static_cast<std::uint32_t>(offset);
}

class TBinaryTreeReader {
  public:
    TBinaryTreeReader(const TFormFile& file, TFormBytes& bytes, TFormKinds kinds, TFormStringHabits& habits)
        : file_(file), bytes_(bytes), habits_(habits), values_(bytes, kinds, nullptr, nullptr, &habits) {}

    std::unique_ptr<TFormNode> ReadNode(TFormNode* parent, int depth);
    /// Whether a name needs a code page.
    bool HasHighNames() const { return hasHighNames_; }

  private:
    void ReadHead(TFormNodeData& data);
    TFormSpan ReadName();
    void ReadProperties(TFormNodeData& data, int depth);

    const TFormFile& file_;
    TFormBytes& bytes_;
    TFormStringHabits& habits_;
    TBinaryValueReader values_;
    bool hasHighNames_ = false;
};

std::unique_ptr<TFormNode> TBinaryTreeReader::ReadNode(TFormNode* parent, int depth) {
    if (depth > kMaxFormDepth) bytes_.Fail("more than 1000 levels of nesting");
    auto node = std::make_unique<TFormNode>();
    TFormNodeData& data = node->Data();
    data.File = &file_;
    data.Parent = parent;
    ReadHead(data);
    ReadProperties(data, depth);
    while (bytes_.Peek() != 0)
        data.Children.push_back(ReadNode(node.get(), depth + 1));
    bytes_.Byte();
    data.Span.End = Narrow(bytes_.Offset());
    return node;
}

// A component that is both inherited and inline is shown as inherited.
void TBinaryTreeReader::ReadHead(TFormNodeData& data) {
    data.Span.Begin = Narrow(bytes_.Offset());
    if (bytes_.Peek() >= kPrefixByte) {
        const unsigned bits = bytes_.Peek() - kPrefixByte;
        if (bits > (kInheritedBit | kPositionBit | kInlineBit)) bytes_.Fail("expected a component");
        bytes_.Byte();
        if ((bits & kInlineBit) != 0) data.Prefix = TFormPrefix::Inline;
        if ((bits & kInheritedBit) != 0) data.Prefix = TFormPrefix::Inherited;
        if ((bits & kPositionBit) != 0) data.Position = values_.ReadPosition();
    }
    data.ClassSpan = ReadName();
    data.NameSpan = ReadName();
    // Still bytes; decoded when all strings have told their encoding.
    data.ClassName = file_.Name(data.ClassSpan);
    data.Name = file_.Name(data.NameSpan);
}

TFormSpan TBinaryTreeReader::ReadName() {
    const std::size_t begin = bytes_.Offset();
    const std::string_view name = bytes_.ShortString();
    if (!IsAscii(name)) {
        habits_.AnsiSample.append(name).push_back('\n');
        hasHighNames_ = true;
    }
    return {Narrow(begin), Narrow(bytes_.Offset())};
}

void TBinaryTreeReader::ReadProperties(TFormNodeData& data, int depth) {
    data.Properties.reserve(8);  // what a component usually has, or nearly
    while (bytes_.Peek() != 0) {
        TFormPropertyPlace& place = data.Properties.emplace_back();
        place.Name = ReadName();
        place.Value.Begin = Narrow(bytes_.Offset());
        values_.Read(depth);
        place.Value.End = Narrow(bytes_.Offset());
    }
    data.PropertiesEnd = Narrow(bytes_.Offset());
    bytes_.Byte();
}

void DecodeNames(TFormNode& node) {
    TFormNodeData& data = node.Data();
    data.Name = DecodeFrom(*data.File, data.Name);
    data.ClassName = DecodeFrom(*data.File, data.ClassName);
    for (const auto& child : data.Children)
        DecodeNames(*child);
}

/// Reads the resource header; gives where its size stands.
std::size_t ReadResourceHeader(TFormBytes& bytes) {
    bytes.Take(kResourceSignature.size());
    while (bytes.Peek() != 0)
        bytes.Byte();
    if (bytes.Take(kResourceFlags.size()) != kResourceFlags)
        bytes.Fail("expected the header of a form resource");
    const std::size_t sizeOffset = bytes.Offset();
    const std::uint32_t size = bytes.Size();
    if (size > bytes.Left()) bytes.Fail("the file ends before the form that it holds");
    return sizeOffset;
}

}  // namespace

// What fits the kinds of Free Pascal alone is of Free Pascal.
std::unique_ptr<TFormNode> TBinaryFormFile::Parse() {
    std::exception_ptr error;
    try {
        auto root = ParseAs(TFormKinds::Common);
        if (!habits_.HasOddDouble) return root;
    } catch (const EBadInput&) {
        error = std::current_exception();
    }
    try {
        return ParseAs(TFormKinds::FreePascal);
    } catch (const EBadInput&) {
        if (error != nullptr) std::rethrow_exception(error);
    }
    return ParseAs(TFormKinds::Common);
}

std::unique_ptr<TFormNode> TBinaryFormFile::ParseAs(TFormKinds kinds) {
    kinds_ = kinds;
    habits_ = {};
    TFormBytes bytes(Bytes(), 0, FileName());
    if (Bytes().starts_with(kResourceSignature)) sizeOffset_ = ReadResourceHeader(bytes);
    if (bytes.Take(kFormSignature.size()) != kFormSignature) bytes.Fail("expected the signature TPF0");
    TBinaryTreeReader reader(*this, bytes, kinds_, habits_);
    std::unique_ptr<TFormNode> root = reader.ReadNode(nullptr, 1);
    if (reader.HasHighNames()) DecodeNames(*root);
    return root;
}

void TBinaryFormFile::Read(TFormSpan value, TFormSink& sink, IFormPlaces* places) const {
    TFormBytes bytes(Bytes(), value.Begin, FileName());
    TBinaryValueReader(bytes, kinds_, &sink, places, nullptr).Read(0);
}

bool TBinaryFormFile::MayHoldTexts(TFormSpan value) const {
    constexpr std::array kMarks = {TFormMark::List,       TFormMark::ShortString, TFormMark::Binary,
                                   TFormMark::LongString, TFormMark::Collection,  TFormMark::WideString,
                                   TFormMark::Utf8String};
    const auto mark = static_cast<unsigned char>(At(value).front());
    return std::find(kMarks.begin(), kMarks.end(), static_cast<TFormMark>(mark)) != kMarks.end() ||
           (kinds_ == TFormKinds::FreePascal &&
            static_cast<TFreePascalMark>(mark) == TFreePascalMark::UnicodeString);
}

std::string_view TBinaryFormFile::Name(TFormSpan name) const {
    return name.Empty() ? std::string_view{} : At(name).substr(1);
}

TEncoding TBinaryFormFile::FindEncoding() const {
    // The line break keeps the first string from being taken for a byte order mark.
    return DetectEncoding('\n' + habits_.AnsiSample, CodePage());
}

}  // namespace tml
