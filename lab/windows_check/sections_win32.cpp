#include "lab/windows_check/sections_win32.h"

#include <algorithm>

namespace tarvik::check {
namespace {

struct Section {
  const char* name;
  const char* title;
  void (*check)(Kit&);
};

constexpr Section kSections[] = {
    {"ground", "This Windows", CheckGround},
    {"start", "Starting the product", CheckStart},
    {"looks", "How the product looks", CheckLooks},
    {"hands", "Keyboard and mouse", CheckHands},
    {"blocking", "Calls that take long", CheckBlocking},
    {"network", "The network", CheckNetwork},
    {"ftp", "FTP", CheckFtp},
    {"rights", "Rights, folders, clipboard, end of the session", CheckRights},
};

void RunSection(const Section& section, Kit& kit) {
  try {
    section.check(kit);
  } catch (const std::exception& error) {
    const std::string id = std::string(section.name) + ".section";
    if (IsCancelled()) {
      kit.report.Observe(id, "The user has ended the check in this section", "");
      return;
    }
    kit.report.Expect(id, "The section \"" + std::string(section.title) + "\" can be checked to its end",
                      false, error.what());
  }
}

}  // namespace

void RunSections(Kit& kit, const std::vector<std::string>& names,
                 const std::function<void(const std::string&, int, int)>& onStep) {
  std::vector<const Section*> chosen;
  for (const Section& section : kSections) {
    if (names.empty() || std::find(names.begin(), names.end(), section.name) != names.end())
      chosen.push_back(&section);
  }
  for (size_t i = 0; i < chosen.size() && !IsCancelled(); ++i) {
    onStep(chosen[i]->title, static_cast<int>(i), static_cast<int>(chosen.size()));
    RunSection(*chosen[i], kit);
  }
}

}  // namespace tarvik::check
