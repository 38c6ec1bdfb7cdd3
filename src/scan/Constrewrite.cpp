#include "scan/Constrewrite.h"

#include <algorithm>
#include <map>
#include <set>
#include <stdexcept>

#include "base/Errors.h"
#include "base/Files.h"
#include "base/Utf8.h"
#include "scan/Calls.h"
#include "source/Charclass.h"
#include "source/Methods.h"

namespace tml {
namespace {

constexpr std::string_view kLineBreak = "\r\n";
constexpr std::string_view kUpdateStrings = "UpdateStrings";
constexpr std::string_view kChangeLanguage = "ChangeLanguage";

void ReplaceAll(std::string& text, std::string_view what, std::string_view by) {
    for (std::size_t pos = 0; (pos = text.find(what, pos)) != std::string::npos; pos += by.size())
        text.replace(pos, what.size(), by);
}

// ---- Declarations ----------------------------------------------------------------------------------

/// A line break in the text of a value that went over several lines starts a new piece.
std::string FullValue(const TStrRec& record) {
    std::string value = record.Value;
    if (record.StrLine == record.EndLine) return value;
    ReplaceAll(value, "'#13#10 + '", "'#13#10'");
    ReplaceAll(value, "'#13#10'", "'#13#10 + \t'");
    return value;
}

/// The former value may hold what closes (or, nested, opens) the comment around it.
std::string ValueInComment(const TStrRec& record) {
    std::string value = FullValue(record);
    for (const std::string_view mark : {kPascal.COMMENTEND, kPascal.COMMENTSTART})
        for (std::size_t pos = 0; (pos = value.find(mark)) != std::string::npos;)
            value.erase(pos, mark.size());
    return value;
}

std::string Declaration(const TStrRec& record, bool empty) {
    std::string line;
    for (const std::string& comment : record.Comments)
        line.append("\t").append(comment).append(kLineBreak);
    line.append("\t").append(record.StrName).append(record.IsPChar ? ": PChar = " : ": string = ");
    if (empty) {
        line.append(kPascal.STRDELIM).append(kPascal.STRDELIM).append("; ").append(kPascal.COMMENTSTART);
        line.append(" ").append(ValueInComment(record)).append(" ").append(kPascal.COMMENTEND);
    } else {
        line.append(FullValue(record)).append(";");
    }
    return line.append(" ").append(kLocalizedComment);
}

/// The rewritten declaration has a line of its own, for its comment ends the line.
TEdit DeclarationEdit(const TStrRec& record, std::string_view text, bool empty) {
    TEdit edit{record.Begin, record.End, Declaration(record, empty)};
    const std::size_t line = LineStart(text, record.Begin);
    const bool isFirst = Trim(text.substr(line, record.Begin - line)).empty();
    edit.Begin = isFirst ? line : SkipBlanksBack(text, record.Begin);
    if (!isFirst) edit.Text.insert(0, kLineBreak);
    const std::string_view rest = Trim(text.substr(record.End, LineEnd(text, record.End) - record.End));
    if (!rest.empty() && !rest.starts_with("//")) edit.Text.append(kLineBreak);
    return edit;
}

/// Of two declarations on a line the second one brings the line break.
void Append(TEdits& edits, TEdit edit) {
    if (!edits.empty() && edits.back().End == edit.Begin && edits.back().Text.ends_with(kLineBreak))
        edits.back().Text.erase(edits.back().Text.size() - kLineBreak.size());
    edits.push_back(std::move(edit));
}

// ---- Routines --------------------------------------------------------------------------------------

/// Collects what is added to a unit.
class TUnitPatch {
  public:
    explicit TUnitPatch(const TSourceText& source) : source_(source), routines_(source) {}

    const TUnitRoutines& Routines() const { return routines_; }
    void Add(TEdit edit) { edits_.push_back(std::move(edit)); }

    /// As the first statement of a routine.
    void AddFirst(const TUnitRoutines::TRoutine& routine, const std::string& statement) {
        Add({routine.BodyBegin, routine.BodyBegin, std::string(kLineBreak) + "  " + statement});
    }
    /// Whole lines, as the last ones of a routine.
    void AddLast(const TUnitRoutines::TRoutine& routine, const std::string& lines) {
        const std::size_t line = LineStart(source_.Text(), routine.BodyEnd);
        const bool ownLine = Trim(source_.Text().substr(line, routine.BodyEnd - line)).empty();
        const std::size_t place = ownLine ? line : routine.BodyEnd;
        Add({place, place, (ownLine ? "" : std::string(kLineBreak)) + lines});
    }
    void AddRoutine(const std::string& name, const std::string& lines) {
        added_ += "procedure " + name + ";\r\nbegin\r\n" + lines + "end;\r\n\r\n";
    }
    void Declare(const std::string& className, const std::string& name) {
        className_ = className;
        methods_.push_back("procedure " + name + ";");
    }
    void DeclareInInterface(std::string_view name) {
        const std::size_t place = routines_.EndOfInterface();
        Add({place, place, "procedure " + std::string(name) + ";\r\n\r\n"});
    }

