// What every project format says, broken files among them, groups, and the samples as they are on disk.
#include <gtest/gtest.h>

#include "base/Codedtext.h"
#include "base/Diskfiles.h"
#include "base/Errors.h"
#include "projects/Projectfiles.h"
#include "projects/Projectreader.h"
#include "support/Memoryfiles.h"

namespace tml {
namespace {

/// "main M, page P: Name path Form:Base @line; ..." or "group: a; b; ".
std::string Dump(const TParsedProject& project) {
    std::string text;
    if (project.IsGroup) {
        text = "group: ";
        for (const std::string& name : project.Projects)
            text += name + "; ";
        return text;
    }
    text = (project.IsCpp ? "C++ main " : "main ") + project.MainSource;
    if (!project.CodePage.empty()) text += ", page " + project.CodePage;
    text += ": ";
    for (const TNamedUnit& unit : project.Units) {
        text += unit.Name + " " + unit.Path;
        if (!unit.FormName.empty()) text += " " + unit.FormName + ":" + unit.DesignClass;
        text += " @" + std::to_string(unit.Line) + "; ";
    }
    return text;
}

struct TFormatRow {
    const char* FileName;
    const char* Text;
    const char* Expected;  ///< the model, or the message of a broken file
};

std::string Parse(const TFormatRow& row) {
    try {
        return Dump(FindMainSourceParser(row.FileName)(row.Text, row.FileName, "1252"));
    } catch (const EBadInput& error) {
        return error.what();
    }
}

constexpr TFormatRow kFormats[] = {
    {"p.dpk", "package P;\r\nrequires rtl;\r\ncontains\r\n  A in 'a.pas' {AForm},\r\n  B;\r\nend.",
     "main p.dpk: A a.pas AForm: @4; "},
    {"p.bdsproj",
     "<P><Source><Source Name=\"MainSource\">P.dpr</Source></Source>"
     "<VersionInfo><VersionInfo Name=\"CodePage\">932</VersionInfo></VersionInfo></P>",
     "main P.dpr, page 932: "},
    {"p.bdsproj",
     "<P><Source Name=\"MainSource\">p.cpp</Source>\n"
     "<FILELIST><FILE FILENAME=\"f\\a.cpp\" FORMNAME=\"AForm\" DESIGNCLASS=\"TFrame\"/></FILELIST></P>",
     "C++ main p.cpp: a f\\a.cpp AForm:TFrame @2; "},
    {"g.bdsgroup",
     "<G><Projects><Projects Name=\"A.exe\">a\\A.bdsproj</Projects>"
     "<Projects Name=\"Targets\">A.exe B.dll</Projects>"
     "<Projects Name=\"B.dll\">B.bdsproj</Projects></Projects></G>",
     "group: a\\A.bdsproj; B.bdsproj; "},
    {"g.bpg",
     "# PROJECTS = no.exe\r\nMAKE = $(ROOT)\\make.exe -f$**\r\nPROJECTS = a.exe C:\\bin\\B.exe \\\r\n"
     "  \"c d.exe\" e.dll\r\n\r\nA.exe: a.dpr\r\n  $(DCC)\r\nC:\\bin\\b.exe: C:\\src\\b.bpr\r\n"
     "\"c d.exe\": \"sub\\c d.dpr\"\r\n  x.exe: command.dpr\r\n",
     "group: a.dpr; C:\\src\\b.bpr; sub\\c d.dpr; e.dll; "},
    {"p.bpr",
     "PROJECT = p.exe\nOBJFILES = p.obj new\\table.obj $(BCB)\\lib\\memmgr.obj\nRESDEPEN = x.dfm\n"
     "!ifdef IDEOPTIONS\n[Version Info]\nCodePage=1250\n!endif\n",
     "C++ main p.cpp, page 1250: p p.obj @2; table new\\table.obj @2; "},
    {"p.bpr",
     "<?xml version='1.0'?>\n<PROJECT>\n<MACROS><OBJFILES value=\"a.obj\n b.obj\"/></MACROS>\n"
     "<IDEOPTIONS>\n[Version Info]\nCodePage=1251\n</IDEOPTIONS></PROJECT>",
     "C++ main p.cpp, page 1251: a a.obj @3; b b.obj @3; "},
    {"p.bpr",
     "<PROJECT><MACROS><MAINSOURCE value=\"q.cpp\"/><OBJFILES value=\"a.obj\"/></MACROS><FILELIST>\n"
     "<FILE FILENAME=\"q.res\" FORMNAME=\"\" UNITNAME=\"q.res\" CONTAINERID=\"ResTool\"/>\n"
     "<FILE FILENAME=\"gr\xFC\xDF\x65.cpp\" FORMNAME=\"AForm\" CONTAINERID=\"CCompiler\" DESIGNCLASS=\"\"/>\n"
     "</FILELIST></PROJECT>",
     "C++ main q.cpp: q.res q.res @2; grüße grüße.cpp AForm: @3; "},
    {"p.bpk", "<PROJECT><MACROS><OBJFILES value=\"a.obj\"/></MACROS></PROJECT>",
     "C++ main p.cpp: a a.obj @1; "},
    {"p.cpp",
     "#include <vcl.h>\r\n//USEFORM(\"no.cpp\", No);\r\nUSEFORM(\"new\\table.cpp\", Table); "
     "/* TDataModule: File Type */\r\nUSEUNIT(\"u.pas\"); // note: plain\r\n"
     "USEFORMNS(\"x\\y.pas\", Y, YForm);\r\n/* TFrame: not of Y */\r\n#define F USEFORM(\"d.cpp\", D)\r\n"
     "USEFORM(\"cut.cpp\", \r\nUSEFORM(\"z.cpp\", Z) /* a note: with blanks */",
     "C++ main p.cpp: table new\\table.cpp Table:TDataModule @3; u u.pas @4; y x\\y.pas YForm: @5; "
     "z z.cpp Z: @9; "},
    {"p.cbproj",
     "<Project><PropertyGroup><MainSource>p.cpp</MainSource></PropertyGroup><ItemGroup>\n"
     "<CppCompile Include=\"a%28b%29.cpp\"><Form>F</Form><DesignClass>TFrame</DesignClass></CppCompile>\n"
     "<DelphiCompile Include=\"x.pas\"/><FormResources Include=\"a.dfm\"/>\n"
     "<PascalCompile Include=\"My.Unit.pas\"><Form>G</Form></PascalCompile></ItemGroup></Project>",
     "C++ main p.cpp: a(b) a(b).cpp F:TFrame @2; x x.pas @3; Unit My.Unit.pas G: @4; "},
    {"p.cbproj",
     "<Project><ProjectExtensions><Source><Source Name=\"MainSource\">old.cpp</Source></Source>"
     "</ProjectExtensions></Project>",
     "C++ main old.cpp: "},
    {"p.lpi",
     "<CONFIG><ProjectOptions><General><MainUnit Value=\"1\"/></General><Units Count=\"4\">\n"
     "<Unit0><Filename Value=\"f/main.pas\"/><IsPartOfProject Value=\"True\"/><UnitName Value=\"f.Main\"/>"
     "<ComponentName Value=\"MainForm\"/><ResourceBaseClass Value=\"Form\"/></Unit0>\n"
     "<Unit1><Filename Value=\"p.lpr\"/><IsPartOfProject Value=\"True\"/></Unit1>\n"
     "<Unit2><Filename Value=\"open.pas\"/><ComponentName Value=\"No\"/></Unit2>\n"
     "<Unit><Filename Value=\"d.pas\"/><IsPartOfProject Value=\"true\"/><ComponentName Value=\"Data\"/>"
     "<HasResources Value=\"True\"/><ResourceBaseClass Value=\"DataModule\"/></Unit>"
     "</Units></ProjectOptions></CONFIG>",
     "main p.lpr: Main f/main.pas MainForm: @2; d d.pas Data:TDataModule @5; "},
    {"g.lpg",
     "<CONFIG><ProjectGroup><Targets><Target0 FileName=\"a/a.lpi\"/><Target FileName=\"b.lpi\"/></Targets>"
     "</ProjectGroup></CONFIG>",
     "group: a/a.lpi; b.lpi; "},
    // Broken ones.
    {"p.cbproj", "MZ\x90", "p.cbproj:1: no valid XML: No document element found. Repair the project file"},
    {"p.bdsproj", "<P>\n<Source Name=\"MainSource\">P.dpr</Source>\n<Ver",
     "p.bdsproj:3: no valid XML: Error parsing start element tag. Repair the project file"},
    {"g.bdsgroup", "<G/>", "g.bdsgroup: the file names no projects. Choose a project group"},
    {"p.bdsproj", "<P/>", "p.bdsproj: the file names no main source. Choose a project file"},
    {"g.bpg", "A.exe: a.dpr\n", "g.bpg: the list PROJECTS is missing. Choose a project group"},
    {"p.bpr", "PROJECT = p.exe\n", "p.bpr: the list OBJFILES is missing. Choose a project file"},
    {"p.bpr", "<PROJECT/>", "p.bpr: the list OBJFILES is missing. Choose a project file"},
    {"p.lpi", "\n<Package/>", "p.lpi:2: the root element is not \"CONFIG\". Choose a project file"},
    {"g.lpg", "<CONFIG/>", "g.lpg: the element \"Targets\" is missing. Choose a project file"},
    {"p.dpk", "package P;\ncontains A in\n",
     "p.dpk:3: expected the path of the unit behind \"in\". Check the "
     "uses clause of the program"},
};

TEST(ProjectFormats, GiveTheirModelOrSayWhatIsBroken) {
    for (const TFormatRow& row : kFormats)
        EXPECT_EQ(Parse(row), row.Expected) << row.FileName << "\n" << row.Text;
}

TEST(ProjectFormats, AreNamedByTheirExtensions) {
    EXPECT_NE(FindProjectParser("P.LPI"), nullptr);
    EXPECT_EQ(FindProjectParser("p.cpp"), nullptr) << "a C++ source alone is no project";
    EXPECT_EQ(FindMainSourceParser("main.pas"), nullptr);
}

std::string DumpSet(const TProjectSet& set) {
    std::string text;
    for (const TProjectModel& project : set.Projects)
        text += project.FileName + " " + std::to_string(project.Units.size()) + "\n";
    for (const TProjectProblem& problem : set.Problems)
        text += "! " + problem.FileName + ": " + problem.Problem + "\n";
    return text;
}

TEST(ProjectGroups, GoOnBehindMembersThatAreMissingBrokenOrInACircle) {
    TMemoryFileSystem files;
    const std::string program = "program P; uses A in 'a.pas'; begin end.";
    files.Files = {{"/p/all.bpg",
                    "PROJECTS = one gone bad lib tool inner self\none: one.dpr\nlib: lib.lpk\ntool: "
                    "tool.dpk\ngone: gone.dpr\nbad: bad.lpi\n"
                    "inner: sub\\inner.lpg\nself: ALL.bpg\n"},
                   {"/p/one.dpr", program},
                   {"/p/tool.dpk", "package T; contains A in 'a.pas'; end."},
                   {"/p/a.pas", ""},
                   {"/p/bad.lpi", "<CONFIG>"},
                   {"/p/sub/inner.lpg",
                    "<CONFIG><ProjectGroup><Targets><Target FileName=\"two.dpr\"/>"
                    "<Target FileName=\"../all.bpg\"/></Targets></ProjectGroup></CONFIG>"},
                   {"/p/sub/two.dpr", program},
                   {"/p/sub/a.pas", ""}};
    EXPECT_EQ(DumpSet(ReadProjectSet(files, "/p/all.bpg")),
              "/p/one.dpr 1\n"
              "/p/tool.dpk 1\n"
              "/p/sub/two.dpr 1\n"
              "! /p/all.bpg: the project gone.dpr does not exist\n"
              "! /p/bad.lpi: no valid XML: Start-end tags mismatch. Repair the project file\n"
              "! /p/sub/inner.lpg: the project ../all.bpg is named a second time\n"
              "! /p/all.bpg: the project ALL.bpg is named a second time\n");
}

/// "Unit Form:Base form file header" per unit, file names only; "?" where a file is missing.
std::string DumpUnits(const TProjectModel& project) {
    std::string text;
    for (const TProjectUnit& unit : project.Units) {
        text += (unit.Missing ? "?" : "") + FileNameOf(unit.FileName);
        if (!unit.FormName.empty()) text += " " + unit.FormName + ":" + unit.DesignClass;
        for (const std::string& beside : {unit.FormFile, unit.HeaderFile})
            if (!beside.empty()) text += " " + FileNameOf(beside);
        text += "\n";
    }
    return text;
}

TEST(ProjectSamples, OpenFromDiskInEitherFormat) {
    const auto files = MakeDiskFileSystem();
    const std::string examples = std::string(TML_TESTS) + "/../examples/";
    const TProjectSet newer = ReadProjectSet(*files, examples + "farm.groupproj");
    const TProjectSet older = ReadProjectSet(*files, examples + "farm.bpg");
    ASSERT_EQ(newer.Projects.size(), 2U);
    ASSERT_EQ(older.Projects.size(), 2U);
    EXPECT_EQ(DumpUnits(newer.Projects[1]),
              "Cellar.cpp\n"
              "Main.cpp MainForm: Main.dfm Main.h\n"
              "Tasting.cpp TastingForm: Tasting.dfm tasting.h\n"
              "Cellardata.cpp CellarData:TDataModule Cellardata.dfm Cellardata.h\n"
              "Vintages.cpp Vintages.h\n"
              "Bottleprice.pas\n");
    EXPECT_EQ(DumpUnits(older.Projects[1]), DumpUnits(newer.Projects[1]));
    EXPECT_EQ(older.Projects[1].CodePage, "1252");
    EXPECT_EQ(FileNameOf(older.Projects[1].MainSource), "Cellar.cpp");
}

TEST(ProjectSamples, AreReadInTheirOwnEncodings) {
    const auto files = MakeDiskFileSystem();
    const std::string examples = std::string(TML_TESTS) + "/../examples/";
    for (const auto& [name, encoding, part] :
         {std::tuple("orchard/units/Lettersru.pas", "windows-1251", "'Здравствуйте!'"),
          std::tuple("orchard/units/Lettersel.pas", "UTF-8", "'Καλημέρα σας!'"),
          std::tuple("cellar/forms/Tasting.cpp", "windows-1252", "a Château above 20 €")}) {
        const TCodedText text(files->Read(examples + name));
        EXPECT_EQ(text.Encoding().Name, encoding) << name;
        EXPECT_NE(text.Text().find(part), std::string::npos) << name;
    }
}

}  // namespace
}  // namespace tml
