#include "scan/Constreader.h"

#include <algorithm>
#include <array>
#include <unordered_map>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "scan/Lines.h"
#include "source/Characters.h"
#include "source/Charclass.h"
#include "source/Literals.h"
#include "source/Pascalwords.h"

namespace tml {
namespace {

using Kind = TRegionKind;

bool IsCode(const TToken& token) {
    return token.Kind != TTokenKind::Comment && token.Kind != TTokenKind::Directive;
}

/// The types of constants that are done, and of those that would become another type.
constexpr std::array<std::string_view, 4> kTypes{"string", "AnsiString", "WideString", "PChar"};
constexpr std::array<std::string_view, 6> kOtherTypes{"UnicodeString", "ShortString", "RawByteString",
                                                      "UTF8String",    "PWideChar",   "PAnsiChar"};

template <typename List>
bool IsIn(const List& list, std::string_view name) {
    return std::any_of(list.begin(), list.end(),
                       [&](std::string_view entry) { return SameText(entry, name); });
}

bool IsClosed(std::string_view comment) {
    if (comment.starts_with("//")) return true;
    if (comment.starts_with("{")) return comment.size() >= 2 && comment.ends_with('}');
    return comment.size() >= 4 && comment.ends_with("*)");
}

/// The names in {$IF Version = '2.0'}, none of another directive.
std::vector<std::string_view> NamesOfCondition(std::string_view directive) {
    std::vector<std::string_view> names;
    for (std::size_t pos = directive.find('$') + 1; pos < directive.size();) {
        std::size_t end = pos;
        while (end < directive.size() && IsNameChar(directive[end]))
            ++end;
        if (end > pos) names.push_back(directive.substr(pos, end - pos));
        pos = end + 1;
    }
    const bool isCondition = !names.empty() && (SameText(names[0], "IF") || SameText(names[0], "ELSEIF"));
    return isCondition ? names : std::vector<std::string_view>();
}

/// Adds a piece of a value to those in front of it; pieces of one line keep their distance.
void Join(std::string& value, std::string_view piece, bool touches) {
    if (!value.empty() && !touches) value += ' ';
    value += piece;
}

}  // namespace

TConstReader::TConstReader(const TSourceText& source)
    : source_(source), tokens_(source.Tokens()), regions_(source.Outline()), finder_(regions_) {
    CheckEnds();
    FollowConditions();
    std::size_t token = 0;
    for (std::size_t i = 0; i < regions_.size(); ++i) {
        if (regions_[i].Kind != Kind::Const) continue;
        while (token < tokens_.size() && tokens_[token].Begin <= regions_[i].Begin)
            ++token;
        ReadSection(i, token);
    }
    AdviseUses();
}

std::size_t TConstReader::SectionAt(TRegionFinder& finder, std::size_t offset) const {
    return Around(finder.At(offset), Kind::Const);
}

std::size_t TConstReader::Around(std::size_t region, TRegionKind kind) const {
    while (region != kNoRegion && regions_[region].Kind != kind)
        region = regions_[region].Parent;
    return region;
}

void TConstReader::CheckEnds() const {
    TRegionFinder finder(regions_);
    for (const TToken& token : tokens_) {
        const bool isOpen = token.Kind == TTokenKind::Comment && token.End == source_.Text().size() &&
                            !IsClosed(TextOf(source_, token));
        if (token.Kind != TTokenKind::Stray && !isOpen) continue;
        if (SectionAt(finder, token.Begin) == kNoRegion) continue;
        throw EBadInput(source_.FileName(), source_.LineOf(token.Begin),
                        isOpen ? "the const section ends inside a comment" : "the literal has no end",
                        isOpen ? "Close the comment." : "Close the literal on its line.");
    }
}

void TConstReader::FollowConditions() {
    int depth = 0;
    conditional_.reserve(tokens_.size());
    for (const TToken& token : tokens_) {
        if (token.Kind == TTokenKind::Directive)
            depth = std::max(depth + ConditionStep(TextOf(source_, token)), 0);
        conditional_.push_back(depth > 0);
    }
}

void TConstReader::ReadSection(std::size_t section, std::size_t first) {
    const std::size_t sectionEnd = regions_[section].End;
    std::size_t end = first;
    while (end < tokens_.size() && tokens_[end].Begin < sectionEnd)
        ++end;
    for (std::size_t index = first; index < end;)
        index = IsCode(tokens_[index]) ? ReadDeclaration(section, index, end) : index + 1;
}

/// Reads what begins at index and gives the place behind its semicolon.
std::size_t TConstReader::ReadDeclaration(std::size_t section, std::size_t index, std::size_t end) {
    std::size_t equals = end;
    std::size_t last = index;
    int depth = 0;
    for (; last < end && (depth > 0 || TextAt(last) != ";"); ++last) {
        const std::string_view text = TextAt(last);
        if (text == "(" || text == "[") ++depth;
        if (text == ")" || text == "]") --depth;
        if (text == "=" && equals == end) equals = last;
    }
    if (last >= end || equals == end || tokens_[index].Kind != TTokenKind::Name) return last + 1;
    TConstDeclaration declaration;
    declaration.Name = TextAt(index);
    declaration.Begin = tokens_[index].Begin;
    declaration.End = tokens_[last].End;
    declaration.Section = section;
    if (ReadType(declaration, index + 1, equals) && ReadValue(declaration, equals + 1, last)) {
        declaration.Advice = AdviceFor(declaration, index);
        declarations_.push_back(std::move(declaration));
    }
    return last + 1;
}

/// The string types, a length in brackets aside; blanks and comments around them do not count.
bool TConstReader::ReadType(TConstDeclaration& declaration, std::size_t first, std::size_t last) const {
    std::vector<std::string_view> words;
    for (std::size_t i = first; i < last; ++i) {
        if (tokens_[i].Kind == TTokenKind::Directive) return false;
        if (tokens_[i].Kind == TTokenKind::Comment)
            declaration.Comments.push_back(TextAt(i));
        else
            words.push_back(TextAt(i));
    }
    if (words.empty()) return true;
    if (words.size() < 2 || words[0] != ":") return false;
    declaration.Type = words[1];
    if (SameText(words[1], "string") && words.size() > 2) return words[2] == "[";
    return words.size() == 2 && (IsIn(kTypes, words[1]) || IsIn(kOtherTypes, words[1]));
}

bool TConstReader::ReadValue(TConstDeclaration& declaration, std::size_t first, std::size_t last) const {
    bool hasLiteral = false;
    TCharacters characters;
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t comments = declaration.Comments.size();
    for (std::size_t i = first; i < last; ++i) {
        const TToken& token = tokens_[i];
        const std::string_view text = TextAt(i);
        if (token.Kind == TTokenKind::Comment) {
            declaration.Comments.push_back(text);
            continue;
        }
        if (token.Kind == TTokenKind::Literal) {
            const TLiteral& literal = source_.Literals()[token.Index];
            if (!hasLiteral) declaration.Open = literal.Open;
            hasLiteral = true;
            declaration.RawLength += literal.RawLength();
            characters.Add(DecodeLiteral(source_, literal));
        } else if (token.Kind == TTokenKind::Character) {
            characters.AddPascalCode(text, source_.ByteEncodings());
        } else if (IsNamePart(i, first)) {
            declaration.IsJoined = true;
        } else if (text != "+" && text != "(" && text != ")") {
            return false;
        }
        if (begin == 0) begin = token.Begin;
        Join(declaration.Value, Written(token), token.Begin == end);
        end = token.End;
    }
    if (!hasLiteral) return false;
    declaration.Text = characters.Take();
    // A value that is complete on its line stays as it was written.
    const std::string_view rest = source_.Text().substr(declaration.Open);
    const bool complete = IsStringTerminated(rest.substr(0, rest.find('\n')), kPascal);
    const std::string_view written = source_.Text().substr(begin, end - begin);
    if (complete && declaration.Comments.size() == comments && written.find('\n') == std::string::npos)
        declaration.Value = written;
    return true;
}

/// Part of the name of another constant ("S", "Unit2.S") between signs, not of a function.
bool TConstReader::IsNamePart(std::size_t index, std::size_t first) const {
    const auto isOne = [](std::string_view text, std::string_view of) {
        return text.size() == 1 && of.find(text.front()) != std::string_view::npos;
    };
    if (TextAt(index) == ".") return index > first && tokens_[index - 1].Kind == TTokenKind::Name;
    return tokens_[index].Kind == TTokenKind::Name && isOne(TextAt(index + 1), "+.);") &&
           (index == first || isOne(TextAt(index - 1), "+.("));
}

/// A token of a value on one line: a text over several lines becomes an ordinary literal.
std::string TConstReader::Written(const TToken& token) const {
    if (token.Kind == TTokenKind::Literal) {
        const TLiteral& literal = source_.Literals()[token.Index];
        if (literal.BodyBegin > literal.Open + 1)
            return "'" + EncodeLiteralBody(DecodeLiteral(source_, literal), kPascal) + "'";
    }
    return std::string(TextOf(source_, token));
}

TAdvice TConstReader::AdviceFor(const TConstDeclaration& declaration, std::size_t index) const {
    if (declaration.IsJoined) return TAdvice::Joined;
    if (IsIn(kOtherTypes, declaration.Type)) return TAdvice::ConstType;
    if (conditional_[index]) return TAdvice::Conditional;
    if (const std::size_t routine = Around(declaration.Section, Kind::Routine); routine != kNoRegion)
        return HasBody(routine) ? TAdvice::LocalConst : TAdvice::NoBody;
    const std::size_t owner = Around(declaration.Section, Kind::Class);
    if (owner != kNoRegion) {
        const std::string_view name = regions_[owner].Name;
        // A generic class has as many constants as it has uses, a nameless record cannot be named.
        const std::size_t behind =
            static_cast<std::size_t>(name.data() - source_.Text().data()) + name.size();
        if (name.empty() || source_.Text().substr(SkipBlanks(source_.Text(), behind), 1) == "<")
            return TAdvice::Declaration;
    }
    if (declaration.Type.empty() && CountCodePoints(declaration.Text) == 1) return TAdvice::Character;
    return TAdvice::None;
}

/// A body written in Pascal.
bool TConstReader::HasBody(std::size_t routine) const {
    for (std::size_t i = routine + 1; i < regions_.size() && regions_[i].Begin < regions_[routine].End; ++i)
        if (regions_[i].Kind == Kind::Body && regions_[i].Parent == routine)
            return SameText(source_.Text().substr(regions_[i].Begin, kPascal.BEGINSIGN.size()),
                            kPascal.BEGINSIGN);
    return false;
}

/// Finds the names of untyped constants where only a value that the compiler knows can stand.
void TConstReader::AdviseUses() {
    std::unordered_multimap<std::string, TConstDeclaration*> untyped;
    for (TConstDeclaration& declaration : declarations_)
        if (declaration.Type.empty() && declaration.Advice == TAdvice::None)
            untyped.emplace(UpperCase(declaration.Name), &declaration);
    if (untyped.empty()) return;
    TRegionFinder finder(regions_);
    const auto use = [&](std::string_view name, std::size_t place) {
        const auto [first, last] = untyped.equal_range(UpperCase(name));
        for (auto entry = first; entry != last; ++entry)
            if (place != entry->second->Begin) entry->second->Advice = TAdvice::ConstantUse;
    };
    for (const TToken& token : tokens_) {
        const std::string_view text = TextOf(source_, token);
        if (token.Kind == TTokenKind::Directive)
            for (const std::string_view name : NamesOfCondition(text))
                use(name, token.Begin);
        else if (token.Kind == TTokenKind::Name && NeedsValue(finder.At(token.Begin)))
            use(text, token.Begin);
    }
}

/// Everything outside code is a declaration; in code the labels of a case are.
bool TConstReader::NeedsValue(std::size_t region) const {
    if (region == kNoRegion) return true;
    const Kind kind = regions_[region].Kind;
    return kind != Kind::Body && kind != Kind::Initialization;
}

}  // namespace tml
