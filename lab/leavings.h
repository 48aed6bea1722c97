#pragma once

#include <string>

namespace tarvik::lab {

/// Where prefixes are kept between runs: the folder that TARVIK_CACHE names, otherwise one in `outputFolder`.
std::string CacheFolder(const std::string& outputFolder);

/// Makes sure that nothing of the laboratory outlives this process, however it ends: a watcher of its own
/// ends and removes what bears this process' id as soon as it is gone. What processes that died before
/// left behind is removed at once. `cacheFolder` is the folder under which TempDirectory makes its folders.
/// Call before the first thing is made; further calls with the same folder do nothing.
void RemoveLeftoversWhenThisProcessEnds(const std::string& cacheFolder);

/// A name for something of this process' own: "tv", its id, a running number. Network namespaces bear it.
std::string UniqueName();

/// A new empty folder below the cache folder, removed with everything in it by the object's end.
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
