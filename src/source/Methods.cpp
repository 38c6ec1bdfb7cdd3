#include "source/Methods.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "source/Charclass.h"
#include "source/Fields.h"
#include "source/Pascalwords.h"

namespace tml {
namespace {

using Kind = TRegionKind;

constexpr std::string_view kLineBreak = "\r\n";

bool IsVisibility(std::string_view name) {
    switch (PascalWordOf(name)) {
        case TPascalWord::Private:
        case TPascalWord::Protected:
        case TPascalWord::Public:
        case TPascalWord::Published:
        case TPascalWord::Strict:
            return true;
        default:
            return false;
    }
}

}  // namespace

TUnitRoutines::TUnitRoutines(const TSourceText& source)
    : source_(source), tokens_(source.Tokens()), regions_(source.Outline()) {
    std::erase_if(tokens_, [](const TToken& token) { return token.Kind == TTokenKind::Comment; });
    if (Part(Kind::Implementation) == nullptr)
        throw EBadInput(source.FileName(), source.LineOf(source.Text().size()),
                        "the unit has no implementation part", "Complete the unit.");
    ReadRoutines();
    end_ = FindEnd();
}

std::string_view TUnitRoutines::TextAt(std::size_t index) const {
    return index < tokens_.size() ? TextOf(source_, tokens_[index]) : std::string_view();
}

std::size_t TUnitRoutines::TokenAt(std::size_t offset) const {
    const auto token = std::lower_bound(tokens_.begin(), tokens_.end(), offset,
                                        [](const TToken& t, std::size_t at) { return t.Begin < at; });
    return static_cast<std::size_t>(token - tokens_.begin());
}

const TRegion* TUnitRoutines::Part(TRegionKind kind) const {
    const auto found = std::find_if(regions_.begin(), regions_.end(),
                                    [&](const TRegion& region) { return region.Kind == kind; });
    return found == regions_.end() ? nullptr : &*found;
}

const TRegion* TUnitRoutines::ClassOf(std::string_view name) const {
    const auto found = std::find_if(regions_.begin(), regions_.end(), [&](const TRegion& region) {
        return region.Kind == Kind::Class && SameText(region.Name, name);
    });
    return found == regions_.end() ? nullptr : &*found;
}

void TUnitRoutines::ReadRoutines() {
    for (const TRegion& body : regions_) {
        if (body.Kind != Kind::Body || body.Parent == kNoRegion) continue;
        const TRegion& routine = regions_[body.Parent];
        const std::size_t first = TokenAt(body.Begin);
        const std::size_t behind = TokenAt(body.End);
        if (routine.Kind != Kind::Routine || behind == 0 || !SameText(TextAt(first), kPascal.BEGINSIGN))
            continue;
        if (!SameText(TextAt(behind - 1), "end")) continue;
        const auto name = static_cast<std::size_t>(routine.Name.data() - source_.Text().data());
        const bool isPlain = IsPlainHead(TokenAt(routine.Begin), TokenAt(name));
        routines_.push_back({routine.Owner, routine.Name, routine.Begin, tokens_[first].End,
                             tokens_[behind - 1].Begin, isPlain});
    }
}

/// Given the places of "procedure" and of the name.
bool TUnitRoutines::IsPlainHead(std::size_t index, std::size_t name) const {
    const bool ofClass = index > 0 && SameText(TextAt(index - 1), "class");
    return !ofClass && SameText(TextAt(index), "procedure") && TextAt(name + 1) == ";";
}

std::vector<TUnitRoutines::TRoutine> TUnitRoutines::Bodies(std::string_view owner, std::string_view name,
                                                           bool plainOnly) const {
    std::vector<TRoutine> bodies;
    for (const TRoutine& routine : routines_)
        if (SameText(routine.Owner, owner) && SameText(routine.Name, name) && (routine.IsPlain || !plainOnly))
            bodies.push_back(routine);
    return bodies;
}

std::vector<std::size_t> TUnitRoutines::Calls(const TRoutine& routine, std::string_view qualifier,
                                              std::string_view name) const {
    std::vector<std::size_t> calls;
    qualifier = qualifier.substr(qualifier.rfind('.') + 1);
    for (std::size_t i = TokenAt(routine.BodyBegin); i < tokens_.size() && tokens_[i].End <= routine.BodyEnd;
         ++i) {
        if (!SameText(TextAt(i), name) || TextAt(i + 1) != ";" || i == 0) continue;
        const bool qualified = TextAt(i - 1) == ".";
        const std::string_view owner = qualified && i > 1 ? TextAt(i - 2) : std::string_view();
        if (SameText(owner, qualifier) || (qualifier.empty() && SameText(owner, "Self")))
            calls.push_back(tokens_[i].Begin);
    }
    return calls;
}

std::size_t TUnitRoutines::FindEnd() const {
    const TRegion& implementation = *Part(Kind::Implementation);
    std::size_t lastRoutine = implementation.Begin;
    for (const TRegion& region : regions_)
        if (region.Kind == Kind::Routine) lastRoutine = std::max(lastRoutine, region.Begin);
    // A body whose head is left to a condition reads as an initialization; the true one follows all routines.
    const auto initialization = std::find_if(regions_.begin(), regions_.end(), [&](const TRegion& region) {
        return region.Kind == Kind::Initialization && region.Begin > lastRoutine;
    });
    const bool hasInitialization = initialization != regions_.end();
    const std::size_t end = hasInitialization ? initialization->Begin : source_.Text().size();
    std::size_t index = TokenAt(end);
    // Without an initialization the part reaches over the final end to the end of the text.
    const std::size_t first = TokenAt(implementation.Begin);
    for (std::size_t i = first; !hasInitialization && i + 1 < index; ++i)
        if (SameText(TextAt(i), "end") && TextAt(i + 1) == ".") index = i;
    // In front of a condition that only ends behind that place.
    int depth = 0;
    std::size_t place = index;
    for (std::size_t i = index; i-- > first + 1;) {
        if (tokens_[i].Kind != TTokenKind::Directive) continue;
        depth += ConditionStep(TextAt(i));
        if (depth > 0) {
            place = i;
            depth = 0;
        }
    }
    if (place == tokens_.size()) return source_.Text().size();
    const std::size_t at = tokens_[place].Begin;
    const std::size_t line = LineStart(source_.Text(), at);
    return Trim(source_.Text().substr(line, at - line)).empty() ? line : at;
}

std::size_t TUnitRoutines::EndOfInterface() const {
    return LineStart(source_.Text(), Part(Kind::Implementation)->Begin);
}

bool TUnitRoutines::IsHead(const TRegion& region, std::size_t parent, std::string_view name) const {
    return region.Kind == Kind::Head && region.Parent == parent &&
           SameText(TextAt(TokenAt(region.Begin) + 1), name);
}

/// The heads directly within a region name it.
bool TUnitRoutines::DeclaresIn(const TRegion& around, std::string_view name) const {
    const auto index = static_cast<std::size_t>(&around - regions_.data());
    return std::any_of(regions_.begin(), regions_.end(),
                       [&](const TRegion& region) { return IsHead(region, index, name); });
}

bool TUnitRoutines::DeclaresPlain(std::string_view owner, std::string_view name) const {
    const TRegion* around = owner.empty() ? Part(Kind::Interface) : ClassOf(owner);
    if (around == nullptr) return false;
    const auto index = static_cast<std::size_t>(around - regions_.data());
    return std::any_of(regions_.begin(), regions_.end(), [&](const TRegion& region) {
        const std::size_t head = TokenAt(region.Begin);
        return IsHead(region, index, name) && IsPlainHead(head, head + 1);
    });
}

bool TUnitRoutines::DeclaresMethod(std::string_view className, std::string_view name) const {
    const TRegion* declared = ClassOf(className);
    return declared != nullptr && DeclaresIn(*declared, name);
}

bool TUnitRoutines::IsEventHead(std::size_t index) const {
    const bool ofClass = index > 0 && SameText(TextAt(index - 1), "class");
    return !ofClass && SameText(TextAt(index), "procedure") && TextAt(index + 2) == "(" &&
           TextAt(index + 4) == ":" && SameText(TextAt(index + 5), "TObject") && TextAt(index + 6) == ")";
}

bool TUnitRoutines::DeclaresEventHandler(std::string_view className, std::string_view name) const {
    const TRegion* declared = ClassOf(className);
    if (declared == nullptr) return false;
    const auto index = static_cast<std::size_t>(declared - regions_.data());
    bool isDeclared = false;
    for (const TRegion& region : regions_) {
        if (!IsHead(region, index, name)) continue;
        if (!IsEventHead(TokenAt(region.Begin))) return false;
        isDeclared = true;
    }
    return isDeclared;
}

bool TUnitRoutines::IsFreeName(std::string_view className, std::string_view name) const {
    if (!Bodies(className, name).empty()) return false;
    const TRegion* declared = ClassOf(className);
    if (declared == nullptr && !className.empty()) return true;
    const std::size_t end = declared == nullptr ? source_.Text().size() : declared->End;
    for (std::size_t i = declared == nullptr ? 0 : TokenAt(declared->Begin);
         i < tokens_.size() && tokens_[i].Begin < end; ++i)
        if (SameText(TextAt(i), name)) return false;
    return true;
}

std::string_view TUnitRoutines::AncestorOf(std::string_view className) const {
    const TRegion* declared = ClassOf(className);
    if (declared == nullptr) return {};
    const std::size_t word = TokenAt(declared->Begin);
    return TextAt(word + 1) == "(" ? TextAt(word + 2) : std::string_view();
}

TEdit TUnitRoutines::DeclareMethods(const std::string& className,
                                    const std::vector<std::string>& lines) const {
    const std::string_view text = source_.Text();
    const TClassFields fields = ReadFields(source_, className).front();
    const std::size_t index = static_cast<std::size_t>(ClassOf(className) - regions_.data());
    TRegionFinder finder(regions_);
    std::size_t token = TokenAt(fields.SectionBegin);
    while (tokens_[token].Begin < fields.ClassEnd &&
           !(IsVisibility(TextAt(token)) && TextAt(token + 1) != ":" &&
             finder.At(tokens_[token].Begin) == index))
        ++token;
    const std::size_t place = tokens_[token].Begin;
    const std::size_t line = LineStart(text, place);
    const bool ownLine = Trim(text.substr(line, place - line)).empty();
    const std::string outer(ownLine ? text.substr(line, place - line) : "  ");
    std::string added(ownLine ? "" : kLineBreak);
    for (const std::string& declaration : lines)
        added.append(outer).append("  ").append(declaration).append(kLineBreak);
    if (ownLine) return {line, line, added};
    return {place, place, added + outer};
}

}  // namespace tml
