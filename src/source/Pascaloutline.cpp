// One walk over the tokens of a Pascal text with a stack of open regions. What a token means is decided
// by the innermost region: in a body blocks are counted, elsewhere declarations are told apart by their
// first words.
#include "source/Pascaloutline.h"

#include <algorithm>
#include <string>
#include <utility>

#include "base/Utf8.h"
#include "source/Pascalwords.h"

namespace tml {
namespace {

/// Deeper nesting than any person writes is not followed.
constexpr std::size_t kMaxDepth = 200;

using Word = TPascalWord;
using Kind = TRegionKind;

class TPascalReader {
  public:
    explicit TPascalReader(const TSourceText& source) : source_(source) {
        tokens_.reserve(source.Tokens().size());
        words_.reserve(source.Tokens().size());
        for (const TToken& token : source.Tokens()) {
            if (token.Kind == TTokenKind::Comment) continue;
            tokens_.push_back(token);
            words_.push_back(token.Kind == TTokenKind::Name ? PascalWordOf(TextOf(source, token))
                                                            : Word::None);
        }
    }

    std::vector<TRegion> Run() {
        while (at_ < tokens_.size()) {
            if (tokens_[at_].Kind == TTokenKind::Directive)
                FollowCondition();
            else if (InCode())
                ReadCode();
            else
                ReadDeclaration();
        }
        return stack_.Take(source_.Text().size());
    }

  private:
    struct TBlock {
        Word Kind;
        bool LabelsFollow = false;  ///< of a case whose "of" has been read
    };
    struct TCondition {
        std::size_t Depth;   ///< of the open regions
        std::size_t Blocks;  ///< open ones of the innermost body
    };

    bool InCode() const {
        return stack_.TopIs(Kind::Body) || stack_.TopIs(Kind::Assembler) ||
               stack_.TopIs(Kind::Initialization);
    }

    Word WordAt(std::size_t index) const { return index < words_.size() ? words_[index] : Word::None; }
    std::string_view TextAt(std::size_t index) const {
        return index < tokens_.size() ? TextOf(source_, tokens_[index]) : std::string_view();
    }
    bool IsName(std::size_t index) const {
        return index < tokens_.size() && tokens_[index].Kind == TTokenKind::Name;
    }
    std::size_t BeginAt(std::size_t index) const {
        return index < tokens_.size() ? tokens_[index].Begin : source_.Text().size();
    }
    /// Index of the token in front of the current one, directives aside; tokens_.size() when there is none.
    std::size_t BeforeThis() const {
        std::size_t index = at_;
        while (index > 0 && tokens_[index - 1].Kind == TTokenKind::Directive)
            --index;
        return index > 0 ? index - 1 : tokens_.size();
    }
    std::string_view Previous() const { return TextAt(BeforeThis()); }

    static bool IsRoutineWord(Word word) {
        return word == Word::Procedure || word == Word::Function || word == Word::Constructor ||
               word == Word::Destructor || word == Word::Operator;
    }

    // ---- Conditional compilation -------------------------------------------------------------------

    void FollowCondition() {
        const std::string directive = UpperCase(TextAt(at_).substr(0, 12));
        const std::string_view name = std::string_view(directive).substr(directive.find('$') + 1);
        if (name.starts_with("IF")) {
            // {$IFEND} closes; {$IF}, {$IFDEF}, {$IFNDEF} and {$IFOPT} open.
            if (name.starts_with("IFEND"))
                LeaveCondition();
            else
                conditions_.push_back({stack_.Depth(), blocks_.size()});
        } else if (name.starts_with("ELSE") && !conditions_.empty()) {
            stack_.CloseTo(conditions_.back().Depth, BeginAt(at_));
            if (InCode()) blocks_.resize(conditions_.back().Blocks, {Word::Begin});
        } else if (name.starts_with("ENDIF")) {
            LeaveCondition();
        }
        ++at_;
    }

