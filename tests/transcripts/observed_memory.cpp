#include "tests/transcripts/observed_memory.h"

#include <map>

#include "tests/transcripts/transcript.h"

namespace qvx::test {
namespace {

int own = 1;  // outside a run everything is the test's
bool exhausted = false;

std::map<const void*, std::string>& Watched() {
  static std::map<const void*, std::string> watched;
  return watched;
}

}  // namespace

void ReportRelease(const void* block, const char* how) {
  if (own != 0 || block == nullptr) return;
  const OwnMemory ownMemory;
  const auto found = Watched().find(block);
  if (found == Watched().end()) return;
  const std::string name = found->second;
  Watched().erase(found);
  const Observation observation("release");
  Record("release of " + name + how);
}

bool RefusesAllocation() { return exhausted && own == 0; }

void WatchBlock(const void* block, const std::string& name) {
  const OwnMemory ownMemory;
  Watched()[block] = name;
}

std::string UnreleasedBlocks() {
  std::string names;
  for (const auto& [block, name] : Watched()) names += (names.empty() ? "" : ", ") + name;
  Watched().clear();
  return names;
}

void ExhaustMemory(bool value) { exhausted = value; }

void BeginLaunchersMemory() { own = 0; }
void EndLaunchersMemory() { own = 1; }

OwnMemory::OwnMemory() { ++own; }
OwnMemory::~OwnMemory() { --own; }

}  // namespace qvx::test
