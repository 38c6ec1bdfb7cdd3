#include "cli/Interrupt.h"

#include <csignal>

namespace tml {
namespace {

volatile std::sig_atomic_t interrupted = 0;

void OnInterrupt(int signal) {
    interrupted = 1;
    std::signal(signal, SIG_DFL);
}

}  // namespace

void WatchInterrupts() {
    std::signal(SIGINT, OnInterrupt);
}

bool Interrupted() {
    return interrupted != 0;
}

}  // namespace tml
