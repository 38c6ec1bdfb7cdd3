// A form file, most often as text.
#include <cstddef>
#include <cstdint>

#include "Formchecks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tml::fuzz::CheckForm(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
