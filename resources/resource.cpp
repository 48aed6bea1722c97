#include "resources/resource.h"

#include "platform/fixed_buffer.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace tarvik {
namespace {

constexpr int32_t kEnglishLanguageId = 1033;
constexpr wchar_t kLineBreak[] = L"\r\n";

std::wstring WithLineBreaks(const std::wstring& text) {
  const std::vector<std::wstring> lines = Split(text, L"\\n");
  std::wstring broken = lines.front();
  for (size_t i = 1; i < lines.size(); ++i) broken += kLineBreak + lines[i];
  return broken;
}

}  // namespace

std::wstring Resource::PathFor(int32_t language) const {
  std::wstring path = commonDataFolder_;
  if (!path.ends_with(L'\\')) path += L'\\';
  return path + L"Language\\" + resName_ + L"_" + Decimal(language) + L".ini";
}

bool Resource::Initialize(int32_t language, const std::wstring& commonDataFolder,
                          const std::wstring& resName) {
  cache_.clear();
  errorText_.clear();
  commonDataFolder_ = commonDataFolder;
  resName_ = resName;
  language_ = language;
  path_ = PathFor(language);
  if (files_.Exists(path_)) return true;
  errorText_ = L"No such file (" + path_ + L")" + kLineBreak;

  path_ = PathFor(kEnglishLanguageId);
  if (files_.Exists(path_)) {
    language_ = kEnglishLanguageId;
    return true;
  }
  errorText_ += L"No such file (" + path_ + L")" + kLineBreak;
  errorText_ = std::wstring(L"Resource:Initialize") + kLineBreak + errorText_ + L"Cannot open message file" +
               kLineBreak;
  return false;
}

std::wstring Resource::LoadString(int32_t id) { return WithLineBreaks(LookUp(id).text); }

std::optional<std::wstring> Resource::FindString(int32_t id) {
  const clsRc& found = LookUp(id);
  if (!found.inFile) return std::nullopt;
  return WithLineBreaks(found.text);
}

const Resource::clsRc& Resource::LookUp(int32_t id) {
  errorText_.clear();
  const std::wstring key = Decimal(id);
  auto found = cache_.find(key);
  if (found == cache_.end()) {
    std::wstring text;
    try {
      text = ReadString(id);
    } catch (const RuntimeError& error) {
      errorText_ = L"Resource:LoadString(" + key + L", [" + error.Text() + L"])" + kLineBreak;
    }
    const bool inFile = !text.empty();
    if (!inFile) {
      text = L"(" + key + L")";
      if (errorText_.empty()) errorText_ = L"Not exist";
    }
    found = cache_.emplace(key, clsRc{id, std::move(text), inFile}).first;
  }
  return found->second;
}

std::wstring Resource::ReadString(int32_t id) {
  char buffer[512] = {};
  const uint32_t length = system_.GetPrivateProfileStringA(
      NarrowAscii(Decimal(language_)), NarrowAscii(Decimal(id)), buffer, sizeof buffer, path_);
  const std::string_view bytes(buffer, length < sizeof buffer ? length : sizeof buffer);
  return codePage_.FromLanguage(TrimNull(bytes), language_);
}

void Resource::Terminate() {
  cache_.clear();
  errorText_.clear();
  path_.clear();
}

}  // namespace tarvik
