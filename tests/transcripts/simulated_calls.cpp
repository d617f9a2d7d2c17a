#include "tests/transcripts/simulated_calls.h"

#include <deque>

#include "tests/support/import_patch.h"

extern "C" {
#define QVX_DECLARE(name) extern void* __imp_##name;
QVX_WINDOWS_CALLS(QVX_DECLARE)
QVX_RUNTIME_CALLS(QVX_DECLARE)
#undef QVX_DECLARE
}

namespace qvx::test {
namespace {

std::deque<ImportPatch> patches;

const auto kFopen = reinterpret_cast<decltype(&std::fopen)>(__imp_fopen);
const auto kFclose = reinterpret_cast<decltype(&std::fclose)>(__imp_fclose);
const auto kFgets = reinterpret_cast<decltype(&std::fgets)>(__imp_fgets);

}  // namespace

SimulatedCalls::SimulatedCalls() {
#define QVX_PATCH(name) \
  patches.emplace_back(&__imp_##name, reinterpret_cast<void*>(&simulated::name));
  QVX_WINDOWS_CALLS(QVX_PATCH)
  QVX_RUNTIME_CALLS(QVX_PATCH)
#undef QVX_PATCH
}

SimulatedCalls::~SimulatedCalls() { StopSimulating(); }

void StopSimulating() { patches.clear(); }

decltype(&std::fopen) SystemFopen() { return kFopen; }
decltype(&std::fclose) SystemFclose() { return kFclose; }
decltype(&std::fgets) SystemFgets() { return kFgets; }

}  // namespace qvx::test
