#include "runcheck/share_rules.h"

#include <algorithm>
#include <string>
#include <utility>

#include "launcher/lower_case_name.h"
#include "runcheck/call_facts.h"
#include "runcheck/cmx_rules.h"
#include "runcheck/similar_name.h"

namespace qvx::runcheck {
namespace {

/// What no host's name in a path holds, and no file's name.
constexpr const char* kNoHost = "\\/ :;,*?\"<>|";
constexpr const char* kNoFile = ":*?\"<>|";

/// Letters beyond A to Z, all of them as UTF-8 writes them.
bool IsUtf8(std::string_view text) {
  std::size_t more = 0;
  bool hasLetters = false;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    const bool continues = (byte & 0xC0) == 0x80;
    if (continues != (more > 0) || (!continues && byte >= 0xF8)) return false;
    if (continues) {
      --more;
    } else if (byte >= 0x80) {
      more = byte >= 0xF0 ? 3 : byte >= 0xE0 ? 2 : 1;
      hasLetters = true;
    }
  }
  return hasLetters && more == 0;
}

class ShareRules {
 public:
  ShareRules(const CmxFacts& facts, const Prediction& prediction, Diagnostics& found)
      : facts_(facts),
        reading_(*facts.Reading(kRemoteMachinesSection)),
        context_(*prediction.context),
        settings_(context_.remoteMachineSettings),
        projectDirectory_(prediction.projectDirectory),
        found_(found) {}

  void Check() {
    CheckStorageNode();
    CheckShareName();
    CheckWorkingFolder();
  }

 private:
  void Add(Diagnostic diagnostic, std::string_view key) {
    if (const SettingLine* setting = reading_.Find(key)) {
      diagnostic.At(ValueRange(facts_.File(), *setting), setting->line->whole);
    } else if (!reading_.openings.empty()) {
      const CmxLine& opening = *reading_.openings.back();
      diagnostic.At(LineRange(facts_.File(), opening), opening.whole);
    }
    found_.push_back(std::move(diagnostic));
  }

  /// True when a line that was meant to set `key` is told already.
  [[nodiscard]] bool IsTold(std::string_view key) const {
    return reading_.Find(key) == nullptr && IsKeyTold(found_, key);
  }

  /// True when the rules over the lines have told what is wrong with the value of `key`.
  [[nodiscard]] bool IsValueTold(std::string_view key) const {
    const SettingLine* setting = reading_.Find(key);
    return setting != nullptr && std::ranges::any_of(found_, [&](const Diagnostic& diagnostic) {
             return diagnostic.code.starts_with("cmx-") && diagnostic.range &&
                    diagnostic.range->start.line == setting->line->number;
           });
  }

  static bool IsLoopback(std::string_view host) {
    return AsciiLower(host) == "localhost" || host.starts_with("127.") || host == "::1";
  }

  static std::string WithoutSlashes(std::string name) {
    while (EndsInSlash(name)) name.pop_back();
    return name.substr(std::min(name.find_first_not_of("\\/"), name.size()));
  }

  void CheckStorageNode() {
    const std::string node = settings_.ValueStorageNode;
    const bool isDefault = reading_.ValueOf("ValueStorageNode").empty();
    const std::string_view key = isDefault ? "ValueLocalHost" : "ValueStorageNode";
    if (node.empty()) {
      if (IsTold("ValueStorageNode") || IsTold("ValueLocalHost")) return;
      Add(Diagnostic("storage-node", "neither ValueStorageNode nor ValueLocalHost is set"), key);
    } else if (IsLoopback(node) && settings_.machines.size() > 1) {
      Add(Diagnostic("storage-node",
                     std::string(key) + " is " + node + ", which each machine takes for itself")
              .Because("the other machines would look for the shares at themselves")
              .Help("it is this machine's name in the network"),
          key);
    } else if (!IsValueTold(key) &&
               (FindCharacter(node, kNoHost, 0) != std::string::npos || node == ".")) {
      const std::string name = node.substr(std::min(node.find_first_not_of("\\/"), node.size()));
      const std::string host = name.substr(0, FindCharacter(name, kNoHost, 0));
      Diagnostic diagnostic("storage-node", std::string(key) + " is " + node + ", no host name");
      // One letter is a drive's.
      if (host.size() > 1) diagnostic.Suggest(host, "the host is written " + host);
      Add(diagnostic, key);
    }
  }

