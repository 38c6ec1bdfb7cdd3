#include "ide/Changesets.h"

#include <unordered_set>
#include <utility>
#include <vector>

#include "base/Errors.h"
#include "base/Files.h"
#include "base/Folderindex.h"
#include "base/Utf8.h"
#include "ide/Moduleservices.h"
#include "source/Includeedits.h"
#include "source/Usesedits.h"

namespace tml {
namespace {

constexpr const char* kRepeat = "Repeat the command";

TSourceBuffer& FindBuffer(TModules& modules, const std::string& fileName) {
    const std::shared_ptr<TModule> module = modules.Find(fileName);
    TSourceBuffer* buffer = module ? module->FindSource(fileName) : nullptr;
    if (buffer == nullptr)
        throw EBadInput(fileName, 0, "the unit is not open", "Open it and repeat the command");
    return *buffer;
}

std::shared_ptr<IOTAComponent> FindComponent(TModules& modules, const TPropertyChange& change) {
    const std::shared_ptr<IOTAModule> module = modules.FindFormModule(change.FormName);
    if (!module || !module->GetFormEditor())
        throw EBadInput(change.FormName, 0, "the form is not open", "Open it and repeat the command");
    std::shared_ptr<IOTAComponent> component = module->GetFormEditor()->FindComponent(change.ComponentName);
    if (!component)
        throw EBadInput(module->GetFormEditor()->GetFileName(), 0,
                        "the form has no component " + change.ComponentName, kRepeat);
    return component;
}

/// The sources of a change set and what is to be done to each.
std::vector<std::pair<TSourceBuffer*, TEdits>> CheckedSources(TModules& modules, const TChangeSet& changes) {
    std::vector<std::pair<TSourceBuffer*, TEdits>> sources;
    std::unordered_set<const TSourceBuffer*> seen;
    for (const TSourceChange& change : changes.Sources) {
        TSourceBuffer& buffer = FindBuffer(modules, change.FileName);
        if (!seen.insert(&buffer).second)
            throw EBadInput(change.FileName, 0, "the file is changed twice in one step", kRepeat);
        TEdits edits = buffer.EditsNow(change.Edits, change.Expected);
        buffer.Check(edits);
        sources.emplace_back(&buffer, std::move(edits));
    }
    return sources;
}

/// The header by which C++ sees a unit: its own, or the one that is made from a Pascal unit.
std::string HeaderOf(const std::string& unit) {
    const std::string extension = ExtensionOf(unit);
    if (SameText(extension, ".h") || SameText(extension, ".hpp")) return unit;
    return WithExtension(unit, LanguageOf(unit).IsCPPSource ? ".h" : ".hpp");
}

/// A unit of the project by the name in the uses clause or by its header.
void UseUnit(TSourceBuffer& buffer, const std::string& unit, const std::string& title) {
    const TSharedSource source = buffer.Source();
    const std::string file = FileNameOf(unit);
    if (source->Language().IsCPPSource)
        buffer.Apply(AddInclude(*source, HeaderOf(file)), title);
    else
        buffer.Apply(AddImplementationUnit(*source, WithExtension(file, "")), title);
}

}  // namespace

void ApplyChangeSet(TModules& modules, const TChangeSet& changes) {
    const auto sources = CheckedSources(modules, changes);
    for (const TPropertyChange& change : changes.Properties)
        FindComponent(modules, change);
    for (const auto& [fileName, unit] : changes.UsedUnits)
        FindBuffer(modules, fileName);

    // What only shows when it is done (a text that the form's code page cannot hold) is rolled back.
    const auto command = modules.BeginCommand(changes.Title);
    for (const auto& [buffer, edits] : sources)
        buffer->Apply(edits, changes.Title);
    for (const TPropertyChange& change : changes.Properties)
        FindComponent(modules, change)->SetPropValue(change.PropertyName, change.Value);
    for (const auto& [fileName, unit] : changes.UsedUnits)
        UseUnit(FindBuffer(modules, fileName), unit, changes.Title);
    command->Commit();
}

}  // namespace tml
