// Any bytes as the settings file: it can be read, and a write changes its own line only or is refused.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "Expect.h"
#include "base/Errors.h"
#include "host/Registryfile.h"
#include "support/Memoryfiles.h"

namespace tml::fuzz {
namespace {

constexpr const char* kPath = "/config/settings";
constexpr const char* kKeys[] = {"\\Software\\Fuzz", "\\Software\\Fuzz\\Window"};
constexpr const char* kNames[] = {"Text", "Count", "Switch"};
constexpr const char* kTexts[] = {"", "two\r\nlines", "\"quoted\" \\ \t\x01\xC3\xA9\xFF "};

std::size_t CommonStart(const std::string& left, const std::string& right) {
    const std::size_t size = std::min(left.size(), right.size());
    return static_cast<std::size_t>(
        std::mismatch(left.begin(), left.begin() + static_cast<std::ptrdiff_t>(size), right.begin()).first -
        left.begin());
}

/// True when the new text is the old one with something put in at one place.
bool IsInsertion(const std::string& oldText, const std::string& newText) {
    const std::size_t start = CommonStart(oldText, newText);
    const std::size_t rest = oldText.size() - start;
    return newText.size() >= oldText.size() &&
           newText.compare(newText.size() - rest, rest, oldText, start) == 0;
}

/// Writes a value through write(); isThere() tells whether it can then be read.
void CheckWrite(TMemoryFileSystem& files, const char* key, const char* name,
                const std::function<void()>& write, const std::function<bool()>& isThere) {
    TRegistryFile registry(files, kPath);
    const std::string before = files.Files[kPath];
    const bool isNew = !registry.ReadString(key, name);
    const auto other = registry.ReadString("\\Software\\Other", "Value");
    try {
        write();
    } catch (const EBadInput&) {
        Expect(files.Files[kPath] == before, "a refused write changes nothing");
        return;
    }
    Expect(isThere(), "a written value can be read");
    Expect(registry.ReadString("\\Software\\Other", "Value") == other, "other values stay");
    const std::string after = files.Files[kPath];
    // A new file gets a heading, and a last line without an end is given one.
    const bool hasLastEnd = !before.empty() && before.back() == '\n';
    if (isNew && hasLastEnd) Expect(IsInsertion(before, after), "a new value is put in");
    write();
    Expect(files.Files[kPath] == after, "an equal value changes nothing");
}

void CheckSettings(const std::string& bytes) {
    TMemoryFileSystem files;
    files.Files[kPath] = bytes;
    TRegistryFile registry(files, kPath);
    for (const char* key : kKeys) {
        for (const char* name : kNames) {
            registry.ReadInteger(key, name);
            registry.ReadBool(key, name);
            for (const char* text : kTexts)
                CheckWrite(
                    files, key, name, [&] { registry.WriteString(key, name, text); },
                    [&] { return registry.ReadString(key, name) == text; });
            CheckWrite(
                files, key, name, [&] { registry.WriteInteger(key, name, -7); },
                [&] { return registry.ReadInteger(key, name) == -7; });
            CheckWrite(
                files, key, name, [&] { registry.WriteBool(key, name, true); },
                [&] { return registry.ReadBool(key, name) == true; });
        }
    }
}

}  // namespace
}  // namespace tml::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tml::fuzz::CheckSettings(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
