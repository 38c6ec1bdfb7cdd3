// A form file in its binary kind: what does not begin like one is put behind the mark of one.
#include <cstddef>
#include <cstdint>

#include "Formchecks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string bytes(reinterpret_cast<const char*>(data), size);
    const bool marked = bytes.rfind("TPF0", 0) == 0 || bytes.rfind("\xFF\n", 0) == 0;
    tml::fuzz::CheckForm(marked ? bytes : "TPF0" + bytes);
    return 0;
}
