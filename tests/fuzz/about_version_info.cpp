#include <cstdlib>
#include <cstring>

#include "platform/file_util.h"
#include "tests/fakes/fake_modules.h"
#include "tests/fuzz/fuzzer.h"

/// Any version resource. First 12 bytes: offset and length that VerQueryValueW returns for its root, and the
/// result of SearchPathW. The rest: the resource.
TARVIK_FUZZER(about_version_info) {
  if (size < 12) return;
  int32_t offset = 0;
  uint32_t length = 0;
  uint32_t searched = 0;
  std::memcpy(&offset, data, 4);
  std::memcpy(&length, data + 4, 4);
  std::memcpy(&searched, data + 8, 4);
  tarvik::test::FakeKernel kernel;
  tarvik::test::FakeVersions versions;
  const auto* bytes = reinterpret_cast<const std::byte*>(data);
  versions.blocks["a"].assign(bytes + 12, bytes + size);
  // Limited to the neighbourhood of the block, which a wrong check would read.
  versions.rootOffset = offset % 4096;
  versions.rootLength = length;
  kernel.searchLie = searched;
  tarvik::FileUtil files(kernel, versions);
  files.mSearchPath(L"a");
  const auto text = files.mGetFileVersionInfoString(L"a");
  if (text && (text->size() > 23 || std::count(text->begin(), text->end(), L'.') != 3)) std::abort();
  if (text.has_value() != files.pErrorMessage().empty()) std::abort();
}
