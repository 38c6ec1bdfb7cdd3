// A binary patch holds both contents, deflated and in base 85, 52 bytes a line; a line begins with its count
// of bytes (A to Z for 1 to 26, a to z for 27 to 52). git applies it only with the names by which it knows
// the contents: SHA-1 of "blob", the size and the bytes.
#include "base/Gitpatch.h"

#include <algorithm>
#include <array>
#include <nettle/sha1.h>
#include <stdexcept>
#include <string_view>
#include <zlib.h>

#include "base/Diff.h"

namespace tml {
namespace {

using TBytes = std::optional<std::string>;

constexpr std::string_view kDigits =
    "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz!#$%&()*+-;<=>?@^_`{|}~";
constexpr std::string_view kOctal = "01234567";
constexpr std::string_view kHex = "0123456789abcdef";
constexpr std::size_t kBytesALine = 52;
constexpr std::size_t kBytesAGroup = 4;

bool IsText(const TBytes& bytes) {
    return !bytes || bytes->find('\0') == std::string::npos;
}

/// A name with bytes that would break its line stands in quotes.
std::string QuotedName(const std::string& name) {
    const auto isPlain = [](unsigned char c) { return c >= ' ' && c != '"' && c != '\\' && c != 0x7F; };
    if (std::all_of(name.begin(), name.end(), isPlain)) return name;
    std::string quoted = "\"";
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (isPlain(byte))
            quoted += c;
        else
            quoted += {'\\', kOctal[byte >> 6U], kOctal[(byte >> 3U) & 7U], kOctal[byte & 7U]};
    }
    return quoted + '"';
}

std::string NameOfContent(const TBytes& bytes) {
    std::array<unsigned char, SHA1_DIGEST_SIZE> digest{};
    if (bytes) {
        const std::string head = "blob " + std::to_string(bytes->size()) + '\0';
        sha1_ctx context;
        sha1_init(&context);
        for (const std::string_view part : {std::string_view(head), std::string_view(*bytes)})
            sha1_update(&context, part.size(), reinterpret_cast<const std::uint8_t*>(part.data()));
        sha1_digest(&context, digest.size(), digest.data());
    }
    std::string name;
    for (const unsigned char byte : digest)
        name += {kHex[byte >> 4U], kHex[byte & 15U]};
    return name;
}

std::string Deflated(const std::string& bytes) {
    uLongf size = ::compressBound(static_cast<uLong>(bytes.size()));
    std::string deflated(size, '\0');
    if (::compress(reinterpret_cast<Bytef*>(deflated.data()), &size,
                   reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uLong>(bytes.size())) != Z_OK)
        throw std::runtime_error("a binary patch cannot be deflated");
    deflated.resize(size);
    return deflated;
}

std::string Base85Line(std::string_view bytes) {
    std::string line(
        1, static_cast<char>(bytes.size() <= 26 ? 'A' + bytes.size() - 1 : 'a' + bytes.size() - 27));
    for (std::size_t i = 0; i < bytes.size(); i += kBytesAGroup) {
        std::uint32_t group = 0;
        for (std::size_t k = i; k < i + kBytesAGroup; ++k)
            group = group << 8U | (k < bytes.size() ? static_cast<unsigned char>(bytes[k]) : 0U);
        std::array<char, 5> digits{};
        for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, group /= kDigits.size())
            *digit = kDigits[group % kDigits.size()];
        line.append(digits.data(), digits.size());
    }
    return line + '\n';
}

std::string Literal(const std::string& bytes) {
    const std::string deflated = Deflated(bytes);
    std::string text = "literal " + std::to_string(bytes.size()) + '\n';
    for (std::size_t i = 0; i < deflated.size(); i += kBytesALine)
        text += Base85Line(std::string_view(deflated).substr(i, kBytesALine));
    return text + '\n';
}

/// What git says of a file that comes, goes or is binary.
std::string GitHeader(const std::string& oldName, const std::string& newName, const TBytes& before,
                      const TBytes& after) {
    std::string header = "diff --git " + oldName + ' ' + newName + '\n';
    if (!before) header += "new file mode 100644\n";
    if (!after) header += "deleted file mode 100644\n";
    return header;
}

}  // namespace

std::string FilePatch(const std::string& name, const TBytes& before, const TBytes& after) {
    if (before == after) return {};
    const std::string oldName = QuotedName("a/" + name), newName = QuotedName("b/" + name);
    const std::string header = GitHeader(oldName, newName, before, after);
    const std::string oldBytes = before.value_or(""), newBytes = after.value_or("");
    if (!IsText(before) || !IsText(after))
        return header + "index " + NameOfContent(before) + ".." + NameOfContent(after) +
               "\nGIT binary patch\n" + Literal(newBytes) + Literal(oldBytes);
    return (before && after ? "" : header) +
           UnifiedDiff(before ? oldName : "/dev/null", after ? newName : "/dev/null", oldBytes, newBytes);
}

}  // namespace tml
