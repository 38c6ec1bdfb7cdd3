#include "translations/Memini.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Utf8.h"

namespace tml {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

bool IsSection(std::string_view line) {
    return line.size() >= 2 && line.front() == '[' && line.back() == ']';
}

std::string_view KeyOf(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || line.front() == ';') return {};
    return Trim(line.substr(0, equals));
}

}  // namespace

TmlMemIniFile::TmlMemIniFile(IFileSystem& files, std::string fileName)
    : files_(files), fileName_(std::move(fileName)) {
    text_ = onDisk_ = ReadDisk();
    const std::size_t lineFeed = text_.find('\n');
    if (lineFeed != std::string::npos && (lineFeed == 0 || text_[lineFeed - 1] != '\r')) lineEnd_ = "\n";
}

std::string TmlMemIniFile::ReadDisk() const {
    return fileName_.empty() || !files_.Stat(fileName_) ? std::string() : files_.Read(fileName_);
}

TmlMemIniFile::TPlace TmlMemIniFile::Find(std::string_view section, std::string_view key) const {
    TPlace place{.Begin = text_.size(), .End = text_.size()};
    const std::size_t first = text_.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0;
    for (std::size_t begin = first; begin < text_.size();) {
        const std::size_t end = std::min(text_.find('\n', begin), text_.size());
        const std::string_view line = Trim(std::string_view(text_).substr(begin, end - begin));
        if (IsSection(line)) {
            if (place.HasSection) return place;
            place.HasSection = SameText(Trim(line.substr(1, line.size() - 2)), section);
        } else if (place.HasSection && !line.empty() && SameText(KeyOf(line), key)) {
            const bool isPair = end > begin && text_[end - 1] == '\r';
            return {.HasSection = true, .HasKey = true, .Begin = begin, .End = isPair ? end - 1 : end};
        }
        // A new key goes behind the last line of its section that holds something.
        if (place.HasSection && !line.empty()) place.Begin = place.End = std::min(end + 1, text_.size());
        begin = end + 1;
    }
    return place;
}

std::string TmlMemIniFile::ReadString(std::string_view section, std::string_view key,
                                      std::string_view missing) const {
    const TPlace place = Find(section, key);
    if (!place.HasKey) return std::string(missing);
    const std::string_view line = std::string_view(text_).substr(place.Begin, place.End - place.Begin);
    return std::string(Trim(line.substr(line.find('=') + 1)));
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
    const TPlace place = Find(section, key);
    std::string line = std::string(key) + "=" + std::string(value);
    if (!place.HasKey) line += lineEnd_;
    if (!place.HasSection) line = "[" + std::string(section) + "]" + lineEnd_ + line;
    const bool isOpen = place.Begin > 0 && text_[place.Begin - 1] != '\n' && !text_.empty();
    if (!place.HasKey && isOpen && text_ != kUtf8Mark) line = lineEnd_ + line;
    text_.replace(place.Begin, place.End - place.Begin, line);
}

void TmlMemIniFile::WriteBool(std::string_view section, std::string_view key, bool value) {
    WriteString(section, key, value ? "1" : "0");
}

void TmlMemIniFile::UpdateFile() {
    if (ReadDisk() != onDisk_)
        throw EFileError(fileName_, 0, "the file has changed on the disk since it was opened",
                         "Open the project again and repeat the change");
    WriteFileSafely(files_, fileName_, text_);
    onDisk_ = text_;
}

}  // namespace tml
