#include "ftp/ftp_client.h"

#include <algorithm>
#include <chrono>
#include <string_view>

#include "platform/fixed_buffer.h"

namespace tarvik {
namespace {

constexpr uint32_t kPreconfiguredAccess = 0;
constexpr uint32_t kFtpService = 1;
constexpr uint32_t kReloadFlag = 0x80000000;
constexpr uint32_t kNoCacheWriteFlag = 0x04000000;
constexpr uint32_t kNormalFile = 0x80;
constexpr uint32_t kInsufficientBuffer = 122;

/// InternetConnectA's errors when the server replied and refused: ERROR_INTERNET_EXTENDED_ERROR,
/// _INCORRECT_USER_NAME, _INCORRECT_PASSWORD and _LOGIN_FAILURE.
constexpr uint32_t kRefusalErrors[] = {12003, 12013, 12014, 12015};

/// Some versions of the library copy as many bytes as the buffer holds, reading past the end of their own
/// text, so start with a small buffer.
constexpr uint32_t kFirstBufferBytes = 1024;
constexpr uint32_t kMaxBufferBytes = 16 * 1024 * 1024;

/// Stops a search that never ends; no real directory is this large. A list of so many names is sorted and
/// shown within three seconds.
constexpr size_t kMaxDirectoryEntries = 200'000;

/// Empty: the library calls it only for operations with a context, and none here has one.
void TARVIK_CALLBACK InternetStatusCallBack(Wininet::Handle, uintptr_t, uint32_t, void*, uint32_t) {}

const char* OrNoValue(const std::string& text) { return text.empty() ? nullptr : text.c_str(); }

/// Reads a text with `call(buffer, length)`, enlarging the buffer to the size that the library asks for.
/// Empty when the call fails or the text is too long.
template <typename Call>
std::string ReadText(Wininet& wininet, Call call) {
  for (uint32_t size = kFirstBufferBytes;;) {
    // The string's terminating NUL is beyond `size`, so it remains even if the library fills the whole
    // buffer without one.
    std::string buffer(size, '\0');
    uint32_t length = size;
    if (call(buffer.data(), &length) != 0)
      return std::string(TrimNull(std::string_view(buffer).substr(0, length)));
    if (wininet.GetLastError() != kInsufficientBuffer || size == kMaxBufferBytes) return {};
    size = std::min(std::max(length, 2 * size), kMaxBufferBytes);
  }
}

std::string_view NameOf(const FindData& entry) {
  return TrimNull(std::string_view(entry.cFileName, sizeof entry.cFileName));
}

uint64_t Joined(uint32_t high, uint32_t low) { return uint64_t{high} << 32 | low; }

}  // namespace

DateAndTime ToDateAndTime(const FileTime& time) {
  using std::chrono::sys_days;
  using std::chrono::year_month_day;
  constexpr uint64_t kStepsPerSecond = 10'000'000;
  constexpr uint64_t kSecondsPerDay = 86'400;
  constexpr sys_days kFirstDay = std::chrono::year(1601) / 1 / 1;
  constexpr sys_days kLastDay = std::chrono::year(9999) / 12 / 31;
  const uint64_t seconds = Joined(time.dwHighDateTime, time.dwLowDateTime) / kStepsPerSecond;
  const uint64_t days = seconds / kSecondsPerDay;
  if (seconds == 0 || days > static_cast<uint64_t>((kLastDay - kFirstDay).count())) return {};
  const year_month_day date(kFirstDay + std::chrono::days(static_cast<int>(days)));
  const auto ofDay = static_cast<int>(seconds % kSecondsPerDay);
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          ofDay / 3600,
          ofDay / 60 % 60,
          ofDay % 60};
}

clsFtpClient::clsFtpClient(Wininet& wininet, CodePage& codePage)
    : wininet_(wininet),
      codePage_(codePage),
      session_(wininet, wininet.InternetOpenA(nullptr, kPreconfiguredAccess, nullptr, nullptr, 0)),
      connection_(wininet) {}

bool clsFtpClient::Connect(const std::wstring& host, const std::wstring& user, const std::wstring& password) {
  if (!session_) return false;
  DisConnect();
  hasReplied_ = false;
  connectError_ = 0;
  earlierReply_ = StoredReply();
  if (host.empty()) return false;
  const std::string ansiHost = Ansi(host);
  const std::string ansiUser = Ansi(user);
  const std::string ansiPassword = Ansi(password);
  connection_.Reset(wininet_.InternetConnectA(session_.Get(), ansiHost.c_str(), Port, OrNoValue(ansiUser),
                                              OrNoValue(ansiPassword), kFtpService, 0, 0));
  if (!connection_) connectError_ = wininet_.GetLastError();
  hasReplied_ = connection_ || std::ranges::count(kRefusalErrors, connectError_) != 0;
  if (!connection_) return false;
  wininet_.InternetSetStatusCallback(connection_.Get(), InternetStatusCallBack);
  return true;
}

