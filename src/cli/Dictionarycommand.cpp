#include "cli/Dictionarycommand.h"

#include <iostream>
#include <memory>
#include <optional>
#include <sstream>
#include <utility>
#include <vector>

#include "base/Counted.h"
#include "base/Errors.h"
#include "base/Folderindex.h"
#include "base/Format.h"
#include "cli/Formoptions.h"
#include "cli/Jsonlines.h"
#include "cli/Nearestword.h"
#include "cli/Shownpath.h"
#include "cli/Terminal.h"
#include "setup/Dictionaryform.h"
#include "tables/Dixfile.h"
#include "tables/States.h"

namespace tml {
namespace {

/// How texts are looked up, where it is not to be as the project has it.
struct TLookUpOptions {
    std::optional<bool> IgnoreCase, SkipAmpersands, OverwriteExisting, ForceEmpties, ParseMultilines;

    TDictionaryOptions Over(const TDictionaryOptions& project) const {
        return {.IgnoreCase = IgnoreCase.value_or(project.IgnoreCase),
                .SkipAmpersands = SkipAmpersands.value_or(project.SkipAmpersands),
                .OverwriteExisting = OverwriteExisting.value_or(project.OverwriteExisting),
                .ForceEmpties = ForceEmpties.value_or(project.ForceEmpties),
                .ParseMultilines = ParseMultilines.value_or(project.ParseMultilines)};
    }
};

struct TDictionaryRunOptions : TFormOptions {
    std::string Action;
    std::string File;  ///< "" for the project's
    TDictionaryLanguages Languages;
    TLookUpOptions LookUp;
    bool Replaces = false;
    bool DryRun = false;
    bool Patch = false;
};

class TDictionaryRun {
  public:
    TDictionaryRun(TProgram& program, const TDictionaryRunOptions& options)
        : program_(program),
          options_(options),
          languages_(options.Languages),
          session_(program, options.Project),
          tool_(DictionaryTool(session_.Context(), subject_)) {
        const auto settings = session_.Context().Host.Runtime->mlLangProjectSettings;
        if (settings != nullptr) lookUp_ = DictionaryOptionsOf(*settings);
        if (settings != nullptr && languages_.Base.empty()) languages_.Base = DictionaryBaseOf(*settings);
        lookUp_ = options.LookUp.Over(lookUp_);
        file_ = AbsolutePath(*program.Files, options.File);
        if (options.File.empty()) file_ = settings == nullptr ? "" : DefaultDictionaryOf(*settings);
        if (file_.empty())
            throw EBadInput("", 0, "the project names no dictionary",
                            "Give the file, or set the default dictionary in the project's settings");
    }

    int Run() {
        const auto scope = session_.Modules().BeginCommand("Dictionary");
        if (options_.Action == "fill")
            Fill();
        else
            Learn();
        if (options_.Patch) std::cout << scope->Patch();
        if (!options_.Patch && !options_.DryRun) {
            scope->Commit();
            program_.HasWritten = true;
        }
        (options_.Patch ? std::cerr : std::cout) << report_.str();
        return session_.ExitCode();
    }

  private:
    void Fill() {
        if (languages_.Language.empty())
            throw EBadInput("", 0, "no language is named", "Say --language with the one to be filled");
        const TDictionary dictionary = tool_.Load(file_);
        if (const std::string note = NewerVersionNote(dictionary, file_); !note.empty()) PrintMessage(note);
        TDictionaryFiller filler(dictionary, file_, languages_, lookUp_);
        ChangeEachTmlLang(session_, options_, "Dictionary", [&](TFormRow& row, TmlCustomLang& lang) {
            const TFormTables form = ReadForm(lang, row);
            if (!HasLanguage(form)) return;
            const TFormFills fills = filler.Plan(form);
            if (!fills.Fills.empty()) ExpectWritable(session_.Context(), row);
            FillForm(lang, fills);
            Print(fills);
        });
        TellWhatLacksTheLanguage();
    }

