#include "support/Corpora.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>

#include "base/Utf8.h"

namespace tml {

namespace fs = std::filesystem;

std::string ReadFileOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<fs::path> FilesBelow(const char* folder, const std::set<std::string>& extensions) {
    std::vector<fs::path> files;
    if (fs::exists(folder))
        for (const auto& entry : fs::recursive_directory_iterator(folder))
            if (entry.is_regular_file() && extensions.contains(LowerCase(entry.path().extension().string())))
                files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

std::vector<fs::path> PartOf(const std::vector<fs::path>& files, std::size_t n) {
#ifdef NDEBUG
    const bool whole = true;
#else
    const bool whole = std::getenv("TML_WHOLE_CORPUS") != nullptr;
#endif
    if (whole) return files;
    std::vector<fs::path> part;
    for (std::size_t i = 0; i < files.size(); i += n)
        part.push_back(files[i]);
    return part;
}

TSimpleReading SimpleReading(const std::string& text, bool nests) {
    TSimpleReading reading;
    const char* const t = text.c_str();  // ends with a zero, so that t[i + 1] may always be looked at
    const std::size_t size = text.size();
    for (std::size_t i = 0; i < size;) {
        if (t[i] == '\'') {
            const std::size_t begin = i++;
            while (i < size && t[i] != '\r' && t[i] != '\n' && (t[i] != '\'' || t[i + 1] == '\''))
                i += t[i] == '\'' ? 2 : 1;
            if (i < size && t[i] == '\'') reading.Literals.emplace_back(begin, ++i);
        } else if (t[i] == '"') {
            std::size_t end = i + 1;
            while (end < size && t[end] != '"' && t[end] != '\n' && t[end] != '\r')
                ++end;
            i = end < size && t[end] == '"' ? end + 1 : i + 1;
        } else if (t[i] == '/' && t[i + 1] == '/') {
            while (i < size && t[i] != '\n' && t[i] != '\r')
                ++i;
        } else if (t[i] == '{' || (t[i] == '(' && t[i + 1] == '*')) {
            const std::size_t begin = i;
            const bool brace = t[i] == '{';
            int depth = 1;
            for (i += brace ? 1 : 2; i < size && depth > 0;) {
                const bool opens = brace ? t[i] == '{' : t[i] == '(' && t[i + 1] == '*';
                const bool closes = brace ? t[i] == '}' : t[i] == '*' && t[i + 1] == ')';
                depth += (opens && nests ? 1 : 0) - (closes ? 1 : 0);
                i += !brace && (closes || (opens && nests)) ? 2 : 1;
            }
            if (t[begin + (brace ? 1 : 2)] == '$') reading.Directives.emplace_back(begin, i);
        } else {
            ++i;
        }
    }
    return reading;
}

std::vector<TCompilerToken> CompilerTokens(const fs::path& path) {
    std::vector<TCompilerToken> tokens;
    const std::string command =
        "clang++ -cc1 -x c++ -std=c++20 -dump-raw-tokens '" + path.string() + "' 2>&1";
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string out;
    for (char buffer[4096]; pipe != nullptr && std::fgets(buffer, sizeof buffer, pipe.get()) != nullptr;)
        out += buffer;
    for (std::size_t pos = 0; pos < out.size();) {
        const std::size_t quote = out.find(" '", pos);
        const std::size_t loc = out.find("Loc=<", pos);
        if (quote == std::string::npos || loc == std::string::npos) break;
        const std::string kind = out.substr(pos, quote - pos);
        const std::size_t close = out.rfind('\'', loc);
        pos = out.find('\n', loc) + 1;
        if (!kind.ends_with("string_literal")) continue;
        // "file:line:column>"
        const std::size_t column = out.rfind(':', pos - 1);
        const std::size_t line = out.rfind(':', column - 1);
        tokens.push_back({out.substr(quote + 2, close - quote - 2), std::stoul(out.substr(line + 1)),
                          std::stoul(out.substr(column + 1))});
    }
    return tokens;
}

std::vector<fs::path> CppHeaders() {
    auto files = FilesBelow("/usr/include/c++", {".h", ".hpp"});
    for (const char* more : {"/usr/include/unicode", "/usr/include/gtest", "/usr/include/linux"})
        for (const fs::path& path : FilesBelow(more, {".h"}))
            files.push_back(path);
    std::vector<fs::path> chosen;
    for (std::size_t i = 0; i < files.size(); i += files.size() / 60 + 1)
        chosen.push_back(files[i]);
    return chosen;
}

}  // namespace tml
