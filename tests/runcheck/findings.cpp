#include "tests/runcheck/findings.h"

#include <algorithm>
#include <filesystem>

#include "tests/support/program_path.h"

namespace qvx::test {

RunCheckTest::RunCheckTest() {
  site.WriteCmx(kSerialCmx);
  std::filesystem::create_directories(site.Path("Mpi"));
  std::filesystem::copy_file(ProgramPath("samples\\impiexec.exe"), site.Path("Mpi\\impiexec.exe"));
  mpiPath.Set(site.Path("Mpi"));
}

std::string RunCheckTest::Ask(std::vector<std::string> arguments,
                              const std::string& program) const {
  for (std::string& argument : arguments) argument = site.Specific(argument);
  const CheckResult result = RunQvxRunCheck(arguments, program);
  EXPECT_EQ(result.error, "");
  status = result.status;
  return site.Generic(result.output);
}

std::string RunCheckTest::Answer(std::vector<std::string> arguments) const {
  arguments.insert(arguments.begin(), "--no-network");
  return Ask(arguments);
}

std::string RunCheckTest::Findings(const std::vector<std::string>& launcherArguments) const {
  std::vector<std::string> arguments = {"--"};
  arguments.insert(arguments.end(), launcherArguments.begin(), launcherArguments.end());
  std::string answer = Answer(arguments);
  const std::string verdict = answer.substr(answer.rfind('\n', answer.size() - 2) + 1);
  EXPECT_EQ(status, verdict.find(" error") == std::string::npos ? 0 : 1) << verdict;
  // Behind the heading and the facts, which begin with "Run" and two blanks.
  for (std::size_t start = 0; start < answer.size(); start = answer.find('\n', start) + 1) {
    const std::string_view line = std::string_view(answer).substr(start);
    if (!line.starts_with("Run ") && !line.starts_with("  ") && !line.starts_with("\n")) {
      // A site's name has no fixed length, nor have markers under it.
      std::string findings = answer.substr(start);
      const auto rest = std::unique(findings.begin(), findings.end(), [](char left, char right) {
        return left == '~' && right == '~';
      });
      findings.erase(rest, findings.end());
      return findings;
    }
  }
  return answer;
}

std::string RunCheckTest::FoundWith(const std::string& from, const std::string& to) const {
  EXPECT_NE(std::string_view(kDmpCmx).find(from), std::string_view::npos) << from;
  site.WriteCmx(Replaced(kDmpCmx, from, to));
  return Findings();
}

}  // namespace qvx::test
