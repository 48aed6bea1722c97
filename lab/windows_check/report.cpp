#include "lab/windows_check/report.h"

namespace tarvik::check {

void Report::Expect(std::string id, std::string title, bool good, std::string details) {
  Add({std::move(id), std::move(title), good ? Verdict::Pass : Verdict::Fail, std::move(details), {}});
}

void Report::Observe(std::string id, std::string title, std::string details) {
  Add({std::move(id), std::move(title), Verdict::Observed, std::move(details), {}});
}

void Report::Attach(const std::string& id, std::string picture) {
  for (auto item = items_.rbegin(); item != items_.rend(); ++item) {
    if (item->id != id) continue;
    item->pictureBmpOrPng = std::move(picture);
    return;
  }
}

void Report::Add(Item item) { items_.push_back(std::move(item)); }

}  // namespace tarvik::check
