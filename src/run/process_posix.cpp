#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>

#include "run/process.h"

extern char** environ;

namespace run {
namespace {

constexpr std::size_t kMessagesKept = 4000;  // bytes; the reason of a failure comes last
constexpr int kPollMilliseconds = 50;        // how late a cancellation may be noticed

/// Both ends of a pipe that no other child inherits.
class Pipe {
 public:
  Pipe() { open_ = pipe2(ends_, O_CLOEXEC) == 0; }
  ~Pipe() {
    closeWriting();
    if (open_) close(ends_[0]);
  }
  Pipe(const Pipe&) = delete;
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

/// The working directory goes before PATH, so that a copy beside the documents wins.
std::string programFile(const std::string& name) {
  if (name.find('/') != std::string::npos) return name;
  std::error_code ignored;
  const std::string here = "./" + name;
  const bool file = std::filesystem::is_regular_file(here, ignored);
  return file && access(here.c_str(), X_OK) == 0 ? here : name;
}

/// Returns 0 or the error number; the error stream goes to `errors`.
int spawn(const std::vector<std::string>& arguments, int errors, pid_t& child) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, errors, STDERR_FILENO);
  std::vector<char*> words;
  for (const std::string& word : arguments) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  const std::string program = programFile(arguments.front());
  const int error = posix_spawnp(&child, program.c_str(), &actions, nullptr, words.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  return error;
}

/// Reads what the child writes until it has closed its end, and returns the last of it.
std::string readMessages(int pipe, pid_t child, const std::atomic<bool>& cancelled) {
  std::string messages;
  char buffer[4096];
  bool killed = false;
  while (true) {
    if (cancelled && !killed) killed = kill(child, SIGKILL) == 0;
    pollfd waiting{pipe, POLLIN, 0};
    const int ready = poll(&waiting, 1, kPollMilliseconds);
    if (ready == 0 || (ready < 0 && errno == EINTR)) continue;
    const ssize_t count = read(pipe, buffer, sizeof buffer);
    if (count <= 0) return messages;
    messages.append(buffer, static_cast<std::size_t>(count));
    if (messages.size() > kMessagesKept) messages.erase(0, messages.size() - kMessagesKept);
  }
}

int exitCodeOf(pid_t child) {
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

ProcessResult SystemProcesses::run(const Command& command, const std::atomic<bool>& cancelled) {
  const std::string& name = command.arguments.front();
  Pipe pipe;
  if (!pipe.isOpen()) return {{"cannot start " + name + ": " + std::strerror(errno)}, 0, {}};
  pid_t child = 0;
  if (const int error = spawn(command.arguments, pipe.writing(), child))
    return {{"cannot start " + name + ": " + std::strerror(error)}, 0, {}};
  pipe.closeWriting();
  ProcessResult result;
  result.messages = readMessages(pipe.reading(), child, cancelled);
  result.exitCode = exitCodeOf(child);
  return result;
}

}  // namespace run
