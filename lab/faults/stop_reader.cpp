// Reads the source of the page "Where did it stop?".

#include <algorithm>
#include <cstdlib>

#include "lab/faults/scenario_words.h"
#include "lab/faults/stop_page.h"

namespace tarvik::lab {
namespace {

class StopReader {
 public:
  explicit StopReader(const GuideTexts& texts) : texts_(texts) {}

  void Read(std::string_view line) {
    ++number_;
    if (line.empty() || line.starts_with("#")) return;
    if (line.starts_with("= ")) return Translate(std::string(line.substr(2)));
    const size_t colon = line.find(": ");
    if (colon == std::string_view::npos) Fail("no field");
    const std::string_view field = line.substr(0, colon);
    const std::string text(line.substr(colon + 2));
    translated_ = nullptr;
    if (field == "section")
      BeginSection(text);
    else if (field == "stop")
      BeginStop(text);
    else if (field == "when")
      AddText(LastStop().when, text);
    else if (field == "step")
      AddStep(text);
    else if (field == "faults")
      AddFaults(text);
    else
      Fail("unknown field");
  }

  std::vector<StopSection> Take() { return std::move(sections_); }

 private:
  [[noreturn]] void Fail(const std::string& why) const {
    throw GuideError("line " + std::to_string(number_) + ": " + why);
  }

  Stop& LastStop() {
    if (sections_.empty() || sections_.back().stops.empty()) Fail("no stop yet");
    return sections_.back().stops.back();
  }

  /// The text with "{115}" replaced.
  std::string WithMessages(std::string text, GuideLanguage language) const {
    for (size_t open = 0; (open = text.find('{', open)) != std::string::npos;) {
      const size_t close = std::min(text.find('}', open), text.size());
      const auto message = texts_.messages.find(std::atoi(text.substr(open + 1, close - open - 1).c_str()));
      if (message == texts_.messages.end()) Fail("no such message: " + text);
      const std::string words = Caption(message->second.*language);
      text.replace(open, close + 1 - open, words);
      open += words.size();
    }
    return text;
  }

  BothTexts Both(const std::string& text) const {
    return {WithMessages(text, &BothTexts::english), WithMessages(text, &BothTexts::japanese)};
  }

  void AddText(BothTexts& to, const std::string& text) {
    to = Both(text);
    translated_ = &to;
  }

  void BeginSection(const std::string& text) {
    sections_.emplace_back();
    AddText(sections_.back().title, text);
  }

  void BeginStop(const std::string& text) {
    if (sections_.empty()) Fail("no section yet");
    Stop& stop = sections_.back().stops.emplace_back();
    constexpr std::string_view kOr = " | ";
    for (size_t begin = 0; begin <= text.size();) {
      const size_t end = std::min(text.find(kOr, begin), text.size());
      stop.shown.push_back(Both(text.substr(begin, end - begin)));
      begin = end + kOr.size();
    }
    if (stop.shown.size() == 1) translated_ = &stop.shown.back();
  }

  void AddStep(const std::string& text) {
    StopStep& step = LastStop().steps.emplace_back();
    if (!text.starts_with("@")) return AddText(step.text, text);
    const auto shared = texts_.steps.find(text.substr(1));
    if (shared == texts_.steps.end() || shared->second.english.find('{') != std::string::npos)
      Fail("no such step, or one with placeholders: " + text);
    step.text = shared->second;
  }

  void AddFaults(const std::string& text) {
    if (LastStop().steps.empty()) Fail("no step yet");
    std::vector<std::string>& faults = LastStop().steps.back().faults;
    for (std::string& fault : WordsOf(text)) faults.push_back(std::move(fault));
  }

  void Translate(const std::string& text) {
    if (translated_ == nullptr) Fail("nothing to translate");
    translated_->japanese = WithMessages(text, &BothTexts::japanese);
    translated_ = nullptr;
  }

  const GuideTexts& texts_;
  std::vector<StopSection> sections_;
  BothTexts* translated_ = nullptr;  ///< the text of the line before
  int number_ = 0;
};

}  // namespace

std::vector<StopSection> ReadStops(std::string_view text, const GuideTexts& texts) {
  StopReader reader(texts);
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    reader.Read(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return reader.Take();
}

}  // namespace tarvik::lab
