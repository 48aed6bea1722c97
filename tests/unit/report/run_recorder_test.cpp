#include "report/run_recorder.h"

#include <gtest/gtest.h>

#include "report/recorded_boxes.h"
#include "report/result_list.h"
#include "tests/fakes/fake_boxes.h"
#include "tests/fakes/fake_pump.h"

namespace tarvik::report::test {
namespace {

const std::vector<Rung> kPing = {Rung::Name, Rung::Pc, Rung::Gateway, Rung::Target};

class RunRecorderTest : public testing::Test {
 protected:
  void Begin(const std::vector<Rung>& rungs, const std::wstring& target = L"192.168.1.100") {
    recorder.Begin(target, rungs, {}, L"today");
  }

  tarvik::test::FakePump pump;
  RunRecorder recorder{pump};
  const report::Run& run = recorder.run;
};

TEST_F(RunRecorderTest, A_run_has_a_beginning_an_end_and_a_length) {
  pump.now = 5000;
  Begin(kPing);
  EXPECT_TRUE(run.active);
  pump.Sleep(2500);
  recorder.End(RunEnd::Finished, L"later");
  EXPECT_FALSE(run.active);
  EXPECT_EQ(run.began, L"today");
  EXPECT_EQ(run.ended, L"later");
  EXPECT_EQ(run.seconds, 2.5);
  EXPECT_EQ(run.end, RunEnd::Finished);
}

TEST_F(RunRecorderTest, Lines_keep_their_seconds_even_when_the_list_has_dropped_them) {
  ResultList list;
  list.onAdd = [this](const std::vector<std::wstring>& lines) { recorder.AddLines(lines); };
  Begin(kPing);
  for (int i = 0; i < 1500; ++i) list.AddToList(L"line");
  pump.Sleep(1000);
  list.AddToList(L"last");
  EXPECT_LT(list.Lines().size(), 1000u);
  ASSERT_EQ(run.lines.size(), 1501u);
  EXPECT_EQ(run.lines.front().seconds, 0);
  EXPECT_EQ(run.lines.back().seconds, 1);
  EXPECT_EQ(run.lines.back().text, L"last");
}

TEST_F(RunRecorderTest, Too_many_lines_are_only_counted) {
  Begin(kPing);
  recorder.AddLines(std::vector<std::wstring>(report::Run::kMaxLines + 7, L"x"));
  EXPECT_EQ(run.lines.size(), report::Run::kMaxLines);
  EXPECT_EQ(run.linesNotKept, 7u);
}

TEST_F(RunRecorderTest, Boxes_keep_their_text_times_and_answer) {
  tarvik::test::FakeBoxes fake;
  RecordedBoxes boxes(fake, recorder);
  fake.onShow = [this] { pump.Sleep(4000); };
  fake.answerYes = true;
  MessageBoxes& shown = boxes;
  shown.Show(L"outside of a run");
  Begin(kPing);
  pump.Sleep(1000);
  shown.Show(L"wrong code");
  shown.AskYesNo(L"again?", false);
  ASSERT_EQ(run.boxes.size(), 2u);
  EXPECT_EQ(run.boxes[0].text, L"wrong code");
  EXPECT_EQ(run.boxes[0].shown, 1);
  EXPECT_EQ(run.boxes[0].answered, 5);
  EXPECT_EQ(run.boxes[1].answer, BoxAnswer::Yes);
}

TEST_F(RunRecorderTest, A_single_page_replaces_only_the_facts_of_its_own_rungs) {
  Begin(kPing);
  recorder.run.facts.target.echoes.answered = 4;
  recorder.run.facts.cnc.result = -102;
  recorder.End(RunEnd::Finished, L"");
  Begin({Rung::CncLibrary});
  EXPECT_EQ(run.facts.target.echoes.answered, 4);
  EXPECT_EQ(run.facts.cnc.result, 0);
  EXPECT_TRUE(run.Planned(Rung::CncLibrary));
  EXPECT_FALSE(run.Planned(Rung::Target));
}

TEST_F(RunRecorderTest, Another_target_discards_all_facts) {
  Begin(kPing);
  recorder.run.facts.target.echoes.answered = 4;
  recorder.End(RunEnd::Finished, L"");
  Begin({Rung::CncLibrary}, L"192.168.1.101");
  EXPECT_EQ(run.facts.target.echoes.answered, 0);
}

TEST_F(RunRecorderTest, A_run_inside_another_belongs_to_it) {
  Begin(kPing);
  recorder.AddLines({L"first"});
  Begin({Rung::K7});
  EXPECT_TRUE(run.Planned(Rung::K7));
  EXPECT_TRUE(run.Planned(Rung::Target));
  EXPECT_EQ(run.lines.size(), 1u);
  recorder.End(RunEnd::Finished, L"");
  EXPECT_TRUE(run.active);
  recorder.End(RunEnd::Stopped, L"");
  EXPECT_FALSE(run.active);
  EXPECT_EQ(run.end, RunEnd::Stopped);
}

TEST_F(RunRecorderTest, An_address_that_was_deleted_during_the_run_is_not_the_runs_own) {
  Begin({Rung::Target, Rung::Ftp});
  recorder.AddressUsed(Rung::Ftp, L"");
  EXPECT_EQ(run.OtherTarget(Rung::Ftp), L"?");
}

TEST_F(RunRecorderTest, A_rung_with_another_address_keeps_it_and_its_facts_end_with_the_run) {
  Begin({Rung::Target, Rung::Ftp});
  recorder.AddressUsed(Rung::Ftp, L"192.168.1.101");
  recorder.run.facts.ftp.entries = 3;
  recorder.run.facts.target.echoes.answered = 4;
  recorder.End(RunEnd::Finished, L"");
  EXPECT_EQ(run.target, L"192.168.1.100");
  EXPECT_EQ(run.OtherTarget(Rung::Ftp), L"192.168.1.101");
  EXPECT_EQ(run.OtherTarget(Rung::Target), L"");
  Begin({Rung::CncLibrary});
  EXPECT_EQ(run.facts.ftp.entries, 0);
  EXPECT_EQ(run.facts.target.echoes.answered, 4);
  EXPECT_EQ(run.OtherTarget(Rung::Ftp), L"");
}

TEST_F(RunRecorderTest, Of_two_nested_runs_the_target_is_that_of_the_ping) {
  Begin(kPing);
  Begin({Rung::K7}, L"192.168.1.101");
  EXPECT_EQ(run.target, L"192.168.1.100");
  EXPECT_EQ(run.OtherTarget(Rung::K7), L"192.168.1.101");
  recorder.End(RunEnd::Finished, L"");
  recorder.End(RunEnd::Finished, L"");
  Begin({Rung::K7}, L"192.168.1.101");
  Begin(kPing);
  EXPECT_EQ(run.target, L"192.168.1.100");
  EXPECT_EQ(run.OtherTarget(Rung::K7), L"192.168.1.101");
  EXPECT_EQ(run.OtherTarget(Rung::Target), L"");
}

TEST_F(RunRecorderTest, A_box_is_open_until_it_is_answered_and_that_of_an_error_has_no_answer) {
  Begin(kPing);
  const size_t box = recorder.BoxShown(L"at once");
  EXPECT_EQ(run.boxes[0].answer, BoxAnswer::Open);
  recorder.BoxAnswered(box, BoxAnswer::Ok);
  EXPECT_EQ(run.boxes[0].answer, BoxAnswer::Ok);
  recorder.ErrorShown(L"Type mismatch");
  EXPECT_EQ(run.boxes[1].answer, BoxAnswer::Error);
}

TEST_F(RunRecorderTest, Forgetting_waits_for_the_end_of_a_run) {
  Begin(kPing);
  recorder.Forget();
  EXPECT_EQ(run.target, L"192.168.1.100");
  recorder.End(RunEnd::Finished, L"");
  recorder.Forget();
  EXPECT_EQ(run.target, L"");
  EXPECT_EQ(run.end, RunEnd::None);
}

TEST_F(RunRecorderTest, Echoes_are_counted_by_who_answered_and_how) {
  EchoSeries series;
  series.Add({true, 0, 0, 7, L"a"}, true);
  series.Add({true, 0, 0, 90, L"b"}, false);
  series.Add({true, 11003, 0, 0, L"c"}, false);
  series.Add({false, 0, 11010, 0, {}}, false);
  EXPECT_EQ(series.sent, 4);
  EXPECT_EQ(series.answered, 1);
  EXPECT_EQ(series.elsewhere, 1);
  EXPECT_EQ(series.slowestMs, 7u);
  EXPECT_EQ(series.refused, 1);
  EXPECT_EQ(series.status, 11003u);
  EXPECT_EQ(series.error, 11010u);
  EXPECT_EQ(series.otherSender, L"c");
  EXPECT_EQ(series.Replies(), 3);
  EXPECT_EQ(series.echoes.size(), 4u);
}

}  // namespace
}  // namespace tarvik::report::test
