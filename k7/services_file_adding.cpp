// The services file belongs to Windows and to other programs: it is copied first, only ever appended to, and
// keeps its attributes.

#include "k7/services_file_adding.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "platform/scope_guard.h"
#include "platform/text.h"

namespace tarvik {
namespace {

constexpr std::string_view kNewLine = "\r\n";

/// "yyyymmddhhnn"
std::wstring TimeStamp(const LocalTime& time) {
  return ZeroPadded(time.year, 4) + ZeroPadded(time.month, 2) + ZeroPadded(time.day, 2) +
         ZeroPadded(time.hour, 2) + ZeroPadded(time.minute, 2);
}

/// Gives the entry the next port above `highestPort` that no other entry has, and raises `highestPort` to it.
/// False when there is no such port.
bool AssignNextPort(ServiceEntry& entry, std::span<const ServiceEntry> entries, int32_t& highestPort) {
  do {
    if (highestPort == std::numeric_limits<int32_t>::max()) return false;
    ++highestPort;
  } while (std::ranges::count(entries, highestPort, &ServiceEntry::PortNo) != 0);
  entry.PortNo = highestPort;
  return true;
}

}  // namespace

ServicesFileAdder::ServicesFileAdder(Files& files, CodePage& codePage, FmtErrMsg& errors,
                                     report::MessageBoxes& boxes, std::wstring path)
    : files_(files), codePage_(codePage), errors_(errors), boxes_(boxes), path_(std::move(path)) {}

bool ServicesFileAdder::Add(std::span<ServiceEntry> entries, const LocalTime& now) {
  const std::optional<std::string> bytes = ReadServicesFile(files_, errors_, boxes_, path_);
  if (!bytes) return false;
  const int32_t highestPort = ScanServices(*bytes, entries, codePage_);
  if (std::ranges::all_of(entries, [](const ServiceEntry& entry) -> bool { return entry.NameExist; }))
    return true;

  if (!files_.Copy(path_, path_ + L"." + TimeStamp(now))) return Fail(L"Can't backup");
  const std::optional<uint32_t> attributes = files_.Attributes(path_);
  if (!attributes) return Fail(L"Can't Get Attribute [" + path_ + L"]");
  const bool readOnly = (*attributes & Files::kReadOnly) != 0;
  if (readOnly && !SetAttributes(*attributes & ~Files::kReadOnly)) return false;
  const ScopeGuard restoreAttributes([&] {
    if (readOnly) SetAttributes(*attributes);
  });
  return AppendMissing(*bytes, entries, highestPort, now);
}

bool ServicesFileAdder::AppendMissing(std::string_view bytes, std::span<ServiceEntry> entries,
                                      int32_t highestPort, const LocalTime& now) {
  // Without a line break at the end of the file, the first new line would be joined to the last old one.
  const bool needsNewLine = !bytes.empty() && kNewLine.find(bytes.back()) == std::string_view::npos;
  if (!files_.Append(path_, needsNewLine ? kNewLine : std::string_view()))
    return Fail(L"Can't Open [" + path_ + L"] for Append");
  for (ServiceEntry& entry : entries) {
    if (entry.NameExist) continue;
    if (entry.PortNo == 0 && !AssignNextPort(entry, entries, highestPort)) return FailToAppend(entry.Name);
    if (!AppendLine(entry, now)) return false;
    entry.NameExist = true;
    entry.PortNoExist = true;
  }
  return true;
}

bool ServicesFileAdder::AppendLine(const ServiceEntry& entry, const LocalTime& now) {
  const std::wstring line = entry.Name + L"  " + Decimal(entry.PortNo) + L"/" + entry.Protocol +
                            L"  # For NORVAX FA System for PC, " + ZeroPadded(now.year, 4) + L"/" +
                            ZeroPadded(now.month, 2) + L"/" + ZeroPadded(now.day, 2);
  return files_.Append(path_, codePage_.ToAnsi(line).append(kNewLine)) || FailToAppend(line);
}

bool ServicesFileAdder::FailToAppend(const std::wstring& line) {
  return Fail(L"Can't Append [" + line + L"] to [" + path_ + L"]");
}

bool ServicesFileAdder::SetAttributes(uint32_t attributes) {
  return files_.SetAttributes(path_, attributes) || Fail(L"Can't Set Attribute [" + path_ + L"]");
}

bool ServicesFileAdder::Fail(const std::wstring& message) {
  ShowFileError(files_, errors_, boxes_, message);
  return false;
}

}  // namespace tarvik
