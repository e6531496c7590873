#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "report/files.h"
#include "run/own_folder.h"
#include "run/program_file.h"
#include "run/wide_text.h"

namespace run {
namespace {

namespace fs = std::filesystem;

bool isProgram(const fs::path& file) {
  const DWORD attributes = GetFileAttributesW(file.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

}  // namespace

std::string programFile(const std::string& name) {
  if (name.find_first_of("/\\") != std::string::npos) return name;
  const std::wstring file = widened(name) + L".exe";
  const fs::path own = report::fromUtf8(ownFolder()) / file;
  if (isProgram(own)) return report::toUtf8(own);
  const wchar_t* path = _wgetenv(L"PATH");
  std::wistringstream folders(path ? path : L"");
  for (std::wstring folder; std::getline(folders, folder, L';');) {
    const fs::path found = fs::path(folder) / file;
    if (found.is_absolute() && isProgram(found)) return report::toUtf8(found);
  }
  return {};
}

}  // namespace run
