#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace tarvik::report {

/// Displays a result list.
class ResultView {
 public:
  virtual ~ResultView() = default;

  /// The list has changed: the first `kept` lines are shown already, the others are new. `selectLast`: the
  /// last line is to be selected and scrolled into view. Throws RuntimeError when a line is rejected; those
  /// before it are shown.
  virtual void Update(const std::vector<std::wstring>& lines, size_t kept, bool selectLast) = 0;

  virtual size_t Count() const = 0;
  virtual std::vector<std::wstring> Shown() const = 0;
};

/// The lines that the checks report, in the order in which they were added. Works with and without a view.
/// Another program, such as a test driver, may change the lines of a view: what is shown counts.
class ResultList {
 public:
  ResultList() = default;
  /// `view` displays the list and outlives it.
  explicit ResultList(ResultView& view) : view_(&view) {}
  ResultList(const ResultList&) = delete;
  ResultList& operator=(const ResultList&) = delete;

  const std::vector<std::wstring>& Lines() const { return lines_; }

  /// Appends one line and selects it. A list of more than 1,000 lines is cleared first.
  void AddToList(const std::wstring& text) { AddBatch({text}); }

  /// Appends each piece between line breaks ("\r\n") as a line; an empty text is one empty line.
  void AddLinesToList(const std::wstring& text);

  /// Appends the lines as repeated calls of AddToList would, but updates the view once.
  void AddBatch(const std::vector<std::wstring>& lines);

  void ClearList();

  /// Lines are about to be added by AddToList, AddLinesToList or AddBatch.
  std::function<void(const std::vector<std::wstring>& lines)> onAdd;

  /// All lines, each followed by "\r\n".
  std::wstring AllLines();

  /// Shows a text that was copied from a result list: clears the list, splits the text at "\r" and drops a
  /// "\n" at the start of each piece. The number of lines is not limited and no line is selected.
  void ShowPasted(const std::wstring& text);

 private:
  void UpdateView(size_t kept, bool selectLast);
  /// Takes over what another program has made of the view's lines.
  void ReadBack();

  std::vector<std::wstring> lines_;
  ResultView* view_ = nullptr;
  size_t shown_ = 0;  ///< lines in the view after its latest update
};

}  // namespace tarvik::report
