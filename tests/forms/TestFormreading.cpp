#include <gtest/gtest.h>

#include "base/Errors.h"
#include "forms/Formtesting.h"

namespace tml::testing {
namespace {

using std::string;

struct TReadRow {
    string Source;  ///< a whole form, or the value of the only property X
    string Dump;    ///< of the whole form, or of the value
    string CodePage = {};
};

class FormReading : public ::testing::TestWithParam<TReadRow> {};

TEST_P(FormReading, GivesTheModelAndTheSameBytes) {
    const TReadRow& row = GetParam();
    const bool isWhole = row.Dump.find(":") != string::npos;
    const string source = isWhole ? row.Source : "object A: T\r\n  X = " + row.Source + "\r\nend\r\n";
    const auto tree = TFormTree::Parse(source, "Unit1.dfm", row.CodePage);
    EXPECT_EQ(isWhole ? Dump(tree->Root()) : Dump(*tree->Root().Find("x")), row.Dump) << source;
    EXPECT_EQ(tree->Bytes(), source);
    // The binary form of it holds the same.
    const auto binary = TFormTree::Parse(tree->Binary(), "Unit1.dfm", row.CodePage);
    EXPECT_TRUE(binary->IsBinary());
    if (row.Dump.find('$') == string::npos) {
        EXPECT_EQ(isWhole ? Dump(binary->Root()) : Dump(*binary->Root().Find("X")), row.Dump);
    }
}

const TReadRow kValues[] = {
    {"'it''s'", "'it's'"},
    {"'it'#39's'", "'it's'"},
    {"''", "''"},
    {"#13#10'a'#9", "'\\13\\10a\\9'"},
    {"#55357#57032", "'\xF0\x9F\x9B\x88'"},
    {"#128640'x'", "'\xF0\x9F\x9A\x80x'"},
    {"#233", "'\xC3\xA9'"},
    {"#55357", "'\xEF\xBF\xBD'"},
    {"\r\n    'one ' +\r\n    'two'#1055", "'one two\xD0\x9F'"},
    {"'\xD0\x9F'#1055", "'\xD0\x9F\xD0\x9F'"},
    {"'\xCF\xF0'", "'\xD0\x9F\xD1\x80'", "1251"},
    {"'\xCF\xF0'#1055", "'\xD0\x9F\xD1\x80\xD0\x9F'", "1251"},
    {"'\x83\x5C''a'", "'\xE3\x82\xBD'a'", "932"},
    {"$FF", "255"},
    {"-0129", "-129"},
    {"nil", "nil"},
    {"Form1.Button1", "Form1.Button1"},
    {"[]", "[]"},
    {"[fsBold, fsItalic]", "[fsBold fsItalic]"},
    {"()", "()"},
    {"(\r\n    'a'\r\n    (1 2)\r\n    1.5)", "('a' (1 2) 1.5f)"},
    {"<>", "<>"},
    {"<\r\n item [2]\r\n X = 1\r\n 'Y Z' = <item end>\r\n end\r\n item\r\n end>", "<{X=1 Y Z=<{}>}{}>"},
    {"{ 00 0a\r\n FF }", "{000AFF}"},
    {"0.5s", "0.5f"},
    {"-12.3456c", "-12.3456f"},
    {"42000.25d", "42000.25f"},
};
INSTANTIATE_TEST_SUITE_P(Values, FormReading, ::testing::ValuesIn(kValues));

const TReadRow kForms[] = {
    {"object A: TA\nend", "object A:TA{}"},
    {"\xEF\xBB\xBFobject A: TA\n  C = '\xC3\x9C'\nend", "object A:TA{C='\xC3\x9C'}"},
    {"  OBJECT A: TA [3]\r  X\t=\t1 Y=2   \r\n\nEnd \n\n", "object A:TA[3]{X=1 Y=2}"},
    {"object TMenuItem\n  X = 1\nend\n", "object :TMenuItem{X=1}"},
    {"object A:\n  X = 1\nend\n", "object A:{X=1}"},
    {"inherited A: TA\n  inline B: TB\n  end\n  object C: TC [-1]\n    D.E = 5\n  end\nend\n",
     "inherited A:TA{inline B:TB{} object C:TC[-1]{D.E=5}}"},
    {"object \xD0\x90: T\xD0\x90\n  \xD0\x91 = \xD0\x92\nend\n",
     "object \xD0\x90:T\xD0\x90{\xD0\x91=\xD0\x92}"},
    {"object \xC0: TA\nend\n", "object \xD0\x90:TA{}", "1251"},
    {"object A: TA\nend\nobject Second: TB\nend\n", "object A:TA{}"},
};
INSTANTIATE_TEST_SUITE_P(Forms, FormReading, ::testing::ValuesIn(kForms));

string Bytes(const char* begin, std::size_t size) {
    return {begin, size};
}
#define BYTES(literal) Bytes(literal, sizeof(literal) - 1)

/// Each kind of value in a binary: what the model shows and what the text form says.
TEST(FormReadingBinary, KnowsEveryKindOfValue) {
    const struct {
        string Value, Dump, Text;
    } rows[] = {
        {BYTES("\x00"), "Null", "Null"},
        {BYTES("\x02\xFF"), "-1", "-1"},
        {BYTES("\x03\x2C\x01"), "300", "300"},
        {BYTES("\x04\x01\x00\x01\x00"), "65537", "65537"},
        {BYTES("\x05\xCD\xCC\xCC\xCC\xCC\xCC\xCC\xCC\xFB\x3F"), "0.1f", " 1.00000000000000000001E-0001"},
        {BYTES("\x05\x00\x00\x00\x00\x00\x00\x00\x80\xFF\xFF"), "-inff", "                         -Inf"},
        {BYTES("\x06\x02\xC4\xE0"), "'\xD0\x94\xD0\xB0'", "#1044#1072"},
        {BYTES("\x0C\x02\x00\x00\x00'a"), "''a'", "'''a'"},
        {BYTES("\x07\x03xyz"), "xyz", "xyz"},
        {BYTES("\x0D"), "nil", "nil"},
        {BYTES("\x0E\x02\x07\x01\x01Y\x09\x00\x00"), "<{Y=True}>",
         "<  \n    item [7]\n      Y = True\n    end>"},
        {BYTES("\x0F\x00\x00\xC0\x3F"), "1.5f", "1.5s"},
        {BYTES("\x10\x39\x30\x00\x00\x00\x00\x00\x00"), "1.2345f", "1.2345c"},
        {BYTES("\x11\x00\x00\x00\x00\x10\x82\xE4\x40"), "42000.5f", "42000.5d"},
        {BYTES("\x12\x02\x00\x00\x00\x3D\xD8\x00\xDE"), "'\xF0\x9F\x98\x80'", "#55357#56832"},
        {BYTES("\x13\x00\x00\x00\x00\x01\x00\x00\x00"), "4294967296", "4294967296"},
        {BYTES("\x14\x02\x00\x00\x00\xC3\x9C"), "'\xC3\x9C'", "#220"},
        {BYTES("\x15\x00\x00\x00\x00\x00\x00\xF8\x3F"), "1.5f", " 1.50000000000000000000E+0000"},
    };
    for (const auto& row : rows) {
        const string file = BYTES(
                                "TPF0\x02TA\x01"
                                "A\x01X") +
                            row.Value + BYTES("\x00\x00");
        const auto tree = TFormTree::Parse(file, "a.dfm", "1251");
        EXPECT_EQ(Dump(*tree->Root().Find("X")), row.Dump);
        EXPECT_EQ(tree->Text(), "object A: TA\n  X = " + row.Text + "\nend\n");
        EXPECT_EQ(tree->Bytes(), file);
    }
}

/// What the other kinds make damage of, or a number that nobody stores, is read as Free Pascal writes it.
TEST(FormReadingBinary, KnowsTheKindsOfFreePascal) {
    const struct {
        string Value, Dump;
    } rows[] = {
        {BYTES("\x15\x01\x00\x00\x00\xC4\x00"), "'\xC3\x84'"},
        {BYTES("\x15\x02\x00\x00\x00\x2D\x4E\x87\x65"), "'\xE4\xB8\xAD\xE6\x96\x87'"},
        {BYTES("\x15\x03\x00\x00\x00\x41\x00\x3D\xD8\x00\xDE"), "'A\xF0\x9F\x98\x80'"},
        {BYTES("\x16\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"), "18446744073709551615"},
        {BYTES("\x01\x15\x01\x00\x00\x00\x41\x00\x16\x05\x00\x00\x00\x00\x00\x00\x00\x00"), "('A' 5)"},
    };
    for (const auto& row : rows) {
        const string file = BYTES(
                                "TPF0\x02TA\x01"
                                "A\x01X") +
                            row.Value + BYTES("\x01Y\x08\x00\x00");
        const auto tree = TFormTree::Parse(file, "a.lfm", "1251");
        EXPECT_EQ(Dump(tree->Root()), "object A:TA{X=" + row.Dump + " Y=False}");
        EXPECT_EQ(tree->Bytes(), file);
        EXPECT_EQ(Dump(TFormTree::Parse(tree->Text(), "a.lfm")->Root()), Dump(tree->Root()));
        tree->SetProperty(tree->Root(), "Y", TFormValue::Boolean(true), kNoProperty);
        EXPECT_EQ(tree->Bytes(), string(file).replace(file.size() - 3, 1, "\x09"));
    }
}

TEST(FormReadingBinary, GivesNoTextThatCannotBeRead) {
    const struct {
        string Body;
        const char* Place;  ///< "" for names that a text can hold
    } rows[] = {
        {BYTES("\x01T\x03"
               "end\x03"
               "End\x08\x00\x00"),
         ""},
        {BYTES("\x01T\x00\x02"
               "a \x08\x00\x00"),
         ""},
        {BYTES("\x01T\x01"
               "0\x00\x00"),
         "byte 7:"},
        {BYTES("\x02T<\x01"
               "A\x00\x00"),
         "byte 5:"},
        {BYTES("\x01T\x01"
               "A\x01'\x08\x00\x00"),
         "byte 9:"},
        {BYTES("\x01T\x01"
               "A\x01X\x07\x00\x00\x00"),
         "byte 12:"},
        {BYTES("\x01T\x01"
               "A\x01X\x0B\x01-\x00\x00\x00"),
         "byte 12:"},
    };
    for (const auto& row : rows) {
        const auto tree = TFormTree::Parse("TPF0" + row.Body, "a.dfm");
        EXPECT_EQ(tree->Bytes(), "TPF0" + row.Body);
        try {
            const string text = tree->Text();
            EXPECT_STREQ(row.Place, "") << text;
            EXPECT_EQ(Dump(TFormTree::Parse(text, "a.dfm")->Root()), Dump(tree->Root()));
        } catch (const EBadInput& error) {
            EXPECT_NE(*row.Place, '\0') << error.what();
            EXPECT_NE(string(error.what()).find(row.Place), string::npos) << error.what();
        }
    }
}

TEST(FormReadingBinary, KnowsEveryPrefix) {
    const string file = BYTES(
        "\xFF\x0A\x00TA\x00\x30\x10\x1D\x00\x00\x00TPF0\xF1\x02TA\x01"
        "A\x00\xF2\x02\x05\x01T\x00\x00\x00"
        "\xF4\x01T\x01"
        "B\x00\x00\x00tail");
    const auto tree = TFormTree::Parse(file, "a.dfm");
    EXPECT_EQ(Dump(tree->Root()), "inherited A:TA{object :T[5]{} inline B:T{}}");
    EXPECT_EQ(tree->Bytes(), file);
}

TEST(FormReading, FindsComponentsAndLines) {
    const auto tree =
        TFormTree::Parse("object A: T\n\n  object B: T\r\n  object C: T\n  end\n  end\nend", "a.dfm");
    ASSERT_NE(tree->FindComponent("c"), nullptr);
    EXPECT_EQ(tree->FindComponent("c")->Line(), 4);
    EXPECT_EQ(tree->FindComponent("c")->Parent()->Name(), "B");
    EXPECT_EQ(tree->FindComponent("D"), nullptr);
}

TEST(FormErrors, NameTheLineAndTheProblem) {
    const struct {
        string Source, Message;
    } rows[] = {
        {"object A: T\n  X =\nend\n", "a.dfm:2: expected a value after '='"},
        {"object A: T\n  X = ,\nend\n", "a.dfm:2: expected a value"},
        {"object A: T\n  X 5\nend\n", "a.dfm:2: expected '=' after the name of a property"},
        {"object A: T\n  X = 'abc\nend\n", "a.dfm:2: expected a closing apostrophe"},
        {"object A: T\n  X = 'a' +\n  Y = 1\nend\n", "a.dfm:3: expected the rest of a string after '+'"},
        {"object A: T\n  X = #x\nend\n", "a.dfm:2: expected a character code"},
        {"object A: T\n  X = #1114112\nend\n", "a.dfm:2: a character code above"},
        {"object A: T\n  X = 12a\nend\n", "a.dfm:2: expected the end of a number"},
        {"object A: T\n  X = 18446744073709551616\nend\n", "a.dfm:2: a number of more than 64 bits"},
        {"object A: T\n  X = -\nend\n", "a.dfm:2: expected digits"},
        {"object A: T\n  X = [a b]\nend\n", "a.dfm:2: expected ',' or ']'"},
        {"object A: T\n  X = (1\n\nend\n", "a.dfm:5: expected ')'"},
        {"object A: T\n  X = <1>\nend\n", "a.dfm:2: expected 'item' or '>'"},
        {"object A: T\n  X = {00\n0}\nend\n", "a.dfm:3: expected two hexadecimal digits"},
        {"object A: T\n  X = {00\n", "a.dfm:2: the block that begins here has no '}'"},
        {"object A: T [x]\nend\n", "a.dfm:1: expected a position"},
        {"object A: T\n object B: T\n end\n X = 1\nend\n", "a.dfm:4: expected a component or 'end'"},
        {"object A: T\n object B: T\n end\n", "a.dfm:4: the component of line 1 has no 'end'"},
        {"\xFF\xD8\xFF\xE0JFIF", "a.dfm:1: no form: expected 'object', 'inherited' or 'inline'"},
        {"", "a.dfm:1: no form"},
        {"TPF0\x01T\x01"
         "A\x01X\x16",
         "a.dfm: at byte 10: unknown kind of value 22"},
        {BYTES("TPF0\x01T\x01"
               "A\x01X\x0C\xFF\xFF\xFF\xFF"),
         "a.dfm: at byte 15: a length of 4294967295"},
        {BYTES("TPF0\x01T\x01"
               "A\x01X\x12\xFF\xFF\xFF\xFF"),
         "a.dfm: at byte 15: a length of 8589934590"},
        {BYTES("\xFF\x0A\x00T\x00\x30\x10\xFF\x00\x00\x00TPF0"), "a.dfm: at byte 11: the file ends before"},
        {BYTES("\xFF\x0A\x00T\x00\x31\x10"), "a.dfm: at byte 7: expected the header"},
    };
    for (const auto& row : rows) {
        try {
            TFormTree::Parse(row.Source, "a.dfm");
            ADD_FAILURE() << "read: " << row.Source;
        } catch (const EBadInput& error) {
            EXPECT_EQ(string(error.what()).substr(0, row.Message.size()), row.Message);
        }
    }
}

string Repeat(const string& text, int count) {
    string result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

TEST(FormErrors, RefuseDepthWithoutBound) {
    const int depth = 100000;
    const string cases[] = {
        Repeat("object A: T\n", depth),
        "object A: T X = " + Repeat("(", depth),
        "object A: T X = " + Repeat("<item X = ", depth),
        "TPF0" + Repeat(BYTES("\x01T\x01"
                              "A\x00"),
                        depth),
        BYTES("TPF0\x01T\x01"
              "A\x01X") +
            string(static_cast<std::size_t>(depth), '\1'),
        BYTES("TPF0\x01T\x01"
              "A\x01X") +
            Repeat(BYTES("\x0E\x01\x01X"), depth),
    };
    for (const string& source : cases)
        EXPECT_THROW(TFormTree::Parse(source, "a.dfm"), EBadInput);
    const string deep = Repeat("object A: T\n", 999) + Repeat("end\n", 999);
    EXPECT_EQ(TFormTree::Parse(TFormTree::Parse(deep, "a")->Binary(), "a")->Root().Children().size(), 1U);
}

}  // namespace
}  // namespace tml::testing
