#include "source/Usesedits.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "source/Charclass.h"
#include "source/Conditions.h"
#include "source/Newlines.h"
#include "source/Pascalwords.h"

namespace tml {
namespace {

constexpr std::size_t kLineWidth = 80;
constexpr std::string_view kLineBreak = "\r\n";
struct TUsedUnit {
    std::string Name;  ///< dots included
    std::size_t Begin = 0;
    std::size_t End = 0;             ///< of the name, or of the file's name behind "in"
    std::optional<TToken> Previous;  ///< the comma in front
    std::optional<TToken> Next;      ///< the comma behind
};

/// One uses clause as it stands.
struct TUsesClause {
    std::vector<TUsedUnit> Units;
    std::size_t Begin = 0;
    std::size_t WordEnd = 0;  ///< behind "uses"
    std::size_t Semicolon = 0;
};

class TUsesReader {
  public:
    explicit TUsesReader(const TSourceText& source)
        : source_(source), regions_(source.Outline()), conditions_(source) {}

    const TRegion* Part(TRegionKind kind) const {
        const auto found = std::find_if(regions_.begin(), regions_.end(),
                                        [&](const TRegion& region) { return region.Kind == kind; });
        return found == regions_.end() ? nullptr : &*found;
    }

    const TConditions& Conditions() const { return conditions_; }
    std::size_t BranchOf(const TRegion* part) const {
        return conditions_.BranchAt(part == nullptr ? 0 : part->Begin);
    }

    /// The clauses of a part, several where conditions choose one; those of the program where part is
    /// nullptr.
    std::vector<TUsesClause> ClausesOf(const TRegion* part) const {
        std::vector<TUsesClause> clauses;
        for (const TRegion* region : RegionsOf(part))
            clauses.push_back(Read(*region));
        return clauses;
    }

    /// The edits that add the unit in front of the clauses of a part that stand under one condition alone, so
    /// that it is used in every case: "{$IFDEF A} uses B; {$ENDIF}" becomes "uses U {$IFDEF A}, B {$ENDIF};".
    /// None where the part's first clause is under no condition.
    TEdits AddBeforeCondition(const TRegion* part, const std::string& unitName) const {
        const std::vector<const TRegion*> clauses = RegionsOf(part);
        auto clause = clauses.begin();
        std::vector<TToken> open;  // directives of the conditions around
        TEdits edits;
        bool joins = false;
        bool mixed = false;  // the condition holds more than clauses
        std::size_t clauseEnd = 0;
        for (auto token = TokenAt(source_.Tokens(), part == nullptr ? 0 : part->Begin);
             token != source_.Tokens().end() && (clause != clauses.end() || !open.empty()); ++token) {
            const int step =
                token->Kind == TTokenKind::Directive ? ConditionStep(TextOf(source_, *token)) : 0;
            if (step > 0) open.push_back(*token);
            if (step < 0 && !open.empty()) open.pop_back();
            if (step < 0 && open.empty() && joins) {
                edits.push_back({token->End, token->End, ";"});
                return edits;
            }
            const bool isClause = clause != clauses.end() && (*clause)->Begin == token->Begin;
            const bool isCode = token->Kind != TTokenKind::Comment && token->Kind != TTokenKind::Directive;
            mixed = !open.empty() && (mixed || (isCode && !isClause && token->Begin >= clauseEnd));
            if ((isClause && open.empty()) || (mixed && (joins || isClause))) return {};
            if (!isClause) continue;
            clauseEnd = (*clause++)->End;
            if (!joins) {
                const std::size_t begin = open.front().Begin;
                edits.push_back({begin, begin, "uses" + std::string(kLineBreak) + "  " + unitName + " "});
            }
            joins = true;
            edits.push_back({token->Begin, token->End, ","});
            edits.push_back({clauseEnd - 1, clauseEnd, ""});
        }
        return {};
    }

  private:
    /// A clause behind other declarations can only stand in a case that is never compiled.
    std::vector<const TRegion*> RegionsOf(const TRegion* part) const {
        std::vector<const TRegion*> clauses;
        for (const TRegion& region : regions_) {
            const TRegion* parent = region.Parent == kNoRegion ? nullptr : &regions_[region.Parent];
            if (parent != part || region.Kind == TRegionKind::Attribute) continue;
            if (region.Kind != TRegionKind::Uses) break;
            clauses.push_back(&region);
        }
        return clauses;
    }

    static std::vector<TToken>::const_iterator TokenAt(const std::vector<TToken>& tokens, std::size_t begin) {
        return std::lower_bound(tokens.begin(), tokens.end(), begin,
                                [](const TToken& token, std::size_t at) { return token.Begin < at; });
    }

