#include "k7/services_file.h"

#include <algorithm>
#include <array>
#include <limits>
#include <vector>

#include "platform/text.h"

namespace tarvik {
namespace {

constexpr std::string_view kLineBreaks = "\r\n";
constexpr std::string_view kBetweenWords = " /\t";

/// Takes the piece up to the next of the separators off the text.
std::string_view TakePiece(std::string_view& text, std::string_view separators) {
  const size_t end = std::min(text.find_first_of(separators), text.size());
  const std::string_view piece = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return piece;
}

bool IsNumeric(std::string_view word) {
  if (word.starts_with('+') || word.starts_with('-')) word.remove_prefix(1);
  return !word.empty() && word.find_first_not_of("0123456789") == std::string_view::npos;
}

struct DataLine {
  std::string_view name;
  int32_t port = 0;
  std::string_view protocol;
};

std::optional<DataLine> ParseLine(std::string_view line) {
  std::array<std::string_view, 3> words;
  for (std::string_view& word : words)
    while (word.empty()) {
      if (line.empty()) return std::nullopt;
      word = TakePiece(line, kBetweenWords);
    }
  const auto& [name, port, protocol] = words;
  if (name.find('#') != std::string_view::npos) return std::nullopt;
  if (IsNumeric(name) || !IsNumeric(port) || IsNumeric(protocol)) return std::nullopt;
  const std::optional<int32_t> number = ParseInt32(WidenAscii(port));
  if (!number) return std::nullopt;
  return DataLine{name, *number, protocol};
}

/// The message, and in a line of its own what Windows says of the latest failure.
void ShowFileError(const ServicesFileTools& tools, std::wstring message) {
  if (const uint32_t error = tools.files.LastError(); error != 0) {
    if (!message.ends_with(L'\r')) message += L"\r\n";
    message += tools.errors.Decode(static_cast<int32_t>(error));
  }
  tools.boxes.ShowSystemModal(message);
}

bool Fail(const ServicesFileTools& tools, const std::wstring& message) {
  ShowFileError(tools, message);
  return false;
}

std::optional<std::string> ReadServices(const ServicesFileTools& tools, const std::wstring& path) {
  std::optional<std::string> bytes = tools.files.Read(path);
  // The line break is the wrong way round; whoever searches his messages for this one finds it so.
  if (!bytes) ShowFileError(tools, L"Can't Open [" + path + L"] for Read\n\r");
  return bytes;
}

/// Lets a write-protected file be written to for as long as it lives.
class WriteAccess {
 public:
  WriteAccess(const ServicesFileTools& tools, const std::wstring& path) : tools_(tools), path_(path) {
    const std::optional<uint32_t> attributes = tools_.files.Attributes(path_);
    if (!attributes) {
      Fail(tools_, L"Can't Get Attribute [" + path_ + L"]");
    } else if ((*attributes & Files::kReadOnly) == 0) {
      granted_ = true;
    } else if (Set(*attributes & ~Files::kReadOnly)) {
      granted_ = true;
      toRestore_ = *attributes;
    }
  }
  ~WriteAccess() {
    if (toRestore_) Set(*toRestore_);
  }
  WriteAccess(const WriteAccess&) = delete;
  WriteAccess& operator=(const WriteAccess&) = delete;

  bool Granted() const { return granted_; }

 private:
  bool Set(uint32_t attributes) {
    return tools_.files.SetAttributes(path_, attributes) ||
           Fail(tools_, L"Can't Set Attribute [" + path_ + L"]");
  }

