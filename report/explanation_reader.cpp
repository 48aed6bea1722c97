// Reads the explanations from their text.

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "platform/text.h"
#include "report/explanations.h"
#include "report/finding_names.h"

namespace tarvik::report {
namespace {

constexpr wchar_t kReplacement = 0xFFFD;

/// One character in UTF-8, which is removed from `bytes`. Those outside the basic plane, and damaged ones,
/// become the replacement character.
wchar_t TakeCharacter(std::string_view& bytes) {
  const auto first = static_cast<unsigned char>(bytes.front());
  bytes.remove_prefix(1);
  if (first < 0x80) return static_cast<wchar_t>(first);
  const size_t following = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
  uint32_t character = first & (0x3FU >> following);
  for (size_t i = 0; i < following; ++i) {
    if (bytes.empty() || (static_cast<unsigned char>(bytes.front()) & 0xC0) != 0x80) return kReplacement;
    character = character << 6 | (static_cast<unsigned char>(bytes.front()) & 0x3FU);
    bytes.remove_prefix(1);
  }
  return following == 0 || following == 3 ? kReplacement : static_cast<wchar_t>(character);
}

std::wstring DecodedUtf8(std::string_view bytes) {
  std::wstring text;
  while (!bytes.empty()) text += TakeCharacter(bytes);
  return text;
}

std::optional<Place> PlaceNamed(std::wstring_view name) {
  constexpr std::wstring_view kPlaces[] = {L"tarvik", L"pc", L"cable", L"gateway", L"network", L"target"};
  const auto* const found = std::find(std::begin(kPlaces), std::end(kPlaces), name);
  if (found == std::end(kPlaces)) return std::nullopt;
  return static_cast<Place>(found - std::begin(kPlaces));
}

/// Sections are the rungs, by their English names, and two that belong to none.
bool IsOtherSection(std::wstring_view name) { return name == L"General" || name == L"Windows"; }

std::optional<Rung> RungNamed(std::wstring_view name) {
  for (int rung = 0; rung < kRungCount; ++rung)
    if (name == NameOf(static_cast<Rung>(rung), AnswerLanguage::English)) return static_cast<Rung>(rung);
  return std::nullopt;
}

std::optional<Message> MessageNumbered(std::wstring_view number) {
  const std::optional<int32_t> id = ParseInt32(number);
  for (int i = 0; id && i < static_cast<int>(Message::Count); ++i)
    if (RowOf(static_cast<Message>(i)).id == *id) return static_cast<Message>(i);
  return std::nullopt;
}

std::wstring WithoutStars(std::wstring word) {
  std::erase(word, L'*');
  return word;
}

}  // namespace

class ExplanationReader {
 public:
  explicit ExplanationReader(Explanations& into) : into_(into) {}

  void Read(const std::wstring& text) {
    for (const std::wstring& line : Split(text, L"\n")) {
      ++lineNumber_;
      const bool windowsEnd = line.ends_with(L'\r');
      ReadLine(windowsEnd ? line.substr(0, line.size() - 1) : line);
    }
    EndEntry();
  }

 private:
  using Key = Explanations::Key;
  using KeyKind = Explanations::KeyKind;

  void ReadLine(const std::wstring& line);
  void ReadField(const std::wstring& name, const std::wstring& value);
  void ReadText(const std::wstring& name, const std::wstring& value);
  void ReadJapanese(const std::wstring& value);
  void ReadWord(const std::wstring& name, const std::wstring& word);
  void ReadSection(const std::wstring& name);
  BothLanguages* TextNamed(const std::wstring& name);
  void AddKey(KeyKind kind, const std::wstring& pattern, Message message = Message::Count);
  void RequireJapanese();
  void EndEntry();
  void Complain(const std::wstring& problem) {
    into_.problems_.push_back(L"line " + Decimal(lineNumber_) + L": " + problem);
  }

