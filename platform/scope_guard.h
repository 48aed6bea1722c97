#pragma once

#include <utility>

namespace tarvik {

/// Calls `action`, which must not throw, when the scope is left in any way. For state that is set and must be
/// restored.
template <typename Action>
class [[nodiscard]] ScopeGuard {
 public:
  explicit ScopeGuard(Action action) : action_(std::move(action)) {}
  ~ScopeGuard() { action_(); }
  ScopeGuard(const ScopeGuard&) = delete;
  ScopeGuard& operator=(const ScopeGuard&) = delete;

 private:
  Action action_;
};

}  // namespace tarvik
