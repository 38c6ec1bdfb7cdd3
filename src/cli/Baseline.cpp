#include "cli/Baseline.h"

#include <algorithm>
#include <filesystem>

#include "base/Errors.h"
#include "base/Stringlist.h"

namespace tml {
namespace {

constexpr std::string_view kHead = "tmllang baseline 1";

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        const std::size_t sign = std::string_view("\\\t\r\n").find(c);
        if (sign == std::string_view::npos)
            escaped += c;
        else
            escaped += {'\\', "\\trn"[sign]};
    }
    return escaped;
}

std::string FolderOfFile(const std::string& path) {
    return FolderOf(std::filesystem::absolute(path).lexically_normal().generic_string());
}

/// The same on every machine where file and baseline are in one tree.
std::string LineOf(const TFinding& finding, const std::string& folder) {
    const std::filesystem::path file = std::filesystem::absolute(finding.File).lexically_normal();
    std::string line =
        Escaped(finding.Kind) + '\t' + Escaped(file.lexically_relative(folder).generic_string());
    for (const std::string& field : finding.Content)
        line += '\t' + Escaped(field);
    return line;
}

}  // namespace

TBaseline::TBaseline(IFileSystem& files, const TBaselineOptions& options)
    : files_(files), writeTo_(options.WriteBaseline) {
    const std::string& readFrom = options.Baseline;
    if (readFrom.empty()) return;
    readFolder_ = FolderOfFile(readFrom);
    const TStringList lines = TStringList::FromText(files_.Read(readFrom));
    if (lines.Empty() || lines[0] != kHead)
        throw EBadInput(readFrom, 1, "is no baseline", "\"--write-baseline\" writes one");
    for (int i = 1; i < lines.Count(); ++i)
        ++accepted_[lines[i]];
}

bool TBaseline::Accepts(const TFinding& finding) {
    if (!writeTo_.empty()) found_.push_back(LineOf(finding, FolderOfFile(writeTo_)));
    if (accepted_.empty()) return false;
    const auto line = accepted_.find(LineOf(finding, readFolder_));
    if (line == accepted_.end() || line->second == 0) return false;
    --line->second;
    return true;
}

void TBaseline::Write() {
    if (writeTo_.empty()) return;
    std::sort(found_.begin(), found_.end());
    std::string text = std::string(kHead) + '\n';
    for (const std::string& line : found_)
        text += line + '\n';
    WriteFileSafely(files_, writeTo_, text);
}

void AddBaselineOptions(CLI::App* command, TBaselineOptions& options) {
    command->add_option("--baseline", options.Baseline, "Passes over the findings that this file lists")
        ->type_name("FILE");
    command
        ->add_option("--write-baseline", options.WriteBaseline,
                     "Writes all findings into this file, for --baseline of later runs")
        ->type_name("FILE");
}

}  // namespace tml
