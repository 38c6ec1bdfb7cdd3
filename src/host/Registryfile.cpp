#include "host/Registryfile.h"

#include "base/Errors.h"
#include "host/Registrytext.h"

namespace tml {
namespace {

constexpr const char* kNewFile =
    "# Settings of TmlLang Expert. Lines like this one, and what you add, are kept.\n";

std::optional<TRegistryValue> FindValue(const std::string& text, const std::string& key,
                                        const std::string& name) {
    std::vector<TRegistryLine> lines = ParseRegistryText(text);
    const auto index = FindRegistryValue(lines, key, name);
    return index ? std::optional(std::move(lines[*index].Value)) : std::nullopt;
}

void RefuseBroken(const std::string& path, const std::vector<TRegistryLine>& lines) {
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (lines[i].Kind == TRegistryLine::TKind::Broken)
            throw EBadInput(path, static_cast<int>(i) + 1, "the line is no key and no value",
                            "Repair or delete the line; a value looks like \"Name\" = string \"text\"");
}

}  // namespace

std::string TRegistryFile::Load() {
    return files_.Stat(path_) ? files_.Read(path_) : std::string();
}

std::optional<std::string> TRegistryFile::ReadString(const std::string& key, const std::string& name) {
    const auto value = FindValue(Load(), key, name);
    if (!value) return std::nullopt;
    if (const auto* text = std::get_if<std::string>(&*value)) return *text;
    if (const auto* number = std::get_if<int>(&*value)) return std::to_string(*number);
    return std::get<bool>(*value) ? "1" : "0";
}

std::optional<int> TRegistryFile::ReadInteger(const std::string& key, const std::string& name) {
    const auto value = FindValue(Load(), key, name);
    if (!value || std::holds_alternative<std::string>(*value)) return std::nullopt;
    const auto* number = std::get_if<int>(&*value);
    return number != nullptr ? *number : static_cast<int>(std::get<bool>(*value));
}

std::optional<bool> TRegistryFile::ReadBool(const std::string& key, const std::string& name) {
    const auto number = ReadInteger(key, name);
    return number ? std::optional(*number != 0) : std::nullopt;
}

void TRegistryFile::WriteString(const std::string& key, const std::string& name, const std::string& value) {
    Write(key, name, "string " + QuoteRegistryText(value));
}

void TRegistryFile::WriteInteger(const std::string& key, const std::string& name, int value) {
    Write(key, name, "integer " + std::to_string(value));
}

void TRegistryFile::WriteBool(const std::string& key, const std::string& name, bool value) {
    Write(key, name, value ? "bool true" : "bool false");
}

void TRegistryFile::Write(const std::string& key, const std::string& name, const std::string& value) {
    const std::string folder = FolderOf(path_);
    if (!folder.empty() && !files_.Stat(folder)) files_.MakeFolder(folder);
    const auto lock = files_.Lock(path_ + ".lock");
    const std::string text = Load();
    const std::vector<TRegistryLine> lines = ParseRegistryText(text.empty() ? kNewFile : text);
    RefuseBroken(path_, lines);
    WriteFileSafely(files_, path_, SetRegistryValue(lines, key, name, value));
}

}  // namespace tml
