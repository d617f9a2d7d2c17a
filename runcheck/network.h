// Questions to the network, all side by side and each for at most so long: host names, and paths on
// shares. Who does not answer in time is left alone.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace qvx::runcheck {

enum class Answer { Silent, No, Yes };

struct HostAnswer {
  Answer answer = Answer::Silent;
  std::string address;  ///< numbers, of a host that is known
};

struct NetworkAnswers {
  std::map<std::string, HostAnswer> hosts;
  std::map<std::string, Answer> paths;
  bool isComplete = true;  ///< false: threads are left that still wait
};

/// `onWait`: called about every tenth of a second with the time that has passed.
NetworkAnswers AskNetwork(const std::vector<std::string>& hosts,
                          const std::vector<std::string>& paths, std::chrono::milliseconds timeout,
                          const std::function<void(std::chrono::milliseconds)>& onWait);

}  // namespace qvx::runcheck
