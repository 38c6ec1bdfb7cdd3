#include <filesystem>
#include <fstream>
#include <iterator>

#include "expert/Mllangexp.h"
#include "expert/Mlmainform.h"
#include "forms/Formtree.h"
#include "host/Experthost.h"
#include "scan/Found.h"
#include "scan/Scansupport.h"
#include "source/Readcounts.h"
#include "support/Memoryfiles.h"
#include "support/Memoryregistry.h"
#include "support/Scripteduser.h"

namespace tml {
namespace {

namespace fs = std::filesystem;

/// The common library of the build. It has counters of its own, but reads a text, unless it is the one
/// before, when it is first asked about it.
class TCountedLibrary : public ICommonLibrary, public ICommonLibraryLoader {
  public:
    explicit TCountedLibrary(int& skims) : skims_(skims) {}

    ICommonLibrary* Load() override { return this; }
    void Unload() override {}
    bool HasClassifier() const override { return true; }
    bool HasMatcher() const override { return true; }
    void InitInternalPasSource(const std::string& text) override {
        isNew_ = isNew_ || text != text_;
        text_ = text;
        CommonLibrary()->InitInternalPasSource(text);
    }
    bool IsCommentAt(int line, int offset, bool isCpp) override {
        if (std::exchange(isNew_, false)) ++skims_;
        return CommonLibrary()->IsCommentAt(line, offset, isCpp);
    }
    bool mlREStringMatches(const std::string& text, const std::string& pattern) override {
        return CommonLibrary()->mlREStringMatches(text, pattern);
    }

  private:
    int& skims_;
    std::string text_;
    bool isNew_ = false;
};

TEST(Readcounts, AReplaceReadsEachTextOnce) {
    const fs::path sample = fs::path(TML_TESTS) / ".." / "examples" / "orchard";
    TMemoryFileSystem files;
    for (const auto& entry : fs::recursive_directory_iterator(sample)) {
        std::ifstream file(entry.path(), std::ios::binary);
        if (entry.is_regular_file())
            files.Files["/p/" + entry.path().lexically_relative(sample).generic_string()] = {
                std::istreambuf_iterator<char>(file), {}};
    }
    int librarySkims = 0;
    TMemoryRegistry registry;
    TScriptedUser user;
    TExpertHost host(files, registry, user, std::make_unique<TCountedLibrary>(librarySkims));
    host.LoadExpert();
    host.Ide().OpenProject("/p/Orchard.dproj");
    host.Expert()->RunItemClick();
    TFormRows& rows = host.Expert()->Context().Rows.FormNames;
    for (const auto& row : rows.Items())
        row->Selected = row->FormName == "MainForm";
    host.ExpertWindow()->lvFormNamesChange();

    user.OnWindow<TfrmFound>("frmFound", [&](TfrmFound& window) {
        user.OnMessage("Delete selected rows?", mrYes);
        user.OnMessage("This will apply changes and modify source code. Continue?", mrYes);
        user.OnMessage("Source file translated. All string constants added to \"Strings\" property.");
        window.acSelectAdvised();
        window.acDeleteRow();
        window.tbModifyClick();
    });
    ReadCounts() = {};
    TFormTree::ParseCount() = 0;
    host.ExpertWindow()->Run("SourceWithForm");
    EXPECT_LE(ReadCounts().Skims + librarySkims, 4);
    EXPECT_LE(ReadCounts().Tokenizations, 2);
    EXPECT_LE(ReadCounts().Outlines, 2);
    EXPECT_LE(TFormTree::ParseCount(), 3);
}

}  // namespace
}  // namespace tml
