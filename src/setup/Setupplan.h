#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Errors.h"
#include "base/Stringlist.h"
#include "core/Context.h"
#include "forms/Formvalue.h"
#include "setup/Exclusionlists.h"
#include "setup/Setupstrings.h"

namespace tml {

/// What forms are to be set up with.
struct TSetupWishes {
    std::string ComponentClass;     ///< of components that are inserted
    std::string ComponentName;      ///< "%s" stands for the form's name; "" names them by class and form
    TStringList Languages;          ///< in order, base language first
    bool GivesUpLanguages = false;  ///< a component may lose languages that it has and the list has not
    std::string DispatcherForm;     ///< whose dispatcher the components are linked to, "" for none
    std::string ContainerForm;      ///< whose component is the others' common container, "" for none
    TExclusionLists Exclusions;     ///< to be added to those that the components have
    TStringList Properties;         ///< further ones, "Name=Value"; see FurtherProperties
    bool MovesStrings = false;      ///< from the source of the forms' units into the components
    bool AddsPackage = false;       ///< the project is to require the package of the components
};

/// What the user's settings and those of the project propose.
TSetupWishes DefaultWishes(TContext& context);
/// The list that an entry belongs to where nobody says: smart rules go by their names; "!X", a name with a
/// dot and one that begins as a class does ("TEdit") are excluded properties; any other is a component.
TExclusionList ListOfExclusion(std::string_view entry);

/// What will be done to a form.
struct TFormSetup {
    std::string FormName;
    std::string FileName;  ///< of the unit
    std::string Problem;   ///< why it is left as it is, with the place; "" where it is ready
    std::string Reason;    ///< the same, with what is wrong before the place
    TStringList Remarks;   ///< what is other than was wished for

    std::string Component;  ///< there or to be inserted
    std::string ClassName;
    TStringList Languages;  ///< that its component has, none where there is none
    bool Inserts = false;
    std::string Ancestor;        ///< the form that it has the component from, "" for one of its own
    bool SetsLanguages = false;  ///< those of its component
    std::string OwnDispatcher;   ///< name of the one that it holds or gets for all, "" for none
    bool InsertsDispatcher = false;
    bool SetsDispatcher = false;  ///< the languages of that one
    std::string Dispatcher;       ///< reference to what its component is to be linked to, "" for nothing
    std::string Container;        ///< reference to the common container that it is to have, "" for none
    TExclusionLists Exclusions;   ///< to be added
    int Dropped = 0;              ///< translations of what is excluded then
    TStringList GivenUp;          ///< "German with 2 texts": languages that its component loses
    int LostTexts = 0;            ///< of those
    std::vector<TFormProperty> Properties;  ///< to be set
    bool FillsTables = false;               ///< they are not what the form shows, or will not be
    std::optional<TSetupStrings> Strings;   ///< found in the unit, where they have been looked for
    std::string Declaration;                ///< file that declares what is inserted, "" for nothing
    std::string FormFile;

    bool IsReady() const { return Problem.empty(); }
    void Refuse(const EBadInput& error);
    int CountTaken() const;
};

/// What a run will do, form by form, ancestors before their descendants.
struct TSetupPlan {
    TSetupWishes Wishes;
    std::vector<TFormSetup> Forms;
    std::string PackageProject;  ///< file of the project that gets the package, "" for none
    TStringList Remarks;         ///< on the whole
    TStringList Meaningless;     ///< exclusions that leave nothing out, which are not entered

    int CountReady() const;
    /// What will change in a form, a line each; none for one that is set up already.
    TStringList StepsOf(const TFormSetup& form) const;
    bool Changes(const TFormSetup& form) const { return form.IsReady() && !StepsOf(form).Empty(); }
    /// Whether a run would change anything.
    bool HasWork() const;
    /// What is lost, for a question; "" for nothing.
    std::string LossText() const;
    /// What has been done to a form whose run has moved so many strings.
    TStringList DoneTo(TFormSetup form, int moved) const;
    /// The files of a form that change, full paths; none where it does not.
    std::vector<std::string> FilesOf(const TFormSetup& form) const;
    /// The plan of a form for people.
    std::string TextOf(const TFormSetup& form) const;
    /// What is of no single form, for people.
    std::string Head() const;
    /// The whole plan for people, without forms that do not change.
    std::string Text() const;
};

/// Plans for the rows, and for those that hold dispatcher and common container. Nothing is changed; each
/// form is read once, and closed again unless it was open. EBadInput for wishes that fit no form;
/// EmlLangSilent when the person stops it.
TSetupPlan PlanSetup(TContext& context, const std::vector<TFormRow*>& rows, const TSetupWishes& wishes);

}  // namespace tml
