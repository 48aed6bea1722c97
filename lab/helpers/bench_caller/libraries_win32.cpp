// The commands that call the bench's libraries. Each comment gives a command's arguments and the fields of
// its answer. Records are prefilled, so that the tests see which bytes a call leaves untouched.

#include <cstring>

#include "bench/k7api.h"
#include "bench/nxlib32.h"
#include "bench/svckit.h"
#include "lab/helpers/bench_caller/bench_caller_win32.h"

namespace tarvik::lab {
namespace {

constexpr char kNxLib[] = "NxLib32.dll";
constexpr char kK7Api[] = "k7api.dll";
constexpr char kSvcKit[] = "SvcKit.dll";

// Fills records before the call.
constexpr char kUntouched = '~';

template <typename Integer>
std::string Text(Integer number) {
  return std::to_string(number);
}

template <size_t Size>
std::string Characters(const char (&text)[Size]) {
  return std::string(text, Size);
}

uint16_t Word(const Fields& fields, size_t index) { return static_cast<uint16_t>(Number(fields, index)); }

/// nx_allochandle3 <address> <port> <time-out> -> result, handle
Fields AllocHandle3(const Fields& arguments) {
  uint16_t handle = 0;
  const auto call = Find<decltype(nx_allochandle3)>(kNxLib, "nx_allochandle3");
  const int16_t result = call(arguments.at(0).c_str(), Word(arguments, 1), Number(arguments, 2), &handle);
  return {Text(result), Text(handle)};
}

/// nx_allochandle_code <address> <port> <access code> <time-out> -> result, handle
Fields AllocHandleCode(const Fields& arguments) {
  uint16_t handle = 0;
  const auto call = Find<decltype(nx_allochandle_code)>(kNxLib, "nx_allochandle_code");
  const int16_t result = call(arguments.at(0).c_str(), Word(arguments, 1), arguments.at(2).c_str(),
                              Number(arguments, 3), &handle);
  return {Text(result), Text(handle)};
}

/// nx_getoptions1 <handle> -> result, option word
Fields GetOptions1(const Fields& arguments) {
  int32_t zero = 0;
  int32_t options = 0;
  const auto call = Find<decltype(nx_getoptions1)>(kNxLib, "nx_getoptions1");
  return {Text(call(Word(arguments, 0), &zero, &options)), Text(options)};
}

/// nx_sysinfo <handle> -> result, addinfo, axes, the character fields, and the bytes after the record, which
/// must stay untouched
Fields SysInfo(const Fields& arguments) {
  struct {
    nx_system_information information;
    char after[8];
  } guarded;
  std::memset(&guarded, kUntouched, sizeof guarded);
  const auto call = Find<decltype(nx_sysinfo)>(kNxLib, "nx_sysinfo");
  const int16_t result = call(Word(arguments, 0), &guarded.information);
  const nx_system_information& information = guarded.information;
  return {Text(result),
          Text(information.addinfo),
          Text(information.max_axes),
          Characters(information.model_type),
          Characters(information.machine_type),
          Characters(information.series_code),
          Characters(information.version_code),
          Characters(information.axes_text),
          Characters(guarded.after)};
}

/// nx_pmc_rdrange <handle> <address type> <data type> <first> <last> <length> -> result, the header's four
/// numbers, the number of bytes written, those bytes in hexadecimal
Fields PmcRdRange(const Fields& arguments) {
  nx_pmc_range range;
  std::memset(&range, kUntouched, sizeof range);
  const auto call = Find<decltype(nx_pmc_rdrange)>(kNxLib, "nx_pmc_rdrange");
  const int16_t result = call(Word(arguments, 0), static_cast<int16_t>(Number(arguments, 1)),
                              static_cast<int16_t>(Number(arguments, 2)), Word(arguments, 3),
                              Word(arguments, 4), Word(arguments, 5), &range);
  size_t written = sizeof range.data;
  while (written > 0 && range.data[written - 1] == static_cast<uint8_t>(kUntouched)) --written;
  std::string bytes;
  for (size_t i = 0; i < written; ++i) {
    char text[3];
    ::wsprintfA(text, "%02X", range.data[i]);
    bytes += text;
  }
  return {Text(result),
          Text(range.addr_type),
          Text(range.data_type),
          Text(range.first_no),
          Text(range.last_no),
          Text(written),
          bytes};
}

/// nx_pmc_detailerr <handle> -> result, code, item
Fields PmcDetailErr(const Fields& arguments) {
  nx_pmc_detail detail{};
  const auto call = Find<decltype(nx_pmc_detailerr)>(kNxLib, "nx_pmc_detailerr");
  const int16_t result = call(Word(arguments, 0), &detail);
  return {Text(result), Text(detail.error_code), Text(detail.error_item)};
}

/// nx_freehandle <handle> -> result
Fields FreeHandle(const Fields& arguments) {
  return {Text(Find<decltype(nx_freehandle)>(kNxLib, "nx_freehandle")(Word(arguments, 0)))};
}

/// A string argument of the K7 API: 256 bytes, all of which the library may overwrite.
class K7Buffer {
 public:
  explicit K7Buffer(const std::string& text) : bytes_(text) { bytes_.resize(256); }
  char* Bytes() { return bytes_.data(); }
  std::string Text() const { return bytes_.substr(0, bytes_.find('\0')); }

