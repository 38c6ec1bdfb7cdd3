#include "runtime/Langview.h"

#include <array>
#include <unordered_set>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "runtime/Classes.h"
#include "tables/Fieldcodec.h"
#include "tables/Languages.h"

namespace tml {
namespace {

constexpr std::string_view kDefaultDelimiter = "\x01";

/// The property that holds a table, in the order of TStringsType.
constexpr std::array<const char*, 12> kTableProperties = {
    "Captions", "Hints",        "DisplayLabels", "Fonts",       "MultiLines", "DlgsCaptions",
    "Strings",  "OtherStrings", "Locales",       "Collections", "CharSets",   "ListView_TreeView_Items",
};

constexpr const char* kExclusionLists[] = {"DoNotTranslate", "ExcludedProperties", "SmartExcludeProps"};

const char* TableProperty(TStringsType type) {
    return kTableProperties.at(static_cast<std::size_t>(type));
}

void ExpectCount(IOTAComponent& component, int count) {
    if (count < 1 || count > kMostLanguages)
        throw EBadInput("", 0, component.GetName() + " cannot have " + std::to_string(count) + " languages",
                        "Give at least one language, and at most " + std::to_string(kMostLanguages));
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
    if (count == Count()) return;
    const std::string delimiter = GetDelimiter();
    const std::size_t fieldCount = static_cast<std::size_t>(count) + 1;
    for (std::size_t table = 0; table < kTableProperties.size(); ++table) {
        const auto type = static_cast<TStringsType>(table);
        TStringList lines = GetTable(type);
        for (int i = 0; i < lines.Count(); ++i) {
            std::vector<std::string> fields = SplitFields(lines[i], delimiter);
            const std::string base = fields.size() > 1 ? fields[1] : std::string();
            fields.resize(fieldCount, base);
            lines.Set(i, JoinFields(fields, delimiter));
        }
        SetTable(type, lines);
    }
    StoreCount(count);
}

std::shared_ptr<TmlLangDispatcher> TmlLangView::GetDispatcher() {
    const std::shared_ptr<IOTAComponent> linked = Component().GetPropComponent("Dispatcher");
    if (!linked || !ClassInheritsFrom(linked->GetComponentType(), "TmlLangDispatcher")) return nullptr;
    return std::make_shared<TmlDispatcherView>(linked);
}

std::string TmlLangView::GetDelimiter() {
    const std::string stored = ReadStringProp(Component(), "Delimiter");
    return std::string(stored.empty() ? kDefaultDelimiter : LeftCodePoints(stored, 1));
}

bool TmlLangView::HasTable(TStringsType type) {
    return type != TStringsType::stListView_TreeView_Items || ClassInheritsFrom(GetClassName(), "TmlLangTLV");
}

TStringList TmlLangView::GetTable(TStringsType type) {
    return HasTable(type) ? ReadListProp(Component(), TableProperty(type)) : TStringList();
}

void TmlLangView::SetTable(TStringsType type, const TStringList& lines) {
    if (HasTable(type)) WriteListProp(Component(), TableProperty(type), lines);
}

std::vector<TmlString> TmlLangView::GetStrings() {
    const std::string delimiter = GetDelimiter();
    std::vector<TmlString> strings;
    for (const std::string& line : GetTable(TStringsType::stStrings))
        strings.push_back({DecodeField(ExtractWord(1, line, delimiter), delimiter),
                           DecodeField(ExtractWord(2, line, delimiter), delimiter)});
    return strings;
}

std::vector<TPropertyChange> TmlLangView::PlanAddStrings(const std::vector<TmlString>& entries) {
    const int count = std::max(Count(), 1);
    ExpectCount(Component(), count);
    std::unordered_set<std::string> known;
    for (const TmlString& entry : GetStrings())
        known.insert(UpperCase(entry.ID));
    TStringList lines = GetTable(TStringsType::stStrings);
    const int before = lines.Count();
    for (const TmlString& entry : entries) {
        if (!known.insert(UpperCase(entry.ID)).second) continue;
        std::vector<std::string> fields(static_cast<std::size_t>(count) + 1, entry.Text);
        fields.front() = entry.ID;
        lines.Add(JoinFields(fields, GetDelimiter()));
    }
    if (lines.Count() == before) return {};
    const std::shared_ptr<IOTAComponent> form = Component().GetOwner();
    return {{form ? form->GetName() : GetName(), GetName(),
             ListPropName(TableProperty(TStringsType::stStrings)), TFormValue::Strings(lines)}};
}

void TmlLangView::ComponentRenamed(const std::string& oldName, const std::string& newName) {
    for (std::size_t table = 0; table < kTableProperties.size(); ++table) {
        const auto type = static_cast<TStringsType>(table);
        // The string table's IDs are free texts and name no component.
        if (type != TStringsType::stStrings) RenameInTable(type, oldName, newName);
    }
    for (const char* list : kExclusionLists)
        RenameInList(list, oldName, newName);
}

void TmlLangView::RenameInTable(TStringsType type, const std::string& oldName, const std::string& newName) {
    TStringList lines = GetTable(type);
    const std::string delimiter = GetDelimiter();
    for (int i = 0; i < lines.Count(); ++i)
        if (BelongsTo(ExtractWord(1, lines[i], delimiter), oldName))
            lines.Set(i, newName + lines[i].substr(oldName.size()));
    SetTable(type, lines);
}

/// An entry is "Name", "Name.Property" or either with "!" in front.
void TmlLangView::RenameInList(const std::string& property, const std::string& oldName,
                               const std::string& newName) {
    TStringList entries = ReadListProp(Component(), property);
    for (int i = 0; i < entries.Count(); ++i) {
        const std::size_t mark = entries[i].starts_with('!') ? 1 : 0;
        if (BelongsTo(std::string_view(entries[i]).substr(mark), oldName))
            entries.Set(i, entries[i].substr(0, mark) + newName + entries[i].substr(mark + oldName.size()));
    }
    WriteListProp(Component(), property, entries);
}

void TmlDispatcherView::SetNumOfLanguages(int count) {
    ExpectCount(Component(), count);
    StoreCount(count);
}

}  // namespace tml
