#include "ui/result_list_view.h"

#include <optional>

#include "ui/redraw_pause.h"

namespace tarvik::ui {

void ResultListView::Update(const std::vector<std::wstring>& lines, size_t kept, bool selectLast) {
  // They also differ after a line that the box refused.
  if (static_cast<size_t>(box_.Count()) != kept) kept = 0;
  std::optional<RedrawPause> pause;
  if (kept == 0 || lines.size() - kept > 1) pause.emplace(box_);
  if (kept == 0) box_.Clear();
  for (size_t i = kept; i < lines.size(); ++i) box_.AddItem(lines[i]);
  // The last one only: each selection scrolls, which takes milliseconds though nothing is painted.
  if (selectLast) box_.Select(box_.Count() - 1);
}

void SetListExtent(ListBox& box, int16_t factor) { box.SetHorizontalExtent(factor * box.ClientWidth()); }

}  // namespace tarvik::ui
