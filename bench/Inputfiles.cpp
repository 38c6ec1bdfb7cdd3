#include "Inputfiles.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <stdexcept>

namespace tml::bench {

std::vector<std::string> FilesBelow(const std::string& folder) {
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (entry.is_regular_file()) paths.push_back(entry.path().string());
    std::sort(paths.begin(), paths.end());
    return paths;
}

void ReadInto(std::string& buffer, const std::string& path) {
    struct TClose {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    const std::unique_ptr<std::FILE, TClose> file(std::fopen(path.c_str(), "rb"));
    if (!file) throw std::runtime_error(path + ": cannot be read");
    buffer.resize(std::filesystem::file_size(path));
    if (std::fread(buffer.data(), 1, buffer.size(), file.get()) != buffer.size())
        throw std::runtime_error(path + ": changed while it was read");
}

}  // namespace tml::bench
