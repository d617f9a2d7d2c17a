#include "tests/program/site.h"

#include <filesystem>

#include "tests/support/program_path.h"

namespace qvx::test {
namespace {

const std::string kRoot = "C:\\NODE1\\";

}  // namespace

std::string CmxOfMachines(const std::vector<std::string>& names) {
  std::string cmx =
      "<TASKMANAGER>\nIDTaskMode=1\n</TASKMANAGER>\n<REMOTE_MACHINES>\nValueLocalHost=NODE1\n"
      "ValueShareFolderName=<name>\\Work\nValueParallelWorkingFolder=<site>\\Work\n"
      "ValueNoMachine=" +
      std::to_string(names.size()) + "\nValueMachineSetting\n";
  for (const std::string& name : names) cmx += "x=" + name + "\t1\n";
  return cmx + "</REMOTE_MACHINES>\n";
}

Site::Site() : TemporaryFolder(kRoot) {
  Write("Home\\Bin\\QVXProject.ini",
        "[Configuration]\r\nQVX_PARALLEL_FOLDER_NAME=" + Name() + "\\Home\r\n");
  Write("Home\\acc.ini", "account\r\n");
  std::filesystem::create_directories(RunFolder());
  InstallSolver("Qvx3DFlow.exe");
}

std::string Site::Name() const { return Path().substr(kRoot.size()); }

void Site::InstallSolver(const std::string& name) const {
  std::filesystem::copy_file(ProgramPath("samples\\QuorvexFakeSolver.exe"),
                             Path("Home\\Bin\\" + name),
                             std::filesystem::copy_options::overwrite_existing);
}

void Site::WriteCmx(std::string_view text) const {
  Write("Work\\Sample\\Analysis\\Run01\\Sample01.cmx", Specific(std::string(text)));
}

void Site::Remove(std::string_view relative) const { std::filesystem::remove_all(Path(relative)); }

std::map<std::string, std::string> Site::Logs() const {
  std::map<std::string, std::string> logs;
  std::error_code noFolder;
  for (const auto& entry : std::filesystem::directory_iterator(RunFolder(), noFolder)) {
    const std::string name = entry.path().filename().string();
    if (!name.starts_with("console_redirect_") || !entry.is_regular_file()) continue;
    logs[WithoutTimestamps(name)] = Generic(Read("Work\\Sample\\Analysis\\Run01\\" + name));
  }
  return logs;
}

std::string Site::Generic(std::string text) const {
  text = Replaced(std::move(text), "\\\\NODE1\\" + Name(), "<share>");
  text = Replaced(std::move(text), Path(), "<site>");
  text = Replaced(std::move(text), "c:\\node1\\" + Name(), "<site>");  // the trace's lower case
  return Replaced(std::move(text), Name(), "<name>");
}

std::string Site::Specific(std::string text) const {
  text = Replaced(std::move(text), "<share>", "\\\\NODE1\\" + Name());
  text = Replaced(std::move(text), "<site>", Path());
  return Replaced(std::move(text), "<name>", Name());
}

}  // namespace qvx::test
