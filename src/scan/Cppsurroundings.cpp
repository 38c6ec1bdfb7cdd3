#include "scan/Cppsurroundings.h"

#include <algorithm>

#include "source/Cppwords.h"
#include "source/Preprocessor.h"

namespace tml {
namespace {

using TPlaces = std::vector<std::size_t>;

/// How many tokens may stand in front of a place, each in another build: more than people write.
constexpr std::size_t kFarBranches = 32;
/// And how many tokens the captures of a lambda may have.
constexpr std::size_t kFarCapture = 64;

class TSurroundings {
  public:
    explicit TSurroundings(const TSourceText& source)
        : source_(source),
          tokens_(source.CodeTokens()),
          lines_(PreprocessorLines(source)),
          advice_(source.Literals().size(), TAdvice::None) {}

    std::vector<TAdvice> Run() {
        for (at_ = 0; at_ < tokens_.size(); ++at_) {
            if (tokens_[at_].OnDirectiveLine) continue;
            FollowConditions();
            if (tokens_[at_].Kind == TTokenKind::Literal) advice_[tokens_[at_].Index] = Inside();
            Join();
            if (tokens_[at_].Kind == TTokenKind::Symbol) FollowLambdas(TextAt(at_));
        }
        return std::move(advice_);
    }

  private:
    std::string_view TextAt(std::size_t index) const {
        return index < tokens_.size() ? TextOf(source_, tokens_[index]) : std::string_view();
    }

    enum class TBracket : std::uint8_t { Other, Captures, Parameters, Body };
    enum class THead : std::uint8_t { None, Captured, Complete };

    struct TOpen {
        TBracket Bracket;
        THead Head;  ///< what had been read of a lambda's head in front of the bracket
        bool HasThis;
        TAdvice Inside;  ///< of the literals in the bracket
    };

    // ---- Joined literals ---------------------------------------------------------------------------

    struct TCondition {
        TPlaces Entry;          ///< in front of the condition
        TPlaces Ends;           ///< in front of its end, by the branches read so far
        std::size_t Depth = 0;  ///< of the open brackets in front of it
        bool HasElse = false;
    };

    void FollowConditions() {
        for (; line_ < lines_.size() && lines_[line_].Begin < tokens_[at_].Begin; ++line_) {
            const std::string_view word = lines_[line_].Word;
            if (word.starts_with("if"))
                conditions_.push_back({before_, {}, open_.size()});
            else if (!conditions_.empty() && (word.starts_with("el") || word == "endif"))
                EndBranch(conditions_.back(), word);
        }
    }

    void EndBranch(TCondition& condition, std::string_view word) {
        Add(condition.Ends, before_);
        before_ = condition.Entry;
        condition.HasElse = condition.HasElse || word == "else";
        if (word != "endif") {
            // Each branch begins inside the brackets in front of the condition.
            open_.resize(std::min(open_.size(), condition.Depth));
            return;
        }
        if (condition.HasElse) before_.clear();
        Add(before_, condition.Ends);
        conditions_.pop_back();
    }

    static void Add(TPlaces& to, const TPlaces& places) {
        to.insert(to.end(), places.begin(), places.end());
        if (to.size() > kFarBranches) to.erase(to.begin(), to.end() - kFarBranches);
    }

    /// Keeps the names and literals that may stand in front of the next token, one for each build.
    void Join() {
        const bool isLiteral = tokens_[at_].Kind == TTokenKind::Literal;
        const bool isName = tokens_[at_].Kind == TTokenKind::Name && !IsWordBeforeValue(TextAt(at_));
        if (isLiteral || isName)
            for (const std::size_t other : before_) {
                if (isLiteral) advice_[tokens_[at_].Index] = TAdvice::Macro;
                if (tokens_[other].Kind == TTokenKind::Literal)
                    advice_[tokens_[other].Index] = TAdvice::Macro;
            }
        before_.clear();
        if (isLiteral || isName) before_.push_back(at_);
    }

    // ---- Lambdas -----------------------------------------------------------------------------------

    void FollowLambdas(std::string_view sign) {
        if (sign == "[")
            Open(OpensCaptures(source_, tokens_, at_) ? TBracket::Captures : TBracket::Other);
        else if (sign == "(")
            Open(head_ == THead::Captured ? TBracket::Parameters : TBracket::Other);
        else if (sign == "{")
            Open(head_ == THead::None ? TBracket::Other : TBracket::Body);
        else if (sign == "]" || sign == ")" || sign == "}")
            Close();
        else if (sign == ";" || sign == "=")
            head_ = THead::None;
    }

    void Open(TBracket bracket) {
        const bool hasThis = bracket == TBracket::Captures ? CapturesThis() : hasThis_;
        open_.push_back({bracket, head_, hasThis, InsideOf(bracket)});
        head_ = THead::None;
    }

    void Close() {
        if (open_.empty()) return;
        const TOpen last = open_.back();
        open_.pop_back();
        head_ = last.Bracket == TBracket::Captures     ? THead::Captured
                : last.Bracket == TBracket::Parameters ? THead::Complete
                : last.Bracket == TBracket::Body       ? THead::None
                                                       : last.Head;
        hasThis_ = last.HasThis;
    }

    bool CapturesThis() const {
        const std::string_view first = TextAt(at_ + 1);
        if (first == "=" || (first == "&" && (TextAt(at_ + 2) == "," || TextAt(at_ + 2) == "]"))) return true;
        for (std::size_t i = at_ + 1; i < at_ + kFarCapture && TextAt(i) != "]"; ++i)
            if (TextAt(i) == "this") return true;
        return false;
    }

    TAdvice Inside() const { return open_.empty() ? TAdvice::None : open_.back().Inside; }

    TAdvice InsideOf(TBracket bracket) const {
        if (bracket == TBracket::Parameters || Inside() == TAdvice::DefaultParameter)
            return TAdvice::DefaultParameter;
        return bracket == TBracket::Body && !hasThis_ ? TAdvice::OutsideMethod : Inside();
    }

    const TSourceText& source_;
    const std::vector<TToken>& tokens_;
    std::vector<TPreprocessorLine> lines_;
    std::vector<TAdvice> advice_;
    std::size_t at_ = 0;
    std::size_t line_ = 0;
    TPlaces before_;
    std::vector<TCondition> conditions_;
    std::vector<TOpen> open_;
    THead head_ = THead::None;
    bool hasThis_ = false;  ///< what the head captures
};

}  // namespace

std::vector<TAdvice> AdviseSurroundings(const TSourceText& source) {
    return TSurroundings(source).Run();
}

}  // namespace tml
