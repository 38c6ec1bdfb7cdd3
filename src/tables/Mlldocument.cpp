#include "tables/Mlldocument.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/Errors.h"
#include "base/Utf8.h"

namespace tml {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// Other control characters may be a text's.
std::string_view WithoutBlanks(std::string_view line) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t begin = line.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos) return {};
    return line.substr(begin, line.find_last_not_of(kBlanks) + 1 - begin);
}

/// Blanks at the end may be a delimiter's.
std::string_view ContentOf(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    return line.substr(0, line.find_last_not_of("\r\n") + 1);
}

bool IsEntry(std::string_view line) {
    const std::string_view content = WithoutBlanks(line);
    return !content.empty() && content.front() != ';';
}

std::string KeyOf(std::string_view line) {
    const std::string_view content = WithoutBlanks(line);
    return std::string(content.substr(0, content.find('=')));
}

/// The lines in front of an entry, and its own last.
using TBlock = std::vector<std::string>;

struct TBlocks {
    std::unordered_map<std::string, std::list<TBlock>> ByKey;  ///< in the order of the lines
    TBlock Tail;                                               ///< behind the last entry
};

TBlocks BlocksOf(std::vector<std::string> lines) {
    TBlocks blocks;
    for (std::string& line : lines) {
        blocks.Tail.push_back(std::move(line));
        if (IsEntry(blocks.Tail.back())) {
            std::string key = KeyOf(blocks.Tail.back());
            blocks.ByKey[std::move(key)].push_back(std::exchange(blocks.Tail, {}));
        }
    }
    return blocks;
}

/// The block of the entry's key whose turn it is; an empty one for a new entry.
TBlock TakeBlock(TBlocks& blocks, const std::string& entry) {
    if (blocks.ByKey.empty()) return {};
    const auto known = blocks.ByKey.find(KeyOf(entry));
    if (known == blocks.ByKey.end() || known->second.empty()) return {};
    TBlock block = std::move(known->second.front());
    known->second.pop_front();
    return block;
}

}  // namespace

TMllDocument::TMllDocument(std::string_view bytes, std::string fileName) : fileName_(std::move(fileName)) {
    if (bytes.starts_with(kUtf8Mark)) mark_ = kUtf8Mark;
    bytes.remove_prefix(mark_.size());
    for (int number = 1; !bytes.empty(); ++number) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size() - 1) + 1;
        if (number == 1 && bytes.substr(0, end).ends_with("\r\n")) lineEnd_ = "\r\n";
        ReadLine(bytes.substr(0, end), number);
        bytes.remove_prefix(end);
    }
}

void TMllDocument::ReadLine(std::string_view line, int number) {
    const auto refuse = [&](const char* problem, const char* remedy) {
        throw EBadInput(fileName_, number, problem, remedy);
    };
    if (!IsValidUtf8(line)) refuse("the line is no UTF-8", "Save the file as UTF-8");
    const std::string_view content = WithoutBlanks(line);
    if (content.starts_with('[')) {
        if (!content.ends_with(']')) refuse("expected \"]\" at the end of the line", "Complete the heading");
        sections_.push_back(
            {std::string(content.substr(1, content.size() - 2)), number, std::string(line), {}});
        if (!index_.emplace(UpperCase(sections_.back().Name), std::prev(sections_.end())).second)
            refuse("the section stands in the file already", "Join the two, or delete one");
    } else if (!sections_.empty()) {
        sections_.back().Lines.emplace_back(line);
    } else {
        if (IsEntry(line)) refuse("expected a section in brackets", "Choose a translation file (.mll)");
        preamble_.emplace_back(line);
    }
}

const TMllDocument::TSection* TMllDocument::Find(std::string_view name) const {
    const auto found = index_.find(UpperCase(name));
    return found == index_.end() ? nullptr : &*found->second;
}

std::vector<TMllDocument::TEntryLine> TMllDocument::Entries(const TSection& section) {
    std::vector<TEntryLine> entries;
    for (std::size_t i = 0; i < section.Lines.size(); ++i)
        if (IsEntry(section.Lines[i]))
            entries.push_back({ContentOf(section.Lines[i]), section.Number + 1 + static_cast<int>(i)});
    return entries;
}

void TMllDocument::Put(std::string_view name, const std::vector<std::string>& entries,
                       std::string_view behind) {
    const auto found = index_.find(UpperCase(name));
    if (!entries.empty())
        Replace(found == index_.end() ? *Insert(name, behind) : *found->second, entries);
    else if (found != index_.end())
        Remove(found->second);
}

TMllDocument::TPlace TMllDocument::Insert(std::string_view name, std::string_view behind) {
    const auto previous = index_.find(UpperCase(behind));
    const TPlace next = previous == index_.end() ? sections_.end() : std::next(previous->second);
    if (next != sections_.begin()) {
        TSection& above = *std::prev(next);
        std::string& last = above.Lines.empty() ? above.Heading : above.Lines.back();
        if (!last.ends_with('\n')) last += lineEnd_;
        if (!WithoutBlanks(last).empty()) above.Lines.push_back(lineEnd_);
    }
    const TPlace place =
        sections_.insert(next, {std::string(name), 0, '[' + std::string(name) + ']' + lineEnd_, {}});
    // A section that stands between two others is set apart from the next one as well.
    if (next != sections_.end()) place->Lines.push_back(lineEnd_);
    index_.emplace(UpperCase(name), place);
    return place;
}

void TMllDocument::Remove(TPlace section) {
    index_.erase(UpperCase(section->Name));
    sections_.erase(section);
}

void TMllDocument::Replace(TSection& section, const std::vector<std::string>& entries) const {
    if (!section.Heading.ends_with('\n')) section.Heading += lineEnd_;
    TBlocks old = BlocksOf(std::move(section.Lines));
    section.Lines.clear();
    for (const std::string& entry : entries) {
        TBlock block = TakeBlock(old, entry);
        if (block.empty()) {
            section.Lines.push_back(entry + lineEnd_);
            continue;
        }
        if (ContentOf(block.back()) != entry || !block.back().ends_with('\n'))
            block.back() = entry + lineEnd_;
        std::move(block.begin(), block.end(), std::back_inserter(section.Lines));
    }
    std::move(old.Tail.begin(), old.Tail.end(), std::back_inserter(section.Lines));
}

std::string TMllDocument::Bytes() const {
    std::string bytes = mark_;
    for (const std::string& line : preamble_)
        bytes += line;
    for (const TSection& section : sections_) {
        bytes += section.Heading;
        for (const std::string& line : section.Lines)
            bytes += line;
    }
    return bytes;
}

}  // namespace tml
