#include "cli/Excludecommand.h"

#include <algorithm>
#include <iostream>
#include <map>
#include <memory>
#include <sstream>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "cli/Formoptions.h"
#include "cli/Jsonlines.h"
#include "cli/Shownpath.h"
#include "setup/Exclusionchanges.h"

namespace tml {
namespace {

struct TExcludeOptions : TFormOptions {
    std::vector<std::string> Add;
    std::vector<std::string> Remove;
    std::string List = "ExcludedProperties";
    bool DryRun = false;
    bool Patch = false;
};

std::string CheckListName(const std::string& name) {
    if (ExclusionListOf(name)) return {};
    return "no list of this name: " + name +
           "; there are DoNotTranslate, ExcludedProperties, SmartExcludeProps";
}

std::vector<TExclusionChange> ChangesOf(const TExcludeOptions& options) {
    std::vector<TExclusionChange> changes;
    const TExclusionList list = *ExclusionListOf(options.List);
    for (const std::string& entry : options.Remove)
        changes.push_back({list, entry, false});
    for (const std::string& entry : options.Add)
        changes.push_back({list, entry, true});
    for (const TExclusionChange& change : changes)
        CheckExclusion(change);
    return changes;
}

std::string TextsMatched(int count) {
    if (count == 0) return "matches nothing";
    return Format("%d %s", count, count == 1 ? "text" : "texts");
}

class TExcludeRun {
  public:
    TExcludeRun(TProgram& program, const TExcludeOptions& options)
        : program_(program),
          options_(options),
          changes_(ChangesOf(options)),
          session_(program, options.Project) {}

    int Run() {
        ForEachTmlLang(session_, options_, [this](TFormRow& row, TmlCustomLang& lang) {
            forms_.push_back(ReadExclusionForm(lang, row.FormName, row.FileName));
        });
        if (changes_.empty())
            for (const TExclusionForm& form : forms_)
                PrintLists(form);
        else
            Change();
        return session_.ExitCode();
    }

  private:
    // What there is.

    void PrintLists(const TExclusionForm& form) {
        const std::vector<TExclusionUse> uses = UsesOf(form, form.Lists);
        const std::vector<int> by = ExcludedBy(form, uses);
        int excluded = 0;
        int translated = 0;
        for (std::size_t i = 0; i < by.size(); ++i)
            if (form.Texts[i].IsOffered()) ++(by[i] < 0 ? translated : excluded);
        if (program_.Json)
            TJsonLine(std::cout)
                .Text("kind", "form")
                .Text("form", form.FormName)
                .Number("translated", translated)
                .Number("excluded", excluded);
        else
            std::cout << form.FormName << ": " << TextsCounted(translated) << " translated, " << excluded
                      << " excluded\n";
        for (const TExclusionUse& use : uses)
            PrintUse(form, use);
    }

    static std::string TextsCounted(int count) {
        return Format("%d %s", count, count == 1 ? "text" : "texts");
    }

    void PrintUse(const TExclusionForm& form, const TExclusionUse& use) {
        if (program_.Json)
            TJsonLine(std::cout)
                .Text("kind", "entry")
                .Text("form", form.FormName)
                .Text("list", PropertyOf(use.List))
                .Text("entry", use.Entry)
                .Number("texts", use.Count());
        else
            std::cout << "  " << PropertyOf(use.List) << " " << use.Entry << ": " << TextsMatched(use.Count())
                      << "\n";
    }

    // What is to be.

    void Change() {
        std::map<std::string, TExclusionLists> planned;
        TExclusionEffect total;
        for (const TExclusionForm& form : forms_) {
            const TAddedTo addedTo = options_.Forms.empty() ? TAddedTo::WhereItMatches : TAddedTo::EveryForm;
            TExclusionLists lists = WithChanges(form, form.Lists, changes_, addedTo);
            if (lists == form.Lists) continue;
            total += EffectOf(form, form.Lists, lists);
            Report(form, lists);
            planned.emplace(form.FileName, std::move(lists));
        }
        for (const TExclusionChange& change : changes_)
            ExpectUse(change);
        if (total.Dropped > 0 && !program_.Yes && !options_.DryRun && !options_.Patch)
            throw EBadInput("", 0, EffectText(total), "Say --yes to go on; --dry-run lists the forms");
        if (!options_.DryRun || options_.Patch) Write(planned);
        if (planned.empty() && !forms_.empty() && !program_.Json) report_ << "no form changes\n";
        (options_.Patch ? std::cerr : std::cout) << report_.str();
    }

