#pragma once

#include <string>

#include "core/Context.h"
#include "tables/Propertykinds.h"
#include "tables/Texttransfer.h"

namespace tml {

/// Asks for the kinds of properties; only mrOk sets them.
TModalResult PropListDialog(TContext& context, TPropertyKinds& kinds);

/// Asked where a file that exists would get another delimiter; see AskForDelimiter.
inline constexpr const char* kOtherDelimiterOfProperties =
    "The existing delimiter in file differs from new one.\rThis may cause errors in future reading "
    "translation information\rContinue?";

/// EBadInput for the name of a binary file: chosen kinds are saved as text only.
void ExpectTextKind(const std::string& fileName);

/// Puts the kinds of one project form into a text file, in the place of what it holds of them; the form does
/// not change. Nothing for a row without a component.
TTransferReport SavePropsToFile(TContext& context, TFormRow& row, const std::string& fileName,
                                const std::string& delimiter, const TPropertyKinds& kinds);

}  // namespace tml
