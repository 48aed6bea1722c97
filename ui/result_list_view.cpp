#include "ui/result_list_view.h"

#include "platform/scope_guard.h"

namespace tarvik::ui {

void ResultListView::Update(const std::vector<std::wstring>& lines, size_t kept, bool selectLast) {
  // Only a batch needs the pause: it is painted once.
  const bool pauses = kept == 0 || lines.size() - kept > 1;
  if (pauses) box_.SetRedraw(false);
  const ScopeGuard resume([&] {
    if (pauses) box_.SetRedraw(true);
  });
  if (kept == 0) box_.Clear();
  for (size_t i = kept; i < lines.size(); ++i) box_.AddItem(lines[i]);
  // Not each line as it is added: selecting scrolls, which takes milliseconds even while painting is off.
  if (selectLast) box_.Select(box_.Count() - 1);
}

size_t ResultListView::Count() const { return static_cast<size_t>(box_.Count()); }

std::vector<std::wstring> ResultListView::Shown() const {
  std::vector<std::wstring> lines;
  lines.reserve(Count());
  for (int i = 0; i < box_.Count(); ++i) lines.push_back(box_.Item(i));
  return lines;
}

void SetListExtent(ListBox& box, int16_t factor) { box.SetHorizontalExtent(factor * box.ClientWidth()); }

}  // namespace tarvik::ui
