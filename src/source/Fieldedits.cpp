#include "source/Fieldedits.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "source/Charclass.h"
#include "source/Fields.h"
#include "source/Pascalwords.h"

namespace tml {
namespace {

constexpr std::string_view kLineBreak = "\r\n";

const TField* FindField(const TSourceText& source, const TClassFields& fields, const std::string& name) {
    const auto found = std::find_if(fields.Fields.begin(), fields.Fields.end(), [&](const TField& field) {
        const std::string_view declared = source.Text().substr(field.Name, field.NameEnd - field.Name);
        return SameName(source.Language(), declared, name);
    });
    return found == fields.Fields.end() ? nullptr : &*found;
}

const TField& NeededField(const TSourceText& source, const TClassFields& fields, const std::string& formClass,
                          const std::string& name) {
    if (const TField* field = FindField(source, fields, name); field != nullptr) return *field;
    throw EBadInput(source.FileName(), source.LineOf(fields.SectionBegin),
                    "the class " + formClass + " has no field " + name, "Declare it in the class.");
}

std::string_view IndentAt(std::string_view text, std::size_t place) {
    const std::size_t line = LineStart(text, place);
    const std::size_t end = std::min(text.find_first_not_of(" \t", line), text.size());
    return text.substr(line, end - line);
}

/// The declaration in the style of another one: what stands between its name and its type is kept.
std::string Declaration(const TSourceText& source, const TField* model, const std::string& name,
                        const std::string& className) {
    const std::string_view text = source.Text();
    if (source.Language().IsCPPSource) {
        const bool isFirst = model != nullptr && model->Previous == 0;
        const std::string_view kept =
            isFirst ? text.substr(model->TypeEnd, model->Name - model->TypeEnd) : "";
        const bool isPointer = kept.find_first_not_of(" \t*") == std::string_view::npos &&
                               kept.find('*') != std::string_view::npos;
        return className + std::string(isPointer ? kept : " *") + name + ";";
    }
    const bool isPlain = model != nullptr && model->Next == 0;
    const std::string_view between =
        isPlain ? text.substr(model->NameEnd, model->Type - model->NameEnd) : ": ";
    return name + std::string(between) + className + ";";
}

/// The indent of fields in a class that has none yet.
std::string FirstIndent(const TSourceText& source, const TClassFields& fields) {
    const std::string_view text = source.Text();
    const std::size_t member = SkipBlanks(text, fields.SectionBegin);
    const bool hasMember = member < fields.ClassEnd && LineStart(text, member) > fields.SectionBegin;
    if (hasMember && IsNameStart(text[member])) {
        const std::string_view word = text.substr(member, text.find_first_of(" \t\r\n:", member) - member);
        const bool isLabel = SameText(word, "private") || SameText(word, "public") ||
                             SameText(word, "protected") || SameText(word, "strict");
        if (!isLabel) return std::string(IndentAt(text, member));
    }
    const std::string_view unit = source.Language().IsCPPSource ? "\t" : "  ";
    return std::string(IndentAt(text, fields.ClassEnd)).append(unit);
}

/// Whether a condition is open at a place behind begin: what is written there is compiled in one case only.
bool IsUnderCondition(const TSourceText& source, std::size_t begin, std::size_t place) {
    int depth = 0;
    for (const TComment& comment : source.Comments())
        if (comment.IsDirective && comment.Begin >= begin && comment.Begin < place)
            depth += ConditionStep(source.Text().substr(comment.Begin, comment.End - comment.Begin));
    return depth > 0;
}

}  // namespace

TEdits AddField(const TSourceText& source, const std::string& formClass, const std::string& name,
                const std::string& className) {
    const TClassFields fields = ReadFields(source, formClass);
    if (FindField(source, fields, name) != nullptr) return {};
    const std::string_view text = source.Text();
    const auto last = std::find_if(fields.Fields.rbegin(), fields.Fields.rend(),
                                   [](const TField& field) { return field.InFirstSection; });
    const TField* model = last == fields.Fields.rend() ? nullptr : &*last;
    const bool isLast =
        model != nullptr && !IsUnderCondition(source, fields.SectionBegin, model->DeclarationEnd);
    const std::size_t behind = isLast ? model->DeclarationEnd : fields.SectionBegin;
    const std::string indent(model != nullptr ? IndentAt(text, model->Declaration)
                                              : FirstIndent(source, fields));
    const std::string line = indent + Declaration(source, model, name, className);
    const std::size_t end = LineEnd(text, behind);
    if (end < fields.ClassEnd && text.substr(end, kLineBreak.size()) == kLineBreak)
        return {{end + kLineBreak.size(), end + kLineBreak.size(), line + std::string(kLineBreak)}};
    // The class ends on this very line.
    const std::string outer(IndentAt(text, fields.ClassEnd));
    const std::size_t rest = SkipBlanks(text, behind);
    return {{behind, rest, std::string(kLineBreak) + line + std::string(kLineBreak) + outer}};
}

TEdits RenameField(const TSourceText& source, const std::string& formClass, const std::string& oldName,
                   const std::string& newName) {
    const TClassFields fields = ReadFields(source, formClass);
    const TField& field = NeededField(source, fields, formClass, oldName);
    return {{field.Name, field.NameEnd, newName}};
}

TEdits RemoveField(const TSourceText& source, const std::string& formClass, const std::string& name) {
    const TClassFields fields = ReadFields(source, formClass);
    const TField& field = NeededField(source, fields, formClass, name);
    const std::string_view text = source.Text();
    // The star in front of a C++ name goes with it: "TA *B, *C" keeps "TA *C" when B leaves.
    if (field.Next != 0) return {{field.Name, field.Next, ""}};
    if (field.Previous != 0) return {{field.Previous, field.NameEnd, ""}};
    const std::size_t line = LineStart(text, field.Declaration);
    const std::size_t end = LineEnd(text, field.DeclarationEnd);
    const std::string_view rest = Trim(text.substr(field.DeclarationEnd, end - field.DeclarationEnd));
    const bool isAlone = Trim(text.substr(line, field.Declaration - line)).empty() &&
                         (rest.empty() || rest.starts_with("//")) && end < text.size();
    if (isAlone) return {{line, text.find('\n', end) + 1, ""}};
    return {{field.Declaration, field.DeclarationEnd, ""}};
}

}  // namespace tml
