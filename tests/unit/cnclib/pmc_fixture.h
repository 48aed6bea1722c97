#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "app/control_ids.h"
#include "cnclib/pmc_window.h"
#include "tests/fakes/fake_cnc_library.h"
#include "tests/fakes/fake_context.h"
#include "ui/memory/memory_form.h"

namespace tarvik::test {

/// The PMC window on memory controls, with a fake library.
class PmcTest : public testing::Test, protected FakeContext {
 protected:
  using Lines = std::vector<std::wstring>;
  using Calls = std::vector<std::string>;

  static constexpr LanguageMode kEnglish = 1;

  PmcTest() {
    files.contents[L"C:\\Data\\Language\\Tarvik.exe_1033.ini"] = "";
    resource.Initialize(1033, L"C:\\Data", L"Tarvik.exe");
    for (int id = 133; id <= 146; ++id)
      system.profile["C:\\Data\\Language\\Tarvik.exe_1033.ini|1033|" + std::to_string(id)] =
          "text " + std::to_string(id);
    Open();
  }
  ~PmcTest() override { EXPECT_TRUE(library.AllGivenBack()); }

  void Open() {
    window.reset();
    auto memoryForm = std::make_unique<ui::MemoryForm>(screen);
    form = memoryForm.get();
    window = std::make_unique<frmPmcTest>(std::move(memoryForm), texts, pump, library, codePage, system,
                                          [this] { return target; });
    window->Show();
  }

  std::wstring Caption(int id) { return form->Get<ui::MemoryLabel>(id).Caption(); }
  ui::MemoryTextBox& Box(int id) { return form->Get<ui::MemoryTextBox>(id); }
  ui::MemoryButton& Button(int id) { return form->Get<ui::MemoryButton>(id); }
  ui::MemoryComboBox& Address() { return form->Get<ui::MemoryComboBox>(ID_cmbPmcAddr); }
  ui::MemoryListBox& Data() { return form->Get<ui::MemoryListBox>(ID_lstData); }
  ui::MemoryListBox& Log() { return form->Get<ui::MemoryListBox>(ID_pmc_lstResult); }
  void Click(int id) { Button(id).Click(); }
  void Read(const std::wstring& count = L"1") {
    Box(ID_txtCount).SetText(count);
    Click(ID_cmdRead);
  }
  void ExpectIdle() {
    EXPECT_TRUE(Button(ID_cmdRead).Enabled());
    EXPECT_FALSE(Button(ID_cmdStop).Enabled());
    EXPECT_TRUE(Button(ID_cmdClose).Enabled());
    EXPECT_FALSE(window->Running());
  }
  /// The run was rejected: one message box with all these words, no read, everything restored.
  void ExpectRejected(const Lines& words) {
    ASSERT_EQ(boxes.boxes.size(), 1U);
    for (const std::wstring& word : words)
      EXPECT_NE(boxes.boxes[0].text.find(word), std::wstring::npos)
          << std::string(word.begin(), word.end()) << " in "
          << std::string(boxes.boxes[0].text.begin(), boxes.boxes[0].text.end());
    EXPECT_EQ(library.Names(), (Calls{"nx_allochandle3", "nx_freehandle"}));
    ExpectIdle();
  }

  ui::MemoryScreen screen{boxes};
  ui::MemoryForm* form = nullptr;
  FakeCncLibrary library;
  CncTarget target{L"192.168.1.100", {L"8193", L"TCP port"}, {L"10", L"Time-out"}};
  std::unique_ptr<frmPmcTest> window;
};

}  // namespace tarvik::test