    TEdits Take() {
        if (!methods_.empty()) Add(routines_.DeclareMethods(className_, methods_));
        const std::size_t end = routines_.EndOfImplementation();
        if (!added_.empty()) Add({end, end, added_});
        std::stable_sort(edits_.begin(), edits_.end(), [](const TEdit& left, const TEdit& right) {
            return left.Begin != right.Begin ? left.Begin < right.Begin : left.End < right.End;
        });
        return std::move(edits_);
    }

  private:
    const TSourceText& source_;
    TUnitRoutines routines_;
    TEdits edits_;
    std::string className_;
    std::vector<std::string> methods_;
    std::string added_;
};

bool IsOwnForm(const TConstInput& input, const TConstForm& form) {
    return SameText(input.Scan.FileName(), form.FileName());
}

/// "" for the form's own routine, else the unit in front of the procedure's name.
std::string QualifierOf(const TConstInput& input, const TConstForm& form) {
    return IsOwnForm(input, form) ? std::string() : WithExtension(FileNameOf(input.Scan.FileName()), "");
}

/// The handlers of the form, as they are or shall be. A method that is bound to no event is taken for one
/// only when it could be bound.
class THandlers {
  public:
    THandlers(const TUnitRoutines& routines, const TConstForm& form)
        : Create(form.OnCreate), ChangeLanguage(form.OnChangeLanguage), routines_(routines), form_(form) {
        if (Create.empty()) Create = FindCreate();
        if (ChangeLanguage.empty()) ChangeLanguage = FindChangeLanguage();
    }

    std::string Create;
    std::string ChangeLanguage;

  private:
    bool IsHandler(std::string_view name) const {
        return routines_.DeclaresEventHandler(form_.ClassName, name);
    }

    std::string FindCreate() const {
        const bool isDataModule = SameText(routines_.AncestorOf(form_.ClassName), "TDataModule");
        const bool ofDataModule = !IsHandler("FormCreate") && (isDataModule || IsHandler("DataModuleCreate"));
        return NameLike(ofDataModule ? "DataModuleCreate" : "FormCreate");
    }

    std::string FindChangeLanguage() const {
        for (const TUnitRoutines::TRoutine& routine : routines_.Routines())
            if (SameText(routine.Owner, form_.ClassName) &&
                UpperCase(routine.Name).ends_with(UpperCase(kChangeLanguage)) && IsHandler(routine.Name))
                return std::string(routine.Name);
        return NameLike(form_.ComponentName + std::string(kChangeLanguage));
    }

    /// The name, with a number behind it where the class uses it for something else.
    std::string NameLike(const std::string& wanted) const {
        std::string name = wanted;
        for (int number = 1; !IsHandler(name) && !routines_.IsFreeName(form_.ClassName, name); ++number)
            name = wanted + std::to_string(number);
        return name;
    }

    const TUnitRoutines& routines_;
    const TConstForm& form_;
};

class TConstRewriter {
  public:
    TConstRewriter(const TmlFoundSourceStrings& kept, const TConstInput& input,
                   const std::vector<TStrRec>& records, const TConstForm& form)
        : kept_(kept), input_(input), records_(records), form_(form), unit_(*input.Scan.Source) {}

    TConstChanges Run() {
        std::string lines;
        TEdits declarations;
        for (const TmlFoundSourceString& row : kept_) {
            if (row.MarkedToIgnore) continue;
            const TStrRec& record = RecordOf(records_, row);
            Append(declarations, DeclarationEdit(record, input_.Scan.Text(), input_.EmptyConstsValues));
            const std::string statement = Assignment(record, row);
            if (record.IsLocal)
                unit_.AddFirst(RoutineAt(record), statement);
            else
                lines.append("  ").append(statement).append(kLineBreak);
        }
        for (TEdit& edit : declarations)
            unit_.Add(std::move(edit));
        TConstChanges changes;
        if (!lines.empty()) AddRoutine(lines, changes);
        changes.Unit = unit_.Take();
        return changes;
    }

