#include "execution/mpi_accounts.h"

#include <iterator>

#include "launcher/argument_record.h"
#include "launcher/debug_trace.h"
#include "support/bounded_text.h"
#include "support/console.h"

namespace qvx {

int ConvertMpiAccounts(LauncherContext& context) {
  char folder[kPathWidth] = {};
  wchar_t wideFolder[1024] = {};
  VisitArgumentRecord(context, [&]<typename Record>(const Record& record) {
    if constexpr (HasRunSettings<Record>) {
      context.mpiUnicodeTool.AnsiToUtf16(record.homeFolder, wideFolder, std::size(wideFolder));
      CopyText(folder, "home folder", record.homeFolder);
    }
  });
  const int result = context.mpiTool.ConvertAcc2RegistryForIntelMPI(wideFolder, false);
  Trace(context, "ConvertAcc2RegistryForIntelMPI(%s)\n", folder);
  if (result == CQVXMPITool::kAccountFileNotUsable) {
    context.configurationAbortFlag = 1;
    Print("Error: Please check if acc.ini is properly configured!\n");
  }
  return result;
}

}  // namespace qvx
