#include <algorithm>
#include <string>
#include <vector>

#include "ftp/directory_listing.h"
#include "ftp/str_sort.h"
#include "platform/text.h"
#include "tests/fakes/fake_context.h"
#include "tests/fuzz/fuzzer.h"

using tarvik::test::Require;

/// A directory listing is sorted like StrSort sorts, and complete. Each line of the input is a name; its
/// first letter decides whether it is a directory.
TARVIK_FUZZER(ftp_directory_listing) {
  std::vector<std::wstring> names = tarvik::Split(std::wstring(data, data + size), L"\n");
  tarvik::test::FakeContext fake;
  std::vector<std::wstring> plain = names;
  const auto before = [&fake](const std::wstring& a, const std::wstring& b) {
    return fake.system.SortKey(a) < fake.system.SortKey(b);
  };
  tarvik::StrSort(plain, 0, static_cast<int32_t>(plain.size()) - 1, before);
  Require(tarvik::Sorted(names, fake.system) == plain);
  Require(std::is_sorted(plain.begin(), plain.end(), before));

  tarvik::DirectoryListing listing(fake.results, fake.system);
  listing.BeginEnumFiles();
  size_t shown = 0;
  size_t directories = 0;
  for (const std::wstring& name : names) {
    tarvik::FtpFile file;
    file.FileName = name;
    file.Size = name.size() % 3 == 0 ? ~uint64_t{0} - name.size() : name.size();
    file.Attr = !name.empty() && name.front() % 2 == 0 ? 0x10U : 0x80U;
    listing.EnumFile(file);
    if (name == L"." || name == L"..") continue;
    ++shown;
    directories += file.Attr == 0x10U;
  }
  listing.EndEnumFile();
  if (shown + 3 > 1000) return;
  const std::vector<std::wstring>& lines = fake.results.Lines();
  Require(lines.size() == shown + 3);
  for (size_t i = 3; i < 3 + directories; ++i) Require(lines[i].starts_with(L'/') && lines[i].size() >= 45);
}
