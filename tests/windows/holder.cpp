// holder hold FILE: starts itself as "holder sleep FILE" through the program's own way to start
// programs, and waits for it. holder sleep FILE: writes its process number to FILE and goes on and
// on.
#include <windows.h>

#include <fstream>

#include "run/process.h"

int main(int count, char** words) {
  if (count != 3) return 2;
  if (std::string(words[1]) == "hold") {
    const std::atomic<bool> never = false;
    const std::string line = '"' + std::string(words[0]) + "\" sleep \"" + words[2] + '"';
    return run::SystemProcesses().run({line, {words[0]}}, never).ok() ? 0 : 1;
  }
  std::ofstream(words[2]) << GetCurrentProcessId() << std::endl;
  Sleep(INFINITE);
}
