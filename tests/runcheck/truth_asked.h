// QVXRunCheck.exe, asked before a launcher is started with the same arguments, environment and
// folder; and its answer, compared with what the launcher then did.
#pragma once

#include <map>
#include <string>

#include "tests/program/launcher_process.h"
#include "tests/program/site.h"
#include "tests/runcheck/truth_answer.h"

namespace qvx::test {

class AskedCheck {
 public:
  AskedCheck(const LauncherStart& start, const Site& site);

  /// Everything in which the answer differs from the run that has ended, a line each.
  /// `isMeddledWith`: something happened beside the launcher, such as a folder that went away,
  /// which nobody foresees.
  std::string Untruths(const LauncherProcess& launcher, int status, bool isMeddledWith) const;

 private:
  /// Console logs anywhere below the site: bytes by path, in lower case and without the site.
  std::map<std::string, std::string> LogsOnDisk() const;

  const Site& site_;
  std::string complaint_;  ///< about the check itself
  CheckAnswer answer_;
  std::map<std::string, std::string> logsBefore_;
};

}  // namespace qvx::test
