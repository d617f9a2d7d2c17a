#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <set>
#include <string>

#include "runcheck/files.h"
#include "runcheck/places.h"
#include "runcheck/registry.h"
#include "runcheck/similar_name.h"

namespace qvx::runcheck {
namespace {

constexpr const char* kFolderNameKey = "QVX_PARALLEL_FOLDER_NAME";

enum class ProgramKind { Fits, OtherMachine, NoProgram };

/// A look at the header.
ProgramKind KindOfProgram(const std::string& path) {
  constexpr std::size_t kHeaders = 4096;
  const std::string bytes = ReadFileStart(path, kHeaders).value_or("");
  constexpr std::size_t kOffsetAt = 0x3C;
  std::uint32_t offset = 0;
  if (bytes.size() < kOffsetAt + sizeof offset || !bytes.starts_with("MZ")) {
    return ProgramKind::NoProgram;
  }
  std::memcpy(&offset, bytes.data() + kOffsetAt, sizeof offset);
  std::uint16_t machine = 0;
  constexpr std::size_t kCharacteristicsAt = 22;
  std::uint16_t characteristics = 0;
  if (offset > bytes.size() || bytes.size() - offset < kCharacteristicsAt + 2 ||
      bytes.compare(offset, 4, std::string_view("PE\0\0", 4)) != 0) {
    return ProgramKind::NoProgram;
  }
  std::memcpy(&machine, bytes.data() + offset + 4, sizeof machine);
  std::memcpy(&characteristics, bytes.data() + offset + kCharacteristicsAt, sizeof characteristics);
  constexpr std::uint16_t kX64 = 0x8664;
  constexpr std::uint16_t kX86 = 0x014C;
  constexpr std::uint16_t kDll = 0x2000;
  if ((characteristics & kDll) != 0) return ProgramKind::NoProgram;
  return machine == kX64 || machine == kX86 ? ProgramKind::Fits : ProgramKind::OtherMachine;
}

/// The system has its command interpreter start them.
bool IsBatchFile(const std::string& path) {
  const std::string lower = AsciiLower(path);
  return lower.ends_with(".bat") || lower.ends_with(".cmd");
}

/// With its backslash when it is a drive.
std::string FolderAbove(const std::string& path) {
  const std::string folder = path.substr(0, LastSeparator(path));
  return folder.ends_with(':') ? folder + "\\" : folder;
}

void CheckHeader(Code code, const std::string& path, Diagnostics& found) {
  switch (KindOfProgram(path)) {
    case ProgramKind::NoProgram:
      found.push_back(Diagnostic(code, path + " is no Windows program"));
      break;
    case ProgramKind::OtherMachine:
      found.push_back(Diagnostic(code, path + " is a program for another machine"));
      break;
    case ProgramKind::Fits:
      break;
  }
}

class ProgramRules {
 public:
  ProgramRules(const Prediction& prediction, const RunPlaces& places, Diagnostics& found)
      : prediction_(prediction), places_(places), found_(found) {}

  void Check(bool machinesMatter) {
    bool isUnderMpi = false;
    for (const Pass& pass : prediction_.passes) {
      isUnderMpi = isUnderMpi || pass.IsUnderMpi();
      if (pass.mode == ComputeMode::Dmp) continue;  // its solver lies on the share
      CheckSolver(pass);
    }
    const bool isDistributed =
        !prediction_.passes.empty() && prediction_.passes.back().mode == ComputeMode::Dmp;
    if (isUnderMpi && (!isDistributed || machinesMatter)) {
      CheckMpiLauncher(prediction_.passes.back());
    }
    if (isDistributed && machinesMatter) {
      CheckAccounts();
      CheckProjectIni();
    }
  }

 private:
  [[nodiscard]] const LauncherContext& Context() const { return *prediction_.context; }

  /// One in `bin`; empty for none.
  static std::string SolverLike(const std::string& bin, const std::string& name) {
    const auto isFile = [&](const std::string& one) {
      return KindOf(bin + "\\" + one) == FileKind::File;
    };
    std::string shorter = name.substr(0, name.rfind('.'));
    if (AsciiLower(shorter).ends_with(".exe") && isFile(shorter)) return shorter;
    std::vector<std::string> names = NamesMatching(bin + "\\*.exe");
    std::erase_if(names, std::not_fn(isFile));
    const std::vector<std::string_view> views(names.begin(), names.end());
    return std::string(MostSimilar(name, views));
  }