  private:
    static std::string Assignment(const TStrRec& record, const TmlFoundSourceString& row) {
        const std::string name = record.Owner.empty() ? record.StrName : record.Owner + "." + record.StrName;
        return name + " := " + row.Replacement + (row.Replacement.ends_with(';') ? "" : ";");
    }

    const TUnitRoutines::TRoutine& RoutineAt(const TStrRec& record) const {
        for (const TUnitRoutines::TRoutine& routine : unit_.Routines().Routines())
            if (routine.Begin == record.Routine) return routine;
        throw EBadInput(input_.Scan.FileName(), record.StrLine,
                        "the routine around the constant " + record.StrName + " has no body in Pascal",
                        "Leave this constant out.");
    }

    void AddRoutine(const std::string& lines, TConstChanges& changes) {
        const bool isOwn = IsOwnForm(input_, form_);
        const std::string name(kUpdateStrings);
        const std::string owner = isOwn ? form_.ClassName : "";
        if (const auto* routine = unit_.Routines().Find(owner, name))
            unit_.AddLast(*routine, lines);
        else
            unit_.AddRoutine(isOwn ? owner + "." + name : name, lines);
        if (isOwn) {
            AddHandlers(unit_, changes);
            if (!unit_.Routines().DeclaresMethod(owner, name)) unit_.Declare(owner, name);
            return;
        }
        if (!unit_.Routines().DeclaresRoutine(name)) unit_.DeclareInInterface(name);
        TUnitPatch formUnit(*form_.Source);
        AddHandlers(formUnit, changes);
        changes.FormUnit = formUnit.Take();
    }

    void AddHandlers(TUnitPatch& patch, TConstChanges& changes) const {
        const std::string_view ancestor = patch.Routines().AncestorOf(form_.ClassName);
        if (SameText(ancestor, "TFrame") || SameText(ancestor, "TCustomFrame"))
            throw EBadInput(form_.FileName(), 0, "a frame has no creation handler to set the constants in",
                            "Use the component of a form.");
        const THandlers handlers(patch.Routines(), form_);
        const std::string qualifier = QualifierOf(input_, form_);
        const std::string call = std::string(kUpdateStrings) + ";";
        const std::string unitCall = qualifier.empty() ? "" : qualifier + "." + call;
        AddHandler(patch, handlers.Create, qualifier, qualifier.empty() ? call : unitCall);
        AddHandler(patch, handlers.ChangeLanguage, qualifier, qualifier.empty() ? "Self." + call : unitCall);
        if (!SameText(handlers.Create, form_.OnCreate)) changes.OnCreate = handlers.Create;
        if (!SameText(handlers.ChangeLanguage, form_.OnChangeLanguage))
            changes.OnChangeLanguage = handlers.ChangeLanguage;
    }

    void AddHandler(TUnitPatch& patch, const std::string& name, const std::string& qualifier,
                    const std::string& call) const {
        const TUnitRoutines& routines = patch.Routines();
        if (const auto* routine = routines.Find(form_.ClassName, name)) {
            if (!routines.Calls(*routine, qualifier, kUpdateStrings)) patch.AddFirst(*routine, call);
            return;
        }
        if (routines.DeclaresMethod(form_.ClassName, name))
            throw EBadInput(form_.FileName(), 0, "the handler " + name + " has no body in the unit",
                            "Write it, or call " + call + " where the form is created.");
        const std::string head = name + "(" + std::string(kPascal.EVENTPARAMETER) + ": TObject)";
        patch.Declare(form_.ClassName, head);
        patch.AddRoutine(form_.ClassName + "." + head,
                         (HasFormAncestor(routines) ? "  inherited;\r\n  " : "  ") + call + "\r\n");
    }

    /// An ancestor that is a form of the project may have a handler of its own.
    bool HasFormAncestor(const TUnitRoutines& routines) const {
        const std::string_view ancestor = routines.AncestorOf(form_.ClassName);
        return !SameText(ancestor, "TForm") && !SameText(ancestor, "TDataModule");
    }

    const TmlFoundSourceStrings& kept_;
    const TConstInput& input_;
    const std::vector<TStrRec>& records_;
    const TConstForm& form_;
    TUnitPatch unit_;
};

// ---- Proof -----------------------------------------------------------------------------------------

class TConstProof {
  public:
    TConstProof(const TmlFoundSourceStrings& kept, const TConstInput& input,
                const std::vector<TStrRec>& records, const TConstForm& form, const TConstChanges& changes)
        : kept_(kept),
          input_(input),
          records_(records),
          form_(form),
          changes_(changes),
          newSource_(ReadSource(ApplyEdits(input.Scan.Text(), changes.Unit), input.Scan.FileName())) {}

