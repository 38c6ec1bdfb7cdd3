#include "ide/Unitsource.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Folderindex.h"
#include "base/Utf8.h"
#include "source/Ancestors.h"
#include "source/Fieldedits.h"
#include "source/Fields.h"
#include "source/Includeedits.h"
#include "source/Usesedits.h"

namespace tml {
namespace {

/// Works an edit out on the buffer's text and makes it.
template <typename PlanEdits>
void Edit(TSourceBuffer& buffer, const std::string& title, PlanEdits planEdits) {
    const TSharedSource source = buffer.Source();
    buffer.Apply(planEdits(*source), title);
}

/// Every use of a name in code that is not a member of something else.
TEdits RenameIdentifier(const TSourceText& source, const std::string& oldName, const std::string& newName) {
    TEdits edits;
    std::string_view before;
    for (const TToken& token : source.CodeTokens()) {
        const std::string_view text = TextOf(source, token);
        const bool isMember = before == "." || before == "->";
        if (token.Kind == TTokenKind::Name && !isMember && SameName(source.Language(), text, oldName))
            edits.push_back({token.Begin, token.End, newName});
        before = text;
    }
    return edits;
}

}  // namespace

TSourceBuffer& TUnitSource::Declaration() {
    if (header_) return *header_;
    if (IsCppUnit(unit_->FileName()))
        throw EBadInput(unit_->FileName(), 0, "the unit has no header that could declare its form",
                        "Restore the header beside the unit");
    return *unit_;
}

void TUnitSource::AddComponent(const std::string& formClass, const std::string& name,
                               const std::string& className, const std::string& unitName) {
    Edit(Declaration(), "Declare " + name, [&](const TSourceText& source) {
        TEdits edits = source.Language().IsCPPSource ? AddInclude(source, unitName + ".hpp")
                                                     : AddUsedUnit(source, unitName);
        for (TEdit& edit : AddField(source, formClass, name, className))
            edits.push_back(std::move(edit));
        std::stable_sort(edits.begin(), edits.end(),
                         [](const TEdit& left, const TEdit& right) { return left.Begin < right.Begin; });
        return edits;
    });
}

void TUnitSource::RenameComponent(const std::string& formClass, const std::string& className,
                                  const std::string& oldName, const std::string& newName) {
    Edit(Declaration(), "Rename " + oldName, [&](const TSourceText& source) {
        return HasField(source, formClass, oldName, className)
                   ? RenameField(source, formClass, oldName, newName)
                   : TEdits();
    });
}

void TUnitSource::RemoveComponent(const std::string& formClass, const std::string& className,
                                  const std::string& name) {
    Edit(Declaration(), "Remove " + name, [&](const TSourceText& source) {
        return HasField(source, formClass, name, className) ? RemoveField(source, formClass, name) : TEdits();
    });
}

void TUnitSource::RenameForm(const std::string& oldName, const std::string& newName) {
    const auto plan = [&](const TSourceText& source) { return RenameIdentifier(source, oldName, newName); };
    Edit(*unit_, "Rename " + oldName, plan);
    if (header_) Edit(*header_, "Rename " + oldName, plan);
}

std::string TUnitSource::AncestorOf(const std::string& formClass) {
    return tml::AncestorOf(*Declaration().Source(), formClass);
}

}  // namespace tml
