#include "scan/Constscan.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <utility>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "scan/Constreader.h"
#include "source/Charclass.h"
#include "source/Literals.h"

namespace tml {
namespace {

/// Gives out the IDs. A name that the component holds with another text gets a number behind it.
class TConstIDs {
  public:
    explicit TConstIDs(const TConstInput& input) : input_(input) {}

    std::string IDFor(const std::string& name, const std::string& text) {
        // The sign that lets a keyword be a name is no part of the name.
        const std::string plain = name.starts_with('&') ? name.substr(1) : name;
        const std::string base = input_.CnstPrefix + (input_.CnstPermanent != 0 ? UpperCase(plain) : plain);
        std::string id = base;
        for (int number = 1; !IsFree(id, text); ++number)
            id = base + std::to_string(number);
        given_.insert(UpperCase(id));
        return id;
    }

  private:
    bool IsFree(const std::string& id, const std::string& text) const {
        const TTable& existing = input_.Scan.Existing;
        const int taken = existing.Find(id);
        const bool fits = taken < 0 || existing.Entries()[static_cast<std::size_t>(taken)].Base() == text;
        return fits && !given_.contains(UpperCase(id));
    }

    const TConstInput& input_;
    std::set<std::string> given_;
};

/// Walks the lines of the unit and keeps the declarations that pass all tests.
class TConstWalk {
  public:
    explicit TConstWalk(const TConstInput& input)
        : input_(input),
          source_(*input.Scan.Source),
          text_(source_.Text()),
          reader_(source_),
          rules_(input.Scan.Skip, kPascal, input.Scan.Common),
          ids_(input) {
        if (input.Scan.Common != nullptr) input.Scan.Common->InitInternalPasSource(std::string(text_));
    }

    TConstScanResult Run() {
        TTagState tags(kPascal);
        std::size_t begin = 0;
        // A last line without an end is not scanned.
        for (std::size_t end; (end = text_.find('\n', begin)) != std::string_view::npos; begin = end + 1) {
            ++line_;
            if (tags.NextLine(text_.substr(begin, end + 1 - begin))) ScanLine(begin, end + 1);
        }
        return std::move(result_);
    }

  private:
    void ScanLine(std::size_t begin, std::size_t end) {
        const std::string_view line = text_.substr(begin, end - begin);
        const std::size_t delimiter = line.find(kPascal.Delimiter());
        if (delimiter == std::string_view::npos || !ReachesSection(begin + delimiter, end)) return;
        if (line.find(kLocalizedComment) != std::string_view::npos) return;
        if (!rules_.FindValidDelimitor(line, true, line_, result_.Skipped)) return;
        RecordComments(begin, end);
        const auto& declarations = reader_.Declarations();
        while (next_ < declarations.size() && declarations[next_].Open < begin)
            ++next_;
        for (; next_ < declarations.size() && declarations[next_].Open < end; ++next_)
            Test(declarations[next_], end);
    }

    /// True when the first apostrophe of a line, or a literal on it, stands in a const section.
    bool ReachesSection(std::size_t first, std::size_t end) {
        const auto& literals = source_.Literals();
        bool reaches = reader_.IsInSection(first);
        for (; inSection_ < literals.size() && literals[inSection_].Open < end; ++inSection_)
            if (literals[inSection_].Open >= first && !reaches)
                reaches = reader_.IsInSection(literals[inSection_].Open);
        return reaches;
    }

    /// Texts in comments are never declarations; they are recorded where the library tells comments.
    void RecordComments(std::size_t begin, std::size_t end) {
        const auto& literals = source_.Literals();
        while (literal_ < literals.size() && literals[literal_].Open < begin)
            ++literal_;
        for (; literal_ < literals.size() && literals[literal_].Open < end; ++literal_)
            if (literals[literal_].InComment && !IsShort(literals[literal_].RawLength()))
                IsExcluded(DecodeLiteral(source_, literals[literal_]), literals[literal_].Open);
    }

    /// Of a negative length not even the empty literal is.
    bool IsShort(std::size_t rawLength) const {
        return std::cmp_less_equal(rawLength, input_.Scan.Skip.IgnorableLength);
    }

    bool IsExcluded(const std::string& text, std::size_t place) {
        const TStringSkipReason reason =
            rules_.IsExcludeString(text, static_cast<std::int32_t>(place), line_ - 1);
        if (reason != ssrNone) SkipString(result_.Skipped, text, line_, reason, true);
        return reason != ssrNone;
    }

    void Test(const TConstDeclaration& declaration, std::size_t lineEnd) {
        if (IsShort(declaration.RawLength)) return;
        if (IsRefusedLater(declaration, lineEnd)) return;
        if (IsExcluded(declaration.Text, declaration.Open)) return;
        result_.Records.push_back(Describe(declaration));
        const auto count = static_cast<int>(result_.Records.size());
        if (input_.Scan.Progress && !input_.Scan.Progress(count)) throw EmlLangSilent();
    }

    /// A declaration over several lines is offered only when none of the later ones is a tag or refused.
    bool IsRefusedLater(const TConstDeclaration& declaration, std::size_t line) {
        for (std::int32_t number = line_ + 1; line < declaration.End; ++number) {
            const std::size_t end = LineEnd(text_, line);
            const std::string_view later = text_.substr(line, end - line);
            if (IsTagLine(later, kPascal)) return true;
            const TStringSkipReason reason = rules_.RefusalOf(later);
            if (reason != ssrNone) {
                // A line with a candidate of its own is recorded when the walk comes to it.
                if (!rules_.HasCandidate(later, true))
                    SkipString(result_.Skipped, later, number, reason, true);
                return true;
            }
            line = std::min(text_.find('\n', end), text_.size() - 1) + 1;
        }
        return false;
    }

