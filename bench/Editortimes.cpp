// bench-editor ENTRIES: works in the translation editor on a form with so many strings in four languages, and
// prints the milliseconds of processor time for each step: opening, showing what is missing, what is stale,
// what equals the base text, a text in any column, a regular expression, everything again, one edit, going to
// the next untranslated text, translating equal texts, taking that back, and writing.
#include <ctime>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <string>

#include "base/Diskfiles.h"
#include "host/Commonlibrary.h"
#include "ide/Headlesside.h"
#include "platform/Dialogs.h"
#include "runtime/Mltranseditor.h"
#include "runtime/Runtime.h"

namespace tml::bench {
namespace {

namespace fs = std::filesystem;

/// Nobody is asked; the window is worked on.
class TUser : public IDialogs {
  public:
    explicit TUser(std::function<void(TfrmTransEditor&)> work) : work_(std::move(work)) {}

    TModalResult MessageDlg(const std::string&, TMsgDlgType, const TMsgDlgButtons&) override { return mrOk; }
    bool InputQuery(const std::string&, const std::string&, std::string&) override { return false; }
    TModalResult ShowModal(TForm& form) override {
        work_(dynamic_cast<TfrmTransEditor&>(form));
        return form.ModalResult;
    }
    void Show(TForm&) override {}
    bool ShowProgress(const std::string&, int, int) override { return true; }
    void HideProgress() override {}

  private:
    std::function<void(TfrmTransEditor&)> work_;
};

std::string LineOf(int number) {
    const std::string text = std::to_string(number / 2);
    const std::string german = number % 3 == 0 ? "" : "Der Preis der Bestellung " + text;
    const std::string hebrew = number % 5 == 0 ? "The price of order " + text : "מחיר הזמנה " + text;
    return "      'IDS_" + std::to_string(number) + "'#1'The price of order " + text + "'#1'" + german +
           "'#1'Le prix de la commande " + text + "'#1'" + hebrew + "'\n";
}

/// The folder of a project with one form.
fs::path MakeProject(int entries) {
    const fs::path folder = fs::temp_directory_path() / "tmllang-bench-editor";
    fs::create_directories(folder);
    std::ofstream(folder / "P.dpr")
        << "program P;\nuses Forms, Main in 'Main.pas' {MainForm};\nbegin\nend.\n";
    std::ofstream(folder / "Main.pas") << "unit Main;\ninterface\nuses Forms, Mllang;\ntype\n  TMainForm = "
                                          "class(TForm)\n    mlLang1: TmlLang;\n"
                                          "  end;\nimplementation\n{$R *.lfm}\nend.\n";
    std::ofstream form(folder / "Main.lfm");
    form << "object MainForm: TMainForm\n  object mlLang1: TmlLang\n    NumOfLanguages = 4\n    "
            "LangNames.Strings "
            "= (\n      'English'\n      'German'\n      'French'\n      'Hebrew'\n    )\n    "
            "Strings.Strings = (\n";
    for (int i = 0; i < entries; ++i)
        form << LineOf(i);
    form << "    )\n  end\nend\n";
    return folder;
}

class TWatch {
  public:
    /// Prints the time since the last call.
    void Lap() {
        const std::clock_t now = std::clock();
        std::cout << " " << 1000 * (now - begin_) / CLOCKS_PER_SEC;
        begin_ = std::clock();
    }

  private:
    std::clock_t begin_ = std::clock();
};

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

void Run(int entries, const std::string& library) {
    const fs::path folder = MakeProject(entries);
    const auto files = MakeDiskFileSystem();
    const auto common = MakeCommonLibraryLoader(library);
    const auto runtime = MakeMlRuntime();
    THeadlessIde ide(*files, *runtime);
    ide.OpenProject((folder / "P.dpr").string());
    const auto module = ide.GetModuleServices()->OpenModule((folder / "Main.pas").string(), false);
    const auto lang = runtime->AsCustomLang(module->GetFormEditor()->FindComponent("mlLang1"));
    TWatch watch;
    TUser user([&](TfrmTransEditor& editor) { Work(editor, watch); });
    runtime->Dialogs = &user;
    runtime->CommonLibrary = common.get();
    runtime->TransEditorDlg(*lang, {.IsLast = true}, {});
    std::cout << "\n";
    fs::remove_all(folder);
}

}  // namespace
}  // namespace tml::bench

int main(int argc, char** argv) {
    try {
        const std::string program = argc == 2 ? argv[0] : "";
        tml::bench::Run(std::stoi(argc == 2 ? argv[1] : ""), tml::FolderOf(program) + "/TmlLang_Common.so");
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "bench-editor: " << error.what() << "\n";
        return 2;
    }
}
