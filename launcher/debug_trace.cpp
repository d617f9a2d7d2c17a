#include "launcher/debug_trace.h"

#include <cstdarg>

#include "support/console.h"

namespace qvx {

void Trace(const LauncherContext& context, const char* format, ...) {
  if (context.debugTraceFlag == 0) return;
  std::va_list arguments;
  va_start(arguments, format);
  PrintV(format, arguments);
  va_end(arguments);
}

}  // namespace qvx
