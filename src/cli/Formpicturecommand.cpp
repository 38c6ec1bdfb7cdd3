#include "cli/Formpicturecommand.h"

#include <charconv>
#include <iostream>
#include <memory>
#include <sstream>

#include "base/Errors.h"
#include "base/Format.h"
#include "cli/Childprogram.h"
#include "cli/Formoptions.h"
#include "cli/Terminal.h"
#include "core/Modules.h"
#include "host/Commonlibrary.h"
#include "layout/Formlayout.h"
#include "layout/Nodetext.h"
#include "runtime/Shownform.h"

namespace tml {
namespace {

#ifdef _WIN32
constexpr const char* kDrawProgram = "tmllang-draw-form.exe";
#else
constexpr const char* kDrawProgram = "tmllang-draw-form";
#endif

struct TPictureOptions {
    std::string Project;
    std::string Form;
    std::string Language;  ///< "" for the form as it stands
    bool Dark = false;
    double Scale = 1;
};

/// What is wrong with a factor, "" for nothing.
std::string CheckScale(const std::string& text) {
    double scale = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), scale);
    const bool isWhole = read.ec == std::errc() && read.ptr == text.data() + text.size();
    return isWhole && scale >= 0.1 && scale <= 10 ? ""
                                                  : "a form is drawn 0.1 to 10 times as large, not " + text;
}

/// The form's file with all that it inherits, in the language.
std::string ShownText(TSession& session, const TPictureOptions& options, const TFormRow& row) {
    IOTAFormEditor& editor = *GetFormEditor(session.Context(), row.FormName);
    const auto lang = FindCustomLang(*session.Context().Host.Runtime, editor);
    if (!options.Language.empty() && lang == nullptr)
        throw EBadInput(row.FileName, 0, "the form has no localization component",
                        "Leave out --language, or put one on it by \"tmllang insert\"");
    const int place = options.Language.empty() ? 0 : PlaceOfLanguage(*lang, row, options.Language);
    return FormTextOf(
        TShownForm(*session.Context().Host.Runtime, editor.GetRootComponent(), lang.get()).In(place));
}

std::vector<std::string> ArgumentsOf(const TPictureOptions& options, const std::string& formFile) {
    std::vector<std::string> arguments = {"--scale=" + std::to_string(options.Scale)};
    if (LookOf(formFile) == TLayoutLook::Vcl) arguments.emplace_back("--vcl");
    if (options.Dark) arguments.emplace_back("--dark");
    return arguments;
}

std::string DrawProgram(TProgram& program) {
    std::string path = CompanionPath(*program.Files, ProgramFolder(), kDrawProgram);
    if (program.Files->Stat(path)) return path;
    throw EBadInput("", 0, Format("the program %s, which draws forms, is not there", kDrawProgram),
                    "Install TmlLang Expert whole, with its part that needs Qt");
}

/// What was said of the picture is told; EBadInput where there is none.
std::string PictureFrom(const TChildRun& run, const TFormRow& row) {
    std::istringstream lines(run.Errors);
    std::string last;
    for (std::string line; std::getline(lines, line); last = line)
        if (!last.empty()) PrintMessage(EBadInput(row.FileName, 0, last).what());
    if (run.Exit != 0)
        throw EBadInput(row.FileName, 0, "the form cannot be drawn" + (last.empty() ? "" : ": " + last));
    if (!last.empty()) PrintMessage(EBadInput(row.FileName, 0, last).what());
    return run.Output;
}

int RunFormPicture(TProgram& program, const TPictureOptions& options) {
    if (IsTerminal(TStream::Output))
        throw EBadInput("", 0, "a picture would be written to the terminal", "Say > FILE behind the command");
    TSession session(program, options.Project);
    session.ForEach({session.Rows({options.Form}).front()}, [&](TFormRow& row) {
        const TModuleLease lease(session.Context(), row.FileName);
        if (!TestForCorrectForm(session.Context(), row)) return;
        const std::string formFile = GetFormEditor(session.Context(), row.FormName)->GetFileName();
        const std::string text = ShownText(session, options, row);
        std::cout << PictureFrom(RunChild(DrawProgram(program), ArgumentsOf(options, formFile), text), row);
    });
    return session.ExitCode();
}

}  // namespace

void AddFormPictureCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TPictureOptions>();
    CLI::App* command = AddCommand(
        app, "form-picture", "Draw a form, as a PNG on standard output",
        "  tmllang form-picture Orchard.dproj MainForm > Main.png\n"
        "  tmllang form-picture Orchard.dproj MainForm --language German --dark --scale 2 > Main.png");
    command->add_option("PROJECT", options->Project, "A project file")->required();
    command->add_option("FORM", options->Form, "Name of the form")->required();
    command->add_option("--language", options->Language, "In this language; as the form stands without it");
    command->add_flag("--dark", options->Dark, "In dark colours");
    command->add_option("--scale", options->Scale, "So many times as large")
        ->check(CLI::Validator(CheckScale, ""))
        ->type_name("FACTOR");
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return RunFormPicture(shared, *options); };
    });
}

}  // namespace tml
