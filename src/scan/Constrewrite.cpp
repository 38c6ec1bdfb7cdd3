#include "scan/Constrewrite.h"

#include <algorithm>
#include <map>
#include <set>
#include <stdexcept>

#include "base/Errors.h"
#include "base/Files.h"
#include "base/Utf8.h"
#include "scan/Calls.h"
#include "scan/Constreader.h"
#include "source/Charclass.h"
#include "source/Conditions.h"
#include "source/Methods.h"

namespace tml {
namespace {

constexpr std::string_view kLineBreak = "\r\n";
constexpr std::string_view kUpdateStrings = "UpdateStrings";
constexpr std::string_view kChangeLanguage = "ChangeLanguage";

// ---- Declarations ----------------------------------------------------------------------------------

/// A line break in the text of a value that went over several lines starts a new piece.
std::string FullValue(const TStrRec& record) {
    if (record.StrLine == record.EndLine) return record.Value;
    const TSourceText value(std::string_view(record.Value), kPascal);
    std::string text;
    std::size_t pos = 0;
    for (const TLiteral& literal : value.Literals()) {
        const std::string_view gap = value.Text().substr(pos, literal.Begin - pos);
        text += pos > 0 && (gap == "#13#10" || gap == "#13#10 + ") ? "#13#10 + \t" : gap;
        text += value.Text().substr(literal.Begin, literal.End - literal.Begin);
        pos = literal.End;
    }
    return text.append(value.Text().substr(pos));
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

/// The procedure that sets the constants: UpdateStrings, with a number behind it where that name is taken by
/// something that cannot be called so.
std::string UpdateRoutineOf(const TUnitRoutines& routines, const std::string& owner) {
    const std::string wanted(kUpdateStrings);
    std::string name = wanted;
    for (int number = 1;; ++number) {
        const bool isThere = routines.DeclaresPlain(owner, name) ||
                             (owner.empty() && routines.Bodies(owner, name).size() == 1 &&
                              !routines.Bodies(owner, name, true).empty());
        if (isThere || routines.IsFreeName(owner, name)) return name;
        name = wanted + std::to_string(number);
    }
}

/// Places of a unit by the builds that compile them.
class TBuilds {
  public:
    TBuilds(const TSourceText& source, const TUnitRoutines& routines)
        : conditions_(source), unit_(conditions_.BranchAt(routines.EndOfInterface())) {}

    /// Every build of the unit compiles at least one of the places.
    bool ReachAll(const std::vector<std::size_t>& places) const {
        return !places.empty() && conditions_.Reach(places, unit_);
    }
    /// Every build that compiles the place at does so.
    bool ReachFrom(std::size_t at, const std::vector<std::size_t>& places) const {
        return !places.empty() && conditions_.Reach(places, conditions_.BranchAt(at));
    }

  private:
    TConditions conditions_;
    std::size_t unit_;
};

/// EBadInput where some builds have none of the bodies.
void CheckBodies(const TSourceText& source, const TBuilds& builds,
                 const std::vector<TUnitRoutines::TRoutine>& bodies) {
    std::vector<std::size_t> places;
    for (const TUnitRoutines::TRoutine& body : bodies)
        for (const std::size_t place : {body.BodyBegin, body.BodyEnd})
            places.push_back(place);
    if (!builds.ReachAll(places))
        throw EBadInput(source.FileName(), source.LineOf(bodies.front().Begin),
                        std::string(bodies.front().Name) + " has a body under a condition only",
                        "Write one for every build.");
}

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
        const std::string owner = isOwn ? form_.ClassName : "";
        const TUnitRoutines& routines = unit_.Routines();
        routine_ = UpdateRoutineOf(routines, owner);
        const std::vector<TUnitRoutines::TRoutine> bodies = routines.Bodies(owner, routine_, true);
        if (!bodies.empty()) CheckBodies(*input_.Scan.Source, {*input_.Scan.Source, routines}, bodies);
        for (const TUnitRoutines::TRoutine& body : bodies)
            unit_.AddLast(body, lines);
        if (bodies.empty()) unit_.AddRoutine(isOwn ? owner + "." + routine_ : routine_, lines);
        const bool isDeclared = routines.DeclaresPlain(owner, routine_);
        if (isOwn) {
            AddHandlers(*input_.Scan.Source, unit_, changes);
            if (!isDeclared) unit_.Declare(owner, routine_);
            return;
        }
        if (!isDeclared) unit_.DeclareInInterface(routine_);
        TUnitPatch formUnit(*form_.Source);
        AddHandlers(*form_.Source, formUnit, changes);
        changes.FormUnit = formUnit.Take();
    }

