#include "ids/Idcalls.h"

#include <algorithm>
#include <optional>

#include "scan/Calls.h"
#include "source/Charclass.h"
#include "source/Conditions.h"
#include "source/Literals.h"

namespace tml {
namespace {

class TIDCallReader {
  public:
    explicit TIDCallReader(const TSourceText& source) : source_(source), text_(source.Text()) {}

    std::vector<TIDCall> Run() {
        std::vector<TIDCall> calls;
        std::size_t counted = 0;
        int line = 1;
        for (const TAccessorName& name : FindAccessorNames(text_)) {
            if (source_.IsCommentAt(name.Begin) || IsInLiteral(name.Begin)) continue;
            for (; (counted = text_.find('\n', counted)) < name.Begin; ++counted)
                ++line;
            TIDCall& call = calls.emplace_back();
            call.Place = name.Begin;
            call.Line = line;
            ReadOwner(call);
            ReadArgument(call, SkipBlanks(text_, name.Open + 1));
            call.IsOptional = IsOptional(name.Begin);
        }
        return calls;
    }

  private:
    /// The first literal that begins at or behind a place.
    std::vector<TLiteral>::const_iterator LiteralFrom(std::size_t place) const {
        const auto& literals = source_.Literals();
        return std::lower_bound(literals.begin(), literals.end(), place,
                                [](const TLiteral& literal, std::size_t at) { return literal.Begin < at; });
    }

    bool IsInLiteral(std::size_t place) const {
        const auto next = LiteralFrom(place);
        return next != source_.Literals().begin() && std::prev(next)->End > place;
    }

    /// Takes the member access sign in front of end; false where there is none.
    bool TakePoint(std::size_t& end) const {
        end = SkipBlanksBack(text_, end);
        const bool isArrow = text_.substr(0, end).ends_with("->");
        if (!isArrow && !text_.substr(0, end).ends_with('.')) return false;
        end = SkipBlanksBack(text_, end - (isArrow ? 2 : 1));
        return true;
    }

    void ReadOwner(TIDCall& call) const {
        std::size_t end = call.Place;
        for (std::string* name : {&call.Component, &call.Form}) {
            if (!TakePoint(end)) return;
            const std::size_t begin = WordBegin(text_, end);
            *name = text_.substr(begin, end - begin);
            call.HasOddOwner = name->empty();
            if (call.HasOddOwner) return;
            end = begin;
        }
    }

    void ReadArgument(TIDCall& call, std::size_t place) const {
        const auto literal = LiteralFrom(place);
        if (literal == source_.Literals().end() || literal->Begin != place) return;
        call.ID = DecodeLiteral(source_, *literal);
        call.BodyBegin = literal->BodyBegin;
        call.BodyEnd = literal->BodyEnd;
        const std::size_t behind = SkipComments(literal->End);
        const bool ends = behind < text_.size() && (text_[behind] == ')' || text_[behind] == ',');
        call.Argument = ends && !literal->CodeAfter ? TIDArgument::Whole : TIDArgument::Beginning;
    }

    std::size_t SkipComments(std::size_t place) const {
        const auto& comments = source_.Comments();
        place = SkipBlanks(text_, place);
        auto next =
            std::lower_bound(comments.begin(), comments.end(), place,
                             [](const TComment& comment, std::size_t at) { return comment.Begin < at; });
        for (; next != comments.end() && next->Begin == place; ++next)
            place = SkipBlanks(text_, next->End);
        return place;
    }

    bool IsOptional(std::size_t place) {
        if (!conditions_) conditions_.emplace(source_);
        const std::size_t branch = conditions_->BranchAt(place);
        return branch != 0 && branch != conditions_->Guard();
    }

    const TSourceText& source_;
    std::string_view text_;
    std::optional<TConditions> conditions_;
};

}  // namespace

std::vector<TIDCall> ReadIDCalls(const TSourceText& source) {
    return TIDCallReader(source).Run();
}

}  // namespace tml
