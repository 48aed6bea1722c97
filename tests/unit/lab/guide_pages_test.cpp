#include "lab/faults/guide_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>

#include "lab/faults/message_page.h"
#include "lab/faults/scenario.h"
#include "lab/faults/stop_page.h"

namespace tarvik::lab {
namespace {

constexpr char kSources[] = TARVIK_SOURCE_FOLDER;

std::string SourceFile(const std::string& name) {
  std::ifstream file(std::string(kSources) + "/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<StopSection> Stops() {
  return ReadStops(SourceFile("docs/sources/where-did-it-stop.txt"), ReadGuideTexts(kSources));
}

/// True when the scenario shows the text. "…" in it matches any text.
bool Shows(const Scenario& scenario, const std::string& text) {
  return std::ranges::any_of(scenario.shown, [&](const Shown& shown) {
    const std::string seen = (shown.field.empty() ? "" : shown.field + ": ") + shown.text;
    constexpr std::string_view kAnything = "…";
    for (size_t begin = 0, at = 0; begin <= text.size();) {
      const size_t end = std::min(text.find(kAnything, begin), text.size());
      std::string part = text.substr(begin, end - begin);
      part.erase(0, part.find_first_not_of(' '));
      part.erase(part.find_last_not_of(' ') + 1);
      at = seen.find(part, at);
      if (at == std::string::npos) return false;
      begin = end + kAnything.size();
    }
    return true;
  });
}

TEST(GuidePages, Are_up_to_date) {
  for (const auto& [name, generated] : GuidePages(kSources)) {
    const std::string page = SourceFile("docs/" + name);
    const auto [at, unused] = std::mismatch(page.begin(), page.end(), generated.begin(), generated.end());
    EXPECT_TRUE(page == generated) << "docs/" << name << " differs from line "
                                   << std::count(page.begin(), at, '\n') + 1
                                   << " on. Regenerate it: build/native/lab/guide_pages .";
  }
}

TEST(GuidePages, Name_every_fault_under_something_that_it_shows) {
  std::map<std::string, Scenario> scenarios;
  for (Scenario& scenario : ReadScenarios(std::string(kSources) + "/lab/scenarios"))
    scenarios[scenario.name] = scenario;
  std::set<std::string> named;
  for (const StopSection& section : Stops()) {
    for (const Stop& stop : section.stops) {
      for (const StopStep& step : stop.steps) {
        for (const std::string& fault : step.faults) {
          ASSERT_TRUE(scenarios.contains(fault)) << fault;
          named.insert(fault);
          const bool shown = std::ranges::any_of(
              stop.shown, [&](const BothTexts& text) { return Shows(scenarios[fault], text.english); });
          EXPECT_TRUE(shown) << fault << " shows none of: " << stop.shown.front().english;
        }
      }
    }
  }
  for (const auto& [name, scenario] : scenarios)
    EXPECT_TRUE(named.contains(name)) << name << ": no step in docs/sources/where-did-it-stop.txt";
}

/// The anchors of a page in Markdown: its headings, as the packages name them, and explicit ones.
std::set<std::string> AnchorsOf(const std::string& page) {
  std::set<std::string> anchors = {""};
  std::istringstream lines(page);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("<a id=")) anchors.insert(line.substr(7, line.find('"', 7) - 7));
    if (!line.starts_with("#")) continue;
    std::string anchor;
    for (const char letter : line.substr(line.find(' ') + 1)) {
      const auto byte = static_cast<unsigned char>(letter);
      if (byte >= 0x80 || std::isalnum(byte) != 0 || letter == '-' || letter == '_')
        anchor += static_cast<char>(std::tolower(byte));
      else if (letter == ' ')
        anchor += '-';
    }
    anchors.insert(anchor);
  }
  return anchors;
}

TEST(GuidePages, Link_only_to_headings_of_guides_that_users_receive) {
  std::map<std::string, std::set<std::string>> guides;
  std::istringstream list(SourceFile("packaging/guides"));
  for (std::string name; std::getline(list, name);) {
    const std::string text = SourceFile(name);
    EXPECT_FALSE(text.empty()) << name;
    guides[name.substr(name.find('/') + 1)] = AnchorsOf(text);
  }
  for (const auto& [name, anchors] : guides) {
    if (!name.ends_with(".md")) continue;
    const std::string text = SourceFile("docs/" + name);
    constexpr std::string_view kLink = "](";
    for (size_t at = text.find(kLink); at != std::string::npos; at = text.find(kLink, at + 1)) {
      const size_t begin = at + kLink.size();
      const std::string link = text.substr(begin, text.find(')', begin) - begin);
      const size_t hash = std::min(link.find('#'), link.size());
      const std::string file = hash == 0 ? name : link.substr(0, hash);
      if (file.starts_with("pictures/")) {
        EXPECT_FALSE(SourceFile("docs/" + file).empty()) << name << ": " << link;
        continue;
      }
      ASSERT_TRUE(guides.contains(file)) << name << ": " << link;
      EXPECT_TRUE(guides[file].contains(link.substr(std::min(hash + 1, link.size()))))
          << name << ": " << link;
    }
  }
}

TEST(GuidePages, Tell_where_it_stopped_on_one_screen) {
  for (const GuideLanguage language : {&BothTexts::english, &BothTexts::japanese}) {
    std::istringstream text(StopText(Stops(), language));
    size_t lines = 0;
    for (std::string line; std::getline(text, line); ++lines)
      EXPECT_LE(ColumnsOf(line), kMaxStopTextColumns) << line;
    EXPECT_LE(lines, kMaxStopTextLines);
  }
}

TEST(GuidePages, Have_every_text_of_a_stop_in_both_languages) {
  for (const StopSection& section : Stops()) {
    EXPECT_FALSE(section.title.japanese.empty()) << section.title.english;
    for (const Stop& stop : section.stops) {
      EXPECT_EQ(stop.when.english.empty(), stop.when.japanese.empty()) << stop.when.english;
      for (const StopStep& step : stop.steps) EXPECT_NE(step.text.english, step.text.japanese);
    }
  }
}

TEST(GuidePages, Quote_messages_by_number_and_shared_steps_by_name) {
  GuideTexts texts;
  texts.messages[13] = {"TCP po&rt:", "ポート(&R):"};
  texts.steps["wait"] = {"Wait.", "待つ"};
  const std::vector<StopSection> sections = ReadStops(
      "section: S\n= せ\n\n# comment\nstop: A … | {13}\nwhen: W\n= わ\nstep: @wait\nstep: \"{13}\"?\n= "
      "「{13}」\nfaults: a b\n",
      texts);
  ASSERT_EQ(sections.size(), 1U);
  const Stop& stop = sections[0].stops.at(0);
  EXPECT_EQ(stop.shown, (std::vector<BothTexts>{{"A …", "A …"}, {"TCP port", "ポート"}}));
  EXPECT_EQ(stop.when, (BothTexts{"W", "わ"}));
  ASSERT_EQ(stop.steps.size(), 2U);
  EXPECT_EQ(stop.steps[0].text, (BothTexts{"Wait.", "待つ"}));
  EXPECT_EQ(stop.steps[1].text, (BothTexts{"\"TCP port\"?", "「ポート」"}));
  EXPECT_EQ(stop.steps[1].faults, (std::vector<std::string>{"a", "b"}));
  EXPECT_NE(StopPage(sections, &BothTexts::japanese)
                .find("| `A …`<br>`ポート` （わ） | **1** 待つ **2** 「ポート」 |\n"),
            std::string::npos);
  EXPECT_NE(StopText(sections, &BothTexts::english).find("1 Wait.   2 \"TCP port\"?\n"), std::string::npos);
}

TEST(GuidePages, Reject_a_damaged_source_with_its_line) {
  const auto problem = [](const char* text) -> std::string {
    try {
      ReadStops(text, {});
    } catch (const GuideError& error) {
      return error.what();
    }
    return "accepted";
  };
  EXPECT_EQ(problem("section: S\nnonsense\n"), "line 2: no field");
  EXPECT_EQ(problem("color: red\n"), "line 1: unknown field");
  EXPECT_EQ(problem("= x\n"), "line 1: nothing to translate");
  EXPECT_EQ(problem("stop: A\n"), "line 1: no section yet");
  EXPECT_EQ(problem("step: A\n"), "line 1: no stop yet");
  EXPECT_EQ(problem("section: S\nstop: A\nfaults: a\n"), "line 3: no step yet");
  EXPECT_EQ(problem("section: S\nstop: {999}\n"), "line 2: no such message: {999}");
  EXPECT_EQ(problem("section: S\nstop: A\nstep: @none\n"),
            "line 3: no such step, or one with placeholders: @none");
}

TEST(GuidePages, List_the_messages_by_number_with_what_they_mean) {
  GuideTexts texts;
  texts.messages[102] = {"One|two\r\nthree:", "に"};
  texts.messages[13] = {"TCP po&rt:", "ポート(&R):"};
  texts.titles[102] = {"Title", "題"};
  EXPECT_NE(MessagePage(texts).find("| 13 | TCP port | ポート | |\n"
                                    "| 102 | One\\|two<br>three: | に | Title<br>題 |\n"),
            std::string::npos);
}

TEST(GuidePages, Have_both_languages_for_every_message) {
  for (const auto& [id, texts] : ReadGuideTexts(kSources).messages) {
    EXPECT_FALSE(texts.english.empty()) << id;
    EXPECT_FALSE(texts.japanese.empty()) << id;
  }
}

TEST(GuidePages, Count_a_full_width_character_as_two_columns) {
  EXPECT_EQ(ColumnsOf("abc"), 3U);
  EXPECT_EQ(ColumnsOf("あい"), 4U);
  EXPECT_EQ(ColumnsOf("ｱﾟ"), 2U);
  EXPECT_EQ(ColumnsOf("（…"), 3U);
}

}  // namespace
}  // namespace tarvik::lab
