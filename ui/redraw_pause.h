#pragma once

#include "ui/control.h"

namespace tarvik::ui {

/// While it lives the list paints nothing, so that a batch of lines costs one painting.
class RedrawPause {
 public:
  explicit RedrawPause(ListBox& list) : list_(list) { list_.SetRedraw(false); }
  ~RedrawPause() { list_.SetRedraw(true); }
  RedrawPause(const RedrawPause&) = delete;
  RedrawPause& operator=(const RedrawPause&) = delete;

 private:
  ListBox& list_;
};

}  // namespace tarvik::ui
