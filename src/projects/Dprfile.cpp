// The source of a program: "program Name; uses A, B in 'path' {Form: TFrame}, ...; begin ... end." Only
// the first uses clause is read; units without a path are libraries and not part of the project. Both
// sides of a conditional count. A package has a clause "contains" in its place. What is broken behind the
// clause is not looked at; a comment, text or clause without an end in front of it is an error.
#include "projects/Dprfile.h"

#include <algorithm>

#include "base/Codedtext.h"
#include "base/Errors.h"
#include "base/Files.h"
#include "base/Utf8.h"
#include "source/Charclass.h"

namespace tml {
namespace {

enum class TDprTokenKind { End, Word, Text, Comment, Symbol };

struct TDprToken {
    TDprTokenKind Kind = TDprTokenKind::End;
    std::string_view Text;  ///< of a text or comment: without its delimiters
    std::size_t Begin = 0;
};

class TDprLexer {
  public:
    TDprLexer(std::string_view text, const std::string& fileName) : text_(text), fileName_(fileName) {}

    TDprToken Next() {
        while (pos_ < text_.size() && static_cast<unsigned char>(text_[pos_]) <= ' ')
            ++pos_;
        if (pos_ >= text_.size()) return {TDprTokenKind::End, {}, pos_};
        const std::string_view rest = text_.substr(pos_);
        if (rest.starts_with("//")) return Delimited(TDprTokenKind::Symbol, 2, "\n", true);
        if (rest.starts_with("(*")) return Delimited(TDprTokenKind::Symbol, 2, "*)", false);
        if (rest.starts_with("{")) return Delimited(TDprTokenKind::Comment, 1, "}", false);
        if (rest.starts_with("'")) return Delimited(TDprTokenKind::Text, 1, "'", false);
        return WordOrSymbol();
    }

    /// Each call goes on counting where the last one stopped, so offset must not go back.
    int LineOf(std::size_t offset) {
        const std::string_view passed = text_.substr(counted_, offset - counted_);
        line_ += static_cast<int>(std::count(passed.begin(), passed.end(), '\n'));
        counted_ = offset;
        return line_;
    }
    [[noreturn]] void Fail(const TDprToken& token, const std::string& problem) {
        throw EBadInput(fileName_, LineOf(token.Begin), problem, "Check the uses clause of the program");
    }

  private:
    TDprToken Delimited(TDprTokenKind kind, std::size_t openerSize, std::string_view closer,
                        bool endsWithText) {
        TDprToken token{kind, {}, pos_};
        const std::size_t begin = pos_ + openerSize;
        std::size_t end = text_.find(closer, begin);
        if (end == std::string_view::npos) {
            if (!endsWithText) Fail(token, "a comment or text has no end");
            end = text_.size();
        }
        token.Text = text_.substr(begin, end - begin);
        pos_ = std::min(end + closer.size(), text_.size());
        // Comments of other kinds than braces say nothing about units.
        return kind == TDprTokenKind::Symbol ? Next() : token;
    }

    TDprToken WordOrSymbol() {
        std::size_t end = pos_;
        while (end < text_.size() && IsNameChar(text_[end]))
            ++end;
        const bool isWord = end > pos_;
        TDprToken token{isWord ? TDprTokenKind::Word : TDprTokenKind::Symbol, {}, pos_};
        token.Text = text_.substr(pos_, isWord ? end - pos_ : 1);
        pos_ += token.Text.size();
        return token;
    }

    std::string_view text_;
    const std::string& fileName_;
    std::size_t pos_ = 0;
    int line_ = 1;
    std::size_t counted_ = 0;  ///< the text in front of it is in line_
};

class TUsesParser {
  public:
    explicit TUsesParser(TDprLexer& lexer) : lexer_(lexer) { Advance(); }

    /// Moves behind "uses"; false when the program has none.
    bool FindClause() {
        bool isProgram = false;
        bool isPackage = false;
        for (; token_.Kind != TDprTokenKind::End; Advance()) {
            if (IsWord(isPackage ? "contains" : "uses")) {
                Advance();
                return true;
            }
            isPackage = isPackage || (!isProgram && IsWord("package"));
            isProgram = isProgram || isPackage || IsWord("program") || IsWord("library");
            if (IsWord("begin")) break;
        }
        if (!isProgram) lexer_.Fail(token_, "the file is no program source");
        return false;
    }

    std::vector<TNamedUnit> ParseClause() {
        std::vector<TNamedUnit> units;
        while (true) {
            SkipComments();
            // A conditional may leave a separator too many: "A, {$IFDEF X} B, {$ENDIF};".
            while (IsSymbol(','))
                AdvanceOver();
            if (IsSymbol(';')) return units;
            TNamedUnit unit = ParseUnit();
            if (!unit.Path.empty()) units.push_back(std::move(unit));
        }
    }

  private:
    TNamedUnit ParseUnit() {
        if (token_.Kind != TDprTokenKind::Word)
            lexer_.Fail(token_, "expected the name of a unit in the uses clause");
        TNamedUnit unit;
        unit.Line = lexer_.LineOf(token_.Begin);
        unit.Name = LastNamePart(ParseDottedName());
        SkipComments();
        if (!IsWord("in")) return unit;
        Advance();
        SkipComments();
        if (token_.Kind != TDprTokenKind::Text)
            lexer_.Fail(token_, "expected the path of the unit behind \"in\"");
        unit.Path = std::string(token_.Text);
        Advance();
        for (; token_.Kind == TDprTokenKind::Comment; Advance())
            if (unit.FormName.empty()) ReadForm(unit);
        return unit;
    }

    std::string ParseDottedName() {
        std::string name(token_.Text);
        for (Advance(); IsSymbol('.'); Advance()) {
            Advance();
            name += "." + std::string(token_.Text);
        }
        return name;
    }

    /// "Form" or "Form: TBase"; any other comment is a remark.
    void ReadForm(TNamedUnit& unit) const {
        const std::size_t colon = token_.Text.find(':');
        const std::string_view name = Trim(token_.Text.substr(0, colon));
        const bool hasBase = colon != std::string_view::npos;
        SetForm(unit, name, hasBase ? Trim(token_.Text.substr(colon + 1)) : std::string_view());
    }

    void Advance() { token_ = lexer_.Next(); }
    void AdvanceOver() {
        Advance();
        SkipComments();
    }
    void SkipComments() {
        while (token_.Kind == TDprTokenKind::Comment)
            Advance();
    }
    bool IsWord(std::string_view word) const {
        return token_.Kind == TDprTokenKind::Word && SameText(token_.Text, word);
    }
    bool IsSymbol(char symbol) const {
        return token_.Kind == TDprTokenKind::Symbol && token_.Text.front() == symbol;
    }

    TDprLexer& lexer_;
    TDprToken token_;
};

}  // namespace

TParsedProject ParseDpr(const std::string& bytes, const std::string& fileName, const std::string& codePage) {
    const TCodedText coded(bytes, fileName, codePage);
    TDprLexer lexer(coded.Text(), fileName);
    TUsesParser parser(lexer);
    TParsedProject project;
    project.MainSource = FileNameOf(fileName);
    if (parser.FindClause()) project.Units = parser.ParseClause();
    return project;
}

}  // namespace tml
