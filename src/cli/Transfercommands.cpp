#include "cli/Transfercommands.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>

#include "base/Errors.h"
#include "base/Folderindex.h"
#include "base/Format.h"
#include "cli/Formoptions.h"
#include "cli/Jsonlines.h"
#include "cli/Terminal.h"
#include "core/Formfamilies.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "tables/Translationfile.h"
#include "translations/Filedelimiter.h"
#include "translations/Formseries.h"
#include "translations/Formtrans.h"
#include "translations/Groupfiles.h"
#include "translations/Projmngsaskfilename.h"
#include "translations/Propexport.h"

namespace tml {
namespace {

struct TTransferOptions : TFormOptions {
    std::string File;
    std::optional<std::string> Delimiter;
    std::string Language;
    std::vector<std::string> Kinds;
};

constexpr const char* kNotTranslated = "no form of the project is translated";

/// One of the commands at work on one project.
class TTransferRun {
  public:
    TTransferRun(TProgram& program, TSession& session, const TTransferOptions& options)
        : program_(program),
          session_(session),
          options_(options),
          project_(ProjectNameOf(session.Context())),
          fileName_(AbsolutePath(*program.Files, GetParsedFileName(*session.Context().Host.Clock,
                                                                   options.File, project_ + "."))) {}

    using TTransferForm = std::function<TTransferReport(TFormRow&)>;
    using TCheckFile = std::function<void(ITranslationFiles&)>;

    /// All forms as one step; nothing is written where the file cannot be used.
    void Run(const char* title, TFormUse use, const TCheckFile& check, const TTransferForm& transfer) {
        const std::vector<TFormRow*> rows = Rows();
        if (rows.empty()) return PrintMessage(Format("%s: %s", project_, kNotTranslated));
        TFormReports reports;
        const auto scope = session_.Modules().BeginCommand(title);
        const auto files = session_.Context().Host.Runtime->OpenTranslationFiles(project_);
        check(*files);
        session_.ForEach(use == TFormUse::Changes ? AncestorsFirst(rows) : rows, [&](TFormRow& row) {
            const auto one = session_.Modules().BeginCommand(title);
            const TTransferReport report = transfer(row);
            one->Commit();
            if (!session_.Answers().Errors.empty()) return;
            reports.emplace_back(row.FormName, report);
            Tell(row, report);
        });
        // What a form says of the file, where it cannot be read, says more.
        if (use == TFormUse::Changes && reports.size() == rows.size()) ExpectOwnFile(reports);
        files->Commit();
        scope->Commit();
        session_.Ide().SaveAll();
        program_.HasWritten = true;
        std::cout << told_.str();
    }

    /// What the whole project leaves of the file.
    void TellUnclaimed() {
        if (!options_.Forms.empty()) return;
        const std::string note = UnclaimedForms(session_.Context(), fileName_);
        if (note.empty()) return;
        if (program_.Json)
            TJsonLine(std::cout).Text("project", project_).Texts("notes", std::vector<std::string>{note});
        else
            PrintMessage(fileName_ + ": " + note);
    }

    /// As the window asks for it; otherDelimiter is the question about another one than the file has.
    std::string Delimiter(const char* otherDelimiter) {
        if (IsBinaryTranslation(fileName_)) return {};
        const std::string old = GetMLLFileDelimiter(session_.Context(), fileName_);
        std::string delimiter = old;
        session_.Answers().Text = options_.Delimiter.value_or(old);
        if (!AskForDelimiter(session_.Context(), old, fileName_, delimiter, otherDelimiter))
            throw EBadInput(fileName_, 0, session_.Answers().Errors.front());
        return delimiter;
    }

    TContext& Context() { return session_.Context(); }
    const std::string& FileName() const { return fileName_; }
    const std::string& Project() const { return project_; }

  private:
    std::vector<TFormRow*> Rows() {
        std::vector<TFormRow*> rows = session_.Rows(options_.Forms);
        for (const TFormRow* row : rows)
            if (!options_.Forms.empty() && !row->HasComponent())
                throw EBadInput(row->FileName, 0, "the form has no localization component",
                                "\"tmllang insert\" puts one on it");
        std::erase_if(rows, [](const TFormRow* row) { return !row->HasComponent(); });
        // Of a group some projects may have none.
        if (rows.empty() && !session_.HasSeveralProjects())
            throw EBadInput("", 0, kNotTranslated, "\"tmllang insert\" puts components on them");
        return rows;
    }

