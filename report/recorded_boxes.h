#pragma once

#include "report/message_boxes.h"
#include "report/run_recorder.h"

namespace tarvik::report {

/// Shows message boxes and records those that open during a run, with their answers.
class RecordedBoxes final : public MessageBoxes {
 public:
  /// Both outlive the object.
  RecordedBoxes(MessageBoxes& boxes, RunRecorder& recorder) : boxes_(boxes), recorder_(recorder) {}

  void Show(const std::wstring& text, BoxIcon icon, const std::wstring& title) override {
    const size_t box = recorder_.BoxShown(text);
    boxes_.Show(text, icon, title);
    recorder_.BoxAnswered(box, BoxAnswer::Ok);
  }
  void ShowSystemModal(const std::wstring& text) override {
    const size_t box = recorder_.BoxShown(text);
    boxes_.ShowSystemModal(text);
    recorder_.BoxAnswered(box, BoxAnswer::Ok);
  }
  bool AskYesNo(const std::wstring& text, bool defaultIsNo, const std::wstring& title) override {
    const size_t box = recorder_.BoxShown(text);
    const bool yes = boxes_.AskYesNo(text, defaultIsNo, title);
    recorder_.BoxAnswered(box, yes ? BoxAnswer::Yes : BoxAnswer::No);
    return yes;
  }

 private:
  MessageBoxes& boxes_;
  RunRecorder& recorder_;
};

}  // namespace tarvik::report
