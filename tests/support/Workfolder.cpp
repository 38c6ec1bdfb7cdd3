#include "support/Workfolder.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <random>

namespace tml {

namespace fs = std::filesystem;

std::string BytesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void WriteBytes(const fs::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

std::map<std::string, std::string> ContentOf(const fs::path& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files[entry.path().lexically_relative(folder).generic_string()] = BytesOf(entry.path());
    return files;
}

TWorkFolder::TWorkFolder()
    : path_(fs::temp_directory_path() / ("tml-test-" + std::to_string(std::random_device{}()))) {
    fs::create_directories(path_ / "config");
}

TWorkFolder::~TWorkFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

void TWorkFolder::Copy(const std::string& folder, const std::string& name) const {
    fs::copy(fs::path(TML_TESTS) / ".." / folder, path_ / name, fs::copy_options::recursive);
}

TWorkFolder::TRun TWorkFolder::Run(const std::string& command) const {
    TRun run;
    FILE* pipe = ::popen(("cd '" + path_.string() + "' && " + command).c_str(), "r");
    if (pipe == nullptr) return run;
    std::array<char, 4096> part{};
    for (std::size_t size = 0; (size = std::fread(part.data(), 1, part.size(), pipe)) > 0;)
        run.Output.append(part.data(), size);
    run.Exit = WEXITSTATUS(::pclose(pipe));
    return run;
}

std::string TWorkFolder::Program() const {
    return "'" TML_BIN "/tmllang' --config '" + (path_ / "config").string() + "'";
}

}  // namespace tml
