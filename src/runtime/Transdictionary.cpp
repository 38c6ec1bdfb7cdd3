#include "runtime/Transdictionary.h"

#include <algorithm>
#include <utility>

#include "base/Counted.h"
#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "platform/Dictionarytool.h"
#include "tables/Dictionaryfill.h"
#include "tables/Dixfile.h"
#include "windows/Markedblanks.h"

namespace tml {
namespace {

constexpr const char* kNoDictionary = "The project has no dictionary yet: \"Project Settings...\" sets one";

constexpr std::size_t kShownFills = 8;
constexpr int kShownCharacters = 40;

/// A translation that is filled.
struct TCellFill {
    TTransCell Cell;
    int Place;  ///< of its language, 2 or more
    std::string Base;
    TTableValue Value;
};

std::string Shortened(const std::string& text) {
    std::size_t end = 0;
    for (int i = 0; i < kShownCharacters && end < text.size(); ++i)
        DecodeCodePoint(text, end);
    return WithMarkedBlanks(text.substr(0, end)) + (end < text.size() ? "..." : "");
}

std::string PreviewOf(const std::vector<TCellFill>& fills) {
    std::string lines;
    for (std::size_t i = 0; i < std::min(fills.size(), kShownFills); ++i)
        lines += Format("\r\n%s -> %s", Shortened(fills[i].Base), Shortened(fills[i].Value.Text));
    if (fills.size() > kShownFills) lines += Format("\r\nand %d more", fills.size() - kShownFills);
    return lines;
}

std::string QuestionOf(const std::string& fileName, const TDictionaryOptions& options,
                       const std::vector<TCellFill>& fills) {
    return Format(
        "Fill %s from the dictionary %s?\r\n%s\r\n\r\nLetter case: %s\r\nAccelerators: %s\r\n"
        "Texts of several lines: %s\r\nExisting translations: %s\r\nEmpty translations: %s\r\n\r\n"
        "\"Project Settings...\" changes this.",
        Counted(static_cast<std::int64_t>(fills.size()), "translation", "translations"), fileName,
        PreviewOf(fills), options.IgnoreCase ? "ignored" : "counts",
        options.SkipAmpersands ? "ignored" : "count", options.ParseMultilines ? "line by line" : "as a whole",
        options.OverwriteExisting ? "overwritten" : "stay", options.ForceEmpties ? "filled" : "stay");
}

bool MayFill(IMlRuntime& runtime, const std::string& question) {
    if (std::get<bool>(runtime.mlLangProjectSettings->GetOptionValue("DontAskForDictionary"))) return true;
    return runtime.Dialogs->MessageDlg(question, TMsgDlgType::mtConfirmation, {mrYes, mrNo}) == mrYes;
}

TDictionary ReadDictionary(IMlRuntime& runtime, const std::string& fileName) {
    ExpectDix(fileName);
    const auto bytes = runtime.Files->ReadFile(fileName);
    if (!bytes)
        throw EFileError(fileName, 0, "there is no such dictionary",
                         "Choose another one in the project's settings");
    return ReadDix(*bytes, fileName);
}

/// What the dictionary makes of the cells that are translations.
std::vector<TCellFill> PlanCells(const TTransTexts& texts, const std::vector<TTransCell>& cells,
                                 const std::string& base, TDictionarySearches& searches,
                                 TDictionaryCounts& counts) {
    std::vector<TCellFill> fills;
    for (const TTransCell& cell : cells) {
        const TTableEntry& entry = *texts.Find(cell.Row);
        if (!texts.State(cell.Row, cell.Column) || entry.Base().empty()) continue;
        const std::string& from = base.empty() ? texts.FormOf(cell.Row).Languages[0] : base;
        const std::string& to = texts.Languages()[static_cast<std::size_t>(cell.Column) - 1].Name;
        const int place = texts.PlaceOf(cell.Row, cell.Column);
        TTableValue value;
        const TDictionaryOutcome outcome = FilledValue(entry, place, searches.Between(from, to), value);
        ++counts[outcome];
        if (outcome == TDictionaryOutcome::Filled)
            fills.push_back({cell, place, entry.Base(), std::move(value)});
    }
    return fills;
}

void Put(TTransTexts& texts, const TCellFill& fill) {
    TTableEntry entry = *texts.Find(fill.Cell.Row);
    const auto place = static_cast<std::size_t>(fill.Place);
    entry.Values.resize(std::max(entry.Values.size(), place));
    entry.Values[place - 1] = fill.Value;
    texts.Put(fill.Cell.Row, std::move(entry));
}

}  // namespace

std::string FillFromDictionary(TTransTexts& texts, const std::vector<TTransCell>& cells,
                               IMlRuntime& runtime) {
    const auto settings = runtime.mlLangProjectSettings;
    const std::string fileName = settings == nullptr ? std::string() : DefaultDictionaryOf(*settings);
    if (fileName.empty()) return kNoDictionary;
    const TDictionaryOptions options = DictionaryOptionsOf(*settings);
    const TDictionary dictionary = ReadDictionary(runtime, fileName);
    TDictionarySearches searches(dictionary, fileName, options);
    TDictionaryCounts counts;
    const std::vector<TCellFill> fills =
        PlanCells(texts, cells, DictionaryBaseOf(*settings), searches, counts);
    if (!fills.empty() && !MayFill(runtime, QuestionOf(FileNameOf(fileName), options, fills))) return {};
    for (const TCellFill& fill : fills)
        Put(texts, fill);
    const std::string note = NewerVersionNote(dictionary, fileName);
    return Format("Filled: %d. %s%s%s", fills.size(), TextOfOthers(counts), note.empty() ? "" : ". ", note);
}

}  // namespace tml
