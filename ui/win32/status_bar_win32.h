#pragma once

#include <string>
#include <vector>

#include "ui/win32/control_window_win32.h"

namespace tarvik::ui {

class Win32StatusBar final : public UncaptionedControl<StatusBar> {
 public:
  Win32StatusBar(Win32Form& form, int page, int id, int fields);
  ~Win32StatusBar() override;

  /// The width of a field with that text, and the height of the bar.
  Size SizeFor(const std::wstring& text) const override;
  int FieldCount() const override { return static_cast<int>(fields_.size()); }
  void SetField(int field, const std::wstring& text, const std::wstring& whole) override;
  std::wstring FieldText(int field) const override { return At(field).text; }
  std::wstring FieldWhole(int field) const override { return At(field).whole; }
  void SetFieldWidths(const std::vector<int>& widths) override;
  int GripWidth() const override;

  bool AcceptsFocusAt(POINT) const override { return false; }
  void ApplyPlace() override;
  void OnNotify(const NMHDR& notification) override;
  void OnPointerOver() override;
  void Annotate() override;

 protected:
  void OnCreated() override;

 private:
  struct Field {
    std::wstring text;
    std::wstring whole;
    int right = 0;  ///< where the field ends
  };
  const Field& At(int field) const { return fields_.at(static_cast<size_t>(field)); }
  /// Gives the fields their places in the bar's present size.
  void PlaceFields();
  /// Sends a message about the field's tool to the tool tips, if they exist.
  void SendTool(UINT message, size_t field);

  std::vector<Field> fields_;
  /// One tool per field. The bar's own tips would only appear when a text is cut off. Created when the
  /// pointer is first over the bar.
  HWND toolTips_ = nullptr;
};

}  // namespace tarvik::ui
