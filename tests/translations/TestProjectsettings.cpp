#include "base/Errors.h"
#include "support/Memoryfiles.h"
#include "support/Memoryregistry.h"
#include "support/Scripteduser.h"
#include "support/Wrappedfiles.h"
#include "translations/Projectsettings.h"
#include "translations/Projectsettingsform.h"
#include "windows/Filedialogs.h"

namespace tml {
namespace {

const std::string kFile = "/p/Demo.mlproj";

struct TProject {
    explicit TProject(IFileSystem& files) {
        Context.Host.Files = &files;
        Context.Host.Dialogs = &User;
    }
    TMemoryRegistry Registry;
    TScriptedUser User;
    TExpertSettings Settings{Registry, {"TmlLang"}};
    TContext Context{THost(), Settings};
};

TEST(Projectsettings, AreAFileOfOptionsThatKeepsEverythingElse) {
    TMemoryFileSystem files;
    files.Files[kFile] =
        "; mine\n[Other]\nDispatcherForm=no\n[settings]\nforeign=1\ndispatcherform = Main\n\n[Z]\n";
    TProject project(files);
    TmlLangProjectSettings settings(project.Context);
    settings.SetFileName(kFile);
    EXPECT_EQ(std::get<std::string>(settings.GetOptionValue("DISPATCHERFORM")), "Main");
    EXPECT_FALSE(settings.GetIsChanged());
    settings.SetOptionValue("DispatcherForm", std::string("Form=2"));
    settings.SetOptionValue("DictionaryIgnoreCase", true);
    EXPECT_TRUE(std::get<bool>(settings.GetOptionValue("dictionaryignorecase")));
    EXPECT_TRUE(settings.GetIsChanged());
    settings.SaveFile();
    EXPECT_FALSE(settings.GetIsChanged());
    EXPECT_EQ(files.Files[kFile],
              "; mine\n[Other]\nDispatcherForm=no\n[settings]\nforeign=1\nDispatcherForm=Form=2\n"
              "DictionaryIgnoreCase=1\n\n[Z]\n");
}

TEST(Projectsettings, AMissingFileReadsAsDefaultsAndIsMadeByTheFirstSave) {
    TMemoryFileSystem files;
    files.Files["/p/x"] = "";
    TProject project(files);
    TmlLangProjectSettings settings(project.Context);
    EXPECT_THAT([&] { settings.SaveFile(); },
                testing::ThrowsMessage<EBadInput>("Storage file not initialized!"));
    settings.SetFileName(kFile);
    EXPECT_EQ(settings.GetOptionValue("DefaultDictionary"), TOptionValue(std::string()));
    EXPECT_EQ(settings.GetOptionValue("DontAskForDictionary"), TOptionValue(false));
    EXPECT_EQ(settings.GetOptionValue("Unknown"), TOptionValue(std::string()));
    settings.SetOptionValue("Unknown", std::string("x"));
    EXPECT_TRUE(settings.GetIsChanged());
    settings.SetOptionValue("DefaultDictionary", std::string("\xC3\xA9.dic"));
    settings.SetOptionValue("DontAskForDictionary", std::string("True"));
    EXPECT_THROW(settings.SetOptionValue("DictionaryForceEmpties", std::string("perhaps")), EConvertError);
    EXPECT_THROW(settings.SetOptionValue("DispatcherForm", std::string("a\nb")), EBadInput);
    settings.SaveFile();
    EXPECT_EQ(files.Files[kFile],
              "[Settings]\r\nDefaultDictionary=\xC3\xA9.dic\r\nDontAskForDictionary=1\r\n");
}

TEST(Projectsettings, AFileThatSomebodyElseChangedOrProtectsIsNotOverwritten) {
    TMemoryFileSystem files;
    files.Files["/p/x"] = "";
    TProject project(files);
    TmlLangProjectSettings settings(project.Context);
    settings.SetFileName("/p/q/../Demo.mlproj");
    settings.SetOptionValue("DispatcherForm", std::string("A"));
    settings.SaveFile();
    settings.SetOptionValue("DispatcherForm", std::string("B"));
    files.ReadOnlyFiles = {kFile};
    EXPECT_THROW(settings.SaveFile(), EFileError);
    files.ReadOnlyFiles = {};
    settings.SaveFile();
    EXPECT_EQ(files.Files[kFile], "[Settings]\r\nDispatcherForm=B\r\n");
    files.Files[kFile] = "[Settings]\r\n";
    EXPECT_THROW(settings.SaveFile(), EFileError);
    EXPECT_EQ(files.Files[kFile], "[Settings]\r\n");
}

TEST(Projectsettings, TheWindowWritesEveryOptionBack) {
    TMemoryFileSystem files;
    files.Files["/p/d.dix"] = "<X>\n<HEAD>\n<LANGUAGE>German</LANGUAGE>\n</HEAD>\n<LANGUAGE>no</LANGUAGE>\n";
    files.Files["/p/d.DIC"] = "\x01\x02";
    files.Files["/p/old.dix"] =
        "<HEAD>\n<LANGUAGE>Fran\xE7"
        "ais</LANGUAGE>\n";
    files.Files[kFile] = "[Settings]\nDispatcherForm=gone\nDefaultFormForUnits=MAIN\n";
    TProject project(files);
    for (const char* form : {"Main", "About"})
        project.Context.Rows.FormNames.Add(form, form, form);
    TmlLangProjectSettings settings(project.Context);
    settings.SetFileName(kFile);
    project.User.OnWindow<TfrmProjectTranslationSettings>(
        "frmProjectTranslationSettings", [](TfrmProjectTranslationSettings& window) {
            EXPECT_TRUE(window.ckbAskForDictionary);
            EXPECT_FALSE(window.ckbCaseSensitive);
            EXPECT_EQ(window.cbDefFormForUnits.Text(), "Main");
            EXPECT_EQ(window.cbDefFormForDispatcher.ItemIndex, -1);
            window.ChooseDictionary();
            EXPECT_EQ(window.DictionaryLanguages, TStringList({"German</LANGUAGE>"}));
            EXPECT_EQ(window.DictionaryNote, "");
            window.cbDefaultLanguageChange("German");
            EXPECT_TRUE(window.LanguageWarning);
            window.edDefaultDictionaryChange("/p/missing.dic");
            EXPECT_EQ(window.DictionaryLanguages.Count(), 1) << "a file that is not there changes nothing";
            window.edDefaultDictionaryChange("/p/d.DIC");
            EXPECT_TRUE(window.DictionaryLanguages.Empty());
            EXPECT_EQ(window.DictionaryNote, "What languages a .dic file has is not known here.");
            EXPECT_FALSE(window.LanguageWarning);
            window.edDefaultDictionaryChange("old.dix");
            EXPECT_EQ(window.DictionaryLanguages, TStringList({"Fran\xC3\xA7"
                                                               "ais</LANGUAGE>"}))
                << "beside the project";
            window.edDefaultDictionaryChange("/p/d.dix");
            window.ckbCaseSensitive = true;
            window.ChooseTranslationFile();
            window.btOKClick();
        });
    for (const char* file : {"/p/d.dix", "/p/t.mlb"})
        project.User.OnWindow<TOpenDialog>("odSelectFile", [file](TOpenDialog& dialog) {
            EXPECT_TRUE(dialog.Filter.starts_with(ExtensionOf(file) == ".dix" ? "Dictionaries" : "TmlLang"));
            dialog.Files = {file};
            dialog.ModalResult = mrOk;
        });
    settings.DisplayEditDialog();
    EXPECT_EQ(files.Files[kFile],
              "[Settings]\nDispatcherForm=\nDefaultFormForUnits=Main\nDefaultDictionary=/p/d.dix\n"
              "DictionaryBaseLanguage=German\nDontAskForDictionary=0\nDictionaryIgnoreCase=1\n"
              "DictionarySkipAmpersands=0\nDictionaryParseMultilines=0\nDictionaryOverwriteExisting=0\n"
              "DictionaryForceEmpties=0\nDefaultTranslationFileName=/p/t.mlb\nCommonContainerForm=\n");
}

TEST(Projectsettings, AnOKThatCannotSaveChangesNoOption) {
    TMemoryFileSystem files;
    const std::string stored = "[Settings]\nDispatcherForm=gone\n";
    files.Files[kFile] = stored;
    TProject project(files);
    TmlLangProjectSettings settings(project.Context);
    settings.SetFileName(kFile);
    for (const bool isChanged : {false, true}) {
        if (isChanged) settings.SetOptionValue("CommonContainerForm", std::string("Main"));
        for (const std::string translations : {"a.mll", "a\nb.mll"}) {
            files.ReadOnlyFiles = {kFile};
            TfrmProjectTranslationSettings window(project.Context, settings);
            window.edDefaultDictionaryChange("d.dix");
            window.edDefTranslationFile = translations;
            EXPECT_THROW(window.btOKClick(), EBadInput);
            EXPECT_EQ(window.ModalResult, mrNone) << "the window stays open";
            window.btCancelClick();
            EXPECT_EQ(settings.GetOptionValue("DefaultDictionary"), TOptionValue(std::string()));
            EXPECT_EQ(settings.GetOptionValue("DispatcherForm"), TOptionValue(std::string("gone")));
            EXPECT_EQ(settings.GetIsChanged(), isChanged);
        }
    }
    files.ReadOnlyFiles = {};
    settings.SaveFile();
    EXPECT_EQ(files.Files[kFile], stored + "CommonContainerForm=Main\n") << "what others have set stays";
}

TEST(Projectsettings, ADictionaryThatCannotBeReadDoesNotBarTheWindow) {
    struct TUnreadable : TWrappedFileSystem {
        using TWrappedFileSystem::TWrappedFileSystem;
        void Before(const std::string& call, const std::string& path) override {
            if (call == "Read" && path == "/p/d.dix") throw EFileError(path, 0, "cannot be read");
        }
    };
    TMemoryFileSystem memory;
    memory.Files["/p/d.dix"] = "";
    memory.Files[kFile] = "[Settings]\nDefaultDictionary=/p/d.dix\nDictionaryBaseLanguage=Greek\n";
    TUnreadable files(memory);
    TProject project(files);
    TmlLangProjectSettings settings(project.Context);
    settings.SetFileName(kFile);
    project.User.OnMessage("/p/d.dix: cannot be read");
    const TfrmProjectTranslationSettings window(project.Context, settings);
    EXPECT_EQ(window.edDefaultDictionary, "/p/d.dix");
    EXPECT_EQ(window.cbDefaultLanguage, "Greek");
}

}  // namespace
}  // namespace tml
