#include "cli/Idcommands.h"

#include <algorithm>
#include <iostream>
#include <memory>

#include "base/Errors.h"
#include "base/Files.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "cli/Formoptions.h"
#include "cli/Jsonlines.h"
#include "cli/Scantargets.h"
#include "cli/Session.h"
#include "cli/Shownpath.h"
#include "cli/Terminal.h"
#include "ids/Idrename.h"
#include "ids/Typechange.h"

namespace tml {
namespace {

struct TRenameOptions {
    std::string Project;
    std::string Form;
    std::string OldID;
    std::string NewID;
    std::vector<std::string> Units;
};

void PrintRenamed(const TProgram& program, const TIDRename& rename, const TIDRenamed& renamed) {
    if (program.Json) {
        TJsonLine(std::cout)
            .Text("form", rename.FormName)
            .Text("old", rename.OldID)
            .Text("new", rename.NewID)
            .Number("calls", renamed.Calls)
            .Texts("forms", renamed.Forms)
            .Texts("units", renamed.Units)
            .Texts("left", renamed.Left);
        return;
    }
    if (renamed.Forms.empty()) {
        std::cout << rename.FormName << ": the ID is '" << rename.NewID << "' already: nothing changes\n";
        return;
    }
    std::cout << rename.FormName << ": '" << rename.OldID << "' is '" << rename.NewID << "' now, in "
              << renamed.Forms.size() << (renamed.Forms.size() == 1 ? " form" : " forms") << " and "
              << renamed.Calls << (renamed.Calls == 1 ? " use" : " uses") << "\n";
    for (const std::string& unit : renamed.Units)
        std::cout << "  " << ShownPath(unit) << "\n";
    for (const std::string& use : renamed.Left)
        PrintMessage(Format("%s: '%s' was left: %s", rename.FormName, rename.OldID, use));
}

int RunRename(TProgram& program, const TRenameOptions& options) {
    TSession session(program, options.Project);
    TIDRename rename{
        session.Rows({options.Form}).front()->FormName, options.OldID, options.NewID, {}, program.Yes};
    if (!options.Units.empty())
        for (const TScanTarget& target :
             TargetsOfProject(*session.Modules().GetActiveProject(), {}, options.Units))
            rename.Units.push_back(target.FileName);
    TIDRenamed renamed;
    session.Attempt(rename.FormName, [&] {
        session.Run([&](TContext& context, TSubjects&) { renamed = RenameID(context, rename); });
        session.Ide().SaveAll();
        program.HasWritten = true;
        PrintRenamed(program, rename, renamed);
    });
    const int exit = session.ExitCode();
    return exit == kDone && !renamed.Left.empty() ? kDoneInPart : exit;
}

struct TTypeOptions : TFormOptions {
    std::string ClassName;
};

/// The class as it is declared: letter case counts in no name of Pascal.
std::string DeclaredClass(TSession& session, const std::string& className) {
    const auto& names = session.Context().Host.Runtime->NamesArray();
    const auto found = std::find_if(names.begin(), names.end(),
                                    [&](const std::string& name) { return SameText(name, className); });
    if (found != names.end()) return *found;
    std::string known;
    for (const std::string& name : names)
        known += (known.empty() ? "" : ", ") + name;
    throw EBadInput("", 0, className + " is no class of localization components", "Choose one of " + known);
}

void PrintType(const TProgram& program, const TFormRow& row, const std::string& former) {
    if (program.Json)
        TJsonLine(std::cout)
            .Text("form", row.FormName)
            .Text("former", former)
            .Text("class", row.Component.ClassName);
    else
        std::cout << row.FormName << ": " << former << " -> " << row.Component.ClassName << "\n";
}

/// Where no form is named, those without a component are passed over, and so are those that inherit it: they
/// follow their ancestor.
bool HasTypeOfItsOwn(TSession& session, const TTypeOptions& options, const TFormRow& row) {
    if (!row.HasComponent()) session.ExpectReadable(row);
    return !options.Forms.empty() || (row.HasComponent() && row.Component.Ancestor.empty());
}

int RunChangeType(TProgram& program, const TTypeOptions& options) {
    TSession session(program, options.Project);
    const std::string className = DeclaredClass(session, options.ClassName);
    std::vector<std::pair<const TFormRow*, std::string>> formers;
    session.Run([&](TContext& context, TSubjects&) {
        const auto scope = session.Modules().BeginCommand("Change TmlLang Type");
        session.ForEach(session.Rows(options.Forms), [&](TFormRow& row) {
            if (!HasTypeOfItsOwn(session, options, row)) return;
            const std::string former = row.Component.ClassName;
            ChangeTmlLangType(context, {&row}, className);
            if (row.Component.ClassName == className) formers.emplace_back(&row, former);
        });
        scope->Commit();
    });
    program.HasWritten = true;
    for (const auto& [row, former] : formers)
        PrintType(program, *row, former);
    return session.ExitCode();
}

}  // namespace

void AddChangeTypeCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TTypeOptions>();
    CLI::App* command = AddFormOptions(
        AddCommand(app, "change-type", "Give the localization components of forms another class",
                   "  tmllang change-type Orchard.dproj TmlLangRTSE --form MainForm\n"
                   "  tmllang change-type Orchard.dproj TmlLang"),
        *options);
    command->add_option("CLASS", options->ClassName, "A class of localization components")->required();
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return RunChangeType(shared, *options); };
    });
}

void AddRenameIDCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TRenameOptions>();
    CLI::App* command =
        AddCommand(app, "rename-id", "Give a string another ID, in its component and in all that asks for it",
                   "  tmllang rename-id Orchard.dproj --form MainForm IDS_7 IDS_READY\n"
                   "  tmllang rename-id Orchard.dproj --form MainForm IDS_7 IDS_READY --unit Main");
    command->add_option("PROJECT", options->Project, "A project file")->required();
    command->add_option("--form", options->Form, "The form whose component has the string")->required();
    command->add_option("OLD", options->OldID, "The ID that it has")->required();
    command->add_option("NEW", options->NewID, "The ID that it gets")->required();
    command
        ->add_option("--unit", options->Units,
                     "Only the uses in this unit follow, the others are listed; may be repeated")
        ->allow_extra_args(false);
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return RunRename(shared, *options); };
    });
}

}  // namespace tml
