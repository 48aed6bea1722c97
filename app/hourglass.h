#pragma once

#include "ui/form.h"

namespace tarvik {

/// The hourglass over the window for as long as it lives.
class Hourglass {
 public:
  explicit Hourglass(ui::Form& form) : form_(form) { form_.SetPointer(ui::Pointer::Hourglass); }
  ~Hourglass() { form_.SetPointer(ui::Pointer::Default); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;

 private:
  ui::Form& form_;
};

}  // namespace tarvik
