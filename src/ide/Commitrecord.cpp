// One line a file: old size, old hash, new size, new hash ("-" for a file that is not there), path, separated
// by tabs; a tab, a line break or a "%" in a path is written as "%" and two hex digits.
#include "ide/Commitrecord.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <filesystem>

#include "base/Errors.h"
#include "base/Files.h"

namespace tml {
namespace {

namespace fs = std::filesystem;

fs::path ToPath(const std::string& path) {
    return fs::path(std::u8string(path.begin(), path.end()));
}

std::string FromPath(const fs::path& path) {
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

std::string EscapePath(std::string_view path) {
    std::string text;
    for (const char c : path) {
        if (c != '%' && c != '\t' && c != '\n' && c != '\r') {
            text += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        text += {'%', kHexDigits[byte >> 4U], kHexDigits[byte & 15U]};
    }
    return text;
}

std::string UnescapePath(std::string_view text) {
    std::string path;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned byte = 0;
        if (text[i] == '%' && i + 2 < text.size() &&
            std::from_chars(text.data() + i + 1, text.data() + i + 3, byte, 16).ec == std::errc()) {
            path += static_cast<char>(byte);
            i += 2;
        } else {
            path += text[i];
        }
    }
    return path;
}

std::string MarkText(const TContentMark& mark) {
    if (!mark.Exists) return "-\t-";
    return std::to_string(mark.Size) + '\t' + std::to_string(mark.Hash);
}

std::optional<std::uint64_t> ParseNumber(std::string_view text) {
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::optional<TContentMark> ParseMark(std::string_view size, std::string_view hash) {
    if (size == "-" && hash == "-") return TContentMark();
    const auto sizeNumber = ParseNumber(size);
    const auto hashNumber = ParseNumber(hash);
    if (!sizeNumber || !hashNumber) return std::nullopt;
    return TContentMark{true, *sizeNumber, *hashNumber};
}

std::optional<TCommitLine> ParseLine(std::string_view line, const std::string& folder) {
    std::array<std::string_view, 5> fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::size_t end = line.find('\t');
        if ((end == std::string_view::npos) != (i + 1 == fields.size())) return std::nullopt;
        fields[i] = line.substr(0, end);
        line.remove_prefix(end == std::string_view::npos ? line.size() : end + 1);
    }
    const auto oldMark = ParseMark(fields[0], fields[1]);
    const auto newMark = ParseMark(fields[2], fields[3]);
    if (!oldMark || !newMark || fields[4].empty()) return std::nullopt;
    const std::string path = JoinPath(folder, UnescapePath(fields[4]));
    return TCommitLine{FromPath(ToPath(path).lexically_normal()), *oldMark, *newMark};
}

/// The path of a file from the folder on; the whole path where none leads there (another drive).
std::string PathFrom(const std::string& folder, const std::string& file) {
    const fs::path relative = ToPath(file).lexically_relative(ToPath(folder));
    return relative.empty() ? file : FromPath(relative);
}

}  // namespace

// Eight bytes a step: it is to tell a file apart from its other version, not to withstand an attack. The high
// half is folded into the low one, which a product's high half never reaches.
void TMarking::Take(THash& hash, std::string_view step) {
    THash word = 0;
    std::memcpy(&word, step.data(), step.size());
    hash = (hash ^ word) * 1099511628211U;
    hash ^= hash >> 32;
}

void TMarking::AddBlock(const char* block) {
    for (std::size_t i = 0; i < kSideBySide; ++i)
        Take(hashes_[i], {block + i * kStep, kStep});
}

void TMarking::Add(std::string_view part) {
    size_ += part.size();
    if (!rest_.empty()) {
        const std::size_t missing = std::min(kBlock - rest_.size(), part.size());
        rest_ += part.substr(0, missing);
        part.remove_prefix(missing);
        if (rest_.size() < kBlock) return;
        AddBlock(rest_.data());
        rest_.clear();
    }
    for (; part.size() >= kBlock; part.remove_prefix(kBlock))
        AddBlock(part.data());
    rest_ = part;
}

TContentMark TMarking::Mark() const {
    THash hash = hashes_[0];
    for (std::string_view rest = rest_; !rest.empty(); rest.remove_prefix(std::min(kStep, rest.size())))
        Take(hash, rest.substr(0, kStep));
    for (std::size_t i = 1; i < kSideBySide; ++i)
        hash = (hash ^ hashes_[i]) * 1099511628211U;
    return {true, size_, hash ^ hash >> 32};
}

TContentMark MarkOf(std::string_view bytes) {
    TMarking marking;
    marking.Add(bytes);
    return marking.Mark();
}

TContentMark MarkOfFile(const std::optional<std::string>& bytes) {
    return bytes ? MarkOf(*bytes) : TContentMark();
}

std::string WriteCommitRecord(const std::vector<TCommitLine>& lines, const std::string& folder) {
    std::string text;
    for (const TCommitLine& line : lines)
        text += MarkText(line.Old) + '\t' + MarkText(line.New) + '\t' +
                EscapePath(PathFrom(folder, line.Target)) + '\n';
    return text;
}

std::vector<TCommitLine> ParseCommitRecord(std::string_view text, const std::string& folder,
                                           const std::string& fileName) {
    std::vector<TCommitLine> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        auto line = ParseLine(text.substr(0, end), folder);
        if (!line)
            throw EBadInput(fileName, static_cast<int>(lines.size()) + 1,
                            "the record of an interrupted save is damaged",
                            "Compare the files beside it, then delete it");
        lines.push_back(std::move(*line));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

}  // namespace tml
