#include "cli/Sarif.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "base/Checksum.h"
#include "base/Format.h"

namespace tml {
namespace {

using TJson = nlohmann::ordered_json;

struct TRule {
    std::string_view ID;
    std::string_view Level;
    std::string_view Text;
};
constexpr std::array kRules{
    TRule{"unused-id", "warning", "A string ID that nothing in the project asks for"},
    TRule{"undecided-id", "note", "A string ID of which the source does not tell whether it is used"},
    TRule{"missing-id", "error", "A call whose string ID the component does not have"},
    TRule{"unchecked-call", "note", "A call whose string ID cannot be checked"},
};

std::size_t RuleOf(const TBadID& bad) {
    if (bad.Kind == TBadIDKind::NotFound) return 2;
    if (bad.Kind == TBadIDKind::Undecided) return 3;
    return bad.Use.Kind == TIDUseKind::Unused ? 0 : 1;
}

std::string RelativePath(const std::string& file, const std::string& folder) {
    const std::string relative = std::filesystem::path(file).lexically_relative(folder).generic_string();
    return relative.empty() ? file : relative;
}

/// As an address: what is no letter, digit or sign of a path is written by its bytes.
std::string AddressOf(const std::string& file) {
    std::error_code ignored;
    std::string address;
    for (const char c : RelativePath(file, std::filesystem::current_path(ignored).string())) {
        const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                             std::string_view("-._~/").find(c) != std::string_view::npos;
        const auto byte = static_cast<unsigned char>(c);
        if (isPlain)
            address += c;
        else
            address += {'%', "0123456789ABCDEF"[byte / 16], "0123456789ABCDEF"[byte % 16]};
    }
    return address;
}

TJson RulesJson() {
    TJson rules;
    for (const TRule& row : kRules) {
        TJson rule;
        rule["id"] = row.ID;
        rule["shortDescription"]["text"] = row.Text;
        rule["defaultConfiguration"]["level"] = row.Level;
        rules.push_back(std::move(rule));
    }
    return rules;
}

std::string MessageOf(const TBadID& bad) {
    const std::string text = Format("'%s': %s", bad.ID, bad.Type());
    return bad.Use.Kind == TIDUseKind::Undecidable ? Format("%s (%s)", text, bad.Use.Text()) : text;
}

TJson LocationOf(const TBadID& bad) {
    TJson location;
    location["physicalLocation"]["artifactLocation"]["uri"] = AddressOf(bad.FileName);
    if (bad.Kind != TBadIDKind::Unused) {
        location["physicalLocation"]["region"]["startLine"] = bad.Place;
        return location;
    }
    TJson entry;
    entry["fullyQualifiedName"] = Format("%s.%s.%s", bad.FormName, bad.ComponentName, bad.ID);
    entry["kind"] = "resource";
    location["logicalLocations"].push_back(std::move(entry));
    return location;
}

TJson ResultOf(const TBadID& bad, const std::string& fingerprint) {
    const std::size_t rule = RuleOf(bad);
    TJson result;
    result["ruleId"] = kRules[rule].ID;
    result["ruleIndex"] = rule;
    result["level"] = kRules[rule].Level;
    result["message"]["text"] = MessageOf(bad);
    result["locations"].push_back(LocationOf(bad));
    result["partialFingerprints"]["tmllangContent/v1"] = fingerprint;
    return result;
}

}  // namespace

void TSarifLog::Add(const TBadID& bad) {
    const std::string content = Format("%s\n%s\n%s\n%s", kRules[RuleOf(bad)].ID,
                                       RelativePath(bad.FileName, projectFolder_), bad.ID, bad.Type());
    results_.push_back({bad, Format("%d:%d", Crc32(content), ++equal_[content])});
}

void TSarifLog::Write(IFileSystem& files, const std::string& path) const {
    TJson run;
    TJson& driver = run["tool"]["driver"];
    driver["name"] = "tmllang";
    driver["version"] = TML_VERSION;
    driver["rules"] = RulesJson();
    run["results"] = TJson::array();
    for (const auto& [bad, fingerprint] : results_)
        run["results"].push_back(ResultOf(bad, fingerprint));
    TJson log;
    log["$schema"] = "https://json.schemastore.org/sarif-2.1.0.json";
    log["version"] = "2.1.0";
    log["runs"].push_back(std::move(run));
    WriteFileSafely(files, path, log.dump(1, '\t', false, TJson::error_handler_t::replace) + "\n");
}

}  // namespace tml
