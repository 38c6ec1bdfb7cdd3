#pragma once

#include <string>

#include "core/Insertion.h"
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

/// The component of an open form, there or planned, with the strings that it and its ancestors hold.
TReceiver ReceiverOf(IOTAModule& form, const TLangPlan& plan);
/// The same where one of the class is planned. A form that takes none has its strings found all the same.
TReceiver ReceiverOf(IMlRuntime& runtime, IOTAModule& form, const std::string& defaultClass);

/// What the string tables of a form that shares the component name is taken for the receiver too: code of one
/// runs in the other.
void TakeRelative(TReceiver& receiver, IMlRuntime& runtime, IOTAModule& form);

/// A unit that is not the form's own names the component with its form, whatever the settings say.
void TakeReceiver(TScanInput& input, TReceiver receiver, bool isOwnUnit);

}  // namespace tml