  void CheckSolver(const Pass& pass) {
    const std::string path = WithExtension(pass.solverPath);
    const FileKind kind = KindOf(path);
    if (!seen_.insert(path).second) return;
    if (kind != FileKind::File) {
      if (places_.home.empty()) return;  // told with the call
      const std::string bin = places_.home + "\\Bin";
      if (KindOf(bin) != FileKind::Folder) return;  // told with the home folder
      if (FindCharacter(pass.solverPath, "\\/:", bin.size() + 1) != std::string::npos) return;
      Diagnostic diagnostic(
          "solver-file",
          "the solver " + path + (kind == FileKind::Folder ? " is a folder" : " does not exist"));
      diagnostic.Because(pass.IsUnderMpi() ? "the MPI process launcher would not start it"
                                           : "the launcher would stop with -1");
      const std::string name = pass.solverPath.substr(bin.size() + 1);
      const bool hasMark = name.find('"') != std::string::npos;
      if (name.empty() || hasMark || TrimmedOfInvisible(name) != name || IsLauncherName(name)) {
        return;  // told with the call
      }
      AddElsewhere({path + ".exe", path + ".txt", places_.home + "\\" + LastPart(path)},
                   diagnostic);
      if (const std::string meant = SolverLike(bin, name); !meant.empty()) {
        diagnostic.Suggest(meant, "Bin holds " + meant);
      }
      found_.push_back(diagnostic);
      return;
    }
    if (!IsBatchFile(path)) CheckHeader("solver-program", path, found_);
    if (pass.mode == ComputeMode::Serial) CheckUnquoted(pass, path);
  }

  /// A blank in an unquoted path lets the system try what stands before it first.
  void CheckUnquoted(const Pass& pass, const std::string& path) {
    const std::string started = ProgramOf(pass.commandLine);
    // The system takes blanks off a name's end.
    const std::string meant(TrimmedOfInvisible(path));
    if (started.empty() || AsciiLower(started) == AsciiLower(meant)) return;
    if (pass.reportedPath.find(' ') == std::string::npos) return;
    found_.push_back(Diagnostic(
        "other-program", started + " exists, and " + path + " stands without quotation marks"));
  }

  void CheckMpiLauncher(const Pass& pass) {
    const std::string folder = Context().mpiInstallationPath;
    if (!CheckRegistry(folder)) return;
    const std::string path = pass.impiexecPath;
    const FileKind kind = KindOf(path);
    if (kind == FileKind::File) {
      CheckHeader("mpi-launcher", path, found_);
      CheckUnquoted(pass, path);
      return;
    }
    if (KindOf(folder) == FileKind::File) {
      const std::string right = FolderAbove(folder);
      found_.push_back(Diagnostic("mpi-path", "IntelMPI_InstallPath is a file, " + folder)
                           .Suggest(right, "the value is the folder " + right));
      return;
    }
    Diagnostic diagnostic("mpi-launcher", path + " does not exist");
    const std::string other = folder + "\\mpiexec.exe";
    if (KindOf(other) == FileKind::File) {
      diagnostic.Help(other + " lies there, and impiexec.exe is looked for");
    }
    for (const std::string& right : {folder + "\\bin", folder + "\\x64", folder + "\\em64t\\bin",
                                     folder + "\\intel64\\bin", FolderAbove(folder)}) {
      if (KindOf(right + "\\impiexec.exe") != FileKind::File) continue;
      diagnostic.Suggest(right, "impiexec.exe lies in " + right);
      break;
    }
    found_.push_back(diagnostic);
  }

  /// False when there is no folder to look into.
  bool CheckRegistry(const std::string& folder) {
    constexpr std::size_t kMostBytes = kPathWidth - sizeof "\\impiexec.exe";
    const MpiPathValue value = LookUpMpiPathValue();
    const std::string key = "HKEY_LOCAL_MACHINE\\SOFTWARE\\NelvornSystem";
    std::string wrong;
    if (!value.hasKey) {
      wrong = "the registry holds no key " + key;
    } else if (!value.hasValue) {
      wrong = "the registry holds no value IntelMPI_InstallPath in " + key;
    } else if (!value.isText || (value.isExpandable && folder.find('%') != std::string::npos)) {
      wrong = "IntelMPI_InstallPath is no plain text (REG_SZ)";
    } else if (value.size > kPathWidth) {
      wrong = "IntelMPI_InstallPath is too long: " + std::to_string(kMostBytes) +
              " bytes fit, it has " + std::to_string(value.size - 1);
    } else if (folder.empty()) {
      wrong = "IntelMPI_InstallPath is empty";
    } else if (folder.find('"') != std::string::npos) {
      wrong = "IntelMPI_InstallPath holds quotation marks, " + folder;
    } else if (TrimmedOfInvisible(folder) != folder) {
      wrong = "a blank stands beside IntelMPI_InstallPath, " + folder;
    } else if (!IsAbsolutePath(folder + "\\")) {  // that of a drive has lost its own
      wrong = "IntelMPI_InstallPath is relative, " + folder;
    } else {
      return true;
    }
    Diagnostic diagnostic("mpi-path", wrong);
    if (!value.hasValue && value.isIn32BitView) {
      diagnostic.Help("the value stands in the registry of 32-bit programs (WOW6432Node)");
    } else if (!value.hasValue && value.isInUserKey) {
      diagnostic.Help("the value stands in HKEY_CURRENT_USER and belongs into HKEY_LOCAL_MACHINE");
    }
    std::string right = folder;
    std::erase(right, '"');
    right = TrimmedOfInvisible(right);
    if (right != folder && !right.empty()) {
      diagnostic.Suggest(right, "the value is written " + right);
    }
    found_.push_back(diagnostic);
    return false;
  }

