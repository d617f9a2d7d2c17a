// QVXSolverArgumentTool.dll, a closed library of the product: turns the argument record of a
// solver family into the argument string of its solvers.
//
// The launcher writes the records' members directly. Widths are in characters, terminating zero
// included. Members without a name of the launcher's own are reserved: only the library knows what
// they mean. The groups below fix the order of the members; each record is its groups in a row.
#pragma once

#include <cstdint>

#if !defined(_WIN32)
#define QVX_SOLVER_ARGUMENT_TOOL_API
#elif defined(QVXSolverArgumentTool_EXPORTS)
#define QVX_SOLVER_ARGUMENT_TOOL_API __declspec(dllexport)
#else
#define QVX_SOLVER_ARGUMENT_TOOL_API __declspec(dllimport)
#endif

/// Opens the flow and the cooling record, which share everything up to their weights.
struct QVXReservedHead {
  std::int32_t reservedInteger1;
  char reservedText1[64];
  char reservedText2[64];
  std::int32_t reservedInteger2;
  std::int32_t reservedInteger3;
  char reservedText3[256];
  std::int32_t reservedInteger4;
  char reservedText4[256];
  std::int32_t reservedInteger5;
};

/// The texts that every record holds.
struct QVXRunTexts {
  char homeFolder[1024];
  char projectDirectory[1024];
  char projectName[256];
  char runNumber[32];
};

/// What the 3D solvers that can run in parallel share.
struct QVXRunSettings {
  std::int32_t moldingType;
  std::int32_t optionValue;
  std::int32_t parallelMode;  ///< 0 serial, 1 shared-memory, 2 distributed
  std::int32_t processCount;
  /// Each process's share of the work. Made with `new double[]` and owned by the record, which may
  /// release it: launcher and library therefore have to share one C runtime heap.
  double* weights;
};

/// The run whose result a multi-shot run starts from.
struct QVXPreviousShot {
  std::int32_t previousShotFlag;
  char previousShotProjectPath[1024];
  char previousShotRunId[32];
  char previousShotProjectName[1024];
};

/// What the shell solvers share beside the run texts.
struct QVXShellSettings {
  std::int32_t optionValue;
  char extraTexts[3][1024];
};

/// FLOW and PACK.
class QVX_SOLVER_ARGUMENT_TOOL_API CQVXFlowFlowEPackArgument : public QVXReservedHead,
                                                               public QVXRunTexts,
                                                               public QVXRunSettings {
 public:
  CQVXFlowFlowEPackArgument();
  ~CQVXFlowFlowEPackArgument();
  CQVXFlowFlowEPackArgument(const CQVXFlowFlowEPackArgument&) = delete;
  CQVXFlowFlowEPackArgument& operator=(const CQVXFlowFlowEPackArgument&) = delete;
  void Reset();
};

/// COOL.
class QVX_SOLVER_ARGUMENT_TOOL_API CQVXCoolArgument : public QVXReservedHead,
                                                      public QVXRunTexts,
                                                      public QVXRunSettings,
                                                      public QVXPreviousShot {
 public:
  CQVXCoolArgument();
  ~CQVXCoolArgument();
  CQVXCoolArgument(const CQVXCoolArgument&) = delete;
  CQVXCoolArgument& operator=(const CQVXCoolArgument&) = delete;
  void Reset();
};

/// WARP and STRESS.
class QVX_SOLVER_ARGUMENT_TOOL_API CQVXWarpArgument : public QVXRunTexts,
                                                      public QVXRunSettings,
                                                      public QVXPreviousShot {
 public:
  CQVXWarpArgument();
  ~CQVXWarpArgument();
  CQVXWarpArgument(const CQVXWarpArgument&) = delete;
  CQVXWarpArgument& operator=(const CQVXWarpArgument&) = delete;
  void Reset();

  std::int32_t secondOptionValue;  ///< STRESS only
};

/// SHELLFLOW and SHELLPACK.
class QVX_SOLVER_ARGUMENT_TOOL_API CQVXShellFlowPackArgument : public QVXRunTexts,
                                                               public QVXShellSettings {
 public:
  CQVXShellFlowPackArgument();
  ~CQVXShellFlowPackArgument();
  void Reset();
};

/// SHELLCOOL.
class QVX_SOLVER_ARGUMENT_TOOL_API CQVXShellCoolArgument : public QVXRunTexts,
                                                           public QVXShellSettings {
 public:
  CQVXShellCoolArgument();
  ~CQVXShellCoolArgument();
  void Reset();
};

/// SHELLWARP.
class QVX_SOLVER_ARGUMENT_TOOL_API CQVXShellWarpArgument : public QVXRunTexts,
                                                           public QVXShellSettings {
 public:
  CQVXShellWarpArgument();
  ~CQVXShellWarpArgument();
  void Reset();
};

/// IC, WS and PS.
class QVX_SOLVER_ARGUMENT_TOOL_API CQVX3DICWSPSArgument : public QVXRunTexts {
 public:
  CQVX3DICWSPSArgument();
  ~CQVX3DICWSPSArgument();
  void Reset();
};

/// OPTICS.
class QVX_SOLVER_ARGUMENT_TOOL_API CQVXOpticsArgument : public QVXRunTexts {
 public:
  CQVXOpticsArgument();
  ~CQVXOpticsArgument();
  void Reset();
};

/// Each creation operation returns a text that stays the tool's and holds until its next call.
class QVX_SOLVER_ARGUMENT_TOOL_API CQVXSolverArgumentTool {
 public:
  CQVXSolverArgumentTool();
  ~CQVXSolverArgumentTool();
  CQVXSolverArgumentTool(const CQVXSolverArgumentTool&) = delete;
  CQVXSolverArgumentTool& operator=(const CQVXSolverArgumentTool&) = delete;

  const char* CreateFlowFlowEPackArgument(const CQVXFlowFlowEPackArgument& argument);
  const char* CreateCoolArgument(const CQVXCoolArgument& argument);
  const char* CreateWarpArgument(const CQVXWarpArgument& argument);
  const char* CreateShellFlowPackArgument(const CQVXShellFlowPackArgument& argument);
  const char* CreateShellCoolArgument(const CQVXShellCoolArgument& argument);
  const char* CreateShellWarpArgument(const CQVXShellWarpArgument& argument);
  const char* Create3DICWSPSArgument(const CQVX3DICWSPSArgument& argument);
  const char* CreateOpticsArgument(const CQVXOpticsArgument& argument);

 private:
  [[maybe_unused]] char text_[4096];  ///< the library's
};
