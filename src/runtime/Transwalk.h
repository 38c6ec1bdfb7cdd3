#pragma once

#include <functional>
#include <utility>

namespace tml {

/// A walk over many texts that shows how far it is and can be stopped.
class TTransWalk {
  public:
    /// goesOn is asked now and then with what has been looked at and how much (all) there is.
    using TGoesOn = std::function<bool(int done, int all)>;
    TTransWalk(int all, TGoesOn goesOn) : goesOn_(std::move(goesOn)), all_(all) {}

    /// To be called for each text; false from the moment on when the walk is to end.
    bool GoesOn() {
        constexpr int kTextsBetweenQuestions = 2000;
        if (++done_ % kTextsBetweenQuestions == 0) isStopped_ = isStopped_ || !goesOn_(done_, all_);
        return !isStopped_;
    }
    bool IsStopped() const { return isStopped_; }

  private:
    TGoesOn goesOn_;
    int all_;
    int done_ = 0;
    bool isStopped_ = false;
};

}  // namespace tml
