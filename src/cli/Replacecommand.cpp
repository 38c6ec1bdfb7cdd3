#include "cli/Replacecommand.h"

#include <iostream>
#include <map>
#include <memory>
#include <sstream>

#include "base/Errors.h"
#include "cli/Jsonlines.h"
#include "cli/Scantargets.h"
#include "cli/Session.h"
#include "cli/Shownpath.h"
#include "cli/Terminal.h"
#include "core/Formfamilies.h"
#include "scan/Found.h"
#include "scan/Scanreplace.h"
#include "scan/Selunit.h"

namespace tml {
namespace {

struct TReplaceOptions {
    std::string Project;
    std::vector<std::string> Forms;
    std::vector<std::string> Units;
    bool Const = false;
    bool All = false;
    bool DryRun = false;
    bool Patch = false;
};

/// What a review decided.
struct TDecision {
    std::vector<TFoundRow> Replaced;
    std::vector<TFoundRow> LeftOut;
};

/// Stands in for the person: what the review takes is confirmed; rows with an advice are left out unless
/// all are wanted.
TDecision Decide(TfrmFound& found, bool all) {
    if (all) found.acTakeAll();
    TDecision decision;
    for (const TFoundRow& row : found.Rows)
        (row.IsTaken() ? decision.Replaced : decision.LeftOut).push_back(row);
    if (decision.Replaced.empty())
        found.tbCancelClick();
    else
        found.tbModifyClick();
    return decision;
}

class TReplaceRun {
  public:
    TReplaceRun(TProgram& program, const TReplaceOptions& options)
        : program_(program), options_(options), session_(program, options.Project) {
        session_.Answers().On<TfrmFound>(
            [this](TfrmFound& found) { decision_ = Decide(found, options_.All); });
    }

    int Run() {
        const auto command = session_.Modules().BeginCommand("Replace strings");
        if (options_.Units.empty())
            session_.ForEach(AncestorsFirst(session_.Rows(options_.Forms)),
                             [this](TFormRow& row) { ReplaceIn(row); });
        else
            ReplaceInUnits();
        if (options_.Patch) std::cout << command->Patch();
        if (Writes()) {
            command->Commit();
            session_.Ide().SaveAll();
            program_.HasWritten = true;
        }
        (options_.Patch ? std::cerr : std::cout) << report_.str();
        return session_.ExitCode();
    }

  private:
    void ReplaceIn(TFormRow& row) { RunAndPrint(row, row.FormName, row.FileName); }

    /// Units one by one, so that one that fails does not keep the others back.
    void ReplaceInUnits() {
        TFormRow& form = *session_.Rows({ReceivingForm()}).front();
        for (const std::string& unit : UnitFiles()) {
            const std::string name = ShownPath(unit);
            session_.Attempt(name, [&] { RunAndPrint(form, name, unit); });
        }
    }

    std::string ReceivingForm() {
        if (options_.Forms.size() > 1)
            throw EBadInput("", 0, "the strings of units go to one form", "Say --form once");
        if (!options_.Forms.empty()) return options_.Forms.front();
        const TfrmTranslUnits chooser(session_.Context());
        if (chooser.cbForm.ItemIndex < 0)
            throw EBadInput(options_.Project, 0, "no form is to receive the strings of units",
                            "Say --form FORM, or choose a default form for units in the project's settings");
        return chooser.cbForm.Text();
    }

    /// The files of the units without a form that the options name by unit or file.
    std::vector<std::string> UnitFiles() {
        std::vector<std::string> files;
        for (const TScanTarget& target :
             TargetsOfProject(*session_.Modules().GetActiveProject(), {}, options_.Units)) {
            if (!target.FormName.empty())
                throw EBadInput(target.FileName, 0, "is the unit of the form " + target.FormName,
                                "Say --form " + target.FormName + " without --unit");
            if (session_.Context().Project.TranslatableUnits.IndexOf(target.FileName) < 0)
                throw EBadInput(target.FileName, 0,
                                "strings are replaced in .pas, .dpr, .cpp and .c files only",
                                "Give the unit one of these extensions, in the project too");
            files.push_back(target.FileName);
        }
        return files;
    }

