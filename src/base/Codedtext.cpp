#include "base/Codedtext.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Utf8.h"

namespace tml {
namespace {

bool EndsLine(std::string_view text) {
    return !text.empty() && text.back() == '\n';
}

/// Offset behind the LF of the line that begins at begin, in an encoding of one or more bytes a character.
std::size_t NextByteLine(std::string_view bytes, std::size_t begin) {
    const std::size_t feed = bytes.find('\n', begin);
    return feed == std::string_view::npos ? bytes.size() : feed + 1;
}

/// The same where a character takes two bytes; high tells which of them is the high one.
std::size_t NextWideLine(std::string_view bytes, std::size_t begin, std::size_t high) {
    for (std::size_t i = begin; i + 1 < bytes.size(); i += 2)
        if (bytes[i + high] == '\0' && bytes[i + 1 - high] == '\n') return i + 2;
    return bytes.size();
}

std::string WithCrLf(std::string_view text) {
    std::string result;
    result.reserve(text.size() + text.size() / 16);
    std::size_t done = 0;
    for (std::size_t feed = 0; (feed = text.find('\n', feed)) != std::string_view::npos; ++feed) {
        if (feed > 0 && text[feed - 1] == '\r') continue;
        result.append(text, done, feed + 1 - done).back() = '\r';
        result += '\n';
        done = feed + 1;
    }
    return result.append(text, done);
}

std::string_view WithoutEnd(std::string_view text, std::size_t begin, std::size_t size) {
    std::string_view line = text.substr(begin, size);
    if (EndsLine(line)) line.remove_suffix(line.size() > 1 && line[line.size() - 2] == '\r' ? 2 : 1);
    return line;
}

}  // namespace

TCodedText::TCodedText(std::string bytes, std::string fileName, std::string_view codePage)
    : fileName_(std::move(fileName)),
      original_(std::move(bytes)),
      encoding_(DetectEncoding(original_, codePage)) {
    ReadLines();
}

void TCodedText::Reread(std::string bytes) {
    original_ = std::move(bytes);
    if (!original_.starts_with(encoding_.Bom)) encoding_ = DetectEncoding(original_, {});
    lines_.clear();
    ReadLines();
}

std::string TCodedText::TextOf(std::string_view bytes, std::string_view codePage,
                               TByteEncodings* byteEncodings) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    const bool isUtf8 = IsValidUtf8(bytes);
    const TCodedText coded = isUtf8 ? TCodedText() : TCodedText(std::string(bytes), {}, codePage);
    if (byteEncodings != nullptr) *byteEncodings = ByteEncodingsOf(coded.Encoding(), codePage);
    if (!isUtf8) return coded.Text();
    return WithCrLf(bytes.starts_with(kMark) ? bytes.substr(kMark.size()) : bytes);
}

void TCodedText::ReadLines() {
    const bool wide = encoding_.Name.rfind("UTF-16", 0) == 0;
    const std::size_t high = encoding_.Name == "UTF-16BE" ? 0 : 1;
    const std::string_view body = std::string_view(original_).substr(encoding_.Bom.size());
    const bool asItIs = encoding_.Name == "UTF-8" && IsValidUtf8(body);
    std::string text;
    text.reserve(original_.size() + original_.size() / 16);
    lines_.reserve(original_.size() / 32);
    for (std::size_t begin = encoding_.Bom.size(); begin < original_.size();) {
        const std::size_t end = wide ? NextWideLine(original_, begin, high) : NextByteLine(original_, begin);
        AddLine(text, begin, end, asItIs);
        begin = end;
    }
    text_ = std::make_shared<const std::string>(std::move(text));
}

void TCodedText::AddLine(std::string& text, std::size_t begin, std::size_t end, bool asItIs) {
    TLine line;
    line.Begin = text.size();
    line.Origin = begin;
    line.OriginSize = end - begin;
    const std::string_view bytes = std::string_view(original_).substr(begin, end - begin);
    if (asItIs)
        text += bytes;
    else
        line.Clean = Decode(encoding_, bytes, text);
    const std::string_view added = std::string_view(text).substr(line.Begin);
    if (EndsLine(added)) {
        const bool pair = added.size() > 1 && added[added.size() - 2] == '\r';
        line.End = pair ? TLineEnd::CrLf : TLineEnd::Lf;
        if (!pair) text.insert(text.size() - 1, 1, '\r');
    }
    line.Size = text.size() - line.Begin;
    lines_.push_back(line);
}

std::size_t TCodedText::LineAt(std::size_t offset) const {
    if (offset >= text_->size() && (lines_.empty() || EndsLine(*text_))) return lines_.size();
    const auto after =
        std::upper_bound(lines_.begin(), lines_.end(), offset,
                         [](std::size_t place, const TLine& line) { return place < line.Begin; });
    return static_cast<std::size_t>(after - lines_.begin()) - 1;
}

std::size_t TCodedText::LineBegin(std::size_t line) const {
    return line < lines_.size() ? lines_[line].Begin : text_->size();
}

// An edit that ends where a line begins leaves that line alone as long as what then stands before it ends
// with a line break.
std::pair<std::size_t, std::size_t> TCodedText::TouchedLines(const TEdit& edit) const {
    const std::size_t first = LineAt(edit.Begin);
    const std::size_t last = LineAt(edit.End);
    const bool lineEndsBefore = edit.Text.empty() ? edit.Begin == LineBegin(first) : EndsLine(edit.Text);
    const bool lastIsWhole = edit.End == LineBegin(last) && lineEndsBefore;
    return {first, std::min(lastIsWhole ? last : last + 1, lines_.size())};
}

