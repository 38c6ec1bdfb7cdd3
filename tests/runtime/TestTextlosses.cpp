// Random changes of a form, of its language and of its tables, and ways through translation files: no
// translation is lost, and none goes to another text or language.
#include <gtest/gtest.h>
#include <map>
#include <random>

#include "ide/Headlesside.h"
#include "runtime/Runtime.h"
#include "support/Memoryfiles.h"
#include "tables/Translationfile.h"

namespace tml {
namespace {

struct TModelText {
    std::string Base;
    std::string German;
    std::string Polish;

    bool operator==(const TModelText&) const = default;
};

/// What the form and its tables have to hold; each text is known by a number.
struct TModel {
    std::map<int, TModelText> Texts;
    std::map<std::string, int> Labels;  ///< by component
    std::vector<int> Columns;
    bool ShowsGerman = false;
    TStringList Languages{{"English", "German", "Polish"}};

    bool operator==(const TModel&) const = default;
};

class TTextlosses : public testing::TestWithParam<unsigned> {
  protected:
    TTextlosses() : random_(GetParam()) {
        Files.Files["/p/P.dpr"] = "program P;\nuses Forms, Main in 'Main.pas' {Main};\nbegin\nend.\n";
        Files.Files["/p/Main.pas"] =
            "unit Main;\ninterface\nuses Forms, StdCtrls, Grids, Mllang;\ntype\n  TMain = class(TForm)\n"
            "    Grid: TStringGrid;\n    mlLang1: TmlLang;\n  end;\nimplementation\n{$R *.dfm}\nend.\n";
        Files.Files["/p/Main.dfm"] =
            "object Main: TMain\n  object Grid: TStringGrid\n  end\n  object mlLang1: TmlLang\n"
            "    NumOfLanguages = 3\n    LangNames.Strings = (\n      'English'\n      'German'\n"
            "      'Polish')\n  end\nend\n";
        Ide.OpenProject("/p/P.dpr");
    }

    std::shared_ptr<IOTAFormEditor> Editor() {
        return Ide.GetModuleServices()->OpenModule("/p/Main.pas", false)->GetFormEditor();
    }
    std::shared_ptr<IOTAComponent> Component(const std::string& name) {
        return Editor()->FindComponent(name);
    }
    std::shared_ptr<TmlCustomLang> Lang() { return Runtime->AsCustomLang(Component("mlLang1")); }
    std::size_t Pick(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_);
    }

    /// A change of one kind, and an update, as one step of undo.
    void Step() {
        using TChange = void (TTextlosses::*)();
        constexpr TChange kChanges[] = {
            &TTextlosses::AddLabel,         &TTextlosses::RenameLabel, &TTextlosses::RemoveLabel,
            &TTextlosses::Reword,           &TTextlosses::AddColumn,   &TTextlosses::MoveColumn,
            &TTextlosses::RemoveColumn,     &TTextlosses::Translate,   &TTextlosses::SwitchLanguage,
            &TTextlosses::GoThroughFile,    &TTextlosses::MergeLater,  &TTextlosses::SwapLanguages,
            &TTextlosses::MoveToOtherTable,
        };
        const TModel before = Model;
        const auto scope = Ide.GetModuleServices()->BeginCommand("Step");
        (this->*kChanges[Pick(std::size(kChanges))])();
        Lang()->BuildList();
        scope->Commit();
        Check();
        if (Model == before) return;
        if (Pick(5) == 0) {
            Ide.Undo();
            Model = before;
            Check();
        } else if (Pick(5) == 0) {
            Ide.SaveAll();
        }
    }

    void Check() {
        const TTable captions = Lang()->GetTable(TStringsType::stCaptions);
        const TTable columns = Lang()->GetTable(TStringsType::stCollections);
        ASSERT_EQ(captions.Entries().size(), Model.Labels.size());
        ASSERT_EQ(columns.Entries().size(), Model.Columns.size());
        for (const auto& [name, text] : Model.Labels)
            Check(captions, name + ".Caption", text);
        for (std::size_t i = 0; i < Model.Columns.size(); ++i)
            Check(columns, ColumnKey(i), Model.Columns[i]);
    }

