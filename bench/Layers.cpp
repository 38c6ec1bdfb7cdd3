// bench-layers FOLDER COMMON [--benchmark_...]: what each layer of the scan costs on the units of a folder,
// held in memory, beside the bare loop over the same bytes. COMMON is the common library's file.
#include <benchmark/benchmark.h>
#include <iostream>
#include <string>
#include <vector>

#include "Bareloop.h"
#include "Inputfiles.h"
#include "Scansettings.h"
#include "base/Codedtext.h"
#include "host/Commonlibrary.h"
#include "scan/Scan.h"
#include "source/Sourcetext.h"

namespace tml::bench {
namespace {

struct TUnit {
    std::string Path;
    std::string Bytes;
    std::string Text;  ///< as TCodedText gives it
};

std::vector<TUnit> ReadUnits(const std::string& folder) {
    std::vector<TUnit> units;
    for (const std::string& path : FilesBelow(folder)) {
        TUnit& unit = units.emplace_back();
        unit.Path = path;
        ReadInto(unit.Bytes, path);
        unit.Text = TCodedText::TextOf(unit.Bytes);
    }
    return units;
}

/// Adds a benchmark that runs work(unit) over all units; all of them together are one iteration.
template <typename TWork>
void Add(const char* name, const std::vector<TUnit>& units, TWork work) {
    const auto run = [&units, work](benchmark::State& state) {
        std::int64_t bytes = 0;
        for (auto _ : state) {
            for (const TUnit& unit : units) {
                benchmark::DoNotOptimize(work(unit));
                bytes += static_cast<std::int64_t>(unit.Bytes.size());
            }
        }
        state.SetBytesProcessed(bytes);
    };
    benchmark::RegisterBenchmark(name, run)->Iterations(1)->Repetitions(5)->Unit(benchmark::kMillisecond);
}

/// What "scan --count" does with the bytes of one unit.
int CountIn(const TUnit& unit, ICommonLibrary* common) {
    return CountStrings(EveryRule(TCodedText::TextOf(unit.Bytes), unit.Path, common)).Found;
}

void AddAll(const std::vector<TUnit>& units, ICommonLibrary* common) {
    Add("BareLoop", units, [](const TUnit& unit) { return CountQuotedTexts(unit.Bytes); });
    Add("TextOf", units, [](const TUnit& unit) { return TCodedText::TextOf(unit.Bytes).size(); });
    Add("CodedText", units, [](const TUnit& unit) { return TCodedText(unit.Bytes, unit.Path).LineCount(); });
    Add("SourceText", units, [](const TUnit& unit) {
        return TSourceText(std::string_view(unit.Text), LanguageOf(unit.Path)).Literals().size();
    });
    Add("CountStrings", units, [common](const TUnit& unit) { return CountIn(unit, common); });
}

int RunBenchmarks(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (argc != 3) {
        std::cerr << "bench-layers FOLDER COMMON\n";
        return 2;
    }
    const std::vector<TUnit> units = ReadUnits(argv[1]);
    const auto loader = MakeCommonLibraryLoader(argv[2]);
    ICommonLibrary* common = loader->Load();
    if (common == nullptr) {
        std::cerr << "bench-layers: " << argv[2] << ": cannot be loaded\n";
        return 2;
    }
    AddAll(units, common);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

}  // namespace
}  // namespace tml::bench

int main(int argc, char** argv) {
    try {
        return tml::bench::RunBenchmarks(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "bench-layers: " << error.what() << "\n";
        return 2;
    }
}
