#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tml {

/// Size and hash of a file's bytes.
struct TContentMark {
    bool Exists = false;
    std::uint64_t Size = 0;
    std::uint64_t Hash = 0;

    bool operator==(const TContentMark&) const = default;
};

/// Marks bytes that come part by part.
class TMarking {
  public:
    void Add(std::string_view part);
    TContentMark Mark() const;

  private:
    using THash = std::uint64_t;
    static constexpr std::size_t kStep = sizeof(THash);
    // A step waits for the product of the one before it, which several side by side do not.
    static constexpr std::size_t kSideBySide = 4;
    static constexpr std::size_t kBlock = kSideBySide * kStep;

    static void Take(THash& hash, std::string_view step);
    void AddBlock(const char* block);

    std::array<THash, kSideBySide> hashes_{14695981039346656037U, 1, 2, 3};
    std::uint64_t size_ = 0;
    std::string rest_;  ///< less than a block
};

TContentMark MarkOf(std::string_view bytes);
/// The same of a file that may be missing (none).
TContentMark MarkOfFile(const std::optional<std::string>& bytes);

/// One file that is to get other bytes, or to go.
struct TCommitLine {
    std::string Target;  ///< full path
    TContentMark Old;
    TContentMark New;
};

/// The record that stands in a folder (full path) as text, and back; the text names files relative to the
/// folder, so that both can be moved together. A line that cannot be read is EBadInput with fileName.
std::string WriteCommitRecord(const std::vector<TCommitLine>& lines, const std::string& folder);
std::vector<TCommitLine> ParseCommitRecord(std::string_view text, const std::string& folder,
                                           const std::string& fileName);

}  // namespace tml