    void Run() const {
        CheckAssignments();
        CheckSecondScan();
        CheckHandlers();
    }

  private:
    [[noreturn]] void Fail(int line, const std::string& problem) const {
        throw EBadInput(input_.Scan.FileName(), line, problem,
                        "Nothing was changed; leave this constant out.");
    }

    void CheckAssignments() const {
        const std::set<std::pair<std::string, std::string>> assigned = ReadAssignments(*newSource_);
        for (const TmlFoundSourceString& row : kept_) {
            if (row.MarkedToIgnore) continue;
            const TStrRec& record = RecordOf(records_, row);
            if (!assigned.contains({UpperCase(record.StrName), UpperCase(row.StrID)}))
                Fail(record.StrLine, "the constant " + record.StrName +
                                         " would not be set from the string '" + row.StrID + "'");
        }
    }

    /// Names and IDs, upper-cased, of "name := call".
    std::set<std::pair<std::string, std::string>> ReadAssignments(const TSourceText& source) const {
        std::set<std::pair<std::string, std::string>> assigned;
        const std::vector<TToken>& tokens = source.CodeTokens();
        std::size_t token = 0;
        for (const TAccessorCall& call : FindCalls(source, input_.Scan.Component)) {
            while (token < tokens.size() && tokens[token].Begin < call.Begin)
                ++token;
            std::size_t before = token;
            const auto text = [&](std::size_t steps) {
                return before >= steps ? TextOf(source, tokens[before - steps]) : std::string_view();
            };
            if (text(1) == "(" && SameText(text(2), "PChar")) before -= 2;
            if (text(1) == ":=") assigned.insert({UpperCase(text(2)), UpperCase(CalledID(source, call))});
        }
        return assigned;
    }

    /// The next scan finds what was not rewritten, and nothing else.
    void CheckSecondScan() const {
        std::map<std::pair<std::string, std::string>, int> left;
        for (const TStrRec& record : records_)
            ++left[{record.StrName, record.StrContent}];
        for (const TmlFoundSourceString& row : kept_)
            if (!row.MarkedToIgnore)
                --left[{RecordOf(records_, row).StrName, RecordOf(records_, row).StrContent}];
        TConstInput input = input_;
        input.Scan.Source = newSource_;
        input.Scan.Progress = nullptr;
        for (const TStrRec& record : ScanConsts(input).Records)
            --left[{record.StrName, record.StrContent}];
        for (const TStrRec& record : records_)
            if (left[{record.StrName, record.StrContent}] != 0)
                Fail(record.StrLine, "the next scan would misread the constant " + record.StrName);
    }

    void CheckHandlers() const {
        const bool anyShared = std::any_of(kept_.begin(), kept_.end(), [&](const TmlFoundSourceString& row) {
            return !row.MarkedToIgnore && !RecordOf(records_, row).IsLocal;
        });
        if (!anyShared) return;
        const TSharedSource source =
            IsOwnForm(input_, form_)
                ? newSource_
                : ReadSource(ApplyEdits(form_.Source->Text(), changes_.FormUnit), form_.FileName());
        const TUnitRoutines routines(*source);
        const THandlers handlers(routines, form_);
        for (const std::string& name : {handlers.Create, handlers.ChangeLanguage}) {
            const auto* routine = routines.Find(form_.ClassName, name);
            if (routine == nullptr || !routines.Calls(*routine, QualifierOf(input_, form_), kUpdateStrings))
                Fail(0, "the handler " + name + " would not set the constants");
        }
    }

    const TmlFoundSourceStrings& kept_;
    const TConstInput& input_;
    const std::vector<TStrRec>& records_;
    const TConstForm& form_;
    const TConstChanges& changes_;
    TSharedSource newSource_;
};

}  // namespace

TConstChanges RewriteConsts(const TmlFoundSourceStrings& kept, const TConstInput& input,
                            const std::vector<TStrRec>& records, const TConstForm& form) {
    return TConstRewriter(kept, input, records, form).Run();
}

void ProveConsts(const TmlFoundSourceStrings& kept, const TConstInput& input,
                 const std::vector<TStrRec>& records, const TConstForm& form, const TConstChanges& changes) {
    TConstProof(kept, input, records, form, changes).Run();
}

}  // namespace tml
