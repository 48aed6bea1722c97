#include "platform/file_util.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "platform/fixed_buffer.h"
#include "platform/text.h"

namespace tarvik {
namespace {

constexpr size_t kFirstPathLength = 260;
constexpr size_t kMaxPathLength = 32768;
/// A version resource has a 16-bit length; anything much larger is not a version resource.
constexpr uint32_t kMaxVersionInfoBytes = 0x100000;
/// ERROR_INVALID_DATA: the code of a failure for which Windows sets none.
constexpr uint32_t kInvalidData = 13;

/// The part of the sub-block that is inside the block; empty when none is.
std::span<const std::byte> Inside(std::span<const std::byte> block, const void* value, uint32_t length) {
  const auto begin = reinterpret_cast<std::uintptr_t>(block.data());
  const auto at = reinterpret_cast<std::uintptr_t>(value);
  if (at < begin || at - begin > block.size()) return {};
  const std::span<const std::byte> rest = block.subspan(at - begin);
  return rest.first(std::min<size_t>(rest.size(), length));
}

}  // namespace

void FileUtil::Begin(const wchar_t* method, const std::wstring& argument) {
  call_ = std::wstring(method) + L"(" + argument + L")";
  errorMessage_.clear();
  errorCode_ = 0;
}

std::nullopt_t FileUtil::Fail(const wchar_t* step, uint32_t code) {
  errorCode_ = code;
  errorMessage_ = call_ + L"\r\n" + step;
  return std::nullopt;
}

std::optional<std::wstring> FileUtil::mSearchPath(const std::wstring& fileName) {
  Begin(L"mSearchPath", fileName);
  std::wstring path(kFirstPathLength, L'\0');
  uint32_t length = kernel_.SearchPathW(fileName.c_str(), path.data(), static_cast<uint32_t>(path.size()));
  if (length > path.size() && length <= kMaxPathLength) {
    path.assign(length, L'\0');
    length = kernel_.SearchPathW(fileName.c_str(), path.data(), static_cast<uint32_t>(path.size()));
  }
  constexpr wchar_t kStep[] = L"API SearchPath Cannot find";
  if (length == 0) return Fail(kStep, kernel_.GetLastError());
  if (length >= path.size()) return Fail(kStep, kInvalidData);
  return std::wstring(TrimNull(std::wstring_view(path).substr(0, length)));
}

std::optional<std::wstring> FileUtil::mGetFileVersionInfoString(const std::wstring& path) {
  Begin(L"mGetFileVersionInfoString", path);
  uint32_t handle = 0;
  const uint32_t size = version_.GetFileVersionInfoSizeW(path.c_str(), handle);
  if (size == 0) return Fail(L"API GetFileVersionInfoSize ", kernel_.GetLastError());
  if (size > kMaxVersionInfoBytes) return Fail(L"API GetFileVersionInfoSize ", kInvalidData);
  std::vector<std::byte> block(size);
  if (version_.GetFileVersionInfoW(path.c_str(), handle, size, block.data()) == 0)
    return Fail(L"API GetFileVersionInfo ", kernel_.GetLastError());
  const void* value = nullptr;
  uint32_t length = 0;
  if (version_.VerQueryValueW(block.data(), L"\\", value, length) != 0)
    if (auto text = FixedFileVersion(Inside(block, value, length))) return text;
  return Fail(L"API VerQueryValue ", kInvalidData);
}

std::optional<std::wstring> FixedFileVersion(std::span<const std::byte> root) {
  FixedFileInfo info;
  if (root.size() < sizeof info) return std::nullopt;
  std::memcpy(&info, root.data(), sizeof info);
  if (info.signature != FixedFileInfo::kSignature) return std::nullopt;
  const auto pair = [](uint32_t both) { return Decimal(both >> 16) + L"." + Decimal(both & 0xFFFF); };
  return pair(info.fileVersionHigh) + L"." + pair(info.fileVersionLow);
}

}  // namespace tarvik
