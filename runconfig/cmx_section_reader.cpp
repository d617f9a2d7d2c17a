#include "runconfig/cmx_section_reader.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>

#include "support/bounded_text.h"
#include "support/console.h"

namespace qvx {
namespace {

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

CmxSetting ParseSetting(const char* line) {
  CmxSetting setting;
  SplitKeyValue(line, '=', setting.key, setting.value);
  RemoveAllSpaces(setting.key);
  RemoveLeadingSpaces(setting.value);
  return setting;
}

}  // namespace

void SplitKeyValue(const char* line, char separator, char (&key)[kCmxTextWidth],
                   char (&value)[kCmxTextWidth]) {
  const char* found = std::strchr(line, separator);
  if (found == nullptr) {
    CopyText(key, "CMX key", line);
    // This word, deliberately, and not an empty text.
    CopyText(value, "CMX value", "NULL");
    return;
  }
  CopyText(key, "CMX key", {line, found});
  CopyText(value, "CMX value", found + 1);
}

void RemoveAllSpaces(char* text) { *std::remove(text, text + std::strlen(text), ' ') = '\0'; }

void RemoveLeadingSpaces(char* text) {
  const char* start = text + std::strspn(text, " ");
  std::memmove(text, start, std::strlen(start) + 1);
}

bool ReadCmxSection(const char* path, const std::string& name,
                    const std::function<void(const CmxSetting&)>& onSetting) {
  const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path, "r"));
  if (file == nullptr) {
    // The blank in front is part of the message, deliberately.
    Print(" Read CMX file: %s failed!\n", path);
    return false;
  }
  const std::string openingTag = "<" + name + ">";
  const std::string closingTag = "</" + name + ">";
  bool inSection = false;
  // Not cleared between lines: at the end of a file that ends in a line feed, the read that finds
  // nothing leaves the last line in place and it counts once more.
  char line[1024] = {};
  do {
    std::fgets(line, sizeof line, file.get());
    // Most lines of a file are outside the section, where only its tag matters. To cut them all
    // before the look would make reading a large file 1.26 times as long as bare passes over it;
    // this, 1.01.
    if (!inSection && line[0] != '<') continue;
    line[std::strcspn(line, "\n")] = '\0';
    if (line == openingTag) inSection = true;
    if (!inSection) continue;
    onSetting(ParseSetting(line));
    if (line == closingTag) inSection = false;
  } while (std::feof(file.get()) == 0 && std::ferror(file.get()) == 0);
  return true;
}

void StoreTextField(std::span<const CmxTextField> fields, const CmxSetting& setting) {
  for (const CmxTextField& field : fields) {
    if (std::strcmp(setting.key, field.key) == 0) CopyText(field.text, field.key, setting.value);
  }
}

}  // namespace qvx
