// A project or group file of every kind: its parser by itself, and the reading of the project with the
// files beside it.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "Expect.h"
#include "base/Errors.h"
#include "projects/Projectfiles.h"
#include "projects/Projectreader.h"
#include "support/Memoryfiles.h"

namespace tml::fuzz {
namespace {

void CheckProject(TProjectParser parse, const std::string& name, const std::string& bytes) {
    std::size_t units = 0;
    bool readable = true;
    try {
        units = parse(bytes, name, "1251").Units.size();
    } catch (const EBadInput&) {
        readable = false;
    }
    TMemoryFileSystem files;
    files.Files["/p/" + name] = bytes;
    files.Files["/p/Main.pas"] = "unit Main; interface implementation end.";
    files.Files["/p/Main.dfm"] = "object MainForm: TMainForm\nend\n";
    try {
        const TProjectSet set = ReadProjectSet(files, "/p/" + name);
        Expect(readable, "what its parser refuses is not opened");
        for (const TProjectModel& project : set.Projects)
            for (const TProjectUnit& unit : project.Units)
                Expect(unit.Missing || files.Stat(unit.FileName), "a unit that is not missing is there");
        Expect(units == 0 || !set.Projects.empty(), "a project with units is read");
    } catch (const EBadInput&) {
        // The message is for the person; nothing is opened.
    }
}

}  // namespace
}  // namespace tml::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    tml::ParseOptionsCodePage(bytes);
    std::vector<std::string> extensions = tml::ProjectExtensions();
    extensions.insert(extensions.end(), {".lpr", ".cpp"});  // main sources
    for (const std::string& extension : extensions) {
        const std::string name = "Fuzz" + extension;
        tml::fuzz::CheckProject(tml::FindMainSourceParser(name), name, bytes);
    }
    return 0;
}