    TUsesClause Read(const TRegion& region) const {
        TUsesClause clause;
        clause.Begin = region.Begin;
        bool expectsName = true;
        const std::vector<TToken>& tokens = source_.CodeTokens();
        auto token = TokenAt(tokens, region.Begin);
        clause.WordEnd = token->End;
        for (++token; token != tokens.end() && token->Begin < region.End; ++token) {
            const std::string_view text = TextOf(source_, *token);
            if (text == ";") {
                clause.Semicolon = token->Begin;
            } else if (text == ",") {
                if (!clause.Units.empty()) clause.Units.back().Next = *token;
                expectsName = true;
            } else if (expectsName) {
                AddUnit(clause, *token);
                expectsName = false;
            } else {
                Continue(clause.Units.back(), *token, text);
            }
        }
        if (clause.Semicolon == 0)
            throw EBadInput(source_.FileName(), source_.LineOf(region.Begin), "the uses clause has no end",
                            "Close it with a semicolon.");
        return clause;
    }

    void AddUnit(TUsesClause& clause, const TToken& token) const {
        TUsedUnit unit{std::string(TextOf(source_, token)), token.Begin, token.End, {}, {}};
        if (!clause.Units.empty()) unit.Previous = clause.Units.back().Next;
        clause.Units.push_back(std::move(unit));
    }

    /// The parts of a dotted name, and the file behind "in".
    static void Continue(TUsedUnit& unit, const TToken& token, std::string_view text) {
        if (text == "." || unit.Name.ends_with('.')) unit.Name += text;
        unit.End = token.End;
    }

