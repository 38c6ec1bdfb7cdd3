#pragma once

#include <string>
#include <string_view>

#include "base/Encodings.h"
#include "base/Files.h"
#include "base/Inidocument.h"

namespace tml {

/// An ini file in memory: "[Section]", "key=value", "; comment". Sections and keys are found without regard
/// to case; lines that are not changed stay as they are. A file that is not UTF-8 is read by the encoding
/// that it shows and keeps it.
class TmlMemIniFile {
  public:
    /// Reads the file; a missing one gives an empty store.
    TmlMemIniFile(IFileSystem& files, std::string fileName);
    TmlMemIniFile(const TmlMemIniFile& other);
    TmlMemIniFile& operator=(const TmlMemIniFile&) = delete;

    std::string ReadString(std::string_view section, std::string_view key, std::string_view missing) const;
    /// A value that is no number gives missing; every number but 0 is true.
    bool ReadBool(std::string_view section, std::string_view key, bool missing) const;
    /// The key is written as spelled here. EBadInput for a value with a line break, or with a character that
    /// the file's encoding has not.
    void WriteString(std::string_view section, std::string_view key, std::string_view value);
    void WriteBool(std::string_view section, std::string_view key, bool value);
    /// Writes the store to its file; the file is at every moment the old or the new one. EFileError where
    /// somebody else has changed the file since it was read or written here.
    void UpdateFile();

  private:
    std::string ReadDisk() const;
    std::string ReadText();

    IFileSystem& files_;
    std::string fileName_;
    std::string onDisk_;  ///< what the file held last; "" for a missing one, too
    TEncoding encoding_;
    TIniDocument document_;  ///< in UTF-8, without a mark
};

}  // namespace tml
