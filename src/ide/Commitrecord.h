#pragma once

#include <cstdint>
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

TContentMark MarkOf(std::string_view bytes);

/// One rename that is to be made: the staged file takes the target's place.
struct TCommitLine {
    std::string Staged;
    std::string Target;
    TContentMark Old;
    TContentMark New;
};

/// The record as text, and back. A line that cannot be read is left out: what it names is then taken for
/// a left-over.
std::string WriteCommitRecord(const std::vector<TCommitLine>& lines);
std::vector<TCommitLine> ParseCommitRecord(std::string_view text);

}  // namespace tml