    void RunAndPrint(TFormRow& form, const std::string& subject, const std::string& file) {
        decision_ = {};
        session_.Run([&](TContext& context, TSubjects& subjects) {
            DoScanReplace(context, subjects.Scan, form, file, options_.Const);
        });
        if (!session_.Answers().Errors.empty()) return;
        if (!Writes()) std::erase(session_.Answers().Information, DoneMessage(options_.Const));
        if (program_.Json)
            PrintJson(file);
        else
            PrintText(subject, ShownPath(file));
    }

    bool Writes() const { return !options_.Patch && !options_.DryRun; }

    void PrintJson(const std::string& file) {
        if (options_.Patch) return;
        const auto print = [&](const TFoundRow& row, const char* kind) {
            TJsonLine line(report_);
            line.Text("kind", kind).Text("file", file).Number("line", row.Record.Line + 1);
            line.Text("text", row.Record.StrContent).Text("id", row.Record.StrID);
            line.Text("replacement", WrittenText(row.Record));
            if (row.Record.Advice == TAdvice::None)
                line.Null("advice");
            else
                line.Text("advice", AdviceWord(row.Record.Advice));
        };
        for (const TFoundRow& row : decision_.Replaced)
            print(row, "replaced");
        for (const TFoundRow& row : decision_.LeftOut)
            print(row, "left");
        TJsonLine(report_)
            .Text("kind", "unit")
            .Text("file", file)
            .Number("replaced", static_cast<std::int64_t>(decision_.Replaced.size()))
            .Number("left", static_cast<std::int64_t>(decision_.LeftOut.size()))
            .Texts("messages", session_.Answers().Information);
    }

    void PrintText(const std::string& subject, const std::string& file) {
        if (options_.DryRun)
            for (const TFoundRow& row : decision_.Replaced)
                report_ << file << ":" << row.Record.Line + 1 << ": '" << OnOneLine(row.Record.StrContent)
                        << "' -> " << OnOneLine(WrittenText(row.Record)) << "\n";
        const std::size_t count = decision_.Replaced.size();
        report_ << subject << ": " << count << (count == 1 ? " string " : " strings ")
                << (Writes() ? "replaced" : "found");
        if (!decision_.LeftOut.empty())
            report_ << ", " << decision_.LeftOut.size() << " left out" << Reasons();
        report_ << "\n";
    }

    /// " (case-label 2, const 1)"
    std::string Reasons() const {
        std::map<std::string_view, int> counts;
        for (const TFoundRow& row : decision_.LeftOut)
            ++counts[AdviceWord(row.Record.Advice)];
        std::string text;
        for (const auto& [word, count] : counts)
            text += (text.empty() ? " (" : ", ") + std::string(word) + " " + std::to_string(count);
        return text + ")";
    }

    TProgram& program_;
    const TReplaceOptions& options_;
    TSession session_;
    TDecision decision_;
    std::ostringstream report_;  ///< told when the files are written, not before
};

}  // namespace

void AddReplaceCommand(CLI::App& app, TProgram& program) {
    CLI::App* command = AddCommand(
        app, "replace", "Move the strings of forms' units into their components and rewrite the sources",
        "  tmllang replace Orchard.dproj --form MainForm --patch > main.patch\n"
        "  tmllang replace Orchard.dproj --form MainForm --form OrderDialog\n"
        "  tmllang replace Orchard.dproj --unit Pricing --unit Tracing --form MainForm\n"
        "  tmllang replace Farm.groupproj --project Cellar --dry-run --json");
    const auto options = std::make_shared<TReplaceOptions>();
    command->add_option("PROJECT", options->Project, "A project file")->required();
    command->add_option("--form", options->Forms, "Only the unit of this form; may be repeated")
        ->allow_extra_args(false);
    command
        ->add_option("--unit", options->Units,
                     "A unit without a form, into the component of the one --form, or of the project's "
                     "default form for units; may be repeated")
        ->allow_extra_args(false);
    command->add_flag("--const", options->Const, "The string constants of the const sections instead");
    command->add_flag("--all", options->All, "Also strings that carry an advice against it");
    command->add_flag("--dry-run", options->DryRun, "List what would be replaced; write nothing");
    command->add_flag(
        "--patch", options->Patch,
        "Print the change for git apply; write nothing. Paths begin below the project's folder or, where "
        "files lie outside of it, below the folder that holds them all");
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return TReplaceRun(shared, *options).Run(); };
    });
}

}  // namespace tml
