// A translation file of either kind, by its beginning. A binary one gets a checksum that matches, as its
// parts would not be reached without one.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "Expect.h"
#include "base/Checksum.h"
#include "base/Errors.h"
#include "tables/Translationfile.h"

namespace tml::fuzz {
namespace {

constexpr std::string_view kMagic = "TMLB";

void AppendNumber(std::string& bytes, std::size_t number) {
    for (int i = 0; i < 4; ++i)
        bytes += static_cast<char>(number >> (8 * i) & 0xFF);
}

std::string Completed(std::string_view content) {
    std::string bytes(kMagic);
    bytes += {'\x01', '\0'};
    AppendNumber(bytes, content.size());
    AppendNumber(bytes, Crc32(content));
    return bytes += content;
}

bool IsSame(const TLangTexts& left, const TLangTexts& right) {
    return left.Languages == right.Languages && left.Extended == right.Extended &&
           std::equal(
               left.Tables.begin(), left.Tables.end(), right.Tables.begin(), right.Tables.end(),
               [](const TTable& one, const TTable& other) { return one.Entries() == other.Entries(); });
}

std::optional<TLangTexts> Read(const ITranslationFile& file, const TFormAddress& form) {
    try {
        return file.Read(form);
    } catch (const EBadInput&) {
        return std::nullopt;
    }
}

std::unique_ptr<ITranslationFile> Open(const std::string& bytes, const char* name) {
    try {
        return OpenTranslationFile(bytes, name, bytes.empty() ? "~" : "");
    } catch (const EBadInput&) {
        return nullptr;
    }
}

/// Every form that can be read goes into a file of each kind, and comes back from it.
void CheckForms(const ITranslationFile& file) {
    for (const char* name : {"a.mll", "a.mlb"}) {
        const auto copy = Open("", name);
        std::vector<std::pair<TFormAddress, TLangTexts>> forms;
        for (const TFormAddress& address : file.Forms())
            if (auto form = Read(file, address); form) {
                copy->Put(address, *form);
                forms.emplace_back(address, std::move(*form));
            }
        const auto reread = Open(copy->Bytes(), name);
        Expect(reread != nullptr, "what was written can be read");
        for (const auto& [address, form] : forms)
            Expect(IsSame(reread->Read(address).value(), form), "a form comes back as it was");
    }
}

}  // namespace
}  // namespace tml::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tml::fuzz;
    std::string bytes(reinterpret_cast<const char*>(data), size);
    const bool isBinary = bytes.starts_with(kMagic);
    if (isBinary) bytes = Completed(std::string_view(bytes).substr(kMagic.size()));
    if (const auto file = Open(bytes, isBinary ? "f.mlb" : "f.mll")) CheckForms(*file);
    return 0;
}
