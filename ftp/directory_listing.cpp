#include "ftp/directory_listing.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <numeric>
#include <utility>

#include "ftp/str_sort.h"
#include "platform/text.h"

namespace tarvik {
namespace {

constexpr size_t kNameColumns = 35;
constexpr size_t kSizeColumns = 10;

/// A name or size that is wider than its column is not truncated.
std::wstring ListingLine(std::wstring line, const std::wstring& size) {
  if (line.size() < kNameColumns) line.resize(kNameColumns, L' ');
  if (size.size() < kSizeColumns) line.append(kSizeColumns - size.size(), L' ');
  return line + size;
}

/// The size in decimal. Sizes beyond 63 bits, which no file can have, become the largest 63-bit number.
std::wstring SizeText(uint64_t size) {
  constexpr uint64_t kMaxSize = std::numeric_limits<int64_t>::max();
  return Decimal(static_cast<int64_t>(std::min(size, kMaxSize)));
}

}  // namespace

std::vector<std::wstring> Sorted(std::vector<std::wstring> lines, System& system, int64_t maxComparisons) {
  const size_t count = lines.size();
  std::vector<std::string> keys;
  keys.reserve(count);
  for (const std::wstring& line : lines) keys.push_back(system.SortKey(line));

  // StrSort makes up to 50 million comparisons: comparing ranks is much cheaper than comparing keys.
  std::vector<int32_t> byKey(count);
  std::iota(byKey.begin(), byKey.end(), 0);
  const auto keyOf = [&keys](int32_t line) -> const std::string& { return keys[static_cast<size_t>(line)]; };
  std::sort(byKey.begin(), byKey.end(), [&keyOf](int32_t a, int32_t b) {
    const int order = keyOf(a).compare(keyOf(b));
    return order == 0 ? a < b : order < 0;
  });
  struct Ranked {
    int32_t rank;
    int32_t line;
  };
  std::vector<Ranked> ranked(count);
  int32_t rank = 0;
  for (size_t i = 0; i < count; ++i) {
    if (i > 0 && keyOf(byKey[i - 1]) != keyOf(byKey[i])) ++rank;
    ranked[static_cast<size_t>(byKey[i])] = {rank, byKey[i]};
  }
  if (StrSort(
          ranked, 0, static_cast<int32_t>(count) - 1,
          [](const Ranked& a, const Ranked& b) { return a.rank < b.rank; }, maxComparisons))
    std::transform(ranked.begin(), ranked.end(), byKey.begin(), [](const Ranked& line) { return line.line; });

  std::vector<std::wstring> sorted;
  sorted.reserve(count);
  for (const int32_t line : byKey) sorted.push_back(std::move(lines[static_cast<size_t>(line)]));
  return sorted;
}

void DirectoryListing::BeginEnumFiles() {
  results_.AddToList(L"");
  results_.AddToList(ListingLine(L"Name", L"Size"));
  results_.AddToList(L"---------------------------------------------");
  directories_.clear();
  files_.clear();
}

void DirectoryListing::EnumFile(const FtpFile& file) {
  if (file.FileName == L"." || file.FileName == L"..") return;
  if ((file.Attr & FtpFile::kDirectory) != 0)
    directories_.push_back(ListingLine(L"/" + file.FileName, L""));
  else
    files_.push_back(ListingLine(file.FileName, SizeText(file.Size)));
}

void DirectoryListing::EndEnumFile() {
  std::vector<std::wstring> lines = Sorted(std::move(directories_), system_);
  for (std::wstring& line : Sorted(std::move(files_), system_)) lines.push_back(std::move(line));
  results_.AddBatch(lines);
}

}  // namespace tarvik
