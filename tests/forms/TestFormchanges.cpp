#include <functional>
#include <gtest/gtest.h>

#include "base/Errors.h"
#include "forms/Formtesting.h"

namespace tml::testing {
namespace {

using std::string;
using TChange = std::function<void(TFormTree&)>;

TChange Set(const string& name, const TFormValue& value) {
    return [=](TFormTree& tree) { tree.SetProperty(tree.Root(), name, value); };
}
TChange SetText(const string& name, const string& text) {
    return Set(name, TFormValue::String(text));
}
TChange SetLines(const string& name, std::vector<string> lines) {
    return Set(name, TFormValue::Strings(TStringList(std::move(lines))));
}
/// Changes the value of a property of the root as the file holds it.
TChange Edit(const string& name, const std::function<void(TFormValue&)>& edit) {
    return [=](TFormTree& tree) {
        TFormValue value = *tree.Root().Find(name);
        edit(value);
        tree.SetProperty(tree.Root(), name, value);
    };
}
TChange Remove(const string& name) {
    return [=](TFormTree& tree) { tree.RemoveProperty(tree.Root(), name); };
}
TChange RemoveNode(const string& name) {
    return [=](TFormTree& tree) { tree.RemoveChild(*tree.FindComponent(name)); };
}
TChange Rename(const string& from, const string& to) {
    return [=](TFormTree& tree) { tree.Rename(*tree.FindComponent(from), to); };
}
TChange Add(const string& name, const string& className) {
    return [=](TFormTree& tree) {
        TFormNode& child = tree.AddChild(tree.Root(), name, className);
        tree.SetProperty(child, "Left", TFormValue::Integer(8));
        tree.AddChild(child, "", "TInner");
    };
}
TChange Replace(const string& node, const string& from, const string& to) {
    return [=](TFormTree& tree) {
        tree.RemoveProperty(*tree.FindComponent(node), from);
        tree.SetProperty(*tree.FindComponent(node), to, TFormValue::Integer(7));
    };
}
TChange All(std::vector<TChange> changes) {
    return [=](TFormTree& tree) {
        for (const TChange& change : changes)
            change(tree);
    };
}

struct TChangeRow {
    string File;
    string Before;  ///< lines of the root
    TChange Change;
    string After;
    string CodePage = {};
};

const string k70(70, 'x');
const string k64(64, 'x');

const TChangeRow kRows[] = {
    // Equal values, and what only looks different, leave the bytes alone.
    {"a.dfm", "  X=$0A \n", Set("x", TFormValue::Integer(10)), "  X=$0A \n"},
    {"a.dfm", "  X = 'a'#98\n", SetText("X", "ab"), "  X = 'a'#98\n"},
    {"a.dfm", "  X  =  1\t \r\n  Y = 2\n", Set("X", TFormValue::Boolean(true)),
     "  X  =  True\t \r\n  Y = 2\n"},
    // Quotes and characters above 127 in the way of the file, else of its kind.
    {"a.dfm", "  X = 1\n", SetText("X", "it's\t\xD0\x9F"), "  X = 'it'#39's'#9#1055\n"},
    {"a.lfm", "  X = 1\n", SetText("X", "it's\t\xD0\x9F"), "  X = 'it''s'#9'\xD0\x9F'\n"},
    {"a.dfm", "  X = 1\n  Y = 'a''b'\n", SetText("X", "'"), "  X = ''''\n  Y = 'a''b'\n"},
    {"a.lfm", "  X = 1\n  Y = 'a'#39'b'#200\n", SetText("X", "'\xC3\x9C"),
     "  X = #39#220\n  Y = 'a'#39'b'#200\n"},
    {"a.dfm", "  X = 1\n  Y = '\xCF'\n", SetText("X", "\xD0\x9F"), "  X = '\xCF'\n  Y = '\xCF'\n", "1251"},
    {"a.dfm", "  X = 1\n", SetText("X", "\xF0\x9F\x98\x80"), "  X = #55357#56832\n"},
    // Long strings are cut in one layout only, and begin a line of their own.
    {"a.dfm", "  X = 1\n", SetText("X", k70), "  X = \n    '" + k64 + "' +\n    'xxxxxx'\n"},
    {"a.dfm", "  X = \n    '" + k64 + "' +\n    'xxxxxx'\n", SetText("X", "a"), "  X = 'a'\n"},
    {"a.lfm", "  X = 1\n", SetText("X", k70), "  X = '" + k70 + "'\n"},
    {"a.dfm", "  S = (\n    'a'\n    'c')\n", SetLines("S", {"a", k70, "c"}),
     "  S = (\n    'a'\n    \n      '" + k64 + "' +\n      'xxxxxx'\n    'c')\n"},
    // Lists: equal items keep their bytes.
    {"a.dfm", "  S = (\n    #97\n    'b'\n    'c' )\n", SetLines("S", {"a", "B", "c"}),
     "  S = (\n    #97\n    'B'\n    'c' )\n"},
    {"a.dfm", "  S = (\n    'a'\n    #98)\n", SetLines("S", {"b"}), "  S = (\n    #98)\n"},
    {"a.lfm", "  S = (\n    'a'\n  )\n", SetLines("S", {"a", "b"}), "  S = (\n    'a'\n    'b'\n  )\n"},
    {"a.dfm", "  S = (\n    'a')\n", SetLines("S", {}), "  S = ()\n"},
    {"a.lfm", "  X = 1\n", SetLines("S", {"a"}), "  X = 1\n  S = (\n    'a'\n  )\n"},
    {"a.dfm", "  X = 1\n", Set("B", {TFormValueKind::Binary, string(33, '\x1F'), {}, {}}),
     "  X = 1\n  B = {\n    1F1F1F1F1F1F1F1F1F1F1F1F1F1F1F1F1F1F1F1F1F1F1F1F1F1F1F1F1F1F1F1F\n    1F}\n"},
    // Collections: equal properties of an item keep their bytes.
    {"a.dfm", "  C = <\n    item\n      A = $1\n      B = 2\n    end\n    item\n    end>\n",
     Edit("C", [](TFormValue& c) { c.Collection[0][1].Value = TFormValue::Integer(3); }),
     "  C = <\n    item\n      A = $1\n      B = 3\n    end\n    item\n    end>\n"},
    {"a.lfm", "  C = <  \n    item\n      A = $1\n    end>\n",
     Edit("C",
          [](TFormValue& c) {
              c.Collection.push_back({{"B", TFormValue::Integer(3)}});
          }),
     "  C = <  \n    item\n      A = $1\n    end  \n    item\n      B = 3\n    end>\n"},
    {"a.dfm", "  C = <\n    item\n      A = $1\n    end\n    item\n      A = $2\n    end>\n",
     Edit("C", [](TFormValue& c) { c.Collection.erase(c.Collection.begin()); }),
     "  C = <\n    item\n      A = $2\n    end>\n"},
    // Properties and components come behind those that are there and go with their own lines.
    {"a.dfm", "  X = 1  \r\n\r\n  object B: T\n  end\n", SetText("New-1", ""),
     "  X = 1  \r\n  'New-1' = ''\r\n\r\n  object B: T\n  end\n"},
    {"a.dfm", "\tX = 1\n", Add("B", "TB"),
     "\tX = 1\n\tobject B: TB\n\t\tLeft = 8\n\t\tobject TInner\n\t\tend\n\tend\n"},
    {"a.dfm", "  X = 1\n  object B: T\n  end\n", All({RemoveNode("B"), Remove("X"), Add("C", "TC")}),
     "  object C: TC\n    Left = 8\n    object TInner\n    end\n  end\n"},
    {"a.dfm", "  X = 1 Y = 2\n", Remove("X"), "  Y = 2\n"},
    {"a.dfm", "  object B: T X = 1 end\n", Replace("B", "X", "Y"), "  object B: T \n    Y = 7\nend\n"},
    {"a.dfm", "  X = 1 Y = 2\n", All({Remove("X"), Remove("Y"), Add("B", "TB"), RemoveNode("B")}), "  \n"},
    {"a.dfm", "  X = \n    'a' +\n    'b'\n  Y = 2\n", Remove("X"), "  Y = 2\n"},
    {"a.dfm", "  object B: T [1]\n  end\n", Rename("B", "Bb"), "  object Bb: T [1]\n  end\n"},
    {"a.dfm", "  object B: T\n  end\n", Rename("B", ""), "  object T\n  end\n"},
    {"a.dfm", "  object T\n  end\n", [](TFormTree& t) { t.Rename(*t.Root().Children()[0], "N"); },
     "  object N: T\n  end\n"},
};

class FormChanges : public ::testing::TestWithParam<TChangeRow> {};

TEST_P(FormChanges, TouchTheirOwnLines) {
    const TChangeRow& row = GetParam();
    const auto tree = TFormTree::Parse("object A: T\n" + row.Before + "end\n", row.File, row.CodePage);
    const string binaryBefore = tree->Binary();
    row.Change(*tree);
    EXPECT_EQ(tree->Bytes(), "object A: T\n" + row.After + "end\n");
    // The tree tells what the changed file says, and so does a binary that was changed alike.
    EXPECT_EQ(Dump(tree->Root()), Dump(TFormTree::Parse(tree->Bytes(), row.File, row.CodePage)->Root()));
    const auto binary = TFormTree::Parse(binaryBefore, row.File, row.CodePage);
    row.Change(*binary);
    EXPECT_EQ(Dump(TFormTree::Parse(binary->Bytes(), row.File, row.CodePage)->Root()), Dump(tree->Root()));
}
INSTANTIATE_TEST_SUITE_P(Rows, FormChanges, ::testing::ValuesIn(kRows));

TEST(FormChangesBinary, KeepEverythingElse) {
    const string body(
        "TPF0\x01T\x01"
        "A\x01X\x04\x01\0\0\0\x01S\x01\x04\x02\0\0\0\x02\x03\0\0\0",
        28);
    const string head("\xFF\x0A\0T\0\x30\x10\x1C\0\0\0", 11);
    const auto tree = TFormTree::Parse(head + body + "tail", "a.dfm");
    Edit("S", [](TFormValue& list) { list.Items[1] = TFormValue::String("\xC3\x9C"); })(*tree);
    const string wide(
        "TPF0\x01T\x01"
        "A\x01X\x04\x01\0\0\0\x01S\x01\x04\x02\0\0\0\x12\x01\0\0\0\xDC\0\0\0\0",
        33);
    EXPECT_EQ(tree->Bytes(), string("\xFF\x0A\0T\0\x30\x10\x21\0\0\0", 11) + wide + "tail");
}

TEST(FormChanges, KeepTheWayABinaryStoresStrings) {
    const struct {
        string Old, New;
        const char* CodePage = "1251";
    } rows[] = {{string("\x06\x01\xCF", 3), string("\x06\x01\xF0", 3)},
                {string("\x06\x01\xCF", 3), string("\x12\x01\0\0\0\x40\x04", 7), ""},
                {string("\x14\x02\0\0\0\xD0\x9F", 7), string("\x14\x02\0\0\0\xD1\x80", 7)},
                {string("\x12\x01\0\0\0\x1F\x04", 7), string("\x12\x01\0\0\0\x40\x04", 7)}};
    for (const auto& row : rows) {
        const string begin(
            "TPF0\x01T\x01"
            "A\x01X");
        const auto tree = TFormTree::Parse(begin + row.Old + string(2, '\0'), "a.dfm", row.CodePage);
        SetText("X", "\xD1\x80")(*tree);
        EXPECT_EQ(tree->Bytes(), begin + row.New + string(2, '\0'));
    }
}

TEST(FormChanges, AreNoneWhereTheValueIsEqual) {
    const string odd(
        "TPF0\x01T\x01"
        "A\x02'\n\x06\x01x\0\0",
        17);
    const auto tree = TFormTree::Parse(odd, "a.dfm");
    SetText("'\n", "x")(*tree);
    EXPECT_EQ(tree->Bytes(), odd);
}

TEST(FormChanges, WriteCodesForWhatTheFilesEncodingCannotHold) {
    const auto tree = TFormTree::Parse("object A: T\n  X = '\xCF\xF0'\nend\n", "a.dfm", "1251");
    SetText("X", "\xD0\x9F \xE3\x82\xBD\xF0\x9F\x98\x80")(*tree);
    EXPECT_EQ(tree->Bytes(), "object A: T\n  X = '\xCF '#12477#55357#56832\nend\n");
    const auto again = TFormTree::Parse(tree->Bytes(), "a.dfm", "1251");
    EXPECT_EQ(*again->Root().Find("X"), TFormValue::String("\xD0\x9F \xE3\x82\xBD\xF0\x9F\x98\x80"));
}

TEST(FormChanges, RefuseWhatAFormCannotHold) {
    const auto tree = TFormTree::Parse("object A: T\n  X = '\xCF\xF0'\nend\n", "a.dfm", "1251");
    const string before = tree->Bytes();
    const TChange refused[] = {
        Set("X", TFormValue::Identifier("a b")),
        Set("X", TFormValue::Identifier("")),
        Set("X", {TFormValueKind::Integer, "1x", {}, {}}),
        Set("X", {TFormValueKind::Float, "nan", {}, {}}),
        SetText("a'\n", "x"),
        Rename("A", "a b"),
        Add("B", "T:"),
    };
    for (const TChange& change : refused)
        EXPECT_THROW(change(*tree), EBadInput);
    EXPECT_THROW(RemoveNode("A")(*tree), std::logic_error);
    EXPECT_EQ(tree->Bytes(), before);
}

}  // namespace
}  // namespace tml::testing
