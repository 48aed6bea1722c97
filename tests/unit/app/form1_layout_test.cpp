#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "app/rung_names.h"
#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

/// The place of the answer and the status bar, and the face of the result list.
class Form1LayoutTest : public Form1Test {
 protected:
  ui::MemoryStatusBar& Bar() { return form.Get<ui::MemoryStatusBar>(ID_sbrRungs); }
  ui::MemoryLabel& Answer() { return Label(ID_lblAnswer); }

  std::vector<std::wstring> FieldTexts() {
    std::vector<std::wstring> texts;
    for (int field = 0; field < Bar().FieldCount(); ++field) texts.push_back(Bar().FieldText(field));
    return texts;
  }
  static int Right(const ui::Rect& rect) { return rect.x + rect.width; }
  static int Bottom(const ui::Rect& rect) { return rect.y + rect.height; }
  void ExpectInPlace() {
    const ui::Rect list = List().Bounds();
    const ui::Rect label = Label(ID_lblResult).Bounds();
    EXPECT_EQ(Answer().Bounds().y, label.y);
    EXPECT_GT(Answer().Bounds().x, Right(label));
    EXPECT_EQ(Right(Answer().Bounds()), Right(list));
    EXPECT_LE(Bottom(Answer().Bounds()), list.y);
    EXPECT_EQ(Bar().Bounds().x, 0);
    EXPECT_EQ(Bar().Bounds().width, form.ClientSize().width);
    EXPECT_EQ(Bottom(Bar().Bounds()), form.ClientSize().height);
    EXPECT_LT(Bottom(list), Bar().Bounds().y);
  }
  void ExpectWholeFields(const std::vector<RungName>& names) {
    ASSERT_EQ(Bar().widths.size(), names.size());
    for (size_t field = 0; field < names.size(); ++field) {
      const std::wstring english = std::wstring(names[field].english) + L" FAIL";
      const std::wstring japanese = std::wstring(names[field].japanese) + L" ×";
      EXPECT_GE(Bar().widths[field], Bar().SizeFor(english).width) << english;
      EXPECT_GE(Bar().widths[field], Bar().SizeFor(japanese).width) << japanese;
    }
    EXPECT_LE(std::accumulate(Bar().widths.begin(), Bar().widths.end(), Bar().GripWidth()),
              Bar().Bounds().width);
  }
  int LinesShown() { return List().Bounds().height / form.lineHeight; }
};

TEST_F(Form1LayoutTest, The_status_bar_has_a_field_for_each_rung_of_the_family_edition) {
  Start();
  EXPECT_EQ(FieldTexts(), (std::vector<std::wstring>{L"Name –", L"PC –", L"Gateway –", L"Target –",
                                                     L"NEXAL2 –", L"FTP –"}));
  EXPECT_EQ(Bar().FieldWhole(3), L"Target: Not tested yet.");
}

TEST_F(Form1LayoutTest, The_general_edition_also_has_a_field_for_K7) {
  Start(L"", false);
  EXPECT_EQ(FieldTexts(), (std::vector<std::wstring>{L"Name –", L"PC –", L"Gateway –", L"Target –",
                                                     L"NEXAL2 –", L"K7 –", L"FTP –"}));
}

TEST_F(Form1LayoutTest, The_fields_have_Japanese_names_and_marks_in_Japanese) {
  Start(L"-LANGID 0");
  EXPECT_EQ(FieldTexts(), (std::vector<std::wstring>{L"名前 －", L"PC －", L"ｹﾞｰﾄｳｪｲ －", L"相手 －",
                                                     L"NEXAL2 －", L"FTP －"}));
  EXPECT_EQ(Bar().FieldWhole(0), L"名前：未テスト。");
}

TEST_F(Form1LayoutTest, Every_field_shows_its_widest_mark_and_the_grip_covers_none_in_the_family_edition) {
  Start();
  ExpectWholeFields(RungNames(true));
}

TEST_F(Form1LayoutTest, Every_field_shows_its_widest_mark_and_the_grip_covers_none_in_the_general_edition) {
  Start(L"", false);
  ExpectWholeFields(RungNames(false));
}

TEST_F(Form1LayoutTest, The_answer_ends_with_the_list_and_the_bar_is_at_the_bottom_edge) {
  Start();
  ExpectInPlace();
  EXPECT_TRUE(Bar().Visible());
  const ui::Size design = form.WindowSize();
  form.SetWindowSize({design.width + 120, design.height + 80});
  ExpectInPlace();
  form.SetWindowSize(design);
  ExpectInPlace();
}

TEST_F(Form1LayoutTest, Setting_the_answer_moves_and_hides_nothing) {
  Start();
  const auto places = [&] {
    std::vector<std::pair<ui::Rect, bool>> all;
    for (const int id : form.Order())
      if (auto* const control = dynamic_cast<ui::Control*>(&form.Get<ui::Element>(id)))
        all.emplace_back(control->Bounds(), control->Visible());
    return all;
  };
  const auto before = places();
  Answer().SetCaption(std::wstring(60, L'漢'));
  EXPECT_EQ(places(), before);
}

TEST_F(Form1LayoutTest, On_a_small_screen_the_list_gives_way_to_ten_lines_then_the_bar_and_never_the_answer) {
  Start();
  bool barWasShown = true;
  for (int height = 700; height >= 300; height -= 5) {
    SCOPED_TRACE(height);
    form.workArea = {1024, height};
    form.onScalingChanged();
    EXPECT_TRUE(Answer().Visible());
    EXPECT_LE(Bottom(Answer().Bounds()), List().Bounds().y);
    if (Bar().Visible()) {
      EXPECT_TRUE(barWasShown);
      EXPECT_GE(LinesShown(), 10);
      ExpectInPlace();
    } else if (barWasShown) {
      // It is shown as long as ten lines are.
      EXPECT_LT(LinesShown(), 12);
    }
    barWasShown = Bar().Visible();
  }
  EXPECT_FALSE(barWasShown);
  form.workArea = {1024, 700};
  form.onScalingChanged();
  EXPECT_TRUE(Bar().Visible());
}

TEST_F(Form1LayoutTest, Screen_readers_announce_the_answer) {
  Start();
  EXPECT_TRUE(Answer().live);
  EXPECT_EQ(Answer().Caption(), L"");
}

TEST_F(Form1LayoutTest, The_list_has_a_fixed_pitch_face) {
  Start();
  EXPECT_EQ(List().fixedPitch, L"Latin");
}

TEST_F(Form1LayoutTest, For_Japanese_texts_the_list_has_a_Japanese_fixed_pitch_face) {
  Start(L"-LANGID 0");
  EXPECT_EQ(List().fixedPitch, L"Japanese");
}

}  // namespace
}  // namespace tarvik::test