    TModel Model;
    TMemoryFileSystem Files;
    std::unique_ptr<IMlRuntime> Runtime = MakeMlRuntime();
    THeadlessIde Ide{Files, *Runtime};

  private:
    static std::string ColumnKey(std::size_t index) {
        return "Grid.Columns[" + std::to_string(index) + "].Title.Caption";
    }
    std::size_t PlaceOf(const std::string& language) {
        return static_cast<std::size_t>(Model.Languages.IndexOf(language)) + 1;
    }
    void Check(const TTable& table, const std::string& key, int text) {
        const int index = table.Find(key);
        ASSERT_GE(index, 0) << key;
        const TTableEntry& entry = table.Entries()[static_cast<std::size_t>(index)];
        ASSERT_EQ(entry.Values.size(), 3U) << key;
        EXPECT_EQ(entry.Base(), Model.Texts[text].Base) << key;
        EXPECT_EQ(entry.Values[PlaceOf("German") - 1].Text, Model.Texts[text].German) << key;
        EXPECT_EQ(entry.Values[PlaceOf("Polish") - 1].Text, Model.Texts[text].Polish) << key;
    }

    /// As the form shows it now.
    const std::string& Shown(int text) {
        return Model.ShowsGerman ? Model.Texts[text].German : Model.Texts[text].Base;
    }
    int NewText() {
        const int text = ++last_;
        const std::string wording = "Text number " + std::to_string(text);
        Model.Texts[text] = {wording, wording, wording};
        return text;
    }
    std::string SomeLabel() {
        auto label = Model.Labels.begin();
        std::advance(label, static_cast<std::ptrdiff_t>(Pick(Model.Labels.size())));
        return label->first;
    }

    void AddLabel() {
        const std::string name = "lbl" + std::to_string(++last_);
        const int text = NewText();
        Editor()->CreateComponent(nullptr, "TmlLabel", 0, 0, 0, 0, name);
        Component(name)->SetPropValue("Caption", TFormValue::String(Shown(text)));
        Model.Labels[name] = text;
    }
    /// Half of them behind the component's back, as in a text editor.
    void RenameLabel() {
        if (Model.Labels.empty()) return;
        const std::string old = SomeLabel();
        const std::string name = "lbl" + std::to_string(++last_);
        Component(old)->SetName(name);
        if (Pick(2) == 0) Lang()->ComponentRenamed(old, name);
        Model.Labels[name] = Model.Labels[old];
        Model.Labels.erase(old);
    }
    void RemoveLabel() {
        if (Model.Labels.empty() || Pick(2) == 0) return;
        const std::string name = SomeLabel();
        Component(name)->Delete();
        Model.Labels.erase(name);
    }
    void Reword() {
        if (Model.Labels.empty()) return;
        const std::string name = SomeLabel();
        TModelText& text = Model.Texts[Model.Labels[name]];
        const std::string wording = "Another " + std::to_string(++last_);
        // What is missing follows the base text.
        if (Model.ShowsGerman || text.German == text.Base) text.German = wording;
        if (!Model.ShowsGerman && text.Polish == text.Base) text.Polish = wording;
        if (!Model.ShowsGerman) text.Base = wording;
        Component(name)->SetPropValue("Caption", TFormValue::String(wording));
    }

    void WriteColumns() {
        TFormValue columns;
        columns.Kind = TFormValueKind::Collection;
        for (const int text : Model.Columns)
            columns.Collection.push_back({{"Title.Caption", TFormValue::String(Shown(text))}});
        Component("Grid")->SetPropValue("Columns", columns);
    }
    void AddColumn() {
        const auto place =
            Model.Columns.begin() + static_cast<std::ptrdiff_t>(Pick(Model.Columns.size() + 1));
        Model.Columns.insert(place, NewText());
        WriteColumns();
    }
    void MoveColumn() {
        if (Model.Columns.empty()) return;
        std::swap(Model.Columns[Pick(Model.Columns.size())], Model.Columns[Pick(Model.Columns.size())]);
        WriteColumns();
    }
    void RemoveColumn() {
        if (Model.Columns.empty() || Pick(2) == 0) return;
        Model.Columns.erase(Model.Columns.begin() + static_cast<std::ptrdiff_t>(Pick(Model.Columns.size())));
        WriteColumns();
    }

