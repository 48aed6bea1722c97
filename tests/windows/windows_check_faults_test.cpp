// The sections about looks, keyboard, blocked calls and rights: what the saboteur spoils must fail.

#include <sstream>

#include "tests/windows/windows_check_fixture.h"

namespace tarvik::lab {
namespace {

/// Faults that are planted together in both editions, because each spoils other items, and one run of a
/// section takes up to half a minute.
struct FaultGroup {
  const char* name;
  const char* section;
  const char* faults;     ///< names of the saboteur's faults, separated by spaces
  const char* failedIds;  ///< the only items that fail, separated by spaces
};

constexpr FaultGroup kGroups[] = {
    {"Looks", "looks", "narrow_controls bold_font grey_label outside_screen",
     "looks.texts_en looks.texts_ja looks.font_en looks.font_ja "
     "looks.background_en looks.background_ja looks.work_area_en looks.work_area_ja"},
    // The layout after a change of the scaling corrects it, so it is not restored.
    {"Wide_button", "looks", "wide_button", "looks.places_en looks.places_ja looks.scaling"},
    {"Page_shifted_by_scaling", "looks", "shifted_page", "looks.scaling"},
    {"Scaling_ignored", "looks", "ignores_scaling", "looks.scaling"},
    {"Hands", "hands",
     "wrong_tab_order shared_access_key deaf_to_access_keys accepts_full_width keeps_input_method "
     "deaf_to_enter deaf_to_escape closes_on_escape",
     "hands.tab_order_family hands.tab_order_general hands.access_keys_unique_en hands.access_keys_unique_ja "
     "hands.access_keys_en hands.access_keys_ja hands.names_en hands.names_ja "
     "hands.full_width hands.input_method hands.enter hands.escape hands.escape_idle"},
    {"Unnamed_field", "hands", "unnamed_field", "hands.names_en hands.names_ja"},
    // Windows names only the controls that it knows by the label before them.
    {"Unknown_role", "hands", "unknown_role", "hands.names_en hands.names_ja hands.roles_en hands.roles_ja"},
    {"Ghost_and_late_clicks", "blocking", "ghost late_clicks", "blocking.ghost blocking.second_run"},
    {"Deaf_during_runs", "blocking", "deaf_during_runs", "blocking.stop"},
    {"Rights_and_leaks", "rights",
     "needs_administrator ansi_paths short_paths leaves_log pretended_clipboard always_agrees_to_end "
     "leaks_handles",
     "rights.ordinary_user rights.folder_letters rights.folder_long rights.folder_unchanged "
     "rights.clipboard_briefly rights.clipboard_held rights.session_refused rights.handles"},
    // Not a fault of the product: Wine lacks this limit of Windows.
    {"Paths_limited_as_on_Windows", "rights", "path_limit", ""},
    {"No_clipboard_no_end_of_the_session", "rights", "never_copies never_agrees_to_end",
     "rights.clipboard rights.clipboard_briefly rights.session_accepted"},
    {"Impatient_and_deaf_to_the_end", "rights", "impatient_clipboard ignores_end",
     "rights.clipboard_briefly rights.session_end"},
    {"Wrong_exit_code", "rights", "wrong_exit_code",
     "rights.ordinary_user rights.folder_letters rights.folder_long rights.session_end rights.exit_code"},
};

class WindowsCheckSabotage : public WindowsCheckTest<WindowsCheckSabotage>,
                             public testing::WithParamInterface<FaultGroup> {
 protected:
  /// Copies of both editions with the faults.
  std::string Sabotaged(const char* faults) const {
    const std::string family = InFolder("product");
    const std::string general = family + "/general";
    std::filesystem::create_directories(general);
    std::filesystem::copy_file(ProgramPath(), family + "/Tarvik.exe");
    std::filesystem::copy_file(GeneralProgramPath(), general + "/Tarvik.exe");
    for (const std::string& edition : {family, general}) Sabotage(edition, faults);
    return family;
  }
};

TEST_P(WindowsCheckSabotage, Fails_only_the_items_of_the_faults) {
  std::istringstream words(GetParam().failedIds);
  const std::set<std::string> expected{std::istream_iterator<std::string>(words), {}};
  const std::string report = Check(GetParam().section, Sabotaged(GetParam().faults));
  EXPECT_EQ(FailedIn(report), expected) << report;
}

INSTANTIATE_TEST_SUITE_P(Planted, WindowsCheckSabotage, testing::ValuesIn(kGroups),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace tarvik::lab
