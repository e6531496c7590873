#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fstream>
#include <optional>
#include <utility>

#include "run/guard.h"
#include "run/last_lines.h"
#include "run/patience.h"
#include "run/process.h"
#include "run/program_file.h"

namespace run {
namespace {

using Clock = Patience::Clock;

constexpr int kPollMilliseconds = 50;                    // how late a cancellation may be noticed
constexpr auto kGrace = std::chrono::seconds(5);         // a dead drive may hold what was killed
constexpr auto kBetweenLooks = std::chrono::seconds(1);  // at what it has read

/// Both ends of a pipe that no program inherits.
class Pipe {
 public:
  Pipe() { open_ = pipe2(ends_, O_CLOEXEC) == 0; }
  ~Pipe() {
    closeWriting();
    if (open_) close(ends_[0]);
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  bool isOpen() const { return open_; }
  int reading() const { return ends_[0]; }
  int writing() const { return ends_[1]; }
  void closeWriting() {
    if (open_ && ends_[1] >= 0) close(ends_[1]);
    ends_[1] = -1;
  }

 private:
  int ends_[2] = {-1, -1};
  bool open_ = false;
};

/// What the new process does until it is the program; nothing here may wait for a lock that another
/// thread held at the fork. Writes the error number to `failure` where it comes back.
[[noreturn]] void become(const char* program, char* const* words, int errors, int failure,
                         pid_t parent) {
  setpgid(0, 0);  // so that all that it starts ends with it, and Ctrl+C reaches us alone
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(127);  // which has already ended
  const int nothing = open("/dev/null", O_RDWR);
  dup2(nothing, STDIN_FILENO);
  dup2(nothing, STDOUT_FILENO);
  dup2(errors, STDERR_FILENO);
  execv(program, words);
  const int error = errno;
  (void)!write(failure, &error, sizeof error);
  _exit(127);
}

/// Returns 0 or the error number; the error stream goes to `errors`.
int start(const std::vector<std::string>& arguments, int errors, pid_t& child) {
  const std::string program = programFile(arguments.front());
  if (program.empty()) return ENOENT;
  std::vector<char*> words;
  for (const std::string& word : arguments) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  Pipe failure;
  if (!failure.isOpen()) return errno;
  const pid_t self = getpid();
  child = fork();
  if (child < 0) return errno;
  if (child == 0) become(program.c_str(), words.data(), errors, failure.writing(), self);
  setpgid(child, child);  // whichever of the two comes first
  failure.closeWriting();
  int error = 0;
  ssize_t count = 0;
  while ((count = read(failure.reading(), &error, sizeof error)) < 0 && errno == EINTR) {
  }
  if (count > 0) waitpid(child, nullptr, 0);
  return count > 0 ? error : 0;
}

/// How many bytes a process and those that it started have read so far; the programs that they
/// have waited for included. Nothing where the system does not tell.
std::optional<std::uint64_t> bytesRead(pid_t process) {
  const std::string folder = "/proc/" + std::to_string(process);
  std::ifstream counts(folder + "/io");
  std::string name;
  std::uint64_t bytes = 0;
  if (!(counts >> name >> bytes) || name != "rchar:") return std::nullopt;
  std::ifstream children(folder + "/task/" + std::to_string(process) + "/children");
  for (pid_t child = 0; children >> child;) bytes += bytesRead(child).value_or(0);
  return bytes;
}

/// Becomes readable when the process ends; below 0 where the system has no such thing.
int endOf(pid_t process) { return static_cast<int>(syscall(SYS_pidfd_open, process, 0)); }

/// A running program: takes up what it writes and ends it when it must be.
class Child {
 public:
  Child(pid_t process, int pipe, std::chrono::milliseconds patience)
      : process_(process), end_(endOf(process)), pipe_(pipe), patience_(patience) {
    guardGroup(process_);
  }
  ~Child() {
    if (end_ >= 0) close(end_);
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  /// Waits for the end; says how it came.
  ProcessResult wait(const std::atomic<bool>& cancelled) {
    while (!hasEnded() && !isLost()) {
      takeMessages();
      stalled_ |= !killedAt_ && hasStalled();
      if (cancelled || stalled_) kill();
    }
    while (takeMessages()) {  // what it wrote at last
    }
    return reaped();
  }

 private:
  /// Its number stays its own until it is reaped.
  bool hasEnded() const {
    siginfo_t info{};
    const int done = waitid(P_PID, static_cast<id_t>(process_), &info, WEXITED | WNOHANG | WNOWAIT);
    return done == 0 && info.si_pid == process_;
  }

  bool isLost() const { return killedAt_ && Clock::now() - *killedAt_ > kGrace; }

  void kill() {
    if (!killedAt_) killedAt_ = Clock::now();
    ::kill(-process_, SIGKILL);
  }

  bool hasStalled() {
    if (Clock::now() < nextLook_) return false;
    nextLook_ = Clock::now() + kBetweenLooks;
    return patience_.isExhausted(bytesRead(process_).value_or(written_));
  }

  /// Waits a moment for messages or the end. False if there were no messages.
  bool takeMessages() {
    pollfd waiting[] = {{pipe_, POLLIN, 0}, {end_, POLLIN, 0}};  // those below 0 are passed over
    if (poll(waiting, 2, kPollMilliseconds) <= 0 || !waiting[0].revents) return false;
    char buffer[4096];
    const ssize_t count = read(pipe_, buffer, sizeof buffer);
    if (count <= 0) {
      pipe_ = -1;
      return false;
    }
    written_ += static_cast<std::uint64_t>(count);
    messages_.add({buffer, static_cast<std::size_t>(count)});
    return true;
  }

  ProcessResult reaped() {
    ProcessResult result{{}, 128 + SIGKILL, messages_.text(), SIGKILL, stalled_};
    if (!hasEnded()) return result;  // the guard sees to it
    ::kill(-process_, SIGKILL);      // what it has left behind
    releaseGroup(process_);
    int status = 0;
    while (waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
    result.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    result.exitCode = result.signal ? 128 + result.signal : WEXITSTATUS(status);
    return result;
  }

  pid_t process_;
  int end_;   // readable once it has ended
  int pipe_;  // its error stream; below 0 when it is closed
  Patience patience_;
  LastLines messages_;
  std::uint64_t written_ = 0;  // bytes of messages
  std::optional<Clock::time_point> killedAt_;
  Clock::time_point nextLook_ = Clock::now() + kBetweenLooks;
  bool stalled_ = false;
};

ProcessResult notStarted(const std::string& name, int error) {
  return {{"cannot start " + name + ": " + std::strerror(error)}, 127, {}};
}

}  // namespace

ProcessResult SystemProcesses::run(const Command& command, const std::atomic<bool>& cancelled) {
  const std::string& name = command.arguments.front();
  Pipe pipe;
  if (!pipe.isOpen()) return notStarted(name, errno);
  pid_t process = 0;
  if (const int error = start(command.arguments, pipe.writing(), process))
    return notStarted(name, error);
  pipe.closeWriting();
  return Child(process, pipe.reading(), patience_).wait(cancelled);
}

}  // namespace run
