#include "platform/profile_strings.h"

#include <algorithm>

#include "platform/files.h"
#include "platform/profile_section.h"

namespace tarvik {
namespace {

/// Profile strings as kernel32 gives them, from one reading of the file. Windows' own call reads the file
/// again for each key, and takes no path outside the system code page.
/// The file must be in an ASCII-compatible code page; UTF-16 is not read.
class Win32ProfileStrings final : public ProfileStrings {
 public:
  uint32_t GetPrivateProfileStringA(const std::string& section, const std::string& key, char* buffer,
                                    uint32_t bufferSize, const std::wstring& path) override {
    if (bufferSize == 0) return 0;
    if (path != path_) {
      text_ = files_->Read(path).value_or(std::string());
      path_ = path;
    }
    std::string_view value = ProfileValue(ReadProfileSection(text_, section), key);
    value = value.substr(0, bufferSize - 1);
    *std::copy(value.begin(), value.end(), buffer) = '\0';
    return static_cast<uint32_t>(value.size());
  }

 private:
  std::unique_ptr<Files> files_ = MakeFiles();
  std::wstring path_;  ///< of the file whose text is held
  std::string text_;
};

}  // namespace

std::unique_ptr<ProfileStrings> MakeProfileStrings() { return std::make_unique<Win32ProfileStrings>(); }

}  // namespace tarvik
