#include "app/result_list.h"

#include "platform/text.h"
#include "ui/redraw_pause.h"

namespace tarvik {
namespace {

constexpr int kMostLines = 1000;

}  // namespace

void ResultList::AddToList(const std::wstring& text) {
  // Emptied whole, not rolled: a long series of tests starts over with an empty list.
  if (box_.Count() > kMostLines) ClearList();
  box_.AddItem(text);
  box_.Select(box_.Count() - 1);
}

void ResultList::AddLinesToList(const std::wstring& text) {
  AddBatch(Split(text, L"\r\n"));
}

void ResultList::AddBatch(const std::vector<std::wstring>& lines) {
  const ui::RedrawPause pause(box_);
  for (const std::wstring& line : lines) AddToList(line);
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
  for (const std::wstring& piece : Split(text, L"\r")) box_.AddItem(piece.starts_with(L'\n') ? piece.substr(1) : piece);
}

void SetListExtent(ui::ListBox& box, int16_t factor) { box.SetHorizontalExtent(factor * box.ClientWidth()); }

}  // namespace tarvik
