#include "cli/Statscommand.h"

#include <iostream>
#include <memory>

#include "cli/Formoptions.h"
#include "cli/Jsonlines.h"
#include "tables/Textstats.h"

namespace tml {
namespace {

/// form "" for the sum over all forms.
void Print(const TProgram& program, const std::string& form, const std::string& language,
           const TTextStats& stats) {
    if (program.Json) {
        TJsonLine line(std::cout);
        if (form.empty())
            line.Null("form");
        else
            line.Text("form", form);
        line.Text("language", language)
            .Number("texts", stats.Texts)
            .Number("words", stats.Words)
            .Number("done", stats.Of(TTextState::Done))
            .Number("missing", stats.Of(TTextState::Missing))
            .Number("stale", stats.Of(TTextState::Stale))
            .Number("touched", stats.Of(TTextState::Touched));
        return;
    }
    std::cout << (form.empty() ? "All forms" : form) << ", " << language << ": " << stats.Of(TTextState::Done)
              << " of " << stats.Texts << " texts (" << stats.Words << " words) done";
    for (const TTextState state : {TTextState::Missing, TTextState::Stale, TTextState::Touched})
        if (stats.Of(state) > 0) std::cout << ", " << stats.Of(state) << " " << NameOf(state);
    std::cout << "\n";
}

int RunStats(TProgram& program, const TFormOptions& options) {
    TSession session(program, options.Project);
    TStringList languages;
    std::vector<TTextStats> sums;
    int forms = 0;
    ForEachTmlLang(session, options, [&](TFormRow& row, TmlCustomLang& lang) {
        const TStringList names = lang.GetLangNames();
        const std::vector<TTextStats> stats = StatsOf(lang.GetTables(), names.Count());
        ++forms;
        for (int i = 1; i < names.Count(); ++i) {
            const TTextStats& one = stats[static_cast<std::size_t>(i)];
            Print(program, row.FormName, names[i], one);
            if (languages.IndexOf(names[i]) < 0) {
                languages.Add(names[i]);
                sums.emplace_back();
            }
            sums[static_cast<std::size_t>(languages.IndexOf(names[i]))] += one;
        }
    });
    for (int i = 0; forms > 1 && i < languages.Count(); ++i)
        Print(program, {}, languages[i], sums[static_cast<std::size_t>(i)]);
    return session.ExitCode();
}

}  // namespace

void AddStatsCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TFormOptions>();
    AddFormOptions(AddCommand(app, "stats", "Tell how far each language of each form is",
                              "  tmllang stats Orchard.dproj\n"
                              "  tmllang stats Orchard.dproj --json"),
                   *options)
        ->callback([&program, options] {
            program.Run = [options](TProgram& shared) { return RunStats(shared, *options); };
        });
}

}  // namespace tml
