// Any bytes as a source file, edited at any places: the edits are in the text, lines in front of them keep
// their bytes, and undo gives the bytes back.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <fuzzer/FuzzedDataProvider.h>
#include <string>

#include "Expect.h"
#include "base/Codedtext.h"
#include "base/Errors.h"

namespace tml::fuzz {
namespace {

constexpr const char* kSnippets[] = {
    "",         "x",        "\r\n",         "a\r\n", "\r\nb",      "'text'",
    "\xC3\xA9", "\xD0\x96", "\xE2\x82\xAC", "\t",    "{\r\n}\r\n", "\xF0\x9F\x8D\x8E"};

/// The next place where an edit may begin or end: between characters, and not inside a line break.
std::size_t Boundary(const std::string& text, std::size_t pos) {
    const auto inside = [&](std::size_t i) {
        return (static_cast<unsigned char>(text[i]) & 0xC0U) == 0x80 || (i > 0 && text[i - 1] == '\r');
    };
    while (pos < text.size() && inside(pos))
        ++pos;
    return pos;
}

TEdits RandomEdits(FuzzedDataProvider& data, const std::string& text) {
    TEdits edits;
    std::size_t last = 0;
    for (int count = data.ConsumeIntegralInRange(1, 4); count > 0; --count) {
        const std::size_t begin = Boundary(text, data.ConsumeIntegralInRange(last, text.size()));
        const std::size_t end = Boundary(text, data.ConsumeIntegralInRange(begin, text.size()));
        edits.push_back({begin, end, data.PickValueInArray(kSnippets)});
        last = end;
    }
    return edits;
}

bool CanBeSaved(const TCodedText& text, const TEdits& edits) {
    try {
        text.Check(edits);
        return true;
    } catch (const EBadInput&) {
        return false;
    }
}

/// The bytes of the first lines of a file with one byte or more a character.
std::size_t EndOfLines(const std::string& bytes, std::size_t begin, std::size_t count) {
    for (; count > 0; --count)
        begin = bytes.find('\n', begin) + 1;
    return begin;
}

void CheckSaved(const TCodedText& text, const std::string& original, std::size_t untouched) {
    const std::string saved = text.Bytes();
    const TCodedText again(saved);
    if (again.Encoding() == text.Encoding())
        Expect(again.Text() == text.Text(), "a saved text is read as it was");
    if (text.Encoding().Name.rfind("UTF-16", 0) == 0) return;
    const std::size_t same = EndOfLines(original, text.Encoding().Bom.size(), untouched);
    Expect(saved.compare(0, same, original, 0, same) == 0, "lines in front of an edit keep their bytes");
}

void CheckEdits(const std::string& bytes, FuzzedDataProvider& data) {
    TCodedText text(bytes);
    Expect(text.Bytes() == bytes, "an untouched text comes back byte for byte");
    const std::string before = text.Text();
    const TEdits edits = RandomEdits(data, before);
    const std::size_t firstLine = text.LineAt(edits.front().Begin);
    const bool canBeSaved = CanBeSaved(text, edits);
    const TCodedText::TUndo undo = text.Apply(edits);
    const std::string after = text.Text();
    Expect(after == ApplyEdits(before, edits), "the edits are in the text");
    Expect(text.LineBegin(text.LineCount()) == after.size(), "the lines cover the text");
    if (canBeSaved) CheckSaved(text, bytes, firstLine);
    const TCodedText::TUndo redo = text.Apply(undo);
    Expect(text.Text() == before && text.Bytes() == bytes, "undo gives text and bytes back");
    text.Apply(redo);
    Expect(text.Text() == after, "redo makes the edits again");
}

}  // namespace
}  // namespace tml::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The last bytes choose the edits, so that the corpus can be plain files.
    FuzzedDataProvider provider(data, size);
    const std::string bytes(reinterpret_cast<const char*>(data), size - std::min<std::size_t>(size, 24));
    tml::fuzz::CheckEdits(bytes, provider);
    return 0;
}
