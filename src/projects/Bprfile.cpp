// C++ projects of three kinds, told apart by their content: a makefile with the macro OBJFILES; XML with
// an element <OBJFILES value="...">; XML with a list of <FILE> elements, which then rules. The object files
// stand for the sources they are compiled from, the main source among them; names of forms stand in the
// list of files or else in the main source, which has the project's name unless <MAINSOURCE> says another.
// (RESDEPEN lists the form files without the names of their forms and is not read.) Text that begins like
// XML and is none, another root and a file without any of the lists are errors.
#include "projects/Bprfile.h"

#include "base/Codedtext.h"
#include "base/Errors.h"
#include "base/Files.h"
#include "base/Utf8.h"
#include "projects/Makefile.h"
#include "projects/Xmlfile.h"

namespace tml {
namespace {

std::vector<TNamedUnit> UnitsOfObjects(std::string_view objects, int line) {
    std::vector<TNamedUnit> units;
    for (std::string& path : MakeWords(objects)) {
        // A library's object, in a folder that a macro gives, is no part of the project.
        if (path.find("$(") != std::string::npos) continue;
        TNamedUnit unit;
        unit.Name = LastNamePart(WithExtension(FileNameOf(path), ""));
        unit.Path = std::move(path);
        unit.Line = line;
        units.push_back(std::move(unit));
    }
    return units;
}

[[noreturn]] void FailWithoutUnits(const std::string& fileName) {
    throw EBadInput(fileName, 0, "the list OBJFILES is missing", "Choose a project file");
}

void ReadMakefile(TParsedProject& project, const std::string& text, const std::string& fileName) {
    const TMakefile make = ParseMakefile(text);
    const auto objects = make.Macros.find("OBJFILES");
    if (objects == make.Macros.end()) FailWithoutUnits(fileName);
    project.Units = UnitsOfObjects(objects->second.Value, objects->second.Line);
    // The options of the IDE stand at the end of the makefile.
    project.CodePage = ParseOptionsCodePage(text);
}

void ReadXml(TParsedProject& project, const TXmlFile& xml, const std::string& fileName) {
    const pugi::xml_node macros = xml.Root().child("MACROS");
    const pugi::xml_node objects = macros.child("OBJFILES");
    project.Units = ReadFileList(xml);
    if (project.Units.empty()) {
        if (!objects) FailWithoutUnits(fileName);
        project.Units = UnitsOfObjects(objects.attribute("value").value(), xml.LineOf(objects));
    }
    const std::string mainSource = macros.child("MAINSOURCE").attribute("value").value();
    if (!mainSource.empty()) project.MainSource = mainSource;
    project.CodePage = ParseOptionsCodePage(xml.Root().child_value("IDEOPTIONS"));
}

}  // namespace

TParsedProject ParseBpr(const std::string& bytes, const std::string& fileName, const std::string& codePage) {
    TParsedProject project;
    project.IsCpp = true;
    project.MainSource = WithExtension(FileNameOf(fileName), ".cpp");
    const TCodedText coded(bytes, fileName, codePage);
    if (Trim(coded.Text()).starts_with('<'))
        ReadXml(project, TXmlFile(bytes, fileName, codePage, "PROJECT"), fileName);
    else
        ReadMakefile(project, coded.Text(), fileName);
    return project;
}

}  // namespace tml
