// QVXUnicodeTool.dll, a closed library of the product: text conversions between the system's ANSI
// code page, UTF-16 and UTF-8. Only what the launcher calls is declared here.
//
// Texts end with a zero. wchar_t is one UTF-16 unit on Windows. Results: 0 for success, negative
// for failure; after a failure the output is an empty text.
#pragma once

#if !defined(_WIN32)
#define QVX_UNICODE_TOOL_API
#elif defined(QVXUnicodeTool_EXPORTS)
#define QVX_UNICODE_TOOL_API __declspec(dllexport)
#else
#define QVX_UNICODE_TOOL_API __declspec(dllimport)
#endif

class QVX_UNICODE_TOOL_API CQVXUnicodeTool {
 public:
  CQVXUnicodeTool();
  ~CQVXUnicodeTool();

  /// Fails when `utf16` cannot hold the converted text and its terminating zero.
  /// `capacity`: width of `utf16` in UTF-16 units, terminating zero included.
  int AnsiToUtf16(const char* ansi, wchar_t* utf16, int capacity);

  /// Fails when `ansi` cannot hold the converted text and its terminating zero.
  /// `capacity`: width of `ansi` in bytes, terminating zero included.
  int Utf16ToAnsi(const wchar_t* utf16, char* ansi, int capacity);

  /// Stores a text made with `new char[]`; the caller releases it with `delete[]`. Launcher and
  /// library therefore have to share one C runtime heap.
  int Utf16ToUtf8(const wchar_t* utf16, char*& utf8);
};
