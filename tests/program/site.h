// One run's surroundings on disk: an installation, an MPI installation, a project with a run folder
// and CMX file. All of it lies in a folder below C:\NODE1, which is also the machine \\NODE1.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "tests/support/temporary_folder.h"
#include "tests/support/texts.h"

namespace qvx::test {

class Site : public TemporaryFolder {
 public:
  Site();

  std::string RunFolder() const { return Path("Work\\Sample\\Analysis\\Run01"); }

  /// Puts a copy of the stand-in solver into the home folder's Bin.
  void InstallSolver(const std::string& name) const;
  void WriteCmx(std::string_view text) const;
  void Remove(std::string_view relative) const;

  /// Console logs of the run folder: bytes by name, names WithoutTimestamps.
  std::map<std::string, std::string> Logs() const;

  /// In tests' texts, <site> stands for the folder, <share> for the same folder on \\NODE1, and
  /// <name> for its own name.
  std::string Generic(std::string text) const;
  std::string Specific(std::string text) const;

 private:
  std::string Name() const;
};

}  // namespace qvx::test
