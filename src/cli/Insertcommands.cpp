#include "cli/Insertcommands.h"

#include <iostream>
#include <memory>
#include <sstream>

#include "base/Errors.h"
#include "base/Files.h"
#include "base/Utf8.h"
#include "cli/Formoptions.h"
#include "cli/Jsonlines.h"
#include "cli/Session.h"
#include "cli/Terminal.h"
#include "core/Formfamilies.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "setup/Requiredpackage.h"

namespace tml {

void ExpectComponent(const std::shared_ptr<TmlCustomLang>& component, const TFormRow& row) {
    if (component != nullptr) return;
    throw EBadInput(row.FileName, 0, "the form has no component of its own and takes none",
                    "Check that its form file is beside the unit, and look for a frame that has one");
}

namespace {

struct TInsertOptions : TFormOptions {
    std::string Class;
    bool AddPackage = false;
};

void CheckClass(IMlRuntime& runtime, const std::string& className) {
    if (className.empty() || runtime.InheritsFrom(className, "TmlCustomLang")) return;
    throw EBadInput("", 0, className + " is no class of localization components",
                    "Take one of " + TStringList(runtime.NamesArray()).CommaText());
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

}  // namespace tml
