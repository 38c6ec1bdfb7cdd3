#include "core/Gate.h"

namespace tml {

TCommandGate::TCommand::~TCommand() {
    // The count stays up while the waiting ones run, so that what they cause queues behind them.
    while (gate_.commands_ == 1 && !gate_.waiting_.empty()) {
        const auto notification = std::move(gate_.waiting_.front());
        gate_.waiting_.pop_front();
        notification();
    }
    --gate_.commands_;
}

void TCommandGate::Pass(std::function<void()> notification) {
    if (commands_ > 0 && ownCalls_ == 0)
        waiting_.push_back(std::move(notification));
    else
        notification();
}

}  // namespace tml
