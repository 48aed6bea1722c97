#pragma once

#include <algorithm>
#include <cstring>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "cnclib/cnc_library.h"
#include "platform/runtime_error.h"

namespace tarvik::test {

/// A CNC library without a controller. Records every call with its arguments, and which handles are open.
class FakeCncLibrary final : public CncLibrary {
 public:
  int16_t nx_allochandle3(const char* address, int16_t port, int32_t timeOut, Handle& handle) override {
    Record("nx_allochandle3", {address, std::to_string(port), std::to_string(timeOut)});
    return GiveHandle(openResult, handle);
  }
  int16_t nx_allochandle_code(const char* address, int16_t port, const char* accessCode, int32_t timeOut,
                              Handle& handle) override {
    Record("nx_allochandle_code", {address, std::to_string(port), accessCode, std::to_string(timeOut)});
    return GiveHandle(codeResult, handle);
  }
  int16_t nx_getoptions1(Handle handle, int32_t& reserved, uint32_t& word) override {
    Record("nx_getoptions1", {std::to_string(handle), std::to_string(reserved)});
    reserved = -1;
    if (fillsRecords) word = options;
    return optionsResult;
  }
  int16_t nx_sysinfo(Handle handle, CncSystemInfo& record) override {
    Record("nx_sysinfo", {std::to_string(handle)});
    if (fillsRecords) record = info;
    return infoResult;
  }
  int16_t nx_freehandle(Handle handle) override {
    Record("nx_freehandle", {std::to_string(handle)});
    ++frees;
    if (out.erase(handle) == 0) ++strayFrees;
    return 0;
  }
  int16_t nx_pmc_rdrange(Handle handle, int16_t addressType, int16_t dataType, int16_t first, int16_t last,
                         int16_t length, CncPmcRange& range) override {
    Record("nx_pmc_rdrange", {std::to_string(handle), std::to_string(addressType), std::to_string(dataType),
                              std::to_string(first), std::to_string(last), std::to_string(length)});
    header = {range.addr_type, range.data_type, range.first_no, range.last_no};
    ++reads;
    if (onRead) onRead();
    std::copy_n(data.begin(), std::min(data.size(), sizeof range.data), range.data);
    if (spoilsHeader) range.addr_type = range.data_type = range.first_no = range.last_no = -1;
    return readResult;
  }
  int16_t nx_pmc_detailerr(Handle handle, CncPmcDetailError& error) override {
    Record("nx_pmc_detailerr", {std::to_string(handle)});
    if (fillsRecords) error = detail;
    return 0;
  }

  /// True when every handle was freed exactly once.
  bool AllGivenBack() const { return out.empty() && strayFrees == 0; }
  /// The names of the calls, in order.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const std::string& call : calls) names.push_back(call.substr(0, call.find('(')));
    return names;
  }
  /// Number of calls of that name.
  long Count(std::string_view name) const {
    const auto names = Names();
    return std::count(names.begin(), names.end(), name);
  }

  int16_t openResult = 0;
  int16_t codeResult = 0;
  int16_t optionsResult = 0;
  int16_t infoResult = 0;
  int16_t readResult = 0;
  /// The next handle to allocate, increased after each; 0 = succeed with handle 0 every time.
  Handle nextHandle = 5;
  bool givesHandleOnFailure = false;  ///< a failed call also allocates a handle
  bool fillsRecords = true;           ///< false: calls succeed but leave the records untouched
  bool spoilsHeader = false;          ///< a read overwrites the fields of its request
  uint32_t options = 1;
  CncSystemInfo info{512, 8, {'G', 'L'}, {'M', 'M'}, {'D', '4', '1', '1'}, {'0', '1', '0', '2'}, {' ', '3'}};
  std::vector<uint8_t> data = {0xFF};
  CncPmcDetailError detail{3, 12};
  std::set<std::string> missing;  ///< calls that the library does not export
  std::function<void()> onRead;
  std::function<void()> onCall;

  std::vector<std::string> calls;  ///< "name(argument, argument)"
  std::vector<int16_t> header;     ///< the four fields of the latest request
  int reads = 0;
  int frees = 0;
  int strayFrees = 0;    ///< frees of handles that were not open
  std::set<Handle> out;  ///< open handles

 private:
  void Record(const std::string& name, std::initializer_list<std::string> arguments) {
    std::string call = name + "(";
    for (const std::string& argument : arguments) call += (call.back() == '(' ? "" : ", ") + argument;
    calls.push_back(call + ")");
    if (onCall) onCall();
    if (missing.contains(name))
      throw RuntimeError(L"NxLib32.dll does not export " + std::wstring(name.begin(), name.end()) + L".");
  }
  int16_t GiveHandle(int16_t result, Handle& handle) {
    if (result == 0 || givesHandleOnFailure) {
      handle = nextHandle;
      if (handle != 0) out.insert(nextHandle++);
    }
    return result;
  }
};

}  // namespace tarvik::test
