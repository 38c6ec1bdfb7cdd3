#include "translations/Projectsettings.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "base/Errors.h"
#include "base/Folderindex.h"
#include "base/Utf8.h"
#include "translations/Projectsettingsform.h"

namespace tml {
namespace fs = std::filesystem;
namespace {

constexpr std::string_view kSection = "Settings";
constexpr std::string_view kExternalFiles = "External Files";
constexpr std::string_view kFiles = "Files";

struct TOption {
    std::string_view Name;
    bool IsBool;
};

/// Every option there is; a missing text is empty, a missing switch is off.
constexpr std::array kOptions{
    TOption{"DefaultDictionary", false},
    TOption{"DictionaryBaseLanguage", false},
    TOption{"DontAskForDictionary", true},
    TOption{"DictionaryIgnoreCase", true},
    TOption{"DictionarySkipAmpersands", true},
    TOption{"DictionaryOverwriteExisting", true},
    TOption{"DictionaryForceEmpties", true},
    TOption{"DictionaryParseMultilines", true},
    TOption{"DefaultTranslationFileName", false},
    TOption{"DefaultFormForUnits", false},
    TOption{"DispatcherForm", false},
    TOption{"CommonContainerForm", false},
};

const TOption* FindOption(std::string_view name) {
    const auto found = std::find_if(kOptions.begin(), kOptions.end(),
                                    [&](const TOption& option) { return SameText(option.Name, name); });
    return found == kOptions.end() ? nullptr : &*found;
}

bool AsBool(const TOptionValue& value) {
    if (const bool* flag = std::get_if<bool>(&value)) return *flag;
    const auto& text = std::get<std::string>(value);
    if (SameText(text, "true")) return true;
    if (SameText(text, "false")) return false;
    return ToInteger(text) != 0;
}

std::string AsText(const TOptionValue& value) {
    if (const bool* flag = std::get_if<bool>(&value)) return *flag ? "True" : "False";
    return std::get<std::string>(value);
}

}  // namespace

void TmlLangProjectSettings::SetFileName(const std::string& name) {
    fileName_ = AbsolutePath(files_, name);
    LoadFile();
}

void TmlLangProjectSettings::LoadFile() {
    store_.reset();
    store_ = std::make_unique<TmlMemIniFile>(files_, fileName_);
}

void TmlLangProjectSettings::SaveFile() {
    if (store_ == nullptr) throw EBadInput("", 0, "Storage file not initialized!");
    store_->UpdateFile();
    changed_ = false;
}

TOptionValue TmlLangProjectSettings::GetOptionValue(const std::string& name) {
    const TOption* option = FindOption(name);
    if (option == nullptr) return std::string();
    if (option->IsBool) return store_ != nullptr && store_->ReadBool(kSection, name, false);
    return store_ == nullptr ? std::string() : store_->ReadString(kSection, name, "");
}

void TmlLangProjectSettings::SetOptionValue(const std::string& name, const TOptionValue& value) {
    changed_ = true;
    const TOption* option = FindOption(name);
    if (option == nullptr || store_ == nullptr) return;
    if (option->IsBool)
        store_->WriteBool(kSection, name, AsBool(value));
    else
        store_->WriteString(kSection, name, AsText(value));
}

void TmlLangProjectSettings::SaveOptions(const TOptions& options) {
    const bool wasChanged = changed_;
    auto before = store_ == nullptr ? nullptr : std::make_unique<TmlMemIniFile>(*store_);
    try {
        for (const auto& [name, value] : options)
            SetOptionValue(name, value);
        SaveFile();
    } catch (...) {
        store_ = std::move(before);
        changed_ = wasChanged;
        throw;
    }
}

TStringList TmlLangProjectSettings::GetExternalFiles() {
    TStringList files;
    if (store_ == nullptr) return files;
    const std::string folder = FolderOf(fileName_);
    for (const std::string& file : TStringList::FromCommaText(store_->ReadString(kExternalFiles, kFiles, "")))
        files.Add(AbsolutePath(files_, JoinPath(folder, file)));
    return files;
}

void TmlLangProjectSettings::SetExternalFiles(const TStringList& files) {
    changed_ = true;
    if (store_ == nullptr) return;
    const fs::path folder = FolderOf(fileName_) + "/";
    TStringList relative;
    for (const std::string& file : files)
        relative.Add(fs::path(file).lexically_relative(folder).generic_string());
    store_->WriteString(kExternalFiles, kFiles, relative.CommaText());
}

void TmlLangProjectSettings::DisplayEditDialog() {
    TfrmProjectTranslationSettings window(context_, *this);
    context_.Dialogs().ShowModal(window);
}

}  // namespace tml
