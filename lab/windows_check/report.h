#pragma once

#include <string>
#include <vector>

namespace tarvik::check {

/// Observed = a fact that no rule covers yet; it can be neither right nor wrong.
enum class Verdict { Pass, Fail, Observed };

/// One line of the report. Texts are UTF-8 and may contain private data, which the report masks when it is
/// written.
struct Item {
  std::string id;     ///< "section.name", such as "start.modules"; lower case and underscores
  std::string title;  ///< one sentence in plain English: the rule, or what was observed
  Verdict verdict = Verdict::Observed;
  std::string details;          ///< may have several lines
  std::string pictureBmpOrPng;  ///< the bytes of a picture file; empty = no picture
};

/// The items, in the order in which they were found. Used by one thread.
class Report {
 public:
  /// A rule that must hold. Every such item needs a planted fault that a test sees turn it to Fail.
  void Expect(std::string id, std::string title, bool good, std::string details = {});
  void Observe(std::string id, std::string title, std::string details);
  /// Adds a picture to the last item with this id. An unknown id is ignored.
  void Attach(const std::string& id, std::string picture);

  const std::vector<Item>& Items() const { return items_; }

 private:
  void Add(Item item);

  std::vector<Item> items_;
};

}  // namespace tarvik::check