    void AddHandlers(const TSourceText& source, TUnitPatch& patch, TConstChanges& changes) const {
        const std::string_view ancestor = patch.Routines().AncestorOf(form_.ClassName);
        if (SameText(ancestor, "TFrame") || SameText(ancestor, "TCustomFrame"))
            throw EBadInput(form_.FileName(), 0, "a frame has no creation handler to set the constants in",
                            "Use the component of a form.");
        const THandlers handlers(patch.Routines(), form_);
        const std::string qualifier = QualifierOf(input_, form_);
        const std::string call = routine_ + ";";
        const std::string unitCall = qualifier.empty() ? "" : qualifier + "." + call;
        const TBuilds builds(source, patch.Routines());
        AddHandler(source, builds, patch, handlers.Create, qualifier, qualifier.empty() ? call : unitCall);
        AddHandler(source, builds, patch, handlers.ChangeLanguage, qualifier,
                   qualifier.empty() ? "Self." + call : unitCall);
        if (!SameText(handlers.Create, form_.OnCreate)) changes.OnCreate = handlers.Create;
        if (!SameText(handlers.ChangeLanguage, form_.OnChangeLanguage))
            changes.OnChangeLanguage = handlers.ChangeLanguage;
    }

    void AddHandler(const TSourceText& source, const TBuilds& builds, TUnitPatch& patch,
                    const std::string& name, const std::string& qualifier, const std::string& call) const {
        const TUnitRoutines& routines = patch.Routines();
        const std::vector<TUnitRoutines::TRoutine> bodies = routines.Bodies(form_.ClassName, name);
        if (!bodies.empty()) CheckBodies(source, builds, bodies);
        for (const TUnitRoutines::TRoutine& body : bodies)
            if (!builds.ReachFrom(body.BodyBegin, routines.Calls(body, qualifier, routine_)))
                patch.AddFirst(body, call);
        if (!bodies.empty()) return;
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
    std::string routine_;
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
          newSource_(ReadSource(ApplyEdits(input.Scan.Text(), changes.Unit), *input.Scan.Source)),
          routines_(*newSource_),
          builds_(*newSource_, routines_) {}

    void Run() const {
        CheckValues();
        CheckAssignments();
        CheckSecondScan();
        CheckHandlers();
    }

  private:
    [[noreturn]] void Fail(int line, const std::string& problem) const {
        throw EBadInput(input_.Scan.FileName(), line, problem,
                        "Nothing was changed; leave this constant out.");
    }

    /// Every declaration is still there, with its whole text or emptied.
    void CheckValues() const {
        std::set<std::size_t> rewritten;
        for (const TmlFoundSourceString& row : kept_)
            if (!row.MarkedToIgnore) rewritten.insert(RecordOf(records_, row).Begin);
        const TConstReader before(*input_.Scan.Source);
        const TConstReader now(*newSource_);
        for (std::size_t i = 0; i < before.Declarations().size(); ++i) {
            const TConstDeclaration& old = before.Declarations()[i];
            const bool isRewritten = rewritten.contains(old.Begin);
            const bool isEmptied = input_.EmptyConstsValues && isRewritten;
            const bool same = i < now.Declarations().size() && now.Declarations()[i].Name == old.Name &&
                              now.Declarations()[i].Text == (isEmptied ? "" : old.Text);
            if (!same || (isRewritten && ForbidsCall(old.Advice)))
                Fail(input_.Scan.Source->LineOf(old.Begin),
                     "the constant " + std::string(old.Name) + " would get another value");
        }
    }

    void CheckAssignments() const {
        const TAssignments assigned = ReadAssignments(*newSource_);
        for (const TmlFoundSourceString& row : kept_) {
            if (row.MarkedToIgnore) continue;
            const TStrRec& record = RecordOf(records_, row);
            const auto places = assigned.find({UpperCase(record.StrName), UpperCase(row.StrID)});
            if (places == assigned.end() || (!record.IsLocal && !builds_.ReachAll(places->second)))
                Fail(record.StrLine, "the constant " + record.StrName +
                                         " would not be set from the string '" + row.StrID + "'");
        }
    }

    /// Places by name and ID, upper-cased, of "name := call".
    using TAssignments = std::map<std::pair<std::string, std::string>, std::vector<std::size_t>>;
    TAssignments ReadAssignments(const TSourceText& source) const {
        TAssignments assigned;
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
            if (text(1) == ":=")
                assigned[{UpperCase(text(2)), UpperCase(CalledID(source, call))}].push_back(call.Begin);
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
        const bool isOwn = IsOwnForm(input_, form_);
        const std::string name = UpdateRoutineOf(routines_, isOwn ? form_.ClassName : "");
        const TSharedSource source =
            isOwn ? newSource_
                  : ReadSource(ApplyEdits(form_.Source->Text(), changes_.FormUnit), *form_.Source);
        const TUnitRoutines routines(*source);
        const TBuilds builds(*source, routines);
        const THandlers handlers(routines, form_);
        for (const std::string& handler : {handlers.Create, handlers.ChangeLanguage}) {
            std::vector<std::size_t> calls;
            for (const TUnitRoutines::TRoutine& body : routines.Bodies(form_.ClassName, handler))
                for (const std::size_t call : routines.Calls(body, QualifierOf(input_, form_), name))
                    calls.push_back(call);
            if (!builds.ReachAll(calls)) Fail(0, "the handler " + handler + " would not set the constants");
        }
    }

    const TmlFoundSourceStrings& kept_;
    const TConstInput& input_;
    const std::vector<TStrRec>& records_;
    const TConstForm& form_;
    const TConstChanges& changes_;
    TSharedSource newSource_;
    TUnitRoutines routines_;  ///< of newSource_
    TBuilds builds_;
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
