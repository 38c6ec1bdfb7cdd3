#include "forms/Formbinaryeditor.h"

#include "forms/Formbinarywriter.h"
#include "forms/Formbuilder.h"
#include "forms/Formstrings.h"

namespace tml {

namespace {

/// A code page that was only guessed from the strings is not written in: with one string more the next
/// guess could be another.
TFormStringKind KindOf(const TBinaryFormFile& file) {
    const TFormStringHabits& habits = file.Habits();
    if (habits.HasUtf8) return TFormStringKind::Utf8;
    if (habits.HasWide || habits.AnsiSample.empty() || file.CodePage().empty()) return TFormStringKind::Wide;
    return TFormStringKind::Ansi;
}

}  // namespace

TFormBinaryEditor::TFormBinaryEditor(const TBinaryFormFile& file) : file_(file), strings_(KindOf(file)) {}

std::string TFormBinaryEditor::Value(const TFormValue& value, const TFormSpot& /*spot*/) const {
    std::string bytes;
    TFormBinaryWriter writer(file_, strings_, bytes);
    EmitValue(value, file_, writer);
    return bytes;
}

std::string TFormBinaryEditor::ListItem(const TFormValue& value, const TFormSpot& spot) const {
    return Value(value, spot);
}

std::string TFormBinaryEditor::Item(const std::vector<TFormProperty>& item, const TFormSpot& /*spot*/) const {
    std::string bytes;
    TFormBinaryWriter writer(file_, strings_, bytes);
    EmitItem(item, file_, writer);
    return bytes;
}

TEdit TFormBinaryEditor::Name(const TFormNodeData& node) const {
    std::string bytes;
    TFormBinaryWriter(file_, strings_, bytes).ShortString(EncodeFor(file_, node.Name));
    return {node.NameSpan.Begin, node.NameSpan.End, bytes};
}

TEdit TFormBinaryEditor::Class(const TFormNodeData& node) const {
    std::string bytes;
    TFormBinaryWriter(file_, strings_, bytes).ShortString(EncodeFor(file_, node.ClassName));
    return {node.ClassSpan.Begin, node.ClassSpan.End, bytes};
}

TEdit TFormBinaryEditor::NewProperty(const TFormNodeData& owner, const TFormProperty& property,
                                     const TFormPropertyPlace* next) const {
    std::string bytes;
    TFormBinaryWriter writer(file_, strings_, bytes);
    writer.Property(CheckedPropertyName(property.Name, file_));
    EmitValue(property.Value, file_, writer);
    const std::size_t offset = next == nullptr ? owner.PropertiesEnd : next->Name.Begin;
    return {offset, offset, bytes};
}

void TFormBinaryEditor::ExpectWritable(const std::string& name, const TFormValue& value) const {
    CheckedPropertyName(name, file_);
    std::string bytes;
    TFormBinaryWriter writer(file_, strings_, bytes);
    EmitValue(value, file_, writer);
}

TEdit TFormBinaryEditor::NewChild(const TFormNodeData& parent, const TFormNode& child) const {
    std::string bytes;
    TFormBinaryWriter writer(file_, strings_, bytes);
    WriteNode(child, writer);
    const std::size_t end = parent.Span.End - 1;
    return {end, end, bytes};
}

void TFormBinaryEditor::Finish(TEdits& edits) const {
    if (!file_.SizeOffset() || edits.empty()) return;
    const std::size_t offset = *file_.SizeOffset();
    std::size_t size = 0;
    for (std::size_t i = 4; i-- > 0;)
        size = size << 8 | static_cast<unsigned char>(file_.Bytes()[offset + i]);
    for (const TEdit& edit : edits)
        size += edit.Text.size() - (edit.End - edit.Begin);
    edits.insert(edits.begin(), {offset, offset + 4, SizeBytes(size)});
}

}  // namespace tml
