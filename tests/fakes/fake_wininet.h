#pragma once

#include <algorithm>
#include <cstring>
#include <deque>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "ftp/wininet.h"
#include "platform/runtime_error.h"

namespace tarvik::test {

/// A WinINet without a network. Records all calls except InternetFindNextFileA and GetLastError, with their
/// arguments, and which handles are open.
class FakeWininet final : public Wininet {
 public:
  static constexpr uint32_t kInsufficientBuffer = 122;

  static FindData File(std::string_view name, uint32_t size = 0, uint32_t attributes = 0x80) {
    FindData data;
    data.dwFileAttributes = attributes;
    data.nFileSizeLow = size;
    name.copy(data.cFileName, sizeof data.cFileName);
    return data;
  }
  static FindData Directory(std::string_view name) { return File(name, 0, 0x10); }

  Handle InternetOpenA(const char* agent, uint32_t accessType, const char* proxy, const char* proxyBypass,
                       uint32_t flags) override {
    connecting_ = false;
    return Open("InternetOpenA",
                {Text(agent), Number(accessType), Text(proxy), Text(proxyBypass), Number(flags)});
  }

  Handle InternetConnectA(Handle session, const char* host, uint16_t port, const char* user,
                          const char* password, uint32_t service, uint32_t flags,
                          uintptr_t context) override {
    if (!open.contains(session)) ++misuses;
    connecting_ = true;
    const Handle connection = Open("InternetConnectA", {Text(host), Number(port), Text(user), Text(password),
                                                        Number(service), Number(flags), Number(context)});
    if (connection == 0) lastError_ = connectError;
    return connection;
  }

  StatusCallback InternetSetStatusCallback(Handle handle, StatusCallback callback) override {
    if (!open.contains(handle)) ++misuses;
    Record("InternetSetStatusCallback", {});
    if (callback != nullptr) callback(handle, 0, 10, nullptr, 0);
    return nullptr;
  }

  int32_t FtpGetCurrentDirectoryA(Handle connection, char* buffer, uint32_t* length) override {
    return Simple("FtpGetCurrentDirectoryA", connection, {}) != 0 ? CopyText(currentDirectory, buffer, length)
                                                                  : 0;
  }
  int32_t FtpSetCurrentDirectoryA(Handle connection, const char* directory) override {
    return Simple("FtpSetCurrentDirectoryA", connection, {Text(directory)});
  }

  Handle FtpFindFirstFileA(Handle connection, const char* pattern, FindData* found, uint32_t flags,
                           uintptr_t context) override {
    if (!open.contains(connection)) ++misuses;
    next_ = 0;
    if (entries.empty()) failing.insert("FtpFindFirstFileA");
    const Handle search = Open("FtpFindFirstFileA", {Text(pattern), Number(flags), Number(context)});
    if (search != 0) *found = entries[next_++];
    if (search == 0) lastError_ = findError;
    return search;
  }
  int32_t InternetFindNextFileA(Handle search, FindData* found) override {
    if (!open.contains(search)) ++misuses;
    if (throwing == "InternetFindNextFileA") throw RuntimeError(L"InternetFindNextFileA");
    lastError_ = 18;
    if (endless) next_ %= entries.size();
    if (next_ == entries.size()) return 0;
    *found = entries[next_++];
    return 1;
  }

  int32_t InternetGetLastResponseInfoA(uint32_t* error, char* buffer, uint32_t* length) override {
    bufferSizes.push_back(*length);
    if (Record("InternetGetLastResponseInfoA", {}) == 0) return 0;
    *error = 0;
    if (onResponse) return onResponse(buffer, length, lastError_);
    const bool hasNew = connecting_ && !replies.empty();
    const int32_t copied = CopyText(hasNew ? replies.front() : heldReply, buffer, length);
    if (copied != 0 && hasNew) {
      heldReply = replies.front();
      replies.pop_front();
    }
    return copied;
  }

  int32_t InternetCloseHandle(Handle handle) override {
    calls.push_back("InternetCloseHandle(" + Number(static_cast<uint64_t>(handle)) + ")");
    if (open.erase(handle) == 0) ++misuses;
    return 1;
  }

