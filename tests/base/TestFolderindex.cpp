#include <gtest/gtest.h>

#include "base/Folderindex.h"
#include "support/Memoryfiles.h"
#include "support/Wrappedfiles.h"

namespace tml {
namespace {

TEST(Folderindex, FindsFormFilesInAnyCaseWithEachFolderListedOnce) {
    TMemoryFileSystem memory;
    for (const char* name : {"/p/A.pas", "/p/a.DFM", "/p/B.pas", "/p/B.lfm", "/p/B.Xfm", "/p/C.pas"})
        memory.Files[name] = "";
    TLoggingFileSystem files(memory);
    TFolderIndex folders(files);
    EXPECT_EQ(folders.FormFileOf("/p/A.pas"), "/p/a.DFM");
    EXPECT_EQ(folders.FormFileOf("/p/B.pas"), "/p/B.Xfm");
    EXPECT_EQ(folders.FormFileOf("/p/C.pas"), "");
    EXPECT_EQ(folders.FormFileOf("/q/C.pas"), "");
    EXPECT_EQ(folders.UnitFileOf("/p/a.DFM"), "/p/A.pas");
    EXPECT_EQ(folders.Find("/p", "..\\P\\.\\c.PAS"), "/p/C.pas");
    for (const char* none : {"::", "C:", "/", "..", "D.pas"})
        EXPECT_EQ(folders.Find("/p", none), std::nullopt) << none;
    EXPECT_EQ(std::count(files.Log.begin(), files.Log.end(), "List /p"), 1);
}

}  // namespace
}  // namespace tml