    void LeaveCondition() {
        if (!conditions_.empty()) conditions_.pop_back();
    }

    // ---- Code --------------------------------------------------------------------------------------

    void ReadCode() {
        const Word word = WordAt(at_);
        const bool namedRoutine = IsRoutineWord(word) && IsName(at_ + 1) && WordAt(at_ + 1) == Word::None;
        if (word == Word::Implementation || word == Word::Initialization || word == Word::Finalization) {
            ReadDeclaration();
        } else if (namedRoutine) {
            // No named routine stands in a body: an end has been missed.
            LeaveRoutines();
            ReadDeclaration();
        } else if ((word == Word::Procedure || word == Word::Function) && Previous() != ".") {
            ReadAnonymous();
        } else if (word == Word::End && Previous() != "@" && Previous() != ".") {
            CloseBlock();
        } else {
            if (AtLabel()) ReadCaseLabel();
            if (word != Word::None) OpenBlock(word);
            ++at_;
        }
    }

    /// A routine without a name: its parameters, and the declarations in front of its body, where only
    /// constants have values. Its body is read as a block of the code around it.
    void ReadAnonymous() {
        ++at_;
        if (TextAt(at_) == "(") {
            ReadParameters();
            ++at_;
        }
        std::size_t next = at_;
        while (TextAt(next) == ":" || TextAt(next) == "." || (IsName(next) && WordAt(next) == Word::None))
            ++next;
        if (WordAt(next) != Word::Const && WordAt(next) != Word::Var && WordAt(next) != Word::Type) return;
        at_ = next;
        stack_.Open(Kind::Const, BeginAt(at_));
        while (at_ < tokens_.size() && WordAt(at_) != Word::Begin && WordAt(at_) != Word::Implementation) {
            if (tokens_[at_].Kind == TTokenKind::Directive)
                FollowCondition();
            else
                ++at_;
        }
        if (stack_.TopIs(Kind::Const)) stack_.Close(BeginAt(at_));
    }

    void OpenBlock(Word word) {
        const bool isField = Previous() == ".";
        if (isField || stack_.TopIs(Kind::Assembler)) return;
        if (word == Word::Of && !blocks_.empty() && blocks_.back().Kind == Word::Case)
            blocks_.back().LabelsFollow = true;
        if (word == Word::Asm) stack_.Open(Kind::Assembler, BeginAt(at_));
        if (word == Word::Begin || word == Word::Case || word == Word::Try || word == Word::Asm)
            blocks_.push_back({word});
    }

    void CloseBlock() {
        const std::size_t end = tokens_[at_].End;
        ++at_;
        if (!blocks_.empty()) blocks_.pop_back();
        if (stack_.TopIs(Kind::Assembler)) stack_.Close(end);
        if (!blocks_.empty()) return;
        if (stack_.TopIs(Kind::Body) || stack_.TopIs(Kind::Initialization)) stack_.Close(end);
        if (stack_.TopIs(Kind::Routine)) stack_.Close(end);
    }

    bool AtLabel() const {
        if (blocks_.empty() || !blocks_.back().LabelsFollow || stack_.TopIs(Kind::Assembler)) return false;
        return Previous() == ";" || WordAt(BeforeThis()) == Word::Of;
    }

    void ReadCaseLabel() {
        int depth = 0;
        for (std::size_t index = at_; index < tokens_.size(); ++index) {
            const std::string_view text = TextAt(index);
            if (text == "(" || text == "[") ++depth;
            if (text == ")" || text == "]") --depth;
            if (text == ":" && depth == 0) {
                stack_.Open(Kind::CaseLabel, BeginAt(at_));
                stack_.Close(BeginAt(index));
                return;
            }
            if (text == ";" || text == ":=" || words_[index] != Word::None) return;
        }
    }

    // ---- Declarations ------------------------------------------------------------------------------

