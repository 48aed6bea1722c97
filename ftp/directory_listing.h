#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ftp/ftp_client.h"
#include "platform/system.h"
#include "report/result_list.h"

namespace tarvik {

/// Collects the entries of a remote directory and adds them to the result list: directories first, then
/// files, each group sorted by name.
class DirectoryListing {
 public:
  DirectoryListing(report::ResultList& results, System& system) : results_(results), system_(system) {}

  /// Adds the heading and discards the entries of the previous listing.
  void BeginEnumFiles();
  /// Collects one entry; "." and ".." are skipped.
  void EnumFile(const FtpFile& file);
  /// How many entries have been collected.
  int32_t Entries() const { return static_cast<int32_t>(directories_.size() + files_.size()); }
  /// Adds one line for each entry.
  void EndEnumFile();

 private:
  report::ResultList& results_;
  System& system_;
  std::vector<std::wstring> directories_;
  std::vector<std::wstring> files_;
};

/// Enough for 10,000 lines, as many as a real directory has, in the worst order. A hostile list of 200,000
/// lines reaches this limit in a tenth of a second.
inline constexpr int64_t kMaxComparisons = 50'000'000;

/// Sorts the lines with StrSort, comparing their sort keys. When that would need more than `maxComparisons`,
/// sorts them stably instead; then only different lines that compare as equal can end up in another order.
std::vector<std::wstring> Sorted(std::vector<std::wstring> lines, System& system,
                                 int64_t maxComparisons = kMaxComparisons);

}  // namespace tarvik
