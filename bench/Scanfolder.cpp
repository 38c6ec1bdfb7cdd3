// bench-scan FOLDER COMMON: the work of "scan --count" on every file of a folder, straight through the
// library and with every rule on. COMMON is the common library's file.
#include <exception>
#include <iostream>
#include <stdexcept>

#include "Inputfiles.h"
#include "Scansettings.h"
#include "base/Codedtext.h"
#include "host/Commonlibrary.h"

namespace tml::bench {
namespace {

int CountIn(const std::string& folder, ICommonLibrary* common) {
    int count = 0;
    std::string bytes;
    for (const std::string& path : FilesBelow(folder)) {
        ReadInto(bytes, path);
        count += CountStrings(EveryRule(TCodedText::TextOf(bytes), path, common)).Found;
    }
    return count;
}

void Run(const std::string& folder, const std::string& commonFile) {
    const auto loader = MakeCommonLibraryLoader(commonFile);
    ICommonLibrary* common = loader->Load();
    if (common == nullptr) throw std::runtime_error(commonFile + ": cannot be loaded");
    std::cout << CountIn(folder, common) << "\n";
}

}  // namespace
}  // namespace tml::bench

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "bench-scan FOLDER COMMON\n";
        return 2;
    }
    try {
        tml::bench::Run(argv[1], argv[2]);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "bench-scan: " << error.what() << "\n";
        return 2;
    }
}
