#include "lab/windows_check/handles_win32.h"

#include <vector>

namespace tarvik::check {
namespace {

/// SYSTEM_HANDLE_TABLE_ENTRY_INFO_EX. Only the owning process is used.
struct HandleTableEntry {
  void* object;
  ULONG_PTR process;
  ULONG_PTR handle;
  ULONG rest[4];
};

/// Counted in the table of all handles, because Wine's GetProcessHandleCount returns 0.
int64_t CountInTable(DWORD id) {
  using Query = LONG WINAPI(int, void*, ULONG, ULONG*);
  constexpr int kExtendedHandleInformation = 64;
  constexpr auto kTooSmall = static_cast<LONG>(0xC0000004);
  constexpr size_t kMaxWords = 0x1000000;
  auto* const query = reinterpret_cast<Query*>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
  std::vector<ULONG_PTR> table(0x10000);
  LONG result = kTooSmall;
  while (result == kTooSmall && table.size() < kMaxWords) {
    table.resize(2 * table.size());
    result = query(kExtendedHandleInformation, table.data(),
                   static_cast<ULONG>(table.size() * sizeof(ULONG_PTR)), nullptr);
  }
  if (result < 0) return 0;
  // The number of entries and a reserved word precede them.
  const auto* const entries = reinterpret_cast<const HandleTableEntry*>(table.data() + 2);
  int64_t count = 0;
  for (ULONG_PTR i = 0; i < table[0]; ++i)
    if (entries[i].process == id) ++count;
  return count;
}

}  // namespace

HandleCounts CountHandles(HANDLE process, DWORD id) {
  HandleCounts counts;
  DWORD kernel = 0;
  if (GetProcessHandleCount(process, &kernel)) counts.kernel = kernel;
  if (counts.kernel == 0) counts.kernel = CountInTable(id);
  counts.gdi = GetGuiResources(process, GR_GDIOBJECTS);
  counts.user = GetGuiResources(process, GR_USEROBJECTS);
  return counts;
}

std::string TextOf(const HandleCounts& counts) {
  return "kernel " + std::to_string(counts.kernel) + ", GDI " + std::to_string(counts.gdi) + ", USER " +
         std::to_string(counts.user);
}

}  // namespace tarvik::check
