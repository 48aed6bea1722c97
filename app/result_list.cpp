#include "app/result_list.h"

#include "platform/text.h"

namespace tarvik {
namespace {

constexpr int kMostLines = 1000;

/// Nothing of the list is painted for as long as it lives.
class Unpainted {
 public:
  explicit Unpainted(ui::ListBox& box) : box_(box) { box_.SetRedraw(false); }
  ~Unpainted() { box_.SetRedraw(true); }
  Unpainted(const Unpainted&) = delete;
  Unpainted& operator=(const Unpainted&) = delete;

 private:
  ui::ListBox& box_;
};

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
  const Unpainted unpainted(box_);
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
  const Unpainted unpainted(box_);
  for (const std::wstring& piece : Split(text, L"\r")) box_.AddItem(piece.starts_with(L'\n') ? piece.substr(1) : piece);
}

void SetListExtent(ui::ListBox& box, int16_t factor) { box.SetHorizontalExtent(factor * box.ClientWidth()); }

}  // namespace tarvik
