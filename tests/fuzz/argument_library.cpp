#include "tests/fuzz/argument_library.h"

#include <cstdio>

#include "platform/qvx_solver_argument_tool.h"

namespace {

template <std::size_t kWidth>
const char* Tell(char (&text)[kWidth], const char* operation, const QVXRunTexts& record) {
  std::snprintf(text, kWidth, "%s %s", operation, record.projectDirectory);
  return text;
}

template <typename... Groups, typename Record>
void Clear(Record& record) {
  ((static_cast<Groups&>(record) = {}), ...);
}

}  // namespace

namespace qvx::fuzz {

std::string ArgumentString(int solverClass, const plain::Record& record) {
  const char* const operations[] = {"flow",       "flow",       "cool",       "warp",       "warp",
                                    "shell flow", "shell flow", "shell cool", "shell warp", "ic",
                                    "ic",         "ic",         "optics"};
  return operations[solverClass] + (" " + record.project);
}

}  // namespace qvx::fuzz

using Flow = CQVXFlowFlowEPackArgument;
using Cool = CQVXCoolArgument;
using Warp = CQVXWarpArgument;
using ShellFlow = CQVXShellFlowPackArgument;
using ShellCool = CQVXShellCoolArgument;
using ShellWarp = CQVXShellWarpArgument;
using Ic = CQVX3DICWSPSArgument;
using Optics = CQVXOpticsArgument;
using Tool = CQVXSolverArgumentTool;

Flow::CQVXFlowFlowEPackArgument() : QVXRunSettings{} { Reset(); }
Flow::~CQVXFlowFlowEPackArgument() { delete[] weights; }
void Flow::Reset() {
  delete[] weights;
  Clear<QVXReservedHead, QVXRunTexts, QVXRunSettings>(*this);
}
Cool::CQVXCoolArgument() : QVXRunSettings{} { Reset(); }
Cool::~CQVXCoolArgument() { delete[] weights; }
void Cool::Reset() {
  delete[] weights;
  Clear<QVXReservedHead, QVXRunTexts, QVXRunSettings, QVXPreviousShot>(*this);
}
Warp::CQVXWarpArgument() : QVXRunSettings{} { Reset(); }
Warp::~CQVXWarpArgument() { delete[] weights; }
void Warp::Reset() {
  delete[] weights;
  Clear<QVXRunTexts, QVXRunSettings, QVXPreviousShot>(*this);
  secondOptionValue = 0;
}
ShellFlow::CQVXShellFlowPackArgument() { Reset(); }
ShellFlow::~CQVXShellFlowPackArgument() = default;
void ShellFlow::Reset() { Clear<QVXRunTexts, QVXShellSettings>(*this); }
ShellCool::CQVXShellCoolArgument() { Reset(); }
ShellCool::~CQVXShellCoolArgument() = default;
void ShellCool::Reset() { Clear<QVXRunTexts, QVXShellSettings>(*this); }
ShellWarp::CQVXShellWarpArgument() { Reset(); }
ShellWarp::~CQVXShellWarpArgument() = default;
void ShellWarp::Reset() { Clear<QVXRunTexts, QVXShellSettings>(*this); }
Ic::CQVX3DICWSPSArgument() { Reset(); }
Ic::~CQVX3DICWSPSArgument() = default;
void Ic::Reset() { Clear<QVXRunTexts>(*this); }
Optics::CQVXOpticsArgument() { Reset(); }
Optics::~CQVXOpticsArgument() = default;
void Optics::Reset() { Clear<QVXRunTexts>(*this); }

Tool::CQVXSolverArgumentTool() { text_[0] = '\0'; }
Tool::~CQVXSolverArgumentTool() = default;
const char* Tool::CreateFlowFlowEPackArgument(const Flow& r) { return Tell(text_, "flow", r); }
const char* Tool::CreateCoolArgument(const Cool& r) { return Tell(text_, "cool", r); }
const char* Tool::CreateWarpArgument(const Warp& r) { return Tell(text_, "warp", r); }
const char* Tool::CreateShellFlowPackArgument(const ShellFlow& r) {
  return Tell(text_, "shell flow", r);
}
const char* Tool::CreateShellCoolArgument(const ShellCool& r) {
  return Tell(text_, "shell cool", r);
}
const char* Tool::CreateShellWarpArgument(const ShellWarp& r) {
  return Tell(text_, "shell warp", r);
}
const char* Tool::Create3DICWSPSArgument(const Ic& r) { return Tell(text_, "ic", r); }
const char* Tool::CreateOpticsArgument(const Optics& r) { return Tell(text_, "optics", r); }
