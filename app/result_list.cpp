#include "app/result_list.h"

#include "platform/text.h"
#include "ui/redraw_pause.h"

namespace tarvik {
namespace {

constexpr size_t kMostLines = 1000;

}  // namespace

void ResultList::AddToList(const std::wstring& text) {
  // Emptied whole, not rolled: a long series of tests starts over with an empty list.
  if (static_cast<size_t>(box_.Count()) > kMostLines) ClearList();
  box_.AddItem(text);
  box_.Select(box_.Count() - 1);
}

void ResultList::AddLinesToList(const std::wstring& text) { AddBatch(Split(text, L"\r\n")); }

void ResultList::AddBatch(const std::vector<std::wstring>& lines) {
  if (lines.empty()) return;
  const ui::RedrawPause pause(box_);
  // Lines that would be cleared again before anybody sees them are not added at all.
  size_t first = 0;
  for (size_t held = static_cast<size_t>(box_.Count()), i = 0; i < lines.size(); ++i, ++held) {
    if (held <= kMostLines) continue;
    held = 0;
    first = i;
    ClearList();
  }
  for (size_t i = first; i < lines.size(); ++i) box_.AddItem(lines[i]);
  // The last one only: each selection scrolls, which takes milliseconds though nothing is painted.
  box_.Select(box_.Count() - 1);
}

void ResultList::ClearList() { box_.Clear(); }

std::wstring ResultList::AllLines() const {
  std::wstring text;
  for (int i = 0; i < box_.Count(); ++i) text += box_.Item(i) + L"\r\n";
  return text;
}

void ResultList::ShowPasted(const std::wstring& text) {
  box_.Clear();
  const ui::RedrawPause pause(box_);
  for (const std::wstring& piece : Split(text, L"\r"))
    box_.AddItem(piece.starts_with(L'\n') ? piece.substr(1) : piece);
}

void SetListExtent(ui::ListBox& box, int16_t factor) { box.SetHorizontalExtent(factor * box.ClientWidth()); }

}  // namespace tarvik
