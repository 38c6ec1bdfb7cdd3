#pragma once

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace tml {

/// Registered notifiers under indexes that are never used again.
template <typename Notifier>
class TNotifierList {
  public:
    int Add(std::shared_ptr<Notifier> notifier) {
        notifiers_.emplace(next_, std::move(notifier));
        return next_++;
    }
    /// Nothing for an unknown index.
    void Remove(int index) { notifiers_.erase(index); }
    void Clear() { notifiers_.clear(); }

    /// Calls each notifier that was registered when the walk began, in order; one that throws does not keep
    /// the others from being called.
    template <typename Call>
    void Tell(Call call) const {
        std::vector<std::shared_ptr<Notifier>> copy;
        for (const auto& [index, notifier] : notifiers_)
            copy.push_back(notifier);
        for (const std::shared_ptr<Notifier>& notifier : copy)
            try {
                call(*notifier);
            } catch (const std::exception&) {
                // A notification must never interrupt the operation that it tells of.
            }
    }

  private:
    std::map<int, std::shared_ptr<Notifier>> notifiers_;
    int next_ = 0;
};

}  // namespace tml
