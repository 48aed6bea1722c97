#include "report/result_list.h"

#include <algorithm>

#include "platform/text.h"

namespace tarvik::report {
namespace {

constexpr size_t kMaxLines = 1000;

}  // namespace

void ResultList::UpdateView(size_t kept, bool selectLast) {
  if (view_ == nullptr) return;
  try {
    view_->Update(lines_, kept, selectLast);
  } catch (...) {
    // Without the rejected line, which would be tried again before every later one.
    shown_ = std::min(lines_.size(), view_->Count());
    lines_.resize(shown_);
    throw;
  }
  shown_ = view_->Count();
}

void ResultList::ReadBack() {
  if (view_ == nullptr || view_->Count() == shown_) return;
  lines_ = view_->Shown();
  shown_ = lines_.size();
}

void ResultList::AddLinesToList(const std::wstring& text) { AddBatch(Split(text, L"\r\n")); }

void ResultList::AddBatch(const std::vector<std::wstring>& lines) {
  if (lines.empty()) return;
  if (onAdd) onAdd(lines);
  ReadBack();
  size_t kept = lines_.size();
  for (const std::wstring& line : lines) {
    // Cleared completely, not rotated: a long series of tests starts over with an empty list.
    if (lines_.size() > kMaxLines) {
      lines_.clear();
      kept = 0;
    }
    lines_.push_back(line);
  }
  UpdateView(kept, true);
}

void ResultList::ClearList() {
  lines_.clear();
  UpdateView(0, false);
}

std::wstring ResultList::AllLines() {
  if (view_ != nullptr) lines_ = view_->Shown();
  std::wstring text;
  for (const std::wstring& line : lines_) text += line + L"\r\n";
  return text;
}

void ResultList::ShowPasted(const std::wstring& text) {
  lines_.clear();
  for (const std::wstring& piece : Split(text, L"\r"))
    lines_.push_back(piece.starts_with(L'\n') ? piece.substr(1) : piece);
  UpdateView(0, false);
}

}  // namespace tarvik::report