std::vector<TCodedText::TGroup> TCodedText::GroupEdits(const TEdits& edits) const {
    std::vector<TGroup> groups;
    for (std::size_t i = 0; i < edits.size();) {
        auto [first, end] = TouchedLines(edits[i]);
        const std::size_t begin = LineBegin(first);
        TEdits inside;
        do {
            inside.push_back({edits[i].Begin - begin, edits[i].End - begin, edits[i].Text});
            end = std::max(end, TouchedLines(edits[i]).second);
            ++i;
        } while (i < edits.size() && TouchedLines(edits[i]).first < end);
        TGroup group{first, end - first, {}};
        group.Lines = SplitGroup(group, ApplyEdits(Text().substr(begin, LineBegin(end) - begin), inside));
        groups.push_back(std::move(group));
    }
    return groups;
}

std::vector<TCodedText::TLine> TCodedText::SplitGroup(const TGroup& group, std::string_view newText) const {
    std::vector<TLine> lines;
    for (std::size_t begin = 0; begin < newText.size();) {
        const std::size_t end = NextByteLine(newText, begin);
        TLine line;
        line.Size = end - begin;
        const std::string_view written = newText.substr(begin, end - begin);
        // A carriage return that belongs to the line itself must not become part of its end.
        if (written.ends_with("\r\r\n"))
            line.End = TLineEnd::CrLf;
        else if (EndsLine(written))
            line.End = LineEndFor(group, lines.size());
        lines.push_back(line);
        begin = end;
    }
    return lines;
}

/// A new line ends as the one whose place it takes, else as its neighbour does, else with CR LF.
TCodedText::TLineEnd TCodedText::LineEndFor(const TGroup& group, std::size_t index) const {
    std::size_t place = group.Count == 0 ? group.First : group.First + std::min(index, group.Count - 1);
    place = std::min(place, lines_.size());
    for (std::size_t back = place + 1; back-- > 0;)
        if (back < lines_.size() && lines_[back].End != TLineEnd::None) return lines_[back].End;
    return TLineEnd::CrLf;
}

void TCodedText::CheckLine(std::size_t line) const {
    const TLine& row = lines_[line];
    if (row.Origin == kTouched) return;
    std::string encoded;
    const std::string_view body = WithoutEnd(Text(), row.Begin, row.Size);
    const bool same = row.Clean && Encode(encoding_, body, encoded) &&
                      original_.compare(row.Origin, encoded.size(), encoded) == 0;
    if (!same)
        throw EBadInput(fileName_, static_cast<int>(line) + 1,
                        "the line cannot be read as " + encoding_.Name + " and so cannot be changed",
                        "Repair the line or convert the file to UTF-8");
}

void TCodedText::Check(const TEdits& edits) const {
    std::size_t checked = 0;  // edits ascend, and many of them may touch one long line
    for (const TEdit& edit : edits) {
        const auto [first, end] = TouchedLines(edit);
        for (std::size_t line = std::max(first, checked); line < end; ++line)
            CheckLine(line);
        checked = std::max(checked, end);
        std::string encoded;
        if (!Encode(encoding_, edit.Text, encoded))
            throw EBadInput(
                fileName_, static_cast<int>(first) + 1,
                "the text \"" + std::string(Trim(edit.Text)) + "\" cannot be written in " + encoding_.Name,
                "Convert the file to UTF-8");
    }
}

TCodedText::TUndo TCodedText::Replace(const TEdits& edits, const std::vector<TGroup>& groups) {
    TUndo undo;
    undo.edits_ = InverseEdits(*text_, edits);
    text_ = std::make_shared<const std::string>(ApplyEdits(*text_, edits));
    std::vector<TLine> lines;
    std::size_t done = 0;
    const auto at = [this](std::size_t index) { return lines_.begin() + static_cast<std::ptrdiff_t>(index); };
    for (const TGroup& group : groups) {
        lines.insert(lines.end(), at(done), at(group.First));
        done = group.First + group.Count;
        undo.groups_.push_back({lines.size(), group.Lines.size(), {at(group.First), at(done)}});
        lines.insert(lines.end(), group.Lines.begin(), group.Lines.end());
    }
    lines.insert(lines.end(), at(done), lines_.end());
    lines_ = std::move(lines);
    std::size_t begin = 0;
    for (TLine& line : lines_) {
        line.Begin = begin;
        begin += line.Size;
    }
    return undo;
}

TCodedText::TUndo TCodedText::Apply(const TEdits& edits) {
    return Replace(edits, GroupEdits(edits));
}

TCodedText::TUndo TCodedText::Apply(const TUndo& undo) {
    return Replace(undo.edits_, undo.groups_);
}

std::string TCodedText::Bytes() const {
    std::string bytes = encoding_.Bom;
    bytes.reserve(original_.size());
    for (const TLine& line : lines_) {
        if (line.Origin != kTouched) {
            bytes.append(original_, line.Origin, line.OriginSize);
            continue;
        }
        std::string text(WithoutEnd(Text(), line.Begin, line.Size));
        if (line.End != TLineEnd::None) text += line.End == TLineEnd::CrLf ? "\r\n" : "\n";
        if (!Encode(encoding_, text, bytes))
            throw EBadInput(fileName_, 0, "a line cannot be written in " + encoding_.Name);
    }
    return bytes;
}

}  // namespace tml
