#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "report/finding.h"
#include "report/finding_texts.h"
#include "report/rung.h"
#include "resources/messages.h"

namespace tarvik::report {

struct Answer;

/// Where the cause of a message most likely is, nearest to the user first.
enum class Place {
  Tarvik,   ///< what was typed or set in this program
  Pc,       ///< the PC and its Windows
  Cable,    ///< the cable and the hub next to the PC
  Gateway,  ///< the PC's own gateway
  Network,  ///< routers and firewalls on the way
  Target    ///< the controller
};

struct BothLanguages {
  std::wstring english;
  std::wstring japanese;

  const std::wstring& In(AnswerLanguage language) const {
    return language == AnswerLanguage::Japanese ? japanese : english;
  }
};

/// One entry of resources/explanations. The texts can have placeholders, see explanation_facts.h.
struct Explanation {
  std::optional<Rung> rung;  ///< nothing for a run as a whole and for Windows
  Place place = Place::Tarvik;
  BothLanguages title;
  std::vector<BothLanguages> steps;  ///< what to do, nearest to the user first
  std::vector<BothLanguages> facts;  ///< the first one applies whose placeholders all have values
  BothLanguages meaning;
  BothLanguages good;  ///< what is good so far; can be empty
  BothLanguages ask;   ///< who else to ask; can be empty
};

/// The result of a look-up.
struct FoundExplanation {
  const Explanation* explanation = nullptr;  ///< null = none
  std::optional<Message> message;            ///< the message, if it has a number
  std::wstring pattern;                      ///< what matched
};

/// The explanations of lines, message boxes and findings. A damaged text leaves out what cannot be read and
/// never throws.
class Explanations {
 public:
  /// Adds the entries of a text in UTF-8. README.md in resources/explanations describes the format.
  void Add(std::string_view utf8);

  /// In the order of the texts.
  const std::vector<Explanation>& All() const { return entries_; }
  /// What could not be read, as "line 12: unknown place". Line numbers count from the start of each text.
  const std::vector<std::wstring>& Problems() const { return problems_; }

  FoundExplanation Of(Finding finding) const;
  FoundExplanation Of(Message message) const;
  /// A line of the result list. None for an empty one.
  FoundExplanation OfLine(std::wstring_view line, const Texts& texts) const;
  /// The text of a message box, which may have several lines: the first one that is known decides.
  FoundExplanation OfBox(std::wstring_view text, const Texts& texts) const;

  /// The same for a line or box of the run that the answer is about: where it reports a failure, the finding
  /// of its rung explains it better, so that the steps begin with what the sentence says.
  FoundExplanation ForRun(FoundExplanation found, const Answer& answer) const;
  /// True when a finding that fails a rung, or makes it doubtful, has this explanation.
  bool ReportsFailure(const FoundExplanation& found) const;
  /// The patterns of the messages that report a failure of the rung. A line that matches none of them cannot
  /// be one; OfLine, which is slow, need not look at it.
  std::vector<std::wstring> FailurePatterns(Rung rung, const Texts& texts) const;

 private:
  friend class ExplanationReader;

  enum class KeyKind { Message, Line, Box, Reply };
  struct Key {
    KeyKind kind;
    std::wstring pattern;  ///< "*" matches any text; of a message "*" alone, before or after its text
    size_t entry;
    Message message = Message::Count;
  };
  struct Match {
    const Key* key = nullptr;
    std::wstring pattern;
    size_t weight = 0;
  };

  Match BestMatch(std::wstring_view line, const Texts& texts, bool box) const;
  FoundExplanation Found(const Match& match) const;

  std::vector<Explanation> entries_;
  std::vector<Key> keys_;
  std::map<Finding, size_t> findings_;
  std::map<std::wstring, BothLanguages> shared_;
  std::vector<std::wstring> problems_;
};

/// True when the text is the pattern with any text in place of each "*".
bool MatchesPattern(std::wstring_view text, std::wstring_view pattern);

/// The title of the window: the message's number and its text in both languages, the user's first, so that
/// two people can compare what they see. Without a number, the entry's own title in both.
std::wstring TitleOf(const FoundExplanation& found, AnswerLanguage language);

}  // namespace tarvik::report
