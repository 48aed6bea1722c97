#pragma once

#include <string>

namespace tarvik::lab {

/// The folder in which Wine prefixes are kept between runs: TARVIK_CACHE, or else `outputFolder`/cache.
/// Absolute.
std::string CacheFolder(const std::string& outputFolder);

/// Starts a watcher process that removes what this process leaves (Wine servers, network namespaces and
/// temporary directories named after its id), however it ends. Leftovers of dead processes are removed at
/// once. `cacheFolder`: the one that is passed to TempDirectory. Call before creating anything; later calls
/// with the same folder do nothing. Throws LabError.
void RemoveLeftoversWhenThisProcessEnds(const std::string& cacheFolder);

/// A name that the watcher recognises: "tv", this process' id, a serial number. For network namespaces and
/// the like.
std::string UniqueName();

/// A new directory below the cache folder, deleted with its contents on destruction.
class TempDirectory {
 public:
  explicit TempDirectory(const std::string& cacheFolder);
  TempDirectory(const TempDirectory&) = delete;
  TempDirectory& operator=(const TempDirectory&) = delete;
  ~TempDirectory();

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace tarvik::lab
