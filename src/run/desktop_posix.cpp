#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <thread>

#include "run/desktop.h"
#include "run/program_file.h"

extern char** environ;

namespace run {
namespace {

bool desktopIsThere() {
  const auto given = [](const char* name) {
    const char* value = std::getenv(name);
    return value && *value;
  };
  return given("DISPLAY") || given("WAYLAND_DISPLAY");
}

/// Starts `program` with one argument in a session of its own, so that it outlives this program.
/// It is not waited for: on a plain desktop it may be the file manager itself.
void start(std::string program, std::string argument) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDWR, 0);
  posix_spawn_file_actions_adddup2(&actions, STDIN_FILENO, STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, STDIN_FILENO, STDERR_FILENO);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
  char* words[] = {program.data(), argument.data(), nullptr};
  pid_t child = 0;
  if (posix_spawn(&child, program.c_str(), &actions, &attributes, words, environ) == 0)
    std::thread([child] { (void)waitpid(child, nullptr, 0); }).detach();  // no zombie stays
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
}

}  // namespace

void SystemDesktop::command(const std::string&) {}

void SystemDesktop::show(const std::string& path) {
  const std::string program = programFile("xdg-open");
  if (!program.empty() && desktopIsThere()) start(program, path);
}

std::string SystemDesktop::movedTo() { return {}; }

bool SystemDesktop::putShortcut(const std::string&, const std::string&) { return false; }

}  // namespace run
