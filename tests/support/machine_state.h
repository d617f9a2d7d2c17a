// What a test changes outside its own folder, put back at the end of the test: process environment,
// current folder, registry, the debug-trace switch file.
#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

namespace qvx::test {

class EnvironmentVariable {
 public:
  /// Starts unset.
  explicit EnvironmentVariable(std::string name) : name_(std::move(name)), before_(Value()) {
    SetEnvironmentVariableA(name_.c_str(), nullptr);
  }
  ~EnvironmentVariable() {
    SetEnvironmentVariableA(name_.c_str(), before_ ? before_->c_str() : nullptr);
  }
  EnvironmentVariable(const EnvironmentVariable&) = delete;
  EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

  void Set(const std::string& value) const {
    SetEnvironmentVariableA(name_.c_str(), value.c_str());
  }

  std::optional<std::string> Value() const {
    std::string value(32767, '\0');
    SetLastError(ERROR_SUCCESS);
    value.resize(GetEnvironmentVariableA(name_.c_str(), value.data(), 32767));
    if (GetLastError() == ERROR_ENVVAR_NOT_FOUND) return std::nullopt;
    return value;
  }

 private:
  std::string name_;
  std::optional<std::string> before_;
};

class CurrentFolder {
 public:
  explicit CurrentFolder(const std::filesystem::path& folder)
      : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(folder);
  }
  ~CurrentFolder() { std::filesystem::current_path(before_); }
  CurrentFolder(const CurrentFolder&) = delete;
  CurrentFolder& operator=(const CurrentFolder&) = delete;

 private:
  std::filesystem::path before_;
};

/// The registry value that names the MPI installation. The whole key is the test's meanwhile.
class MpiInstallPathValue {
 public:
  MpiInstallPathValue();
  ~MpiInstallPathValue();
  MpiInstallPathValue(const MpiInstallPathValue&) = delete;
  MpiInstallPathValue& operator=(const MpiInstallPathValue&) = delete;

  void Set(const std::string& path) const;

  /// Without a terminating zero.
  void SetUnterminated(std::string path) const;

  void Remove() const;
  void RemoveKey() const;

 private:
  std::optional<std::string> before_;
};

/// The file whose existence switches the debug trace on. Missing at first.
class DebugTraceSwitchFile {
 public:
  DebugTraceSwitchFile();
  ~DebugTraceSwitchFile();
  DebugTraceSwitchFile(const DebugTraceSwitchFile&) = delete;
  DebugTraceSwitchFile& operator=(const DebugTraceSwitchFile&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  const std::filesystem::path& ApplicationData() const { return applicationData_; }

 private:
  std::filesystem::path applicationData_;
  std::filesystem::path path_;
  bool existed_;
};

}  // namespace qvx::test
