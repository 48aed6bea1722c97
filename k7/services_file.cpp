#include "k7/services_file.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/text.h"

namespace tarvik {
namespace {

constexpr std::string_view kLineBreaks = "\r\n";
constexpr std::string_view kWordSeparators = " /\t";

/// Removes the text up to and including the next separator, and returns it without the separator.
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
      word = TakePiece(line, kWordSeparators);
    }
  const auto& [name, port, protocol] = words;
  if (name.find('#') != std::string_view::npos) return std::nullopt;
  if (IsNumeric(name) || !IsNumeric(port) || IsNumeric(protocol)) return std::nullopt;
  const std::optional<int32_t> number = ParseInt32(WidenAscii(port));
  if (!number) return std::nullopt;
  return DataLine{name, *number, protocol};
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

void CheckServicesFile(Files& files, CodePage& codePage, FmtErrMsg& errors, report::MessageBoxes& boxes,
                       const std::wstring& path, std::span<ServiceEntry> entries) {
  if (const auto bytes = ReadServicesFile(files, errors, boxes, path))
    ScanServices(*bytes, entries, codePage);
}

std::optional<std::string> ReadServicesFile(Files& files, FmtErrMsg& errors, report::MessageBoxes& boxes,
                                            const std::wstring& path) {
  std::optional<std::string> bytes = files.Read(path);
  // "\n\r" on purpose: users search for this message verbatim.
  if (!bytes) ShowFileError(files, errors, boxes, L"Can't Open [" + path + L"] for Read\n\r");
  return bytes;
}

void ShowFileError(Files& files, FmtErrMsg& errors, report::MessageBoxes& boxes, std::wstring message) {
  if (const uint32_t error = files.LastError(); error != 0) {
    if (!message.ends_with(L'\r')) message += L"\r\n";
    message += errors.Decode(static_cast<int32_t>(error));
  }
  boxes.ShowSystemModal(message);
}

}  // namespace tarvik
