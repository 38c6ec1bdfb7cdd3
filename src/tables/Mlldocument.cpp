#include "tables/Mlldocument.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <optional>
#include <utility>

#include "base/Errors.h"
#include "base/Utf8.h"

namespace tml {
namespace {

/// Other control characters may be a text's.
std::string_view WithoutBlanks(std::string_view line) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t begin = line.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos) return {};
    return line.substr(begin, line.find_last_not_of(kBlanks) + 1 - begin);
}

/// The line's first character that is no blank, '\0' in a blank line.
char FirstOf(std::string_view line) {
    const auto* const first = std::find_if_not(
        line.begin(), line.end(), [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; });
    return first == line.end() ? '\0' : *first;
}

/// first: of the line.
bool IsEntry(char first) {
    return first != '\0' && first != ';';
}

std::string_view KeyOf(std::string_view line) {
    return WithoutBlanks(line.substr(0, line.find('=')));
}

/// The first line with its end, which is taken off the lines.
std::string_view TakeLine(std::string_view& lines) {
    const std::string_view line = lines.substr(0, lines.find('\n') + 1);
    const std::size_t size = line.empty() ? lines.size() : line.size();
    return std::exchange(lines, lines.substr(size)).substr(0, size);
}

/// An entry's line and the comments in front of it.
struct TBlock {
    std::string_view Comments;
    std::string_view Line;
};

struct TBlocks {
    std::unordered_map<std::string_view, std::deque<TBlock>> ByKey;  ///< in the order of the lines
    std::string_view Tail;                                           ///< behind the last entry
};

TBlocks BlocksOf(std::string_view lines) {
    TBlocks blocks{{}, lines};
    while (!lines.empty()) {
        const std::string_view line = TakeLine(lines);
        if (!IsEntry(FirstOf(line))) continue;
        const auto comments = static_cast<std::size_t>(line.data() - blocks.Tail.data());
        blocks.ByKey[KeyOf(line)].push_back({blocks.Tail.substr(0, comments), line});
        blocks.Tail = lines;
    }
    return blocks;
}

/// The block of the entry's key whose turn it is; none for a new entry.
std::optional<TBlock> TakeBlock(TBlocks& blocks, std::string_view entry) {
    const auto known = blocks.ByKey.find(KeyOf(entry));
    if (known == blocks.ByKey.end() || known->second.empty()) return std::nullopt;
    const TBlock block = known->second.front();
    known->second.pop_front();
    return block;
}

std::string_view LastLine(std::string_view lines) {
    return lines.substr(lines.rfind('\n', lines.size() - 2) + 1);
}

/// True for a section with a blank line at its end.
bool EndsBlank(const TMllDocument::TSection& section) {
    return FirstOf(LastLine(section.Lines.empty() ? section.Heading : section.Lines)) == '\0';
}

}  // namespace

TMllDocument::TMllDocument(std::string read, std::string fileName)
    : fileName_(std::move(fileName)), read_(std::move(read)) {
    std::string_view bytes = read_;
    if (bytes.starts_with(kMllMark)) mark_ = kMllMark;
    bytes.remove_prefix(mark_.size());
    if (bytes.substr(0, bytes.find('\n') + 1).ends_with("\r\n")) lineEnd_ = "\r\n";
    std::string_view block = bytes;  // the lines since the last heading, that of the next one being read
    const char* comments = nullptr;  // where those right above the line being read begin
    for (int number = 1; !bytes.empty(); ++number) {
        const std::string_view line = TakeLine(bytes);
        const char first = FirstOf(line);
        ExpectLine(line, first, number);
        if (first == '[') {
            // Those above the first one are the file's.
            const char* begin = comments == nullptr || sections_.empty() ? line.data() : comments;
            Finish(block.substr(0, static_cast<std::size_t>(begin - block.data())));
            Begin({begin, bytes.data()}, number);
            block = bytes;
        }
        if (first != ';')
            comments = nullptr;
        else if (comments == nullptr)
            comments = line.data();
    }
    Finish(block);
}

/// The lines of the last section, which end here.
void TMllDocument::Finish(std::string_view lines) {
    (sections_.empty() ? preamble_ : sections_.back().Lines) = lines;
}

void TMllDocument::Refuse(int line, const char* problem, const char* remedy) const {
    throw EBadInput(fileName_, line, problem, remedy);
}

void TMllDocument::ExpectLine(std::string_view line, char first, int number) const {
    const bool isWhole = line.ends_with('\n');
    if (isWhole && !IsValidUtf8(line)) Refuse(number, "the line is no UTF-8", "Save the file as UTF-8");
    if (sections_.empty() && IsEntry(first) && first != '[')
        Refuse(number, "expected a section in brackets", "Choose a translation file (.mll)");
    if (!isWhole)
        Refuse(number, "the file ends within this line: it may have been cut off",
               "Fetch the file anew, or end the line");
}

