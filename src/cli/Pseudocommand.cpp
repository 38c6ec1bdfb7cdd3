#include "cli/Pseudocommand.h"

#include <iostream>
#include <memory>
#include <sstream>

#include "base/Errors.h"
#include "cli/Formoptions.h"
#include "cli/Jsonlines.h"
#include "core/Dispatchers.h"
#include "tables/Pseudo.h"
#include "tables/Textmerge.h"

namespace tml {
namespace {

struct TPseudoOptions : TFormOptions {
    std::string Language;
};

int PlaceOf(ILanguages& languages, const TFormRow& row, const std::string& language) {
    const TStringList names = languages.GetLangNames();
    const int place = names.IndexOf(language) + 1;
    if (place == 0)
        throw EBadInput(row.FileName, 0, "the form has no language " + language,
                        "\"tmllang languages --set\" gives it one; it has " + names.CommaText());
    if (place == 1)
        throw EBadInput(row.FileName, 0, language + " is the form's base language",
                        "Name another one; made-up texts replace what is there");
    return place;
}

/// Gives the number of texts.
int Fill(TmlCustomLang& lang, int place) {
    int texts = 0;
    std::vector<TTable> tables = lang.GetTables();
    for (TTable& table : tables) {
        if (!HasStates(table.Type())) continue;
        const int count = static_cast<int>(table.Entries().size());
        for (int i = 0; i < count; ++i)
            table.SetText(i, place, PseudoText(table.Entries()[static_cast<std::size_t>(i)].Base()));
        texts += count;
    }
    lang.SetTables(tables);
    return texts;
}

/// Gives the number of texts. A form that shows the language shows what is made up.
int FillLanguage(TmlCustomLang& lang, const TFormRow& row, const std::string& language) {
    const auto languages = LanguagesInForce(lang);
    const int place = PlaceOf(*languages, row, language);
    const bool isShown = languages->GetActiveLanguage() == place;
    if (isShown) lang.ShowLanguage(place, 1);
    const int texts = Fill(lang, place);
    if (isShown) lang.ShowLanguage(1, place);
    return texts;
}

int RunPseudo(TProgram& program, const TPseudoOptions& options) {
    TSession session(program, options.Project);
    std::ostringstream report;
    ChangeEachTmlLang(session, options, "Pseudo Language", [&](TFormRow& row, TmlCustomLang& lang) {
        const int texts = FillLanguage(lang, row, options.Language);
        if (program.Json)
            TJsonLine(report).Text("form", row.FormName).Number("texts", texts);
        else
            report << row.FormName << ": " << texts << " texts\n";
    });
    program.HasWritten = true;
    std::cout << report.str();
    return session.ExitCode();
}

}  // namespace

void AddPseudoCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TPseudoOptions>();
    CLI::App* command = AddFormOptions(
        AddCommand(app, "pseudo",
                   "Fill a language with made-up texts that show what is not localized or does not fit",
                   "  tmllang pseudo Orchard.dproj German --form MainForm"),
        *options);
    command->add_option("LANGUAGE", options->Language, "The language to fill; what it has is replaced")
        ->required();
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return RunPseudo(shared, *options); };
    });
}

}  // namespace tml
