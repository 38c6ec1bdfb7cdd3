#include "ide/Librarypath.h"

namespace tml {
namespace {

#ifdef _WIN32
constexpr const char* kLibraryFile = "TmlLang_Common.dll";
#else
constexpr const char* kLibraryFile = "TmlLang_Common.so";
#endif

}  // namespace

std::string CommonLibraryPath(IFileSystem& files, const std::string& programFolder) {
    std::string beside = JoinPath(programFolder, kLibraryFile);
    if (files.Stat(beside)) return beside;
    return JoinPath(JoinPath(FolderOf(programFolder), "lib/tmllang"), kLibraryFile);
}

}  // namespace tml