    void ReadDeclaration() {
        const Word word = WordAt(at_);
        if (word == Word::None && TextAt(at_) != "[") return Pass();
        if (Previous() == "." || Previous() == "&") return Pass();
        if (IsRoutineWord(word)) return ReadRoutine();
        switch (word) {
            case Word::Interface:
                return IsTypeWord() ? ReadClass() : OpenPart(Kind::Interface);
            case Word::Implementation:
                return OpenPart(Kind::Implementation);
            case Word::Initialization:
            case Word::Finalization:
                OpenPart(Kind::Initialization);
                blocks_ = {{Word::Begin}};
                return;
            case Word::Uses:
            case Word::Requires:
            case Word::Contains:
                return ReadClause(Kind::Uses);
            case Word::Exports:
                return ReadClause(Kind::Exports);
            case Word::Const:
                return OpenSection(Kind::Const);
            case Word::ResourceString:
                return OpenSection(Kind::ResourceString);
            case Word::Type:
                return Previous() == "=" ? Pass() : OpenSection(Kind::Type);
            case Word::Var:
            case Word::ThreadVar:
            case Word::Label:
                return OpenSection(Kind::Var);
            case Word::Private:
            case Word::Protected:
            case Word::Public:
            case Word::Published:
            case Word::Strict:
                return ReadVisibility();
            case Word::Class:
            case Word::Object:
            case Word::DispInterface:
                return IsTypeWord() ? ReadClass() : Pass();
            case Word::Record:
                return ReadClass();
            case Word::Property:
                return stack_.IsOpen(Kind::Class) ? ReadClause(Kind::Property) : Pass();
            case Word::Begin:
            case Word::Asm:
                return OpenBody(word);
            case Word::End:
                return CloseClass();
            default:
                return TextAt(at_) == "[" && MayBeAttribute() ? ReadAttribute() : Pass();
        }
    }

    void Pass() { ++at_; }

    /// True when the word follows "=" or ":", packed aside.
    bool IsTypeWord() const {
        const std::size_t before = at_ > 0 && WordAt(at_ - 1) == Word::Packed ? at_ - 1 : at_;
        const std::string_view sign = before > 0 ? TextAt(before - 1) : std::string_view();
        return sign == "=" || sign == ":";
    }

    void OpenPart(Kind kind) {
        stack_.CloseTo(0, BeginAt(at_));
        blocks_.clear();
        stack_.Open(kind, BeginAt(at_));
        ++at_;
    }

    void CloseSection() {
        const bool open = stack_.TopIs(Kind::Const) || stack_.TopIs(Kind::ResourceString) ||
                          stack_.TopIs(Kind::Type) || stack_.TopIs(Kind::Var);
        if (open) stack_.Close(BeginAt(at_));
    }

    void OpenSection(Kind kind) {
        CloseSection();
        stack_.Open(kind, BeginAt(at_));
        ++at_;
    }

    void ReadVisibility() {
        const std::string_view next = TextAt(at_ + 1);
        const bool isName = next == ":" || next == "," || next == "=";
        if (stack_.IsOpen(Kind::Class) && !isName && !stack_.TopIs(Kind::Class)) CloseSection();
        ++at_;
    }

    /// From the word to its semicolon.
    void ReadClause(Kind kind) {
        CloseSection();
        stack_.Open(kind, BeginAt(at_));
        PassStatement();
        stack_.Close(BeginAfterLast());
    }

    std::size_t BeginAfterLast() const { return tokens_[at_ - 1].End; }

    /// Moves behind the next semicolon outside parentheses; stops in front of a word that ends all.
    void PassStatement() {
        int depth = 0;
        for (++at_; at_ < tokens_.size(); ++at_) {
            const std::string_view text = TextAt(at_);
            if (text == "(" || text == "[") ++depth;
            if (text == ")" || text == "]") --depth;
            if (text == ";" && depth <= 0) {
                ++at_;
                return;
            }
            const Word word = WordAt(at_);
            if (word == Word::Implementation || word == Word::Begin || word == Word::End) return;
        }
    }

