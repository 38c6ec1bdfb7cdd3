#include "cli/Setcommand.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <sstream>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "cli/Formoptions.h"
#include "cli/Jsonlines.h"
#include "cli/Statenames.h"
#include "cli/Terminal.h"
#include "tables/Textedits.h"
#include "tables/Textmerge.h"

namespace tml {
namespace {

struct TSetOptions : TFormOptions {
    std::string Form;
    std::string Table;  ///< "" for any
    std::string Key;
    std::string Language;
    std::string Text;
    bool HasText = false;
    std::string State;  ///< "" for what follows from the text
};

/// What is wrong with the name of a table, "" for nothing.
std::string CheckTable(const std::string& name) {
    std::string names;
    for (const TTableKind& kind : kTableKinds) {
        if (SameText(kind.Property, name)) return {};
        names += (names.empty() ? "" : ", ") + std::string(kind.Property);
    }
    return "no table of this name: " + name + "; there are " + names;
}

/// Where a text stands.
struct TTextPlace {
    TTable Table;
    int Entry;
};

/// Names in keys are matched without case.
int FindEntry(const TTable& table, const std::string& key) {
    if (const int exact = table.Find(key); exact >= 0) return exact;
    const auto& entries = table.Entries();
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const auto& entry) { return SameText(entry.Key, key); });
    return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

TTextPlace FindText(TmlCustomLang& lang, const TFormRow& row, const TSetOptions& options) {
    std::vector<TTextPlace> found;
    for (TTable& table : lang.GetTables()) {
        const bool isMeant = options.Table.empty() || SameText(KindOf(table.Type()).Property, options.Table);
        const int entry = isMeant ? FindEntry(table, options.Key) : -1;
        if (entry >= 0) found.push_back({std::move(table), entry});
    }
    if (found.empty())
        throw EBadInput(row.FileName, 0, "the form has no text " + options.Key,
                        "\"tmllang texts\" lists the keys; \"tmllang update\" brings new texts in");
    if (found.size() > 1)
        throw EBadInput(row.FileName, 0, options.Key + " stands in more than one table",
                        Format("Name it with --table: %s or %s", KindOf(found[0].Table.Type()).Property,
                               KindOf(found[1].Table.Type()).Property));
    return std::move(found.front());
}

/// The entry as the options want it.
TTableEntry Edited(const TTextPlace& text, const TFormRow& row, const TSetOptions& options, int place) {
    const bool hasStates = HasStates(text.Table.Type());
    TTableEntry entry = text.Table.Entries()[static_cast<std::size_t>(text.Entry)];
    if (options.HasText) entry = WithText(entry, place, WithLineBreaksOf(entry, options.Text), hasStates);
    if (options.State.empty()) return entry;
    if (place == 1 || !hasStates)
        throw EBadInput(row.FileName, 0, "a base text and a setting have no state", "Leave out --state");
    entry = WithState(entry, place, TextStateOf(options.State));
    if (NameOf(StateOf(entry, place)) != options.State)
        throw EBadInput(row.FileName, 0, Format("the text of %s cannot be %s", entry.Key, options.State),
                        "An empty text is missing, one that differs from the base text is not");
    return entry;
}

void Print(const TProgram& program, const TFormRow& row, const TTextPlace& text, const TTableEntry& entry,
           int place, std::ostream& report) {
    const std::string_view table = KindOf(text.Table.Type()).Property;
    const bool hasState = place > 1 && HasStates(text.Table.Type());
    const std::string& value = entry.Values[static_cast<std::size_t>(place) - 1].Text;
    const std::string_view state = hasState ? NameOf(StateOf(entry, place)) : std::string_view();
    if (!program.Json) {
        report << row.FormName << " " << table << " " << entry.Key << ": " << ExactOnOneLine(value)
               << (hasState ? Format(" (%s)", state) : "") << "\n";
        return;
    }
    TJsonLine line(report);
    line.Text("form", row.FormName).Text("table", table).Text("key", entry.Key).Text("text", value);
    if (hasState) line.Text("state", state);
}

int RunSet(TProgram& program, TSetOptions options) {
    if (!options.HasText && options.State.empty())
        throw EBadInput("", 0, "there is nothing to set", "Give a text, --state or both");
    options.Forms = {options.Form};
    TSession session(program, options.Project);
    std::ostringstream report;
    ChangeEachTmlLang(session, options, "Set", [&](TFormRow& row, TmlCustomLang& lang) {
        const int place = PlaceOfLanguage(lang, row, options.Language);
        TTextPlace text = FindText(lang, row, options);
        const TTableEntry entry = Edited(text, row, options, place);
        text.Table.SetValues(text.Entry, entry.Values);
        lang.EditTables({text.Table});
        Print(program, row, text, entry, place, report);
    });
    program.HasWritten = true;
    std::cout << report.str();
    return session.ExitCode();
}

}  // namespace

void AddSetCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TSetOptions>();
    CLI::App* command =
        AddCommand(app, "set", "Set one text of a translation table, or its state",
                   "  tmllang set Orchard.dproj --form MainForm --key btnOK.Caption --language German Gut\n"
                   "  tmllang set Orchard.dproj --form MainForm --key IDS_0 --language German --state done");
    command->add_option("PROJECT", options->Project, "A project file")->required();
    command->add_option("TEXT", options->Text, "The text; \"\" for none")
        ->each([options](const std::string&) { options->HasText = true; });
    command->add_option("--form", options->Form, "Name of the form")->required();
    command->add_option("--key", options->Key, "Key of the text, or a string ID")->required();
    command
        ->add_option("--language", options->Language, "The language; the base language's text is the form's")
        ->required();
    command->add_option("--table", options->Table, "The table, where a key stands in more than one")
        ->check(CLI::Validator(CheckTable, ""));
    command->add_option("--state", options->State, "State of the translation: missing, stale, touched, done")
        ->check(CLI::Validator(CheckStateName, ""));
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return RunSet(shared, *options); };
    });
}

}  // namespace tml
