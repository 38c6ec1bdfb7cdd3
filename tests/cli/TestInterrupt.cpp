#include <array>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>

namespace tml {
namespace {

namespace fs = std::filesystem;

TEST(Interrupt, EverySignalStopsACommandAtASafePlace) {
    const fs::path folder =
        fs::temp_directory_path() / ("tml-signal-" + std::to_string(std::random_device{}()));
    fs::create_directories(folder);
    // More than a pipe holds, so that the program waits for its reader while the signal comes.
    std::string unit = "unit U; implementation procedure P; begin\n";
    for (int i = 0; i < 4000; ++i)
        unit += "S := 'text number " + std::to_string(i) + "';\n";
    for (int i = 0; i < 10; ++i)
        std::ofstream(folder / ("U" + std::to_string(i) + ".pas")) << unit + "end; end.\n";
    const std::string command = "echo $$; exec '" TML_BIN "/tmllang' --config '" +
                                (folder / "config").string() + "' scan '" + folder.string() + "' 2>&1";
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
    fs::remove_all(folder);
}

}  // namespace
}  // namespace tml
