#include "runtime/Showlanguage.h"

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "runtime/Componentprops.h"
#include "runtime/Extended.h"
#include "runtime/Formparts.h"
#include "runtime/Textsetter.h"
#include "tables/Propertytexts.h"
#include "tables/Textmerge.h"

namespace tml {
namespace {

/// A key of the component at the path, as one of the whole form.
std::string KeyWithin(const std::string& path, const std::string& key) {
    return path.empty() ? key : path + (key.starts_with('.') ? "" : ".") + key;
}

/// The changes of each component of a form.
class TFormChange {
  public:
    TFormChange(const TFormParts& parts, int from, int to)
        : parts_(parts), from_(from), to_(to), changes_(parts.Items().size()) {}

    /// What is added from now on is of a localization component that stands on the frame at the path.
    void Within(const std::string& path, int from, int to) {
        path_ = path;
        from_ = from;
        to_ = to;
    }
    void Add(const std::vector<TTable>& before, const std::vector<TTable>& after) {
        for (std::size_t i = 0; i < before.size(); ++i)
            // The IDs of Strings name no component, and a language's tag is no property of the form's file.
            if (before[i].Type() != TStringsType::stStrings && before[i].Type() != TStringsType::stLocales)
                Add(before[i], after[i]);
    }
    void Add(const std::vector<TExtendedItem>& before, const std::vector<TExtendedItem>& after) {
        for (std::size_t i = 0; i < before.size(); ++i)
            if (const TFormPart* const part =
                    parts_.Find(before[i].Component.empty() ? path_ : KeyWithin(path_, before[i].Component)))
                Add(*part, TStringsType::stOtherStrings, std::string(WithoutStrings(before[i].Property)),
                    EntryOf(before[i]), EntryOf(after[i]));
    }

    void Make() {
        for (std::size_t i = 0; i < changes_.size(); ++i) {
            const TFormPart& part = parts_.Items()[i];
            if (changes_[i].empty()) continue;
            const std::vector<TFormProperty> properties = Changed(i);
            if (properties == part.Properties) continue;
            if (const auto component = ComponentOf(part)) Write(*component, part.Properties, properties);
        }
    }

    /// Properties of a component as they read after the changes.
    std::vector<TFormProperty> Changed(std::size_t index) const {
        std::vector<TFormProperty> properties = parts_.Items()[index].Properties;
        SetTexts(properties, changes_[index]);
        return properties;
    }

  private:
    static TTableEntry EntryOf(const TExtendedItem& text) {
        TTableEntry entry;
        for (const std::string& value : text.Values)
            entry.Values.push_back({value});
        return entry;
    }

    /// Of a key that stands twice the first counts.
    void Add(const TTable& before, const TTable& after) {
        const auto& entries = before.Entries();
        for (std::size_t i = 0; i < entries.size(); ++i) {
            const std::string key = KeyWithin(path_, entries[i].Key);
            const TFormPart* const part = parts_.OfKey(key);
            if (part != nullptr && before.Find(entries[i].Key) == static_cast<int>(i))
                Add(*part, before.Type(), key.substr(part->Path.size() + 1), entries[i], after.Entries()[i]);
        }
    }

    void Add(const TFormPart& part, TStringsType table, std::string path, const TTableEntry& before,
             const TTableEntry& after) {
        const std::string& from = ShownText(before, from_);
        const std::string& to = ShownText(after, to_);
        const auto index = static_cast<std::size_t>(&part - parts_.Items().data());
        if (from != to) changes_[index].push_back({table, std::move(path), from, to, after.Base()});
    }

    /// One that the file does not repeat, it repeats from now on; nullptr within a frame that it does not.
    std::shared_ptr<IOTAComponent> ComponentOf(const TFormPart& part) const {
        if (part.Component != nullptr) return part.Component;
        const std::size_t dot = part.Path.rfind('.');
        const TFormPart* const owner = parts_.Find(dot == std::string::npos ? "" : part.Path.substr(0, dot));
        return owner->Component == nullptr ? nullptr : owner->Component->FindComponent(part.Name);
    }

    /// What the file repeats of an inherited component and says nothing of, goes.
    static void LeaveEmpty(IOTAComponent& component) {
        const bool isOwned = component.GetOwner() != nullptr;
        if (isOwned && component.GetOrigin() == TComponentOrigin::coInherited &&
            component.GetProperties().empty())
            component.Delete();
    }

    static void Write(IOTAComponent& component, const std::vector<TFormProperty>& before,
                      const std::vector<TFormProperty>& after) {
        std::unordered_map<std::string_view, const TFormValue*> former;
        for (const TFormProperty& property : before)
            former.emplace(property.Name, &property.Value);
        for (const TFormProperty& property : after) {
            const auto found = former.find(property.Name);
            const bool isEqual = found != former.end() && *found->second == property.Value;
            if (!isEqual) WriteProp(component, property.Name, property.Value);
            if (found != former.end()) former.erase(found);
        }
        for (const auto& [name, value] : former)
            component.RemoveProp(std::string(name));
        LeaveEmpty(component);
    }

    const TFormParts& parts_;
    std::string path_;
    int from_;
    int to_;
    std::vector<std::vector<TTextChange>> changes_;
};

TFormChange ChangeOfLanguage(const TFormParts& parts, TmlCustomLang& lang, int from, int to) {
    TFormChange change(parts, from, to);
    const std::vector<TTable> tables = lang.GetTables();
    const std::vector<TExtendedItem> extended = ReadExtended(*lang.GetComponent());
    change.Add(tables, tables);
    change.Add(extended, extended);
    return change;
}

}  // namespace

void ShowTexts(TmlCustomLang& lang, int from, int to) {
    const TFormParts parts(lang.GetComponent()->GetOwner());
    ChangeOfLanguage(parts, lang, from, to).Make();
}

std::vector<TFormPart> PartsShowing(const TFormParts& parts, const std::vector<TShownTexts>& texts) {
    TFormChange change(parts, 0, 0);
    for (const TShownTexts& one : texts) {
        change.Within(one.Path, one.From, one.To);
        change.Add(one.Before->Tables, one.After->Tables);
        change.Add(one.Before->Extended, one.After->Extended);
    }
    std::vector<TFormPart> result = parts.Items();
    for (std::size_t i = 0; i < result.size(); ++i)
        result[i].Properties = change.Changed(i);
    return result;
}

void ShowChangedTexts(TmlCustomLang& lang, const TLangTexts& before, const TLangTexts& after, int place) {
    const TFormParts parts(lang.GetComponent()->GetOwner());
    TFormChange change(parts, place, place);
    change.Add(before.Tables, after.Tables);
    change.Add(before.Extended, after.Extended);
    change.Make();
}

}  // namespace tml
