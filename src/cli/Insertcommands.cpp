#include "cli/Insertcommands.h"

#include <iostream>
#include <memory>
#include <sstream>

#include "base/Errors.h"
#include "base/Files.h"
#include "base/Utf8.h"
#include "cli/Formoptions.h"
#include "cli/Jsonlines.h"
#include "cli/Languagenames.h"
#include "cli/Session.h"
#include "cli/Terminal.h"
#include "core/Formfamilies.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "setup/Requiredpackage.h"
#include "translations/Langlosses.h"

namespace tml {
namespace {

struct TInsertOptions : TFormOptions {
    std::string Class;
    std::string Languages;
    bool AddPackage = false;
};

void CheckClass(IMlRuntime& runtime, const std::string& className) {
    if (className.empty() || runtime.InheritsFrom(className, "TmlCustomLang")) return;
    throw EBadInput("", 0, className + " is no class of localization components",
                    "Take one of " + TStringList(runtime.NamesArray()).CommaText());
}

/// A form without a form file takes none; what a frame on a form brings along is not the form's own.
void ExpectComponent(const std::shared_ptr<TmlCustomLang>& component, const TFormRow& row) {
    if (component != nullptr) return;
    throw EBadInput(row.FileName, 0, "the form has no component of its own and takes none",
                    "Check that its form file is beside the unit, and look for a frame that has one");
}

/// A closed form may only seem to have a component, which is that of a frame; opened, its row tells.
bool HasOwnComponent(TSession& session, TFormRow& row) {
    if (!row.HasComponent()) return false;
    const TModuleLease lease(session.Context(), row.FileName);
    return GetmlLang(session.Context(), row.FormName) != nullptr;
}

void AddPackage(TSession& session, std::ostream& report, bool json) {
    const std::string file = PackageProject(session.Context());
    if (file.empty())
        throw EBadInput("", 0, "only a project in .lpi requires packages", "Leave out --add-package");
    const bool added = RequirePackage(session.Context(), file);
    const std::string name = FileNameOf(file);
    if (json)
        TJsonLine(report)
            .Text("project", name)
            .Text("package", kRuntimePackage)
            .Text("done", added ? "added" : "kept");
    else
        report << name << ": " << (added ? "requires the package " : "requires the package already: ")
               << kRuntimePackage << "\n";
}

/// A program that does not build would be a puzzle.
void AdvisePackage(TSession& session) {
    const std::string file = PackageProject(session.Context());
    if (!file.empty() && !RequiresPackage(session.Context(), file))
        PrintMessage(FileNameOf(file) + " does not require the package " + kRuntimePackage +
                     " yet: --add-package adds it, or the project inspector");
}

void InsertInto(TProgram& program, TSession& session, TFormRow& row, std::ostream& report) {
    const bool had = HasOwnComponent(session, row);
    if (!had) InsertTmlLang(session.Context(), row);
    const auto component = GetmlLang(session.Context(), row.FormName);
    if (component == nullptr && !session.Answers().Errors.empty()) return;
    if (!had) ExpectComponent(component, row);
    const std::string name = component != nullptr ? component->GetName() : row.Component.ComponentName;
    const bool isKept = had || component->GetComponent()->GetOrigin() == TComponentOrigin::coInherited;
    if (program.Json)
        TJsonLine(report)
            .Text("form", row.FormName)
            .Text("component", name)
            .Text("done", isKept ? "kept" : "inserted");
    else
        report << row.FormName << ": " << name << (isKept ? " is there already" : " inserted") << "\n";
}

int RunInsert(TProgram& program, const TInsertOptions& options) {
    program.ComponentClass = options.Class;
    TSession session(program, options.Project);
    CheckClass(*session.Context().Host.Runtime, options.Class);
    std::ostringstream report;  // told when the files are written, not before
    const auto scope = session.Modules().BeginCommand("Insert");
    if (options.AddPackage) AddPackage(session, report, program.Json);
    session.ForEach(AncestorsFirst(session.Rows(options.Forms)),
                    [&](TFormRow& row) { InsertInto(program, session, row, report); });
    scope->Commit();
    session.Ide().SaveAll();
    program.HasWritten = true;
    std::cout << report.str();
    if (!options.AddPackage) AdvisePackage(session);
    return session.ExitCode();
}

void PrintLanguages(TProgram& program, TSession& session, TFormRow& row, bool expected, std::ostream& out) {
    const TModuleLease lease(session.Context(), row.FileName);
    const auto component = GetmlLang(session.Context(), row.FormName);
    if (expected) ExpectComponent(component, row);
    const TStringList names = component != nullptr ? component->GetLangNames() : TStringList();
    if (program.Json)
        TJsonLine(out)
            .Text("form", row.FormName)
            .Texts("languages", names)
            .Text("active", component != nullptr ? component->GetLanguage() : "");
    else
        out << row.FormName << ": " << (component != nullptr ? names.CommaText() : "no component") << "\n";
}

/// Asked of all forms before the first is changed, so that nothing is written for a part of them.
void RefuseLoss(TSession& session, const std::vector<TFormRow*>& rows, const TLangSetUp& setUp) {
    const std::string losses = LossesOf(session.Context(), rows, setUp);
    if (losses.empty()) return;
    throw EBadInput("", 0, "these languages would give up " + losses,
                    "Name the others as well, or say --yes to go on");
}

int RunLanguages(TProgram& program, const TInsertOptions& options) {
    TSession session(program, options.Project);
    const std::vector<TFormRow*> rows = session.Rows(options.Forms);
    if (options.Languages.empty()) {
        session.ForEach(rows,
                        [&](TFormRow& row) { PrintLanguages(program, session, row, false, std::cout); });
        return session.ExitCode();
    }
    const TStringList names = TStringList::FromCommaText(options.Languages);
    const TLangSetUp setUp{names.Count(), "", "TmlCustomLang", true, names.Text()};
    if (!program.Yes) RefuseLoss(session, rows, setUp);
    std::ostringstream report;  // told when the files are written, not before
    const auto scope = session.Modules().BeginCommand("Languages");
    session.ForEach(AncestorsFirst(rows), [&](TFormRow& row) {
        ConfigureLangComponent(session.Context(), &row, setUp);
        if (!session.Answers().Errors.empty()) return;
        PrintLanguages(program, session, row, true, report);
    });
    session.Ide().SaveAll();
    scope->Commit();
    program.HasWritten = true;
    std::cout << report.str();
    return session.ExitCode();
}

}  // namespace

void AddInsertCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TInsertOptions>();
    CLI::App* command =
        AddFormOptions(AddCommand(app, "insert", "Put a localization component on forms",
                                  "  tmllang insert Orchard.dproj --form MainForm --form OrderDialog\n"
                                  "  tmllang insert Orchard.dproj --class TmlLangRT"),
                       *options);
    command->add_option("--class", options->Class, "Class of the component instead of the default one");
    command->add_flag("--add-package", options->AddPackage,
                      "Let the project (.lpi) require the package of the components, too");
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return RunInsert(shared, *options); };
    });
}

void AddLanguagesCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TInsertOptions>();
    CLI::App* command =
        AddFormOptions(AddCommand(app, "languages", "List or set the languages of forms",
                                  "  tmllang languages Orchard.dproj\n"
                                  "  tmllang languages Orchard.dproj --form MainForm --set English,German"),
                       *options);
    CLI::Option* set = command->add_option(
        "--set", options->Languages,
        "The languages in order, separated by commas; a form without a component gets one");
    set->check(CLI::Validator(CheckLanguageNames, ""));
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return RunLanguages(shared, *options); };
    });
}

}  // namespace tml
