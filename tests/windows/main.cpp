#include <gtest/gtest.h>

#include <cstdio>

#include "lab/host/own_network.h"

/// Runs the tests in a private network, so that no packet leaves this machine; skips them where that fails.
int main(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  if (const auto reason = tarvik::lab::MoveToPrivateNetwork()) {
    std::printf("[  SKIPPED ] all tests: %s\n", reason->c_str());
    return 0;
  }
  return RUN_ALL_TESTS();
}
