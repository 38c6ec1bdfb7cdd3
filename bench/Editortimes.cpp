// bench-editor FORMS ENTRIES: works in the translation editor on so many forms, each with so many strings in
// four languages, and prints two numbers of milliseconds of processor time for each step: until it is done,
// and until the person sees something, be it the outcome or how far it is. The steps: opening, showing what
// is missing, what is stale, what equals the base text, a text in any column, a regular expression,
// everything again, one edit, going to the next untranslated text, translating equal texts, taking that back,
// and writing.
#include <ctime>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "base/Diskfiles.h"
#include "host/Commonlibrary.h"
#include "ide/Headlesside.h"
#include "platform/Dialogs.h"
#include "runtime/Mltranseditor.h"
#include "runtime/Runtime.h"

namespace tml::bench {
namespace {

namespace fs = std::filesystem;

/// The processor time of a step.
class TWatch {
  public:
    double Elapsed() const { return 1000.0 * static_cast<double>(std::clock() - begin_) / CLOCKS_PER_SEC; }
    /// The step tells how far it is; as a person sees it, who is not shown what takes no time.
    void Tell() {
        constexpr double kSilence = 80;
        if (told_ < 0) told_ = Elapsed();
        if (seen_ < 0 && Elapsed() - told_ >= kSilence) seen_ = Elapsed();
    }
    /// Ends a step and begins the next one.
    void Lap() {
        const double done = Elapsed();
        std::cout << " " << done << " " << (seen_ < 0 ? done : seen_);
        begin_ = std::clock();
        told_ = seen_ = -1;
    }

  private:
    std::clock_t begin_ = std::clock();
    double told_ = -1;
    double seen_ = -1;
};

/// Nobody is asked; the window is worked on.
class TUser : public IDialogs {
  public:
    TUser(TWatch& watch, std::function<void(TfrmTransEditor&)> work)
        : watch_(watch), work_(std::move(work)) {}

    TModalResult MessageDlg(const std::string&, TMsgDlgType, const TMsgDlgButtons&) override { return mrOk; }
    bool InputQuery(const std::string&, const std::string&, std::string&) override { return false; }
    TModalResult ShowModal(TForm& form) override {
        work_(dynamic_cast<TfrmTransEditor&>(form));
        return form.ModalResult;
    }
    void Show(TForm&) override {}
    bool ShowProgress(const std::string&, int, int) override {
        watch_.Tell();
        return true;
    }
    void HideProgress() override {}

  private:
    TWatch& watch_;
    std::function<void(TfrmTransEditor&)> work_;
};

std::string LineOf(int number) {
    const std::string text = std::to_string(number / 2);
    const std::string german = number % 3 == 0 ? "" : "Der Preis der Bestellung " + text;
    const std::string hebrew = number % 5 == 0 ? "The price of order " + text : "מחיר הזמנה " + text;
    return "      'IDS_" + std::to_string(number) + "'#1'The price of order " + text + "'#1'" + german +
           "'#1'Le prix de la commande " + text + "'#1'" + hebrew + "'\n";
}

std::string UnitOf(const std::string& number) {
    return "unit Main" + number + ";\ninterface\nuses Forms, Mllang;\ntype\n  TForm" + number +
           " = class(TForm)\n    mlLang1: TmlLang;\n  end;\nimplementation\n{$R *.lfm}\nend.\n";
}

/// The folder of a project.
fs::path MakeProject(int forms, int entries) {
    const fs::path folder = fs::temp_directory_path() / "tmllang-bench-editor";
    fs::create_directories(folder);
    std::ofstream program(folder / "P.dpr");
    program << "program P;\nuses Forms";
    for (int i = 0; i < forms; ++i) {
        const std::string number = std::to_string(i);
        program << ", Main" << number << " in 'Main" << number << ".pas' {Form" << number << "}";
        std::ofstream(folder / ("Main" + number + ".pas")) << UnitOf(number);
        std::ofstream form(folder / ("Main" + number + ".lfm"));
        form << "object Form" << number << ": TForm" << number
             << "\n  object mlLang1: TmlLang\n    NumOfLanguages = 4\n    LangNames.Strings = (\n      "
                "'English'\n      'German'\n      'French'\n      'Hebrew'\n    )\n    "
                "Strings.Strings = (\n";
        for (int entry = 0; entry < entries; ++entry)
            form << LineOf(i * entries + entry);
        form << "    )\n  end\nend\n";
    }
    program << ";\nbegin\nend.\n";
    return folder;
}

void Work(TfrmTransEditor& editor, TWatch& watch) {
    watch.Lap();
    const TTransFilter filters[] = {{TTransShow::Missing},
                                    {TTransShow::Stale},
                                    {TTransShow::SameAsBase},
                                    {TTransShow::All, {}, "order 999"},
                                    {TTransShow::All, {}, "order 99+$", true},
                                    {}};
    for (const TTransFilter& filter : filters) {
        editor.SetFilter(filter);
        watch.Lap();
    }
    const int last = editor.Grid().Count() - 1;
    editor.SetText(last, 2, "Der letzte Preis");
    watch.Lap();
    editor.acNextUntranslated();
    watch.Lap();
    editor.SetCurrent(1, 2);
    editor.Select({1, last, 2, 2});
    editor.acTranslateEqual();
    watch.Lap();
    editor.acUndo();
    watch.Lap();
    editor.btnOKClick();
    watch.Lap();
}

void Run(int forms, int entries, const std::string& library) {
    const fs::path folder = MakeProject(forms, entries);
    const auto files = MakeDiskFileSystem();
    const auto common = MakeCommonLibraryLoader(library);
    const auto runtime = MakeMlRuntime();
    THeadlessIde ide(*files, *runtime);
    ide.OpenProject((folder / "P.dpr").string());
    std::vector<std::shared_ptr<TmlCustomLang>> langs;
    std::vector<TmlCustomLang*> shown;
    for (int i = 0; i < forms; ++i) {
        const std::string unit = (folder / ("Main" + std::to_string(i) + ".pas")).string();
        const auto module = ide.GetModuleServices()->OpenModule(unit, false);
        langs.push_back(runtime->AsCustomLang(module->GetFormEditor()->FindComponent("mlLang1")));
        shown.push_back(langs.back().get());
    }
    TWatch watch;
    TUser user(watch, [&](TfrmTransEditor& editor) { Work(editor, watch); });
    runtime->Dialogs = &user;
    runtime->CommonLibrary = common.get();
    runtime->TransEditorForms(shown, {.IsLast = true}, {});
    std::cout << "\n";
    fs::remove_all(folder);
}

}  // namespace
}  // namespace tml::bench

int main(int argc, char** argv) {
    try {
        if (argc != 3) throw std::invalid_argument("FORMS ENTRIES");
        tml::bench::Run(std::stoi(argv[1]), std::stoi(argv[2]),
                        tml::FolderOf(argv[0]) + "/TmlLang_Common.so");
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "bench-editor: " << error.what() << "\n";
        return 2;
    }
}
