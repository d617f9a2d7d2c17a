// One check: everything about one call of the launcher, put together.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "runcheck/report.h"

namespace qvx::runcheck {

struct CheckOptions {
  bool asksNetwork = true;
  std::chrono::milliseconds timeout{5000};
  /// Called while the network is waited for, with the time that has passed and the number of hosts.
  std::function<void(std::chrono::milliseconds, std::size_t)> onWait;
};

struct Check {
  Report report;
  bool leavesThreads = false;  ///< that wait for the network: the process ends without them
};

/// `arguments`: what the launcher would be started with, the first argument included.
Check CheckRun(const std::vector<std::string>& arguments, const CheckOptions& options);

}  // namespace qvx::runcheck
