#include "editors/Mllangcomboeditor.h"

#include <algorithm>
#include <charconv>

#include "base/Format.h"
#include "base/Utf8.h"

namespace tml {
namespace {

constexpr const char* kInfos = "LanguageInfos";
constexpr const char* kLanguage = "Language";
constexpr const char* kDisplayText = "DisplayText";
constexpr const char* kFontName = "Font.Name";
constexpr const char* kCharset = "Font.Charset";
constexpr const char* kImageIndex = "ImageIndex";

using TItem = std::vector<TFormProperty>;

auto FindProperty(TItem& item, std::string_view name) {
    return std::find_if(item.begin(), item.end(),
                        [&](const TFormProperty& property) { return SameText(property.Name, name); });
}

std::string TextOf(TItem& item, std::string_view name) {
    const auto found = FindProperty(item, name);
    return found == item.end() ? std::string() : found->Value.Text;
}

/// One that has its default is not held.
void Put(TItem& item, const char* name, const TFormValue& value, bool isDefault) {
    const auto found = FindProperty(item, name);
    if (found != item.end() && isDefault)
        item.erase(found);
    else if (found != item.end())
        found->Value = value;
    else if (!isDefault)
        item.push_back({name, value});
}

int ImageOf(const std::string& text) {
    int index = -1;
    std::from_chars(text.data(), text.data() + text.size(), index);
    return index;
}

TLanguageInfo InfoOf(TItem& item) {
    return {TextOf(item, kLanguage), TextOf(item, kDisplayText), TextOf(item, kFontName),
            TextOf(item, kCharset), ImageOf(TextOf(item, kImageIndex))};
}

void Take(TItem& item, const TLanguageInfo& info) {
    Put(item, kLanguage, TFormValue::String(info.Language), info.Language.empty());
    Put(item, kDisplayText, TFormValue::String(info.DisplayText), info.DisplayText.empty());
    Put(item, kCharset, TFormValue::Identifier(info.Charset), info.Charset.empty());
    Put(item, kFontName, TFormValue::String(info.FontName), info.FontName.empty());
    Put(item, kImageIndex, TFormValue::Integer(info.ImageIndex), info.ImageIndex < 0);
}

/// The names of the languages among which the combo lets choose.
TStringList NamesOf(const TEditorHost& host, IOTAComponent& combo) {
    const auto source = combo.GetPropComponent("Languages");
    if (const auto dispatcher = host.Runtime().AsDispatcher(source)) return dispatcher->GetLangNames();
    const auto lang = host.Runtime().AsCustomLang(source);
    return lang == nullptr ? TStringList() : lang->GetLangNames();
}

std::string WhyEmpty(const TEditorHost& host, IOTAComponent& combo) {
    const auto source = combo.GetPropComponent("Languages");
    const std::string name = combo.GetName();
    if (source == nullptr)
        return Format(
            "%s is linked to no languages. Set its property Languages to a localization component or "
            "a dispatcher.",
            name);
    if (host.Runtime().AsDispatcher(source) == nullptr && host.Runtime().AsCustomLang(source) == nullptr)
        return Format("%s.Languages names %s, which has no languages.", name, source->GetName());
    return Format("%s, to which %s is linked, has no languages.", source->GetName(), name);
}

std::vector<TItem> ItemsOf(IOTAComponent& combo) {
    const auto value = combo.GetPropValue(kInfos);
    return value && value->Kind == TFormValueKind::Collection ? value->Collection : std::vector<TItem>();
}

/// One for each name, with those behind them that the combo has no language for.
std::vector<TItem> WithItemsFor(std::vector<TItem> items, const TStringList& names) {
    std::vector<TItem> all;
    for (const std::string& name : names) {
        const auto found = std::find_if(items.begin(), items.end(),
                                        [&](TItem& item) { return SameText(TextOf(item, kLanguage), name); });
        all.push_back(found == items.end() ? TItem{{kLanguage, TFormValue::String(name)}} : *found);
        if (found != items.end()) items.erase(found);
    }
    all.insert(all.end(), items.begin(), items.end());
    return all;
}

bool SaysNothing(TItem& item) {
    return item.size() == 1 && FindProperty(item, kLanguage) != item.end();
}

}  // namespace

TfrmMlLangComboEditor::TfrmMlLangComboEditor(std::vector<TLanguageInfo> languages, std::string reason)
    : lbLanguages(std::move(languages)), lblReason(lbLanguages.empty() ? std::move(reason) : "") {
    Name = "frmMlLangComboEditor";
    Caption = "Edit Language Settings";
    if (lbLanguages.empty()) ItemIndex = -1;
}

TLanguageInfo* TfrmMlLangComboEditor::Current() {
    return ItemIndex < 0 ? nullptr : &lbLanguages[static_cast<std::size_t>(ItemIndex)];
}

void TfrmMlLangComboEditor::lbLanguagesClick(int index) {
    ItemIndex = index;
    Changed();
}

bool EditComboSettings(const TEditorHost& host, IOTAComponent& combo) {
    const std::vector<TItem> present = ItemsOf(combo);
    std::vector<TItem> items = WithItemsFor(present, NamesOf(host, combo));
    std::vector<TLanguageInfo> infos;
    std::transform(items.begin(), items.end(), std::back_inserter(infos), InfoOf);
    TfrmMlLangComboEditor window(infos, WhyEmpty(host, combo));
    if (host.Dialogs().ShowModal(window) != mrOk) return false;
    for (std::size_t i = 0; i < items.size(); ++i)
        if (window.lbLanguages[i] != infos[i]) Take(items[i], window.lbLanguages[i]);
    std::erase_if(items, SaysNothing);
    TFormValue value;
    value.Kind = TFormValueKind::Collection;
    value.Collection = std::move(items);
    if (value.Collection != present) combo.SetPropValue(kInfos, value);
    return true;
}

}  // namespace tml
