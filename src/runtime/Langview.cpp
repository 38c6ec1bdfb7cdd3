#include "runtime/Langview.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "runtime/Buildlist.h"
#include "runtime/Classes.h"
#include "runtime/Extended.h"
#include "runtime/Langtransfer.h"
#include "runtime/Showlanguage.h"
#include "tables/Languages.h"
#include "tables/Textmerge.h"

namespace tml {
namespace {

constexpr std::string_view kDefaultDelimiter = "\x01";
constexpr const char* kStates = "States";
constexpr const char* kIgnoreRemovals = "IgnoreRemovals";

std::string TableProperty(TStringsType type) {
    return std::string(KindOf(type).Property);
}

void ExpectCount(IOTAComponent& component, int count) {
    if (count < 1 || count > kMostLanguages)
        throw EBadInput("", 0, component.GetName() + " cannot have " + std::to_string(count) + " languages",
                        "Give at least one language, and at most " + std::to_string(kMostLanguages));
}

/// The translations into languages that no place leads to.
int CountLost(const TTable& table, const std::vector<int>& places) {
    int lost = 0;
    if (table.Type() == TStringsType::stLocales) return lost;
    for (const TTableEntry& entry : table.Entries())
        for (std::size_t i = 1; i < entry.Values.size(); ++i) {
            const bool stays =
                std::find(places.begin(), places.end(), static_cast<int>(i) + 1) != places.end();
            lost += !stays && IsTranslation(entry.Values[i], entry.Base()) ? 1 : 0;
        }
    return lost;
}

/// "Old" and "Old.Property" are the component's, "Older" is not.
bool BelongsTo(std::string_view identifier, const std::string& name) {
    const bool wholeName = identifier.size() == name.size() ||
                           (identifier.size() > name.size() && identifier[name.size()] == '.');
    return wholeName && SameText(identifier.substr(0, name.size()), name);
}

}  // namespace

std::string TmlLangView::GetName() {
    return Component().GetName();
}

std::string TmlLangView::GetClassName() {
    return Component().GetComponentType();
}

int TmlLangView::GetNumLang() {
    return Count();
}

void TmlLangView::SetNumLang(int count) {
    ExpectCount(Component(), count);
    std::vector<int> places(static_cast<std::size_t>(count));
    std::iota(places.begin(), places.end(), 1);
    if (count != Count()) MoveLanguages(places);
    StoreCount(count);
}

void TmlLangView::MoveLanguages(const std::vector<int>& former) {
    std::vector<TTable> tables = GetTables();
    for (TTable& table : tables)
        table.MoveLanguages(former);
    WriteTables(tables);
    MoveExtended(Component(), former);
}

/// Each table and "States" is held or inherited by itself.
int TmlLangView::MoveStoredLanguages(const std::vector<int>& former) {
    const auto stores = [&](const std::string& list) { return Component().GetPropValue(list).has_value(); };
    const bool movesStates = stores(std::string(kStates) + ".Strings");
    const std::string delimiter = GetDelimiter();
    TStateRecords states = ReadStates();
    int lost = 0;
    for (const TTableKind& kind : kTableKinds) {
        const std::string property = TableProperty(kind.Type);
        if (!stores(property + ".Strings")) {
            states.Move(kind.Type, former);
            continue;
        }
        TTable table = ReadTable(kind.Type, delimiter, states);
        lost += CountLost(table, former);
        table.MoveLanguages(former);
        WriteListProp(Component(), property, table.Lines(delimiter));
        states.Take(table);
    }
    if (movesStates) WriteListProp(Component(), kStates, states.Lines());
    if (stores("ExtendedTranslations")) MoveExtended(Component(), former);
    return lost;
}

std::shared_ptr<TmlLangDispatcher> TmlLangView::GetDispatcher() {
    const std::shared_ptr<IOTAComponent> linked = ReadComponentProp(Component(), "Dispatcher");
    if (!linked || !ClassInheritsFrom(linked->GetComponentType(), "TmlLangDispatcher")) return nullptr;
    return std::make_shared<TmlDispatcherView>(linked);
}

bool TmlLangView::IsLinkedTo(TmlLangDispatcher& dispatcher) {
    const auto reference = ReadProp(Component(), "Dispatcher");
    if (!reference || reference->Kind != TFormValueKind::Identifier) return false;
    const auto component = dispatcher.GetComponent();
    const auto owner = component->GetOwner();
    const bool isOnSameForm = owner == Component().GetOwner();
    return (isOnSameForm && SameText(reference->Text, component->GetName())) ||
           SameText(reference->Text, owner->GetName() + "." + component->GetName());
}

std::string TmlLangView::GetDelimiter() {
    const std::string stored = ReadStringProp(Component(), "Delimiter");
    return std::string(stored.empty() ? kDefaultDelimiter : LeftCodePoints(stored, 1));
}

bool TmlLangView::HasTable(TStringsType type) {
    return type != TStringsType::stListView_TreeView_Items || ClassInheritsFrom(GetClassName(), "TmlLangTLV");
}

TStateRecords TmlLangView::ReadStates() {
    return {ReadListProp(Component(), kStates), GetDelimiter()};
}

TTable TmlLangView::ReadTable(TStringsType type, const std::string& delimiter, const TStateRecords& states) {
    if (!HasTable(type)) return TTable(type);
    TTable table(type, ReadListProp(Component(), TableProperty(type)), delimiter);
    states.Mark(table);
    return table;
}

std::shared_ptr<TmlCustomLang> TmlLangView::GetInherited() {
    const auto ancestor = Component().GetAncestor();
    return ancestor == nullptr ? nullptr : std::make_shared<TmlLangView>(ancestor, files_);
}

TTable TmlLangView::GetTable(TStringsType type) {
    return ReadTable(type, GetDelimiter(), ReadStates());
}

std::vector<TTable> TmlLangView::GetTables() {
    const std::string delimiter = GetDelimiter();
    const TStateRecords states = ReadStates();
    std::vector<TTable> tables;
    tables.reserve(kTableKinds.size());
    for (const TTableKind& kind : kTableKinds)
        tables.push_back(ReadTable(kind.Type, delimiter, states));
    return tables;
}

void TmlLangView::SetTable(const TTable& table) {
    SetTables({table});
}

void TmlLangView::SetTables(const std::vector<TTable>& tables) {
    ExpectCount(Component(), std::max(Count(), 1));
    WriteTables(tables);
}

void TmlLangView::EditTables(const std::vector<TTable>& tables) {
    const std::vector<TExtendedItem> extended = ReadExtended(Component());
    const std::vector<TTable> present = GetTables();
    TLangTexts before{{}, {}, extended};
    for (const TTable& table : tables)
        before.Tables.push_back(present[static_cast<std::size_t>(table.Type())]);
    EditTexts(*this, before, {{}, tables, extended});
}

void TmlLangView::WriteTables(const std::vector<TTable>& tables) {
    TStateRecords states = ReadStates();
    for (const TTable& table : tables) {
        if (!HasTable(table.Type())) continue;
        WriteListProp(Component(), TableProperty(table.Type()), table.Lines(GetDelimiter()));
        states.Take(table);
    }
    WriteListProp(Component(), kStates, states.Lines());
}

TStringList TmlLangView::BuildList() {
    return BuildTables(*this);
}

void TmlLangView::ClearTranslations() {
    ClearTables(*this);
}

TTransferReport TmlLangView::SaveAllToFile(const std::string& fileName, const std::string& delimiter) {
    return SaveTexts(*this, files_, fileName, delimiter);
}

TTransferReport TmlLangView::SaveAllToBinaryFile(const std::string& fileName) {
    return SaveTexts(*this, files_, fileName, {});
}

TTransferReport TmlLangView::SaveToFile(const TPropertyKinds& kinds, const std::string& fileName,
                                        const std::string& delimiter) {
    return SaveKinds(*this, files_, kinds, fileName, delimiter);
}

TTransferReport TmlLangView::LoadAllFromFile(const std::string& fileName) {
    return LoadTexts(*this, files_, fileName, TTransferKind::Load, {}, onMove_);
}

TTransferReport TmlLangView::LoadAllFromBinaryFile(const std::string& fileName) {
    return LoadTexts(*this, files_, fileName, TTransferKind::Load, {}, onMove_);
}

TTransferReport TmlLangView::MergeAllFromFile(const std::string& fileName) {
    return LoadTexts(*this, files_, fileName, TTransferKind::Merge, {}, onMove_);
}

TTransferReport TmlLangView::LoadLanguage(const std::string& fileName, const std::string& languageName) {
    return LoadTexts(*this, files_, fileName, TTransferKind::Merge, languageName, onMove_);
}

void TmlLangView::ShowLanguage(int from, int to) {
    ShowTexts(*this, from, to);
}

TStringList TmlLangView::GetExclusions(TExclusionList list) {
    return ReadListProp(Component(), std::string(PropertyOf(list)));
}

void TmlLangView::SetExclusions(TExclusionList list, const TStringList& entries) {
    WriteListProp(Component(), std::string(PropertyOf(list)), entries);
}

TTextsOfForm TmlLangView::GetTextsOfForm() {
    return TextsOfForm(*this);
}

bool TmlLangView::IsUpToDate() {
    return AreTablesBuilt(*this);
}

bool TmlLangView::GetIgnoreRemovals() {
    return ReadBooleanProp(Component(), kIgnoreRemovals, false);
}

void TmlLangView::SetIgnoreRemovals(bool ignore) {
    WriteBooleanProp(Component(), kIgnoreRemovals, ignore, false);
}

void TmlLangView::ComponentRenamed(const std::string& oldName, const std::string& newName) {
    std::vector<TTable> tables = GetTables();
    for (TTable& table : tables)
        // The string table's IDs are free texts and name no component.
        if (table.Type() != TStringsType::stStrings)
            table.Rename([&](const std::string& key) {
                return BelongsTo(key, oldName) ? newName + key.substr(oldName.size()) : key;
            });
    WriteTables(tables);
    for (const TExclusionList list : kExclusionLists)
        RenameInExclusions(list, oldName, newName);
}

/// An entry is "Name", "Name.Property" or either with "!" in front.
void TmlLangView::RenameInExclusions(TExclusionList list, const std::string& oldName,
                                     const std::string& newName) {
    TStringList entries = GetExclusions(list);
    for (int i = 0; i < entries.Count(); ++i) {
        const std::size_t mark = entries[i].starts_with('!') ? 1 : 0;
        if (BelongsTo(std::string_view(entries[i]).substr(mark), oldName))
            entries.Set(i, entries[i].substr(0, mark) + newName + entries[i].substr(mark + oldName.size()));
    }
    SetExclusions(list, entries);
}

void TmlDispatcherView::SetLangNames(const TStringList& names) {
    TLanguagesView::SetLangNames(names);
    if (!names.Empty()) SetNumOfLanguages(names.Count());
}

void TmlDispatcherView::SetNumOfLanguages(int count) {
    ExpectCount(Component(), count);
    StoreCount(count);
}

}  // namespace tml
