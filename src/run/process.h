#pragma once

#include <atomic>
#include <string>
#include <vector>

#include "report/status.h"

namespace run {

/// A program with its arguments, in both of the forms that systems take.
struct Command {
  std::string windowsLine;             // the whole command line, quoted as Windows wants it
  std::vector<std::string> arguments;  // elsewhere: program name, then the arguments, apart
};

/// How an outside program ended.
struct ProcessResult {
  report::Status started;  // why it could not be started
  int exitCode = 0;        // 0 where the system is not asked
  std::string messages;    // the end of what it wrote to its error stream; empty on Windows
};

/// Starts outside programs. There is one implementation per platform; tests bring their own.
class ProcessRunner {
 public:
  virtual ~ProcessRunner() = default;
  /// Runs `command` without a window, a shell or input, and waits for it; ends it when `cancelled`
  /// becomes true. Callable from several threads at once.
  virtual ProcessResult run(const Command& command, const std::atomic<bool>& cancelled) = 0;
};

/// Processes of the operating system. A program without a folder in its name is looked for in the
/// working directory, then in PATH; on Windows the command line names its place.
class SystemProcesses final : public ProcessRunner {
 public:
  ProcessResult run(const Command& command, const std::atomic<bool>& cancelled) override;
};

}  // namespace run
