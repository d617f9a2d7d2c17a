// Stands in for the text mode of Windows' C runtime: linked in place of fopen (--wrap=fopen), it
// drops a carriage return directly before a line feed, ends the text at a Ctrl-Z, and opens no
// folder.
#include <cstdio>
#include <string>

extern "C" {
std::FILE* __real_fopen(const char* path, const char* mode);

std::FILE* __wrap_fopen(const char* path, const char* mode) {
  std::FILE* file = __real_fopen(path, mode);
  if (file == nullptr || std::string(mode) != "r") return file;
  std::string text;
  for (int c = std::getc(file); c != EOF && c != 0x1A; c = std::getc(file)) {
    if (c == '\n' && !text.empty() && text.back() == '\r') text.pop_back();
    text.push_back(static_cast<char>(c));
  }
  const bool readable = std::ferror(file) == 0;
  std::fclose(file);
  if (!readable) return nullptr;
  file = std::tmpfile();
  std::fwrite(text.data(), 1, text.size(), file);
  std::rewind(file);
  return file;
}
}
