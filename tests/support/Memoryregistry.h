#pragma once

#include <map>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "base/Errors.h"
#include "platform/Registry.h"

namespace tml {

/// A registry in memory that keeps a line for every write: "ExpSettings\SortOrder=integer 1".
class TMemoryRegistry : public IRegistry {
  public:
    std::map<std::string, std::variant<std::string, int, bool>> Values;
    std::vector<std::string> Writes;
    bool IsReadOnly = false;  ///< every write fails

    std::unique_ptr<IRegistryReader> OpenForReading() override {
        return std::make_unique<TMemoryRegistry>(*this);
    }
    std::optional<std::string> ReadString(const std::string& key, const std::string& name) override {
        const auto found = Values.find(key + "\\" + name);
        if (found == Values.end()) return std::nullopt;
        if (const auto* text = std::get_if<std::string>(&found->second)) return *text;
        if (const auto* number = std::get_if<int>(&found->second)) return std::to_string(*number);
        return std::get<bool>(found->second) ? "1" : "0";
    }
    std::optional<int> ReadInteger(const std::string& key, const std::string& name) override {
        return Read<int>(key, name);
    }
    std::optional<bool> ReadBool(const std::string& key, const std::string& name) override {
        return Read<bool>(key, name);
    }
    void WriteString(const std::string& key, const std::string& name, const std::string& value) override {
        Write(key, name, value, "string " + value);
    }
    void WriteInteger(const std::string& key, const std::string& name, int value) override {
        Write(key, name, value, "integer " + std::to_string(value));
    }
    void WriteBool(const std::string& key, const std::string& name, bool value) override {
        Write(key, name, value, value ? "bool 1" : "bool 0");
    }

  private:
    template <typename T>
    std::optional<T> Read(const std::string& key, const std::string& name) {
        const auto found = Values.find(key + "\\" + name);
        const T* value = found == Values.end() ? nullptr : std::get_if<T>(&found->second);
        return value == nullptr ? std::nullopt : std::optional<T>(*value);
    }
    template <typename T>
    void Write(const std::string& key, const std::string& name, const T& value, const std::string& text) {
        if (IsReadOnly) throw EFileError("settings", 0, "the file is read-only");
        Values[key + "\\" + name] = value;
        Writes.push_back(key.substr(key.rfind('\\') + 1) + "\\" + name + "=" + text);
    }
};

}  // namespace tml
