#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace tml {
namespace {

namespace fs = std::filesystem;

/// Units that are quick to compile and hold much of what a rewrite can get wrong.
constexpr const char* kUnits[] = {"bzip2/src/bzip2.pas",          "cdrom/src/discid.pp",
                                  "fcl-base/src/custapp.pp",      "fcl-base/src/gettext.pp",
                                  "fcl-base/src/bufstream.pp",    "fcl-base/src/streamio.pp",
                                  "fcl-image/src/fpwritepcx.pas", "fcl-json/src/jsonscanner.pp"};

TEST(Proof, RewrittenUnitsStillCompile) {
    const fs::path packages = "/usr/share/fpcsrc/3.2.2/packages";
    ASSERT_TRUE(fs::exists(packages)) << "install fpc-source";
    std::string command = std::string("'") + TML_TESTS "/../proof/prove' '" TML_BIN "/tmllang' --strict";
    for (const char* unit : kUnits)
        command += " " + (packages / unit).string();
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(std::system((command + " --const").c_str()), 0);
}

}  // namespace
}  // namespace tml
