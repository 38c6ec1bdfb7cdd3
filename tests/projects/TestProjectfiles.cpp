#include <gtest/gtest.h>

#include "base/Errors.h"
#include "projects/Dprfile.h"
#include "projects/Projectreader.h"
#include "projects/Xmlprojects.h"
#include "support/Memoryfiles.h"
#include "support/Wrappedfiles.h"

namespace tml {
namespace {

/// "Name path [form[: class]] line" of every unit, one a line.
std::string Dump(const TParsedProject& project) {
    std::string text;
    for (const TNamedUnit& unit : project.Units) {
        text += unit.Name + " " + unit.Path;
        if (!unit.FormName.empty()) text += " " + unit.FormName;
        if (!unit.DesignClass.empty()) text += ": " + unit.DesignClass;
        text += " " + std::to_string(unit.Line) + "\n";
    }
    return text;
}

std::string ParseOrMessage(TProjectParser parse, const std::string& text) {
    try {
        return Dump(parse(text, "P", ""));
    } catch (const EBadInput& error) {
        return std::to_string(error.Line()) + ": " + error.Problem();
    }
}

struct TCase {
    const char* Text;
    const char* Expected;
};

TEST(Projectfiles, ProgramSource) {
    const TCase cases[] = {
        {"program P;\nuses Forms, A in 'A.pas' {Form1},\n B.C in '..\\x\\B.C.pas' {Fr: TFrame};",
         "A A.pas Form1 2\nC ..\\x\\B.C.pas Fr: TFrame 3\n"},
        {"// uses X in 'x';\nlibrary L; USES {$IFDEF A} A IN 'a.pas',{$ELSE} {(* not a form *)} (*{F}*) "
         "A in 'b.pas' {a remark} {Real},{$ENDIF} ; begin uses",
         "A a.pas 2\nA b.pas Real 2\n"},
        {"\xEF\xBB\xBFprogram P; uses A in 'C:\\d\\A.pas' {F: TDataModule} {more};",
         "A C:\\d\\A.pas F: TDataModule 1\n"},
        {"program P; uses A in 'a.pas' {Maker: CoClass}, B in 'b.pas' {$IFDEF X} {F: TForm2} {$ENDIF};",
         "A a.pas 1\nB b.pas F: TForm2 1\n"},
        {"program P; begin uses A in 'a.pas'; end.", ""},
        {"program P;", ""},
        {"program P;\nuses A in 'a.pas'",
         "2: expected the name of a unit in the uses clause. Check the uses clause of the program"},
        {"program P;\nuses A in B;",
         "2: expected the path of the unit behind \"in\". Check the uses clause of the program"},
        {"program P;\n\nuses {A", "3: a comment or text has no end. Check the uses clause of the program"},
        {"\xFF\xD8\xFF\xE0 JFIF", "1: the file is no program source. Check the uses clause of the program"},
        {"", "1: the file is no program source. Check the uses clause of the program"},
    };
    for (const TCase& row : cases)
        EXPECT_EQ(ParseOrMessage(ParseDpr, row.Text), row.Expected) << row.Text;
}

TEST(Projectfiles, XmlProject) {
    const TCase cases[] = {
        {"\xEF\xBB\xBF<Project>\n<PropertyGroup><MainSource>P.dpr</MainSource></PropertyGroup>\n<ItemGroup>\n"
         "<DCCReference Include=\"rtl.dcp\"/>\n<DCCReference Include=\"s%20x\\A.B.pas\"><Form>F</Form>"
         "<FormType>dfm</FormType><DesignClass>TFrame</DesignClass></DCCReference>\n"
         "<RcCompile Include=\"m.rc\"><Form>m.res</Form></RcCompile>\n<DCCReference Include=\"d.pas\"><Form>"
         "$IFNDEF CPUX64</Form></DCCReference></ItemGroup></Project>",
         "rtl.dcp rtl.dcp 4\nB s x\\A.B.pas F: TFrame 5\nd d.pas 7\nm.rc m.rc 6\n"},
        {"<Project>\n<ItemGroup>\n<DCC",
         "3: no valid XML: Error parsing start element tag. Repair the project file"},
        {"<Other/>", "1: the root element is not \"Project\". Choose a project file"},
    };
    for (const TCase& row : cases)
        EXPECT_EQ(ParseOrMessage(ParseDproj, row.Text), row.Expected);
    const std::string deep = std::string(200000, '<') + "a>";
    std::string nested = "<Project>";
    for (int i = 0; i < 200000; ++i)
        nested += "<a>";
    EXPECT_NE(ParseOrMessage(ParseDproj, deep).find("no valid XML"), std::string::npos);
    EXPECT_NE(ParseOrMessage(ParseDproj, nested).find("no valid XML"), std::string::npos);
}

std::string Dump(const TProjectModel& model) {
    std::string text;
    for (const TProjectUnit& unit : model.Units)
        text += unit.Name + " " + unit.FileName + " " + unit.FormName + " " + FileNameOf(unit.FormFile) +
                " " + FileNameOf(unit.HeaderFile) + (unit.Missing ? " missing" : "") + "\n";
    return text;
}

TEST(Projectreader, FilesAreFoundInAnyLetterCaseAndBothListsCount) {
    TMemoryFileSystem files;
    files.Files = {
        {"/g/All.groupproj",
         "<Project><ItemGroup><Projects Include=\"p\\P.dproj\"/>"
         "<Projects Include=\"gone.dproj\"/></ItemGroup></Project>"},
        {"/g/p/P.dproj",
         "<Project><PropertyGroup><MainSource>P.dpr</MainSource></PropertyGroup><ItemGroup>"
         "<DCCReference Include=\"Sub\\MAIN.PAS\"/><DCCReference Include=\"x.dcp\"/>"
         "<DCCReference Include=\"Lost.pas\"/></ItemGroup></Project>"},
        {"/g/p/P.dpr",
         "program P;\nuses\n Main in 'sub/Main.pas' {MainForm},\n Extra in '..\\Extra.pas' {E};"},
        {"/g/p/P.dof", "[Version Info]\r\nCodePage=1251\r\n"},
        {"/g/p/sub/Main.pas", ""},
        {"/g/p/sub/main.fmx", ""},
        {"/g/p/sub/main.DFM", ""},
        {"/g/Extra.pas", ""},
    };
    const TProjectSet set = ReadProjectSet(files, "/g/p/../All.groupproj");
    EXPECT_EQ(set.GroupFile, "/g/All.groupproj");
    ASSERT_EQ(set.Projects.size(), 1U);
    EXPECT_EQ(set.Projects[0].CodePage, "1251");
    EXPECT_EQ(Dump(set.Projects[0]),
              "Main /g/p/sub/Main.pas MainForm main.DFM \n"
              "x.dcp /g/p/x.dcp    missing\n"
              "Lost /g/p/Lost.pas    missing\n"
              "Extra /g/Extra.pas E  \n");
    std::string problems;
    for (const TProjectProblem& problem : set.Problems)
        problems +=
            FileNameOf(problem.FileName) + ":" + std::to_string(problem.Line) + " " + problem.Problem + "\n";
    EXPECT_EQ(problems,
              "P.dproj:1 the unit /g/p/Lost.pas does not exist\n"
              "P.dpr:4 the form file of /g/Extra.pas does not exist\n"
              "All.groupproj:0 the project gone.dproj does not exist\n");
    EXPECT_THROW(ReadProjectSet(files, "/g/none.dpr"), EBadInput);
    EXPECT_THROW(ReadProjectSet(files, "/g/Extra.pas"), EBadInput);
}

TEST(Projectreader, AGroupWithoutAUsableProjectIsRefusedWithTheReasons) {
    TMemoryFileSystem files;
    files.Files["/g/Bad.dproj"] = "no xml";
    const TCase cases[] = {
        {"a.groupproj", "<Project/>"},
        {"b.groupproj", "<Project><ItemGroup><Projects Include='b.groupproj'/></ItemGroup></Project>"},
        {"c.groupproj", "<Project><ItemGroup><Projects Include='Gone.dproj'/></ItemGroup></Project>"},
        {"d.groupproj", "<Project><ItemGroup><Projects Include='Bad.dproj'/></ItemGroup></Project>"},
        {"e.bpg", "PROJECTS = "},
        {"f.bpg", "PROJECTS = x.exe\nx.exe: x.bpr\n"},
        {"g.lpg", "<CONFIG><ProjectGroup><Targets Count='0'/></ProjectGroup></CONFIG>"},
    };
    std::string messages;
    for (const TCase& row : cases) {
        files.Files["/g/" + std::string(row.Text)] = row.Expected;
        try {
            ReadProjectSet(files, "/g/" + std::string(row.Text));
            ADD_FAILURE() << row.Text;
        } catch (const EBadInput& error) {
            const std::string& text = error.Problem();
            messages += FileNameOf(error.File()) + " " + text.substr(0, text.rfind('.')) + "\n";
        }
    }
    const std::string none = " the group has no project that can be opened";
    EXPECT_EQ(messages, "a.groupproj" + none + "\nb.groupproj" + none +
                            ": the project b.groupproj is named a second time\nc.groupproj" + none +
                            ": the project Gone.dproj does not exist\nd.groupproj" + none +
                            ": /g/Bad.dproj:1: no valid XML: No document element found. Repair the project "
                            "file\ne.bpg" +
                            none + "\nf.bpg" + none + ": the project x.bpr does not exist\ng.lpg" + none +
                            "\n");
}

class TClosedFolder : public TWrappedFileSystem {
  public:
    using TWrappedFileSystem::TWrappedFileSystem;

