// The main source of a C++ program: calls of macros name its units, and a comment behind the call may name
// the form's base:
//     USEFORM("forms\Main.cpp", MainForm); /* TDataModule: File Type */
// A path is taken as it stands: its back slashes are no escapes. Calls in comments and on preprocessor
// lines do not count; a call that is cut off is passed over, so that no text is an error.
#include "projects/Cppprogram.h"

#include <algorithm>
#include <array>

#include "base/Codedtext.h"
#include "base/Files.h"
#include "base/Utf8.h"
#include "source/Charclass.h"
#include "source/Sourcetext.h"

namespace tml {
namespace {

/// With a form, its name is the last argument.
constexpr std::array<std::string_view, 3> kMacros = {"USEFORM", "USEFORMNS", "USEUNIT"};

class TProgramReader {
  public:
    explicit TProgramReader(const TSourceText& source) : source_(source), tokens_(source.Tokens()) {}

    std::vector<TNamedUnit> Run() {
        std::vector<TNamedUnit> units;
        for (std::size_t i = 0; i < tokens_.size(); ++i) {
            CountLines(tokens_[i].Begin);
            if (!IsCall(i)) continue;
            TNamedUnit unit;
            unit.Line = line_;
            if (ReadCall(i, unit)) units.push_back(std::move(unit));
        }
        return units;
    }

  private:
    std::string_view Text(std::size_t index) const { return TextOf(source_, tokens_[index]); }

    void CountLines(std::size_t offset) {
        const std::string_view passed = source_.Text().substr(counted_, offset - counted_);
        line_ += static_cast<int>(std::count(passed.begin(), passed.end(), '\n'));
        counted_ = offset;
    }

    bool IsCall(std::size_t index) const {
        return index + 2 < tokens_.size() && tokens_[index].Kind == TTokenKind::Name &&
               !tokens_[index].OnDirectiveLine &&
               std::find(kMacros.begin(), kMacros.end(), Text(index)) != kMacros.end() &&
               Text(index + 1) == "(" && tokens_[index + 2].Kind == TTokenKind::Literal;
    }

    bool ReadCall(std::size_t index, TNamedUnit& unit) const {
        const TLiteral& path = source_.Literals()[tokens_[index + 2].Index];
        unit.Path = std::string(source_.Text().substr(path.BodyBegin, path.BodyEnd - path.BodyBegin));
        unit.Name = UnitNameOf(unit.Path);
        for (index += 3; index < tokens_.size() && Text(index) != ")"; ++index) {
            const bool isName = tokens_[index].Kind == TTokenKind::Name;
            if (!isName && Text(index) != ",") return false;
            if (isName) unit.FormName = std::string(Text(index));
        }
        if (index == tokens_.size()) return false;
        if (!unit.FormName.empty()) ReadBase(index + 1, unit);
        return true;
    }

    /// "/* TBase: File Type */" on the line of the call.
    void ReadBase(std::size_t index, TNamedUnit& unit) const {
        const std::size_t end = tokens_[index - 1].End;
        if (index < tokens_.size() && Text(index) == ";") ++index;
        if (index >= tokens_.size() || tokens_[index].Kind != TTokenKind::Comment) return;
        const std::string_view between = source_.Text().substr(end, tokens_[index].Begin - end);
        const std::size_t colon = Text(index).find(':');
        if (between.find('\n') != std::string_view::npos || colon == std::string_view::npos) return;
        const std::string_view base = Trim(Text(index).substr(2, colon - 2));
        // Any other comment is a remark.
        if (std::all_of(base.begin(), base.end(), IsNameChar)) unit.DesignClass = std::string(base);
    }

    const TSourceText& source_;
    const std::vector<TToken>& tokens_;
    std::size_t counted_ = 0;
    int line_ = 1;
};

}  // namespace

TParsedProject ParseCppProgram(const std::string& bytes, const std::string& fileName,
                               const std::string& codePage) {
    const TCodedText coded(bytes, fileName, codePage);
    const TSourceText source(coded.Text(), kCpp, fileName);
    TParsedProject project;
    project.MainSource = FileNameOf(fileName);
    project.IsCpp = true;
    project.Units = TProgramReader(source).Run();
    return project;
}

}  // namespace tml