    /// A form without the language is told of in the end: where none has it, once is enough.
    bool HasLanguage(const TFormTables& form) {
        for (int i = 1; i < form.Languages.Count(); ++i)
            if (known_.IndexOf(form.Languages[i]) < 0) known_.Add(form.Languages[i]);
        try {
            PlaceToFill(form, languages_.Language);
        } catch (const EBadInput& error) {
            lacking_.emplace_back(form.FormName, error);
            return false;
        }
        return true;
    }

    void TellWhatLacksTheLanguage() {
        if (!lacking_.empty() && known_.IndexOf(languages_.Language) < 0) {
            const std::string nearest = NearestWord(known_.Items(), languages_.Language);
            throw EBadInput("", 0, "none of the forms is translated to " + languages_.Language,
                            nearest.empty() ? "Their languages are " + known_.CommaText()
                                            : "Did you mean " + nearest + "?");
        }
        for (const auto& lacking : lacking_)
            session_.Attempt(lacking.first, [&] { throw EBadInput(lacking.second); });
    }

    void Print(const TFormFills& form) {
        using enum TDictionaryOutcome;
        for (const TDictionaryFill& fill : form.Fills)
            Print(form, fill);
        if (!program_.Json) {
            report_ << form.FormName << ": "
                    << Format("%d filled, %d not in the dictionary, %d translated already, %d left empty\n",
                              form.Fills.size(), form.Counts[Unknown], form.Counts[Existing],
                              form.Counts[Empty]);
            return;
        }
        TJsonLine(report_)
            .Text("kind", "form")
            .Text("form", form.FormName)
            .Number("filled", static_cast<std::int64_t>(form.Fills.size()))
            .Number("unknown", form.Counts[Unknown])
            .Number("existing", form.Counts[Existing])
            .Number("empty", form.Counts[Empty]);
    }

    void Print(const TFormFills& form, const TDictionaryFill& fill) {
        const std::string_view table = KindOf(fill.Table).Property;
        const std::string_view state = NameOf(IsInDoubt(fill.New) ? TTextState::Touched : TTextState::Done);
        if (!program_.Json) {
            report_ << form.FormName << " " << table << " " << fill.Key << ": '" << OnOneLine(fill.Base)
                    << "' -> '" << OnOneLine(fill.New.Text) << "' (" << state << ")\n";
            return;
        }
        TJsonLine line(report_);
        line.Text("kind", "filled").Text("form", form.FormName).Text("table", table).Text("key", fill.Key);
        line.Text("base", fill.Base).Text("old", fill.Old.Text).Text("text", fill.New.Text);
        line.Text("state", state);
        if (IsInDoubt(fill.New)) line.Text("found", fill.New.Former);
    }

    void Learn() {
        TDictionary dictionary;
        if (program_.Files->Stat(file_)) dictionary = tool_.Load(file_);
        TDictionaryLearning learning;
        ForEachTmlLang(session_, options_, [&](TFormRow& row, TmlCustomLang& lang) {
            const TFormTables form = ReadForm(lang, row);
            if (languages_.Language.empty() || HasLanguage(form))
                LearnForm(learning, form, languages_.Base, languages_.Language);
        });
        TellWhatLacksTheLanguage();
        const TLearned learned = learning.Into(dictionary, options_.Replaces);
        if (learned.Added + learned.Replaced > 0) tool_.Save(file_, dictionary);
        for (const TLearnConflict& conflict : learned.Conflicts)
            Print(conflict);
        Print(learned);
    }

    void Print(const TLearnConflict& conflict) {
        for (const TLearnedChoice& choice : conflict.Choices) {
            if (!program_.Json) {
                report_ << conflict.Language << " '" << OnOneLine(conflict.Base) << "': '"
                        << OnOneLine(choice.Text) << "' (" << choice.Count
                        << (choice.Text == conflict.Taken ? ", taken)\n" : ")\n");
                continue;
            }
            TJsonLine line(report_);
            line.Text("kind", "conflict").Text("language", conflict.Language).Text("base", conflict.Base);
            line.Text("taken", conflict.Taken).Text("text", choice.Text).Number("count", choice.Count);
        }
    }

