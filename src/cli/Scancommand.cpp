#include "cli/Scancommand.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <memory>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "cli/Baseline.h"
#include "cli/Jsonlines.h"
#include "cli/Scanpaths.h"
#include "cli/Scantargets.h"
#include "cli/Shownpath.h"
#include "cli/Terminal.h"
#include "projects/Listablefiles.h"
#include "projects/Projectfiles.h"
#include "scan/Duplicates.h"

namespace tml {
namespace {

struct TScanOptions {
    std::vector<std::string> Paths;
    std::vector<std::string> Forms;
    std::vector<std::string> Units;
    std::vector<std::string> Excluded;  ///< globs
    std::string InputName = "standard input";
    bool Skipped = false;
    bool Count = false;
    bool Fail = false;
    TBaselineOptions Baseline;
    bool All = false;  ///< strings that carry an advice fail as well
};

constexpr const char* kStandardInput = "-";

/// Turns ascending offsets of a text into lines and columns in one pass.
class TLineCounter {
  public:
    explicit TLineCounter(std::string_view text) : text_(text), end_(text.find('\n')) {}

    /// 1-based offset in; 1-based line out, the column likewise (in bytes).
    int LineOf(std::size_t offset) {
        if (offset <= begin_) *this = TLineCounter(text_);
        for (; end_ < offset - 1; ++line_) {
            begin_ = end_ + 1;
            end_ = text_.find('\n', begin_);
        }
        return line_;
    }
    int ColumnOf(std::size_t offset) const { return static_cast<int>(offset - begin_); }

  private:
    std::string_view text_;
    std::size_t begin_ = 0;
    std::size_t end_;  ///< of the line, looked for once
    int line_ = 1;
};

class TScanRun {
  public:
    TScanRun(TProgram& program, const TScanOptions& options)
        : program_(program),
          options_(options),
          baseline_(*program.Files, options.Baseline),
          workplace_(program),
          settings_(*workplace_.Host().Registry, workplace_.Host().Runtime->NamesArray()) {
        settings_.ReadSettings();
        common_ = workplace_.Host().CommonLibrary->Load();
    }

    int Run() {
        const std::vector<TScanTarget> targets = Targets();
        int done = 0;
        for (const TScanTarget& target : targets) {
            if (!progress_.Show("Scanning...", ++done, static_cast<int>(targets.size())))
                throw EBadInput("", 0, "stopped", "Nothing was written");
            ScanOne(target);
        }
        progress_.Hide();
        if (options_.Count) PrintCount();
        baseline_.Write();
        if (failures_ > 0 && scanned_ == 0) return kBadInput;
        if (failures_ > 0 || incomplete_ || workplace_.HasProblems()) return kDoneInPart;
        return options_.Fail && failing_ > 0 ? kFindings : kDone;
    }

  private:
    /// The source of a program counts as its project: scanned alone it would pass for the whole of it.
    void ExpectOneProject() const {
        if (options_.Paths.size() == 1) return;
        for (const std::string& path : options_.Paths)
            if (FindProjectParser(path) != nullptr)
                throw EBadInput(path, 0, "a project file stands alone",
                                "Call scan once for each project, and once for units and folders");
    }

    std::vector<TScanTarget> Targets() {
        ExpectOneProject();
        const bool project =
            options_.Paths.size() == 1 && FindProjectParser(options_.Paths.front()) != nullptr;
        if (!project) {
            if (!options_.Forms.empty() || !options_.Units.empty())
                throw EBadInput(options_.Paths.front(), 0, "--form and --unit choose from a project",
                                "Name a project file");
            shared_ = SharedOfPaths(settings_.Get().DefaultComp);
            return FindTargets();
        }
        workplace_.OpenProject(options_.Paths.front());
        shared_ = SharedOfProject(workplace_, settings_.Get().DefaultComp, [this](const EBadInput& error) {
            PrintMessage(error.what());
            incomplete_ = true;
        });
        return TargetsOfProject(*workplace_.Modules().GetActiveProject(), options_.Forms, options_.Units);
    }

