#include "ide/Unitsource.h"

#include <algorithm>
#include <optional>
#include <vector>

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

/// AddField has nothing to do where the field is there already.
bool HasField(const TSourceText& source, const std::string& formClass, const std::string& name,
              const std::string& className) {
    return AddField(source, formClass, name, className).empty();
}

/// Calls use(token, isMember) for every place in the code where the name stands; a member belongs to
/// something in front of it.
template <typename Use>
void ForEachName(const TSourceText& source, const std::string& name, Use use) {
    std::string_view before;
    for (const TToken& token : source.CodeTokens()) {
        const std::string_view text = TextOf(source, token);
        if (token.Kind == TTokenKind::Name && SameName(source.Language(), text, name))
            use(token, before == "." || before == "->");
        before = text;
    }
}

/// Every use of a name in code that is not a member of something else.
TEdits RenameIdentifier(const TSourceText& source, const std::string& oldName, const std::string& newName) {
    TEdits edits;
    ForEachName(source, oldName, [&](const TToken& token, bool isMember) {
        if (!isMember) edits.push_back({token.Begin, token.End, newName});
    });
    return edits;
}

/// The class's field of the name and type: where its name begins, none without one.
std::optional<std::size_t> FieldPlace(const TSourceText& source, const TClassFields& fields,
                                      const std::string& name, const std::string& className) {
    const auto says = [&](std::size_t begin, std::size_t end, const std::string& word) {
        return SameName(source.Language(), source.Text().substr(begin, end - begin), word);
    };
    for (const TField& field : fields.Fields)
        if (says(field.Name, field.NameEnd, name) && says(field.Type, field.TypeEnd, className))
            return field.Name;
    return std::nullopt;
}

/// True when the class says the name anywhere but at this place. What a method calls its parameter counts
/// too: one name more is no harm.
bool SaysElsewhere(const TSourceText& source, const std::string& formClass, const std::string& name,
                   std::optional<std::size_t> place) {
    const std::vector<TRegion>& regions = source.Outline();
    bool found = false;
    ForEachName(source, name, [&](const TToken& token, bool) {
        const std::size_t begin = token.Begin;
        found =
            found || (begin != place && std::any_of(regions.begin(), regions.end(), [&](const auto& region) {
                          return region.Kind == TRegionKind::Class && region.Begin <= begin &&
                                 begin < region.End && SameName(source.Language(), region.Name, formClass);
                      }));
    });
    return found;
}

}  // namespace

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
    const auto place = FieldPlace(*source, ReadFields(*source, formClass), name, className);
    return !SaysElsewhere(*source, formClass, name, place);
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
