#include "runconfig/task_manager_settings.h"

#include <cstring>

#include "runconfig/cmx_section_reader.h"
#include "support/console.h"

namespace qvx {

int ReadTaskManagerSettings(const char* path, TaskManagerSettings& record) {
  const CmxTextField fields[] = {
      {"Version", record.Version},
      {"IDTaskMode", record.IDTaskMode},
      {"flagAccelerationType", record.flagAccelerationType},
      {"ValueNoTask", record.ValueNoTask},
      {"ValueLocalNoTask", record.ValueLocalNoTask},
      {"ValueConsoleRedirection", record.ValueConsoleRedirection},
  };
  ReadCmxSection(path, "TASKMANAGER",
                 [&](const CmxSetting& setting) { StoreTextField(fields, setting); });
  return 0;
}

void DumpTaskManagerSettings(const TaskManagerSettings& record) {
  // FlagAccelerationType is written with a capital F here and with a small one in the file:
  // deliberate, kept.
  Print(
      "Version                    = %s\n"
      "IDTaskMode                 = %s\n"
      "FlagAccelerationType       = %s\n"
      "ValueNoTask                = %s\n"
      "ValueLocalNoTask           = %s\n"
      "ValueConsoleRedirection    = %s\n",
      record.Version, record.IDTaskMode, record.flagAccelerationType, record.ValueNoTask,
      record.ValueLocalNoTask, record.ValueConsoleRedirection);
}

bool IsDistributed(const TaskManagerSettings& record) {
  return std::strcmp(record.IDTaskMode, "0") != 0;
}

}  // namespace qvx
