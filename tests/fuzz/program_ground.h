#pragma once

#include <cstdlib>

#include "app/result_list.h"
#include "resources/messages.h"
#include "resources/resource.h"
#include "tests/fakes/fake_boxes.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_profile_strings.h"
#include "tests/fakes/fake_pump.h"
#include "ui/memory/memory_form.h"

namespace tarvik::test {

/// What nearly every routine of the program stands on, for a fuzzer that calls one of them.
struct ProgramGround {
  ui::MemoryForm form;
  ui::MemoryListBox& list = static_cast<ui::MemoryListBox&>(form.AddListBox(1, ui::kNoPage, L""));
  ResultList results{list};
  FakeBoxes boxes;
  FakePump pump;
  FakeCodePage codePage;
  FakeFiles files;
  FakeProfileStrings profile;
  Resource resource{files, profile, codePage, boxes};
  LanguageMode mode = 1;
  Texts texts{mode, resource};
};

/// Ends the fuzzer with its input when the rule does not hold.
inline void Demand(bool rule) {
  if (!rule) std::abort();
}

}  // namespace tarvik::test
