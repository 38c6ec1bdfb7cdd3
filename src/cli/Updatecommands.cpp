#include "cli/Updatecommands.h"

#include <iostream>
#include <memory>
#include <sstream>

#include "base/Errors.h"
#include "cli/Formoptions.h"
#include "cli/Jsonlines.h"
#include "core/Langsetup.h"

namespace tml {
namespace {

/// Entries of all tables, and the translations among them that an update has put in doubt.
struct TCounts {
    int Entries = 0;
    int InDoubt = 0;
};

TCounts CountsOf(TmlCustomLang& lang) {
    TCounts counts;
    for (const TTable& table : lang.GetTables()) {
        counts.Entries += static_cast<int>(table.Entries().size());
        for (const TTableEntry& entry : table.Entries())
            for (const TTableValue& value : entry.Values)
                counts.InDoubt +=
                    value.Mark == TValueMark::Stale || value.Mark == TValueMark::Touched ? 1 : 0;
    }
    return counts;
}

/// Told when the files are written, not before.
void Report(TProgram& program, std::ostream& out, const TFormRow& row, const TCounts& counts,
            const TStringList& notes) {
    if (program.Json) {
        TJsonLine(out)
            .Text("form", row.FormName)
            .Number("entries", counts.Entries)
            .Number("inDoubt", counts.InDoubt)
            .Texts("notes", notes);
        return;
    }
    out << row.FormName << ": " << counts.Entries << (counts.Entries == 1 ? " entry" : " entries");
    if (counts.InDoubt > 0) out << ", " << counts.InDoubt << " in doubt";
    out << "\n";
    for (const std::string& note : notes)
        std::cerr << row.FormName << ": " << note << "\n";
}

int Change(TProgram& program, const TFormOptions& options,
           const std::function<TStringList(TContext&, TFormRow&, TmlCustomLang&)>& work) {
    TSession session(program, options.Project);
    std::ostringstream report;
    ChangeEachTmlLang(session, options, "Tables", [&](TFormRow& row, TmlCustomLang& lang) {
        const TStringList notes = work(session.Context(), row, lang);
        Report(program, report, row, CountsOf(lang), notes);
    });
    program.HasWritten = true;
    std::cout << report.str();
    return session.ExitCode();
}

int RunUpdate(TProgram& program, const TFormOptions& options) {
    return Change(program, options,
                  [](TContext&, TFormRow&, TmlCustomLang& lang) { return lang.BuildList(); });
}

int RunClear(TProgram& program, const TFormOptions& options) {
    if (!program.Yes)
        throw EBadInput("", 0, "this empties every language but the base language",
                        "Say --yes to go on; --form names the forms that are meant");
    return Change(program, options, [](TContext& context, TFormRow& row, TmlCustomLang& lang) {
        ShowBaseLanguage(context, row, lang);
        lang.ClearTranslations();
        return TStringList();
    });
}

}  // namespace

void AddUpdateCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TFormOptions>();
    AddFormOptions(AddCommand(app, "update", "Bring the translation tables up to what the forms show",
                              "  tmllang update Orchard.dproj\n"
                              "  tmllang update Orchard.dproj --form MainForm"),
                   *options)
        ->callback([&program, options] {
            program.Run = [options](TProgram& shared) { return RunUpdate(shared, *options); };
        });
}

void AddClearCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TFormOptions>();
    AddFormOptions(AddCommand(app, "clear", "Empty the translations of all languages but the base language",
                              "  tmllang clear Orchard.dproj --form MainForm --yes"),
                   *options)
        ->callback([&program, options] {
            program.Run = [options](TProgram& shared) { return RunClear(shared, *options); };
        });
}

}  // namespace tml
