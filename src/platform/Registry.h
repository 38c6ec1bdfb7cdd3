#pragma once

#include <memory>
#include <optional>
#include <string>

namespace tml {

/// The per-user store of settings, as far as it is read: keys (paths with "\"), below them named values with
/// a type. Failures are EFileError.
class IRegistryReader {
  public:
    virtual ~IRegistryReader() = default;

    /// None when the key or the value does not exist. A value of another type is given as the same text
    /// that a person would write for it ("1" for true).
    virtual std::optional<std::string> ReadString(const std::string& key, const std::string& name) = 0;
    virtual std::optional<int> ReadInteger(const std::string& key, const std::string& name) = 0;
    virtual std::optional<bool> ReadBool(const std::string& key, const std::string& name) = 0;
};

/// The store itself: a single read shows what is stored now, a write is kept at once.
class IRegistry : public IRegistryReader {
  public:
    /// The store as it is now, for many reads.
    virtual std::unique_ptr<IRegistryReader> OpenForReading() = 0;

    virtual void WriteString(const std::string& key, const std::string& name, const std::string& value) = 0;
    virtual void WriteInteger(const std::string& key, const std::string& name, int value) = 0;
    virtual void WriteBool(const std::string& key, const std::string& name, bool value) = 0;
};

}  // namespace tml
