#include "host/Registryfile.h"

#include "base/Errors.h"
#include "host/Registrytext.h"

namespace tml {
namespace {

constexpr const char* kNewFile =
    "# Settings of TmlLang Expert. Lines like this one, and what you add, are kept.\n";

/// The file as it was when it was opened.
class TSnapshot : public IRegistryReader {
  public:
    explicit TSnapshot(const std::string& text) : text_(text) {}

    std::optional<std::string> ReadString(const std::string& key, const std::string& name) override {
        const auto value = text_.Find(key, name);
        if (!value) return std::nullopt;
        if (const auto* text = std::get_if<std::string>(&*value)) return *text;
        if (const auto* number = std::get_if<int>(&*value)) return std::to_string(*number);
        return std::get<bool>(*value) ? "1" : "0";
    }
    std::optional<int> ReadInteger(const std::string& key, const std::string& name) override {
        const auto value = text_.Find(key, name);
        if (!value || std::holds_alternative<std::string>(*value)) return std::nullopt;
        const auto* number = std::get_if<int>(&*value);
        return number != nullptr ? *number : static_cast<int>(std::get<bool>(*value));
    }
    std::optional<bool> ReadBool(const std::string& key, const std::string& name) override {
        const auto number = ReadInteger(key, name);
        return number ? std::optional(*number != 0) : std::nullopt;
    }

  private:
    TRegistryText text_;
};

}  // namespace

std::string TRegistryFile::Load() {
    return files_.Stat(path_) ? files_.Read(path_) : std::string();
}

std::unique_ptr<IRegistryReader> TRegistryFile::OpenForReading() {
    return std::make_unique<TSnapshot>(Load());
}

std::optional<std::string> TRegistryFile::ReadString(const std::string& key, const std::string& name) {
    return OpenForReading()->ReadString(key, name);
}

std::optional<int> TRegistryFile::ReadInteger(const std::string& key, const std::string& name) {
    return OpenForReading()->ReadInteger(key, name);
}

std::optional<bool> TRegistryFile::ReadBool(const std::string& key, const std::string& name) {
    return OpenForReading()->ReadBool(key, name);
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
    const std::string bytes = Load();
    TRegistryText text(bytes.empty() ? kNewFile : bytes);
    if (text.BrokenLine() != 0)
        throw EBadInput(path_, text.BrokenLine(), "the line is no key and no value",
                        "Repair or delete the line; a value looks like \"Name\" = string \"text\"");
    text.Set(key, name, value);
    WriteFileSafely(files_, path_, text.Text());
}

}  // namespace tml
