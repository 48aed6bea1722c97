// Every command of the K7 Svc page ends and reports its result, whatever the service-setup library answers.

#include <fuzzer/FuzzedDataProvider.h>

#include "k7/service_control.h"
#include "platform/runtime_error.h"
#include "tests/fakes/fake_context.h"
#include "tests/fakes/fake_modules.h"
#include "tests/fuzz/fuzzer.h"

using tarvik::test::Require;

namespace {

class HostileSvcKit final : public tarvik::SvcKit {
 public:
  explicit HostileSvcKit(FuzzedDataProvider& input) : input_(input) {}
  int32_t QSetup_InstallService(const char*, const char*, const char*, int32_t) override { return Result(); }
  int32_t QSetup_RemoveService(const char*) override { return Result(); }
  int32_t QSetup_StartService(const char*, int32_t) override { return Result(); }
  int32_t QSetup_StopService(const char*, int32_t) override { return Result(); }
  int32_t QSetup_GetServiceStatus(const char*, int32_t& status, int32_t) override {
    if (input_.ConsumeBool()) status = input_.ConsumeIntegralInRange(-1, 8);
    return Result();
  }

 private:
  int32_t Result() {
    constexpr auto kNoService = static_cast<int32_t>(0x80000124);
    switch (input_.ConsumeIntegralInRange(0, 7)) {
      case 1:
        return kNoService;
      case 2:
        return input_.ConsumeIntegral<int32_t>();
      case 3:
        throw tarvik::RuntimeError(L"The library does not export the call.");
      default:
        return 0;
    }
  }

  FuzzedDataProvider& input_;
};

}  // namespace

TARVIK_FUZZER(k7_service_control) {
  using namespace tarvik;
  FuzzedDataProvider input(data, size);
  test::FakeContext fake;
  fake.mode = input.ConsumeIntegralInRange(-1, 1);
  fake.boxes.answerYes = input.ConsumeBool();
  test::FakeKernel kernel;
  test::FakeVersions versions;
  kernel.paths["SvcKit.DLL"] = "C:\\SvcKit.dll";
  HostileSvcKit library(input);
  SvcUtl service(library, FileUtil(kernel, versions), fake.boxes, fake.pump, fake.codePage);
  Require(service.mInitialize(input.ConsumeIntegralInRange(-1, 2)));
  const ShowServiceState showState = [](int32_t) {};
  for (int round = 0; round < 8 && input.remaining_bytes() > 0; ++round) {
    const size_t boxesBefore = fake.boxes.boxes.size();
    const size_t sleepsBefore = fake.pump.sleeps.size();
    try {
      switch (input.ConsumeIntegralInRange(0, 4)) {
        case 0:
          RefreshK7ServiceState(service, showState);
          break;
        case 1:
          StartK7Service(fake.context, service, showState);
          Require(fake.boxes.boxes.size() > boxesBefore);
          break;
        case 2:
          StopK7Service(fake.context, service, showState);
          Require(fake.boxes.boxes.size() > boxesBefore);
          break;
        case 3:
          service.mSetupService(L"a", L"b", L"c", 2);
          break;
        default:
          service.mRemoveService(L"a");
          break;
      }
    } catch (const RuntimeError&) {
    }
    Require(fake.pump.sleeps.size() - sleepsBefore <= 40);
    const size_t boxesBetween = fake.boxes.boxes.size();
    // A command switches message boxes for query errors off again.
    try {
      int32_t status = 0;
      service.mGetServiceStatus(L"a", status);
    } catch (const RuntimeError&) {
    }
    Require(fake.boxes.boxes.size() == boxesBetween);
  }
  service.mTerminate();
}