    void Translate() {
        if (Model.ShowsGerman) return;
        for (const TStringsType type : {TStringsType::stCaptions, TStringsType::stCollections}) {
            TTable table = Lang()->GetTable(type);
            const int count = static_cast<int>(table.Entries().size());
            for (int i = 0; i < count; ++i) {
                const std::string base = table.Entries()[static_cast<std::size_t>(i)].Base();
                for (auto& [number, text] : Model.Texts) {
                    if (text.Base != base || text.German != base || text.Polish != base) continue;
                    text.German = "Deutsch ~!@#$ " + std::to_string(number);
                    text.Polish = "[polski]=\\" + std::to_string(number) + "\r\n ";
                    table.SetText(i, static_cast<int>(PlaceOf("German")), text.German);
                    table.SetText(i, static_cast<int>(PlaceOf("Polish")), text.Polish);
                }
            }
            Lang()->SetTable(table);
        }
    }
    void SwitchLanguage() {
        Model.ShowsGerman = !Model.ShowsGerman;
        Lang()->SetLanguage(Model.ShowsGerman ? "German" : "English");
        for (const auto& [name, text] : Model.Labels)
            Component(name)->SetPropValue("Caption", TFormValue::String(Shown(text)));
        WriteColumns();
    }

    /// Into one of two files, of either kind; gives its name.
    std::string Save() {
        std::string file = Pick(2) == 0 ? "/p/texts.mll" : "/p/texts.mlb";
        if (file.ends_with("mlb"))
            Lang()->SaveAllToBinaryFile(file);
        else
            Lang()->SaveAllToFile(file, std::vector<std::string>{"~!@#$", "|", "=", "\\"}[Pick(4)]);
        return file;
    }
    void GoThroughFile() {
        const std::string file = Save();
        Lang()->ClearTranslations();
        Model.ShowsGerman = false;
        if (Pick(2) == 0)
            Lang()->LoadAllFromFile(file);
        else
            Lang()->MergeAllFromFile(file);
    }
    /// What was translated since the file was saved stays.
    void MergeLater() {
        const std::string file = Save();
        Translate();
        Lang()->MergeAllFromFile(file);
    }
    /// A load takes the file's order of languages.
    void SwapLanguages() {
        const std::string name = Save();
        const auto file = OpenTranslationFile(Runtime->Files->ReadFile(name).value(), name);
        TLangTexts texts = file->Read({"", "Main"}).value();
        std::vector<std::string> names = texts.Languages.Items();
        std::swap(names[1], names[2]);
        texts.Languages = TStringList(names);
        for (TTable& table : texts.Tables)
            table.MoveLanguages({1, 3, 2});
        for (TExtendedItem& item : texts.Extended)
            std::swap(item.Values[1], item.Values[2]);
        file->Put({"", "Main"}, texts);
        Runtime->Files->WriteFile(name, file->Bytes());
        Lang()->LoadAllFromFile(name);
        Model.Languages = texts.Languages;
        EXPECT_EQ(Lang()->GetLangNames(), Model.Languages);
    }
    /// As an older program may have entered it; the update puts it where it belongs.
    void MoveToOtherTable() {
        if (Model.Labels.empty()) return;
        TTable captions = Lang()->GetTable(TStringsType::stCaptions);
        TTable others = Lang()->GetTable(TStringsType::stOtherStrings);
        std::vector<bool> moved(captions.Entries().size());
        const std::size_t entry = Pick(moved.size());
        moved[entry] = true;
        others.Append(captions.Entries()[entry]);
        captions.Remove(moved);
        Lang()->SetTables({captions, others});
    }

    std::mt19937 random_;
    int last_ = 0;
};

TEST_P(TTextlosses, NoTranslationIsLost) {
    for (int i = 0; i < 80 && !HasFatalFailure(); ++i)
        Step();
    EXPECT_FALSE(Model.Texts.empty());
}

INSTANTIATE_TEST_SUITE_P(Seeds, TTextlosses, testing::Range(1U, 7U));

}  // namespace
}  // namespace tml
