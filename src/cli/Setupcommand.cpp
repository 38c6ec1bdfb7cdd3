#include "cli/Setupcommand.h"

#include <iostream>
#include <memory>

#include "base/Errors.h"
#include "cli/Formoptions.h"
#include "cli/Jsonlines.h"
#include "cli/Languagenames.h"
#include "cli/Session.h"
#include "cli/Terminal.h"
#include "core/Modules.h"
#include "setup/Furtherproperties.h"
#include "setup/Requiredpackage.h"
#include "setup/Setuprun.h"

namespace tml {
namespace {

struct TSetupOptions : TFormOptions {
    std::string Languages;
    std::string Class;
    std::string Name;
    std::string Dispatcher;
    std::string Container;
    std::vector<std::string> Exclusions;
    std::vector<std::string> Properties;
    bool Scan = false;
    bool AddPackage = false;
    bool Plan = false;
    bool DryRun = false;
    bool Patch = false;
};

constexpr const char* kNothingToDo = "nothing to do: no form would change\n";

/// A text with line ends of its own as the terminal wants it.
std::string Printed(std::string text) {
    std::erase(text, '\r');
    return text;
}

class TSetupCommand {
  public:
    TSetupCommand(TProgram& program, const TSetupOptions& options)
        : program_(program), options_(options), session_(program, options.Project) {}

    int Run() {
        session_.Run([this](TContext& context, TSubjects& subjects) {
            const std::vector<TFormRow*> rows = session_.Rows(options_.Forms);
            plan_ = PlanSetup(context, rows, Wishes(context));
            if (options_.Plan) {
                if (options_.Scan) FindStrings(context, subjects.Scan, plan_);
                PrintPlan();
            } else {
                SetUp(context, subjects.Scan);
            }
        });
        return ExitCode();
    }

  private:
    bool Writes() const { return !options_.DryRun && !options_.Patch; }

    TSetupWishes Wishes(TContext& context) const {
        TSetupWishes wishes = DefaultWishes(context);
        if (!options_.Class.empty()) wishes.ComponentClass = options_.Class;
        wishes.ComponentName = options_.Name;
        if (!options_.Languages.empty()) wishes.Languages = TStringList::FromCommaText(options_.Languages);
        wishes.GivesUpLanguages = program_.Yes;
        if (!options_.Dispatcher.empty()) wishes.DispatcherForm = options_.Dispatcher;
        if (!options_.Container.empty()) wishes.ContainerForm = options_.Container;
        for (const std::string& entry : options_.Exclusions)
            AddExclusion(wishes.Exclusions, ListOfExclusion(entry), entry);
        wishes.Properties = TStringList(options_.Properties);
        wishes.MovesStrings = options_.Scan;
        wishes.AddsPackage = options_.AddPackage;
        return wishes;
    }

    void SetUp(TContext& context, TScanMemory& memory) {
        const std::string loss = plan_.LossText();
        if (!loss.empty() && Writes() && !program_.Yes)
            throw EBadInput("", 0, loss, "Say --yes to go on; --plan tells of which forms");
        const auto scope = BeginCommand(context, "Setup");
        const TSetupOutcome outcome = RunSetup(context, memory, plan_);
        if (outcome.Stopped) throw EBadInput("", 0, "stopped", "Nothing was written");
        if (options_.Patch) std::cout << scope->Patch();
        if (Writes()) {
            const TProgressEnd end(context.Dialogs());
            const int count = static_cast<int>(outcome.Forms.size());
            context.Dialogs().ShowProgress("Writing the files...", count, count);
            scope->Commit();
            program_.HasWritten = true;
            StoreLinks(context, plan_.Wishes);
        }
        left_ = static_cast<int>(outcome.Forms.size()) - outcome.CountDone();
        PrintOutcome(outcome);
    }

    void PrintPlan() {
        left_ = static_cast<int>(plan_.Forms.size()) - plan_.CountReady();
        if (!program_.Json) {
            const bool isIdle = left_ == 0 && !plan_.HasWork();
            std::cout << (isIdle ? kNothingToDo : Printed(plan_.Text()));
            if (isIdle) PrintRemarks();
            return;
        }
        for (const TFormSetup& form : plan_.Forms) {
            TJsonLine line(std::cout);
            line.Text("form", form.FormName).Text("file", form.FileName);
            if (form.IsReady())
                line.Text("component", form.Component)
                    .Text("class", form.ClassName)
                    .Texts("steps", plan_.StepsOf(form))
                    .Texts("files", plan_.FilesOf(form))
                    .Number("dropped", form.Dropped)
                    .Texts("notes", form.Remarks)
                    .Null("problem");
            else
                line.Text("problem", form.Problem);
        }
        if (!plan_.PackageProject.empty())
            TJsonLine(std::cout).Text("project", plan_.PackageProject).Text("package", kRuntimePackage);
        if (!plan_.Remarks.Empty()) TJsonLine(std::cout).Texts("notes", plan_.Remarks);
    }

