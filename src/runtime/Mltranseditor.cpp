#include "runtime/Mltranseditor.h"

#include <algorithm>
#include <utility>

#include "base/Format.h"
#include "base/Utf8.h"
#include "runtime/Transcommands.h"
#include "runtime/Transdictionary.h"
#include "tables/Extendedtable.h"
#include "tables/Stringids.h"

namespace tml {
namespace {

constexpr const char* kAllForms = "All forms";
constexpr const char* kBoxCaption = "Translation Editor";
constexpr const char* kAddID = "Add String ID";
constexpr const char* kRenameID = "Rename String ID";
constexpr std::string_view kAskOddID =
    "\"%s\" has other characters than letters, digits, \"_\", \"-\" and \".\", which are hard to read in a "
    "source. Use it all the same?";
constexpr const char* kReading = "Reading translations...";
constexpr const char* kTranslating = "Translating equal texts...";
constexpr const char* kSearching = "Searching...";
constexpr const char* kWriting = "Writing translations...";
constexpr const char* kAskDrop = "What you have edited is not written yet. Close and lose it?";
constexpr const char* kAskEscaped =
    "The string ID %s has a quote or a backslash: where a source doubles or escapes it, the check of "
    "string IDs does not find it. Use it all the same?";
constexpr const char* kRenamedStay = "String IDs that were renamed stay renamed.";

std::string CaptionOf(const TTransTexts& texts) {
    const auto& forms = texts.Forms();
    return forms.size() == 1 ? Format("%s - %s", kBoxCaption, forms.front().Name) : kBoxCaption;
}

/// Among several forms it tells whose ID is asked for.
std::string PromptOf(const TTransTexts& texts, TTransRow row) {
    return texts.Forms().size() == 1 ? "String ID:" : Format("String ID of %s:", texts.FormOf(row).Name);
}

std::string NothingLeft(const TTransFilter& filter) {
    const bool isMissing = filter.Show == TTransShow::Missing && filter.Text.empty();
    return isMissing ? "Nothing is missing any more" : "Nothing passes the filter any more";
}

ICommonLibrary* MatcherOf(IMlRuntime& runtime) {
    ICommonLibrary* const library =
        runtime.CommonLibrary == nullptr ? nullptr : runtime.CommonLibrary->Load();
    return library != nullptr && library->HasMatcher() ? library : nullptr;
}

}  // namespace

TfrmTransEditor::TfrmTransEditor(IMlRuntime& runtime, const std::vector<TmlCustomLang*>& langs,
                                 const TTransEditorPlace& place, TChangeStrID onChangeStrID,
                                 TTransEditorMemory& memory, IRegistry* registry)
    : runtime_(runtime),
      onChangeStrID_(std::move(onChangeStrID)),
      memory_(memory),
      registry_(registry),
      library_(MatcherOf(runtime)),
      texts_(langs, [&](int forms) {
          return runtime.Dialogs->ShowProgress(kReading, forms, static_cast<int>(langs.size()));
      }) {
    Name = "frmTransEditor";
    Caption = CaptionOf(texts_);
    ActiveControl = "grTexts";
    Actions = CommandsOf(*this);
    if (registry_ != nullptr) ReadTransEditorMemory(*registry_, memory_);
    BuildTree(place);
    Open(place);
}

// --- tree

/// Empty tables are left out, unless one is asked for or takes new IDs.
void TfrmTransEditor::BuildTree(const TTransEditorPlace& place) {
    const auto& forms = texts_.Forms();
    const int level = forms.size() > 1 ? 1 : 0;
    if (level > 0) Tree.push_back({kAllForms, 0, {}});
    for (int number = 0; number < static_cast<int>(forms.size()); ++number) {
        const TTransForm& form = forms[static_cast<std::size_t>(number)];
        Tree.push_back({form.Name, level, {number, -1}});
        for (int index = form.FirstTable; index < form.TablesEnd; ++index) {
            const TTransTable& table = texts_.Tables()[static_cast<std::size_t>(index)];
            const bool isAsked = !place.IsLast && number == 0 && table.Property() == PropertyOf(place.Table);
            if (table.Count() > 0 || table.IsStrings() || isAsked)
                Tree.push_back({std::string(table.Property()), level + 1, {number, index}});
        }
    }
}

int TfrmTransEditor::NodeOf(const TTransScope& scope) const {
    const auto found =
        std::find_if(Tree.begin(), Tree.end(), [&](const auto& node) { return node.Scope == scope; });
    return found == Tree.end() ? 0 : static_cast<int>(found - Tree.begin());
}

void TfrmTransEditor::SelectNode(int node) {
    node_ = node;
    Arrange();
}

TTransProgress TfrmTransEditor::NodeProgress(int node, int column) const {
    const TTransScope& scope = Tree.at(static_cast<std::size_t>(node)).Scope;
    return scope.Table < 0 ? texts_.Progress(column, scope.Form)
                           : texts_.ProgressOfTable(column, scope.Table);
}

// --- opening

int TfrmTransEditor::FormOf(const std::string& name) const {
    const auto& forms = texts_.Forms();
    const auto found =
        std::find_if(forms.begin(), forms.end(), [&](const auto& form) { return form.Name == name; });
    return found == forms.end() ? -1 : static_cast<int>(found - forms.begin());
}

int TfrmTransEditor::TableOf(int form, std::string_view property) const {
    if (form < 0) return -1;
    const TTransForm& whose = texts_.Forms()[static_cast<std::size_t>(form)];
    for (int table = whose.FirstTable; table < whose.TablesEnd; ++table)
        if (texts_.Tables()[static_cast<std::size_t>(table)].Property() == property) return table;
    return -1;
}

int TfrmTransEditor::ColumnOf(const std::string& language) const {
    if (language.empty()) return 0;
    const auto& languages = texts_.Languages();
    const auto found = std::find_if(languages.begin(), languages.end(),
                                    [&](const auto& known) { return SameText(known.Name, language); });
    return found == languages.end() ? FirstTranslation() : static_cast<int>(found - languages.begin()) + 1;
}

int TfrmTransEditor::FirstTranslation() const {
    for (int column = 1; column < ColumnCount(); ++column)
        if (texts_.Progress(column, -1).Texts > 0) return column;
    return std::min(2, ColumnCount() - 1);
}

void TfrmTransEditor::Open(const TTransEditorPlace& place) {
    if (place.IsLast) return Return();
    const int table = TableOf(0, PropertyOf(place.Table));
    node_ = NodeOf({0, table});
    Arrange();
    const auto& places = texts_.Forms().front().Places;
    const auto column = std::find(places.begin(), places.end(), place.Field);
    const bool isLanguage = place.Field > 0 && column != places.end();
    const int key = place.Entry < 0 || place.Field < 0 ? FirstTranslation() : 0;
    Show({table, place.Entry}, isLanguage ? static_cast<int>(column - places.begin()) : key);
}

void TfrmTransEditor::Return() {
    const int nodeForm = FormOf(memory_.NodeForm);
    if (nodeForm >= 0) node_ = NodeOf({nodeForm, TableOf(nodeForm, memory_.NodeTable)});
    filter_ = memory_.Filter;
    if (!HasPatterns()) filter_.IsPattern = false;
    const auto& languages = texts_.Languages();
    if (std::none_of(languages.begin(), languages.end(),
                     [this](const auto& known) { return SameText(known.Name, filter_.Language); }))
        filter_.Language.clear();
    Arrange();
    const int form = FormOf(memory_.Form);
    // What was looked for may be a text of another project.
    if (grid_.Count() == 0 && form < 0) SetFilter({});
    if (grid_.Count() == 0 && Notice.empty() && RowCount() > 0) Notice = NothingLeft(filter_);
    const int table = TableOf(form, memory_.Table);
    const int entry = table < 0 ? -1 : texts_.Tables()[static_cast<std::size_t>(table)].FindKey(memory_.Key);
    Show({table, entry}, table < 0 ? FirstTranslation() : ColumnOf(memory_.Language));
}

/// For a row that is not shown the next one behind it, else the last one.
void TfrmTransEditor::Show(TTransRow row, int column) {
    const auto& shown = grid_.Shown();
    const auto place = std::lower_bound(shown.begin(), shown.end(), row) - shown.begin();
    grid_.SetCurrent(std::min(static_cast<int>(place), grid_.Count() - 1), column);
}

// --- filter

void TfrmTransEditor::SetFilter(const TTransFilter& filter) {
    const TTransFilter former = std::exchange(filter_, filter);
    if (former != filter) Arrange();
}

void TfrmTransEditor::Arrange() {
    const TTransSieve sieve(filter_, texts_, library_);
    bool stopped = false;
    const auto goesOn = [&](int done, int all) {
        // A search for a plain text is done before anybody could read that it runs.
        stopped = filter_.IsPattern && !runtime_.Dialogs->ShowProgress(kSearching, done, all);
        return !stopped;
    };
    {
        const TProgressEnd end(*runtime_.Dialogs);
        grid_.Assign(FilteredRows(texts_, Tree[static_cast<std::size_t>(node_)].Scope, sieve, goesOn));
    }
    Notice.clear();
    isPatternBroken_ = sieve.IsBroken();
    if (isPatternBroken_) Notice = "The pattern cannot be read";
    if (stopped) Notice = "Stopped: there may be more";
    Changed();
}

int TfrmTransEditor::RowCount() const {
    const TTransScope& scope = Tree[static_cast<std::size_t>(node_)].Scope;
    const auto& tables = texts_.Tables();
    int count = 0;
    for (std::size_t i = 0; i < tables.size(); ++i)
        if (IsIn(tables[i], scope, static_cast<int>(i))) count += tables[i].Present();
    return count;
}

// --- cells

std::string TfrmTransEditor::ColumnCaption(int column) const {
    return column == 0 ? "Key" : texts_.Languages()[static_cast<std::size_t>(column) - 1].Name;
}

int TfrmTransEditor::BaseColumn(int place) const {
    return texts_.ColumnAt(grid_.RowAt(place), 1);
}

std::optional<TTextState> TfrmTransEditor::State(int place, int column) const {
    return texts_.State(grid_.RowAt(place), column);
}

std::string TfrmTransEditor::FormerBase(int place, int column) const {
    const TTransRow row = grid_.RowAt(place);
    const auto state = texts_.State(row, column);
    if (state != TTextState::Stale && state != TTextState::Touched) return {};
    return texts_.Find(row)->Values[static_cast<std::size_t>(texts_.PlaceOf(row, column)) - 1].Former;
}

bool TfrmTransEditor::IsEditable(int place, int column) const {
    const TTransRow row = grid_.RowAt(place);
    return column == 0 ? IsOfStrings(row) : texts_.PlaceOf(row, column) > 0;
}

void TfrmTransEditor::SetCurrent(int place, int column) {
    grid_.SetCurrent(place, column);
    Changed();
}

void TfrmTransEditor::Select(const TTransRange& range) {
    grid_.Select(range);
    Changed();
}

// --- edits

void TfrmTransEditor::Done(const std::string& notice) {
    texts_.EndStep();
    Notice = notice;
    Changed();
}

void TfrmTransEditor::SetText(int place, int column, const std::string& text) {
    const TTransRow row = grid_.RowAt(place);
    if (column == 0) return Rename(row, text);
    WriteText(texts_, {row, column}, text);
    Done();
}

void TfrmTransEditor::SetState(TTextState state) {
    SetStates(texts_, Selected(), state);
    Done();
}

void TfrmTransEditor::GoToUntranslated(int step) {
    const int count = grid_.Count();
    const bool isTranslation = texts_.Progress(grid_.Column(), -1).Texts > 0;
    const int column = isTranslation ? grid_.Column() : FirstTranslation();
    // From the base text or a key, its own translation is the first.
    for (int i = column == grid_.Column() ? 1 : 0; i <= count; ++i) {
        const int place = (grid_.Place() + step * i + count) % count;
        const auto state = State(place, column);
        if (!state || *state == TTextState::Done) continue;
        grid_.SetCurrent(place, column);
        return Done();
    }
    const TTransProgress all = texts_.Progress(column, -1);
    const int left = all.Texts - all.Done();
    Done(left == 0
             ? "Everything is translated"
             : Format("Nothing that is shown is left to be translated; of what is not shown: %d", left));
}

void TfrmTransEditor::acCopyBase() {
    CopyBase(texts_, Selected(), false);
    Done();
}

void TfrmTransEditor::acConfirm() {
    const auto cells = Selected();
    SetStates(texts_, cells, TTextState::Done);
    texts_.EndStep();
    const bool hasEmpty = std::any_of(cells.begin(), cells.end(), [this](const TTransCell& cell) {
        return texts_.State(cell.Row, cell.Column) == TTextState::Missing;
    });
    if (hasEmpty) return Done("A translation without a text cannot be done");
    acNextUntranslated();
}

std::vector<TTransCell> TfrmTransEditor::SelectedOrShown() const {
    if (!grid_.Selection().IsOne()) return Selected();
    std::vector<TTransCell> cells;
    for (const TTransRow row : grid_.Shown())
        cells.push_back({row, grid_.Column()});
    return cells;
}

void TfrmTransEditor::acFillFromBase() {
    Done(Format("Filled: %d", CopyBase(texts_, SelectedOrShown(), true)));
}

void TfrmTransEditor::acFillFromDictionary() {
    Done(FillFromDictionary(texts_, SelectedOrShown(), runtime_));
}

void TfrmTransEditor::acTranslateEqual() {
    std::optional<int> written;
    {
        const TProgressEnd end(*runtime_.Dialogs);
        written = TranslateEqual(texts_, Selected(), [this](int done, int all) {
            return runtime_.Dialogs->ShowProgress(kTranslating, done, all);
        });
    }
    Done(written ? Format("Translated alike: %d", *written) : "Stopped: nothing is changed");
}

void TfrmTransEditor::acClear() {
    ClearTexts(texts_, Selected());
    Done();
}

void TfrmTransEditor::acCopy() {
    if (WriteClipboard) WriteClipboard(WriteTabSeparated(TextsOf(texts_, grid_)));
}

void TfrmTransEditor::acPaste() {
    if (!ReadClipboard) return;
    const TTransPasted pasted = PasteTexts(texts_, grid_, ReadTabSeparated(ReadClipboard()));
    grid_.Select(pasted.Range);
    Done(pasted.Left == 0 ? std::string() : Format("Texts without a cell that takes them: %d", pasted.Left));
}

void TfrmTransEditor::acUndo() {
    Follow(texts_.Undo());
}

void TfrmTransEditor::acRedo() {
    Follow(texts_.Redo());
}

void TfrmTransEditor::Follow(const TTransSwapped& swapped) {
    grid_.Update(swapped.Come, swapped.Gone);
    if (!swapped.Rows.empty()) {
        const TTransRow row = swapped.Rows.back();
        const int column = swapped.Place > 0 ? texts_.ColumnAt(row, swapped.Place) : grid_.Column();
        grid_.SetCurrent(grid_.PlaceOf(row), column);
    }
    Done();
}

// --- string IDs

bool TfrmTransEditor::IsOfStrings(TTransRow row) const {
    return texts_.TableOf(row).IsStrings();
}

bool TfrmTransEditor::HasTranslation() const {
    const TTransRange& range = grid_.Selection();
    for (int place = range.FirstRow; HasRow() && place <= range.LastRow; ++place)
        for (int column = range.FirstColumn; column <= range.LastColumn; ++column)
            if (texts_.PlaceOf(grid_.RowAt(place), column) > 1) return true;
    return false;
}

bool TfrmTransEditor::HasID() const {
    return HasRow() && IsOfStrings(grid_.Current().Row);
}

int TfrmTransEditor::StringsTable() const {
    const TTransScope& scope = Tree[static_cast<std::size_t>(node_)].Scope;
    const int form = HasRow() ? texts_.TableOf(grid_.Current().Row).Form() : scope.Form;
    return TableOf(form, KindOf(TStringsType::stStrings).Property);
}

std::string TfrmTransEditor::ProblemOf(const std::string& id, TTransRow row) const {
    if (!IsStringID(id)) return Format("'%s' is no string ID. %s", id, kStringIDRule);
    const TTransTable& table = texts_.TableOf(row);
    // A renamed ID is written at once, one that is deleted is not: the form still has it.
    const int stored = row.Entry < 0 ? -1 : table.Stored().Find(id);
    for (const int known : {table.FindKey(id), stored})
        if (known >= 0 && known != row.Entry) return Format("The string ID \"%s\" is there already!", id);
    return {};
}

bool TfrmTransEditor::IsWanted(const std::string& id) const {
    if (IsPlainStringID(id)) return true;
    const std::string question = IsEscapedInSource(id) ? Format(kAskEscaped, id) : Format(kAskOddID, id);
    return runtime_.Dialogs->MessageDlg(question, TMsgDlgType::mtWarning, {mrNo, mrYes}) == mrYes;
}

std::optional<std::string> TfrmTransEditor::ValidID(const char* caption, std::string id,
                                                    TTransRow row) const {
    for (;;) {
        const std::string problem = ProblemOf(id, row);
        if (problem.empty() && IsWanted(id)) return id;
        std::string prompt = PromptOf(texts_, row);
        if (!problem.empty()) prompt = Format("%s\r\n%s", problem, prompt);
        if (!runtime_.Dialogs->InputQuery(caption, prompt, id)) return std::nullopt;
    }
}

void TfrmTransEditor::acAddID() {
    const int table = StringsTable();
    std::string typed;
    if (!runtime_.Dialogs->InputQuery(kAddID, PromptOf(texts_, {table, -1}), typed)) return;
    const auto id = ValidID(kAddID, typed, {table, -1});
    if (!id) return;
    const TTransForm& form = texts_.FormOf({table, 0});
    const TTransRow row =
        texts_.Add(table, {*id, std::vector<TTableValue>(static_cast<std::size_t>(form.Languages.Count()))});
    grid_.Update({row}, {});
    Show(row, texts_.ColumnAt(row, 1));
    Done();
}

void TfrmTransEditor::acRenameID() {
    const TTransRow row = grid_.Current().Row;
    std::string id = texts_.Text(row, 0);
    if (runtime_.Dialogs->InputQuery(kRenameID, PromptOf(texts_, row), id)) Rename(row, id);
}

void TfrmTransEditor::Rename(TTransRow row, const std::string& typed) {
    const std::string former = texts_.Text(row, 0);
    const auto id = typed == former ? std::nullopt : ValidID(kRenameID, typed, row);
    if (!id || *id == former) return Done();
    try {
        const auto scope = BeginCommand(Format("Rename %s", former));
        texts_.Rename(row, *id);
        if (onChangeStrID_) onChangeStrID_(texts_.FormOf(row).Name, former, *id);
        if (scope != nullptr) scope->Commit();
    } catch (...) {
        texts_.RenameHere(row, former);
        throw;
    }
    hasRenamed_ = true;
    Done();
}

void TfrmTransEditor::acDeleteID() {
    std::vector<TTransRow> rows;
    for (int place = grid_.Selection().FirstRow; place <= grid_.Selection().LastRow; ++place)
        if (IsOfStrings(grid_.RowAt(place))) rows.push_back(grid_.RowAt(place));
    for (const TTransRow row : rows)
        texts_.Put(row, std::nullopt);
    grid_.Update({}, rows);
    Done();
}

void TfrmTransEditor::acJumpToSource() {
    const TTransRow row = grid_.Current().Row;
    runtime_.NavigateToSource(texts_.FormOf(row).Name, texts_.Text(row, 0));
    btnOKClick();
}

void TfrmTransEditor::acAbout() {
    runtime_.ShowAboutBox();
}

// --- closing

std::unique_ptr<ICommandScope> TfrmTransEditor::BeginCommand(const std::string& title) const {
    return runtime_.BeginCommand ? runtime_.BeginCommand(title) : nullptr;
}

void TfrmTransEditor::btnOKClick() {
    if (texts_.HasEdits()) {
        const TProgressEnd end(*runtime_.Dialogs);
        const auto scope = BeginCommand(kBoxCaption);
        texts_.Write(
            [this](int done, int all) { return runtime_.Dialogs->ShowProgress(kWriting, done, all); });
        if (scope != nullptr) scope->Commit();
    }
    Close(mrOk);
}

bool TfrmTransEditor::FormCloseQuery() {
    if (ModalResult == mrOk) return true;
    if (texts_.HasEdits()) {
        const std::string question = hasRenamed_ ? Format("%s\r\n%s", kAskDrop, kRenamedStay) : kAskDrop;
        return runtime_.Dialogs->MessageDlg(question, TMsgDlgType::mtConfirmation, {mrNo, mrYes}) == mrYes;
    }
    if (hasRenamed_) runtime_.Dialogs->MessageDlg(kRenamedStay, TMsgDlgType::mtInformation, {mrOk});
    return true;
}

void TfrmTransEditor::FormClose() {
    memory_.Filter = filter_;
    const TTransScope& scope = Tree[static_cast<std::size_t>(node_)].Scope;
    const auto& forms = texts_.Forms();
    memory_.NodeForm = scope.Form < 0 ? std::string() : forms[static_cast<std::size_t>(scope.Form)].Name;
    memory_.NodeTable.clear();
    if (scope.Table >= 0)
        memory_.NodeTable = texts_.Tables()[static_cast<std::size_t>(scope.Table)].Property();
    if (HasRow()) RememberCurrent();
    if (registry_ != nullptr) WriteTransEditorMemory(*registry_, memory_);
}

void TfrmTransEditor::RememberCurrent() {
    const TTransCell current = grid_.Current();
    memory_.Form = texts_.FormOf(current.Row).Name;
    memory_.Table = texts_.TableOf(current.Row).Property();
    memory_.Key = texts_.Text(current.Row, 0);
    memory_.Language = current.Column == 0 ? std::string() : ColumnCaption(current.Column);
}

}  // namespace tml
