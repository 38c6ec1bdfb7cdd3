#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>

#include "base/Errors.h"
#include "base/Files.h"
#include "forms/Formtesting.h"

namespace tml::testing {
namespace {

namespace fs = std::filesystem;
using std::string;

/// The only packaged form that is cut off in the middle of a component.
constexpr std::string_view kBrokenForm = "TV_Add_Remove_U1.dfm";

/// Every form of the packages lazarus-src and fpc-source.
std::vector<string> PackagedForms() {
    std::vector<string> forms;
    for (const char* const folder : {"/usr/lib/lazarus", "/usr/share/fpcsrc"}) {
        if (!fs::exists(folder)) continue;
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            const string path = entry.path().string();
            const bool isForm = path.ends_with(".lfm") || path.ends_with(".dfm");
            if (isForm && entry.is_regular_file() && FileNameOf(path) != kBrokenForm) forms.push_back(path);
        }
    }
    std::sort(forms.begin(), forms.end());
    return forms;
}

bool IsPlain(const string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// The converter of the run-time library, built once.
class TReference {
  public:
    TReference()
        : folder_(fs::temp_directory_path() / ("tmlforms-" + std::to_string(std::random_device{}()))) {
        fs::create_directories(folder_);
        const string build = "fpc -v0 -O2 -FE'" + folder_.string() +
                             "' '" TML_TESTS "/forms/data/Fpcforms.pas' > '" + folder_.string() + "/log'";
        isBuilt_ = std::system(build.c_str()) == 0;
    }
    ~TReference() { fs::remove_all(folder_); }
    TReference(const TReference&) = delete;
    TReference& operator=(const TReference&) = delete;

    bool IsBuilt() const { return isBuilt_; }
    /// Converts files to "binary" or "text"; "" for one that the library refuses.
    std::vector<string> Convert(const string& mode, const std::vector<string>& files) {
        std::ofstream list(folder_ / "list");
        for (std::size_t i = 0; i < files.size(); ++i)
            list << files[i] << '\t' << Target(mode, i) << '\n';
        list.close();
        const string run = "cd '" + folder_.string() + "' && ./Fpcforms " + mode + " list > log";
        EXPECT_EQ(std::system(run.c_str()), 0);
        std::vector<string> results;
        for (std::size_t i = 0; i < files.size(); ++i)
            results.push_back(ReadTestFile(Target(mode, i)));
        return results;
    }
    string Target(const string& mode, std::size_t i) const {
        return (folder_ / (mode + std::to_string(i))).string();
    }

  private:
    fs::path folder_;
    bool isBuilt_ = false;
};

TEST(FormCorpus, ComesBackAndConvertsAsTheLibraryDoes) {
    std::vector<string> files = PackagedForms();
    ASSERT_GE(files.size(), 860U) << "install the packages lazarus-src and fpc-source";
    files.emplace_back(TML_TESTS "/forms/data/Values.txt");
    TReference reference;
    ASSERT_TRUE(reference.IsBuilt()) << "install the packages fp-compiler, fp-units-rtl and fp-units-fcl";
    const std::vector<string> binaries = reference.Convert("binary", files);
    std::vector<string> binaryFiles;
    for (std::size_t i = 0; i < files.size(); ++i)
        binaryFiles.push_back(reference.Target("binary", i));
    const std::vector<string> texts = reference.Convert("text", binaryFiles);
    for (std::size_t i = 0; i < files.size(); ++i) {
        const string bytes = ReadTestFile(files[i]);
        const auto tree = TFormTree::Parse(bytes, files[i]);
        EXPECT_TRUE(tree->Bytes() == bytes) << files[i];
        ASSERT_FALSE(binaries[i].empty()) << files[i];
        EXPECT_TRUE(tree->Binary() == binaries[i]) << files[i];
        const auto binary = TFormTree::Parse(binaries[i], files[i]);
        EXPECT_TRUE(binary->Bytes() == binaries[i]) << files[i];
        // The library takes the bytes of a UTF-8 string for characters; such texts hold what the file held.
        if (IsPlain(bytes)) {
            EXPECT_TRUE(binary->Text() == texts[i]) << files[i];
        } else {
            const auto again = TFormTree::Parse(TFormTree::Parse(binary->Text(), "")->Binary(), "");
            EXPECT_TRUE(Dump(again->Root()) == Dump(binary->Root())) << files[i];
        }
    }
}

/// Reads what may be broken, and if it can be read, everything in it.
void Exercise(const string& bytes) {
    try {
        const auto tree = TFormTree::Parse(bytes, "a.dfm");
        EXPECT_TRUE(tree->Bytes() == bytes);
        Dump(tree->Root());
        TFormTree::Parse(tree->Text(), "a.dfm");
        TFormTree::Parse(tree->Binary(), "a.dfm");
        TFormNode& root = tree->Root();
        if (!root.PropertyNames().empty()) tree->RemoveProperty(root, root.PropertyNames().back());
        tree->SetProperty(root, "Added", TFormValue::Integer(1));
        if (!root.Children().empty()) tree->RemoveChild(*root.Children().front());
        tree->AddChild(root, "New", "TNew");
        EXPECT_EQ(Dump(TFormTree::Parse(tree->Bytes(), "a.dfm")->Root()), Dump(root));
    } catch (const EBadInput& error) {
        EXPECT_FALSE(error.Problem().empty());
    }
}

TEST(FormMutations, NeverCrash) {
    const string text =
        "object A: TA [1]\r\n  S.Strings = (\r\n    'a''b'#13#1055\r\n    -1.5e3)\r\n  C = <\r\n    item\r\n"
        "      X = [a, b]\r\n    end>\r\n  D = {0A0B}\r\n  L = \r\n    'a' +\r\n    'b'\r\n"
        "  inherited B: TB\r\n    Y = $1F\r\n  end\r\nend\r\n";
    const string binary = TFormTree::Parse(text, "a.dfm")->Binary();
    std::mt19937 random(20);
    for (const string& sample : {text, binary}) {
        for (std::size_t i = 0; i <= sample.size(); ++i)
            Exercise(sample.substr(0, i));
        for (int round = 0; round < 20000; ++round) {
            string bytes = sample;
            for (unsigned change = 0; change <= random() % 3; ++change) {
                const std::size_t at = random() % bytes.size();
                if (random() % 4 == 0) {
                    bytes.erase(at, random() % 8);
                    bytes += ' ';
                } else {
                    bytes[at] =
                        random() % 2 == 0 ? sample[random() % sample.size()] : static_cast<char>(random());
                }
            }
            Exercise(bytes);
        }
    }
}

}  // namespace
}  // namespace tml::testing