    void ReadClass() {
        const std::size_t first = at_;
        std::size_t head = at_ + 1;
        while (IsName(head) && (WordAt(head) == Word::None || WordAt(head) == Word::Record) &&
               IsClassModifier(TextAt(head)))
            ++head;
        if (TextAt(head) == "(") head = BehindParens(head);
        const bool isForward = TextAt(head) == ";" && words_[first] != Word::Record;
        const bool isConstraint = TextAt(head) == ">" || TextAt(head) == ",";
        if (isForward || isConstraint || WordAt(head) == Word::Of || stack_.Depth() > kMaxDepth) {
            at_ = head;
            return;
        }
        const std::string_view name = TypeNameBefore(first);
        stack_.At(stack_.Open(Kind::Class, BeginAt(first))).Name = name;
        at_ = first + 1;
        if (TextAt(at_) == "(") at_ = head;
        classStart_ = at_;
    }

    static bool IsClassModifier(std::string_view name) {
        return SameText(name, "abstract") || SameText(name, "sealed") || SameText(name, "helper") ||
               SameText(name, "external") || SameText(name, "for") || SameText(name, "record");
    }

    std::size_t BehindParens(std::size_t open) const {
        int depth = 0;
        for (std::size_t index = open; index < tokens_.size(); ++index) {
            const std::string_view text = TextAt(index);
            if (text == "(") ++depth;
            if (text == ")" && --depth == 0) return index + 1;
            if (WordAt(index) == Word::End) break;
        }
        return open + 1;
    }

    /// The name in "Name = class" or "Name<T> = class".
    std::string_view TypeNameBefore(std::size_t index) const {
        if (index > 0 && WordAt(index - 1) == Word::Packed) --index;
        if (index < 2 || TextAt(index - 1) != "=") return {};
        std::size_t name = index - 2;
        if (TextAt(name) == ">")
            while (name > 1 && TextAt(name) != "<" && TextAt(name) != ";")
                --name;
        if (TextAt(name) == "<") --name;
        return IsName(name) ? TextAt(name) : std::string_view();
    }

    void CloseClass() {
        const std::size_t depth = stack_.DepthOf(Kind::Class);
        if (depth > 0 && depth > stack_.DepthOf(Kind::Routine)) stack_.CloseTo(depth - 1, tokens_[at_].End);
        ++at_;
    }

    // ---- Routines ----------------------------------------------------------------------------------

    void ReadRoutine() {
        const bool isType = Previous() == "=" || Previous() == ":" || SameText(Previous(), "to");
        const bool bodiless = stack_.IsOpen(Kind::Class) || stack_.IsOpen(Kind::Interface);
        const bool isConstraint = TextAt(at_ + 1) == ">" || TextAt(at_ + 1) == ",";
        if (isConstraint || stack_.Depth() > kMaxDepth) return Pass();
        if (isType) {
            ReadHead();
            return;
        }
        CloseSection();
        if (bodiless) {
            ReadHead();
            return;
        }
        const bool ofClass = at_ > 0 && WordAt(at_ - 1) == Word::Class;
        const std::size_t begin = BeginAt(ofClass ? at_ - 1 : at_);
        std::string_view owner;
        const std::string_view name = ReadName(owner);
        if (!owner.empty()) LeaveRoutines();
        const std::size_t index = stack_.Open(Kind::Routine, begin);
        stack_.At(index).Name = name;
        stack_.At(index).Owner = owner;
        stack_.At(index).OfClass = ofClass;
        if (ReadHead()) stack_.Close(BeginAfterLast());
    }

    void LeaveRoutines() {
        const std::size_t part =
            std::max(stack_.DepthOf(Kind::Implementation), stack_.DepthOf(Kind::Interface));
        stack_.CloseTo(part, BeginAt(at_));
        blocks_.clear();
    }

