#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <gtest/gtest.h>
#include <thread>

#include "base/Diskfiles.h"
#include "support/Workfolder.h"

namespace tml {
namespace {

TEST(Interrupt, EverySignalStopsACommandAtASafePlace) {
    const TWorkFolder folder;
    // More than a pipe holds, so that the program waits for its reader while the signal comes.
    std::string unit = "unit U; implementation procedure P; begin\n";
    for (int i = 0; i < 4000; ++i)
        unit += "S := 'text number " + std::to_string(i) + "';\n";
    for (int i = 0; i < 10; ++i)
        WriteBytes(folder / ("U" + std::to_string(i) + ".pas"), unit + "end; end.\n");
    const std::string command =
        "echo $$; exec " + folder.Program() + " scan '" + (folder / ".").string() + "' 2>&1";
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const auto before = std::signal(signal, SIG_DFL);
        FILE* pipe = ::popen(command.c_str(), "r");
        ASSERT_NE(pipe, nullptr);
        std::array<char, 4096> line{};
        ASSERT_NE(std::fgets(line.data(), line.size(), pipe), nullptr);
        const int process = std::stoi(line.data());
        ASSERT_NE(std::fgets(line.data(), line.size(), pipe), nullptr);
        ::kill(process, signal);
        while (std::fgets(line.data(), line.size(), pipe) != nullptr) {
        }
        const int status = ::pclose(pipe);
        EXPECT_STREQ(line.data(), "tmllang: stopped. Nothing was written\n");
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 2) << signal << " " << status;
        std::signal(signal, before);
    }
}

TEST(Interrupt, WhoWaitsForAnotherProgramWritesNothingAfterwards) {
    const TWorkFolder folder;
    folder.Copy("examples/orchard", "p");
    const auto disk = MakeDiskFileSystem();
    auto lock = disk->Lock((folder / "p/.tml-lock").string());
    const std::string unit = BytesOf(folder / "p/Main.pas");
    const auto before = std::signal(SIGTERM, SIG_DFL);
    const std::string command = "echo $$; exec " + folder.Program() + " replace '" +
                                (folder / "p/Orchard.dproj").string() + "' --form MainForm 2>&1";
    FILE* pipe = ::popen(command.c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    std::array<char, 4096> line{};
    ASSERT_NE(std::fgets(line.data(), line.size(), pipe), nullptr);
    const int process = std::stoi(line.data());
    // Staging begins when all locks are held; by then it has worked for a while.
    std::this_thread::sleep_for(std::chrono::seconds(1));
    ::kill(process, SIGTERM);
    while (std::fgets(line.data(), line.size(), pipe) != nullptr) {
    }
    const int status = ::pclose(pipe);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 2) << status << line.data();
    EXPECT_EQ(BytesOf(folder / "p/Main.pas"), unit);
    std::signal(SIGTERM, before);
    lock.reset();
}

}  // namespace
}  // namespace tml