/// heading: with the comments above it.
void TMllDocument::Begin(std::string_view heading, int number) {
    const std::string_view content = WithoutBlanks(LastLine(heading));
    if (!content.ends_with(']'))
        Refuse(number, "expected \"]\" at the end of the line", "Complete the heading");
    sections_.push_back({std::string(content.substr(1, content.size() - 2)), number, heading, {}});
    if (!index_.emplace(UpperCase(sections_.back().Name), std::prev(sections_.end())).second)
        Refuse(number, "the section stands in the file already", "Join the two, or delete one");
}

const TMllDocument::TSection* TMllDocument::Find(std::string_view name) const {
    const auto found = index_.find(UpperCase(name));
    return found == index_.end() ? nullptr : &*found->second;
}

std::string_view TMllDocument::ContentOf(std::string_view line) const {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    return line.substr(0, line.find_last_not_of(doBlanksCount_ ? "\r\n" : "\r\n \t") + 1);
}

std::vector<TMllDocument::TEntryLine> TMllDocument::Entries(const TSection& section) const {
    std::vector<TEntryLine> entries;
    int number = section.Number;
    for (std::string_view lines = section.Lines; !lines.empty();) {
        const std::string_view line = TakeLine(lines);
        ++number;
        if (IsEntry(FirstOf(line))) entries.push_back({ContentOf(line), number});
    }
    return entries;
}

/// True when the lines hold these entries and no others, in this order.
bool TMllDocument::HoldEntries(std::string_view lines, std::string_view entries) const {
    // What nobody has edited stands there as it is written.
    if (lines.starts_with(entries)) {
        lines.remove_prefix(entries.size());
        entries = {};
    }
    while (!lines.empty()) {
        const std::string_view line = TakeLine(lines);
        if (!IsEntry(FirstOf(line))) continue;
        if (entries.empty() || ContentOf(line) != ContentOf(TakeLine(entries))) return false;
    }
    return entries.empty();
}

void TMllDocument::Put(std::string_view name, std::string_view entries, std::string_view behind) {
    const auto found = index_.find(UpperCase(name));
    const bool isThere = found != index_.end();
    if (isThere ? !entries.empty() && HoldEntries(found->second->Lines, entries) : entries.empty()) return;
    isChanged_ = true;
    if (entries.empty())
        Remove(found->second);
    else
        Replace(isThere ? *found->second : *Insert(name, behind), entries);
}

TMllDocument::TPlace TMllDocument::Insert(std::string_view name, std::string_view behind) {
    const auto previous = index_.find(UpperCase(behind));
    const TPlace next = previous == index_.end() ? sections_.end() : std::next(previous->second);
    const bool isApart = next == sections_.begin() || EndsBlank(*std::prev(next));
    const TPlace place =
        sections_.insert(next, {std::string(name),
                                0,
                                Keep((isApart ? "" : lineEnd_) + '[' + std::string(name) + ']' + lineEnd_),
                                {}});
    // A section that stands between two others is set apart from the next one as well.
    if (next != sections_.end()) place->Lines = lineEnd_;
    index_.emplace(UpperCase(name), place);
    return place;
}

void TMllDocument::Remove(TPlace section) {
    index_.erase(UpperCase(section->Name));
    sections_.erase(section);
}

void TMllDocument::Replace(TSection& section, std::string_view entries) {
    // Entries are written as they stand in a file with line ends of their own.
    if (section.Lines.empty() && lineEnd_ == "\n") {
        section.Lines = Keep(std::string(entries));
        return;
    }
    TBlocks blocks = BlocksOf(section.Lines);
    std::string lines;
    lines.reserve(section.Lines.size() + entries.size());
    while (!entries.empty()) {
        const std::string_view entry = ContentOf(TakeLine(entries));
        const std::optional<TBlock> block = TakeBlock(blocks, entry);
        if (block) lines += block->Comments;
        if (block && ContentOf(block->Line) == entry)
            lines += block->Line;
        else
            (lines += entry) += lineEnd_;
    }
    section.Lines = Keep(lines += blocks.Tail);
}

std::string TMllDocument::Bytes() const {
    std::string bytes;
    std::size_t size = mark_.size() + preamble_.size();
    for (const TSection& section : sections_)
        size += section.Heading.size() + section.Lines.size();
    bytes.reserve(size);
    (bytes += mark_) += preamble_;
    for (const TSection& section : sections_)
        (bytes += section.Heading) += section.Lines;
    return bytes;
}

}  // namespace tml
