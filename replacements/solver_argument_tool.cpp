// Replacement for QVXSolverArgumentTool.dll: writes an argument record as options that a person, a
// test and a stand-in solver can read. A text that is empty, ends with a backslash or is a lone
// colon gets a blank behind it: a process launcher that quotes arguments anew would spoil it. The
// real solvers' argument format is the closed library's own. Reserved members are not written.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/qvx_solver_argument_tool.h"
#include "replacements/quoted_argument.h"

namespace {

using replacements::QuotedArgument;

/// Makes every member of a record zero, group by group.
template <typename... Groups, typename Record>
void ResetGroups(Record& record) {
  ((static_cast<Groups&>(record) = Groups{}), ...);
}

/// Collects options up to what the tool's text can hold.
class OptionText {
 public:
  void Add(const QVXRunTexts& texts) {
    AddText("-home", texts.homeFolder);
    AddText("-project", texts.projectDirectory);
    AddText("-name", texts.projectName);
    AddText("-run", texts.runNumber);
  }

  void Add(const QVXRunSettings& settings) {
    AddNumber("-molding", settings.moldingType);
    AddNumber("-option", settings.optionValue);
    AddNumber("-parallel", settings.parallelMode);
    AddNumber("-processes", settings.processCount);
    if (settings.weights != nullptr && settings.processCount > 0) {
      AddOption("-weights", WeightList(settings.weights, settings.processCount));
    }
  }

  void Add(const QVXPreviousShot& shot) {
    AddNumber("-prevshot", shot.previousShotFlag);
    AddText("-prevproject", shot.previousShotProjectPath);
    AddText("-prevrun", shot.previousShotRunId);
    AddText("-prevname", shot.previousShotProjectName);
  }

  void Add(const QVXShellSettings& settings) {
    AddNumber("-option", settings.optionValue);
    for (const auto& text : settings.extraTexts) AddText("-extra", text);
  }

  void AddNumber(std::string_view name, std::int32_t value) {
    AddOption(name, std::to_string(value));
  }

  template <std::size_t kWidth>
  const char* CopyTo(char (&text)[kWidth]) const {
    static_assert(kWidth > kMaximumLength);
    std::memcpy(text, text_.c_str(), text_.size() + 1);
    return text;
  }

 private:
  static constexpr std::size_t kMaximumLength = 4095;
  static constexpr std::string_view kCutMark = " -cut";

  static std::string WeightList(const double* weights, std::int32_t count) {
    std::string list;
    for (const double* weight = weights; weight != weights + count; ++weight) {
      char number[32];
      std::snprintf(number, sizeof(number), "%g", *weight);
      if (!list.empty()) list += ',';
      list += number;
    }
    return list;
  }

  /// A text filled to its last byte has no terminating zero.
  template <std::size_t kWidth>
  void AddText(std::string_view name, const char (&text)[kWidth]) {
    std::string value(text, std::find(text, text + kWidth, '\0'));
    // What a process launcher would drop, misread or take for its own.
    if (value.empty() || value.ends_with('\\') || value == ":") value += ' ';
    AddOption(name, QuotedArgument(value));
  }

  void AddOption(std::string_view name, const std::string& value) {
    if (isCut_) return;
    std::string option = text_.empty() ? "" : " ";
    option.append(name).append(" ").append(value);
    isCut_ = text_.size() + option.size() + kCutMark.size() > kMaximumLength;
    text_ += isCut_ ? kCutMark : option;
  }

  std::string text_;
  bool isCut_ = false;
};

/// The options of a record's groups in a row.
template <typename... Groups, typename Record>
OptionText OptionsOf(const Record& record) {
  OptionText options;
  (options.Add(static_cast<const Groups&>(record)), ...);
  return options;
}

}  // namespace

CQVXFlowFlowEPackArgument::CQVXFlowFlowEPackArgument() : QVXRunSettings{} { Reset(); }
CQVXFlowFlowEPackArgument::~CQVXFlowFlowEPackArgument() { delete[] weights; }
void CQVXFlowFlowEPackArgument::Reset() {
  delete[] weights;
  ResetGroups<QVXReservedHead, QVXRunTexts, QVXRunSettings>(*this);
}

