#pragma once

#include <exception>
#include <functional>
#include <stdexcept>

namespace tml {

/// The one way by which clicks and keys reach the system: no exception passes into the toolkit, and every
/// window is brought up to date afterwards.
class TRunner {
  public:
    std::function<void()> Before;                        ///< what has been typed goes to the buffers
    std::function<void()> After;                         ///< the windows follow
    std::function<void(const std::exception&)> OnError;  ///< tells the person

    /// False when the work has thrown.
    bool Run(const std::function<void()>& work);

  private:
    void Tell(const std::exception_ptr& failure) const;
};

}  // namespace tml
