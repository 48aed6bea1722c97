#include <sanitizer/allocator_interface.h>

#include <cstdio>
#include <vector>

#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

/// Memory is measured after each part. The first part also fills the program's caches.
constexpr int kParts = 10;

/// Bytes by which a part may exceed the first: numbers get longer, but nothing may be kept per run.
constexpr size_t kMaxGrowthBytes = 512;

/// Long series of runs; pauses take no real time. The result list and the calls recorded by the fake
/// libraries are cleared before each measurement.
class Endurance : public Form1Test {
 protected:
  struct Usage {
    size_t heap = 0;     ///< bytes allocated
    size_t handles = 0;  ///< open handles of every library, and sessions
  };

  Endurance() {
    Start(L"-LANGID 1 -X 8", false);
    Address().SetText(L"192.168.1.100");
    Box(ID_txtPingReqCount).SetText(L"1");
    Box(ID_txtK7ApiTestCount).SetText(L"1");
    wininet.entries = {FakeWininet::Directory("b"), FakeWininet::File("A.txt", 7)};
    ClearRecords();
  }

  void ClearRecords() {
    form1->Results().ClearList();
    boxes.boxes = {};
    pump.sleeps = {};
    winsock.lookups = {};
    winsock.connects = {};
    ipHelper.bestAsked = {};
    icmp.requests = {};
    wininet.calls = {};
    wininet.bufferSizes = {};
    wininet.replies = {};
    k7Api.calls = {};
    k7Api.checks = {};
    cncLibrary.calls = {};
    cncLibrary.header = {};
    svcKit.calls = {};
    kernel.searched = {};
    kernel.searchSizes = {};
  }

  Usage Measure() {
    ClearRecords();
    Usage usage;
    usage.handles = winsock.openSockets.size() + wininet.open.size() + k7Api.openHandles.size() +
                    cncLibrary.out.size() + processes.openHandles.size() +
                    static_cast<size_t>(kernel.openModules) +
                    static_cast<size_t>(winsock.startups - winsock.cleanups);
    usage.heap = __sanitizer_get_current_allocated_bytes();
    return usage;
  }

  /// Runs `part` ten times. Memory and handles must be the same after each.
  void ExpectFlat(const char* name, const std::function<void()>& part) {
    std::vector<Usage> usages(kParts);
    for (Usage& usage : usages) {
      part();
      usage = Measure();
    }
    const Usage& first = usages.front();
    const Usage& last = usages.back();
    std::printf("%s: heap %zu bytes after the first tenth, %zu at the end; handles %zu and %zu\n", name,
                first.heap, last.heap, first.handles, last.handles);
    RecordProperty("heap_first_tenth", std::to_string(first.heap));
    RecordProperty("heap_end", std::to_string(last.heap));
    for (const Usage& usage : usages) {
      EXPECT_LE(usage.heap, first.heap + kMaxGrowthBytes);
      EXPECT_EQ(usage.handles, first.handles);
    }
    EXPECT_EQ(wininet.misuses, 0);
    EXPECT_EQ(cncLibrary.strayFrees, 0);
    EXPECT_EQ(k7Api.wrongFrees, 0);
    EXPECT_FALSE(flags.busy);
    EXPECT_FALSE(flags.stopRequested);
    EXPECT_TRUE(form.Close());
    form1.reset();
    EXPECT_EQ(winsock.startups, winsock.cleanups);
    EXPECT_EQ(icmp.closed.size(), 1U);
  }
};

TEST_F(Endurance, A_hundred_thousand_PMC_passes_leave_memory_and_handles_flat) {
  form.Get<ui::MemoryMenuItem>(ID_mnuPMC).Click();
  ui::MemoryForm& window = *lastForm;
  window.Get<ui::MemoryTextBox>(ID_txtCount).SetText(L"10000");
  window.Get<ui::MemoryTextBox>(ID_txtSleep).SetText(L"0");
  auto& log = window.Get<ui::MemoryListBox>(ID_pmc_lstResult);
  int passes = 0;
  cncLibrary.onRead = [&] {
    // One read in 1,000 fails.
    cncLibrary.readResult = ++passes % 1000 == 0 ? CncLibrary::kPmcError : int16_t{0};
    if (passes % 1000 == 0) cncLibrary.calls.clear();
  };
  ExpectFlat("100,000 PMC passes", [&] {
    window.Get<ui::MemoryButton>(ID_cmdRead).Click();
    EXPECT_EQ(log.lines.size(), 10001U);
    log.lines = {};
  });
  EXPECT_EQ(passes, 100000);
}

TEST_F(Endurance, The_log_of_a_hundred_thousand_PMC_passes_is_limited) {
  form.Get<ui::MemoryMenuItem>(ID_mnuPMC).Click();
  ui::MemoryForm& window = *lastForm;
  window.Get<ui::MemoryTextBox>(ID_txtCount).SetText(L"100000");
  window.Get<ui::MemoryTextBox>(ID_txtSleep).SetText(L"0");
  const auto& log = window.Get<ui::MemoryListBox>(ID_pmc_lstResult);
  size_t longest = 0;
  cncLibrary.onRead = [&] {
    longest = std::max(longest, log.lines.size());
    cncLibrary.calls.clear();
  };
  window.Get<ui::MemoryButton>(ID_cmdRead).Click();
  EXPECT_EQ(longest, 32767U);
  EXPECT_EQ(log.lines.size(), 100000U - 3 * 32767U + 1);
}

TEST_F(Endurance, Ten_thousand_ladders_leave_memory_and_handles_flat) {
  size_t listings = 0;
  ExpectFlat("10,000 ladders", [&] {
    for (int i = 0; i < 1000; ++i) {
      wininet.replies = {"230 logged in", "257 \"/\"", "226 done"};
      Click(ID_cmdAllTest);
      listings += static_cast<size_t>(List().lines.back() == L"226 done");
      ClearRecords();
    }
  });
  EXPECT_EQ(listings, 10000U);
}

TEST_F(Endurance, A_thousand_FTP_tests_leave_memory_and_handles_flat) {
  for (int i = 0; i < 100; ++i) wininet.entries.push_back(FakeWininet::File("file" + std::to_string(i)));
  int longest = 0;
  ExpectFlat("1,000 FTP tests", [&] {
    for (int i = 0; i < 100; ++i) {
      wininet.replies = {"230 logged in", "257 \"/\"", "226 done"};
      Click(ID_cmdFtpConnect);
      longest = std::max(longest, List().Count());
    }
  });
  // Listings accumulate until the list is cleared at 1,000 lines.
  EXPECT_GT(longest, 1000);
  EXPECT_LT(longest, 1200);
}

TEST_F(Endurance, A_thousand_secondary_windows_leave_memory_flat) {
  ExpectFlat("1,000 about boxes and PMC windows", [&] {
    for (int i = 0; i < 100; ++i) {
      for (const int command : {ID_mnuHelpSub, ID_mnuPMC}) {
        form.Get<ui::MemoryMenuItem>(command).Click();
        lastForm->Close();
      }
    }
    newForms = {};
  });
}

}  // namespace
}  // namespace tarvik::test
