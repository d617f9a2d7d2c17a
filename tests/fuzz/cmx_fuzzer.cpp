// The four section readers. The input is the file.
#include "runconfig/solid_cool_settings.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/memory_file.h"
#include "tests/fuzz/product.h"

namespace qvx::fuzz {
namespace {

/// Reads one section with both and compares; with neither when the plain formulation finds it too
/// large.
template <typename Read, typename Settings, typename CheckSettings>
void Compare(const plain::CmxFile& file, Read read, int (*readProduct)(const char*, Settings&),
             CheckSettings check) {
  plain::End end;
  const auto expected = read(file, end);
  if (end.isTooLarge) return;
  Settings settings{};
  if (CheckFault(end.fault, [&] { readProduct("", settings); })) check(expected, settings);
}

}  // namespace

void RunInput(std::string_view bytes) {
  const MemoryFile served(bytes);
  const plain::CmxFile file(bytes);
  Compare(file, plain::ReadTaskManager, ReadTaskManagerSettings, CheckTaskManager);
  Compare(file, plain::ReadRemoteMachines, ReadRemoteMachineSettings, CheckRemoteMachines);
  Compare(file, plain::ReadMultiShot, ReadMultiShotSettings, CheckMultiShot);
  Compare(file, plain::ReadSolidCool, ReadSolidCoolSettings,
          [](std::int32_t expected, std::int32_t flag) { CheckNumber("flag", expected, flag); });
}

}  // namespace qvx::fuzz
