#include "scan/Calls.h"

#include <algorithm>

#include "base/Utf8.h"
#include "source/Charclass.h"
#include "source/Literals.h"
#include "tables/Textmethods.h"

namespace tml {
namespace {

/// Reads references like Form1.mlLang1.GetText( backwards from the method's name.
class TReferenceReader {
  public:
    TReferenceReader(std::string_view text, const TComponentReference& component,
                     const TFormComponents& others)
        : text_(text), component_(component), others_(others) {}

    /// The start of the reference to a component in front of the method at method, npos when there is none.
    std::size_t BeginOf(std::size_t method) const {
        const std::string_view component = QualifierBefore(method);
        if (component.empty()) return std::string_view::npos;
        const bool isOwn = SameText(component, component_.ComponentName);
        if (!isOwn && !others_) return std::string_view::npos;
        const std::size_t begin = PlaceOf(component);
        if (!IsQualified(begin)) return isOwn ? begin : std::string_view::npos;
        const std::string_view form = QualifierBefore(begin);
        const bool known = (isOwn && IsOwnForm(form)) || (others_ && others_(form, component));
        return known ? PlaceOf(form) : std::string_view::npos;
    }

  private:
    bool IsOwnForm(std::string_view name) const {
        return !name.empty() &&
               (SameText(name, component_.FormName) || SameText(name, "Self") || SameText(name, "this"));
    }

    bool IsQualified(std::size_t name) const { return PointBefore(SkipBlanksBack(text_, name)) != 0; }

    /// Length of the member access sign that ends at end, 0 when there is none.
    std::size_t PointBefore(std::size_t end) const {
        if (end >= 1 && text_[end - 1] == '.') return 1;
        return end >= 2 && text_.substr(end - 2, 2) == "->" ? 2 : 0;
    }

    /// The name in front of the member access sign in front of place, "" when there is none.
    std::string_view QualifierBefore(std::size_t place) const {
        const std::size_t pointEnd = SkipBlanksBack(text_, place);
        const std::size_t point = PointBefore(pointEnd);
        if (point == 0) return {};
        const std::size_t end = SkipBlanksBack(text_, pointEnd - point);
        const std::size_t begin = WordBegin(text_, end);
        return text_.substr(begin, end - begin);
    }

    std::size_t PlaceOf(std::string_view name) const {
        return static_cast<std::size_t>(name.data() - text_.data());
    }

    std::string_view text_;
    const TComponentReference& component_;
    const TFormComponents& others_;
};

/// The parenthesis of the accessor whose name begins at method, npos when it is another name.
std::size_t OpenOf(std::string_view text, std::size_t method) {
    std::size_t end = method;
    while (end < text.size() && IsNameChar(text[end]))
        ++end;
    const std::string_view name = text.substr(method, end - method);
    const bool known =
        std::any_of(mlLangGetTextMethods.begin(), mlLangGetTextMethods.end(),
                    [&](std::string_view m) { return SameText(m.substr(0, m.size() - 1), name); });
    const std::size_t open = SkipBlanks(text, end);
    return known && open < text.size() && text[open] == '(' ? open : std::string_view::npos;
}

/// Finds the closing parentheses of all calls in one walk over the text between two offsets.
class TCloser {
  public:
    TCloser(const TSourceText& source, std::vector<TAccessorCall>& calls) : source_(source), calls_(calls) {}

    void Run() {
        const std::string_view text = source_.Text();
        for (std::size_t pos = calls_.empty() ? text.size() : calls_.front().Open;;) {
            const std::size_t paren = FindByte<TByteSet<'(', ')'>>(text, pos);
            if (const std::size_t behind = LeaveLiteral(paren); behind != 0) {
                pos = behind;
                continue;
            }
            LeaveComments(paren);
            if (paren >= text.size()) break;
            EnterComment(paren);
            if (!IsCharacter(paren)) Take(paren, text[paren]);
            pos = paren + 1;
        }
        for (const std::size_t call : open_)
            CloseAtLineEnd(call);
    }

  private:
    static constexpr std::size_t kOther = std::string_view::npos;

    /// The end of the literal around the place, 0 when there is none.
    std::size_t LeaveLiteral(std::size_t place) {
        const auto& literals = source_.Literals();
        while (literal_ < literals.size() && literals[literal_].End <= place)
            ++literal_;
        if (literal_ == literals.size()) return 0;
        // A macro's parentheses around the literal pair up like all others.
        const TLiteral& literal = literals[literal_];
        return place > literal.Open && place < literal.BodyEnd ? literal.BodyEnd : 0;
    }

    /// The C++ constants '(' and ')'.
    bool IsCharacter(std::size_t place) const {
        return place > 0 && source_.Text()[place - 1] == '\'' && source_.Text().substr(place + 1, 1) == "'";
    }

