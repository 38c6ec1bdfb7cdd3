#include <iostream>
#include <map>
#include <memory>
#include <sstream>

#include "base/Errors.h"
#include "cli/Jsonlines.h"
#include "cli/Session.h"
#include "scan/Found.h"

namespace tml {
namespace {

struct TReplaceOptions {
    std::string Project;
    std::vector<std::string> Forms;
    bool All = false;
    bool DryRun = false;
    bool Patch = false;
};

/// What a review decided.
struct TDecision {
    std::vector<TFoundRow> Replaced;
    std::vector<TFoundRow> LeftOut;
};

/// Stands in for the person: rows with an advice are left out, the rest is confirmed.
TDecision Decide(TfrmFound& found, bool all) {
    if (!all) {
        found.acSelectAdvised();
        if (found.sgStrings.SelectedCount() > 0) found.acDeleteRow();
    }
    TDecision decision{found.sgStrings.Rows, found.sgDeleted.Rows};
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
        session_.Answers().Review = [this](TfrmFound& found) { decision_ = Decide(found, options_.All); };
    }

    int Run() {
        const auto command = session_.Modules().BeginCommand("Replace strings");
        session_.ForEach(session_.Rows(options_.Forms), [this](TListItem& row) { ReplaceIn(row); });
        if (options_.Patch) std::cout << command->Patch();
        if (!options_.Patch && !options_.DryRun) {
            command->Commit();
            session_.Ide().SaveAll();
        }
        (options_.Patch ? std::cerr : std::cout) << report_.str();
        return session_.ExitCode();
    }

  private:
    void ReplaceIn(TListItem& row) {
        decision_ = {};
        const std::string file = row.SubItems[fcFileName];
        const std::string form = row.Caption;
        session_.Select(row);
        session_.Window().Run("SourceWithForm");
        if (!session_.Answers().Errors.empty()) return;
        if (program_.Json)
            PrintJson(file);
        else
            PrintText(form, RelativeTo(folder_, file));
    }

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
    }

    void PrintText(const std::string& form, const std::string& file) {
        if (options_.DryRun)
            for (const TFoundRow& row : decision_.Replaced)
                report_ << file << ":" << row.Record.Line + 1 << ": '" << row.Record.StrContent << "' -> "
                        << WrittenText(row.Record) << "\n";
        report_ << form << ": " << decision_.Replaced.size()
                << (options_.DryRun ? " strings found" : " strings replaced");
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
    std::string folder_ = FolderOf(program_.Files->Resolve(options_.Project));
    TDecision decision_;
    std::ostringstream report_;  ///< told when the files are written, not before
};

}  // namespace

void AddReplaceCommand(CLI::App& app, TProgram& program) {
    CLI::App* command = AddCommand(
        app, "replace", "Move the strings of forms' units into their components and rewrite the sources",
        "  tmllang replace Orchard.dproj --form MainForm --patch > main.patch\n"
        "  tmllang replace Orchard.dproj --form MainForm --form OrderDialog\n"
        "  tmllang replace Orchard.dproj --dry-run --json");
    const auto options = std::make_shared<TReplaceOptions>();
    command->add_option("PROJECT", options->Project, "A project file")->required();
    command->add_option("--form", options->Forms, "Only the unit of this form; may be repeated");
    command->add_flag("--all", options->All, "Also strings that carry an advice against it");
    command->add_flag("--dry-run", options->DryRun, "List what would be replaced; write nothing");
    command->add_flag("--patch", options->Patch, "Print the change as a unified diff; write nothing");
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return TReplaceRun(shared, *options).Run(); };
    });
}

}  // namespace tml
