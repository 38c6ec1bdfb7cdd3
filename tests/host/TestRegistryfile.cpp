#include <gtest/gtest.h>

#include "base/Errors.h"
#include "core/Settings.h"
#include "host/Registryfile.h"
#include "support/Memoryfiles.h"
#include "support/Wrappedfiles.h"

namespace tml {
namespace {

const std::string kKey = "\\Software\\Velmora\\TmlLang\\ExpSettings";

TEST(Registryfile, ValuesOfEveryKindSurvive) {
    TMemoryFileSystem files;
    TRegistryFile registry(files, "/home/config/settings");
    const std::string texts[] = {"", "ends in a blank ", "quote \" slash \\ \\n", "two\r\nlines\t\x01",
                                 "\xD0\xAF = \"x\""};
    for (const std::string& text : texts) {
        registry.WriteString(kKey, "Text", text);
        EXPECT_EQ(registry.ReadString(kKey, "tEXT"), text);
    }
    registry.WriteInteger(kKey, "Number", -5);
    registry.WriteBool(kKey, "Switch", true);
    registry.WriteString("\\Software\\Velmora\\TmlLang", "Delimiter", "~!@#$");
    EXPECT_EQ(registry.ReadInteger(kKey, "Number"), -5);
    EXPECT_EQ(registry.ReadString(kKey, "Number"), "-5");
    EXPECT_EQ(registry.ReadBool(kKey, "Switch"), true);
    EXPECT_EQ(registry.ReadString(kKey, "Switch"), "1");
    EXPECT_EQ(registry.ReadInteger(kKey, "Text"), std::nullopt);
    EXPECT_EQ(registry.ReadString(kKey, "Delimiter"), std::nullopt);
}

TEST(Registryfile, APassOfReadsOpensTheFileOnce) {
    TMemoryFileSystem memory;
    TLoggingFileSystem files(memory);
    TRegistryFile registry(files, "/c/s");
    TExpertSettings settings(registry, {"TmlLang"});
    settings.SetHCPrefix("S_");
    files.Log.clear();
    TExpertSettings read(registry, {"TmlLang"});
    read.ReadSettings();
    EXPECT_EQ(read.Get().HCPrefix, "S_");
    EXPECT_EQ(files.Log, (std::vector<std::string>{"Stat /c/s", "Read /c/s"}));
}

TEST(Registryfile, EverythingElseStaysAndBrokenLinesRefuseWrites) {
    TMemoryFileSystem files;
    std::string& text = files.Files["/c/s"];
    text = "# mine\r\n[\\a\\b]\r\n\"One\" = integer 1\r\nunknown line\r\n\r\n[\\c]\r\n\"One\" = integer 3";
    TRegistryFile registry(files, "/c/s");
    registry.WriteInteger("A\\B", "One", 2);
    registry.WriteString("\\a\\b", "Two", "x");
    registry.WriteBool("\\c", "New", false);
    EXPECT_EQ(text,
              "# mine\r\n[\\a\\b]\r\n\"One\" = integer 2\r\nunknown line\r\n\"Two\" = string \"x\"\r\n\r\n"
              "[\\c]\r\n\"One\" = integer 3\r\n\"New\" = bool false\r\n");
    for (const std::string broken :
         {"\"Bad\" = integer x", "\"Bad\" = string \"open", "[key", "\"Bad\" = date 1"}) {
        text = "[\\a]\n" + broken + "\n\"Good\" = integer 1\n";
        EXPECT_EQ(registry.ReadInteger("\\a", "Good"), 1) << broken;
        EXPECT_EQ(registry.ReadString("\\a", "Bad"), std::nullopt) << broken;
        try {
            registry.WriteInteger("\\a", "Good", 2);
            ADD_FAILURE() << broken;
        } catch (const EBadInput& error) {
            EXPECT_EQ(error.Line(), 2);
        }
    }
}

}  // namespace
}  // namespace tml
