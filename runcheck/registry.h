// The registry value that tells where impiexec.exe is, as far as the launcher's own reader does not
// say it: whether it is there, of which kind, and where else it may stand.
#pragma once

namespace qvx::runcheck {

struct MpiPathValue {
  bool hasKey = false;
  bool hasValue = false;
  bool isText = false;
  bool isExpandable = false;   ///< the launcher does not expand it
  bool isIn32BitView = false;  ///< not looked for when the launcher finds its own
  bool isInUserKey = false;
  unsigned long size = 0;  ///< in bytes, as it is stored
};

MpiPathValue LookUpMpiPathValue();

}  // namespace qvx::runcheck
