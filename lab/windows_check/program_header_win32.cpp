#include "lab/windows_check/program_header_win32.h"

#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {

ProgramHeader ReadProgramHeader(const std::wstring& path) {
  constexpr DWORD kEnough = 4096;
  const HANDLE file =
      ::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) throw CheckError("cannot read " + ToUtf8(path));
  std::string bytes(kEnough, '\0');
  DWORD count = 0;
  ::ReadFile(file, bytes.data(), kEnough, &count, nullptr);
  ::CloseHandle(file);
  const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(bytes.data());
  const auto offset = static_cast<size_t>(dos->e_lfanew);
  if (offset + sizeof(IMAGE_NT_HEADERS32) > count) throw CheckError(ToUtf8(path) + " is not a program");
  const auto* const header = reinterpret_cast<const IMAGE_NT_HEADERS32*>(bytes.data() + offset);
  const IMAGE_OPTIONAL_HEADER32& optional = header->OptionalHeader;
  if (optional.Magic != IMAGE_NT_OPTIONAL_HDR32_MAGIC)
    throw CheckError(ToUtf8(path) + " is not a 32-bit program");
  const auto version = [](unsigned major, unsigned minor) { return major << 16 | minor; };
  return {version(optional.MajorSubsystemVersion, optional.MinorSubsystemVersion),
          version(optional.MajorOperatingSystemVersion, optional.MinorOperatingSystemVersion),
          optional.DllCharacteristics};
}

std::string ReadManifest(const std::wstring& path) {
  constexpr WORD kManifestType = 24;
  const HMODULE program = ::LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
  if (program == nullptr) throw CheckError("cannot read " + ToUtf8(path));
  std::string manifest;
  if (const HRSRC found = ::FindResourceW(program, MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(kManifestType))) {
    const void* const bytes = ::LockResource(::LoadResource(program, found));
    manifest.assign(static_cast<const char*>(bytes), ::SizeofResource(program, found));
  }
  ::FreeLibrary(program);
  return manifest;
}

}  // namespace tarvik::check
