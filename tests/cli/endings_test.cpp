// The real program, ended from outside while a script in the place of ffmpeg is at work for it.
#ifndef _WIN32

#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>

#include <csignal>
#include <thread>

#include "report/disk.h"
#include "tests/process_state.h"
#include "tests/run/media.h"

namespace fs = std::filesystem;

namespace {

/// A run on one recording, which goes on until it is ended.
class EndlessRun {
 public:
  EndlessRun() {
    card_.write("a.wav", wavText(liveSound(2, 30)));
    script("ffmpeg", "cd '" + file("") + "'; sleep 600 & echo $! > new; mv new child; wait");
    fs::create_directories(tools_.path() / "tmp");
    const std::string path = "PATH=" + report::toUtf8(tools_.path()) + ':' + std::getenv("PATH");
    const std::string home = "HOME=" + file("home"), spare = "TMPDIR=" + file("tmp");
    const std::string program = report::wholePath(PROGRAM), recording = card_.file("a.wav");
    const char* words[] = {program.c_str(), "--quiet", "--no-cache", recording.c_str(), nullptr};
    const char* values[] = {path.c_str(), home.c_str(), spare.c_str(), nullptr};
    EXPECT_EQ(posix_spawn(&process_, program.c_str(), nullptr, nullptr, const_cast<char**>(words),
                          const_cast<char**>(values)),
              0);
    while (!fs::exists(tools_.path() / "child")) std::this_thread::yield();
    child_ = std::stoi(readWhole(tools_.path() / "child"));
  }

  /// How it ended: its exit status, or 128 and the signal.
  int endedBy(const std::vector<int>& signals) {
    for (const int signal : signals) kill(process_, signal);
    int status = 0;
    waitpid(process_, &status, 0);
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
  }

  /// What must come to an end soon.
  bool leavesSomething() const {
    return isRunning(child_) || std::distance(fs::directory_iterator(card_.path()), {}) != 1 ||
           !fs::is_empty(tools_.path() / "tmp");
  }

 private:
  std::string file(const std::string& name) const { return tools_.file(name); }
  void script(const std::string& name, const std::string& text) const {
    fs::permissions(tools_.write(name, "#!/bin/sh\n" + text + '\n'), fs::perms::owner_all);
  }

  const Folder card_, tools_;
  pid_t process_ = 0;
  int child_ = 0;
};

}  // namespace

TEST(Endings, WhateverEndsARunItLeavesNoFileAndNoProgram) {
  const std::pair<std::vector<int>, int> cases[] = {{{SIGTERM}, 130},
                                                    {{SIGHUP}, 130},
                                                    {{SIGINT, SIGINT, SIGINT}, 128 + SIGINT},
                                                    {{SIGKILL}, 128 + SIGKILL},
                                                    {{SIGABRT}, 128 + SIGABRT}};
  for (const auto& [signals, status] : cases) {
    EndlessRun run;
    EXPECT_TRUE(run.leavesSomething());
    const int ended = run.endedBy(signals);
    EXPECT_TRUE(ended == status || (signals.size() > 1 && ended == 130)) << ended;
    while (run.leavesSomething()) std::this_thread::yield();  // it ends soon; else never
  }
}

#endif
