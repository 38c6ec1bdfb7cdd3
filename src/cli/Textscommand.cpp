#include "cli/Textscommand.h"

#include <algorithm>
#include <iostream>
#include <memory>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "cli/Formoptions.h"
#include "cli/Jsonlines.h"
#include "cli/Statenames.h"
#include "cli/Terminal.h"
#include "tables/States.h"
#include "tables/Textmerge.h"

namespace tml {
namespace {

struct TTextsOptions : TFormOptions {
    std::vector<std::string> States;
    std::string Language;
};

/// The places of the languages whose state decides which entries are listed.
std::vector<int> PlacesToCheck(const TTextsOptions& options, const TStringList& names, const TFormRow& row) {
    if (options.Language.empty()) {
        std::vector<int> places;
        for (int place = 2; place <= names.Count(); ++place)
            places.push_back(place);
        return places;
    }
    const int index = names.IndexOf(options.Language);
    if (index >= 0) return {index + 1};
    throw EBadInput(row.FileName, 0, "the form has no language " + options.Language,
                    "It has " + names.CommaText());
}

class TTextsList {
  public:
    TTextsList(const TProgram& program, const TTextsOptions& options)
        : program_(program), options_(options) {}

    void Print(const TFormRow& row, TmlCustomLang& lang) {
        const TStringList names = lang.GetLangNames();
        const std::vector<int> places = PlacesToCheck(options_, names, row);
        for (const TTable& table : lang.GetTables())
            for (const TTableEntry& entry : table.Entries())
                if (IsWanted(entry, table.Type(), places))
                    Print(row, KindOf(table.Type()), entry, names.Count());
    }

  private:
    /// Settings have no state.
    bool IsWanted(const TTableEntry& entry, TStringsType type, const std::vector<int>& places) const {
        if (options_.States.empty()) return true;
        return HasStates(type) && std::any_of(places.begin(), places.end(), [&](int place) {
                   return std::find(options_.States.begin(), options_.States.end(),
                                    NameOf(StateOf(entry, place))) != options_.States.end();
               });
    }

    void Print(const TFormRow& row, const TTableKind& kind, const TTableEntry& entry, int languages) const {
        std::vector<std::string> values;
        std::vector<std::string> states;
        std::vector<std::string> former;
        for (const TTableValue& value : entry.Values)
            values.push_back(value.Text);
        for (int place = 2; HasStates(kind.Type) && place <= languages; ++place) {
            states.emplace_back(NameOf(StateOf(entry, place)));
            former.push_back(FormerBase(entry, place));
        }
        if (program_.Json)
            TJsonLine(std::cout)
                .Text("form", row.FormName)
                .Text("table", kind.Property)
                .Text("key", entry.Key)
                .Texts("values", values)
                .Texts("states", states)
                .Texts("former", former);
        else
            PrintLine(row, kind, entry, states);
    }

    /// The base text that the translation was made for, "" for one that is not in doubt.
    static std::string FormerBase(const TTableEntry& entry, int place) {
        const auto index = static_cast<std::size_t>(place) - 1;
        const bool isInDoubt = index < entry.Values.size() && IsInDoubt(entry.Values[index]);
        return isInDoubt ? entry.Values[index].Former : std::string();
    }

    static std::string FormerShown(const TTableValue& value) {
        return IsInDoubt(value) ? ", for '" + ExactOnOneLine(value.Former) + "'" : std::string();
    }

    static void PrintLine(const TFormRow& row, const TTableKind& kind, const TTableEntry& entry,
                          const std::vector<std::string>& states) {
        std::cout << row.FormName << " " << kind.Property << " " << entry.Key;
        for (std::size_t i = 0; i < entry.Values.size(); ++i) {
            std::cout << (i == 0 ? ": " : " | ") << ExactOnOneLine(entry.Values[i].Text);
            if (i > 0 && i <= states.size() && states[i - 1] != "done")
                std::cout << " (" << states[i - 1] << FormerShown(entry.Values[i]) << ")";
        }
        std::cout << "\n";
    }

    const TProgram& program_;
    const TTextsOptions& options_;
};

int RunTexts(TProgram& program, const TTextsOptions& options) {
    TSession session(program, options.Project);
    TTextsList list(program, options);
    ForEachTmlLang(session, options, [&](TFormRow& row, TmlCustomLang& lang) { list.Print(row, lang); });
    return session.ExitCode();
}

}  // namespace

void AddTextsCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TTextsOptions>();
    CLI::App* command =
        AddFormOptions(AddCommand(app, "texts", "List the entries of the translation tables",
                                  "  tmllang texts Orchard.dproj --json\n"
                                  "  tmllang texts Orchard.dproj --state missing,stale --language German"),
                       *options);
    command
        ->add_option("--state", options->States, "Only texts in these states: missing, stale, touched, done")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(CLI::Validator(CheckStateName, ""));
    command->add_option("--language", options->Language,
                        "Whose state --state means, instead of any language's");
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return RunTexts(shared, *options); };
    });
}

}  // namespace tml
