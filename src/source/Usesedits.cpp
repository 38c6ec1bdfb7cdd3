#include "source/Usesedits.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "source/Charclass.h"
#include "source/Pascalwords.h"

namespace tml {
namespace {

constexpr std::size_t kLineWidth = 80;
constexpr std::string_view kLineBreak = "\r\n";
constexpr std::string_view kUses = "uses";

struct TUsedUnit {
    std::string Name;  ///< dots included
    std::size_t Begin = 0;
};

/// One uses clause as it stands.
struct TUsesClause {
    std::vector<TUsedUnit> Units;
    std::size_t WordEnd = 0;  ///< behind "uses"
    std::size_t Semicolon = 0;
    bool EndsInCondition = false;  ///< the semicolon belongs to one branch only
};

class TUsesReader {
  public:
    explicit TUsesReader(const TSourceText& source) : source_(source), regions_(source.Outline()) {}

    const TRegion* Part(TRegionKind kind) const {
        const auto found = std::find_if(regions_.begin(), regions_.end(),
                                        [&](const TRegion& region) { return region.Kind == kind; });
        return found == regions_.end() ? nullptr : &*found;
    }

    /// The clause of a part; of the program where part is nullptr.
    std::optional<TUsesClause> ClauseOf(const TRegion* part) const {
        for (const TRegion& region : regions_) {
            const TRegion* parent = region.Parent == kNoRegion ? nullptr : &regions_[region.Parent];
            if (region.Kind == TRegionKind::Uses && parent == part && IsLeading(region)) return Read(region);
        }
        return std::nullopt;
    }

    /// The edits that add the unit in front of the clauses of a part that stand under one condition alone, so
    /// that it is used in every case: "{$IFDEF A} uses B; {$ENDIF}" becomes "uses U {$IFDEF A}, B {$ENDIF};".
    /// None where the part's first clause is under no condition.
    TEdits AddBeforeCondition(const TRegion* part, const std::string& unitName) const {
        std::vector<TToken> open;  // directives of the conditions around
        TEdits edits;
        bool joins = false;
        bool mixed = false;  // the condition holds more than clauses
        std::size_t clauseEnd = 0;
        for (const TToken& token : source_.Tokens()) {
            if (token.Begin < (part == nullptr ? 0 : part->Begin)) continue;
            const int step = token.Kind == TTokenKind::Directive ? ConditionStep(TextOf(source_, token)) : 0;
            if (step > 0) open.push_back(token);
            if (step < 0 && !open.empty()) open.pop_back();
            if (step < 0 && open.empty() && joins) {
                edits.push_back({token.End, token.End, ";"});
                return edits;
            }
            const TRegion* clause = ClauseAt(part, token.Begin);
            const bool isCode = token.Kind != TTokenKind::Comment && token.Kind != TTokenKind::Directive;
            mixed = !open.empty() && (mixed || (isCode && clause == nullptr && token.Begin >= clauseEnd));
            if ((clause != nullptr && open.empty()) || (mixed && (joins || clause != nullptr))) return {};
            if (clause == nullptr) continue;
            clauseEnd = clause->End;
            if (!joins) {
                const std::size_t begin = open.front().Begin;
                edits.push_back({begin, begin, "uses" + std::string(kLineBreak) + "  " + unitName + " "});
            }
            joins = true;
            edits.push_back({token.Begin, token.End, ","});
            edits.push_back({clause->End - 1, clause->End, ""});
        }
        return {};
    }

  private:
    /// A clause behind other declarations can only stand in a case that is never compiled.
    bool IsLeading(const TRegion& clause) const {
        return std::none_of(regions_.begin(), regions_.end(), [&](const TRegion& region) {
            return region.Parent == clause.Parent && region.Begin < clause.Begin &&
                   region.Kind != TRegionKind::Uses && region.Kind != TRegionKind::Attribute;
        });
    }

    const TRegion* ClauseAt(const TRegion* part, std::size_t begin) const {
        const auto found = std::find_if(regions_.begin(), regions_.end(), [&](const TRegion& region) {
            const TRegion* parent = region.Parent == kNoRegion ? nullptr : &regions_[region.Parent];
            return region.Kind == TRegionKind::Uses && region.Begin == begin && parent == part &&
                   IsLeading(region);
        });
        return found == regions_.end() ? nullptr : &*found;
    }

    TUsesClause Read(const TRegion& region) const {
        TUsesClause clause;
        int conditions = 0;
        bool expectsName = true;
        for (const TToken& token : source_.Tokens()) {
            if (token.Begin < region.Begin || token.Begin >= region.End) continue;
            const std::string_view text = TextOf(source_, token);
            if (token.Begin == region.Begin)
                clause.WordEnd = token.End;
            else if (token.Kind == TTokenKind::Directive)
                conditions += ConditionStep(text);
            else if (text == ";")
                clause.Semicolon = token.Begin;
            else if (text == ",")
                expectsName = true;
            else if (token.Kind == TTokenKind::Name)
                expectsName = AddWord(clause, token, text, expectsName);
            else if (text == "." && !clause.Units.empty())
                clause.Units.back().Name += text;
        }
        if (clause.Semicolon == 0)
            throw EBadInput(source_.FileName(), source_.LineOf(region.Begin), "the uses clause has no end",
                            "Close it with a semicolon.");
        clause.EndsInCondition = conditions > 0;
        return clause;
    }

