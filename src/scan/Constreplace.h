#pragma once

#include <memory>
#include <string>

#include "core/Context.h"
#include "scan/Constrewrite.h"

namespace tml {

/// The message when a unit has no string constants, and the one when they have been replaced.
std::string NoConstsMessage(const std::string& unitFile);
inline constexpr std::string_view kConstsReplaced =
    "Source file translated. All string constants added to \"Strings\" property.\r\nYou need to change CONST "
    "to VAR declaration or turn ON \"Assignable typed constants\" compiler option!";

/// What a run over the const sections of one unit does its own way.
class TConstRun {
  public:
    /// formName is that of the open form; formUnit its unit's file.
    TConstRun(TContext& context, const TScanInput& input, std::string formName, std::string formUnit);

    TScanResult Scan();
    /// To be called when rows have taken the IDs of other strings.
    void FetchAnew(TmlFoundSourceStrings& rows) const { tml::FetchAnew(rows, input_, records_); }
    /// The call of one row in the style.
    std::string CallOf(const TmlFoundSourceString& row, const TCallStyle& style) const {
        return tml::CallOf(row, style, records_);
    }
    /// Adds all but the strings to the change set, proven. text is what was scanned.
    void Plan(const TmlFoundSourceStrings& kept, const std::shared_ptr<const std::string>& text,
              TChangeSet& changes) const;

  private:
    TContext& context_;
    std::string formName_;
    std::string formUnit_;
    TConstInput input_;
    std::vector<TStrRec> records_;
};

}  // namespace tml
