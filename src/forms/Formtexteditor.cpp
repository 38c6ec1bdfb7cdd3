#include "forms/Formtexteditor.h"

#include <algorithm>

#include "forms/Formbuilder.h"
#include "forms/Formchars.h"
#include "forms/Formstrings.h"
#include "forms/Formstyle.h"

namespace tml {

namespace {

constexpr std::string_view kEnd = "end";

bool IsSpace(char c) {
    return c == ' ' || c == '\t';
}

bool IsBreak(char c) {
    return c == '\n' || c == '\r';
}

}  // namespace

TFormTextEditor::TFormTextEditor(const TFormFile& file, const TFormNode& root)
    : file_(file), text_(file.Bytes()), style_(FindStyle(file, root)) {}

// A file may mix line ends: a change takes that of the line before it.
TFormSpot TFormTextEditor::SpotAt(std::size_t offset) const {
    TFormSpot spot{std::string(IndentAt(text_, offset)), style_.LineEnd};
    const std::size_t end = offset == 0 ? text_.npos : text_.rfind('\n', offset - 1);
    if (end != text_.npos) spot.LineEnd = end > 0 && text_[end - 1] == '\r' ? "\r\n" : "\n";
    return spot;
}

TFormSpot TFormTextEditor::Deeper(const TFormSpot& spot, int levels) const {
    TFormSpot deeper = spot;
    for (int i = 0; i < levels; ++i)
        deeper.Indent += style_.Indent;
    return deeper;
}

TFormTextStyle TFormTextEditor::StyleAt(const TFormSpot& spot) const {
    TFormTextStyle style = style_;
    style.LineEnd = spot.LineEnd;
    return style;
}

std::string TFormTextEditor::Value(const TFormValue& value, const TFormSpot& spot) const {
    std::string text;
    const TFormTextStyle style = StyleAt(spot);
    TFormTextWriter writer(file_, style, text, spot.Indent);
    EmitValue(value, file_, writer);
    return text;
}

std::string TFormTextEditor::ListItem(const TFormValue& value, const TFormSpot& spot) const {
    const TFormSpot inner = Deeper(spot, 1);
    return inner.LineEnd + inner.Indent + Value(value, inner);
}

std::string TFormTextEditor::Item(const std::vector<TFormProperty>& item, const TFormSpot& spot) const {
    std::string text;
    const TFormTextStyle style = StyleAt(spot);
    TFormTextWriter writer(file_, style, text, spot.Indent);
    EmitItem(item, file_, writer);
    return text;
}

// A long string begins on the line below its name; whatever replaces it begins behind the "=" again.
TEdit TFormTextEditor::Replacement(TFormSpan value) const {
    std::size_t begin = value.Begin;
    while (begin > 0 && IsFormChar(text_[begin - 1], kBlank))
        --begin;
    const bool isBelow = std::string_view(text_).substr(begin, value.Begin - begin).find('\n') != text_.npos;
    return isBelow ? TEdit{begin, value.End, " "} : TEdit{value.Begin, value.End, ""};
}

TEdit TFormTextEditor::Name(const TFormNodeData& node) const {
    std::string name = EncodeFor(file_, node.Name);
    TEdit edit{node.NameSpan.Begin, node.NameSpan.End, std::move(name)};
    if (node.NameSpan.Empty() && node.ClassSpan.Empty()) {
        edit.Text = " " + edit.Text + ":";
    } else if (node.NameSpan.Empty()) {
        if (!node.Name.empty()) edit.Text += ": ";
    } else if (node.Name.empty()) {
        edit.End = node.ClassSpan.Begin;
    }
    return edit;
}

TEdit TFormTextEditor::Class(const TFormNodeData& node) const {
    return {node.ClassSpan.Begin, node.ClassSpan.End, EncodeFor(file_, node.ClassName)};
}

// Behind the blanks that follow an offset and, when nothing else is on the line, behind its line break.
std::size_t TFormTextEditor::LineAfter(std::size_t offset) const {
    std::size_t end = offset;
    while (end < text_.size() && IsSpace(text_[end]))
        ++end;
    if (end == text_.size() || !IsBreak(text_[end])) return end;
    const bool isPair = text_[end] == '\r' && text_[end + 1] == '\n';
    return end + (isPair ? 2 : 1);
}

TEdit TFormTextEditor::NewLines(std::size_t offset, const TFormSpot& spot, const std::string& text) const {
    const bool atLineStart = offset == 0 || IsBreak(text_[offset - 1]);
    return {offset, offset, (atLineStart ? "" : spot.LineEnd) + spot.Indent + text + spot.LineEnd};
}

// Indented as its first sibling of the file.
TFormSpot TFormTextEditor::PropertySpot(const TFormNodeData& owner) const {
    TFormSpot spot = Deeper(SpotAt(owner.Span.Begin), 1);
    const auto first = std::find_if(owner.Properties.begin(), owner.Properties.end(),
                                    [](const TFormPropertyPlace& place) { return !place.Name.Empty(); });
    if (first == owner.Properties.end()) return spot;
    const std::string_view sibling = IndentAt(text_, first->Name.Begin);
    if (!sibling.empty()) spot.Indent = sibling;
    return spot;
}

TEdit TFormTextEditor::NewProperty(const TFormNodeData& owner, const TFormProperty& property,
                                   const TFormPropertyPlace* next) const {
    const std::size_t offset = next == nullptr ? LineAfter(owner.PropertiesEnd)
                                               : next->Name.Begin - IndentAt(text_, next->Name.Begin).size();
    TFormSpot spot = PropertySpot(owner);
    spot.LineEnd = SpotAt(offset).LineEnd;
    std::string text;
    const TFormTextStyle style = StyleAt(spot);
    TFormTextWriter writer(file_, style, text, spot.Indent);
    writer.Property(CheckedPropertyName(property.Name, file_));
    EmitValue(property.Value, file_, writer);
    return NewLines(offset, spot, text.substr(spot.LineEnd.size() + spot.Indent.size()));
}

void TFormTextEditor::ExpectWritable(const std::string& name, const TFormValue& value) const {
    CheckedPropertyName(name, file_);
    // A text has room for whatever can be given.
    TFormSink deaf;
    EmitValue(value, file_, deaf);
}

TEdit TFormTextEditor::NewChild(const TFormNodeData& parent, const TFormNode& child) const {
    const std::size_t end = parent.Span.End - kEnd.size();
    TFormSpot spot = SpotAt(end);
    const std::size_t offset = end - spot.Indent.size();
    spot = Deeper(spot, 1);
    std::string text;
    const TFormTextStyle style = StyleAt(spot);
    TFormTextWriter writer(file_, style, text, spot.Indent);
    WriteNode(child, writer);
    return NewLines(offset, spot, text);
}

TEdit TFormTextEditor::Removal(TFormSpan span) const {
    const std::size_t lineBegin = span.Begin - IndentAt(text_, span.Begin).size();
    const std::size_t after = LineAfter(span.End);
    const bool ownsLine = (lineBegin == 0 || IsBreak(text_[lineBegin - 1])) && IsBreak(text_[after - 1]);
    if (ownsLine) return {lineBegin, after, ""};
    std::size_t end = span.End;
    while (end < after && IsSpace(text_[end]))
        ++end;
    return {span.Begin, end, ""};
}

}  // namespace tml