    /// A file of a group need not hold forms of every project.
    void ExpectOwnFile(const TFormReports& reports) {
        if (session_.HasSeveralProjects()) return;
        const std::string problem = ProblemOfForeignFile(session_.Context(), fileName_, reports);
        if (!problem.empty()) throw EBadInput(fileName_, 0, problem, "Choose a file of this project");
    }

    void Tell(const TFormRow& row, const TTransferReport& report) {
        if (program_.Json) {
            TJsonLine(told_)
                .Text("project", project_)
                .Text("form", row.FormName)
                .Number("taken", report.Taken)
                .Number("kept", report.Kept)
                .Number("inDoubt", report.InDoubt)
                .Texts("added", report.Added)
                .Texts("overwritten", report.Overwritten)
                .Texts("dropped", report.Dropped)
                .Texts("unknown", report.Unknown)
                .Texts("notes", report.Notes);
            return;
        }
        told_ << row.FormName << ": " << report.Taken << (report.Taken == 1 ? " text" : " texts") << "\n";
        for (const std::string& line : LinesOf(report))
            told_ << "  " << line << "\n";
    }

    TProgram& program_;
    TSession& session_;
    const TTransferOptions& options_;
    std::string project_;
    std::string fileName_;
    std::ostringstream told_;  ///< when the files are written, not before
};

TStringList ProjectsOf(IOTAProjectGroup& group) {
    TStringList files;
    for (int i = 0; i < group.GetProjectCount(); ++i)
        files.Add(group.GetProject(i)->GetFileName());
    return files;
}

/// What a project of a group fails with does not keep the others from their turn.
void AttemptProject(TSession& session, TTransferRun& run, const std::function<void(TTransferRun&)>& work) {
    try {
        work(run);
    } catch (const EBadInput&) {
        if (!session.HasSeveralProjects()) throw;
        const auto problem = std::current_exception();
        session.Attempt(run.Project(), [&] { std::rethrow_exception(problem); });
    }
}

int ForProjects(TProgram& program, const TTransferOptions& options,
                const std::function<void(TTransferRun&)>& work) {
    TSession session(program, options.Project);
    if (session.HasSeveralProjects() && !options.Forms.empty())
        throw EBadInput("", 0, "--form names forms of one project", "Say --project, too");
    if (session.HasSeveralProjects())
        ExpectDistinctNames(ProjectsOf(*session.Modules().GetMainProjectGroup()));
    session.ForEachProject([&] {
        TTransferRun run(program, session, options);
        AttemptProject(session, run, work);
    });
    return session.ExitCode();
}

int RunSave(TProgram& program, const TTransferOptions& options) {
    return ForProjects(program, options, [](TTransferRun& run) {
        const std::string delimiter = run.Delimiter(kOtherDelimiter);
        run.Run(
            "Save Translations", TFormUse::Reads,
            [&](ITranslationFiles& files) { files.ExpectWritable(run.FileName(), delimiter); },
            [&](TFormRow& row) {
                return SaveFormToFile(run.Context(), row.FormName, run.FileName(), delimiter);
            });
    });
}

using TLoadForm = TTransferReport (*)(TContext&, const std::string&, const std::string&);

int RunLoad(TProgram& program, const TTransferOptions& options, const char* title, TLoadForm load) {
    return ForProjects(program, options, [&](TTransferRun& run) {
        run.Run(
            title, TFormUse::Changes, [&](ITranslationFiles& files) { files.GetLanguages(run.FileName()); },
            [&](TFormRow& row) { return load(run.Context(), row.FormName, run.FileName()); });
        run.TellUnclaimed();
    });
}

/// EBadInput for a kind that there is not.
TPropertyKinds KindsOf(const std::vector<std::string>& names) {
    const TStringList known = PropertyKindNames();
    TStringList kinds;
    for (const std::string& name : names) {
        const int index = known.IndexOf(name);
        if (index < 0)
            throw EBadInput("", 0, "there is no kind of properties " + name,
                            "Give some of " + known.CommaText());
        kinds.Add(known[index]);
    }
    return PropertyKindsOf(kinds);
}

int RunExport(TProgram& program, const TTransferOptions& options) {
    const TPropertyKinds kinds = KindsOf(options.Kinds);
    return ForProjects(program, options, [&](TTransferRun& run) {
        ExpectTextKind(run.FileName());
        const std::string delimiter = run.Delimiter(kOtherDelimiterOfProperties);
        run.Run(
            "Save Properties", TFormUse::Reads,
            [&](ITranslationFiles& files) { files.ExpectWritable(run.FileName(), delimiter); },
            [&](TFormRow& row) {
                return SavePropsToFile(run.Context(), row, run.FileName(), delimiter, kinds);
            });
    });
}

int RunLoadLanguage(TProgram& program, const TTransferOptions& options) {
    return ForProjects(program, options, [&](TTransferRun& run) {
        const auto check = [&](ITranslationFiles& files) {
            const TStringList languages = files.GetLanguages(run.FileName());
            if (languages.IndexOf(options.Language) < 0)
                throw EBadInput(run.FileName(), 0, "the file has no language " + options.Language,
                                "It has " + languages.CommaText());
        };
        run.Run("Load Language", TFormUse::Changes, check, [&](TFormRow& row) {
            return LoadFormLanguage(run.Context(), row.FormName, run.FileName(), options.Language);
        });
    });
}

CLI::App* AddTransferCommand(CLI::App& app, const std::string& name, const std::string& description,
                             const std::string& examples, TTransferOptions& options) {
    CLI::App* command = AddFormOptions(AddCommand(app, name, description, examples), options);
    command
        ->add_option("FILE", options.File,
                     "A translation file, .mlb for the binary kind, else text; ($PROJECT_NAME), ($YEAR), "
                     "($MONTH), ($DAY), ($HOUR), ($MINUTE), ($SECOND) are replaced. Of a group every project "
                     "is meant unless --project names one")
        ->required();
    return command;
}

void AddDelimiterOption(CLI::App& command, TTransferOptions& options) {
    command.add_option("--delimiter", options.Delimiter,
                       "Delimiter of a text file; another one than it has rewrites it");
}

void AddLoadingCommand(CLI::App& app, TProgram& program, const std::string& name,
                       const std::string& description, const char* title, TLoadForm load) {
    const auto options = std::make_shared<TTransferOptions>();
    AddTransferCommand(app, name, description, "  tmllang " + name + " Orchard.dproj orchard.mll", *options)
        ->callback([&program, options, title, load] {
            program.Run = [=](TProgram& shared) { return RunLoad(shared, *options, title, load); };
        });
}

}  // namespace

void AddSaveCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TTransferOptions>();
    CLI::App* command =
        AddTransferCommand(app, "save", "Save the translations of forms into a translation file",
                           "  tmllang save Orchard.dproj orchard.mll\n"
                           "  tmllang save Orchard.dproj orchard.mlb --form MainForm\n"
                           "  tmllang save Farm.groupproj 'texts/($PROJECT_NAME).mll'",
                           *options);
    AddDelimiterOption(*command, *options);
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return RunSave(shared, *options); };
    });
}