  /// Where a missing file lies by mistake.
  static void AddElsewhere(const std::vector<std::string>& paths, Diagnostic& diagnostic) {
    for (const std::string& path : paths) {
      if (KindOf(path) == FileKind::File) diagnostic.Suggest(path, "there is a file " + path);
    }
  }

  void CheckAccounts() {
    const std::string path = places_.home + "\\acc.ini";
    const FileKind kind = KindOf(path);
    if (kind == FileKind::File && !ReadFileStart(path, 1).value_or("").empty()) return;
    Diagnostic diagnostic("account-file", path + (kind == FileKind::Missing  ? " is missing"
                                                  : kind == FileKind::Folder ? " is a folder"
                                                                             : " is empty"));
    if (kind == FileKind::Missing)
      AddElsewhere({path + ".txt", places_.home + "\\Bin\\acc.ini"}, diagnostic);
    found_.push_back(diagnostic);
  }

  /// A key of the file that is nearly the one that is looked for; empty for none.
  static std::string SimilarKey(const std::string& bytes) {
    for (std::size_t start = 0; start < bytes.size();) {
      const std::size_t end = std::min(bytes.find('\n', start), bytes.size());
      const std::string line = bytes.substr(start, end - start);
      std::string key(Trimmed(line.substr(0, line.find('='))));
      if (line.find('=') != std::string::npos && IsSimilar(key, kFolderNameKey)) return key;
      start = end + 1;
    }
    return {};
  }

  void CheckProjectIni() {
    if (Context().parallelFolderName[0] != '\0') {
      CheckParallelFolder(Context().parallelFolderName);
      return;
    }
    const std::string path = places_.home + "\\Bin\\QVXProject.ini";
    if (KindOf(path) != FileKind::File) {
      Diagnostic diagnostic("project-ini", path + " is missing");
      AddElsewhere({path + ".txt", places_.home + "\\QVXProject.ini"}, diagnostic);
      found_.push_back(diagnostic);
      return;
    }
    const std::string bytes = ReadFileStart(path, 65536).value_or("");
    Diagnostic diagnostic("project-ini",
                          path + " holds no QVX_PARALLEL_FOLDER_NAME in its section Configuration");
    if (bytes.starts_with("\xEF\xBB\xBF")) {
      diagnostic.summary = path + " begins with a byte-order mark, which hides its first section";
    } else if (const std::string lower = AsciiLower(bytes);
               lower.find("qvx_parallel_folder_name") != std::string::npos) {
      diagnostic.summary = path +
                           " holds QVX_PARALLEL_FOLDER_NAME without a value or outside its "
                           "section Configuration";
    } else if (const std::string key = SimilarKey(bytes); !key.empty()) {
      diagnostic.Suggest(kFolderNameKey, key + " is written " + kFolderNameKey);
    }
    found_.push_back(diagnostic);
  }

  void CheckParallelFolder(const std::string& name) {
    const bool endsInBackslash = FindCharacter(name, "\\", name.size() - 1) != std::string::npos;
    if (name.find_first_not_of("\\/") == 0 && !endsInBackslash && !IsAbsolutePath(name) &&
        Cleaned(name) == name) {
      return;
    }
    Diagnostic diagnostic("project-ini",
                          std::string(kFolderNameKey) + " is " + name + ", no share's name");
    diagnostic.Because("the run would look for the installation in " +
                       std::string(Context().remoteHomePath));
    diagnostic.Help("it is the share's name, without backslashes around it");
    const std::size_t share =
        name.starts_with("\\\\") ? FindCharacter(name, "\\", 2) : std::string::npos;
    if (share != std::string::npos && share + 1 < name.size()) {
      const std::string right = name.substr(share + 1);
      diagnostic.Suggest(right, "the value is written " + right);
    }
    found_.push_back(diagnostic);
  }

  const Prediction& prediction_;
  const RunPlaces& places_;
  Diagnostics& found_;
  std::set<std::string> seen_;
};

}  // namespace

void CheckPrograms(const Prediction& prediction, const RunPlaces& places, bool machinesMatter,
                   Diagnostics& found) {
  if (prediction.context != nullptr) {
    ProgramRules(prediction, places, found).Check(machinesMatter);
  }
}

}  // namespace qvx::runcheck
