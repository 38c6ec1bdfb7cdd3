#pragma once

#include <functional>
#include <memory>

namespace tml {

class IDictionaryTool;

/// What the dictionary command remembers: the tool that it has created.
struct TDictionaryMemory {
    /// Creates the external tool; empty, or nullptr from it, where there is none.
    std::function<std::shared_ptr<IDictionaryTool>()> CreateExternalTool;
    std::shared_ptr<IDictionaryTool> Tool;
};

}  // namespace tml
