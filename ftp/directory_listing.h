#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ftp/ftp_client.h"
#include "platform/system.h"
#include "report/result_list.h"

namespace tarvik {

/// Receives the entries of a remote directory and lists them: directories first, each group sorted.
class DirectoryListing {
 public:
  DirectoryListing(report::ResultList& results, System& system) : results_(results), system_(system) {}

  /// Adds the header and forgets the entries of the listing before.
  void BeginEnumFiles();
  /// Takes one entry; those that stand for the directory itself and its parent are left out.
  void EnumFile(const FtpFile& file);
  /// Adds the lines of the entries.
  void EndEnumFile();

 private:
  report::ResultList& results_;
  System& system_;
  std::vector<std::wstring> directories_;
  std::vector<std::wstring> files_;
};

/// Enough for every list of 10,000 lines, the most that a real directory has, whatever their order; a tenth
/// of a second for a hostile one of 200,000.
inline constexpr int64_t kMaxComparisons = 50'000'000;

/// Sorts the lines as StrSort does when it compares their sort keys. Lines that are equal in that order without
/// being the same text keep the order in which they came when StrSort would need more than `maxComparisons`.
std::vector<std::wstring> Sorted(std::vector<std::wstring> lines, System& system,
                                 int64_t maxComparisons = kMaxComparisons);

}  // namespace tarvik