    const TSourceText& source_;
    const std::vector<TRegion>& regions_;
    TConditions conditions_;
};

[[noreturn]] void Refuse(const TSourceText& source, std::size_t place, const std::string& problem,
                         const std::string& remedy) {
    throw EBadInput(source.FileName(), source.LineOf(place), problem, remedy);
}

/// Where the clauses name the unit.
std::vector<std::size_t> PlacesOf(const std::vector<TUsesClause>& clauses, const std::string& unitName) {
    std::vector<std::size_t> places;
    for (const TUsesClause& clause : clauses)
        for (const TUsedUnit& unit : clause.Units)
            if (SameText(unit.Name, unitName)) places.push_back(unit.Begin);
    return places;
}

/// Whether a part uses the unit in every build. A second mention would not compile, so one that only some
/// builds see is refused.
bool Uses(const TSourceText& source, const TUsesReader& reader, const TRegion* part,
          const std::string& unitName) {
    const std::vector<std::size_t> places = PlacesOf(reader.ClausesOf(part), unitName);
    if (places.empty()) return false;
    if (reader.Conditions().Reach(places, reader.BranchOf(part))) return true;
    Refuse(source, places.front(), "the unit " + unitName + " is used under a condition only",
           "Name it where every build sees it.");
}

bool StartsItsLine(std::string_view text, std::size_t place) {
    return Trim(text.substr(LineStart(text, place), place - LineStart(text, place))).empty();
}

TEdits Append(const TSourceText& source, const TConditions& conditions, const TUsesClause& clause,
              const std::string& unitName) {
    const std::string_view text = source.Text();
    // A semicolon of one branch only would leave the unit out of the others.
    if (!conditions.IsSeen(clause.Semicolon, conditions.BranchAt(clause.Begin)) || clause.Units.empty())
        return {{clause.WordEnd, clause.WordEnd, " " + unitName + (clause.Units.empty() ? "" : ",")}};
    const std::size_t last = clause.Units.back().Begin;
    const std::size_t count = clause.Units.size();
    const bool ownLine = StartsItsLine(text, last);
    const bool onePerLine = count > 1 && ownLine && StartsItsLine(text, clause.Units[count - 2].Begin) &&
                            LineStart(text, last) != LineStart(text, clause.Units[count - 2].Begin);
    const std::size_t column = clause.Semicolon - LineStart(text, clause.Semicolon);
    const bool fits = column + unitName.size() + 3 <= kLineWidth;
    if (fits && !onePerLine) return {{clause.Semicolon, clause.Semicolon, ", " + unitName}};
    const std::size_t line = LineStart(text, last);
    const std::size_t indentEnd = text.find_first_not_of(" \t", line);
    const std::string indent =
        std::string(text.substr(line, indentEnd - line)) + (indentEnd < clause.WordEnd ? "  " : "");
    return {{clause.Semicolon, clause.Semicolon, "," + std::string(kLineBreak) + indent + unitName}};
}

/// A clause of its own behind the line of the part's word.
TEdits NewClause(const TSourceText& source, const TRegion& part, const std::string& unitName) {
    const std::string clause =
        "uses" + std::string(kLineBreak) + "  " + unitName + ";" + std::string(kLineBreak);
    std::size_t end = part.Begin;
    while (end < source.Text().size() && IsNameChar(source.Text()[end]))
        ++end;
    if (const auto line = LineBehind(source, end)) return {{*line, *line, std::string(kLineBreak) + clause}};
    return {{end, end, std::string(kLineBreak) + std::string(kLineBreak) + clause}};
}

TEdits AddTo(const TSourceText& source, const TUsesReader& reader, const TRegion* part,
             const std::string& unitName) {
    if (TEdits edits = reader.AddBeforeCondition(part, unitName); !edits.empty()) return edits;
    const std::vector<TUsesClause> clauses = reader.ClausesOf(part);
    for (const TUsesClause& clause : clauses)
        if (reader.Conditions().IsSeen(clause.Begin, reader.BranchOf(part)))
            return Append(source, reader.Conditions(), clause, unitName);
    if (!clauses.empty())
        Refuse(source, clauses.front().Begin, "the uses clause stands under a condition",
               "Name " + unitName + " where every build sees it.");
    if (part != nullptr) return NewClause(source, *part, unitName);
    Refuse(source, source.Text().size(), "there is no uses clause", "Write one that names " + unitName + ".");
}

/// Takes a unit out of its clause: its name with a comma beside it. What stands between is kept, unless it is
/// blank.
TEdits TakeOut(const TSourceText& source, const TConditions& conditions, const TUsesClause& clause,
               const TUsedUnit& unit) {
    const std::string_view text = source.Text();
    if (clause.Units.size() == 1) {
        const std::size_t end = clause.Semicolon + 1;
        const bool isPlain =
            SkipBlanks(text, clause.WordEnd) == unit.Begin && SkipBlanks(text, unit.End) + 1 == end;
        if (isPlain) return {{clause.Begin, end, ""}};
        return {{clause.Begin, clause.WordEnd, ""}, {unit.Begin, unit.End, ""}, {clause.Semicolon, end, ""}};
    }
    const std::size_t branch = conditions.BranchAt(unit.Begin);
    if (unit.Next && conditions.BranchAt(unit.Next->Begin) == branch) {
        const std::size_t rest = SkipBlanks(text, unit.Next->End);
        const bool isPlain = SkipBlanks(text, unit.End) == unit.Next->Begin;
        if (isPlain) return {{unit.Begin, rest, ""}};
        return {{unit.Begin, unit.End, ""}, {unit.Next->Begin, unit.Next->End, ""}};
    }
    if (unit.Previous && conditions.BranchAt(unit.Previous->Begin) == branch) {
        const bool isPlain = SkipBlanks(text, unit.Previous->End) == unit.Begin;
        if (isPlain) return {{unit.Previous->Begin, unit.End, ""}};
        return {{unit.Previous->Begin, unit.Previous->End, ""}, {unit.Begin, unit.End, ""}};
    }
    Refuse(source, unit.Begin, "the implementation part uses " + unit.Name + " already",
           "Name it in the interface's uses clause instead.");
}

/// Compilers refuse a unit that is named in both parts.
TEdits TakeOutBelow(const TSourceText& source, const TUsesReader& reader, const std::string& unitName) {
    TEdits edits;
    const TRegion* implementation = reader.Part(TRegionKind::Implementation);
    if (implementation == nullptr) return edits;
    for (const TUsesClause& clause : reader.ClausesOf(implementation))
        for (const TUsedUnit& unit : clause.Units)
            if (SameText(unit.Name, unitName))
                for (TEdit& edit : TakeOut(source, reader.Conditions(), clause, unit))
                    edits.push_back(std::move(edit));
    return edits;
}

}  // namespace

TEdits AddUsedUnit(const TSourceText& source, const std::string& unitName) {
    const TUsesReader reader(source);
    const TRegion* part = reader.Part(TRegionKind::Interface);
    if (Uses(source, reader, part, unitName)) return {};
    TEdits edits = AddTo(source, reader, part, unitName);
    for (TEdit& edit : TakeOutBelow(source, reader, unitName))
        edits.push_back(std::move(edit));
    return edits;
}

TEdits AddImplementationUnit(const TSourceText& source, const std::string& unitName) {
    const TUsesReader reader(source);
    const TRegion* implementation = reader.Part(TRegionKind::Implementation);
    if (Uses(source, reader, reader.Part(TRegionKind::Interface), unitName)) return {};
    if (implementation != nullptr && Uses(source, reader, implementation, unitName)) return {};
    return AddTo(source, reader, implementation, unitName);
}

TEdits ExchangeUsedUnit(const TSourceText& source, const std::string& oldUnit, const std::string& newUnit,
                        bool keepsOld) {
    const TUsesReader reader(source);
    const TRegion* part = reader.Part(TRegionKind::Interface);
    const bool hasNew = Uses(source, reader, part, newUnit);
    if (hasNew && keepsOld) return {};
    TEdits edits;
    for (const TUsesClause& clause : reader.ClausesOf(part))
        for (const TUsedUnit& unit : clause.Units) {
            if (!SameText(unit.Name, oldUnit)) continue;
            if (keepsOld)
                edits.push_back({unit.End, unit.End, ", " + newUnit});
            else if (!hasNew)
                edits.push_back({unit.Begin, unit.End, newUnit});
            else
                for (TEdit& edit : TakeOut(source, reader.Conditions(), clause, unit))
                    edits.push_back(std::move(edit));
        }
    if (hasNew) return edits;
    if (edits.empty()) return AddUsedUnit(source, newUnit);
    for (TEdit& edit : TakeOutBelow(source, reader, newUnit))
        edits.push_back(std::move(edit));
    return edits;
}

}  // namespace tml