    /// An entry that is nowhere, or would be of no use anywhere, was meant otherwise.
    void ExpectUse(const TExclusionChange& change) {
        const bool isThere = std::any_of(forms_.begin(), forms_.end(), [&](const TExclusionForm& form) {
            return HasExclusion(form.Lists, change.List, change.Entry) ||
                   (change.Adds && UseOf(form, change.List, change.Entry).Count() > 0);
        });
        if (isThere) return;
        if (!change.Adds)
            throw EBadInput(options_.Project, 0,
                            Format("no form has \"%s\" in %s", change.Entry, PropertyOf(change.List)),
                            "\"tmllang exclude\" without --add and --remove lists the entries");
        if (options_.Forms.empty() && change.List != TExclusionList::SmartExcludeProps)
            throw EBadInput(options_.Project, 0, Format("\"%s\" matches nothing in any form", change.Entry),
                            UseElsewhere(change));
    }

    /// What would do instead.
    std::string UseElsewhere(const TExclusionChange& change) const {
        const std::string component = "!" + change.Entry;
        const bool isComponent = std::any_of(forms_.begin(), forms_.end(), [&](const TExclusionForm& form) {
            return UseOf(form, change.List, component).Count() > 0;
        });
        return isComponent ? Format("The component of this name is '%s'", component)
                           : "Name forms with --form to add it all the same";
    }

    void Write(const std::map<std::string, TExclusionLists>& planned) {
        if (planned.empty()) return;
        TFormOptions forms = options_;
        forms.Forms.clear();
        for (const TExclusionForm& form : forms_)
            if (planned.count(form.FileName) > 0) forms.Forms.push_back(form.FormName);
        const auto scope = session_.Modules().BeginCommand("Exclude from Translation");
        ChangeEachTmlLang(
            session_, forms, "Exclude from Translation",
            [&](TFormRow& row, TmlCustomLang& lang) { WriteExclusions(lang, planned.at(row.FileName)); });
        if (options_.Patch) {
            std::cout << scope->Patch();
            return;
        }
        scope->Commit();
        program_.HasWritten = true;
    }

    void Report(const TExclusionForm& form, const TExclusionLists& lists) {
        const TExclusionEffect effect = EffectOf(form, form.Lists, lists);
        if (program_.Json) {
            if (options_.Patch) return;
            TJsonLine(report_)
                .Text("form", form.FormName)
                .Number("leave", effect.Leave)
                .Number("comeBack", effect.ComeBack)
                .Number("dropped", effect.Dropped);
            return;
        }
        const std::string text = EffectText(effect);
        report_ << form.FormName << ": " << (text.empty() ? "no text is concerned" : text) << "\n";
        for (const TExclusionChange& change : changes_)
            if (change.Adds && HasExclusion(lists, change.List, change.Entry) &&
                UseOf(form, change.List, change.Entry).Count() == 0)
                report_ << form.FormName << ": " << change.Entry << " matches nothing\n";
    }

    TProgram& program_;
    const TExcludeOptions& options_;
    std::vector<TExclusionChange> changes_;
    TSession session_;
    std::vector<TExclusionForm> forms_;
    std::ostringstream report_;
};

}  // namespace

void AddExcludeCommand(CLI::App& app, TProgram& program) {
    const auto options = std::make_shared<TExcludeOptions>();
    CLI::App* command =
        AddFormOptions(AddCommand(app, "exclude", "List what is excluded from translation, and change it",
                                  "  tmllang exclude Orchard.dproj\n"
                                  "  tmllang exclude Orchard.dproj --add TEdit --add .Hint --dry-run\n"
                                  "  tmllang exclude Orchard.dproj --form MainForm --remove '!btnOK'\n"
                                  "  tmllang exclude Orchard.dproj --list SmartExcludeProps --add Path"),
                       *options);
    command
        ->add_option("--add", options->Add,
                     "Add an entry, to the forms in which it matches a text or to those that --form names; "
                     "may be repeated")
        ->allow_extra_args(false);
    command->add_option("--remove", options->Remove, "Remove an entry; may be repeated")
        ->allow_extra_args(false);
    command
        ->add_option("--list", options->List,
                     "The list that is meant: DoNotTranslate, ExcludedProperties (the default), "
                     "SmartExcludeProps")
        ->check(CLI::Validator(CheckListName, ""));
    command->add_flag("--dry-run", options->DryRun, "Tell what would change; write nothing");
    command->add_flag("--patch", options->Patch, "Print the change for git apply; write nothing");
    command->callback([&program, options] {
        program.Run = [options](TProgram& shared) { return TExcludeRun(shared, *options).Run(); };
    });
}

}  // namespace tml
