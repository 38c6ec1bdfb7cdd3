#include "runtime/Transmemory.h"

#include <array>

namespace tml {
namespace {

const std::string kKey = "\\Software\\Velmora\\TmlLang\\TransEditor";
constexpr const char* kShow = "Show";
constexpr const char* kIsPattern = "IsPattern";

struct TMemoryText {
    const char* Name;
    std::string& (*Of)(TTransEditorMemory& memory);
};
constexpr std::array kTexts{
    TMemoryText{"Form", [](TTransEditorMemory& memory) -> std::string& { return memory.Form; }},
    TMemoryText{"Table", [](TTransEditorMemory& memory) -> std::string& { return memory.Table; }},
    TMemoryText{"Key", [](TTransEditorMemory& memory) -> std::string& { return memory.Key; }},
    TMemoryText{"Language", [](TTransEditorMemory& memory) -> std::string& { return memory.Language; }},
    TMemoryText{"NodeForm", [](TTransEditorMemory& memory) -> std::string& { return memory.NodeForm; }},
    TMemoryText{"NodeTable", [](TTransEditorMemory& memory) -> std::string& { return memory.NodeTable; }},
    TMemoryText{"ShowIn", [](TTransEditorMemory& memory) -> std::string& { return memory.Filter.Language; }},
    TMemoryText{"Search", [](TTransEditorMemory& memory) -> std::string& { return memory.Filter.Text; }},
};

}  // namespace

void ReadTransEditorMemory(IRegistry& registry, TTransEditorMemory& memory) {
    const auto stored = registry.OpenForReading();
    for (const TMemoryText& text : kTexts)
        if (const auto value = stored->ReadString(kKey, text.Name)) text.Of(memory) = *value;
    const int show = stored->ReadInteger(kKey, kShow).value_or(static_cast<int>(memory.Filter.Show));
    const bool isKnown = show >= 0 && show <= static_cast<int>(TTransShow::SameAsBase);
    memory.Filter.Show = isKnown ? static_cast<TTransShow>(show) : TTransShow::All;
    memory.Filter.IsPattern = stored->ReadBool(kKey, kIsPattern).value_or(memory.Filter.IsPattern);
}

void WriteTransEditorMemory(IRegistry& registry, const TTransEditorMemory& memory) {
    TTransEditorMemory wanted = memory;
    TTransEditorMemory present;
    ReadTransEditorMemory(registry, present);
    for (const TMemoryText& text : kTexts)
        if (text.Of(wanted) != text.Of(present)) registry.WriteString(kKey, text.Name, text.Of(wanted));
    if (wanted.Filter.Show != present.Filter.Show)
        registry.WriteInteger(kKey, kShow, static_cast<int>(wanted.Filter.Show));
    if (wanted.Filter.IsPattern != present.Filter.IsPattern)
        registry.WriteBool(kKey, kIsPattern, wanted.Filter.IsPattern);
}

}  // namespace tml
