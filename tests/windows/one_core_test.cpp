#include "lab/host/one_core.h"

#include <gtest/gtest.h>
#include <sched.h>

#include <memory>
#include <thread>
#include <vector>

#include "lab/host/leftovers.h"
#include "lab/pc/test_environment.h"

namespace tarvik::lab {
namespace {

/// The cores on which the calling thread may run.
std::vector<int> Cores() {
  cpu_set_t set;
  EXPECT_EQ(sched_getaffinity(0, sizeof set, &set), 0);
  std::vector<int> cores;
  for (int core = 0; core < CPU_SETSIZE; ++core)
    if (CPU_ISSET(core, &set)) cores.push_back(core);
  return cores;
}

/// A user of one core, as another process would be.
class User {
 public:
  explicit User(const std::string& folder) {
    // On a thread that ends, because this one must keep all its cores.
    std::thread([&] {
      core_ = std::make_unique<OneCore>(folder);
      cores_ = Cores();
    }).join();
  }

  const std::vector<int>& TakenCores() const { return cores_; }

 private:
  std::unique_ptr<OneCore> core_;
  std::vector<int> cores_;
};

TEST(OneCore, Is_the_one_that_is_taken_least_often) {
  const TempDirectory folder(PcForTests().cacheFolder);
  const size_t count = Cores().size();
  std::vector<std::unique_ptr<User>> users;
  std::vector<size_t> taken(CPU_SETSIZE);
  const auto add = [&] {
    users.push_back(std::make_unique<User>(folder.Path()));
    ASSERT_EQ(users.back()->TakenCores().size(), 1U);
    ++taken[static_cast<size_t>(users.back()->TakenCores().front())];
  };
  for (size_t i = 0; i < 3 * count; ++i) add();
  for (const int core : Cores()) EXPECT_EQ(taken[static_cast<size_t>(core)], 3U) << core;
  // The core of users that have ended is the next one taken.
  const int left = users.front()->TakenCores().front();
  std::erase_if(users, [left](const auto& user) { return user->TakenCores().front() == left; });
  taken[static_cast<size_t>(left)] = 0;
  for (int i = 0; i < 3; ++i) add();
  EXPECT_EQ(taken[static_cast<size_t>(left)], 3U);
}

TEST(OneCore, Gives_the_others_back) {
  const TempDirectory folder(PcForTests().cacheFolder);
  const std::vector<int> before = Cores();
  {
    const OneCore core(folder.Path());
    EXPECT_EQ(Cores().size(), 1U);
  }
  EXPECT_EQ(Cores(), before);
}

}  // namespace
}  // namespace tarvik::lab