void AddLoadCommand(CLI::App& app, TProgram& program) {
    AddLoadingCommand(app, program, "load", "Replace the translations of forms by those of a file",
                      "Load Translations", LoadFormFromFile);
}

void AddMergeCommand(CLI::App& app, TProgram& program) {
    AddLoadingCommand(app, program, "merge",
                      "Bring the translations of a file into forms; what it has not stays",
                      "Merge Translations", MergeFormFromFile);
}

void AddLoadLanguageCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TTransferOptions>();
    CLI::App* command =
        AddTransferCommand(app, "load-language", "Bring one language of a translation file into forms",
                           "  tmllang load-language Orchard.dproj orchard.mll German", *options);
    command->add_option("LANGUAGE", options->Language, "The language's name in the file")->required();
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return RunLoadLanguage(shared, *options); };
    });
}

void AddExportPropertiesCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TTransferOptions>();
    CLI::App* command = AddTransferCommand(
        app, "export-properties", "Save chosen kinds of properties of forms into a text translation file",
        "  tmllang export-properties Orchard.dproj captions.mll --kinds captions,hints\n"
        "  tmllang export-properties Orchard.dproj strings.mll --kinds strings --form MainForm",
        *options);
    command->add_option("--kinds", options->Kinds, "Of " + PropertyKindNames().CommaText())
        ->delimiter(',')
        ->allow_extra_args(false)
        ->required();
    AddDelimiterOption(*command, *options);
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return RunExport(shared, *options); };
    });
}

}  // namespace tml
