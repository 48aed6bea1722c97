#pragma once

#include <functional>
#include <string>
#include <vector>

#include "report/message_boxes.h"

namespace tarvik::test {

/// Message boxes that are answered at once.
class FakeBoxes final : public report::MessageBoxes {
 public:
  struct Box {
    std::wstring text;
    std::wstring title;
    report::BoxIcon icon = report::BoxIcon::None;
    bool systemModal = false;
    bool asksYesNo = false;
    bool defaultIsNo = false;
  };

  void Show(const std::wstring& text, report::BoxIcon icon, const std::wstring& title) override {
    Open({text, title, icon, false, false, false});
  }
  void ShowSystemModal(const std::wstring& text) override {
    Open({text, {}, report::BoxIcon::Critical, true, false, false});
  }
  bool AskYesNo(const std::wstring& text, bool defaultIsNo, const std::wstring& title) override {
    Open({text, title, report::BoxIcon::Exclamation, false, true, defaultIsNo});
    return answerYes;
  }

  std::vector<std::wstring> Texts() const {
    std::vector<std::wstring> texts;
    for (const Box& box : boxes) texts.push_back(box.text);
    return texts;
  }

  std::vector<Box> boxes;
  bool answerYes = false;
  std::function<void()> onShow;  ///< events that are handled while a box is open

 private:
  void Open(Box box) {
    boxes.push_back(std::move(box));
    if (onShow) onShow();
  }
};

}  // namespace tarvik::test