CQVXCoolArgument::CQVXCoolArgument() : QVXRunSettings{} { Reset(); }
CQVXCoolArgument::~CQVXCoolArgument() { delete[] weights; }
void CQVXCoolArgument::Reset() {
  delete[] weights;
  ResetGroups<QVXReservedHead, QVXRunTexts, QVXRunSettings, QVXPreviousShot>(*this);
}

CQVXWarpArgument::CQVXWarpArgument() : QVXRunSettings{} { Reset(); }
CQVXWarpArgument::~CQVXWarpArgument() { delete[] weights; }
void CQVXWarpArgument::Reset() {
  delete[] weights;
  ResetGroups<QVXRunTexts, QVXRunSettings, QVXPreviousShot>(*this);
  secondOptionValue = 0;
}

CQVXShellFlowPackArgument::CQVXShellFlowPackArgument() { Reset(); }
CQVXShellFlowPackArgument::~CQVXShellFlowPackArgument() = default;
void CQVXShellFlowPackArgument::Reset() { ResetGroups<QVXRunTexts, QVXShellSettings>(*this); }

CQVXShellCoolArgument::CQVXShellCoolArgument() { Reset(); }
CQVXShellCoolArgument::~CQVXShellCoolArgument() = default;
void CQVXShellCoolArgument::Reset() { ResetGroups<QVXRunTexts, QVXShellSettings>(*this); }

CQVXShellWarpArgument::CQVXShellWarpArgument() { Reset(); }
CQVXShellWarpArgument::~CQVXShellWarpArgument() = default;
void CQVXShellWarpArgument::Reset() { ResetGroups<QVXRunTexts, QVXShellSettings>(*this); }

CQVX3DICWSPSArgument::CQVX3DICWSPSArgument() { Reset(); }
CQVX3DICWSPSArgument::~CQVX3DICWSPSArgument() = default;
void CQVX3DICWSPSArgument::Reset() { ResetGroups<QVXRunTexts>(*this); }

CQVXOpticsArgument::CQVXOpticsArgument() { Reset(); }
CQVXOpticsArgument::~CQVXOpticsArgument() = default;
void CQVXOpticsArgument::Reset() { ResetGroups<QVXRunTexts>(*this); }

CQVXSolverArgumentTool::CQVXSolverArgumentTool() : text_{} {}
CQVXSolverArgumentTool::~CQVXSolverArgumentTool() = default;

const char* CQVXSolverArgumentTool::CreateFlowFlowEPackArgument(
    const CQVXFlowFlowEPackArgument& argument) {
  return OptionsOf<QVXRunTexts, QVXRunSettings>(argument).CopyTo(text_);
}

const char* CQVXSolverArgumentTool::CreateCoolArgument(const CQVXCoolArgument& argument) {
  return OptionsOf<QVXRunTexts, QVXRunSettings, QVXPreviousShot>(argument).CopyTo(text_);
}

const char* CQVXSolverArgumentTool::CreateWarpArgument(const CQVXWarpArgument& argument) {
  OptionText options = OptionsOf<QVXRunTexts, QVXRunSettings, QVXPreviousShot>(argument);
  options.AddNumber("-option2", argument.secondOptionValue);
  return options.CopyTo(text_);
}

const char* CQVXSolverArgumentTool::CreateShellFlowPackArgument(
    const CQVXShellFlowPackArgument& argument) {
  return OptionsOf<QVXRunTexts, QVXShellSettings>(argument).CopyTo(text_);
}

const char* CQVXSolverArgumentTool::CreateShellCoolArgument(const CQVXShellCoolArgument& argument) {
  return OptionsOf<QVXRunTexts, QVXShellSettings>(argument).CopyTo(text_);
}

const char* CQVXSolverArgumentTool::CreateShellWarpArgument(const CQVXShellWarpArgument& argument) {
  return OptionsOf<QVXRunTexts, QVXShellSettings>(argument).CopyTo(text_);
}

const char* CQVXSolverArgumentTool::Create3DICWSPSArgument(const CQVX3DICWSPSArgument& argument) {
  return OptionsOf<QVXRunTexts>(argument).CopyTo(text_);
}

const char* CQVXSolverArgumentTool::CreateOpticsArgument(const CQVXOpticsArgument& argument) {
  return OptionsOf<QVXRunTexts>(argument).CopyTo(text_);
}