    void EnterComment(std::size_t place) {
        const auto& comments = source_.Comments();
        while (comment_ < comments.size() && comments[comment_].End <= place)
            ++comment_;
        if (commentEnd_ != 0 || comment_ == comments.size() || comments[comment_].Begin > place) return;
        commentEnd_ = comments[comment_].End;
        openOutside_ = open_.size();
    }

    /// What was opened in a comment ends with it.
    void LeaveComments(std::size_t place) {
        if (commentEnd_ == 0 || place < commentEnd_) return;
        for (std::size_t i = openOutside_; i < open_.size(); ++i)
            CloseAtLineEnd(open_[i]);
        open_.resize(std::min(openOutside_, open_.size()));
        commentEnd_ = 0;
        openOutside_ = 0;
    }

    void Take(std::size_t place, char paren) {
        if (paren == '(') {
            while (next_ < calls_.size() && calls_[next_].Open < place)
                ++next_;
            const bool isCall = next_ < calls_.size() && calls_[next_].Open == place;
            open_.push_back(isCall ? next_ : kOther);
        } else if (open_.size() > openOutside_) {
            if (open_.back() != kOther) calls_[open_.back()].End = place + 1;
            open_.pop_back();
        }
    }

    void CloseAtLineEnd(std::size_t call) {
        if (call != kOther) calls_[call].End = LineEndOf(calls_[call].Open);
    }

    /// Looks through no part of a line twice, however many calls it holds.
    std::size_t LineEndOf(std::size_t place) {
        if (place >= lineFrom_ && place <= lineEnd_) return lineEnd_;
        const std::string_view text = source_.Text();
        const bool before = place < lineFrom_;
        std::size_t end = LineEnd(before ? text.substr(0, lineFrom_) : text, place);
        if (before && end == lineFrom_) end = lineEnd_;
        lineFrom_ = place;
        return lineEnd_ = end;
    }

    const TSourceText& source_;
    std::vector<TAccessorCall>& calls_;
    std::vector<std::size_t> open_;  ///< for each open parenthesis the index of its call, or kOther
    std::size_t next_ = 0;
    std::size_t literal_ = 0;
    std::size_t comment_ = 0;
    std::size_t commentEnd_ = 0;   ///< of the comment that the walk is in, 0 outside
    std::size_t openOutside_ = 0;  ///< size of open_ when it entered that comment
    std::size_t lineFrom_ = 0;     ///< a known part of a line, to its end; empty at first
    std::size_t lineEnd_ = 0;
};

}  // namespace

/// The texts are large and the word is rare, so its rarest letter is looked for.
std::vector<std::size_t> FindMethodStarts(std::string_view text) {
    constexpr std::string_view kCommonStart = "GETTEXT";
    constexpr std::size_t kRare = kCommonStart.find('X');
    using TRare = TByteSet<'x', 'X'>;
    std::vector<std::size_t> places;
    for (std::size_t pos = kRare; (pos = FindByte<TRare>(text, pos)) < text.size(); ++pos)
        if (SameText(text.substr(pos - kRare, kCommonStart.size()), kCommonStart))
            places.push_back(pos - kRare);
    return places;
}

std::vector<TAccessorName> FindAccessorNames(std::string_view text) {
    std::vector<TAccessorName> names;
    for (const std::size_t method : FindMethodStarts(text)) {
        if (WordBegin(text, method) != method) continue;
        const std::size_t open = OpenOf(text, method);
        if (open != std::string_view::npos) names.push_back({method, open});
    }
    return names;
}

std::vector<TAccessorCall> FindCalls(const TSourceText& source, const TComponentReference& component,
                                     const TFormComponents& others) {
    std::vector<TAccessorCall> calls;
    if (component.ComponentName.empty() && !others) return calls;
    const std::string_view text = source.Text();
    const TReferenceReader references(text, component, others);
    for (const std::size_t method : FindMethodStarts(text)) {
        // First what stands in front: a name that holds the word many times is then read once at most.
        const std::size_t begin = references.BeginOf(method);
        const std::size_t open = begin == std::string_view::npos ? begin : OpenOf(text, method);
        if (open != std::string_view::npos) calls.push_back({begin, open, 0});
    }
    TCloser(source, calls).Run();
    // What looks like a call inside a literal is text.
    std::erase_if(calls, [](const TAccessorCall& call) { return call.End == 0; });
    return calls;
}

std::string CalledID(const TSourceText& source, const TAccessorCall& call) {
    const std::size_t argument = SkipBlanks(source.Text(), call.Open + 1);
    const auto& literals = source.Literals();
    const auto first =
        std::lower_bound(literals.begin(), literals.end(), argument,
                         [](const TLiteral& literal, std::size_t at) { return literal.Begin < at; });
    return first != literals.end() && first->Begin == argument ? DecodeLiteral(source, *first)
                                                               : std::string();
}

}  // namespace tml
