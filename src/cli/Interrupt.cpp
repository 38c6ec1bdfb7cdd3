#include "cli/Interrupt.h"

#include <csignal>

namespace tml {
namespace {

volatile std::sig_atomic_t interrupted = 0;

/// Ctrl+C, the end asked for by a program such as timeout, and the terminal that is closed.
constexpr int kSignals[] = {
    SIGINT,
    SIGTERM,
#ifdef SIGHUP
    SIGHUP,
#endif
};

void OnInterrupt(int signal) {
    interrupted = 1;
    std::signal(signal, SIG_DFL);
}

}  // namespace

void WatchInterrupts() {
    for (const int signal : kSignals)
        // What the caller has ignored (nohup) stays so.
        if (std::signal(signal, OnInterrupt) == SIG_IGN) std::signal(signal, SIG_IGN);
}

bool Interrupted() {
    return interrupted != 0;
}

}  // namespace tml