    std::vector<TScanTarget> FindTargets() {
        if (options_.Paths == std::vector<std::string>{kStandardInput}) return {{kStandardInput, ""}};
        TListableFiles files(*program_.Files);
        std::vector<TScanTarget> targets;
        for (std::string& file : FindUnitFiles(files, options_.Paths, options_.Excluded))
            targets.push_back({std::move(file), ""});
        for (const auto& [folder, reason] : files.Refused())
            Fail(reason);
        return targets;
    }

    void Fail(const std::string& message) {
        progress_.Hide();
        PrintMessage(message);
        ++failures_;
    }

    void ScanOne(const TScanTarget& target) {
        try {
            TScanInput input = ScanInputOf(settings_.Get(), common_);
            if (!Take(target, input)) return;
            if (options_.Count && !options_.Fail && !baseline_.IsUsed())
                Count(input);
            else
                Print(input);
            ++scanned_;
        } catch (const EBadInput& error) {
            Fail(error.what());
        } catch (const std::bad_alloc&) {
            Fail(EBadInput(target.FileName, 0, kNoMemory, kTooLarge).what());
        }
    }

    /// False for a file of a folder that is no text.
    bool Take(const TScanTarget& target, TScanInput& input) {
        if (shared_.Others != nullptr) {
            ReadTarget(workplace_, target, shared_, input);
            return true;
        }
        const bool isInput = target.FileName == kStandardInput;
        const std::string bytes = isInput ? std::string(std::istreambuf_iterator<char>(std::cin), {})
                                          : program_.Files->Read(target.FileName);
        if (IsBinary(bytes)) {
            const auto& named = options_.Paths;
            if (std::find(named.begin(), named.end(), target.FileName) == named.end()) return false;
            throw EBadInput(target.FileName, 0, "is no text: there are zero bytes in it",
                            "Name a source file");
        }
        TakeLooseUnit(isInput ? options_.InputName : target.FileName, bytes, shared_, input);
        return true;
    }

    void Count(const TScanInput& input) {
        const TStringCounts counts = CountStrings(input);
        found_ += counts.Found;
        skipped_ += counts.Skipped;
    }

    void Print(const TScanInput& input) {
        TScanResult result = Scan(input);
        VerifyAgainstExisting(result.Found, input.Existing, CallStyleOf(input));
        MergeDuplicates(result.Found);
        const TmlFoundSourceStrings fresh = NewOnes(result.Found, input.FileName());
        found_ += fresh.Count();
        failing_ += std::count_if(fresh.begin(), fresh.end(), [this](const auto& found) {
            return options_.All || found.Advice == TAdvice::None;
        });
        skipped_ += static_cast<std::int64_t>(result.Skipped.size());
        if (options_.Count) return;
        const std::string file = program_.Json ? input.FileName() : ShownPath(input.FileName());
        TLineCounter lines(input.Text());
        for (const TmlFoundSourceString& found : fresh)
            PrintFound(file, found, lines);
        if (!options_.Skipped) return;
        TLineCounter skippedLines(input.Text());
        for (const TmlSkippedString& skipped : result.Skipped)
            PrintSkipped(file, skipped, skippedLines);
    }

    /// Without those that the baseline accepts.
    TmlFoundSourceStrings NewOnes(const TmlFoundSourceStrings& all, const std::string& file) {
        TmlFoundSourceStrings fresh;
        for (const TmlFoundSourceString& found : all)
            if (!baseline_.Accepts({"found", file, {found.StrContent}})) fresh.AddItem() = found;
        return fresh;
    }

    void PrintFound(const std::string& file, const TmlFoundSourceString& found, TLineCounter& lines) const {
        const auto offset = static_cast<std::size_t>(found.Position);
        const int line = lines.LineOf(offset);
        const std::string_view advice = AdviceWord(found.Advice);
        if (!program_.Json) {
            std::cout << Place(file, line) << ":" << lines.ColumnOf(offset) << ": "
                      << Styled(TStream::Output, TStyle::Name, found.StrID) << " '"
                      << OnOneLine(found.StrContent) << "'"
                      << (advice.empty() ? "" : " [" + std::string(advice) + "]") << "\n";
            return;
        }
        TJsonLine row(std::cout);
        row.Text("kind", "found")
            .Text("file", file)
            .Number("line", line)
            .Number("column", lines.ColumnOf(offset));
        row.Number("offset", found.Position).Text("text", found.StrContent).Text("id", found.StrID);
        row.Text("replacement", WrittenText(found));
        if (advice.empty())
            row.Null("advice");
        else
            row.Text("advice", advice);
    }

