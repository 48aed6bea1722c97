// Calls functions inside another process: writes a small thread procedure in machine code into its memory and
// runs it with CreateRemoteThread. Works from the 64-bit driver into 32-bit and 64-bit processes.
//
// Wine lets one of the process' own threads do what another process asks for: one that waits for the window
// server, or else any, interrupted by a signal. A thread that is interrupted inside malloc then waits for
// itself when it creates the new thread: the program hangs, and the driver with it. So under Wine the first
// call leaves a thread in the process that always waits.

#include "lab/helpers/window_driver/remote_win32.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <memory>

#include "lab/helpers/window_driver/driver_win32.h"
// After windows.h.
#include <psapi.h>
#include <tlhelp32.h>

namespace tarvik::lab {
namespace {

constexpr DWORD kRights = PROCESS_QUERY_INFORMATION | PROCESS_VM_OPERATION | PROCESS_VM_READ |
                          PROCESS_VM_WRITE | PROCESS_CREATE_THREAD;

constexpr size_t kProcedureSize = 512;

bool Is32BitProcess(HANDLE process) {
  BOOL emulated = FALSE;
  return sizeof(void*) == 4 || (IsWow64Process(process, &emulated) && emulated);
}

template <typename Value>
Value ReadValue(const RemoteProcess& process, uint64_t address) {
  Value value{};
  process.Read(address, &value, sizeof value);
  return value;
}

/// Assembles machine code.
class Code {
 public:
  Code& Bytes(std::initializer_list<uint8_t> bytes) {
    bytes_.insert(bytes_.end(), bytes);
    return *this;
  }
  Code& Number32(uint64_t number) { return Number(number, 4); }
  Code& Number64(uint64_t number) { return Number(number, 8); }
  const std::vector<uint8_t>& All() const { return bytes_; }

 private:
  Code& Number(uint64_t number, int size) {
    for (int i = 0; i < size; ++i) bytes_.push_back(static_cast<uint8_t>(number >> (8 * i)));
    return *this;
  }
  std::vector<uint8_t> bytes_;
};

/// A thread procedure that makes a stdcall call and stores the result at `resultAddress`.
Code ThreadCode32(uint64_t function, const std::vector<uint64_t>& arguments, uint64_t resultAddress) {
  Code code;
  for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
    code.Bytes({0x68}).Number32(*argument);  // push argument
  }
  code.Bytes({0xB8}).Number32(function).Bytes({0xFF, 0xD0});  // mov eax, function; call eax
  code.Bytes({0xA3}).Number32(resultAddress);                 // mov [result], eax
  code.Bytes({0x31, 0xC0, 0xC2, 0x04, 0x00});                 // xor eax, eax; ret 4
  return code;
}

/// The same with the 64-bit calling convention: 0x48 bytes of stack hold the shadow space and two stack
/// arguments.
Code ThreadCode64(uint64_t function, const std::vector<uint64_t>& arguments, uint64_t resultAddress) {
  constexpr std::array<std::array<uint8_t, 2>, 4> kLoadRegister = {
      {{0x48, 0xB9}, {0x48, 0xBA}, {0x49, 0xB8}, {0x49, 0xB9}}};  // mov rcx / rdx / r8 / r9, argument
  Code code;
  code.Bytes({0x48, 0x83, 0xEC, 0x48});  // sub rsp, 0x48
  for (size_t i = 0; i < arguments.size(); ++i) {
    if (i < kLoadRegister.size()) {
      code.Bytes({kLoadRegister[i][0], kLoadRegister[i][1]}).Number64(arguments[i]);
    } else {
      code.Bytes({0x48, 0xB8}).Number64(arguments[i]);  // mov rax, argument; mov [rsp + ...], rax
      code.Bytes({0x48, 0x89, 0x44, 0x24, static_cast<uint8_t>(8 * i)});
    }
  }
  code.Bytes({0x48, 0xB8}).Number64(function).Bytes({0xFF, 0xD0});  // mov rax, function; call rax
  code.Bytes({0x48, 0xA3}).Number64(resultAddress);                 // mov [result], rax
  code.Bytes({0x31, 0xC0, 0x48, 0x83, 0xC4, 0x48, 0xC3});           // xor eax, eax; add rsp, 0x48; ret
  return code;
}

/// The processor time of all threads of a process, in units of 100 nanoseconds.
uint64_t ProcessorTimeOf(DWORD process) {
  const auto number = [](FILETIME time) {
    return static_cast<uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
  };
  uint64_t sum = 0;
  const HANDLE threads = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  THREADENTRY32 entry{};
  entry.dwSize = sizeof entry;
  for (BOOL found = Thread32First(threads, &entry); found; found = Thread32Next(threads, &entry)) {
    if (entry.th32OwnerProcessID != process) continue;
    const HANDLE thread = OpenThread(THREAD_QUERY_INFORMATION, FALSE, entry.th32ThreadID);
    FILETIME unused;
    FILETIME kernel{};
    FILETIME user{};
    if (GetThreadTimes(thread, &unused, &unused, &kernel, &user)) sum += number(kernel) + number(user);
    CloseHandle(thread);
  }
  CloseHandle(threads);
  return sum;
}

/// Returns once the process has not computed for a moment, at the latest after five seconds.
void WaitUntilIdle(DWORD process) {
  constexpr double kTimeOutMs = 5000;
  constexpr DWORD kIdleMs = 30;  // the processor time is counted in steps of 10
  const double deadline = PreciseMilliseconds() + kTimeOutMs;
  uint64_t before = 0;
  uint64_t now = ProcessorTimeOf(process);
  do {
    before = now;
    Sleep(kIdleMs);
    now = ProcessorTimeOf(process);
  } while (now != before && PreciseMilliseconds() < deadline);
}

}  // namespace

