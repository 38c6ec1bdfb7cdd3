#include "base/Errors.h"
#include "support/Memoryfiles.h"
#include "translations/Projectsettings.h"

namespace tml {
namespace {

const std::string kFile = "/p/Demo.mlproj";

TEST(Projectsettings, AreAFileOfOptionsThatKeepsEverythingElse) {
    TMemoryFileSystem files;
    files.Files[kFile] =
        "; mine\n[Other]\nDispatcherForm=no\n[settings]\nforeign=1\ndispatcherform = Main\n\n[Z]\n";
    TmlLangProjectSettings settings(files);
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
    TmlLangProjectSettings settings(files);
    EXPECT_THROW(settings.SaveFile(), EBadInput);
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

}  // namespace
}  // namespace tml