    static bool AddWord(TUsesClause& clause, const TToken& token, std::string_view text, bool expectsName) {
        if (expectsName)
            clause.Units.push_back({std::string(text), token.Begin});
        else if (clause.Units.back().Name.back() == '.')
            clause.Units.back().Name += text;
        return false;
    }

    const TSourceText& source_;
    const std::vector<TRegion>& regions_;
};

bool Names(const std::optional<TUsesClause>& clause, const std::string& unitName) {
    return clause && std::any_of(clause->Units.begin(), clause->Units.end(),
                                 [&](const TUsedUnit& unit) { return SameText(unit.Name, unitName); });
}

bool StartsItsLine(std::string_view text, std::size_t place) {
    return Trim(text.substr(LineStart(text, place), place - LineStart(text, place))).empty();
}

TEdits Append(const TSourceText& source, const TUsesClause& clause, const std::string& unitName) {
    const std::string_view text = source.Text();
    // A semicolon of one branch only would leave the unit out of the others.
    if (clause.EndsInCondition || clause.Units.empty())
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
    const std::size_t end = LineEnd(source.Text(), part.Begin);
    return {{end, end,
             std::string(kLineBreak) + std::string(kLineBreak) + "uses" + std::string(kLineBreak) + "  " +
                 unitName + ";"}};
}

TEdits AddTo(const TSourceText& source, const TUsesReader& reader, const TRegion* part,
             const std::string& unitName) {
    if (TEdits edits = reader.AddBeforeCondition(part, unitName); !edits.empty()) return edits;
    if (const auto clause = reader.ClauseOf(part)) return Append(source, *clause, unitName);
    if (part != nullptr) return NewClause(source, *part, unitName);
    throw EBadInput(source.FileName(), source.LineOf(source.Text().size()), "there is no uses clause",
                    "Write one that names " + unitName + ".");
}

/// Takes the unit out of a clause.
TEdits TakeOut(const TSourceText& source, const TUsesClause& clause, const std::string& unitName) {
    const auto unit = std::find_if(clause.Units.begin(), clause.Units.end(), [&](const TUsedUnit& candidate) {
        return SameText(candidate.Name, unitName);
    });
    const bool isFirst = unit == clause.Units.begin();
    const bool isLast = std::next(unit) == clause.Units.end();
    std::size_t begin = unit->Begin;
    if (isLast) begin = isFirst ? clause.WordEnd - kUses.size() : source.Text().rfind(',', unit->Begin);
    std::size_t end = isLast ? clause.Semicolon : std::next(unit)->Begin;
    if (isFirst && isLast) ++end;
    const bool isPlain = source.Text().substr(begin, end - begin).find_first_of("{(/") == std::string::npos;
    if (clause.EndsInCondition || !isPlain)
        throw EBadInput(source.FileName(), source.LineOf(unit->Begin),
                        "the implementation part uses " + unitName + " already",
                        "Name it in the interface's uses clause instead.");
    return {{begin, end, ""}};
}

}  // namespace

bool UsesUnit(const TSourceText& source, const std::string& unitName) {
    const TUsesReader reader(source);
    const TRegion* interface = reader.Part(TRegionKind::Interface);
    const TRegion* implementation = reader.Part(TRegionKind::Implementation);
    return Names(reader.ClauseOf(interface), unitName) ||
           (implementation != nullptr && Names(reader.ClauseOf(implementation), unitName));
}

TEdits AddUsedUnit(const TSourceText& source, const std::string& unitName) {
    const TUsesReader reader(source);
    const TRegion* part = reader.Part(TRegionKind::Interface);
    if (Names(reader.ClauseOf(part), unitName)) return {};
    TEdits edits = AddTo(source, reader, part, unitName);
    // Compilers refuse a unit that is named in both clauses.
    const TRegion* implementation = reader.Part(TRegionKind::Implementation);
    const auto clause = implementation == nullptr ? std::nullopt : reader.ClauseOf(implementation);
    if (Names(clause, unitName))
        for (TEdit& edit : TakeOut(source, *clause, unitName))
            edits.push_back(std::move(edit));
    return edits;
}

TEdits AddImplementationUnit(const TSourceText& source, const std::string& unitName) {
    if (UsesUnit(source, unitName)) return {};
    const TUsesReader reader(source);
    return AddTo(source, reader, reader.Part(TRegionKind::Implementation), unitName);
}

}  // namespace tml
