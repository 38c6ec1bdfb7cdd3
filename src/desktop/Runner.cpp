#include "desktop/Runner.h"

#include "base/Errors.h"

namespace tml {

bool TRunner::Run(const std::function<void()>& work) {
    bool done = false;
    std::exception_ptr failure;
    try {
        if (Before) Before();
        work();
        done = true;
    } catch (const EmlLangSilent&) {
        // The operation has ended without a message, as it wanted to.
    } catch (const std::exception&) {
        failure = std::current_exception();
    }
    // Before the message: the windows behind it may be those of something that is gone.
    if (After) After();
    if (failure) Tell(failure);
    return done;
}

void TRunner::Tell(const std::exception_ptr& failure) const {
    try {
        std::rethrow_exception(failure);
    } catch (const std::exception& error) {
        if (OnError) OnError(error);
    }
}

}  // namespace tml
