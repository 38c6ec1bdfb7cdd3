// A dictionary: what can be read settles in one writing, and every text of it can be looked up.
#include <cstddef>
#include <cstdint>
#include <string>

#include "Expect.h"
#include "base/Errors.h"
#include "tables/Accelerators.h"
#include "tables/Dictionarysearch.h"
#include "tables/Dixfile.h"

namespace tml::fuzz {
namespace {

void CheckLookUp(const TDictionary& dictionary) {
    const int language = dictionary.Languages.Count() - 1;
    const TDictionarySearch search(dictionary, 0, language,
                                   {.IgnoreCase = true, .SkipAmpersands = true, .ParseMultilines = true});
    for (const TDictionaryEntry& entry : dictionary.Entries) {
        const std::string& text = entry.Text(0);
        Expect(!HasAccelerator(WithoutAccelerator(text)), "an accelerator goes");
        const auto hit = search.Find(text);
        if (text.empty() || entry.Text(language).empty()) continue;
        Expect(hit.has_value(), "a text of the dictionary is found");
        const std::string marked = WithAcceleratorOf(text, entry.Text(language));
        Expect(HasAccelerator(text) || !HasAccelerator(marked), "no accelerator where none belongs");
    }
}

void Check(const std::string& bytes) {
    try {
        const TDictionary dictionary = ReadDix(bytes, "f.dix");
        if (dictionary.Version > kDictionaryVersion) return;
        const std::string written = WriteDix(dictionary, "f.dix");
        const TDictionary reread = ReadDix(written, "f.dix");
        Expect(reread == dictionary, "a dictionary comes back as it was");
        Expect(WriteDix(reread, "f.dix") == written, "what was written is written again");
        CheckLookUp(dictionary);
    } catch (const EBadInput&) {
        // No dictionary.
    }
}

}  // namespace
}  // namespace tml::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tml::fuzz::Check(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
