// The `REMOTE_MACHINES` section of the CMX file: the machines of a distributed run, their tasks and
// weights, and where the shared storage and working folders lie.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/qvx_unicode_tool.h"

namespace qvx {

/// Takes every value that the section reader hands over.
constexpr std::size_t kFolderNameWidth = 260;

struct MachineEntry {
  char hostName[32] = {};
  char taskCount[32] = {};  ///< a decimal integer
  char weighting[32] = {};  ///< a decimal number that may have a fraction
  CQVXUnicodeTool unicodeTool;
};

/// Texts are named like the keys in the file and empty when the file does not name them.
struct RemoteMachineSettings {
  char Version[32] = {};
  char ValueNoMachine[32] = {};
  char ValueRemoteNoTask[32] = {};
  char ValueMap[32] = {};
  char ValueShareFolderName[kFolderNameWidth] = {};
  char ValueParallelWorkingFolder[kFolderNameWidth] = {};
  char ValueLocalHost[32] = {};
  char ValueStorageNode[32] = {};      ///< defaults to `ValueLocalHost`
  std::vector<MachineEntry> machines;  ///< `ValueNoMachine` as an integer, none below 1; file order
  CQVXUnicodeTool unicodeTool;
};

/// Fills the fields that the file names and leaves the others. Always returns 0; a file that cannot
/// be read gets a message and leaves the record untouched. A text too long for its field and a
/// machine list that cannot be allocated are faults; a machine or weighting line past the list is
/// ignored.
int ReadRemoteMachineSettings(const char* path, RemoteMachineSettings& record);

void DumpRemoteMachineSettings(const RemoteMachineSettings& record);

}  // namespace qvx