  protected:
    void Before(const std::string& call, const std::string& arguments) override {
        if (call == "List" && arguments == "/p/closed")
            throw EFileError(arguments, 0, "is closed", "Open it");
    }
};

TEST(Projectreader, AFolderThatCannotBeListedCostsItsOwnUnitsOnly) {
    TMemoryFileSystem files;
    files.Files = {
        {"/p/P.dpr",
         "program P;\nuses\n B in 'Closed\\sub\\B.pas' {G},\n C in 'x\\..\\closed\\C.pas',\n"
         " D in 'closed2\\D.pas',\n A in 'A.pas' {F};"},
        {"/p/A.pas", ""},
        {"/p/A.dfm", ""},
        {"/p/x/x", ""},
        {"/p/closed/C.pas", ""},
        {"/p/closed/sub/B.pas", ""},
    };
    TClosedFolder closed(files);
    const TProjectSet set = ReadProjectSet(closed, "/p/P.dpr");
    std::string problems;
    for (const TProjectProblem& problem : set.Problems)
        problems += std::to_string(problem.Line) + " " + problem.Problem + "\n";
    const std::string reason = " cannot be reached: /p/closed: is closed. Open it\n";
    EXPECT_EQ(problems, "3 the unit /p/Closed/sub/B.pas" + reason + "4 the unit /p/x/../closed/C.pas" +
                            reason + "5 the unit /p/closed2/D.pas does not exist\n");
    EXPECT_NE(Dump(set.Projects.at(0)).find("A /p/A.pas F A.dfm"), std::string::npos);
}

}  // namespace
}  // namespace tml
