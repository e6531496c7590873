#pragma once

#include <filesystem>
#include <fstream>
#include <string>

/// A folder as a card from anyone may be: programs, libraries and a window document of all names
/// that ours use lie in it. Those that are started or loaded leave a file with the ending ".ran".
inline void plant(const std::filesystem::path& card) {
  namespace fs = std::filesystem;
  fs::create_directories(card / "qml/syncui1");
  std::ofstream(card / "qml/syncui1/main.qml")
      << "import QtQml\nimport QtQuick\nItem { Component.onCompleted: console.log(\"PLANTED\") }\n";
#ifdef _WIN32
  for (const char* name : {"ffmpeg.exe", "explorer.exe", "cmd.exe", "open.exe", "xdg-open.exe"})
    fs::copy_file(PLANTED_PROGRAM, card / name);
  for (const char* name :
       {"MediaInfo.dll", "shell32.dll", "dwmapi.dll", "uxtheme.dll", "d3d11.dll"})
    fs::copy_file(PLANTED_LIBRARY, card / name);
#else
  for (const char* name : {"ffmpeg", "ffmpeg.exe", "xdg-open", "explorer", "open", "sh"}) {
    std::ofstream(card / name) << "#!/bin/sh\n: >\"" + (card / name).string() + ".ran\"\n";
    fs::permissions(card / name, fs::perms::owner_all);
  }
#endif
}

/// The names of what was started or loaded there, parted by blanks.
inline std::string whatRan(const std::filesystem::path& card) {
  std::string ran;
  for (const auto& entry : std::filesystem::directory_iterator(card))
    if (entry.path().extension() == ".ran") ran += entry.path().stem().string() + ' ';
  return ran;
}
