#include <cstdlib>

#include "resources/resource.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_system.h"
#include "tests/fuzz/fuzzer.h"

namespace {

/// Answers every look-up with the fuzzer's bytes; the first two are the length that it returns.
class HostileProfile final : public tarvik::test::FakeSystem {
 public:
  HostileProfile(const uint8_t* data, size_t size) : data_(data), size_(size) {}
  uint32_t GetPrivateProfileStringA(const std::string&, const std::string&, char* buffer, uint32_t bufferSize,
                                    const std::wstring&) override {
    for (uint32_t i = 0; i < bufferSize && i < size_; ++i) buffer[i] = static_cast<char>(data_[i]);
    return size_ < 2 ? 0 : data_[0] * 256U + data_[1];
  }

 private:
  const uint8_t* data_;
  size_t size_;
};

}  // namespace

/// Any value in a language file gives a text that is not empty and not longer than the buffer.
TARVIK_FUZZER(resources_language_file) {
  HostileProfile profile(data, size);
  tarvik::test::FakeFiles files;
  tarvik::test::FakeCodePage codePage;
  tarvik::Resource resource(files, profile, codePage);
  resource.Initialize(1033, L"C:", L"T");
  const std::wstring text = resource.LoadString(1);
  if (text.empty() || text.size() > 512) std::abort();
}
