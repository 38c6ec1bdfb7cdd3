#include "translations/Memini.h"

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"

namespace tml {
namespace {

TIniLine ReadLine(std::string_view line) {
    TIniLine read;
    const std::size_t equals = line.find('=');
    if (line.size() >= 2 && line.front() == '[' && line.back() == ']')
        read = {TIniLine::TKind::Section, std::string(Trim(line.substr(1, line.size() - 2))), {}};
    else if (equals != std::string_view::npos && line.front() != ';')
        read = {TIniLine::TKind::Value, std::string(Trim(line.substr(0, equals))),
                Trim(line.substr(equals + 1))};
    return read;
}

std::string SectionLine(std::string_view section) {
    return "[" + std::string(section) + "]";
}

std::string ValueLine(std::string_view key, std::string_view value) {
    return std::string(key) + "=" + std::string(value);
}

constexpr TIniSyntax kSyntax{ReadLine, SectionLine, ValueLine, "\r\n", false};

}  // namespace

TmlMemIniFile::TmlMemIniFile(IFileSystem& files, std::string fileName)
    : files_(files), fileName_(std::move(fileName)), onDisk_(ReadDisk()), document_(ReadText(), kSyntax) {}

TmlMemIniFile::TmlMemIniFile(const TmlMemIniFile& other)
    : files_(other.files_),
      fileName_(other.fileName_),
      onDisk_(other.onDisk_),
      encoding_(other.encoding_),
      document_(other.document_.Text(), kSyntax) {}

std::string TmlMemIniFile::ReadDisk() const {
    return fileName_.empty() || !files_.Stat(fileName_) ? std::string() : files_.Read(fileName_);
}

/// Bytes that would not come back from their text stand for themselves.
std::string TmlMemIniFile::ReadText() {
    const TEncoding encoding = DetectEncoding(onDisk_, {});
    const std::string bytes = onDisk_.substr(encoding.Bom.size());
    std::string text;
    std::string back;
    if (!Decode(encoding, bytes, text) || !Encode(encoding, text, back) || back != bytes) return onDisk_;
    encoding_ = encoding;
    return text;
}

std::string TmlMemIniFile::ReadString(std::string_view section, std::string_view key,
                                      std::string_view missing) const {
    return std::string(document_.Find(section, key).value_or(missing));
}

bool TmlMemIniFile::ReadBool(std::string_view section, std::string_view key, bool missing) const {
    try {
        return ToInteger(ReadString(section, key, "")) != 0;
    } catch (const EConvertError&) {
        return missing;
    }
}

void TmlMemIniFile::WriteString(std::string_view section, std::string_view key, std::string_view value) {
    if (value.find_first_of("\r\n") != std::string_view::npos)
        throw EBadInput(fileName_, 0, "the value of " + std::string(key) + " holds a line break",
                        "Give it in one line.");
    std::string bytes;
    if (!Encode(encoding_, value, bytes))
        throw EBadInput(fileName_, 0,
                        Format("the value of %s has characters that %s has not", key, encoding_.Name),
                        "Save the file as UTF-8, then repeat the change");
    document_.Set(section, key, value);
}

void TmlMemIniFile::WriteBool(std::string_view section, std::string_view key, bool value) {
    WriteString(section, key, value ? "1" : "0");
}

void TmlMemIniFile::UpdateFile() {
    if (ReadDisk() != onDisk_)
        throw EFileError(fileName_, 0, "the file has changed on the disk since it was opened",
                         "Open the project again and repeat the change");
    std::string bytes = encoding_.Bom;
    // Every value was checked when it was written.
    Encode(encoding_, document_.Text(), bytes);
    WriteFileSafely(files_, fileName_, bytes);
    onDisk_ = std::move(bytes);
}

}  // namespace tml
