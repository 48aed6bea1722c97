#pragma once

#include <algorithm>
#include <cstring>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/kernel_calls.h"
#include "platform/text.h"
#include "platform/version_library.h"

namespace tarvik::test {

/// A full path, from wide or ASCII text.
struct FakePath {
  FakePath() = default;
  FakePath(std::wstring wide) : text(std::move(wide)) {}
  FakePath(const std::string& ascii) : text(WidenAscii(ascii)) {}
  FakePath(const char* ascii) : text(WidenAscii(ascii)) {}
  bool operator<(const FakePath& other) const { return text < other.text; }

  std::wstring text;
};

/// Kernel calls in memory: search path, modules and message tables.
class FakeKernel final : public KernelCalls {
 public:
  struct Format {
    uint32_t flags;
    Module module;
    uint32_t messageId;
    uint32_t languageId;
    uint32_t size;
  };

  uint32_t SearchPathW(const wchar_t* fileName, wchar_t* buffer, uint32_t size) override {
    searched.push_back(NarrowAscii(fileName));
    if (onSearch) onSearch();
    searchSizes.push_back(size);
    if (searchLie) return *searchLie;
    const auto found = paths.find(searched.back());
    if (found == paths.end()) {
      lastError = 2;
      return 0;
    }
    const std::wstring& path = found->second.text;
    const auto length = static_cast<uint32_t>(path.size());
    if (length >= size) return length + 1;
    std::fill_n(buffer, size, L'#');
    std::copy_n(path.c_str(), length + 1, buffer);
    return length;
  }
  Module LoadLibraryExA(const char* fileName, uint32_t flags) override {
    loads.emplace_back(fileName, flags);
    if (loadResult != 0) ++openModules;
    return loadResult;
  }
  int32_t FreeLibrary(Module module) override {
    freed.push_back(module);
    --openModules;
    lastError = 6;
    return 1;
  }
  uint32_t FormatMessageA(uint32_t flags, Module module, uint32_t messageId, uint32_t languageId,
                          char* buffer, uint32_t size) override {
    formats.push_back({flags, module, messageId, languageId, size});
    const auto found = messages.find(messageId);
    if (found == messages.end()) {
      lastError = 317;
      return 0;
    }
    const size_t copied = std::min<size_t>(found->second.size(), size);
    std::memcpy(buffer, found->second.data(), copied);
    return formatLie.value_or(static_cast<uint32_t>(copied));
  }
  uint32_t GetLastError() override { return lastError; }

  std::map<std::string, FakePath> paths;     ///< full paths by name
  std::optional<uint32_t> searchLie;         ///< wrong result of SearchPathW, which then writes nothing
  Module loadResult = 0x10000;               ///< 0 = the library cannot be loaded
  std::map<uint32_t, std::string> messages;  ///< by message id
  std::optional<uint32_t> formatLie;         ///< wrong length from FormatMessageA
  uint32_t lastError = 0;
  std::function<void()> onSearch;

  std::vector<std::string> searched;
  std::vector<uint32_t> searchSizes;
  std::vector<std::pair<std::string, uint32_t>> loads;
  std::vector<Module> freed;
  int openModules = 0;
  std::vector<Format> formats;
};

/// Version resources in memory.
class FakeVersions final : public VersionLibrary {
 public:
  /// A version resource with this file version.
  static std::vector<std::byte> Block(uint16_t a, uint16_t b, uint16_t c, uint16_t d) {
    FixedFileInfo info;
    info.signature = FixedFileInfo::kSignature;
    info.fileVersionHigh = static_cast<uint32_t>(a) << 16 | b;
    info.fileVersionLow = static_cast<uint32_t>(c) << 16 | d;
    info.productVersionHigh = 0x00630063;  // 99.99; the product shows the file version
    std::vector<std::byte> block(kRootOffset + sizeof info + 20);
    std::memcpy(block.data() + kRootOffset, &info, sizeof info);
    return block;
  }

  uint32_t GetFileVersionInfoSizeW(const wchar_t* fileName, uint32_t& handle) override {
    handle = 7;
    ++queries;
    if (sizeLie) return *sizeLie;
    const auto found = blocks.find(std::wstring(fileName));
    return found == blocks.end() ? 0 : static_cast<uint32_t>(found->second.size());
  }
  int32_t GetFileVersionInfoW(const wchar_t* fileName, uint32_t, uint32_t length, void* data) override {
    if (!readable) return 0;
    const auto& block = blocks[std::wstring(fileName)];
    if (!block.empty()) std::memcpy(data, block.data(), std::min<size_t>(block.size(), length));
    return 1;
  }
  int32_t VerQueryValueW(const void* block, const wchar_t* subBlock, const void*& value,
                         uint32_t& length) override {
    if (!queryable || std::wstring(subBlock) != L"\\") return 0;
    value = valueLie ? *valueLie : static_cast<const std::byte*>(block) + rootOffset;
    length = rootLength;
    return 1;
  }

  static constexpr size_t kRootOffset = 40;

  std::map<FakePath, std::vector<std::byte>> blocks;  ///< by path
  std::optional<uint32_t> sizeLie;
  int queries = 0;  ///< calls of GetFileVersionInfoSizeW
  bool readable = true;
  bool queryable = true;
  std::ptrdiff_t rootOffset = kRootOffset;  ///< of the fixed file info in the block
  uint32_t rootLength = sizeof(FixedFileInfo);
  std::optional<const void*> valueLie;  ///< wrong pointer from VerQueryValueW
};

}  // namespace tarvik::test
