#include "cli/Ignorefiles.h"

#include <algorithm>

#include "base/Errors.h"

namespace tml {
namespace {

/// The end of a "[...]" that begins at pos, npos where it is not closed.
std::size_t EndOfSet(std::string_view pattern, std::size_t pos) {
    std::size_t end = pos + 1;
    if (end < pattern.size() && (pattern[end] == '!' || pattern[end] == '^')) ++end;
    return pattern.find(']', end + 1);
}

bool InSet(std::string_view set, char c) {
    const bool negated = !set.empty() && (set[0] == '!' || set[0] == '^');
    if (negated) set.remove_prefix(1);
    bool found = false;
    for (std::size_t i = 0; i < set.size(); ++i) {
        const bool range = i + 2 < set.size() && set[i + 1] == '-';
        found = found || (range ? set[i] <= c && c <= set[i + 2] : set[i] == c);
        if (range) i += 2;
    }
    return found != negated;
}

/// One character of the pattern that is no star; length is what it takes up.
bool MatchesOne(std::string_view pattern, char c, std::size_t& length) {
    length = 1;
    if (pattern[0] == '?') return c != '/';
    if (pattern[0] == '[') {
        const std::size_t end = EndOfSet(pattern, 0);
        if (end == std::string_view::npos) return c == '[';
        length = end + 1;
        return c != '/' && InSet(pattern.substr(1, end - 1), c);
    }
    if (pattern[0] == '\\' && pattern.size() > 1) {
        length = 2;
        return pattern[1] == c;
    }
    return pattern[0] == c;
}

}  // namespace

bool MatchesGlob(std::string_view pattern, std::string_view path) {
    // Where to go on when what is behind a star does not fit: one character more for the star.
    std::string_view starPattern;
    std::string_view starPath;
    bool canRetry = false;
    bool crosses = false;
    while (true) {
        if (pattern.empty() && path.empty()) return true;
        if (!pattern.empty() && pattern[0] == '*') {
            crosses = pattern.starts_with("**");
            pattern.remove_prefix(crosses ? 2 : 1);
            if (crosses && pattern.starts_with("/") && MatchesGlob(pattern.substr(1), path)) return true;
            starPattern = pattern;
            starPath = path;
            canRetry = true;
            continue;
        }
        std::size_t length = 0;
        if (!pattern.empty() && !path.empty() && MatchesOne(pattern, path[0], length)) {
            pattern.remove_prefix(length);
            path.remove_prefix(1);
            continue;
        }
        if (!canRetry || starPath.empty() || (!crosses && starPath[0] == '/')) return false;
        starPath.remove_prefix(1);
        path = starPath;
        pattern = starPattern;
    }
}

void TIgnoreRules::Add(const std::string& folder, std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        while (!line.empty() && (line.back() == ' ' || line.back() == '\r' || line.back() == '\t'))
            line.remove_suffix(1);
        if (line.empty() || line[0] == '#') continue;
        TRule rule;
        rule.Folder = folder;
        rule.TakesBack = line[0] == '!';
        if (rule.TakesBack) line.remove_prefix(1);
        rule.FoldersOnly = line.ends_with('/');
        if (rule.FoldersOnly) line.remove_suffix(1);
        rule.ByName = line.find('/') == std::string_view::npos;
        if (line.starts_with('/')) line.remove_prefix(1);
        rule.Pattern = line;
        if (!line.empty()) rules_.push_back(std::move(rule));
    }
}

bool TIgnoreRules::Ignores(const std::string& path, bool isFolder) const {
    const std::string name = FileNameOf(path);
    const auto fits = [&](const TRule& rule) {
        if (rule.FoldersOnly && !isFolder) return false;
        return MatchesGlob(rule.Pattern, rule.ByName ? name : RelativeTo(rule.Folder, path));
    };
    const auto last = std::find_if(rules_.rbegin(), rules_.rend(), fits);
    return last != rules_.rend() && !last->TakesBack;
}

void AddRulesOf(IFileSystem& files, const std::string& folder, TIgnoreRules& rules) {
    const std::string path = JoinPath(folder, ".gitignore");
    try {
        if (files.Stat(path)) rules.Add(folder, files.Read(path));
    } catch (const EFileError&) {
        // Nobody is kept from scanning by a list that cannot be read.
    }
}

TIgnoreRules RulesAround(IFileSystem& files, const std::string& folder) {
    std::vector<std::string> around;
    std::string at = folder;
    while (!files.Stat(JoinPath(at, ".git"))) {
        const std::string parent = FolderOf(at);
        if (parent.empty() || parent == at) return {};
        at = parent;
        around.push_back(at);
    }
    TIgnoreRules rules;
    for (auto each = around.rbegin(); each != around.rend(); ++each)
        AddRulesOf(files, *each, rules);
    return rules;
}

}  // namespace tml