bool IsWine() { return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr; }

RemoteProcess::RemoteProcess(DWORD id) : id_(id), handle_(OpenProcess(kRights, FALSE, id)) {
  if (handle_ == nullptr) throw CommandError("cannot open the process: error " + NumberText(GetLastError()));
  is32Bit_ = Is32BitProcess(handle_);
}

RemoteProcess::~RemoteProcess() { CloseHandle(handle_); }

void RemoteProcess::Read(uint64_t address, void* bytes, size_t size) const {
  if (!ReadProcessMemory(handle_, reinterpret_cast<void*>(static_cast<uintptr_t>(address)), bytes, size,
                         nullptr)) {
    throw CommandError("cannot read the process: error " + NumberText(GetLastError()));
  }
}

void RemoteProcess::Write(uint64_t address, const void* bytes, size_t size) const {
  if (!WriteProcessMemory(handle_, reinterpret_cast<void*>(static_cast<uintptr_t>(address)), bytes, size,
                          nullptr)) {
    throw CommandError("cannot write to the process: error " + NumberText(GetLastError()));
  }
}

uint64_t RemoteProcess::FindFunction(const wchar_t* library, const char* function) const {
  std::array<HMODULE, 512> modules{};
  DWORD size = 0;
  if (!K32EnumProcessModulesEx(handle_, modules.data(), sizeof modules, &size,
                               is32Bit_ ? LIST_MODULES_32BIT : LIST_MODULES_ALL)) {
    throw CommandError("cannot list the libraries: error " + NumberText(GetLastError()));
  }
  const size_t count = std::min<size_t>(size / sizeof(HMODULE), modules.size());
  for (size_t i = 0; i < count; ++i) {
    std::array<wchar_t, MAX_PATH> name{};
    K32GetModuleBaseNameW(handle_, modules[i], name.data(), static_cast<DWORD>(name.size()));
    if (lstrcmpiW(name.data(), library) != 0) continue;
    const uint64_t base = reinterpret_cast<uintptr_t>(modules[i]);
    const uint64_t header = base + ReadValue<uint32_t>(*this, base + 0x3C);
    // The first data directory, exports, has another offset in a 64-bit header.
    const uint64_t directory = header + (is32Bit_ ? 0x78 : 0x88);
    const uint64_t exports = base + ReadValue<uint32_t>(*this, directory);
    const auto table = ReadValue<IMAGE_EXPORT_DIRECTORY>(*this, exports);
    std::vector<uint32_t> names(table.NumberOfNames);
    std::vector<uint16_t> ordinals(table.NumberOfNames);
    Read(base + table.AddressOfNames, names.data(), names.size() * sizeof(uint32_t));
    Read(base + table.AddressOfNameOrdinals, ordinals.data(), ordinals.size() * sizeof(uint16_t));
    const size_t length = std::strlen(function) + 1;
    // Binary search: each name costs a ReadProcessMemory call.
    const auto readName = [&](uint32_t place) {
      std::string candidate(length, '\0');
      Read(base + place, candidate.data(), length);
      return candidate;
    };
    const std::string wanted(function, length);
    const auto found =
        std::lower_bound(names.begin(), names.end(), wanted,
                         [&](uint32_t place, const std::string& text) { return readName(place) < text; });
    if (found == names.end() || readName(*found) != wanted) continue;
    const uint64_t ordinal = ordinals[static_cast<size_t>(found - names.begin())];
    return base + ReadValue<uint32_t>(*this, base + table.AddressOfFunctions + 4 * ordinal);
  }
  throw CommandError(std::string("the process has no function ") + function);
}

