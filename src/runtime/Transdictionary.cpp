#include "runtime/Transdictionary.h"

#include <algorithm>
#include <utility>

#include "base/Errors.h"
#include "base/Format.h"
#include "platform/Dictionarytool.h"
#include "tables/Dictionaryfill.h"
#include "tables/Dixfile.h"

namespace tml {
namespace {

constexpr const char* kNoDictionary = "The settings of the project name no dictionary";

std::string QuestionOf(const std::string& fileName, const TDictionaryOptions& options) {
    return Format(
        "Fill from the dictionary %s?\r\n\r\nLetter case: %s\r\nAccelerators: %s\r\nTexts of several lines: "
        "%s\r\n"
        "Existing translations: %s\r\nEmpty translations: %s\r\n\r\n\"Project Settings...\" changes this.",
        fileName, options.IgnoreCase ? "ignored" : "counts", options.SkipAmpersands ? "ignored" : "count",
        options.ParseMultilines ? "line by line" : "as a whole",
        options.OverwriteExisting ? "overwritten" : "stay", options.ForceEmpties ? "filled" : "stay");
}

bool MayFill(IMlRuntime& runtime, const std::string& fileName, const TDictionaryOptions& options) {
    if (std::get<bool>(runtime.mlLangProjectSettings->GetOptionValue("DontAskForDictionary"))) return true;
    return runtime.Dialogs->MessageDlg(QuestionOf(FileNameOf(fileName), options), TMsgDlgType::mtConfirmation,
                                       {mrYes, mrNo}) == mrYes;
}

TDictionary ReadDictionary(IMlRuntime& runtime, const std::string& fileName) {
    ExpectDix(fileName);
    const auto bytes = runtime.Files->ReadFile(fileName);
    if (!bytes)
        throw EFileError(fileName, 0, "there is no such dictionary",
                         "Choose another one in the project's settings");
    return ReadDix(*bytes, fileName);
}

/// Fills one cell that is a translation.
TDictionaryOutcome FillCell(TTransTexts& texts, const TTransCell& cell, const TDictionarySearch& search) {
    TTableEntry entry = *texts.Find(cell.Row);
    const int place = texts.PlaceOf(cell.Row, cell.Column);
    TTableValue value;
    const TDictionaryOutcome outcome = FilledValue(entry, place, search, value);
    if (outcome != TDictionaryOutcome::Filled) return outcome;
    entry.Values.resize(std::max(entry.Values.size(), static_cast<std::size_t>(place)));
    entry.Values[static_cast<std::size_t>(place) - 1] = std::move(value);
    texts.Put(cell.Row, std::move(entry));
    return outcome;
}

}  // namespace

std::string FillFromDictionary(TTransTexts& texts, const std::vector<TTransCell>& cells,
                               IMlRuntime& runtime) {
    const auto settings = runtime.mlLangProjectSettings;
    const std::string fileName = settings == nullptr ? std::string() : DefaultDictionaryOf(*settings);
    if (fileName.empty()) return kNoDictionary;
    const TDictionaryOptions options = DictionaryOptionsOf(*settings);
    if (!MayFill(runtime, fileName, options)) return {};
    const TDictionary dictionary = ReadDictionary(runtime, fileName);
    TDictionarySearches searches(dictionary, fileName, options);
    const std::string base = DictionaryBaseOf(*settings);
    // All languages are looked for before anything is filled.
    std::vector<std::pair<TTransCell, const TDictionarySearch*>> lookUps;
    for (const TTransCell& cell : cells) {
        if (!texts.State(cell.Row, cell.Column) || texts.Find(cell.Row)->Base().empty()) continue;
        const std::string& from = base.empty() ? texts.FormOf(cell.Row).Languages[0] : base;
        const std::string& to = texts.Languages()[static_cast<std::size_t>(cell.Column) - 1].Name;
        lookUps.emplace_back(cell, &searches.Between(from, to));
    }
    TDictionaryCounts counts;
    for (const auto& [cell, search] : lookUps)
        ++counts[FillCell(texts, cell, *search)];
    using enum TDictionaryOutcome;
    return Format("Filled: %d, not in the dictionary: %d", counts[Filled], counts[Unknown]);
}

}  // namespace tml
