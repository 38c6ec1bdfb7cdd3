#include <gtest/gtest.h>
#include <string>
#include <tuple>

#include "base/Errors.h"
#include "support/Growth.h"
#include "support/Memoryfiles.h"
#include "translations/Memini.h"

namespace tml {
namespace {

struct TWriteCase {
    const char* Before;
    const char* Section;
    const char* Key;
    const char* After;
};

TEST(Memini, ChangesTheLineOfTheKeyAndNoOther) {
    const TWriteCase cases[] = {
        {"", "S", "k", "[S]\r\nk=v\r\n"},
        {"\xEF\xBB\xBF", "S", "k", "\xEF\xBB\xBF[S]\r\nk=v\r\n"},
        {"; c", "S", "k", "; c\r\n[S]\r\nk=v\r\n"},
        {"[s]\n K = old \n", "S", "k", "[s]\nk=v\n"},
        {"[s]\nk=old", "S", "k", "[s]\nk=v"},
        {"[s]\n;k=no\nx\n\n \n[t]\nk=t\n", "s", "k", "[s]\n;k=no\nx\nk=v\n\n \n[t]\nk=t\n"},
        {"[ s ]\na=1\na=2\n[s]\nk=3\n", "s", "k", "[ s ]\na=1\na=2\nk=v\n[s]\nk=3\n"},
        {"[t]\na=1", "s", "k", "[t]\na=1\n[s]\nk=v\n"},
    };
    for (const TWriteCase& row : cases) {
        TMemoryFileSystem files;
        files.Files["/a.ini"] = row.Before;
        TmlMemIniFile ini(files, "/a.ini");
        ini.WriteString(row.Section, row.Key, "v");
        EXPECT_EQ(ini.ReadString("S", "K", "missing"), "v") << row.Before;
        ini.UpdateFile();
        EXPECT_EQ(files.Files["/a.ini"], row.After) << row.Before;
    }
}

TEST(Memini, AFileThatIsNotUtf8KeepsItsEncoding) {
    const std::string latin = "; Men\xFC \xE4ndern\r\n[S]\r\nd=W\xF6rter\\gr\xFC\xDF.dix\r\n";
    const std::string broken = "\xFF\xFE;xy\n[S]\nd=W\xF6rter\n";
    const std::string wide("\xFF\xFE[\0S\0]\0\n\0d\0=\0\xFC\0\n\0", 18);
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {latin, "W\xC3\xB6rter\\gr\xC3\xBC\xC3\x9F.dix", latin + "k=\xE9\r\n"},
        {broken, "W\xF6rter", broken + "k=\xC3\xA9\n"},  // of an odd length, so no UTF-16
        {wide, "\xC3\xBC", wide + std::string("k\0=\0\xE9\0\n\0", 8)},
    };
    for (const auto& [before, read, after] : cases) {
        TMemoryFileSystem files;
        files.Files["/a.ini"] = before;
        TmlMemIniFile ini(files, "/a.ini");
        EXPECT_EQ(ini.ReadString("s", "d", ""), read);
        ini.WriteString("S", "k", "\xC3\xA9");
        if (before == latin) {
            EXPECT_THROW(ini.WriteString("S", "d", "\xD0\x96.dix"), EBadInput);
        }
        ini.UpdateFile();
        EXPECT_EQ(files.Files["/a.ini"], after);
    }
}

TEST(Memini, ReadsWhatStandsFirst) {
    TMemoryFileSystem files;
    files.Files["/a.ini"] =
        "[A]\r\nx = 1=2 \r\nX=3\r\n\xD0\x96=7\r\nno\r\n[a]\r\nx=4\r\ny=5\r\n[B]\r\ny=6\r\n";
    TmlMemIniFile ini(files, "/a.ini");
    EXPECT_EQ(ini.ReadString("a", "x", "-"), "1=2");
    EXPECT_EQ(ini.ReadString("a", "y", "-"), "-") << "a section that stands twice counts once";
    EXPECT_EQ(ini.ReadString("b", "Y", "-"), "6");
    EXPECT_EQ(ini.ReadString("A", "\xD0\xB6", "-"), "7");
    EXPECT_TRUE(ini.ReadBool("A", "no", true));
    EXPECT_FALSE(ini.ReadBool("A", "x", false));
    files.Files["/a.ini"] += ";";
    ini.WriteBool("A", "x", true);
    EXPECT_THROW(ini.UpdateFile(), EFileError);
    EXPECT_THROW(ini.WriteString("A", "x", "a\nb"), EBadInput);
}

TEST(Memini, ReadingAndWritingGrowWithTheKeys) {
    ExpectLinearGrowth(2000, [](int count) {
        TMemoryFileSystem files;
        files.Files["/a.ini"] = "";
        TmlMemIniFile ini(files, "/a.ini");
        const auto key = [](int i) { return "Key" + std::to_string(i); };
        for (int i = 0; i < count; ++i)
            ini.WriteString("S", key(i), "value");
        ini.UpdateFile();
        const TmlMemIniFile read(files, "/a.ini");
        int found = 0;
        for (int i = 0; i < count; ++i)
            found += read.ReadString("s", key(i), "") == "value" ? 1 : 0;
        return found == count;
    });
}

}  // namespace
}  // namespace tml