HANDLE RemoteProcess::StartCall(uint64_t function, const std::vector<uint64_t>& arguments,
                                const RemoteMemory& procedure, const RemoteMemory& result) const {
  const Code code = is32Bit_ ? ThreadCode32(function, arguments, result.Address())
                             : ThreadCode64(function, arguments, result.Address());
  Write(procedure.Address(), code.All().data(), code.All().size());
  procedure.MakeExecutable();
  const auto start = reinterpret_cast<LPTHREAD_START_ROUTINE>(static_cast<uintptr_t>(procedure.Address()));
  const HANDLE thread = CreateRemoteThread(handle_, nullptr, 0, start, nullptr, 0, nullptr);
  if (thread == nullptr)
    throw CommandError("cannot call into the process: error " + NumberText(GetLastError()));
  return thread;
}

/// What is kept of a process for the next call into it.
struct RemoteProcess::Known {
  explicit Known(DWORD id) : process(id) {}
  RemoteProcess process;  ///< The open handle keeps the process id from being used again.
  std::map<std::pair<std::wstring, std::string>, uint64_t> functions;
  /// Of the thread that always waits; null without one.
  std::unique_ptr<RemoteMemory> procedure;
  std::unique_ptr<RemoteMemory> result;
};

RemoteProcess::Known& RemoteProcess::KnownOfThis() const {
  static std::map<DWORD, std::unique_ptr<Known>>& known = *new std::map<DWORD, std::unique_ptr<Known>>;
  std::unique_ptr<Known>& process = known[id_];
  if (!process) process = std::make_unique<Known>(id_);
  return *process;
}

uint64_t RemoteProcess::AddressOf(const wchar_t* library, const char* function) const {
  uint64_t& address = KnownOfThis().functions[{library, function}];
  if (address == 0) address = FindFunction(library, function);
  return address;
}

void RemoteProcess::KeepThreadWaiting() const {
  Known& known = KnownOfThis();
  if (known.procedure) return;
  WaitUntilIdle(id_);
  auto procedure = std::make_unique<RemoteMemory>(known.process, kProcedureSize);
  known.result = std::make_unique<RemoteMemory>(known.process, sizeof(uint64_t));
  const uint64_t sleep = AddressOf(L"kernelbase.dll", "SleepEx");
  CloseHandle(StartCall(sleep, {INFINITE, TRUE}, *procedure, *known.result));
  known.procedure = std::move(procedure);
}

uint64_t RemoteProcess::Call(const wchar_t* library, const char* function,
                             const std::vector<uint64_t>& arguments) const {
  if (IsWine()) KeepThreadWaiting();
  const uint64_t address = AddressOf(library, function);
  const RemoteMemory result(*this, sizeof(uint64_t));
  const RemoteMemory procedure(*this, kProcedureSize);
  const HANDLE thread = StartCall(address, arguments, procedure, result);
  const DWORD waited = WaitForSingleObject(thread, 15000);
  CloseHandle(thread);
  if (waited != WAIT_OBJECT_0)
    throw CommandError(std::string("the call of ") + function + " into the process did not return");
  return is32Bit_ ? ReadValue<uint32_t>(*this, result.Address())
                  : ReadValue<uint64_t>(*this, result.Address());
}

RemoteMemory::RemoteMemory(const RemoteProcess& process, size_t size)
    : process_(process),
      memory_(VirtualAllocEx(process.handle_, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE)) {
  if (memory_ == nullptr)
    throw CommandError("cannot allocate memory in the process: error " + NumberText(GetLastError()));
}

void RemoteMemory::MakeExecutable() const {
  // Never both writable and executable, which virus scanners reject.
  DWORD before = 0;
  if (!VirtualProtectEx(process_.handle_, memory_, 1, PAGE_EXECUTE_READ, &before))
    throw CommandError("cannot call into the process: error " + NumberText(GetLastError()));
}

RemoteMemory::~RemoteMemory() { VirtualFreeEx(process_.handle_, memory_, 0, MEM_RELEASE); }

}  // namespace tarvik::lab
