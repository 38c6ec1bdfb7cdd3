#pragma once

#include <string>
#include <vector>

#include "platform/Mlcommon.h"
#include "runtime/Transtexts.h"
#include "runtime/Transwalk.h"

namespace tml {

enum class TTransShow { All, Missing, Stale, SameAsBase };

/// Which entries a person wants to see.
struct TTransFilter {
    TTransShow Show = TTransShow::All;  ///< Stale takes touched texts in
    std::string Language = {};          ///< whose texts Show looks at, "" for any
    std::string Text = {};              ///< what a key or a text holds, without regard to case; "" for all
    bool IsPattern = false;             ///< Text is a regular expression

    bool operator==(const TTransFilter&) const = default;
};

/// What of the forms is looked at: all of them, a form, or one table (0-based, -1 for all).
struct TTransScope {
    int Form = -1;
    int Table = -1;

    bool operator==(const TTransScope&) const = default;
};

/// Whether it takes the table in; index: as the texts count tables.
bool IsIn(const TTransTable& table, const TTransScope& scope, int index);

/// A filter ready to be asked. It must not outlive what it is given.
class TTransSieve {
  public:
    /// library may be nullptr where the text is no pattern.
    TTransSieve(const TTransFilter& filter, const TTransTexts& texts, ICommonLibrary* library);

    /// withForm: the form's name stands before the key.
    bool Passes(TTransRow row, bool withForm = false) const;
    /// A pattern that cannot be read lets nothing pass.
    bool IsBroken() const { return isBroken_; }

  private:
    bool CannotRead(const std::string& pattern) const;
    bool IsShown(TTransRow row) const;
    bool IsShown(TTransRow row, int column) const;
    bool Holds(const std::string& text) const;

    const TTransFilter& filter_;
    const TTransTexts& texts_;
    ICommonLibrary* library_;
    std::string sought_;        ///< folded, or the pattern for a whole text
    std::vector<int> columns_;  ///< that Show looks at
    bool isBroken_ = false;
};

/// The entries of the scope that pass, in the order of tables and entries; what the walk has not come to when
/// it is stopped is left out.
std::vector<TTransRow> FilteredRows(const TTransTexts& texts, const TTransScope& scope,
                                    const TTransSieve& sieve, const TTransWalk::TGoesOn& goesOn);

}  // namespace tml
