#include "desktop/Runner.h"

#include "base/Errors.h"

namespace tml {

bool TRunner::Run(const std::function<void()>& work) {
    bool done = false;
    try {
        if (Before) Before();
        work();
        done = true;
    } catch (const EmlLangSilent&) {
        // The operation has ended without a message, as it wanted to.
    } catch (const std::exception& error) {
        if (OnError) OnError(error);
    }
    if (After) After();
    return done;
}

}  // namespace tml
