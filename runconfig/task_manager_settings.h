// The `TASKMANAGER` section of the CMX file: how the run is spread over tasks. Its texts decide the
// compute mode and the number of parallel tasks.
#pragma once

#include "platform/qvx_unicode_tool.h"

namespace qvx {

/// Named like the keys in the file; all texts, empty when the file does not name them.
struct TaskManagerSettings {
  char Version[32] = {};
  char IDTaskMode[32] = {};  ///< "0": the run stays on this machine; anything else: distributed
  char flagAccelerationType[32] = {};
  char ValueNoTask[32] = {};       ///< tasks of a shared-memory run
  char ValueLocalNoTask[32] = {};  ///< "1": serial, when the run stays on this machine
  char ValueConsoleRedirection[32] = {};
  CQVXUnicodeTool unicodeTool;
};

/// Fills the fields that the file names and leaves the others. Always returns 0; a file that cannot
/// be read gets a message and leaves the record untouched. A value of more than 31 characters is a
/// fault.
int ReadTaskManagerSettings(const char* path, TaskManagerSettings& record);

void DumpTaskManagerSettings(const TaskManagerSettings& record);

/// True when the run takes more than this machine. An empty `IDTaskMode` counts as distributed, on
/// purpose: so does a file without the section.
bool IsDistributed(const TaskManagerSettings& record);

}  // namespace qvx
