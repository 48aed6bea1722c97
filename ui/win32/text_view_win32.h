#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ui/win32/control_window_win32.h"
#include "ui/win32/message_font_win32.h"

namespace tarvik::ui {

/// A read-only rich edit window.
class Win32TextView final : public UncaptionedControl<TextView> {
 public:
  Win32TextView(Win32Form& form, int page, int id);

  Size SizeFor(const std::wstring& text) const override;
  void SetParagraphs(const std::vector<Paragraph>& paragraphs) override;
  std::wstring Text() const override;
  void ApplyFont() override;
  void Annotate() override;

 protected:
  void OnCreated() override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  /// Shows the paragraphs in the current font.
  void Show();
  /// Formats the characters from `start` to `end`. `em`: the height of the font in the control's unit.
  void Format(ParagraphKind kind, LONG start, LONG end, LONG em) const;
  void CopySelection() const;

  std::unique_ptr<MeasuredFont> font_;
  std::vector<Paragraph> paragraphs_;
};

}  // namespace tarvik::ui