 private:
  std::string bytes_;
};

/// K7_AllocHandle -> result, handle
Fields K7AllocHandle(const Fields&) {
  int32_t handle = 0;
  const int32_t result = Find<decltype(K7_AllocHandle)>(kK7Api, "K7_AllocHandle")(&handle);
  return {Text(result), Text(handle)};
}

/// K7_ConnectServer <handle> <host> -> result, host
Fields K7ConnectServer(const Fields& arguments) {
  K7Buffer host(arguments.at(1));
  const auto call = Find<decltype(K7_ConnectServer)>(kK7Api, "K7_ConnectServer");
  const int16_t result = call(Number(arguments, 0), host.Bytes());
  return {Text(result), host.Text()};
}

/// K7_CheckReboot2 <handle> <address> <state A> <state B> -> result, address, state A, state B, extra, live
Fields K7CheckReboot2(const Fields& arguments) {
  K7Buffer address(arguments.at(1));
  int32_t newA = 0;
  int32_t newB = 0;
  int32_t extra = 0;
  int16_t live = 0;
  const auto call = Find<decltype(K7_CheckReboot2)>(kK7Api, "K7_CheckReboot2");
  const int16_t result = call(Number(arguments, 0), address.Bytes(), Number(arguments, 2),
                              Number(arguments, 3), &newA, &newB, &extra, &live);
  return {Text(result), address.Text(), Text(newA), Text(newB), Text(extra), Text(live)};
}

/// K7_GetLastError <handle> -> result, error code, system error
Fields K7GetLastError(const Fields& arguments) {
  int32_t code = 0;
  int32_t system = 0;
  const auto call = Find<decltype(K7_GetLastError)>(kK7Api, "K7_GetLastError");
  const int32_t result = call(Number(arguments, 0), &code, &system);
  return {Text(result), Text(code), Text(system)};
}

/// QSetup_GetServiceStatus <name> -> result, state
Fields GetServiceStatus(const Fields& arguments) {
  int32_t status = 0;
  const auto call = Find<decltype(QSetup_GetServiceStatus)>(kSvcKit, "QSetup_GetServiceStatus");
  const int32_t result = call(arguments.at(0).c_str(), &status, -1);
  return {Text(result), Text(status)};
}

/// QSetup_InstallService <name> <display name> <path> <start type> -> result
Fields InstallService(const Fields& arguments) {
  const auto call = Find<decltype(QSetup_InstallService)>(kSvcKit, "QSetup_InstallService");
  return {Text(
      call(arguments.at(0).c_str(), arguments.at(1).c_str(), arguments.at(2).c_str(), Number(arguments, 3)))};
}

}  // namespace

std::map<std::string, Command> LibraryCommands() {
  std::map<std::string, Command> commands = {
      {"nx_allochandle3", AllocHandle3},
      {"nx_allochandle_code", AllocHandleCode},
      {"nx_getoptions1", GetOptions1},
      {"nx_sysinfo", SysInfo},
      {"nx_pmc_rdrange", PmcRdRange},
      {"nx_pmc_detailerr", PmcDetailErr},
      {"nx_freehandle", FreeHandle},
      {"K7_AllocHandle", K7AllocHandle},
      {"K7_ConnectServer", K7ConnectServer},
      {"K7_CheckReboot2", K7CheckReboot2},
      {"K7_GetLastError", K7GetLastError},
      {"QSetup_GetServiceStatus", GetServiceStatus},
      {"QSetup_InstallService", InstallService},
  };
  for (const char* name : {"K7_WSAStartup", "K7_WSACleanup"}) {
    commands[name] = [name](const Fields&) {
      return Fields{Text(Find<decltype(K7_WSAStartup)>(kK7Api, name)())};
    };
  }
  commands["K7_FreeHandle"] = [](const Fields& arguments) {
    return Fields{Text(Find<decltype(K7_FreeHandle)>(kK7Api, "K7_FreeHandle")(Number(arguments, 0)))};
  };
  // <name> <wait> -> result
  for (const char* name : {"QSetup_StartService", "QSetup_StopService"}) {
    commands[name] = [name](const Fields& arguments) {
      const auto call = Find<decltype(QSetup_StartService)>(kSvcKit, name);
      return Fields{Text(call(arguments.at(0).c_str(), Number(arguments, 1)))};
    };
  }
  commands["QSetup_RemoveService"] = [](const Fields& arguments) {
    const auto call = Find<decltype(QSetup_RemoveService)>(kSvcKit, "QSetup_RemoveService");
    return Fields{Text(call(arguments.at(0).c_str()))};
  };
  return commands;
}

}  // namespace tarvik::lab
