#include "source/Fieldedits.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "source/Charclass.h"
#include "source/Conditions.h"
#include "source/Fields.h"
#include "source/Newlines.h"

namespace tml {
namespace {

constexpr std::string_view kLineBreak = "\r\n";

bool Bears(const TSourceText& source, std::size_t place, const std::string& name) {
    const std::string_view text = source.Text().substr(place, name.size());
    const bool ends =
        place + name.size() == source.Text().size() || !IsNameChar(source.Text()[place + name.size()]);
    return ends && SameName(source.Language(), text, name);
}

/// The declared type names the class, with or without the unit in front of it.
bool IsOfType(const TSourceText& source, const TField& field, const std::string& className) {
    for (std::size_t place = field.Type; place < field.DeclarationEnd; ++place)
        if (!IsNameChar(source.Text()[place - 1]) && Bears(source, place, className)) return true;
    return false;
}

[[noreturn]] void Refuse(const TSourceText& source, std::size_t place, const std::string& problem,
                         const std::string& remedy) {
    throw EBadInput(source.FileName(), source.LineOf(place), problem, remedy);
}

/// The fields of a name in all declarations of a class.
std::vector<TField> FieldsOf(const TSourceText& source, const std::string& formClass,
                             const std::string& name) {
    std::vector<TField> found;
    const std::vector<TClassFields> declarations = ReadFields(source, formClass);
    for (const TClassFields& declared : declarations)
        for (const TField& field : declared.Fields)
            if (Bears(source, field.Name, name)) found.push_back(field);
    if (found.empty())
        Refuse(source, declarations.front().SectionBegin, "the class " + formClass + " has no field " + name,
               "Declare it in the class.");
    return found;
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

/// Whether a declaration of the class has the field already. What else bears its name is in the way.
bool IsDeclared(const TSourceText& source, const TConditions& conditions, const TClassFields& declared,
                const std::string& name, const std::string& className) {
    constexpr const char* kRemedy = "Rename that, or give the component another name.";
    for (const std::size_t other : declared.Others)
        if (Bears(source, other, name))
            Refuse(source, other, "the form's class declares another " + name, kRemedy);
    std::vector<std::size_t> places;
    for (const TField& field : declared.Fields) {
        if (!Bears(source, field.Name, name)) continue;
        if (!IsOfType(source, field, className))
            Refuse(source, field.Name, "the form's class declares " + name + " with another type", kRemedy);
        places.push_back(field.Name);
    }
    if (places.empty()) return false;
    if (conditions.Reach(places, conditions.BranchAt(declared.Begin))) return true;
    Refuse(source, places.front(), "the form's class declares " + name + " under a condition only",
           "Declare it where every build sees it.");
}

/// Behind what ends at an offset, on a line of its own.
TEdit LineEdit(const TSourceText& source, std::size_t behind, const std::string& line,
               const std::string& indent) {
    if (const auto place = LineBehind(source, behind))
        return {*place, *place, line + std::string(kLineBreak)};
    const std::size_t rest = SkipBlanks(source.Text(), behind);
    return {behind, rest, std::string(kLineBreak) + line + std::string(kLineBreak) + indent};
}

/// A published section at the end of a C++ class: there it changes no other member.
TEdit SectionEdit(const TSourceText& source, const TClassFields& declared, const std::string& declaration) {
    const std::string_view text = source.Text();
    const std::string outer(IndentAt(text, declared.ClassEnd));
    const std::size_t line = LineStart(text, declared.ClassEnd);
    const bool ownLine = line + outer.size() == declared.ClassEnd;
    const std::string section = outer + "__published:" + std::string(kLineBreak) + outer + "\t" +
                                declaration + std::string(kLineBreak);
    if (ownLine) return {line, line, section};
    return {declared.ClassEnd, declared.ClassEnd, std::string(kLineBreak) + section + outer};
}

TEdit FieldEdit(const TSourceText& source, const TConditions& conditions, const TClassFields& declared,
                const std::string& name, const std::string& className) {
    const std::size_t branch = conditions.BranchAt(declared.Begin);
    const auto last = std::find_if(declared.Fields.rbegin(), declared.Fields.rend(),
                                   [](const TField& field) { return field.IsDesigned; });
    const TField* model = last == declared.Fields.rend() ? nullptr : &*last;
    const std::string indent(model != nullptr ? IndentAt(source.Text(), model->Declaration)
                                              : FirstIndent(source, declared));
    const std::string declaration = Declaration(source, model, name, className);
    std::vector<std::size_t> ends;
    if (model != nullptr) ends.push_back(model->DeclarationEnd);
    if (declared.HasSection) ends.push_back(declared.SectionBegin);
    if (!source.Language().IsCPPSource) ends.push_back(declared.HeadingEnd);
    for (const std::size_t end : ends) {
        if (!conditions.IsSeen(end, branch)) continue;
        const bool isLast = SkipBlanks(source.Text(), end) == declared.ClassEnd;
        return LineEdit(source, end, indent + declaration,
                        isLast ? std::string(IndentAt(source.Text(), declared.ClassEnd)) : indent);
    }
    const bool isClosed = source.Text().substr(declared.ClassEnd, 1) == "}";
    if (source.Language().IsCPPSource && isClosed && conditions.IsSeen(declared.ClassEnd, branch))
        return SectionEdit(source, declared, declaration);
    Refuse(source, declared.Begin, "the form's class has no place for " + name + " that every build sees",
           "Declare it by hand.");
}

TEdit RemovalOf(const TSourceText& source, const TField& field) {
    const std::string_view text = source.Text();
    // The star in front of a C++ name goes with it: "TA *B, *C" keeps "TA *C" when B leaves.
    if (field.Next != 0) return {field.Name, field.Next, ""};
    if (field.Previous != 0) return {field.Previous, field.NameEnd, ""};
    const std::size_t line = LineStart(text, field.Declaration);
    const std::size_t end = LineEnd(text, field.DeclarationEnd);
    const std::string_view rest = Trim(text.substr(field.DeclarationEnd, end - field.DeclarationEnd));
    const bool isAlone = Trim(text.substr(line, field.Declaration - line)).empty() &&
                         (rest.empty() || rest.starts_with("//")) && end < text.size();
    if (isAlone) return {line, text.find('\n', end) + 1, ""};
    return {field.Declaration, field.DeclarationEnd, ""};
}

}  // namespace

bool HasField(const TSourceText& source, const std::string& formClass, const std::string& name,
              const std::string& className) {
    for (const TClassFields& declared : ReadFields(source, formClass))
        for (const TField& field : declared.Fields)
            if (Bears(source, field.Name, name) && IsOfType(source, field, className)) return true;
    return false;
}

TEdits AddField(const TSourceText& source, const std::string& formClass, const std::string& name,
                const std::string& className) {
    const TConditions conditions(source);
    TEdits edits;
    for (const TClassFields& declared : ReadFields(source, formClass))
        if (!IsDeclared(source, conditions, declared, name, className))
            edits.push_back(FieldEdit(source, conditions, declared, name, className));
    return edits;
}

TEdits RenameField(const TSourceText& source, const std::string& formClass, const std::string& oldName,
                   const std::string& newName) {
    TEdits edits;
    for (const TField& field : FieldsOf(source, formClass, oldName))
        edits.push_back({field.Name, field.NameEnd, newName});
    return edits;
}

TEdits RemoveField(const TSourceText& source, const std::string& formClass, const std::string& name) {
    TEdits edits;
    for (const TField& field : FieldsOf(source, formClass, name))
        edits.push_back(RemovalOf(source, field));
    return edits;
}

}  // namespace tml