    void Print(const TLearned& learned) {
        const auto conflicts = static_cast<std::int64_t>(learned.Conflicts.size());
        if (!program_.Json) {
            report_ << ShownPath(file_) << ": "
                    << Format("%s added, %s; %d replaced, %d known; %s several translations\n",
                              Counted(learned.Added, "translation", "translations"),
                              Counted(learned.Entries, "new entry", "new entries"), learned.Replaced,
                              learned.Known, Counted(conflicts, "text has", "texts have"));
            return;
        }
        TJsonLine line(report_);
        line.Text("kind", "learned").Text("file", file_).Number("added", learned.Added);
        line.Number("entries", learned.Entries).Number("replaced", learned.Replaced);
        line.Number("known", learned.Known).Number("conflicts", conflicts);
    }

    TProgram& program_;
    const TDictionaryRunOptions& options_;
    TDictionaryLanguages languages_;
    TSession session_;
    TDictionaryMemory subject_;
    IDictionaryTool& tool_;
    TDictionaryOptions lookUp_;
    std::string file_;
    TStringList known_;                                       ///< languages that forms are translated to
    std::vector<std::pair<std::string, EBadInput>> lacking_;  ///< names of forms without the language
    std::ostringstream report_;                               ///< told when the files are written, not before
};

void AddLookUpOptions(CLI::App& command, TLookUpOptions& options) {
    const auto add = [&](const std::string& name, std::optional<bool>& value, const std::string& text) {
        command.add_flag_function(
            Format("--%s,!--no-%s", name, name), [&value](std::int64_t count) { value = count > 0; },
            text + "; else as the project's settings have it");
    };
    add("ignore-case", options.IgnoreCase, "Letter case does not count");
    add("skip-ampersands", options.SkipAmpersands, "Accelerators do not count");
    add("overwrite", options.OverwriteExisting, "Also fill what is translated");
    add("force-empties", options.ForceEmpties, "Also fill what is empty, not only what equals the base text");
    add("multi-lines", options.ParseMultilines, "Look texts of several lines up line by line");
}

}  // namespace

void AddDictionaryCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TDictionaryRunOptions>();
    CLI::App* command = AddCommand(
        app, "dictionary", "Fill a language of forms from a dictionary, or let it learn from the forms",
        "  tmllang dictionary Orchard.dproj learn farm.dix\n"
        "  tmllang dictionary Orchard.dproj fill farm.dix --language German --skip-ampersands --dry-run\n"
        "  tmllang dictionary Orchard.dproj fill --language German --form MainForm --patch > main.patch");
    AddFormOptions(command, *options);
    command->add_option("ACTION", options->Action, "fill or learn")
        ->required()
        ->check(CLI::IsMember({"fill", "learn"}));
    command->add_option("FILE", options->File,
                        "The dictionary (.dix); without it the project's. What learns may be new");
    command->add_option("--language", options->Languages.Language,
                        "The language to fill, or the only one to learn");
    command->add_option("--base-language", options->Languages.Base,
                        "What the dictionary calls the forms' base language; else as the project's settings "
                        "or the forms name it");
    command->add_option("--from", options->Languages.Translation,
                        "What the dictionary calls the language to fill, where it has another name");
    AddLookUpOptions(*command, options->LookUp);
    command->add_flag("--replace", options->Replaces,
                      "learn: the forms' translations replace differing ones of the dictionary");
    command->add_flag("--dry-run", options->DryRun, "List what would be written; write nothing");
    command->add_flag("--patch", options->Patch, "Print the change for git apply; write nothing");
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return TDictionaryRun(shared, *options).Run(); };
    });
}

}  // namespace tml
