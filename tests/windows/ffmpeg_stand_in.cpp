// Stands in for ffmpeg.exe where only the way to it is tried: refuses any arguments but those of a
// conversion, and copies, which is the right conversion of sound that has the wanted form already.
#include <windows.h>
// windows.h comes first: shellapi.h needs it
#include <shellapi.h>

#include <algorithm>
#include <string_view>
#include <vector>

int main() {
  int count = 0;
  wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
  const std::vector<std::wstring_view> given(words + 1, words + count);
  if (given.size() != 13) return 2;
  const std::wstring_view source = given[1], target = given[12];
  const std::vector<std::wstring_view> expected = {
      L"-i",  source, L"-vn", L"-acodec", L"pcm_s16le", L"-ar", L"8000",
      L"-ac", L"1",   L"-f",  L"wav",     L"-y",        target};
  if (!std::ranges::equal(given, expected)) return 2;
  return CopyFileW(source.data(), target.data(), FALSE) ? 0 : 1;
}
