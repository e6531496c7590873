// The real program, started on a card that holds more than recordings.
#include "tests/planted.h"

#include <gtest/gtest.h>

#include "report/disk.h"
#include "tests/run/media.h"

namespace fs = std::filesystem;

namespace {

/// In which folder this process is, for as long as this lives.
class WorkingDirectory {
 public:
  explicit WorkingDirectory(const fs::path& folder) : before_(fs::current_path()) {
    fs::current_path(folder);
  }
  ~WorkingDirectory() { fs::current_path(before_); }

 private:
  fs::path before_;
};

/// Has a desktop to show folders on, and the working directory in PATH.
class Tempting {
 public:
#ifdef _WIN32
  Tempting() { _putenv_s("PATH", (".;" + path_).c_str()); }
  ~Tempting() { _putenv_s("PATH", path_.c_str()); }
#else
  Tempting() {
    setenv("PATH", (".::" + path_).c_str(), 1);
    setenv("DISPLAY", ":none", 0);
  }
  ~Tempting() { setenv("PATH", path_.c_str(), 1); }
#endif

 private:
  const std::string path_ = std::getenv("PATH");
};

}  // namespace

TEST(Planted, NothingThatLiesOnACardIsStartedOrLoaded) {
  const Folder card, profile;
  plant(card.path());
  const auto sound = liveSound(40, 30);
  card.write("a.wav", wavText(cut(sound, 0, 30)));
  card.write("b.wav", wavText(cut(sound, 6, 40)));
  const std::string program = report::wholePath(PROGRAM);
  const std::string home = report::toUtf8(profile.path());
  const std::string line = '"' + program + "\" --open --profile \"" + home + "\" a.wav b.wav";
  run::ProcessResult result;
  {
    const Tempting path;
    const WorkingDirectory here(card.path());
    const std::atomic<bool> never = false;
    result = run::SystemProcesses().run(
        {line, {program, "--open", "--profile", home, "a.wav", "b.wav"}}, never);
  }
  EXPECT_TRUE(result.started.ok()) << result.started.error;
  EXPECT_TRUE(fs::exists(profile.path() / "Desktop/SYNCED/READ2SYNC.txt")) << result.messages;
  EXPECT_EQ(whatRan(card.path()), "");
}
