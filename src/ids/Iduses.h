#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ids/Idforms.h"

namespace tml {

enum class TIDUseKind : std::uint8_t { Unused, Used, Undecidable };

/// Why it cannot be decided whether an ID is used.
enum class TIDDoubt : std::uint8_t {
    None,
    SwitchedOff,     ///< it is asked for in code that a directive can switch off
    OtherComponent,  ///< it is asked for through another form's component, or one that cannot be told
    BuiltID,         ///< an ID that is put together at run time may be it
    UnreadUnit,      ///< a unit of the project cannot be read
};

/// Whether anything in the project asks for an ID, and the place that decides it.
struct TIDUse {
    TIDUseKind Kind = TIDUseKind::Unused;
    TIDDoubt Doubt = TIDDoubt::None;
    std::string FileName;   ///< "" for Unused
    int Line = 0;           ///< 1-based, 0 for a form file
    std::string AskedForm;  ///< whose component is asked, "" where that cannot be told

    /// "unused", "used", "undecidable"
    std::string_view Word() const;
    /// "built-id" and so on, "" without a doubt
    std::string_view Reason() const;
    /// For a person: "used in Unit2.pas:17"
    std::string Text() const;
};

/// All that asks for texts by ID in a project.
class TIDUses {
  public:
    explicit TIDUses(const TFormRows& rows) : forms_(rows) {}

    /// Takes the calls of a text. formName is that of the unit's form, "" without one.
    void Add(const std::string& fileName, const std::string& formName, const TSourceText& source);
    /// Takes an ID that a component in a form's file asks for of another one, by reference.
    void AddReference(const std::string& fileName, const std::string& formName, const std::string& reference,
                      const std::string& id);
    void AddLink(const std::string& formName, const std::string& containerForm) {
        forms_.AddLink(formName, containerForm);
    }
    /// The file cannot be read: nothing is unused any more.
    void AddUnread(const std::string& fileName);

    const TIDForms& Forms() const { return forms_; }
    TIDUse UseOf(const std::string& formName, std::string_view id) const;
    /// Everything that asks for the ID, or may do so, in the order in which it was taken: uses without a
    /// doubt and doubts.
    std::vector<TIDUse> UsesOf(const std::string& formName, std::string_view id) const;

  private:
    struct TCall {
        std::string FileName;
        int Line = 0;
        std::string Form;  ///< whose component is asked, upper-cased; "" where that cannot be told
        bool IsOptional = false;
    };

    /// The first call on each of the forms that may put the ID together at run time.
    std::vector<const TCall*> FindBuilt(const std::unordered_set<std::string>& askers,
                                        const std::string& id) const;

    TIDForms forms_;
    std::unordered_map<std::string, std::vector<TCall>> whole_;  ///< by upper-cased ID
    /// By form and by what the upper-cased ID begins with, the first call of each.
    std::unordered_map<std::string, std::unordered_map<std::string, TCall>> built_;
    std::string unread_;
};

}  // namespace tml
