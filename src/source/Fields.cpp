#include "source/Fields.h"

#include <algorithm>
#include <array>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "source/Charclass.h"
#include "source/Pascalwords.h"

namespace tml {
namespace {

using Word = TPascalWord;

/// First words of C++ members that declare no field.
constexpr std::array<std::string_view, 7> kOtherMembers = {"friend", "typedef", "using", "enum",
                                                           "class",  "struct",  "union"};

/// "TForm1<T> = class" is another class than TForm1.
bool IsGeneric(const TSourceText& source, const TRegion& region) {
    const auto nameEnd = static_cast<std::size_t>(region.Name.end() - source.Text().begin());
    return source.Text().substr(SkipBlanks(source.Text(), nameEnd), 1) == "<";
}

bool IsNested(const std::vector<TRegion>& regions, const TRegion& region) {
    std::size_t around = region.Parent;
    while (around != kNoRegion && regions[around].Kind != TRegionKind::Class)
        around = regions[around].Parent;
    return around != kNoRegion;
}

std::vector<const TRegion*> FindClasses(const TSourceText& source, const std::string& name) {
    const std::vector<TRegion>& regions = source.Outline();
    std::vector<const TRegion*> found;
    for (const TRegion& region : regions)
        if (region.Kind == TRegionKind::Class && SameName(source.Language(), region.Name, name) &&
            !IsNested(regions, region) && !IsGeneric(source, region))
            found.push_back(&region);
    if (!found.empty()) return found;
    const auto part = std::find_if(regions.begin(), regions.end(), [](const TRegion& region) {
        return region.Kind == TRegionKind::Interface;
    });
    const std::size_t place = part == regions.end() ? source.Text().size() : part->End;
    throw EBadInput(source.FileName(), source.LineOf(place), "the class " + name + " is not declared",
                    "Declare it, or give the form the name that the unit declares.");
}

/// Reads the members of one class; what belongs to regions inside it (methods, properties, nested types)
/// is passed over.
class TFieldReader {
  public:
    TFieldReader(const TSourceText& source, const std::vector<TRegion>& regions, const TRegion& around)
        : source_(source), regions_(regions), class_(&around - regions.data()) {
        const std::vector<TToken>& all = source.CodeTokens();
        auto token = std::lower_bound(all.begin(), all.end(), around.Begin,
                                      [](const TToken& t, std::size_t at) { return t.Begin < at; });
        for (; token != all.end() && token->End <= around.End; ++token)
            if (!token->OnDirectiveLine) tokens_.push_back(*token);
        result_.Begin = around.Begin;
        result_.ClassEnd = tokens_.empty() ? around.End : tokens_.back().Begin;
    }

    TClassFields Read() {
        result_.HeadingEnd = tokens_.empty() ? result_.ClassEnd : tokens_.front().End;
        result_.SectionBegin = result_.HeadingEnd;
        if (tokens_.size() < 2) return std::move(result_);
        ExpectEnd();
        source_.Language().IsCPPSource ? ReadCpp() : ReadPascal();
        return std::move(result_);
    }

    /// A heading that stands in both branches of a condition leaves the first one without its end.
    void ExpectEnd() const {
        if (source_.Language().IsCPPSource || WordAt(tokens_.size() - 1) == Word::End) return;
        throw EBadInput(source_.FileName(), source_.LineOf(regions_[class_].Begin),
                        Format("the class %s has no end of its own", regions_[class_].Name),
                        "Write its heading once, or declare the component by hand.");
    }

  private:
    std::string_view TextAt(std::size_t index) const {
        return index < tokens_.size() ? TextOf(source_, tokens_[index]) : std::string_view();
    }
    bool IsName(std::size_t index) const {
        return index < tokens_.size() && tokens_[index].Kind == TTokenKind::Name;
    }
    Word WordAt(std::size_t index) const { return IsName(index) ? PascalWordOf(TextAt(index)) : Word::None; }

    /// Behind the semicolon that ends what begins at index; parentheses, braces and records close first.
    std::size_t BehindMember(std::size_t index) const {
        int depth = 0;
        for (; index + 1 < tokens_.size(); ++index) {
            const std::string_view text = TextAt(index);
            const bool isRecord = !source_.Language().IsCPPSource && WordAt(index) == Word::Record;
            if (text == "(" || text == "{" || text == "[" || isRecord) ++depth;
            const bool isEnd = !source_.Language().IsCPPSource && WordAt(index) == Word::End;
            if (text == ")" || text == "}" || text == "]" || isEnd) --depth;
            const bool isBody =
                source_.Language().IsCPPSource && text == "}" && depth == 0 && TextAt(index + 1) != ";";
            if ((text == ";" && depth <= 0) || isBody) return index + 1;
        }
        return tokens_.size();
    }

    // ---- Pascal: Name, Name: Type; -----------------------------------------------------------------

    void ReadPascal() {
        std::size_t index = BehindHeading();
        result_.HeadingEnd = tokens_[index - 1].End;
        result_.SectionBegin = result_.HeadingEnd;
        TRegionFinder finder(regions_);
        while (index + 1 < tokens_.size()) {
            const std::size_t region = finder.At(tokens_[index].Begin);
            const Word word = WordAt(index);
            if (region != class_) {
                inSection_ = false;
                AddOther(region, index);
                index = BehindRegion(region, index);
            } else if (IsVisibility(word)) {
                StartSection(index, word);
                ++index;
            } else if (IsName(index) && word == Word::None) {
                index = ReadPascalField(index);
            } else {
                inSection_ = false;
                ++index;
            }
        }
    }

