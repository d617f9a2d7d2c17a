#include "runcheck/network.h"

#include <winsock2.h>
#include <ws2tcpip.h>

#include <memory>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

#include "runcheck/files.h"

namespace qvx::runcheck {
namespace {

/// Shared with every thread that asks: one that never comes back may outlive the question.
struct Board {
  std::mutex mutex;
  NetworkAnswers answers;
  std::size_t open = 0;
};

HostAnswer AskHost(const std::string& host) {
  addrinfo hints = {};
  hints.ai_family = AF_UNSPEC;
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (getaddrinfo(host.c_str(), nullptr, &hints, &found) != 0 || found == nullptr) {
    return {Answer::No, {}};
  }
  char address[NI_MAXHOST] = {};
  getnameinfo(found->ai_addr, static_cast<socklen_t>(found->ai_addrlen), address, sizeof address,
              nullptr, 0, NI_NUMERICHOST);
  freeaddrinfo(found);
  return {Answer::Yes, address};
}

Answer AskPath(const std::string& path) {
  return KindOf(path) == FileKind::Missing ? Answer::No : Answer::Yes;
}

/// The threads of one question. Never destroyed: one that waits on can neither be joined nor, in
/// this thread library, safely be detached.
using Threads = std::vector<std::thread>;

/// Runs `ask` on a thread of its own and hands what it returns to `store`, under the board's lock.
template <typename Ask, typename Store>
void Start(Threads& threads, const std::shared_ptr<Board>& board, Ask ask, Store store) {
  {
    const std::lock_guard lock(board->mutex);
    ++board->open;
  }
  try {
    threads.emplace_back([board, ask, store] {
      const auto answer = ask();
      const std::lock_guard lock(board->mutex);
      store(board->answers, answer);
      --board->open;
    });
  } catch (const std::system_error&) {
    // No more threads: the question stays without an answer.
    const std::lock_guard lock(board->mutex);
    --board->open;
  }
}

bool IsAnswered(Board& board) {
  const std::lock_guard lock(board.mutex);
  return board.open == 0;
}

}  // namespace

NetworkAnswers AskNetwork(const std::vector<std::string>& hosts,
                          const std::vector<std::string>& paths, std::chrono::milliseconds timeout,
                          const std::function<void(std::chrono::milliseconds)>& onWait) {
  using Clock = std::chrono::steady_clock;
  WSADATA data;
  WSAStartup(MAKEWORD(2, 2), &data);
  const auto board = std::make_shared<Board>();
  Threads& threads = *new Threads;
  const Clock::time_point start = Clock::now();
  for (const std::string& path : paths) {
    {
      const std::lock_guard lock(board->mutex);
      if (!board->answers.paths.emplace(path, Answer::Silent).second) continue;
    }
    Start(
        threads, board, [path] { return AskPath(path); },
        [path](NetworkAnswers& answers, Answer answer) { answers.paths[path] = answer; });
  }
  for (const std::string& host : hosts) {
    {
      const std::lock_guard lock(board->mutex);
      if (!board->answers.hosts.emplace(host, HostAnswer{}).second) continue;
    }
    if (Clock::now() - start > timeout) continue;
    Start(
        threads, board, [host] { return AskHost(host); },
        [host](NetworkAnswers& answers, const HostAnswer& answer) {
          answers.hosts[host] = answer;
        });
  }
  // Every question has its whole time, the last one too.
  const Clock::time_point end = Clock::now() + timeout;
  while (!IsAnswered(*board) && Clock::now() < end) {
    constexpr std::chrono::milliseconds kStep(10);
    std::this_thread::sleep_for(kStep);
    onWait(std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start));
  }
  const bool isComplete = IsAnswered(*board);
  if (isComplete) {
    for (std::thread& thread : threads) thread.join();
  }
  // Threads says why they stay. NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
  const std::lock_guard lock(board->mutex);
  NetworkAnswers answers = board->answers;
  answers.isComplete = isComplete;
  return answers;
}

}  // namespace qvx::runcheck
