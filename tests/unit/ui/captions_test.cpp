#include "ui/captions.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_context.h"
#include "ui/memory/memory_form.h"

namespace tarvik::ui {
namespace {

using test::FakeContext;

class CaptionsTest : public testing::Test, protected FakeContext {
 protected:
  CaptionsTest() {
    files.contents[L"C:\\Data\\Language\\Tarvik.exe_1033.ini"] = "";
    resource.Initialize(1033, L"C:\\Data", L"Tarvik.exe");
  }
  void Add(int id, const std::string& text) {
    system.profile["C:\\Data\\Language\\Tarvik.exe_1033.ini|1033|" + std::to_string(id)] = text;
  }
};

TEST_F(CaptionsTest, A_string_becomes_a_caption_or_an_item_of_a_combo_box) {
  Add(1, "text");
  MemoryFocus focus;
  MemoryLabel label(focus);
  MemoryButton button(focus);
  MemoryCheckBox check(focus);
  MemoryMenuItem menu;
  for (Element* const element : std::initializer_list<Element*>{&label, &button, &check, &menu}) {
    LoadRes(resource, boxes, *element, 1);
    const std::wstring_view type = element->TypeName();
    EXPECT_EQ(element->Caption(), L"text") << std::string(type.begin(), type.end());
  }
  MemoryTabStrip tabs(focus, std::vector<std::wstring>(3));
  LoadRes(resource, boxes, tabs, 1, 2);
  EXPECT_EQ(tabs.PageCaption(2), L"text");
  MemoryComboBox combo(focus);
  LoadRes(resource, boxes, combo, 1);
  LoadRes(resource, boxes, combo, 1);
  EXPECT_EQ(combo.Count(), 2);
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(CaptionsTest, A_control_without_a_caption_is_reported_in_a_message_box) {
  MemoryFocus focus;
  MemoryTextBox box(focus);
  LoadRes(resource, boxes, box, 4);
  EXPECT_EQ(boxes.Texts(), std::vector<std::wstring>{L"LoadRes(4):Invalid control type [TextBox]"});
}

TEST_F(CaptionsTest, An_element_that_rejects_its_caption_does_not_affect_the_others) {
  MemoryScreen screen(boxes);
  MemoryForm form(screen);
  Label& label = form.Form::AddLabel(1, kNoPage, Message::AddressLabel);
  Button& button = form.Form::AddButton(2, kNoPage, Message::PingButton);
  TabStrip& strip = form.Form::AddTabStrip(3, std::vector{Message::PingPage, Message::FtpPage});
  Label& fixed = form.AddLabel(4, kNoPage, L"fixed");
  Add(RowOf(Message::AddressLabel).id, "address");
  Add(RowOf(Message::PingButton).id, "ping");
  Add(RowOf(Message::FtpPage).id, "ftp");
  form.Get<MemoryLabel>(1).refusing = true;
  LoadCaptions(form, resource);
  EXPECT_EQ(label.Caption(), RowOf(Message::AddressLabel).english);
  EXPECT_EQ(button.Caption(), L"ping");
  EXPECT_EQ(strip.PageCaption(1), L"ftp");
  EXPECT_EQ(fixed.Caption(), L"fixed");
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(CaptionsTest, A_new_element_has_the_built_in_English_text_of_its_message) {
  MemoryForm form;
  EXPECT_EQ(form.Form::AddLabel(1, kNoPage, Message::AddressLabel).Caption(), L"IP address or host &name:");
  EXPECT_EQ(form.Form::AddTabStrip(2, std::vector{Message::PingPage, Message::FtpPage}).PageCaption(1),
            L"Ftp(&5)");
}

}  // namespace
}  // namespace tarvik::ui
