#include "cli/Formscommand.h"

#include <algorithm>
#include <iostream>
#include <memory>

#include "base/Utf8.h"
#include "cli/Jsonlines.h"
#include "cli/Session.h"
#include "cli/Shownpath.h"

namespace tml {
namespace {

void PrintJson(TContext& context) {
    for (const auto& row : context.Rows.FormNames.Items()) {
        TJsonLine(std::cout)
            .Text("form", row->FormName)
            .Text("unit", row->UnitName)
            .Text("file", row->FileName)
            .Number("languages", row->Component.NumLang)
            .Text("component", row->Component.ComponentName)
            .Text("class", row->Component.ClassName);
    }
    TJsonLine(std::cout).Texts("units", context.Project.UnitFiles);
    const auto& panels = context.Rows.StatusPanels;
    TJsonLine(std::cout).Texts("status", std::vector<std::string>(panels.begin(), panels.begin() + 3));
}

using TCells = std::vector<std::string>;

/// Columns as wide as their widest cell; the last one is not filled up.
void PrintTable(const std::vector<TCells>& rows) {
    std::vector<std::size_t> widths(rows.front().size());
    for (const TCells& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], CountCodePoints(row[i]));
    for (const TCells& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i)
            line += row[i] + std::string(widths[i] - CountCodePoints(row[i]) + 2, ' ');
        line.erase(line.find_last_not_of(' ') + 1);
        std::cout << line << "\n";
    }
}

void PrintText(TContext& context) {
    std::vector<TCells> table = {{"Form Name", "Unit Name", "File Name", "Languages", "TmlLang", "Class"}};
    for (const auto& row : context.Rows.FormNames.Items())
        table.push_back({row->FormName, row->UnitName, ShownPath(row->FileName), row->Cell(fcLanguages),
                         row->Cell(fcComponent), row->Component.ClassName});
    PrintTable(table);
    for (const std::string& unit : context.Project.UnitFiles)
        std::cout << "unit without a form: " << ShownPath(unit) << "\n";
    const auto& panels = context.Rows.StatusPanels;
    std::cout << panels[0] << "  " << panels[1] << "  " << panels[2] << "\n";
}

/// Which of the group's projects was listed, and which others there are.
void PrintGroup(const TProgram& program, IOTAProjectGroup& group) {
    if (group.GetProjectCount() < 2) return;
    const std::string shown = group.GetActiveProject()->GetFileName();
    TStringList projects;
    std::string others;
    for (int i = 0; i < group.GetProjectCount(); ++i) {
        const std::string file = group.GetProject(i)->GetFileName();
        projects.Add(file);
        if (file != shown) others += (others.empty() ? "" : ", ") + WithExtension(FileNameOf(file), "");
    }
    if (program.Json)
        TJsonLine(std::cout)
            .Text("group", group.GetFileName())
            .Text("project", shown)
            .Texts("projects", projects);
    else
        std::cout << "This is " << WithExtension(FileNameOf(shown), "") << " of "
                  << FileNameOf(group.GetFileName()) << "; say --project for " << others << "\n";
}

int RunForms(TProgram& program, const std::string& project) {
    TSession session(program, project);
    if (program.Json)
        PrintJson(session.Context());
    else
        PrintText(session.Context());
    PrintGroup(program, *session.Modules().GetMainProjectGroup());
    session.ForEach(session.Rows({}), [&](TFormRow& row) { session.ExpectReadable(row); });
    return session.ExitCode();
}

}  // namespace

void AddFormsCommand(CLI::App& app, TProgram& program) {
    CLI::App* command =
        AddCommand(app, "forms", "List the forms of a project with their components and languages",
                   "  tmllang forms Orchard.dproj\n"
                   "  tmllang forms Orchard.dpr --json");
    const auto project = std::make_shared<std::string>();
    command->add_option("PROJECT", *project, "A project file")->required();
    command->callback([&program, project] {
        program.Run = [project](TProgram& shared) { return RunForms(shared, *project); };
    });
}

}  // namespace tml
