#include "execution/console_pump.h"

#include <algorithm>
#include <vector>

#include "execution/console_log.h"
#include "execution/write_whole.h"

namespace qvx {

void PumpConsole(LauncherContext& context, const LaunchKind& kind, const RunningChild& child,
                 HANDLE output) {
  constexpr DWORD kChunkSize = 4096;
  const HANDLE console = GetStdHandle(STD_OUTPUT_HANDLE);
  // One spare byte keeps a zero behind a full chunk.
  std::vector<char> chunk(kChunkSize + 1);
  for (;;) {
    std::ranges::fill(chunk, '\0');
    // The test before the read is deliberate, although it leaves in the pipe what a child printed
    // right before its end. A child whose exit code really is 259 looks alive here; the read ends
    // the loop then.
    DWORD exitCode = STILL_ACTIVE;
    GetExitCodeProcess(child.process, &exitCode);
    if (exitCode != STILL_ACTIVE) return;
    DWORD size = 0;
    const BOOL read = ReadFile(output, chunk.data(), kChunkSize, &size, nullptr);
    WriteWhole(console, chunk.data(), size);
    FlushFileBuffers(console);
    if (child.log != INVALID_HANDLE_VALUE) WriteLog(context, child.log, "%s", chunk.data());
    if (kind.endsPump != nullptr && kind.endsPump(context, child, chunk.data())) return;
    if (read == 0) return;
  }
}

}  // namespace qvx
