#include "source/Conditions.h"

#include <algorithm>
#include <string>

#include "base/Utf8.h"
#include "source/Charclass.h"
#include "source/Preprocessor.h"

namespace tml {
namespace {

/// The word of "{$IFDEF X}" or "(*$IFDEF X*)", in capitals.
std::string WordOf(std::string_view directive) {
    const std::size_t begin = directive.find('$') + 1;
    std::size_t end = begin;
    while (end < directive.size() && IsNameChar(directive[end]))
        ++end;
    return UpperCase(directive.substr(begin, end - begin));
}

}  // namespace

TConditions::TConditions(const TSourceText& source) : branches_(1), conditions_(1) {
    const std::size_t size = source.Text().size();
    branches_[0].End = size;
    if (source.Language().IsCPPSource) {
        for (const TPreprocessorLine& line : PreprocessorLines(source))
            Take(UpperCase(line.Word), line.Begin, line.End);
    } else {
        for (const TComment& comment : source.Comments())
            if (comment.IsDirective)
                Take(WordOf(source.Text().substr(comment.Begin, comment.End - comment.Begin)), comment.Begin,
                     comment.End);
    }
    for (; current_ != 0; current_ = branches_[current_].Parent)
        branches_[current_].End = size;
}

/// {$IFEND} closes a condition, every other word that begins so opens one.
void TConditions::Take(std::string_view word, std::size_t begin, std::size_t end) {
    ++directives_;
    if (word == "IFEND" || word == "ENDIF") {
        branches_[current_].End = begin;
        current_ = branches_[current_].Parent;
    } else if (word.starts_with("IF")) {
        conditions_.emplace_back();
        Open(conditions_.size() - 1, current_, end);
    } else if ((word.starts_with("ELSE") || word.starts_with("ELIF")) && current_ != 0) {
        const TBranch& before = branches_[current_];
        branches_[current_].End = begin;
        conditions_[before.Condition].HasElse = conditions_[before.Condition].HasElse || word == "ELSE";
        Open(before.Condition, before.Parent, end);
    } else if (word == "DEFINE" && directives_ == 2 && current_ == 1) {
        guard_ = 1;
    }
}

void TConditions::Open(std::size_t condition, std::size_t parent, std::size_t begin) {
    ++conditions_[condition].Branches;
    current_ = branches_.size();
    branches_.push_back({begin, begin, parent, condition});
}

std::size_t TConditions::BranchAt(std::size_t place) const {
    const auto behind = std::upper_bound(branches_.begin() + 1, branches_.end(), place,
                                         [](std::size_t at, const TBranch& b) { return at < b.Begin; });
    auto branch = static_cast<std::size_t>(behind - branches_.begin()) - 1;
    while (branch != 0 && branches_[branch].End < place)
        branch = branches_[branch].Parent;
    return branch;
}

bool TConditions::IsSeen(std::size_t place, std::size_t branch) const {
    const std::size_t around = BranchAt(place);
    while (branch > around)
        branch = branches_[branch].Parent;
    return branch == around;
}

bool TConditions::Reach(const std::vector<std::size_t>& places, std::size_t branch) const {
    std::vector<bool> reached(branches_.size());
    for (const std::size_t place : places)
        reached[BranchAt(place)] = true;
    // A condition whose branches are all reached, the one of $ELSE among them, reaches the branch around it.
    std::vector<std::size_t> counts(conditions_.size());
    for (std::size_t i = branches_.size(); --i > 0;) {
        const TCondition& condition = conditions_[branches_[i].Condition];
        if (!reached[i] || ++counts[branches_[i].Condition] < condition.Branches) continue;
        if (condition.HasElse) reached[branches_[i].Parent] = true;
    }
    while (branch != 0 && !reached[branch])
        branch = branches_[branch].Parent;
    return reached[branch];
}

}  // namespace tml