  void CheckShareName() {
    constexpr std::string_view kKey = "ValueShareFolderName";
    const std::string share = settings_.ValueShareFolderName;
    if (IsValueTold(kKey)) return;
    const std::size_t first = share.find_first_not_of("\\/");
    if (share.empty()) {
      if (!IsTold(kKey)) Add(Diagnostic("share-name", "ValueShareFolderName is empty"), kKey);
    } else if (IsAbsolutePath(share)) {
      Diagnostic diagnostic("share-name", "ValueShareFolderName is a path, " + share);
      const std::size_t host = FindCharacter(share, "\\/", first);
      if (first == 2 && host != std::string::npos &&
          host + 1 < share.size()) {  // "\\NODE1\Projects"
        const std::string name = WithoutSlashes(share.substr(host));
        diagnostic.Suggest(name, "the share is written " + name);
      }
      Add(std::move(diagnostic), kKey);
    } else if (first != 0 || EndsInSlash(share)) {
      const std::string name = WithoutSlashes(share);
      const bool isSlash = share.front() == '/' || share.back() == '/';
      Add(Diagnostic("share-name", std::string(isSlash ? "a slash" : "a backslash") +
                                       " stands beside the share's name in " + share)
              .Suggest(name, "the share is written " + name),
          kKey);
    } else if (const std::string node = AsciiLower(settings_.ValueStorageNode) + "\\";
               AsciiLower(share).starts_with(node)) {
      const std::string name = share.substr(node.size());
      Add(Diagnostic("share-name", "ValueShareFolderName begins with the storage node, " + share)
              .Suggest(name, "the share is written " + name),
          kKey);
    } else if (FindCharacter(share, kNoFile, 0) != std::string::npos ||
               std::string_view(";,").find(share.back()) != std::string_view::npos) {
      const std::string name = share.substr(0, share.find_last_not_of(";,") + 1);
      Diagnostic diagnostic("share-name", "ValueShareFolderName is " + share + ", no share's name");
      if (FindCharacter(name, kNoFile, 0) == std::string::npos) {
        diagnostic.Suggest(name, "the share is written " + name);
      }
      Add(diagnostic, kKey);
    }
  }

  std::string Lowered(std::string text) {
    LowerCaseName(context_, text);
    return text;
  }

  void AddFolder(const std::string& summary, bool grave, const std::string& suggestion = {}) {
    Diagnostic diagnostic("working-folder", summary);
    diagnostic.Grave(grave);
    if (!grave) {
      diagnostic.Because("the launcher would cut the project directory at the first place");
    }
    if (!suggestion.empty()) {
      diagnostic.Suggest(suggestion, "the working folder is written " + suggestion);
    }
    Add(std::move(diagnostic), "ValueParallelWorkingFolder");
  }

  void CheckWorkingFolder() {
    const std::string folder = settings_.ValueParallelWorkingFolder;
    const std::string project = Lowered(projectDirectory_);
    const std::string wanted = Lowered(folder);
    if (IsValueTold("ValueParallelWorkingFolder") || projectDirectory_.empty()) return;
    if (folder.empty()) {
      if (!IsTold("ValueParallelWorkingFolder")) {
        AddFolder("ValueParallelWorkingFolder is empty", true);
      }
      return;
    }
    const std::size_t at = project.find(wanted);
    if (at == std::string::npos) {
      CheckNotFound(folder);
      return;
    }
    const std::size_t end = at + wanted.size();
    const std::string rest = project.substr(std::min(end + 1, project.size()));
    if (EndsInSlash(folder)) {
      AddFolder(std::string("ValueParallelWorkingFolder ends in a ") +
                    (folder.back() == '/' ? "slash" : "backslash") + " and makes the project " +
                    (rest.empty() ? "nameless" : rest),
                true, folder.substr(0, folder.size() - 1));
    } else if (end < project.size() && project[end] != '\\' && project[end] != '/') {
      AddFolder(folder + " ends within a name of the project directory and makes the project " +
                    (rest.empty() ? "nameless" : rest),
                true, SimilarFolder(folder));
    } else if (at != 0) {
      const bool isName = project[at] == '\\' || project[at - 1] == '\\';
      AddFolder(folder + " is not where the project directory begins", !isName);
    } else if (project.find(wanted, 1) != std::string::npos) {
      AddFolder(folder + " stands in the project directory twice, and the first place counts",
                false);
    }
  }