    /// The routine's name behind its first word, and the class in front of it.
    std::string_view ReadName(std::string_view& owner) const {
        std::string_view name;
        std::size_t index = at_ + 1;
        for (; IsName(index); ++index) {
            owner = name;
            name = TextAt(index);
            if (TextAt(index + 1) == "<")
                while (index + 1 < tokens_.size() && TextAt(index + 1) != ">" && TextAt(index + 1) != ";")
                    ++index;
            if (TextAt(index + 1) == ">") ++index;
            if (TextAt(++index) != ".") break;
        }
        return name;
    }

    /// Reads a head with its directives; true when no body follows.
    bool ReadHead() {
        stack_.Open(Kind::Head, BeginAt(at_));
        bool ended = false;
        for (++at_; at_ < tokens_.size() && !ended; ++at_) {
            const std::string_view text = TextAt(at_);
            if (text == "(") ReadParameters();
            ended = text == ";";
            if (EndsHead(WordAt(at_)) || text == "=") break;
            noBody_ = noBody_ || IsBodiless(at_);
        }
        while (ended && IsName(at_) && IsRoutineDirective(TextAt(at_)) && !IsDeclared(at_ + 1)) {
            noBody_ = noBody_ || IsBodiless(at_);
            PassStatement();
        }
        stack_.Close(BeginAfterLast());
        return std::exchange(noBody_, false);
    }

    static bool EndsHead(Word word) {
        return word == Word::Begin || word == Word::End || word == Word::Implementation ||
               word == Word::Var || word == Word::Asm || word == Word::Procedure;
    }

    bool IsBodiless(std::size_t index) const {
        return IsName(index) && (SameText(TextAt(index), "external") || SameText(TextAt(index), "forward"));
    }

    /// A directive's word may also be the name of a field or variable.
    bool IsDeclared(std::size_t next) const {
        return TextAt(next) == ":" || TextAt(next) == "," || TextAt(next) == "=";
    }

    /// Ends on the closing parenthesis.
    void ReadParameters() {
        stack_.Open(Kind::Parameters, BeginAt(at_));
        at_ = std::max(BehindParens(at_), at_ + 1) - 1;
        stack_.Close(tokens_[at_].End);
    }

    void OpenBody(Word word) {
        CloseSection();
        const bool isRoutine = stack_.TopIs(Kind::Routine);
        if (!isRoutine && stack_.IsOpen(Kind::Class)) return Pass();
        stack_.Open(isRoutine ? Kind::Body : Kind::Initialization, BeginAt(at_));
        blocks_ = {{word}};
        if (word == Word::Asm) stack_.Open(Kind::Assembler, BeginAt(at_));
        ++at_;
    }

    // ---- Attributes --------------------------------------------------------------------------------

    /// "[" where a declaration begins.
    bool MayBeAttribute() const {
        if (at_ == 0 || at_ == classStart_) return at_ != 0;
        const Word before = WordAt(at_ - 1);
        return Previous() == ";" || Previous() == "]" || (before != Word::None && before != Word::Of);
    }

    void ReadAttribute() {
        stack_.Open(Kind::Attribute, BeginAt(at_));
        while (at_ < tokens_.size() && TextAt(at_) != "]" && TextAt(at_) != ";")
            ++at_;
        at_ = std::min(at_ + 1, tokens_.size());
        stack_.Close(BeginAfterLast());
    }

    const TSourceText& source_;
    std::vector<TToken> tokens_;
    std::vector<Word> words_;
    std::size_t at_ = 0;
    std::size_t classStart_ = 0;  ///< first token behind the last class's heading
    bool noBody_ = false;         ///< the head being read says forward or external
    std::vector<TBlock> blocks_;  ///< of the innermost body
    std::vector<TCondition> conditions_;
    TRegionStack stack_;
};

}  // namespace

std::vector<TRegion> ReadPascalOutline(const TSourceText& source) {
    return TPascalReader(source).Run();
}

}  // namespace tml