    TStrRec Describe(const TConstDeclaration& declaration) {
        TStrRec record;
        record.StrName = declaration.Name;
        record.StrContent = declaration.Text;
        record.StrID = ids_.IDFor(record.StrName, record.StrContent);
        const std::size_t line = LineStart(text_, declaration.Open);
        record.StrLine = line_ - CountLines(declaration.Begin, line);
        record.StrCol = ColumnOf(declaration.Begin);
        record.EndLine = line_ + CountLines(line, declaration.End);
        record.EndCol = ColumnOf(declaration.End);
        record.AlreadyHasType = !declaration.Type.empty();
        record.IsPChar = SameText(declaration.Type, "PChar");
        record.Value = declaration.Value;
        record.Comments.assign(declaration.Comments.begin(), declaration.Comments.end());
        record.Begin = declaration.Begin;
        record.End = declaration.End;
        record.Place = declaration.Open;
        record.Advice = declaration.Advice;
        DescribePlace(record, declaration);
        return record;
    }

    void DescribePlace(TStrRec& record, const TConstDeclaration& declaration) const {
        const auto& regions = reader_.Regions();
        std::size_t owner = reader_.Around(declaration.Section, TRegionKind::Class);
        for (; owner != kNoRegion; owner = reader_.Around(regions[owner].Parent, TRegionKind::Class))
            record.Owner.insert(0, std::string(regions[owner].Name) + (record.Owner.empty() ? "" : "."));
        TComponentReference component = input_.Scan.Component;
        const std::size_t routine = reader_.Around(declaration.Section, TRegionKind::Routine);
        if (routine != kNoRegion) {
            record.IsLocal = true;
            record.Routine = regions[routine].Begin;
            component.WithForm = component.WithForm || !IsFormMethod(routine);
        }
        record.Reference = component.Text(kPascal);
    }

    bool IsFormMethod(std::size_t routine) const {
        const auto& regions = reader_.Regions();
        for (; routine != kNoRegion; routine = reader_.Around(regions[routine].Parent, TRegionKind::Routine))
            if (SameText(regions[routine].Owner, input_.Scan.Component.ClassName()))
                return !regions[routine].OfClass;
        return false;
    }

    std::int32_t CountLines(std::size_t begin, std::size_t end) const {
        const std::string_view lines = text_.substr(begin, end > begin ? end - begin : 0);
        return static_cast<std::int32_t>(std::count(lines.begin(), lines.end(), '\n'));
    }
    std::int32_t ColumnOf(std::size_t offset) const {
        return static_cast<std::int32_t>(offset - LineStart(text_, offset) + 1);
    }

    const TConstInput& input_;
    const TSourceText& source_;
    std::string_view text_;
    TConstReader reader_;
    TSkipRules rules_;
    TConstIDs ids_;
    TConstScanResult result_;
    std::int32_t line_ = 0;  ///< 1-based
    std::size_t next_ = 0;
    std::size_t literal_ = 0;    ///< the next one that may stand in a comment
    std::size_t inSection_ = 0;  ///< the next one that may stand in a section
};

}  // namespace

TConstScanResult ScanConsts(const TConstInput& input) {
    if (input.Scan.Source->Language().IsCPPSource) return {};
    return TConstWalk(input).Run();
}

TmlFoundSourceStrings ConstRows(const TConstInput& input, const std::vector<TStrRec>& records) {
    TmlFoundSourceStrings rows;
    for (const TStrRec& record : records) {
        TmlFoundSourceString& row = rows.AddItem();
        row.StrID = record.StrID;
        row.StrContent = record.StrContent;
        row.Position = static_cast<std::int32_t>(record.Place + 1);
        row.Line = record.StrLine - 1;
        row.SpanBegin = static_cast<std::int32_t>(record.Begin + 1);
        row.SpanEnd = static_cast<std::int32_t>(record.End + 1);
        row.SpanLength = row.SpanEnd - row.SpanBegin;
        row.Advice = record.Advice;
    }
    FetchAnew(rows, input, records);
    return rows;
}

const TStrRec& RecordOf(const std::vector<TStrRec>& records, const TmlFoundSourceString& row) {
    const auto begin = static_cast<std::size_t>(row.SpanBegin - 1);
    const auto record = std::lower_bound(records.begin(), records.end(), begin,
                                         [](const TStrRec& r, std::size_t at) { return r.Begin < at; });
    if (record == records.end() || record->Begin != begin) throw std::logic_error("no record of this row");
    return *record;
}

std::string CallOf(const TmlFoundSourceString& row, TCallStyle style, const std::vector<TStrRec>& records) {
    const TStrRec& record = RecordOf(records, row);
    style.Reference = record.Reference;
    if (record.IsPChar) style.ReplaceMethod = CMethodOf(style.ReplaceMethod);
    return ReplacementText(style, row.StrID, record.StrContent);
}

void FetchAnew(TmlFoundSourceStrings& rows, const TConstInput& input, const std::vector<TStrRec>& records) {
    const TCallStyle style = CallStyleOf(input.Scan);
    for (TmlFoundSourceString& row : rows)
        row.Replacement = CallOf(row, style, records);
}

std::string CMethodOf(std::string_view method) {
    return method.starts_with("GetTextOrDefault") ? "GetTextOrDefaultC(" : "GetTextC(";
}

}  // namespace tml
