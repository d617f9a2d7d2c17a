// docs/run-check.md has the table of the codes: row by row the one that the program has.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "runcheck/diagnostic_codes.h"

namespace qvx::runcheck {
namespace {

std::string Name(Severity severity) {
  return severity == kError ? "error" : severity == kWarning ? "warning" : "note";
}

std::string Table() {
  std::string table =
      "| Code | Severity | What is wrong | What follows | What to do |\n|---|---|---|---|---|\n";
  for (const CodeRow& row : kCodes) {
    const std::string between = row.mildest == kNote && row.gravest == kError ? " to " : " or ";
    const std::string severity = row.mildest == row.gravest
                                     ? Name(row.mildest)
                                     : Name(row.mildest) + between + Name(row.gravest);
    table += "| `" + std::string(row.code) + "` | " + severity + " | " + std::string(row.meaning) +
             " | " + std::string(row.consequence) + " | " + std::string(row.remedy) + " |\n";
  }
  return table;
}

TEST(RunCheckDocument, HasTheTableOfCodes) {
  std::ifstream file(QVX_RUN_CHECK_DOCUMENT, std::ios::binary);
  const std::string text(std::istreambuf_iterator<char>(file), {});
  const std::size_t start = text.find("| Code |");
  ASSERT_NE(start, std::string::npos) << Table();
  const std::size_t end = text.find("\n\n", start);
  EXPECT_EQ(text.substr(start, end - start + 1), Table());
}

}  // namespace
}  // namespace qvx::runcheck
