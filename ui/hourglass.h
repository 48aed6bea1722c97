#pragma once

#include "ui/form.h"

namespace tarvik::ui {

/// The hourglass over the window for as long as it lives.
class Hourglass {
 public:
  explicit Hourglass(Form& form) : form_(form) { form_.SetPointer(Pointer::Hourglass); }
  ~Hourglass() { form_.SetPointer(Pointer::Default); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;

 private:
  Form& form_;
};

}  // namespace tarvik::ui
