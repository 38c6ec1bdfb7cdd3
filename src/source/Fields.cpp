#include "source/Fields.h"

#include <algorithm>
#include <array>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "source/Pascalwords.h"

namespace tml {
namespace {

using Word = TPascalWord;

const TRegion& FindClass(const TSourceText& source, const std::vector<TRegion>& regions,
                         const std::string& name) {
    const auto found = std::find_if(regions.begin(), regions.end(), [&](const TRegion& region) {
        return region.Kind == TRegionKind::Class && SameName(source.Language(), region.Name, name);
    });
    if (found != regions.end()) return *found;
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
        for (const TToken& token : source.CodeTokens())
            if (token.Begin >= around.Begin && token.End <= around.End && !token.OnDirectiveLine)
                tokens_.push_back(token);
        result_.ClassEnd = tokens_.empty() ? around.End : tokens_.back().Begin;
    }

    TClassFields Read() {
        result_.SectionBegin = tokens_.empty() ? result_.ClassEnd : tokens_.front().End;
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
        result_.SectionBegin = tokens_[index - 1].End;
        TRegionFinder finder(regions_);
        while (index + 1 < tokens_.size()) {
            const std::size_t region = finder.At(tokens_[index].Begin);
            const Word word = WordAt(index);
            if (region != class_) {
                inFirst_ = false;
                index = BehindRegion(region, index);
            } else if (IsVisibility(word)) {
                StartSection(index, word);
                ++index;
            } else if (IsName(index) && word == Word::None) {
                index = ReadPascalField(index);
            } else {
                inFirst_ = false;
                ++index;
            }
        }
    }

    static bool IsVisibility(Word word) {
        return word == Word::Private || word == Word::Protected || word == Word::Public ||
               word == Word::Published || word == Word::Strict;
    }

    void StartSection(std::size_t index, Word word) {
        const bool isFirst = inFirst_ && result_.Fields.empty() && word == Word::Published;
        if (isFirst) result_.SectionBegin = tokens_[index].End;
        inFirst_ = isFirst;
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
        field.InFirstSection = inFirst_;
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
        for (std::size_t index = 1; index + 1 < tokens_.size();) {
            if (IsName(index) && TextAt(index + 1) == ":") {
                const bool isFirst = TextAt(index) == "__published" && result_.Fields.empty();
                if (isFirst) result_.SectionBegin = tokens_[index + 1].End;
                inFirst_ = isFirst;
                index += 2;
            } else {
                index = ReadCppMember(index);
            }
        }
    }

    std::size_t ReadCppMember(std::size_t begin) {
        const std::size_t end = BehindMember(begin);
        const bool isMethod = std::any_of(tokens_.begin() + static_cast<std::ptrdiff_t>(begin),
                                          tokens_.begin() + static_cast<std::ptrdiff_t>(end),
                                          [&](const TToken& t) { return TextOf(source_, t) == "("; });
        if (isMethod) {
            inFirst_ = false;
            return end;
        }
        const std::size_t first = result_.Fields.size();
        for (std::size_t index = begin + 1; index + 1 <= end; ++index) {
            const std::string_view behind = TextAt(index + 1);
            if (!IsName(index) || (behind != ";" && behind != ",")) continue;
            AddName(result_.Fields.size() == first ? index : begin, index);
        }
        for (std::size_t i = first; i < result_.Fields.size(); ++i)
            result_.Fields[i].Declaration = tokens_[begin].Begin;
        Finish(first, begin, end);
        return end;
    }

    const TSourceText& source_;
    const std::vector<TRegion>& regions_;
    std::size_t class_;
    std::vector<TToken> tokens_;
    bool inFirst_ = true;
    TClassFields result_;
};

}  // namespace

TClassFields ReadFields(const TSourceText& source, const std::string& className) {
    const std::vector<TRegion>& regions = source.Outline();
    return TFieldReader(source, regions, FindClass(source, regions, className)).Read();
}

bool SameName(const TLanguage& language, std::string_view left, std::string_view right) {
    return language.IsCPPSource ? left == right : SameText(left, right);
}

}  // namespace tml