std::wstring clsFtpClient::Response() {
  // The library keeps the reply of an earlier connection until another server replies, so a server that is
  // switched off would seem to repeat it. A reply that has changed belongs to this connection.
  std::wstring reply = StoredReply();
  if (!hasReplied_ && reply == earlierReply_) reply.clear();
  return reply;
}

std::wstring clsFtpClient::StoredReply() {
  return codePage_.FromAnsi(ReadText(wininet_, [this](char* buffer, uint32_t* length) {
    uint32_t error = 0;
    return wininet_.InternetGetLastResponseInfoA(&error, buffer, length);
  }));
}

std::wstring clsFtpClient::CurrentDir() {
  if (!connection_) return {};
  return codePage_.FromAnsi(ReadText(wininet_, [this](char* buffer, uint32_t* length) {
    return wininet_.FtpGetCurrentDirectoryA(connection_.Get(), buffer, length);
  }));
}

bool clsFtpClient::SetCurrentDir(const std::wstring& directory) {
  return connection_ && wininet_.FtpSetCurrentDirectoryA(connection_.Get(), Ansi(directory).c_str()) != 0;
}

uint32_t clsFtpClient::CacheFlags() const {
  return (Reload ? kReloadFlag : 0) | (NoCacheWrite ? kNoCacheWriteFlag : 0);
}

bool clsFtpClient::ReadDirectory(std::vector<FindData>& entries) {
  if (!connection_) return false;
  FindData entry;
  const InternetHandle search(wininet_,
                              wininet_.FtpFindFirstFileA(connection_.Get(), "*", &entry, CacheFlags(), 0));
  if (!search) return false;
  do {
    entries.push_back(entry);
    entry = {};
  } while (entries.size() < kMaxDirectoryEntries &&
           wininet_.InternetFindNextFileA(search.Get(), &entry) != 0);
  return true;
}

FtpFile clsFtpClient::ToFtpFile(const FindData& entry) {
  return {codePage_.FromAnsi(NameOf(entry)),
          Joined(entry.nFileSizeHigh, entry.nFileSizeLow),
          entry.dwFileAttributes,
          ToDateAndTime(entry.ftCreationTime),
          ToDateAndTime(entry.ftLastWriteTime),
          ToDateAndTime(entry.ftLastAccessTime)};
}

void clsFtpClient::EnumFile() {
  std::vector<FindData> entries;
  const bool enumerated = ReadDirectory(entries);
  if (onBeginEnumFiles) onBeginEnumFiles(static_cast<int32_t>(entries.size()));
  if (onEnumFile)
    for (const FindData& entry : entries) onEnumFile(ToFtpFile(entry));
  if (onEndEnumFile) onEndEnumFile(enumerated);
}

std::optional<FtpFile> clsFtpClient::FileInformation(const std::wstring& name) {
  // Searches the whole listing: a server that is asked for a directory by name lists its contents instead.
  std::vector<FindData> entries;
  ReadDirectory(entries);
  const std::string wanted = Ansi(name);
  const auto found = std::find_if(entries.begin(), entries.end(),
                                  [&wanted](const FindData& entry) { return NameOf(entry) == wanted; });
  if (found == entries.end()) return std::nullopt;
  return ToFtpFile(*found);
}

bool clsFtpClient::Get(const std::wstring& remoteFile, const std::wstring& localFile, bool failIfExists) {
  return connection_ &&
         wininet_.FtpGetFileA(connection_.Get(), Ansi(remoteFile).c_str(), Ansi(localFile).c_str(),
                              failIfExists ? 1 : 0, kNormalFile, TransferType | CacheFlags(), 0) != 0;
}

bool clsFtpClient::Put(const std::wstring& localFile, const std::wstring& remoteFile) {
  return connection_ && wininet_.FtpPutFileA(connection_.Get(), Ansi(localFile).c_str(),
                                             Ansi(remoteFile).c_str(), TransferType, 0) != 0;
}

bool clsFtpClient::Delete(const std::wstring& file) {
  return connection_ && wininet_.FtpDeleteFileA(connection_.Get(), Ansi(file).c_str()) != 0;
}

bool clsFtpClient::Rename(const std::wstring& file, const std::wstring& newName) {
  return connection_ &&
         wininet_.FtpRenameFileA(connection_.Get(), Ansi(file).c_str(), Ansi(newName).c_str()) != 0;
}

bool clsFtpClient::MakeDir(const std::wstring& directory) {
  return connection_ && wininet_.FtpCreateDirectoryA(connection_.Get(), Ansi(directory).c_str()) != 0;
}

bool clsFtpClient::RemoveDir(const std::wstring& directory) {
  return connection_ && wininet_.FtpRemoveDirectoryA(connection_.Get(), Ansi(directory).c_str()) != 0;
}

}  // namespace tarvik
