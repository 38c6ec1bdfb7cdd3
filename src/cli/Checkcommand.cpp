#include "cli/Checkcommand.h"

#include <iostream>
#include <memory>

#include "base/Errors.h"
#include "base/Files.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "cli/Baseline.h"
#include "cli/Formoptions.h"
#include "cli/Jsonlines.h"
#include "cli/Sarif.h"
#include "cli/Shownpath.h"
#include "cli/Terminal.h"
#include "ids/Badidsform.h"
#include "ids/Idchecks.h"

namespace tml {
namespace {

struct TCheckOptions : TFormOptions {
    bool Units = false;
    bool Delete = false;
    std::string Sarif;
    TBaselineOptions Baseline;
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
          baseline_(*program.Files, options.Baseline),
          session_(program, options.Project),
          ids_(session_.Context()) {}

    int Run() {
        if (options_.Units)
            CheckUnits();
        else
            session_.ForEach(session_.Rows(options_.Forms), [this](TFormRow& row) { CheckForm(row); });
        ids_.Judge(found_);
        FindListed();
        if (options_.Delete && program_.Yes) session_.Attempt("Delete", [this] { DeleteUnused(); });
        Report();
        const int exit = session_.ExitCode();
        ExpectConsent();
        return exit == kDone && failing_ ? kFindings : exit;
    }

  private:
    void CheckForm(const TFormRow& row) {
        if (row.HasComponent()) return Check(row.FormName, row.FileName);
        session_.ExpectReadable(row);
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
        for (TBadID& bad : CheckIDInFile(session_.Context(), ids_, formName, fileName)) {
            found_.push_back(std::move(bad));
            checkedForms_.push_back(formName);
        }
    }

    /// All but what the baseline accepts; an ID that the project uses is listed, but no finding.
    void FindListed() {
        for (std::size_t i = 0; i < found_.size(); ++i) {
            const TBadID& bad = found_[i];
            if (bad.Use.Kind == TIDUseKind::Used ||
                !baseline_.Accepts(
                    {std::string(WordOf(bad.Kind)), bad.FileName, {checkedForms_[i], bad.ID, bad.Type()}}))
                listed_.push_back(i);
        }
    }

    static bool IsUnused(const TBadID& bad) {
        return bad.Kind == TBadIDKind::Unused && bad.Use.Kind == TIDUseKind::Unused;
    }

    std::vector<TBadID> Unused() const {
        std::vector<TBadID> unused;
        for (const std::size_t i : listed_)
            if (IsUnused(found_[i])) unused.push_back(found_[i]);
        return unused;
    }

    void DeleteUnused() {
        session_.Run([&](TContext& context, TSubjects&) { DeleteIDs(context, Unused()); });
        program_.HasWritten = true;
        deleted_ = true;
    }

    /// What is listed is what would be deleted.
    void ExpectConsent() const {
        const std::size_t count = program_.Yes || !options_.Delete ? 0 : Unused().size();
        if (count == 0) return;
        const char* text =
            count == 1 ? "--delete deletes %d ID with its texts" : "--delete deletes %d IDs with their texts";
        throw EBadInput("", 0, Format(text, count), "Say --yes to go on");
    }

    void Report() {
        const auto project = session_.Modules().GetActiveProject();
        TSarifLog sarif(FolderOf(project->GetFileName()));
        for (const std::size_t i : listed_) {
            const TBadID& bad = found_[i];
            const bool isDeleted = deleted_ && IsUnused(bad);
            if (bad.Use.Kind != TIDUseKind::Used && !isDeleted) {
                failing_ = true;
                if (!options_.Sarif.empty()) sarif.Add(bad);
            }
            if (program_.Json)
                PrintJson(bad, checkedForms_[i], isDeleted);
            else
                PrintText(bad, isDeleted);
        }
        if (!options_.Sarif.empty()) sarif.Write(*program_.Files, options_.Sarif);
        baseline_.Write();
    }

    static void PrintText(const TBadID& bad, bool isDeleted) {
        std::cout << ShownPath(bad.FileName);
        if (bad.Kind != TBadIDKind::Unused) std::cout << ":" << bad.Place;
        std::cout << ": '" << OnOneLine(bad.ID) << "': " << bad.Type();
        if (bad.Kind == TBadIDKind::Unused)
            std::cout << " [" << bad.Use.Text() << (isDeleted ? ", deleted]" : "]");
        std::cout << "\n";
    }

    static void PrintJson(const TBadID& bad, const std::string& formName, bool isDeleted) {
        TJsonLine line(std::cout);
        line.Text("kind", WordOf(bad.Kind)).Text("file", bad.FileName);
        const auto text = [&line](const char* name, std::string_view value) {
            if (value.empty())
                line.Null(name);
            else
                line.Text(name, value);
        };
        text("form", formName);
        line.Text("id", bad.ID)
            .Number(bad.Kind == TBadIDKind::Unused ? "index" : "line", bad.Place)
            .Text("type", bad.Type());
        if (bad.Kind != TBadIDKind::Unused) return;
        line.Text("use", bad.Use.Word());
        text("reason", bad.Use.Reason());
        text("useFile", bad.Use.FileName);
        if (bad.Use.FileName.empty())
            line.Null("useLine");
        else
            line.Number("useLine", bad.Use.Line);
        if (isDeleted) line.Text("result", "deleted");
    }

    TProgram& program_;
    const TCheckOptions& options_;
    TBaseline baseline_;
    TSession session_;
    TProjectIDs ids_;
    std::vector<TBadID> found_;
    std::vector<std::string> checkedForms_;  ///< of each, "" for a unit that was checked by itself
    std::vector<std::size_t> listed_;
    bool deleted_ = false;
    bool failing_ = false;
};

}  // namespace

void AddCheckCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TCheckOptions>();
    CLI::App* command =
        AddCommand(app, "check", "Find string IDs that units do not use, and calls whose ID no component has",
                   "  tmllang check Orchard.dproj\n"
                   "  tmllang check Orchard.dproj --form MainForm --json\n"
                   "  tmllang check Orchard.dproj --units\n"
                   "  tmllang check Orchard.dproj --form MainForm --delete --yes\n"
                   "  tmllang check Orchard.dproj --sarif ids.sarif --baseline ids.baseline");
    AddFormOptions(command, *options);
    CLI::Option* units = command->add_flag(
        "--units", options->Units, "The units without a form instead: their calls of forms' components");
    command
        ->add_flag(
            "--delete", options->Delete,
            "Deletes the IDs that are listed as unused from the components (with --yes); the others stay")
        ->excludes(units);
    command->add_option("--sarif", options->Sarif, "Also writes the findings into this file, as SARIF 2.1.0")
        ->type_name("FILE");
    AddBaselineOptions(command, options->Baseline);
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return TCheckRun(shared, *options).Run(); };
    });
}

}  // namespace tml
