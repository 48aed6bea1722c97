#include "report/fmt_err_msg.h"

#include <algorithm>

#include "platform/fixed_buffer.h"
#include "platform/text.h"

namespace tarvik {
namespace {

constexpr uint32_t kBufferSize = 256;

/// The message table of network management, whose texts are not in the system's own table.
class NetworkMessages {
 public:
  NetworkMessages(KernelCalls& kernel, int32_t code) : kernel_(kernel) {
    if (code >= kFirstCode && code <= kLastCode)
      module_ = kernel_.LoadLibraryExA("netmsg.dll", KernelCalls::kLoadAsDataFile);
  }
  ~NetworkMessages() {
    if (module_ != 0) kernel_.FreeLibrary(module_);
  }
  NetworkMessages(const NetworkMessages&) = delete;
  NetworkMessages& operator=(const NetworkMessages&) = delete;

  /// 0 when the code is not a network error or the table cannot be loaded.
  KernelCalls::Module Module() const { return module_; }

 private:
  static constexpr int32_t kFirstCode = 2100;
  static constexpr int32_t kLastCode = 2999;

  KernelCalls& kernel_;
  KernelCalls::Module module_ = 0;
};

/// Joins the lines of a system text, which also ends with a line break, to one result line.
std::wstring OneLine(const std::wstring& text) {
  std::wstring line;
  for (size_t at = 0; (at = text.find_first_not_of(L"\r\n", at)) != std::wstring::npos;) {
    const size_t end = std::min(text.find_first_of(L"\r\n", at), text.size());
    if (!line.empty() && line.back() != L' ') line += L' ';
    line.append(text, at, end - at);
    at = end;
  }
  return line;
}

}  // namespace

std::wstring FmtErrMsg::Decode(int32_t lCode) {
  std::wstring text;
  {
    const NetworkMessages network(kernel_, lCode);
    const uint32_t flags =
        KernelCalls::kMessageFromSystem | (network.Module() != 0 ? KernelCalls::kMessageFromModule : 0);
    char buffer[kBufferSize] = {};
    const uint32_t length =
        kernel_.FormatMessageA(flags, network.Module(), static_cast<uint32_t>(lCode), 0, buffer, kBufferSize);
    if (length == 0)
      boxes_.Show(L"FormatMessage Error : " + Decimal(kernel_.GetLastError()));
    else
      text = OneLine(codePage_.FromAnsi(TrimNull(std::string_view(buffer, std::min(length, kBufferSize)))));
  }
  return L"ERROR: " + Decimal(lCode) + L" - " + text;
}

}  // namespace tarvik
