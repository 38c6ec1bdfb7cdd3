#pragma once

#include <deque>
#include <functional>

namespace tml {

/// Lets notifications from outside wait while a command runs. What the command itself causes (it opens a
/// file) is passed on at once.
class TCommandGate {
  public:
    /// A command runs while it lives; the last one to end runs what has waited.
    class TCommand {
      public:
        explicit TCommand(TCommandGate& gate) : gate_(gate) { ++gate_.commands_; }
        ~TCommand();
        TCommand(const TCommand&) = delete;
        TCommand& operator=(const TCommand&) = delete;

      private:
        TCommandGate& gate_;
    };

    /// The command calls the IDE while it lives.
    class TOwnCall {
      public:
        explicit TOwnCall(TCommandGate& gate) : gate_(gate) { ++gate_.ownCalls_; }
        ~TOwnCall() { --gate_.ownCalls_; }
        TOwnCall(const TOwnCall&) = delete;
        TOwnCall& operator=(const TOwnCall&) = delete;

      private:
        TCommandGate& gate_;
    };

    /// Runs the notification, now or when the command has ended. It must not throw.
    void Pass(std::function<void()> notification);

  private:
    int commands_ = 0;
    int ownCalls_ = 0;
    std::deque<std::function<void()>> waiting_;
};

}  // namespace tml