  void CheckNotFound(const std::string& folder) {
    if (const std::string right = WithBackslashes(projectDirectory_);
        right != projectDirectory_ && Lowered(right).starts_with(Lowered(folder))) {
      Diagnostic diagnostic("working-folder", folder + " is not in the project directory " +
                                                  projectDirectory_ + ", which holds slashes");
      diagnostic.Grave().Suggest(right, "the project directory is written " + right);
      Add(std::move(diagnostic), "ValueParallelWorkingFolder");
      return;
    }
    std::string summary = folder + " is not in the project directory " + projectDirectory_;
    if (IsUtf8(folder)) {
      summary += ", and its letters beyond A to Z are UTF-8, not the ANSI code page";
    } else if (HasBeyondAscii(folder)) {
      summary += "; the case of letters beyond A to Z counts";
    }
    Diagnostic diagnostic("working-folder", summary);
    if (const std::string right = SimilarFolder(folder); !right.empty()) {
      diagnostic.Suggest(right, "the working folder is written " + right);
    } else if (folder.starts_with('%')) {
      diagnostic.Help("a variable between % is not replaced here");
    }
    Add(diagnostic.Grave(), "ValueParallelWorkingFolder");
  }

  /// As many folders of the project directory as `folder` has, when it can be a misspelt one of
  /// them; empty otherwise.
  [[nodiscard]] std::string SimilarFolder(const std::string& folder) const {
    std::string plain = WithBackslashes(folder);
    while (EndsInSlash(plain)) plain.pop_back();
    for (std::size_t at = 1; (at = FindCharacter(plain, "\\", at)) != std::string::npos;) {
      if (plain[++at] == '\\') plain.erase(at--, 1);
    }
    std::size_t end = std::string::npos;
    for (std::size_t at = 0; at <= plain.size(); ++at) {
      if (end == projectDirectory_.size()) return {};
      end = std::min(FindCharacter(projectDirectory_, "\\", end + 1), projectDirectory_.size());
      at = std::min(FindCharacter(plain, "\\", at), plain.size());
    }
    std::string right = projectDirectory_.substr(0, end);
    const bool isDriveAlone = right.size() <= 2;
    return !isDriveAlone && IsSimilar(plain, right) ? right : std::string();
  }

  static std::string WithBackslashes(std::string path) {
    std::ranges::replace(path, '/', '\\');
    return path;
  }

  static bool HasBeyondAscii(std::string_view text) {
    for (const char c : text) {
      if (static_cast<unsigned char>(c) >= 0x80) return true;
    }
    return false;
  }

  const CmxFacts& facts_;
  const SectionReading& reading_;
  LauncherContext& context_;
  const RemoteMachineSettings& settings_;
  const std::string& projectDirectory_;
  Diagnostics& found_;
};

}  // namespace

void CheckShares(const CmxFacts& facts, const Prediction& prediction, Diagnostics& found) {
  const SectionReading* reading = facts.Reading(kRemoteMachinesSection);
  if (reading == nullptr || reading->openings.empty() || !prediction.isPrepared) return;
  ShareRules(facts, prediction, found).Check();
}

void CheckCommandLines(const Prediction& prediction, Diagnostics& found) {
  // What CreateProcess takes, and what one line of the log holds beside "Commandline=[]".
  constexpr std::size_t kLongestCommandLine = 32766;
  constexpr std::size_t kLongestLoggedLine = 32751;
  for (const Pass& pass : prediction.passes) {
    const std::size_t length = pass.commandLine.size();
    if (length <= kLongestLoggedLine) continue;
    Diagnostic diagnostic("command-line-length",
                          "the command line has " + std::to_string(length) + " characters");
    if (length > kLongestCommandLine) {
      diagnostic.Because("the system would not start it; 32766 are the most");
    } else {
      diagnostic.Because(
          "the launcher would start it, fail to log it and end with -2; 32751 are the most");
    }
    found.push_back(std::move(diagnostic));
  }
}

}  // namespace qvx::runcheck
