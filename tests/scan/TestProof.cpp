#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace tml {
namespace {

namespace fs = std::filesystem;

/// Units that are quick to compile and hold much of what a rewrite can get wrong.
constexpr const char* kUnits[] = {"fcl-base/src/custapp.pp",
                                  "fcl-base/src/gettext.pp",
                                  "fcl-base/src/base64.pp",
                                  "fcl-base/src/idea.pp",
                                  "fcl-base/src/rttiutils.pp",
                                  "bzip2/src/bzip2comn.pp",
                                  "fcl-db/src/codegen/fpcgsqlconst.pp"};

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