    static bool IsVisibility(Word word) {
        return word == Word::Private || word == Word::Protected || word == Word::Public ||
               word == Word::Published || word == Word::Strict;
    }

    void StartSection(std::size_t index, Word word) {
        const bool isFirst = inSection_ && result_.Fields.empty() && word == Word::Published;
        if (isFirst) result_.SectionBegin = tokens_[index].End;
        inSection_ = isFirst;
    }

    std::size_t BehindHeading() const {
        std::size_t index = 1;
        const bool isModified = SameText(TextAt(index), "sealed") || SameText(TextAt(index), "abstract");
        if (isModified && TextAt(index + 1) != ":" && TextAt(index + 1) != ",") ++index;
        if (TextAt(index) == "(")
            while (index < tokens_.size() && TextAt(index) != ")")
                ++index;
        return std::min(TextAt(index) == ")" ? index + 1 : index, tokens_.size() - 1);
    }

    /// The name that a method or property declares.
    void AddOther(std::size_t region, std::size_t index) {
        const bool names = region != kNoRegion && (regions_[region].Kind == TRegionKind::Head ||
                                                   regions_[region].Kind == TRegionKind::Property);
        if (names && IsName(index + 1)) result_.Others.push_back(tokens_[index + 1].Begin);
    }

    std::size_t BehindRegion(std::size_t region, std::size_t index) const {
        const std::size_t end = region == kNoRegion ? 0 : regions_[region].End;
        ++index;
        while (index < tokens_.size() && tokens_[index].Begin < end)
            ++index;
        return index;
    }

    std::size_t ReadPascalField(std::size_t index) {
        const std::size_t first = result_.Fields.size();
        const std::size_t begin = index;
        for (; IsName(index); index += 2) {
            AddName(begin, index);
            if (TextAt(index + 1) != ",") break;
        }
        const std::size_t colon = index + 1;
        if (TextAt(colon) != ":") {
            result_.Fields.resize(first);
            return BehindMember(begin);
        }
        const std::size_t end = BehindMember(colon);
        Finish(first, colon + 1, end);
        return end;
    }

    void AddName(std::size_t begin, std::size_t index) {
        TField field;
        field.Declaration = tokens_[begin].Begin;
        field.Name = tokens_[index].Begin;
        field.NameEnd = tokens_[index].End;
        field.IsDesigned = inSection_;
        if (index > begin) {
            field.Previous = result_.Fields.back().NameEnd;
            result_.Fields.back().Next = field.Name;
        }
        result_.Fields.push_back(field);
    }

    void Finish(std::size_t first, std::size_t type, std::size_t end) {
        for (std::size_t i = first; i < result_.Fields.size(); ++i) {
            result_.Fields[i].Type = tokens_[type].Begin;
            result_.Fields[i].TypeEnd = tokens_[type].End;
            result_.Fields[i].DeclarationEnd = tokens_[end - 1].End;
        }
    }

    // ---- C++: Type *Name, *Name; -------------------------------------------------------------------

    void ReadCpp() {
        inSection_ = result_.HasSection = false;
        for (std::size_t index = 1; index + 1 < tokens_.size();) {
            if (IsName(index) && TextAt(index + 1) == ":") {
                inSection_ = TextAt(index) == "__published" && !result_.HasSection;
                if (inSection_) result_.SectionBegin = tokens_[index + 1].End;
                result_.HasSection = result_.HasSection || inSection_;
                index += 2;
            } else {
                index = ReadCppMember(index);
            }
        }
    }

    std::size_t ReadCppMember(std::size_t begin) {
        const std::size_t end = BehindMember(begin);
        std::size_t call = begin;
        while (call < end && TextAt(call) != "(" && TextAt(call) != "{")
            ++call;
        if (call < end) {
            if (TextAt(call) == "(" && call > begin) result_.Others.push_back(tokens_[call - 1].Begin);
            inSection_ = false;
            return end;
        }
        const bool isField =
            std::find(kOtherMembers.begin(), kOtherMembers.end(), TextAt(begin)) == kOtherMembers.end();
        if (isField) ReadCppField(begin, end);
        return end;
    }

    void ReadCppField(std::size_t begin, std::size_t end) {
        const std::size_t first = result_.Fields.size();
        for (std::size_t index = begin + 1; index + 1 <= end; ++index) {
            const std::string_view behind = TextAt(index + 1);
            if (!IsName(index) || (behind != ";" && behind != ",")) continue;
            AddName(result_.Fields.size() == first ? index : begin, index);
        }
        for (std::size_t i = first; i < result_.Fields.size(); ++i)
            result_.Fields[i].Declaration = tokens_[begin].Begin;
        Finish(first, begin, end);
    }

    const TSourceText& source_;
    const std::vector<TRegion>& regions_;
    std::size_t class_;
    std::vector<TToken> tokens_;
    bool inSection_ = true;
    TClassFields result_;
};

}  // namespace

std::vector<TClassFields> ReadFields(const TSourceText& source, const std::string& className) {
    std::vector<TClassFields> declarations;
    for (const TRegion* region : FindClasses(source, className))
        declarations.push_back(TFieldReader(source, source.Outline(), *region).Read());
    return declarations;
}

bool SameName(const TLanguage& language, std::string_view left, std::string_view right) {
    return language.IsCPPSource ? left == right : SameText(left, right);
}

}  // namespace tml
