#pragma once

#include <string>

#include "core/Settings.h"
#include "platform/Mlruntime.h"
#include "platform/Toolsapi.h"
#include "scan/Scan.h"

namespace tml {

/// A scan with the user's settings; unit and receiver are still to be taken. common may be nullptr.
TScanInput ScanInputOf(const TSettingValues& settings, ICommonLibrary* common);

/// Takes the text of an open unit, and that of its header.
void TakeUnit(TScanInput& input, IOTAModule& unit);

/// The component that receives a unit's strings.
struct TReceiver {
    TComponentReference Component;
    TTable Existing{TStringsType::stStrings};
};

/// The name of a component that is inserted into a form; of one outside forms for an empty name.
std::string InsertedName(const std::string& className, const std::string& formName);

/// The component of an open form with the strings that it holds; the one that an insertion would create,
/// of the class, where the form has none.
TReceiver ReceiverOf(IMlRuntime& runtime, IOTAModule& form, const std::string& defaultClass);

/// A unit that is not the form's own names the component with its form, whatever the settings say.
void TakeReceiver(TScanInput& input, TReceiver receiver, bool isOwnUnit);

}  // namespace tml
