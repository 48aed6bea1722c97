#include "lab/faults/guide_pages.h"

#include <fstream>
#include <iterator>

#include "lab/faults/fault_page.h"
#include "lab/faults/message_page.h"
#include "lab/faults/stop_page.h"

namespace tarvik::lab {

std::map<std::string, std::string> GuidePages(const std::string& sources) {
  const GuideTexts texts = ReadGuideTexts(sources);
  std::ifstream file(sources + "/docs/sources/where-did-it-stop.txt", std::ios::binary);
  const std::vector<StopSection> stops =
      ReadStops(std::string(std::istreambuf_iterator<char>(file), {}), texts);
  return {{"faults.md", FaultPage(ReadScenarios(sources + "/lab/scenarios"))},
          {"messages.md", MessagePage(texts)},
          {"where-did-it-stop.en.md", StopPage(stops, &BothTexts::english)},
          {"where-did-it-stop.en.txt", StopText(stops, &BothTexts::english)},
          {"where-did-it-stop.ja.md", StopPage(stops, &BothTexts::japanese)},
          {"where-did-it-stop.ja.txt", StopText(stops, &BothTexts::japanese)}};
}

}  // namespace tarvik::lab
