// The samples keep every byte of their forms when all translations go into a file, out of the forms and back.
#include <gtest/gtest.h>

#include "support/Workfolder.h"

namespace tml {
namespace {

struct TTrip {
    const char* Folder;
    const char* Project;
    const char* Setup;  ///< arguments that localize more of it, "" for the sample as it is
};

const TTrip kTrips[] = {{"orchard", "Orchard.dproj", ""},
                        {"orchard", "Orchard.dproj", " --languages English,German"},
                        {"cellar", "Cellar.cbproj", " --languages English,German,Hebrew"},
                        {"harbour", "Harbour.lpi", ""}};

TEST(Roundtrip, UpdateSaveClearAndLoadKeepEveryByte) {
    for (const TTrip& trip : kTrips)
        for (const char* file : {"../texts.mll", "../texts.mlb"}) {
            SCOPED_TRACE(std::string(trip.Folder) + trip.Setup + " " + file);
            const TWorkFolder work;
            work.Copy(std::string("examples/") + trip.Folder, "app");
            const auto run = [&](const std::string& command, const std::string& arguments) {
                const auto ran = work.Run("cd app && " + work.Program() + " " + command + " " + trip.Project +
                                          arguments + " --yes 2>&1");
                ASSERT_EQ(ran.Exit, 0) << ran.Output;
            };
            if (*trip.Setup != '\0') run("setup", trip.Setup);
            run("update", "");
            const auto before = ContentOf(work / "app");
            run("save", std::string(" ") + file);
            run("clear", "");
            EXPECT_NE(ContentOf(work / "app"), before);
            run("load", std::string(" ") + file);
            EXPECT_EQ(ContentOf(work / "app"), before);
        }
}

}  // namespace
}  // namespace tml
