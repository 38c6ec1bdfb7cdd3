#include "ids/Typechange.h"

#include <algorithm>

#include "base/Codedtext.h"
#include "base/Errors.h"
#include "base/Files.h"
#include "base/Folderindex.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "core/Formfamilies.h"
#include "core/Modules.h"
#include "forms/Formtree.h"
#include "source/Fields.h"
#include "source/Includeedits.h"
#include "source/Usesedits.h"

namespace tml {
namespace {

constexpr const char* kTypeTitle = "Change TmlLang Type";
constexpr const char* kNotClosed = "For changing component type file shall be closed!\r\nAction aborted.";

/// Another content of a closed file.
struct TFileChange {
    std::string FileName;
    std::string Before;
    std::string After;
};

/// What changes for a row: its own files, and the form files of its descendants.
struct TTypePlan {
    std::vector<TFormRow*> Rows;
    std::vector<TFileChange> Files;
};

/// The first component of the class in the order of the file, one with a child's position left out: the line
/// of its header does not end with the class.
TFormNode* FirstOfClass(TFormNode& node, const std::string& className) {
    for (const auto& child : node.Children()) {
        if (child->ClassName() == className && !child->ChildPosition()) return child.get();
        if (TFormNode* found = FirstOfClass(*child, className)) return found;
    }
    return nullptr;
}

/// The edit of the field's declaration, none where the unit does not declare it so.
TEdits FieldEdits(const TSourceText& source, const std::string& formClass, const std::string& component,
                  const std::string& oldClass, const std::string& newClass) {
    if (!source.Language().IsCPPSource) {
        const std::size_t at = source.Text().find(Format(": %s;", oldClass));
        if (at == std::string_view::npos) return {};
        return {{at + 2, at + 2 + oldClass.size(), newClass}};
    }
    TEdits edits;
    for (const TClassFields& declaration : ReadFields(source, formClass))
        for (const TField& field : declaration.Fields)
            if (source.Text().substr(field.Name, field.NameEnd - field.Name) == component &&
                source.Text().substr(field.Type, field.TypeEnd - field.Type) == oldClass)
                edits.push_back({field.Type, field.TypeEnd, newClass});
    return edits;
}

class TTypeChange {
  public:
    TTypeChange(TContext& context, std::string className)
        : context_(context),
          runtime_(*context.Host.Runtime),
          files_(GetModuleServices(context)->GetFiles()),
          folders_(*context.Host.Files),
          newClass_(std::move(className)) {}

    void Run(const std::vector<TFormRow*>& rows) {
        TAllSteps steps;
        bool isClosed = true;
        steps.Try([&] {
            for (std::size_t i = 0; i < rows.size() && isClosed; ++i)
                isClosed = Plan(*rows[i]);
        });
        steps.Try([&] { Write(); });
        for (const std::string& unit : reopened_)
            steps.Try([&] { OpenFile(context_, unit, false); });
        if (!isClosed) context_.Dialogs().MessageDlg(kNotClosed, TMsgDlgType::mtInformation, {mrOk});
        steps.Finish();
    }

  private:
    bool Plan(TFormRow& row);
    bool CloseUnit(const std::string& unit);
    std::string Read(const std::string& file);
    bool ChangeForm(TFormTree& tree, TFormNode& node);
    bool PlanForm(TTypePlan& plan, TFormRow& row, bool isOwn);
    void PlanSourceAlone(TTypePlan& plan, const std::string& file, TFormTree& tree);
    void PlanSource(TTypePlan& plan, const std::string& formClass, const std::string& component);
    TEdits UnitEdits(const TSourceText& source, const TEdit& field);
    bool MentionsOldUnit(const TSourceText& source, const TEdit& field) const;
    void Write();

