// One line a rename: old size, old hash, new size, new hash ("-" for a file that was not there), staged
// path, target path, separated by tabs; a tab, a line break or a "%" in a path is written as "%" and two
// hex digits.
#include "ide/Commitrecord.h"

#include <array>
#include <charconv>
#include <optional>

namespace tml {
namespace {

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

std::optional<TCommitLine> ParseLine(std::string_view line) {
    std::array<std::string_view, 6> fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::size_t end = line.find('\t');
        if ((end == std::string_view::npos) != (i + 1 == fields.size())) return std::nullopt;
        fields[i] = line.substr(0, end);
        line.remove_prefix(end == std::string_view::npos ? line.size() : end + 1);
    }
    const auto oldMark = ParseMark(fields[0], fields[1]);
    const auto newMark = ParseMark(fields[2], fields[3]);
    if (!oldMark || !newMark) return std::nullopt;
    return TCommitLine{UnescapePath(fields[4]), UnescapePath(fields[5]), *oldMark, *newMark};
}

}  // namespace

// FNV-1a: it is to tell a file apart from its other version, not to withstand an attack.
TContentMark MarkOf(std::string_view bytes) {
    std::uint64_t hash = 14695981039346656037U;
    for (const char c : bytes)
        hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
    return {true, bytes.size(), hash};
}

std::string WriteCommitRecord(const std::vector<TCommitLine>& lines) {
    std::string text;
    for (const TCommitLine& line : lines)
        text += MarkText(line.Old) + '\t' + MarkText(line.New) + '\t' + EscapePath(line.Staged) + '\t' +
                EscapePath(line.Target) + '\n';
    return text;
}

std::vector<TCommitLine> ParseCommitRecord(std::string_view text) {
    std::vector<TCommitLine> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        if (auto line = ParseLine(text.substr(0, end))) lines.push_back(std::move(*line));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

}  // namespace tml