  Explanations& into_;
  int lineNumber_ = 0;
  std::optional<Rung> rung_;
  Explanation entry_;
  bool inEntry_ = false;
  bool hasPlace_ = false;
  std::vector<Key> keys_;
  std::vector<Finding> findings_;
  BothLanguages* awaitsJapanese_ = nullptr;
};

void ExplanationReader::ReadLine(const std::wstring& line) {
  if (line.starts_with(L'#')) return;
  if (line.empty()) {
    EndEntry();
  } else if (line.starts_with(L"= ")) {
    ReadJapanese(line.substr(2));
  } else {
    RequireJapanese();
    const size_t colon = line.find(L':');
    if (colon == std::wstring::npos) {
      Complain(L"a field name and \":\" are missing");
      return;
    }
    const size_t start = line.compare(colon + 1, 1, L" ") == 0 ? colon + 2 : colon + 1;
    ReadField(line.substr(0, colon), line.substr(start));
  }
}

void ExplanationReader::ReadField(const std::wstring& name, const std::wstring& value) {
  if (name == L"section") {
    ReadSection(value);
  } else if (name.starts_with(L'@')) {
    BothLanguages& text = into_.shared_[name];
    if (!text.english.empty()) Complain(L"defined twice: " + name);
    text = {value, {}};
    awaitsJapanese_ = &text;
  } else if (name == L"place") {
    const std::optional<Place> place = PlaceNamed(value);
    if (!place) Complain(L"unknown place");
    hasPlace_ = place.has_value();
    entry_.place = place.value_or(Place::Tarvik);
    inEntry_ = true;
  } else if (name == L"line" || name == L"box") {
    AddKey(name == L"line" ? KeyKind::Line : KeyKind::Box, value);
  } else if (name == L"finding" || name == L"message" || name == L"reply" || name == L"icmp" ||
             name == L"socket") {
    for (const std::wstring& word : Split(value, L" ")) ReadWord(name, word);
  } else {
    ReadText(name, value);
  }
}

void ExplanationReader::ReadSection(const std::wstring& name) {
  EndEntry();
  rung_ = RungNamed(name);
  if (!rung_ && !IsOtherSection(name)) Complain(L"unknown section");
}

void ExplanationReader::ReadWord(const std::wstring& name, const std::wstring& word) {
  if (name == L"finding") {
    const std::optional<Finding> finding = FindingNamed(word);
    if (!finding)
      Complain(L"unknown finding " + word);
    else
      findings_.push_back(*finding);
    inEntry_ = true;
  } else if (name == L"message") {
    const std::optional<Message> message = MessageNumbered(WithoutStars(word));
    if (message)
      AddKey(KeyKind::Message, word, *message);
    else
      Complain(L"unknown message " + word);
  } else if (name == L"reply") {
    AddKey(KeyKind::Reply, word);
  } else if (name == L"icmp") {
    AddKey(KeyKind::Line, L"ICMP_Error:" + word);
  } else {
    AddKey(KeyKind::Line, L"gethostbyname(*)=" + word);
    AddKey(KeyKind::Line, L"Windows Sockets error " + word);
    AddKey(KeyKind::Line, L"SocketsInitialize Winsock.dll is not responding. Error=" + word);
  }
}

BothLanguages* ExplanationReader::TextNamed(const std::wstring& name) {
  if (name == L"do") return &entry_.steps.emplace_back();
  if (name == L"facts") return &entry_.facts.emplace_back();
  if (name == L"title") return &entry_.title;
  if (name == L"means") return &entry_.meaning;
  if (name == L"good") return &entry_.good;
  if (name == L"ask") return &entry_.ask;
  return nullptr;
}

void ExplanationReader::ReadText(const std::wstring& name, const std::wstring& value) {
  BothLanguages* const text = TextNamed(name);
  if (text == nullptr) {
    Complain(L"unknown field " + name);
    return;
  }
  inEntry_ = true;
  if (!text->english.empty()) Complain(L"given twice: " + name);
  if (!value.starts_with(L'@')) {
    text->english = value;
    awaitsJapanese_ = text;
    if (value.empty()) Complain(L"no text");
    return;
  }
  if (const auto shared = into_.shared_.find(value); shared != into_.shared_.end())
    *text = shared->second;
  else
    Complain(L"unknown text " + value);
}

void ExplanationReader::ReadJapanese(const std::wstring& value) {
  if (awaitsJapanese_ == nullptr) {
    Complain(L"no English text before the Japanese one");
    return;
  }
  if (value.empty()) Complain(L"no text");
  awaitsJapanese_->japanese = value;
  awaitsJapanese_ = nullptr;
}

void ExplanationReader::RequireJapanese() {
  if (awaitsJapanese_ != nullptr) Complain(L"the Japanese text is missing before this line");
  awaitsJapanese_ = nullptr;
}

void ExplanationReader::AddKey(KeyKind kind, const std::wstring& pattern, Message message) {
  inEntry_ = true;
  const auto isSame = [&](const Key& key) {
    return key.kind == kind && key.pattern == pattern && key.message == message;
  };
  if (std::any_of(into_.keys_.begin(), into_.keys_.end(), isSame) ||
      std::any_of(keys_.begin(), keys_.end(), isSame))
    Complain(L"explained twice: " + pattern);
  keys_.push_back({kind, pattern, into_.entries_.size(), message});
}

void ExplanationReader::EndEntry() {
  RequireJapanese();
  if (inEntry_) {
    if (!hasPlace_) Complain(L"the entry before has no place");
    if (entry_.title.english.empty() || entry_.meaning.english.empty() || entry_.steps.empty())
      Complain(L"the entry before lacks title, do or means");
    if (keys_.empty() && findings_.empty()) Complain(L"the entry before explains nothing");
    for (const Finding finding : findings_)
      if (!into_.findings_.emplace(finding, into_.entries_.size()).second)
        Complain(L"explained twice: " + WidenAscii(NameOf(finding)));
    into_.keys_.insert(into_.keys_.end(), keys_.begin(), keys_.end());
    entry_.rung = rung_;
    into_.entries_.push_back(std::move(entry_));
  }
  entry_ = {};
  inEntry_ = hasPlace_ = false;
  keys_.clear();
  findings_.clear();
}

void Explanations::Add(std::string_view utf8) { ExplanationReader(*this).Read(DecodedUtf8(utf8)); }

}  // namespace tarvik::report
