// The product's results, compared with the plain formulation's.
#pragma once

#include <string>
#include <vector>

#include "launcher/launcher_context.h"
#include "tests/plain/plain_run.h"

namespace qvx::fuzz {

/// A new context. Its storage is used again: clearing it is cheaper than the sanitizer's care for
/// a new block.
class Context {
 public:
  Context() { new (storage_) LauncherContext; }
  ~Context() { (**this).~LauncherContext(); }
  Context(const Context&) = delete;
  Context& operator=(const Context&) = delete;

  LauncherContext& operator*() const { return *reinterpret_cast<LauncherContext*>(storage_); }
  LauncherContext* operator->() const { return &**this; }

 private:
  alignas(LauncherContext) static inline unsigned char storage_[sizeof(LauncherContext)];
};

/// Interprets `arguments` as a program gets them: the product splits them in place.
void Interpret(LauncherContext& context, std::vector<std::string> arguments);

void CheckCommandLine(const plain::Run& run, LauncherContext& context);
void CheckTaskManager(const plain::TaskManager& plain, const TaskManagerSettings& product);
void CheckRemoteMachines(const plain::RemoteMachines& plain, const RemoteMachineSettings& product);
void CheckMultiShot(const plain::MultiShot& plain, const MultiShotSettings& product);
/// The whole record of the context's solver class.
void CheckRecord(const plain::Record& plain, LauncherContext& context);

}  // namespace qvx::fuzz
