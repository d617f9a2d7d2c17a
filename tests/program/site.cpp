#include "tests/program/site.h"

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/support/program_path.h"

namespace qvx::test {
namespace {

const std::string kRoot = "C:\\NODE1\\";

}  // namespace

Site::Site() {
  static std::atomic<int> count = 0;
  const auto now = std::chrono::system_clock::now().time_since_epoch().count();
  name_ = "s" + std::to_string(now) + "n" + std::to_string(count++);
  Write("Home\\Bin\\QVXProject.ini",
        "[Configuration]\r\nQVX_PARALLEL_FOLDER_NAME=" + name_ + "\\Home\r\n");
  Write("Home\\acc.ini", "account\r\n");
  std::filesystem::create_directories(RunFolder());
  InstallSolver("Qvx3DFlow.exe");
}

Site::~Site() {
  std::error_code ignored;
  std::filesystem::remove_all(Path(), ignored);
}

std::string Site::Path(std::string_view relative) const {
  return kRoot + name_ + (relative.empty() ? "" : "\\") + std::string(relative);
}

void Site::Write(std::string_view relative, std::string_view bytes) const {
  const std::filesystem::path file = Path(relative);
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << bytes;
}

std::string Site::Read(std::string_view relative) const {
  std::ifstream file(Path(relative), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

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
  text = Replaced(std::move(text), "\\\\NODE1\\" + name_, "<share>");
  text = Replaced(std::move(text), Path(), "<site>");
  text = Replaced(std::move(text), "c:\\node1\\" + name_, "<site>");  // the trace's lower case
  return Replaced(std::move(text), name_, "<name>");
}

std::string Site::Specific(std::string text) const {
  text = Replaced(std::move(text), "<share>", "\\\\NODE1\\" + name_);
  text = Replaced(std::move(text), "<site>", Path());
  return Replaced(std::move(text), "<name>", name_);
}

}  // namespace qvx::test
