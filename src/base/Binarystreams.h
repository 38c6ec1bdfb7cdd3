#pragma once

namespace tml {

/// Lets standard input and output carry bytes as they are; on some systems line ends would be converted.
void MakeStreamsBinary();

}  // namespace tml
