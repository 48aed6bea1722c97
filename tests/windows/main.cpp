#include <gtest/gtest.h>

#include <cstdio>

#include "lab/host/own_network.h"

/// Whatever a test clicks, no packet leaves this machine. Where no such network can be made no test runs.
int main(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  if (const auto reason = tarvik::lab::MoveToPrivateNetwork()) {
    std::printf("[  SKIPPED ] all tests: %s\n", reason->c_str());
    return 0;
  }
  return RUN_ALL_TESTS();
}
