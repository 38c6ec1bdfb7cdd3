#include "cli/Phrasecommands.h"

#include <iostream>
#include <memory>

#include "base/Errors.h"
#include "base/Format.h"
#include "cli/Formoptions.h"
#include "cli/Jsonlines.h"
#include "cli/Shownpath.h"
#include "cli/Terminal.h"
#include "ids/Idrename.h"
#include "translations/Phrases.h"

namespace tml {
namespace {

struct TFindOptions : TFormOptions {
    TPhraseOptions Phrase;
    bool DryRun = false;
};

void AddPhraseOptions(CLI::App* command, TFindOptions& options) {
    AddFormOptions(command, options);
    command->add_option("TEXT", options.Phrase.Text, "The phrase")->required();
    command->add_flag("--case", options.Phrase.CaseSensitive, "Letter case counts");
    command->add_flag("--whole", options.Phrase.Whole, "The phrase is the whole text");
    command->add_flag("--identifiers", options.Phrase.Identifiers, "Also in the keys of the entries");
}

/// kind: what becomes of a hit, "" for a search.
void Print(const TProgram& program, const TFormPhrases& form, const TPhraseHit& hit, const std::string& kind,
           const std::string& result) {
    if (program.Json) {
        TJsonLine line(std::cout);
        if (!kind.empty()) line.Text("kind", kind);
        line.Text("form", form.FormName)
            .Text("file", form.FileName)
            .Text("table", hit.Property())
            .Number("line", hit.Entry)
            .Text("location", hit.Location(form.Languages))
            .Text("key", hit.Key)
            .Text("text", hit.Text);
        if (!kind.empty()) line.Text("result", result);
        return;
    }
    std::cout << ShownPath(form.FileName) << ": " << hit.Property() << " " << hit.Entry << " "
              << hit.Location(form.Languages) << " " << hit.Key << ": '" << hit.Text << "'";
    if (kind == "replaced") std::cout << " -> '" << result << "'";
    if (kind == "left") std::cout << " was left";
    std::cout << "\n";
}

std::vector<TFormPhrases> Find(TSession& session, const TFindOptions& options) {
    if (options.Phrase.Text.empty() && !options.Phrase.Whole)
        throw EBadInput("", 0, "there is nothing to look for", "Give a text that is not empty");
    std::vector<TFormPhrases> found;
    for (TFormRow* row : session.Rows(options.Forms))
        session.Attempt(row->FormName, [&] {
            if (!row->HasComponent()) session.ExpectReadable(*row);
            for (TFormPhrases& form : FindPhrase(session.Context(), {row}, TPhrase(options.Phrase)))
                found.push_back(std::move(form));
        });
    return found;
}

int RunFind(TProgram& program, const TFindOptions& options) {
    TSession session(program, options.Project);
    for (const TFormPhrases& form : Find(session, options))
        for (const TPhraseHit& hit : form.Hits)
            Print(program, form, hit, {}, {});
    return session.ExitCode();
}

class TReplacePhraseRun {
  public:
    TReplacePhraseRun(TProgram& program, const TFindOptions& options)
        : program_(program), options_(options), phrase_(options.Phrase), session_(program, options.Project) {}

    int Run() {
        const std::vector<TFormPhrases> found = Find(session_, options_);
        std::vector<TFormPhrases> left;
        bool isReplaced = options_.DryRun;
        if (!options_.DryRun)
            session_.Attempt("replace-phrase", [&] {
                session_.Run([&](TContext& context, TSubjects&) { left = Replace(context, found); });
                isReplaced = true;
            });
        std::size_t count = 0;
        for (const TFormPhrases& form : found)
            for (const TPhraseHit& hit : form.Hits) {
                const bool isTaken = isReplaced && !IsLeft(left, form, hit);
                Print(program_, form, hit, isTaken ? "replaced" : "left", phrase_.Replaced(hit.Text));
                count += isTaken ? 1 : 0;
            }
        if (!program_.Json)
            std::cout << count << (count == 1 ? " occurrence" : " occurrences")
                      << (options_.DryRun ? " would be replaced\n" : " replaced\n");
        const int exit = session_.ExitCode();
        if (!isReplaced) return kBadInput;
        return exit == kDone && !left.empty() ? kDoneInPart : exit;
    }

  private:
    /// IDs follow in every unit of the project; one that cannot be changed is left. All files are written at
    /// once, or none.
    std::vector<TFormPhrases> Replace(TContext& context, const std::vector<TFormPhrases>& found) {
        std::vector<TFormPhrases> refused;
        const auto scope = session_.Modules().BeginCommand("Replace phrase");
        std::vector<TFormPhrases> left = ReplacePhrase(
            context, found, phrase_,
            [&](const std::string& form, const std::string& oldID, const std::string& newID) {
                try {
                    RenameID(context, {form, oldID, newID, {}, program_.Yes});
                } catch (const EBadInput& error) {
                    PrintMessage(Format("%s: %s", form, error.what()));
                    refused.push_back({form, {}, {}, {{TStringsType::stStrings, 0, 1, oldID, oldID}}});
                }
            });
        session_.Ide().SaveAll();
        scope->Commit();
        program_.HasWritten = true;
        left.insert(left.end(), refused.begin(), refused.end());
        return left;
    }

    static bool IsLeft(const std::vector<TFormPhrases>& left, const TFormPhrases& form,
                       const TPhraseHit& hit) {
        for (const TFormPhrases& one : left)
            for (const TPhraseHit& other : one.Hits)
                if (one.FormName == form.FormName && hit.Field == 1 && other.Table == hit.Table &&
                    other.Key == hit.Key)
                    return true;
        return false;
    }

    TProgram& program_;
    const TFindOptions& options_;
    TPhrase phrase_;
    TSession session_;
};

}  // namespace

void AddFindCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TFindOptions>();
    CLI::App* command = AddCommand(app, "find", "List where the translation tables hold a phrase",
                                   "  tmllang find Orchard.dproj harvest\n"
                                   "  tmllang find Orchard.dproj OK --case --whole --form MainForm --json");
    AddPhraseOptions(command, *options);
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return RunFind(shared, *options); };
    });
}

void AddReplacePhraseCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TFindOptions>();
    CLI::App* command =
        AddCommand(app, "replace-phrase", "Replace a phrase in the translation tables",
                   "  tmllang replace-phrase Orchard.dproj harvest crop --dry-run\n"
                   "  tmllang replace-phrase Orchard.dproj IDS_7 IDS_READY --whole --identifiers");
    AddPhraseOptions(command, *options);
    command->add_option("REPLACEMENT", options->Phrase.Replacement, "What takes its place")->required();
    command->add_flag("--dry-run", options->DryRun, "List what would be replaced; write nothing");
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return TReplacePhraseRun(shared, *options).Run(); };
    });
}

}  // namespace tml
