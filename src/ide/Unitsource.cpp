#include "ide/Unitsource.h"

#include <algorithm>
#include <set>
#include <vector>

#include "base/Errors.h"
#include "base/Folderindex.h"
#include "base/Utf8.h"
#include "source/Ancestors.h"
#include "source/Fieldedits.h"
#include "source/Fields.h"
#include "source/Identifiers.h"
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

bool IsSelector(std::string_view text) {
    return text == "." || text == "->";
}

/// Calls use(token, before, behind) for every place in the code where the name stands, with the texts of
/// the tokens around it.
template <typename Use>
void ForEachName(const TSourceText& source, const std::string& name, Use use) {
    const std::vector<TToken>& tokens = source.CodeTokens();
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i].Kind != TTokenKind::Name ||
            !SameName(source.Language(), TextOf(source, tokens[i]), name))
            continue;
        use(tokens[i], i == 0 ? std::string_view() : TextOf(source, tokens[i - 1]),
            i + 1 == tokens.size() ? std::string_view() : TextOf(source, tokens[i + 1]));
    }
}

/// Every use of a name in code that is not a member of something else.
TEdits RenameIdentifier(const TSourceText& source, const std::string& oldName, const std::string& newName) {
    TEdits edits;
    ForEachName(source, oldName, [&](const TToken& token, std::string_view before, std::string_view) {
        if (!IsSelector(before)) edits.push_back({token.Begin, token.End, newName});
    });
    return edits;
}

/// Where the names of the class's fields of the name and type begin.
std::set<std::size_t> FieldPlaces(const TSourceText& source, const std::string& formClass,
                                  const std::string& name, const std::string& className) {
    const auto says = [&](std::size_t begin, std::size_t end, const std::string& word) {
        return SameName(source.Language(), source.Text().substr(begin, end - begin), word);
    };
    std::set<std::size_t> places;
    for (const TClassFields& declaration : ReadFields(source, formClass))
        for (const TField& field : declaration.Fields)
            if (says(field.Name, field.NameEnd, name) && says(field.Type, field.TypeEnd, className))
                places.insert(field.Name);
    return places;
}

/// True when the class says the name anywhere but at these places. What a method calls its parameter counts
/// too: one name more is no harm. What only uses it, such as a call in a default value, declares nothing.
bool SaysElsewhere(const TSourceText& source, const std::string& formClass, const std::string& name,
                   const std::set<std::size_t>& places) {
    const std::vector<TRegion>& regions = source.Outline();
    const auto isInClass = [&](std::size_t place) {
        return std::any_of(regions.begin(), regions.end(), [&](const TRegion& region) {
            return region.Kind == TRegionKind::Class && region.Begin <= place && place < region.End &&
                   SameName(source.Language(), region.Name, formClass);
        });
    };
    bool found = false;
    ForEachName(source, name, [&](const TToken& token, std::string_view, std::string_view behind) {
        found = found || (!IsSelector(behind) && !places.contains(token.Begin) && isInClass(token.Begin));
    });
    return found;
}

}  // namespace

bool TUnitSource::CanDeclare(const std::string& name) const {
    return IsIdentifier(name, LanguageOf(unit_->FileName()));
}

TSourceBuffer& TUnitSource::Declaration() {
    if (header_) return *header_;
    if (IsCppUnit(unit_->FileName()))
        throw EBadInput(unit_->FileName(), 0, "the unit has no header that could declare its form",
                        "Restore the header beside the unit");
    return *unit_;
}

bool TUnitSource::HasRoomFor(const std::string& formClass, const std::string& name,
                             const std::string& className) {
    const TSharedSource source = Declaration().Source();
    return !SaysElsewhere(*source, formClass, name, FieldPlaces(*source, formClass, name, className));
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
