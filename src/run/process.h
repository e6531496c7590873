#pragma once

#include <atomic>
#include <chrono>
#include <string>
#include <vector>

#include "report/status.h"

namespace run {

/// A program with its arguments, in both of the forms that systems take.
struct Command {
  std::string windowsLine;             // the whole command line, quoted as Windows wants it
  std::vector<std::string> arguments;  // program name, then the arguments, apart; Windows uses the
                                       // name alone
};

/// How an outside program ended.
struct ProcessResult {
  report::Status started;  // why it could not be started
  int exitCode = 0;        // 128 and the signal's number for one that a signal ended
  std::string messages;    // the last lines of what it wrote to its error stream
  int signal = 0;          // what ended it; 0: it ended by itself (always so on Windows)
  bool stalled = false;    // it was ended because it did nothing for too long
  bool driveFull = false;  // it failed on a full drive (noteFullDrive)

  /// It ran to its own end and had nothing to complain of.
  bool ok() const { return started.ok() && exitCode == 0 && !stalled; }
};

/// Whether it failed for want of room on a drive.
bool hadNoRoom(const ProcessResult& result);

/// Whether it could not begin or go on for want of memory.
bool hadNoMemory(const ProcessResult& result);

/// What the system says of a part of the program itself that is missing or cannot be used; empty
/// if the program came to its own first line.
std::string brokenPartOf(const ProcessResult& result);

/// Whether it came to grief by a fault of its own.
bool hasCrashed(const ProcessResult& result);

/// Starts outside programs. There is one implementation per platform; tests bring their own.
class ProcessRunner {
 public:
  virtual ~ProcessRunner() = default;
  /// Runs `command` without a window, a shell or input, and waits for it; ends it, with all that it
  /// has started, when `cancelled` becomes true. Callable from several threads at once.
  virtual ProcessResult run(const Command& command, const std::atomic<bool>& cancelled) = 0;
};

/// Processes of the operating system, started from where `programFile` finds them. They end with
/// this program, however it ends.
class SystemProcesses final : public ProcessRunner {
 public:
  /// A drive that sleeps or a share far away answers sooner than that.
  static constexpr std::chrono::milliseconds kPatience = std::chrono::minutes(2);

  /// A program that reads nothing for as long as `patience` is ended.
  explicit SystemProcesses(std::chrono::milliseconds patience = kPatience) : patience_(patience) {}
  ProcessResult run(const Command& command, const std::atomic<bool>& cancelled) override;

 private:
  std::chrono::milliseconds patience_;
};

}  // namespace run
