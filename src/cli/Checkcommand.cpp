#include "cli/Checkcommand.h"

#include <iostream>
#include <memory>

#include "base/Errors.h"
#include "base/Files.h"
#include "base/Utf8.h"
#include "cli/Formoptions.h"
#include "cli/Jsonlines.h"
#include "cli/Shownpath.h"
#include "ids/Idchecks.h"

namespace tml {
namespace {

struct TCheckOptions : TFormOptions {
    bool Units = false;
};

std::string_view WordOf(TBadIDKind kind) {
    if (kind == TBadIDKind::Unused) return "unused";
    return kind == TBadIDKind::NotFound ? "not-found" : "undecided";
}

class TCheckRun {
  public:
    TCheckRun(TProgram& program, const TCheckOptions& options)
        : program_(program),
          options_(options),
          session_(program, options.Project),
          forms_(session_.Context()) {}

    int Run() {
        if (options_.Units)
            CheckUnits();
        else
            session_.ForEach(session_.Rows(options_.Forms), [this](TFormRow& row) { CheckForm(row); });
        const int exit = session_.ExitCode();
        return exit == kDone && found_ ? kFindings : exit;
    }

  private:
    void CheckForm(const TFormRow& row) {
        if (row.HasComponent()) return Check(row.FormName, row.FileName);
        if (options_.Forms.empty()) return;
        throw EBadInput(row.FileName, 0, "the form has no localization component",
                        "\"tmllang insert\" puts a component on it");
    }

    void CheckUnits() {
        for (const std::string& file : session_.Context().Project.TranslatableUnits)
            if (!SameText(ExtensionOf(file), ".dpr"))
                session_.Attempt(ShownPath(file), [&] { Check({}, file); });
    }

    void Check(const std::string& formName, const std::string& fileName) {
        for (const TBadID& bad : CheckIDInFile(session_.Context(), forms_, formName, fileName)) {
            found_ = true;
            if (program_.Json)
                PrintJson(bad, formName);
            else
                PrintText(bad);
        }
    }

    static void PrintText(const TBadID& bad) {
        std::cout << ShownPath(bad.FileName);
        if (bad.Kind != TBadIDKind::Unused) std::cout << ":" << bad.Place;
        std::cout << ": '" << bad.ID << "': " << bad.Type() << "\n";
    }

    static void PrintJson(const TBadID& bad, const std::string& formName) {
        TJsonLine line(std::cout);
        line.Text("kind", WordOf(bad.Kind)).Text("file", bad.FileName);
        if (formName.empty())
            line.Null("form");
        else
            line.Text("form", formName);
        line.Text("id", bad.ID)
            .Number(bad.Kind == TBadIDKind::Unused ? "index" : "line", bad.Place)
            .Text("type", bad.Type());
    }

    TProgram& program_;
    const TCheckOptions& options_;
    TSession session_;
    TFormIDs forms_;
    bool found_ = false;
};

}  // namespace

void AddCheckCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TCheckOptions>();
    CLI::App* command =
        AddCommand(app, "check", "Find string IDs that units do not use, and calls whose ID no component has",
                   "  tmllang check Orchard.dproj\n"
                   "  tmllang check Orchard.dproj --form MainForm --json\n"
                   "  tmllang check Orchard.dproj --units");
    AddFormOptions(command, *options);
    command->add_flag("--units", options->Units,
                      "The units without a form instead: their calls of forms' components");
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return TCheckRun(shared, *options).Run(); };
    });
}

}  // namespace tml