    TContext& context_;
    IMlRuntime& runtime_;
    ICommandFiles& files_;
    TFolderIndex folders_;
    std::string newClass_;
    std::string oldClass_;
    std::vector<TTypePlan> plans_;
    std::vector<std::string> reopened_;  ///< units that were open
};

/// False where a unit cannot be closed.
bool TTypeChange::Plan(TFormRow& row) {
    if (!row.HasComponent())
        throw EBadInput(row.FileName, 0, "the form has no localization component",
                        "Choose forms that have one");
    if (!row.Component.Ancestor.empty())
        throw EBadInput(row.FileName, 0, Format("%s inherits the component", row.FormName),
                        Format("Change the type in %s", row.Component.Ancestor));
    oldClass_ = row.Component.ClassName;
    TTypePlan plan{{&row}, {}};
    for (const std::string& unit : FamiliesOf(context_.Rows.FormNames).DescendantsOf(row.FormName))
        plan.Rows.push_back(context_.Rows.FormNames.FindFile(unit));
    for (const TFormRow* each : plan.Rows)
        if (!CloseUnit(each->FileName)) return false;
    if (oldClass_ == newClass_) return true;
    for (std::size_t i = 0; i < plan.Rows.size(); ++i)
        if (!PlanForm(plan, *plan.Rows[i], i == 0)) return true;
    plans_.push_back(std::move(plan));
    return true;
}

bool TTypeChange::CloseUnit(const std::string& unit) {
    const auto module = GetModuleFromFileName(context_, unit);
    if (module == nullptr) return true;
    reopened_.push_back(unit);
    try {
        if (module->GetModified()) SaveFile(context_, unit);
    } catch (const EBadInput&) {
        return false;
    }
    CloseFile(context_, unit);
    return !IsFileOpen(context_, unit);
}

std::string TTypeChange::Read(const std::string& file) {
    auto bytes = files_.ReadFile(file);
    if (!bytes) throw EBadInput(file, 0, "cannot be found", "Restore it");
    return std::move(*bytes);
}

/// False where the person keeps the properties that the new class does not have.
bool TTypeChange::ChangeForm(TFormTree& tree, TFormNode& node) {
    std::vector<std::string> lost;
    std::string names;
    for (const std::string& property : runtime_.PropertiesWithout(oldClass_, newClass_))
        for (const std::string& held : node.PropertyNames())
            if (SameText(held, property) || held.starts_with(property + ".")) {
                lost.push_back(held);
                names += (names.empty() ? "" : ", ") + property;
            }
    if (!lost.empty() &&
        context_.Dialogs().MessageDlg(Format("%s has no %s: what %s holds of it would be lost. Continue?",
                                             newClass_, names, node.Name()),
                                      TMsgDlgType::mtWarning, {mrYes, mrNo}) != mrYes)
        return false;
    for (const std::string& property : lost)
        tree.RemoveProperty(node, property);
    tree.SetClass(node, newClass_);
    return true;
}

bool TTypeChange::PlanForm(TTypePlan& plan, TFormRow& row, bool isOwn) {
    const std::string file = folders_.FormFileOf(row.FileName);
    if (file.empty())
        throw EBadInput(row.FileName, 0, "the unit has no form file", "Restore it beside the unit");
    const std::string before = Read(file);
    const auto tree = TFormTree::Parse(before, file);
    TFormNode* node =
        isOwn ? FirstOfClass(tree->Root(), oldClass_) : tree->FindComponent(row.Component.ComponentName);
    if (node == nullptr && isOwn) return PlanSourceAlone(plan, file, *tree), true;
    // A descendant need not repeat the component.
    if (node == nullptr || node->ClassName() != oldClass_) return true;
    const std::string component = node->Name();
    if (!ChangeForm(*tree, *node)) return false;
    plan.Files.push_back({file, before, tree->Bytes()});
    if (isOwn) PlanSource(plan, tree->Root().ClassName(), component);
    return true;
}

/// A header line with something behind the class stays, on purpose, and with it those of descendants; the
/// declaration changes all the same.
void TTypeChange::PlanSourceAlone(TTypePlan& plan, const std::string& file, TFormTree& tree) {
    const std::string component = plan.Rows.front()->Component.ComponentName;
    const TFormNode* node = tree.FindComponent(component);
    if (node == nullptr || node->ClassName() != oldClass_)
        throw EBadInput(file, 0, Format("the form has no line that ends with \": %s\"", oldClass_),
                        "Open and save the form in the form designer");
    plan.Rows.resize(1);
    PlanSource(plan, tree.Root().ClassName(), component);
    context_.Dialogs().MessageDlg(
        Format("%s: %s stays %s, whose name does not end its line. Only the unit says %s now.", file,
               component, oldClass_, newClass_),
        TMsgDlgType::mtInformation, {mrOk});
}

/// Takes the unit of the first row.
void TTypeChange::PlanSource(TTypePlan& plan, const std::string& formClass, const std::string& component) {
    const std::string& unit = plan.Rows.front()->FileName;
    const std::string header = folders_.HeaderFileOf(unit);
    const std::string file = header.empty() ? unit : header;
    const std::string before = Read(file);
    TCodedText coded(before, file);
    const TSharedSource source = ReadSource(coded.Text(), file);
    TEdits edits = FieldEdits(*source, formClass, component, oldClass_, newClass_);
    if (edits.empty()) return;
    for (TEdit& edit : UnitEdits(*source, edits.front()))
        edits.push_back(std::move(edit));
    std::sort(edits.begin(), edits.end(), [](const TEdit& a, const TEdit& b) { return a.Begin < b.Begin; });
    coded.Check(edits);
    coded.Apply(edits);
    plan.Files.push_back({file, before, coded.Bytes()});
}

/// The unit of the new class comes in the place of the old one's, unless something else needs that.
TEdits TTypeChange::UnitEdits(const TSourceText& source, const TEdit& field) {
    const std::string oldUnit = runtime_.UnitOf(oldClass_);
    const std::string newUnit = runtime_.UnitOf(newClass_);
    if (oldUnit == newUnit) return {};
    const bool keepsOld = MentionsOldUnit(source, field);
    return source.Language().IsCPPSource
               ? ExchangeInclude(source, oldUnit + ".hpp", newUnit + ".hpp", keepsOld)
               : ExchangeUsedUnit(source, oldUnit, newUnit, keepsOld);
}

bool TTypeChange::MentionsOldUnit(const TSourceText& source, const TEdit& field) const {
    const std::string oldUnit = runtime_.UnitOf(oldClass_);
    const auto& tokens = source.CodeTokens();
    return std::any_of(tokens.begin(), tokens.end(), [&](const TToken& token) {
        const std::string_view text = TextOf(source, token);
        return token.Kind == TTokenKind::Name && token.Begin != field.Begin && text.size() > 3 &&
               SameText(text.substr(0, 3), "Tml") && runtime_.UnitOf(std::string(text)) == oldUnit;
    });
}

void TTypeChange::Write() {
    if (plans_.empty()) return;
    const auto scope = BeginCommand(context_, kTypeTitle);
    for (const TTypePlan& plan : plans_)
        for (const TFileChange& change : plan.Files) {
            if (Read(change.FileName) != change.Before)
                throw EBadInput(change.FileName, 0, "has changed meanwhile", "Repeat the command");
            files_.WriteFile(change.FileName, change.After);
        }
    scope->Commit();
    for (const TTypePlan& plan : plans_)
        for (TFormRow* row : plan.Rows)
            row->Component.ClassName = newClass_;
}

}  // namespace

std::vector<std::string> TypeCaptions(IMlRuntime& runtime) {
    std::vector<std::string> captions;
    for (const std::string& className : runtime.NamesArray())
        captions.push_back(Format("&%d. %s", captions.size(), className));
    return captions;
}

void ChangeTmlLangType(TContext& context, const std::vector<TFormRow*>& rows, const std::string& className) {
    if (rows.empty()) return;
    if (GetModuleServices(context) == nullptr) throw EmlLangSilent();
    TAllSteps steps;
    steps.Try([&] { TTypeChange(context, className).Run(rows); });
    for (TFormRows* list : context.Rows.Both())
        list->Touch();
    UpdateStatusBar(context);
    steps.Finish();
}

void ToTmlLang1Click(TContext& context, int menuIndex) {
    std::vector<TFormRow*> rows;
    for (const auto& row : context.Rows.FormNames.Items())
        if (row->Selected) rows.push_back(row.get());
    ChangeTmlLangType(context, rows,
                      context.Host.Runtime->NamesArray().at(static_cast<std::size_t>(menuIndex)));
}

}  // namespace tml
