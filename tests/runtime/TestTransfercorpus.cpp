// The forms of the package lazarus-src: update, save, clear and load leave every byte of a form as it was.
#include <filesystem>
#include <gtest/gtest.h>

#include "base/Errors.h"
#include "core/Modules.h"
#include "ide/Headlesside.h"
#include "runtime/Runtime.h"
#include "support/Corpora.h"
#include "support/Memoryfiles.h"
#include "tables/Textmerge.h"

namespace tml {
namespace {

/// The class of a form; "" for what is no text.
std::string ClassInFile(const std::string& form) {
    const std::string head = form.substr(0, form.find_first_of("\r\n"));
    const std::size_t colon = head.find(": ");
    const bool isForm = head.starts_with("object ") || head.starts_with("inherited ");
    return isForm && colon != std::string::npos ? head.substr(colon + 2) : "";
}

/// One form in a project of its own.
struct TOneForm {
    TOneForm(const std::string& form, const std::string& className) {
        Files.Files["/p/P.dpr"] =
            "program P;\nuses Forms, U in 'U.pas' {" + className.substr(1) + "};\nbegin\nend.\n";
        Files.Files["/p/U.pas"] = "unit U;\ninterface\nuses Forms;\ntype\n  " + className +
                                  " = class(TForm)\n  end;\nimplementation\n{$R *.lfm}\nend.\n";
        Files.Files["/p/U.lfm"] = form;
        Ide.OpenProject("/p/P.dpr");
    }

    /// With three languages, filled and translated.
    std::shared_ptr<TmlCustomLang> Localized() {
        const auto editor = Ide.GetModuleServices()->OpenModule("/p/U.pas", false)->GetFormEditor();
        auto lang =
            Runtime->AsCustomLang(editor->CreateComponent(nullptr, "TmlLang", 0, 0, 0, 0, "mlLangTested"));
        lang->SetNumLang(3);
        lang->SetLangNames(TStringList({"English", "German", "Hebrew"}));
        lang->BuildList();
        std::vector<TTable> tables = lang->GetTables();
        for (TTable& table : tables)
            for (int i = 0; i < static_cast<int>(table.Entries().size()); ++i)
                Translate(table, i);
        lang->SetTables(tables);
        return lang;
    }
    void Translate(TTable& table, int i) {
        if (!HasStates(table.Type())) return;
        const std::string base = table.Entries()[static_cast<std::size_t>(i)].Base();
        table.SetText(i, 2, "\xC3\x9C" + base + "~!@#$\r\n=");
        if (i % 2 == 0) table.SetText(i, 3, " [" + base);
        if (i % 3 == 0) table.SetMark(i, 2, TValueMark::Stale, "; " + base);
        if (i % 5 == 1) table.SetMark(i, 3, TValueMark::Same);
        Texts += 2;
    }
    std::string Bytes() {
        Ide.SaveAll();
        return Files.Files["/p/U.lfm"];
    }

    TMemoryFileSystem Files;
    std::unique_ptr<IMlRuntime> Runtime = MakeMlRuntime();
    THeadlessIde Ide{Files, *Runtime};
    int Texts = 0;
};

TEST(Transfercorpus, WhatIsSavedClearedAndLoadedIsWhatItWas) {
    int forms = 0, texts = 0;
    for (const auto& path : PartOf(FilesBelow("/usr/lib/lazarus", {".lfm"}), 20)) {
        const std::string form = ReadFileOf(path);
        const std::string className = ClassInFile(form);
        if (!className.starts_with("T")) continue;
        TOneForm one(form, className);
        const auto lang = one.Localized();
        const std::string before = one.Bytes();
        const std::string file = ++forms % 2 == 0 ? "/p/t.mll" : "/p/t.mlb";
        lang->SaveAllToFile(file, "~!@#$");
        lang->ClearTranslations();
        EXPECT_TRUE(one.Texts == 0 || one.Bytes() != before) << path;
        lang->LoadAllFromFile(file);
        ASSERT_EQ(one.Bytes(), before) << path;
        texts += one.Texts;
    }
    EXPECT_GT(texts, forms) << "the corpus is missing: install lazarus-src";
}

TEST(Transfercorpus, TheExampleIsWhatItWasThoughItsTablesAreInAnOrderOfTheirOwn) {
    const std::filesystem::path example = TML_TESTS "/../examples/harbour";
    TMemoryFileSystem files;
    for (const auto& path : FilesBelow(example.c_str(), {".lpi", ".lpr", ".pas", ".lfm", ".mll"}))
        files.Files["/p/" + path.lexically_relative(example).generic_string()] = ReadFileOf(path);
    const auto before = files.Files;
    const auto runtime = MakeMlRuntime();
    THeadlessIde ide(files, *runtime);
    ide.OpenProject("/p/Harbour.lpi");
    const auto project = ide.GetModuleServices()->GetActiveProject();
    int cleared = 0;
    for (int i = 0; i < project->GetModuleCount(); ++i) {
        const auto module = ide.GetModuleServices()->OpenModule(project->GetModule(i).FileName, false);
        const auto editor = module->GetFormEditor();
        const auto lang = editor == nullptr ? nullptr : FindCustomLang(*runtime, *editor);
        if (lang == nullptr) continue;
        lang->ClearTranslations();
        cleared += module->GetModified() ? 1 : 0;
        lang->LoadAllFromFile("/p/Harbour.mll");
    }
    ide.SaveAll();
    EXPECT_GT(cleared, 4);
    EXPECT_EQ(files.Files, before);
}

}  // namespace
}  // namespace tml
