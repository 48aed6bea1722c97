#pragma once

#include <gtest/gtest.h>

#include <string>

#include "k7/services_file.h"
#include "tests/fakes/fake_boxes.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_modules.h"

namespace tarvik::test {

/// A PC whose services file does not exist yet. Every file call that fails does so with error 2.
class ServicesFileFixture : public testing::Test {
 protected:
  ServicesFileFixture() { kernel.messages[2] = "The file is not there.\r\n"; }

  static ServiceEntry K7Entry() { return {L"NORVAX_K7_SERVER", 0, L"udp", false, false}; }

  /// The only box that was shown is the file-error box with this text.
  void ExpectFileError(const std::wstring& text) {
    ASSERT_EQ(boxes.boxes.size(), 1U);
    EXPECT_EQ(boxes.boxes[0].text, text);
    EXPECT_TRUE(boxes.boxes[0].systemModal);
    EXPECT_EQ(boxes.boxes[0].icon, report::BoxIcon::Critical);
  }

  const std::wstring path = L"C:\\Windows\\System32\\Drivers\\Etc\\Services";
  FakeCodePage codePage;
  FakeFiles files;
  FakeKernel kernel;
  FakeBoxes boxes;
  FmtErrMsg errors{kernel, codePage, boxes};
};

}  // namespace tarvik::test