    void PrintOutcome(const TSetupOutcome& outcome) {
        std::ostream& out = options_.Patch ? std::cerr : std::cout;
        for (const TFormOutcome& form : outcome.Forms) {
            if (!form.IsDone()) {
                PrintMessage(form.FormName + ": " + form.Problem);
                if (program_.Json)
                    TJsonLine(out)
                        .Text("form", form.FormName)
                        .Text("file", form.FileName)
                        .Text("problem", form.Problem);
            } else if (program_.Json)
                TJsonLine(out)
                    .Text("form", form.FormName)
                    .Text("file", form.FileName)
                    .Texts("done", form.Done)
                    .Texts("notes", form.Notes);
            else if (!form.Done.Empty())
                PrintForm(out, form);
        }
        PrintPackage(out, outcome);
        if (!program_.Json && !outcome.HasChanged() && left_ == 0) out << kNothingToDo;
        PrintRemarks();
    }

    void PrintPackage(std::ostream& out, const TSetupOutcome& outcome) const {
        if (outcome.PackageProject.empty()) return;
        if (program_.Json)
            TJsonLine(out)
                .Text("project", outcome.PackageProject)
                .Text("package", kRuntimePackage)
                .Text("done", "added");
        else
            out << outcome.PackageText() << "\n";
    }

    void PrintRemarks() const {
        for (const std::string& remark : plan_.Remarks)
            PrintMessage(remark);
    }

    static void PrintForm(std::ostream& out, const TFormOutcome& form) {
        out << form.FormName << ":";
        for (int i = 0; i < form.Done.Count(); ++i)
            out << (i == 0 ? " " : "; ") << form.Done[i];
        out << "\n";
        for (const std::string& note : form.Notes)
            out << "    " << OnOneLine(note) << "\n";
    }

    int ExitCode() {
        session_.Answers().ClearMessages();
        const int code = session_.ExitCode();
        const int forms = static_cast<int>(plan_.Forms.size());
        if (left_ > 0 && left_ == forms) return kBadInput;
        return left_ > 0 || !plan_.Meaningless.Empty() ? kDoneInPart : code;
    }

    TProgram& program_;
    const TSetupOptions& options_;
    TSession session_;
    TSetupPlan plan_;
    int left_ = 0;  ///< forms that are as they were
};

void AddWishes(CLI::App& command, TSetupOptions& options) {
    command
        .add_option("--languages", options.Languages,
                    "The languages in order, separated by commas, instead of the default ones; a form that "
                    "would lose one wants --yes")
        ->check(CLI::Validator(CheckLanguageNames, ""));
    command.add_option("--class", options.Class, "Class of new components instead of the default one");
    command.add_option("--name", options.Name, "Name of new components; %s stands for the form's name");
    command
        .add_option("--dispatcher", options.Dispatcher,
                    "The form whose dispatcher the components are linked to; it gets one where it has none")
        ->type_name("FORM");
    command
        .add_option("--container", options.Container,
                    "The form whose component is the common container of the others")
        ->type_name("FORM");
    command
        .add_option("--exclude", options.Exclusions,
                    "An entry of the exclusion lists: a component, a class (TEdit), a property (.Hint, "
                    "TEdit.Text), a smart rule (Number); may be repeated")
        ->type_name("ENTRY")
        ->allow_extra_args(false);
    command
        .add_option("--property", options.Properties,
                    "A further property of the components: " + FurtherProperties() + "; may be repeated")
        ->type_name("NAME=VALUE")
        ->allow_extra_args(false);
}

}  // namespace

void AddSetupCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TSetupOptions>();
    CLI::App* command =
        AddFormOptions(AddCommand(app, "setup", "Set up many forms for translation in one pass",
                                  "  tmllang setup Orchard.dproj --languages English,German --plan\n"
                                  "  tmllang setup Orchard.dproj --languages English,German --scan\n"
                                  "  tmllang setup Orchard.dproj --class TmlLangLinked --container MainForm\n"
                                  "  tmllang setup Orchard.dproj --exclude TEdit --exclude Number --patch"),
                       *options);
    AddWishes(*command, *options);
    command->add_flag("--scan", options->Scan,
                      "Move the strings of the forms' units, too, but for those with an advice against it");
    command->add_flag("--add-package", options->AddPackage,
                      "Let the project (.lpi) require the package of the components, too");
    CLI::Option* plan =
        command->add_flag("--plan", options->Plan, "Print what would be done form by form; change nothing");
    CLI::Option* dryRun =
        command->add_flag("--dry-run", options->DryRun, "Do it without writing, and tell what comes of it");
    CLI::Option* patch =
        command->add_flag("--patch", options->Patch, "Print the change for git apply; write nothing");
    plan->excludes(dryRun)->excludes(patch);
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) {
            shared.ComponentClass = options->Class;
            return TSetupCommand(shared, *options).Run();
        };
    });
}

}  // namespace tml