    void PrintSkipped(const std::string& file, const TmlSkippedString& skipped, TLineCounter& lines) const {
        const int line = lines.LineOf(static_cast<std::size_t>(skipped.Position));
        if (!program_.Json) {
            std::cout << Place(file, line) << ": skipped '" << OnOneLine(Trim(skipped.Text)) << "' ["
                      << SkipReasonWord(skipped.Reason) << "]\n";
            return;
        }
        TJsonLine(std::cout)
            .Text("kind", "skipped")
            .Text("file", file)
            .Number("line", line)
            .Number("offset", skipped.Position)
            .Text("text", skipped.Text)
            .Text("reason", SkipReasonName(skipped.Reason));
    }

    static std::string Place(const std::string& file, int line) {
        return Styled(TStream::Output, TStyle::Place, file + ":" + std::to_string(line));
    }

    void PrintCount() const {
        if (program_.Json) {
            TJsonLine(std::cout).Text("kind", "count").Number("found", found_).Number("skipped", skipped_);
            return;
        }
        std::cout << found_ << (options_.Skipped ? " found, " + std::to_string(skipped_) + " skipped" : "")
                  << "\n";
    }

    TProgram& program_;
    const TScanOptions& options_;
    TBaseline baseline_;
    TWorkplace workplace_;
    TExpertSettings settings_;
    ICommonLibrary* common_ = nullptr;
    TScanShared shared_;
    TProgressLine progress_;
    std::int64_t found_ = 0;
    std::int64_t failing_ = 0;  ///< found ones for which a run fails that is asked to
    std::int64_t skipped_ = 0;
    int scanned_ = 0;
    int failures_ = 0;         ///< units that cannot be read, folders that cannot be listed
    bool incomplete_ = false;  ///< units are scanned without the strings of their default form
};

}  // namespace

void AddScanCommand(CLI::App& app, TProgram& program) {
    CLI::App* command =
        AddCommand(app, "scan", "Find the strings of a project, of units or of folders; change nothing",
                   "  tmllang scan Orchard.dproj --skipped\n"
                   "  tmllang scan Orchard.dproj --form MainForm --json\n"
                   "  tmllang scan src/Unit1.pas lib/ --count\n"
                   "  tmllang scan . --exclude 'vendor/**' --exclude '*_test.pas'\n"
                   "  git show HEAD:Unit1.cpp | tmllang scan - --input-name Unit1.cpp\n"
                   "  tmllang scan Orchard.dproj --fail    (exit code 1 when strings are found)\n"
                   "  tmllang scan Orchard.dproj --fail --baseline texts.baseline");
    const auto options = std::make_shared<TScanOptions>();
    command
        ->add_option("PATH", options->Paths,
                     "One project file, or unit files and folders, or - for standard input")
        ->required();
    command
        ->add_option("--exclude", options->Excluded,
                     "Passes over what fits the pattern in a folder, by name or by path; may be repeated")
        ->type_name("GLOB")
        ->allow_extra_args(false);
    command->add_option("--input-name", options->InputName,
                        "Name of standard input; its extension tells the language");
    command
        ->add_option("--form", options->Forms, "Only the unit of this form of the project; may be repeated")
        ->allow_extra_args(false);
    command->add_option("--unit", options->Units, "Only this unit of the project; may be repeated")
        ->allow_extra_args(false);
    command->add_flag("--skipped", options->Skipped, "Also what was passed over, with the reason");
    command->add_flag("--count", options->Count, "Only count");
    command->add_flag("--fail", options->Fail, "Exit code 1 when strings are found that carry no advice");
    AddBaselineOptions(command, options->Baseline);
    command->add_flag("--all", options->All, "With --fail: strings that carry an advice count too");
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return TScanRun(shared, *options).Run(); };
    });
}

}  // namespace tml
