#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ui/control.h"

namespace tarvik {

/// The list of plain lines into which every test reports. It keeps nothing but what the list box shows.
class ResultList {
 public:
  explicit ResultList(ui::ListBox& box) : box_(box) {}

  /// Appends one line and selects it. A list that holds more than 1000 lines is emptied first.
  void AddToList(const std::wstring& text);

  /// Appends each piece between line breaks ("\r\n") as a line; an empty text is one empty line.
  void AddLinesToList(const std::wstring& text);

  /// Appends the lines as if AddToList did it one by one, but scrolls and paints once.
  void AddBatch(const std::vector<std::wstring>& lines);

  void ClearList();

  /// All lines, each followed by "\r\n".
  std::wstring AllLines() const;

  /// Shows a text that was copied from a result list: empties the list, splits at "\r" and drops a "\n" at
  /// the start of each piece. No limit on the lines, nothing is selected.
  void ShowPasted(const std::wstring& text);

 private:
  ui::ListBox& box_;
};

/// Lets the list box scroll sideways over `factor` times the width of its client area.
void SetListExtent(ui::ListBox& box, int16_t factor);

}  // namespace tarvik