  int32_t FtpGetFileA(Handle connection, const char* remoteFile, const char* newFile, int32_t failIfExists,
                      uint32_t attributes, uint32_t flags, uintptr_t context) override {
    return Simple("FtpGetFileA", connection,
                  {Text(remoteFile), Text(newFile), Number(static_cast<uint32_t>(failIfExists)),
                   Number(attributes), Number(flags), Number(context)});
  }
  int32_t FtpPutFileA(Handle connection, const char* localFile, const char* newRemoteFile, uint32_t flags,
                      uintptr_t context) override {
    return Simple("FtpPutFileA", connection,
                  {Text(localFile), Text(newRemoteFile), Number(flags), Number(context)});
  }
  int32_t FtpDeleteFileA(Handle connection, const char* file) override {
    return Simple("FtpDeleteFileA", connection, {Text(file)});
  }
  int32_t FtpRenameFileA(Handle connection, const char* existing, const char* newName) override {
    return Simple("FtpRenameFileA", connection, {Text(existing), Text(newName)});
  }
  int32_t FtpCreateDirectoryA(Handle connection, const char* directory) override {
    return Simple("FtpCreateDirectoryA", connection, {Text(directory)});
  }
  int32_t FtpRemoveDirectoryA(Handle connection, const char* directory) override {
    return Simple("FtpRemoveDirectoryA", connection, {Text(directory)});
  }

  uint32_t GetLastError() override { return lastError_; }

  /// The calls of that name, with their arguments.
  std::vector<std::string> CallsOf(const std::string& name) const {
    std::vector<std::string> found;
    for (const std::string& call : calls)
      if (call.starts_with(name + "(")) found.push_back(call);
    return found;
  }

  std::vector<FindData> entries;  ///< the remote directory; FtpFindFirstFileA fails when empty
  bool endless = false;           ///< after the last entry the search starts over
  /// The replies of InternetGetLastResponseInfoA after a connection attempt. When they are used up it repeats
  /// the last one, even in a later session.
  std::deque<std::string> replies;
  std::string heldReply;          ///< the last reply
  uint32_t connectError = 12003;  ///< the error of a failed connection
  uint32_t findError = 12003;     ///< the error of a listing that cannot be read
  std::string currentDirectory = "/";
  std::set<std::string> failing;  ///< the calls that fail
  std::string throwing;           ///< the call that the library does not export
  std::function<void(const std::string& name)> onCall;
  /// Replaces InternetGetLastResponseInfoA.
  std::function<int32_t(char* buffer, uint32_t* length, uint32_t& lastError)> onResponse;

  std::vector<std::string> calls;     ///< all but InternetFindNextFileA, such as "FtpDeleteFileA(a.txt)"
  std::vector<uint32_t> bufferSizes;  ///< of InternetGetLastResponseInfoA
  std::set<Handle> open;
  int misuses = 0;  ///< number of calls with a handle that was not open

 private:
  static std::string Text(const char* text) { return text == nullptr ? "none" : text; }
  static std::string Number(uint64_t number) { return std::to_string(number); }

  int32_t Record(const std::string& name, const std::vector<std::string>& arguments) {
    std::string call = name + "(";
    for (const std::string& argument : arguments) call += (call.back() == '(' ? "" : ", ") + argument;
    calls.push_back(call + ")");
    if (onCall) onCall(name);
    if (throwing == name) throw RuntimeError(L"The library does not export a call.");
    lastError_ = 12003;
    return failing.contains(name) ? 0 : 1;
  }
  Handle Open(const std::string& name, const std::vector<std::string>& arguments) {
    if (Record(name, arguments) == 0) return 0;
    open.insert(++latest_);
    return latest_;
  }
  int32_t Simple(const std::string& name, Handle connection, const std::vector<std::string>& arguments) {
    if (!open.contains(connection)) ++misuses;
    return Record(name, arguments);
  }
  int32_t CopyText(const std::string& text, char* buffer, uint32_t* length) {
    const bool fits = text.size() < *length;
    *length = static_cast<uint32_t>(fits ? text.size() : text.size() + 1);
    lastError_ = kInsufficientBuffer;
    if (fits) std::memcpy(buffer, text.c_str(), text.size() + 1);
    return fits ? 1 : 0;
  }

  bool connecting_ = false;  ///< InternetConnectA was called in this session
  size_t next_ = 0;
  Handle latest_ = 0;
  uint32_t lastError_ = 0;
};

}  // namespace tarvik::test
