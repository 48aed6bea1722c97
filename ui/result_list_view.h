#pragma once

#include "report/result_list.h"
#include "ui/control.h"

namespace tarvik::ui {

/// Shows a result list in a list box.
class ResultListView final : public report::ResultView {
 public:
  explicit ResultListView(ListBox& box) : box_(box) {}

  void Update(const std::vector<std::wstring>& lines, size_t kept, bool selectLast) override;
  size_t Count() const override;
  std::vector<std::wstring> Shown() const override;

 private:
  ListBox& box_;
};

/// Lets the list box scroll sideways to `factor` times the width of its client area.
void SetListExtent(ListBox& box, int16_t factor);

}  // namespace tarvik::ui