  const ServicesFileTools& tools_;
  const std::wstring& path_;
  bool granted_ = false;
  std::optional<uint32_t> toRestore_;
};

bool BackUp(const ServicesFileTools& tools, const std::wstring& path, const LocalTime& now) {
  const std::wstring stamp = ZeroPadded(now.year, 4) + ZeroPadded(now.month, 2) + ZeroPadded(now.day, 2) +
                             ZeroPadded(now.hour, 2) + ZeroPadded(now.minute, 2);
  return tools.files.Copy(path, path + L"." + stamp) || Fail(tools, L"Can't backup");
}

bool FailToAppend(const ServicesFileTools& tools, const std::wstring& line, const std::wstring& path) {
  return Fail(tools, L"Can't Append [" + line + L"] to [" + path + L"]");
}

bool AppendLine(const ServicesFileTools& tools, const std::wstring& path, const ServiceEntry& entry,
                const LocalTime& now) {
  const std::wstring line = entry.Name + L"  " + Decimal(entry.PortNo) + L"/" + entry.Protocol +
                            L"  # For NORVAX FA System for PC, " + ZeroPadded(now.year, 4) + L"/" +
                            ZeroPadded(now.month, 2) + L"/" + ZeroPadded(now.day, 2);
  return tools.files.Append(path, tools.codePage.ToAnsi(line) + "\r\n") || FailToAppend(tools, line, path);
}

/// Gives the entry the next free port above `highestPort` and advances `highestPort` to it. False when no
/// port is left.
bool TakeNextPort(ServiceEntry& entry, std::span<const ServiceEntry> entries, int32_t& highestPort) {
  const auto isTaken = [&](const ServiceEntry& other) { return other.PortNo == highestPort; };
  do {
    if (highestPort == std::numeric_limits<int32_t>::max()) return false;
    ++highestPort;
  } while (std::any_of(entries.begin(), entries.end(), isTaken));
  entry.PortNo = highestPort;
  return true;
}

bool AddMissing(const ServicesFileTools& tools, const std::wstring& path, std::string_view bytes,
                std::span<ServiceEntry> entries, int32_t highestPort, const LocalTime& now) {
  const auto exists = [](const ServiceEntry& entry) { return static_cast<bool>(entry.NameExist); };
  if (std::all_of(entries.begin(), entries.end(), exists)) return true;

  if (!BackUp(tools, path, now)) return false;
  const WriteAccess access(tools, path);
  if (!access.Granted()) return false;
  // A last line without an end would swallow the first new one.
  const bool openEnd = !bytes.empty() && kLineBreaks.find(bytes.back()) == std::string_view::npos;
  if (!tools.files.Append(path, openEnd ? kLineBreaks : std::string_view()))
    return Fail(tools, L"Can't Open [" + path + L"] for Append");
  for (ServiceEntry& entry : entries) {
    if (entry.NameExist) continue;
    if (entry.PortNo == 0 && !TakeNextPort(entry, entries, highestPort))
      return FailToAppend(tools, entry.Name, path);
    if (!AppendLine(tools, path, entry, now)) return false;
    entry.NameExist = true;
    entry.PortNoExist = true;
  }
  return true;
}

}  // namespace

int32_t ScanServices(std::string_view bytes, std::span<ServiceEntry> entries, CodePage& codePage) {
  struct Wanted {
    std::string name;
    std::string protocol;
  };
  std::vector<Wanted> wanted;
  for (const ServiceEntry& entry : entries)
    wanted.push_back({codePage.ToAnsi(entry.Name), codePage.ToAnsi(entry.Protocol)});

  int32_t highestPort = 0;
  while (!bytes.empty()) {
    const std::optional<DataLine> line = ParseLine(TakePiece(bytes, kLineBreaks));
    if (!line) continue;
    highestPort = std::max(highestPort, line->port);
    for (size_t i = 0; i < entries.size(); ++i) {
      ServiceEntry& entry = entries[i];
      if (!entry.NameExist && line->name == wanted[i].name && line->protocol == wanted[i].protocol) {
        entry.NameExist = true;
        entry.PortNo = line->port;
      }
      if (entry.PortNo == line->port) entry.PortNoExist = true;
    }
  }
  return highestPort;
}

bool CheckServicesFile(const ServicesFileTools& tools, const std::wstring& path,
                       std::span<ServiceEntry> entries, bool checkOnly, const LocalTime& now) {
  const std::optional<std::string> bytes = ReadServices(tools, path);
  if (!bytes) return false;
  const int32_t highestPort = ScanServices(*bytes, entries, tools.codePage);
  return checkOnly || AddMissing(tools, path, *bytes, entries, highestPort, now);
}

}  // namespace tarvik
