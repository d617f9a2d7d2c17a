#include "tests/transcripts/run.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <new>
#include <optional>
#include <sstream>
#include <vector>

#include "launcher/entry_sequence.h"
#include "launcher/process_wide_values.h"
#include "support/fault.h"
#include "tests/support/program_path.h"
#include "tests/support/temporary_folder.h"
#include "tests/transcripts/observed_memory.h"
#include "tests/transcripts/simulated_calls.h"
#include "tests/transcripts/simulated_machine.h"
#include "tests/transcripts/transcript.h"

namespace qvx::test {
namespace {

std::optional<TemporaryFolder> folder;
std::string presentKind;

std::string Relative(const std::string& path) { return path.substr(kSite.size() + 1); }

std::string KeptFile(const std::string& kind) {
  return std::string(QVX_TRANSCRIPTS) + "/" + kind + ".txt";
}

/// Beside the program, so that a run whose process ends can hand it on.
std::string FreshFile(const std::string& kind) {
  return ProgramPath("transcripts\\" + kind + ".fresh.txt");
}

std::vector<std::string> Lines(const std::string& file) {
  std::ifstream stream(file);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::map<const void*, std::string>& Objects() {
  static std::map<const void*, std::string> objects;
  return objects;
}

std::map<std::string, int>& ObjectCounts() {
  static std::map<std::string, int> counts;
  return counts;
}

const char* RoleOf(const void* object) {
  const auto found = Objects().find(object);
  return found == Objects().end() ? "an object that nobody built" : found->second.c_str();
}

/// `role`: one that ends in "#" gets a number, for there are several.
void Construct(const void* object, const char* role) {
  const Observation observation("construction");
  if (std::string_view(role) == "argument tool") {
    // Its first member.
    Machine().context = const_cast<LauncherContext*>(static_cast<const LauncherContext*>(object));
  }
  std::string name = role;
  const int count = ++ObjectCounts()[name];
  if (name.back() == '#') {
    name.pop_back();
    name += std::to_string(count);
  } else if (count > 1) {
    name += ", another one";
  }
  Objects()[object] = name;
  Record("build " + name);
}

void Destroy(const void* object) {
  const Observation observation("destruction");
  Record(std::string("destroy ") + RoleOf(object));
  Objects().erase(object);
}

std::optional<Observation> operation;

void BeginOperation(const char* function) { operation.emplace(function); }

void EndOperation(const void* object, const char* call) {
  Record(std::string(RoleOf(object)) + ": " + call);
  operation.reset();
}

std::string quoted;

const char* Quote(const char* text) { return (quoted = Quoted(text)).c_str(); }
const char* QuoteWide(const wchar_t* text) { return (quoted = Quoted(text)).c_str(); }

void Watch(const void* block, const char* name) { WatchBlock(block, name); }

LibraryHost host = {nullptr, Construct, Destroy,   BeginOperation, EndOperation,
                    RoleOf,  Quote,     QuoteWide, LendText,       Watch};

/// False when a library is not the tests' own.
bool AttachLibraries(const LibraryAnswers& answers) {
  host.answers = &answers;
  for (const char* library : {"QVXSolverArgumentTool", "QVXMPITool", "QVXUnicodeTool"}) {
    const auto attach = reinterpret_cast<void (*)(const LibraryHost*)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA(library), "AttachTranscript")));
    if (attach == nullptr) return false;
    attach(&host);
  }
  return true;
}

/// Lets the launcher do as it does in a process of its own.
void Run(const std::string& kind, const Scenario& scenario) {
  ASSERT_TRUE(AttachLibraries(scenario.libraries)) << "another DLL came first";
  presentKind = kind;
  folder.emplace();
  for (const auto& [path, bytes] : scenario.files) folder->Write(Relative(path), bytes);
  cancelFlag = 0;
  childProcessIdentifier = 0;
  std::set_new_handler(nullptr);
  Objects().clear();
  ObjectCounts().clear();
  std::vector<std::string> texts = scenario.arguments;
  std::vector<char*> arguments;
  for (std::string& text : texts) arguments.push_back(text.data());
  arguments.push_back(nullptr);
  StartMachine(scenario);
  StartTranscript();
  for (const std::string& text : texts) Record("argument " + Quoted(text));
  int result = 0;
  {
    const SimulatedCalls simulatedCalls;
    BeginLaunchersMemory();
    result = RunEntrySequence(static_cast<int>(texts.size()), arguments.data());
    EndLaunchersMemory();
    const Observation observation("return");
    Record("return " + std::to_string(result));
  }
  EndRun();
}

void Compare(const std::string& kind) {
  const std::vector<std::string> fresh = Lines(FreshFile(kind));
  ASSERT_FALSE(fresh.empty()) << "the run left no transcript";
  if (std::getenv("QVX_RENEW_TRANSCRIPTS") != nullptr) {
    std::ofstream(KeptFile(kind), std::ios::binary) << [&] {
      std::string text;
      for (const std::string& line : fresh) text += line + "\n";
      return text;
    }();
    return;
  }
  const std::vector<std::string> kept = Lines(KeptFile(kind));
  ASSERT_FALSE(kept.empty()) << KeptFile(kind)
                             << " is missing; script/transcripts --renew writes it";
  if (kept == fresh) return;
  // GoogleTest's own: what EXPECT_EQ shows behind two whole texts that nobody wants to read.
  ADD_FAILURE() << "the run differs from " << kind << ".txt\n"
                << testing::internal::edit_distance::CreateUnifiedDiff(kept, fresh);
}

}  // namespace

void ExpectTranscript(const std::string& kind, const Scenario& scenario) {
  Run(kind, scenario);
  Compare(kind);
}

void ExpectTranscriptOfFault(const std::string& kind, const Scenario& scenario) {
  EXPECT_EXIT(
      {
        Run(kind, scenario);
        std::exit(0);
      },
      testing::ExitedWithCode(static_cast<int>(kFaultStatus)), "");
  Compare(kind);
}

std::string RealPath(const std::string& path) { return folder->Path(Relative(path)); }

void EndRun() {
  ExhaustMemory(false);
  Record("left open: " + Machine().OpenRoles());
  const std::string blocks = UnreleasedBlocks();
  if (!blocks.empty()) Record("not released: " + blocks);
  std::ofstream(FreshFile(presentKind), std::ios::binary) << TakeTranscript();
  folder.reset();
}

}  // namespace qvx::test
