#include <gtest/gtest.h>

#include "tables/Filefields.h"

namespace tml {
namespace {

using namespace std::string_literals;

std::string LineOf(const TFileFields& codec, const std::string& key, const std::vector<std::string>& fields) {
    std::string line;
    codec.AppendLine(line, key, {fields.begin(), fields.end()});
    EXPECT_TRUE(line.ends_with('\n'));
    line.pop_back();
    return line;
}

TEST(Filefields, EveryTextSurvivesEveryDelimiterInOneLine) {
    const std::vector<std::string> texts = {
        "",        "plain", " ",     "  two  ",      "\ttab\t",      "a\r\nb\nc",
        "a=b",     "[x]",   "; no",  "\"q\"",        "\\",           "\\n\\",
        "^e\\e^d", "~",     "x~!@#", "~~!@#$~!@#$",  "nul\0l"s,      "d",
        "e dend",  "end",   "en",    "\xD0\x96\xD0", "\xC2\xA7\xC2", "a~\nb",
        "|||",     "= =",   "\\d\\s"};
    for (const std::string delimiter : {"~!@#$", "=", " ", "\\", "\\^", "~\\", "~\\n", "n", "end", "||",
                                        "\xC2\xA7", "\t", "\"", "; ", "^"}) {
        const TFileFields codec(delimiter);
        for (const std::string& key : texts) {
            const std::string line = LineOf(codec, key, texts);
            EXPECT_EQ(codec.Read(line), (TFileEntry{key, texts})) << delimiter << ": " << line;
            EXPECT_EQ(line.find_first_of("\r\n\0"s), std::string::npos);
            EXPECT_FALSE(line.starts_with('[') || line.starts_with(';') || line.starts_with(' ')) << line;
            for (const std::string& text : texts) {
                const std::string single = LineOf(codec, key, {text});
                EXPECT_EQ(codec.Read(single), (TFileEntry{key, {text}})) << delimiter << ": " << single;
                EXPECT_EQ(single.find_last_not_of(" \t"), single.size() - 1) << "a blank would be lost";
            }
        }
    }
}

TEST(Filefields, LinesLookAsATranslatorExpects) {
    const TFileFields codec("~!@#$");
    EXPECT_EQ(LineOf(codec, "btnOK.Caption", {"&OK", "Sch\xC3\xB6n = gut; [ja]"}),
              "btnOK.Caption=&OK~!@#$Sch\xC3\xB6n = gut; [ja]");
    EXPECT_EQ(LineOf(codec, "a=b", {" First\nSecond ", ""}), "a\\qb=\\sFirst\\nSecond ~!@#$");
    EXPECT_EQ(codec.Read("C:\\=C:\\x"), (TFileEntry{"C:\\", {"C:\\x"}}));
    EXPECT_EQ(codec.Read("alone"), (TFileEntry{"alone", {}}));
}

}  // namespace
}  // namespace tml
