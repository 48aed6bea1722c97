// Which numbers of the version the about box shows. The program's own has zeros where they could be mixed up,
// so the box is compiled here once more, under other names, for a version of four different numbers.

#include "resources/version.h"

#undef TARVIK_VERSION_MAJOR
#undef TARVIK_VERSION_MINOR
#undef TARVIK_VERSION_PATCH
#undef TARVIK_VERSION_BUILD
#define TARVIK_VERSION_MAJOR 5
#define TARVIK_VERSION_MINOR 6
#define TARVIK_VERSION_PATCH 7
#define TARVIK_VERSION_BUILD 8
#define frmAbout frmAboutOfVersion5678
#define AboutTitle AboutTitleOfVersion5678
// NOLINTNEXTLINE(bugprone-suspicious-include): on purpose, see above
#include "about/about_box.cpp"

#include "resources/resource.h"
#include "tests/recorded/recorded_program.h"

namespace tarvik::test {
namespace {

TEST(AboutVersion, Is_the_first_the_second_and_the_fourth_number) {
  RecordedProgram program;
  Resource resource{program.files, program.profile, program.codePage, program.boxes};
  const LanguageMode mode = 1;
  const Texts texts{mode, resource};
  auto made = std::make_unique<ui::MemoryForm>();
  ui::MemoryForm& form = *made;
  const frmAbout box(std::move(made),
                     AboutTools{program.boxes, texts, program.osVersion, program.registry, program.processes},
                     L"");
  EXPECT_EQ(form.Get<ui::MemoryLabel>(ID_lblVersion).Caption(), L"Version 5.6.8");
}

}  // namespace
}  // namespace tarvik::test
