#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <set>
#include <string>
#include <string_view>

#include "report/disk.h"
#include "run/guard.h"

namespace run {
namespace {

namespace fs = std::filesystem;

// A message is one of these and then the number or the whole path. The socket keeps them apart.
enum Kind : char { kGroup = 'g', kGroupReleased = 'G', kPath = 'p', kPathReleased = 'P' };

int toGuard = -1;  // set before there are threads

void send(Kind kind, const std::string& what) {
  const std::string message = static_cast<char>(kind) + what;
  if (toGuard >= 0) (void)::send(toGuard, message.data(), message.size(), MSG_NOSIGNAL);
}

/// What the guard knows, in the process of its own.
class Charges {
 public:
  void take(std::string_view message) {
    const std::string what(message.substr(1));
    switch (message.front()) {
      case kGroup:
        groups_.insert(what);
        break;
      case kGroupReleased:
        groups_.erase(what);
        break;
      case kPath:
        paths_.insert(what);
        break;
      case kPathReleased:
        paths_.erase(what);
        break;
    }
  }

  void cleanUp() const {
    for (const std::string& group : groups_) kill(-std::stoi(group), SIGKILL);
    for (const std::string& path : paths_) remove(path);
  }

 private:
  static void remove(const fs::path& path) {
    std::error_code error;
    if (fs::is_directory(fs::symlink_status(path, error)))
      report::removeFolder(path);
    else
      report::removeFile(path);
  }

  std::set<std::string> groups_, paths_;
};

/// Nothing of the terminal, the caller's pipes and the working directory is held on to, and what
/// ends the program does not end the guard.
void standApart(int socket) {
  setsid();
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE}) std::signal(signal, SIG_IGN);
  prctl(PR_SET_NAME, "kestrel-guard");
  dup2(socket, STDIN_FILENO);
  close_range(STDIN_FILENO + 1, ~0U, 0);
  (void)open("/dev/null", O_RDWR);  // standard output and error
  (void)open("/dev/null", O_RDWR);
  (void)!chdir("/");
}

[[noreturn]] void watch(int socket) {
  standApart(socket);
  Charges charges;
  std::array<char, PATH_MAX + 1> message;
  while (true) {
    const ssize_t size = recv(STDIN_FILENO, message.data(), message.size(), 0);
    if (size > 0) charges.take({message.data(), static_cast<std::size_t>(size)});
    if (size == 0 || (size < 0 && errno != EINTR)) break;  // the program has ended
  }
  charges.cleanUp();
  _exit(0);
}

}  // namespace

void startGuard() {
  int ends[2];
  if (toGuard >= 0 || socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0) return;
  const pid_t guard = fork();
  if (guard == 0) {
    close(ends[0]);
    watch(ends[1]);
  }
  close(ends[1]);
  if (guard > 0)
    toGuard = ends[0];
  else
    close(ends[0]);
}

void guardGroup(int group) { send(kGroup, std::to_string(group)); }
void releaseGroup(int group) { send(kGroupReleased, std::to_string(group)); }

void guardPath(const fs::path& path) {
  std::error_code error;
  send(kPath, fs::absolute(path, error).string());
}

void releasePath(const fs::path& path) {
  std::error_code error;
  send(kPathReleased, fs::absolute(path, error).string());
}

}  // namespace run
