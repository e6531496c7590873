#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "media.h"
#include "report/disk.h"
#include "report/profile.h"
#include "run/clock.h"
#include "run/media_probe.h"
#include "run/sync_run.h"
#include "tests/quiet_desktop.h"

/// Stands still, so that documents get the same names in every test.
class StillClock final : public run::Clock {
 public:
  std::string timeOfDay() override { return now; }

  std::string now = "14:05:09";
};

/// A profile folder, a media folder and a working folder of their own, and all that a run needs:
/// real programs and libraries unless a test puts others in.
class Event {
 public:
  Event() : before_(std::filesystem::current_path()) {
    for (const char* folder : {"profile", "media", "work"})
      std::filesystem::create_directories(folder_.path() / folder);
    std::filesystem::current_path(folder_.path() / "work");
    report::useProfileFolder(folder_.file("profile"));
  }
  ~Event() { std::filesystem::current_path(before_); }

  std::string media(const std::string& name) const { return folder_.file("media/" + name); }
  std::string write(const std::string& name, const std::string& content) const {
    return folder_.write("media/" + name, content);
  }
  std::string sound(const std::string& name, const std::vector<std::int16_t>& samples) const {
    return write(name, wavText(samples));
  }
  /// A clip with a test picture and `samples` for sound.
  std::string clip(const std::string& name, const std::vector<std::int16_t>& samples) const {
    const std::string wav = folder_.write("sound.wav", wavText(samples));
    EXPECT_TRUE(ffmpeg({"-i", wav, "-f", "lavfi", "-i", "color=s=64x48:r=25", "-shortest", "-c:v",
                        "mpeg4", "-c:a", "aac", "-ar", "48000", media(name)}));
    return media(name);
  }
  /// The same with other things than a plain sound: what ffmpeg is given before the target's name.
  std::string made(const std::string& name, std::vector<std::string> arguments) const {
    arguments.push_back(media(name));
    EXPECT_TRUE(ffmpeg(arguments));
    return media(name);
  }
  std::filesystem::path results() const { return folder_.path() / "profile/Desktop/SYNCED"; }
  std::filesystem::path work() const { return folder_.path() / "work"; }

  /// Every file below the media folder with its content.
  std::map<std::string, std::string> mediaFiles() const {
    std::map<std::string, std::string> files;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(folder_.path() / "media"))
      if (entry.is_regular_file()) files[report::toUtf8(entry.path())] = readWhole(entry.path());
    return files;
  }

  std::vector<std::string> run(const std::vector<std::string>& list, int mode = 1) {
    const run::Services services{*processes, *probe, clock, desktop, console, progress, cancelled};
    run::SyncRun run(services, options);
    std::vector<std::string> result = run.synco(list, 0.99, 1280, 720, framesPerSecond, mode);
    outcome = run.outcome();
    return result;
  }

  /// Why the file of that name was left out; empty if it was not.
  std::string reasonFor(const std::string& path) const {
    for (const auto* list : {&outcome.ignored, &outcome.unsynced})
      for (const run::LeftOut& file : *list)
        if (file.path == report::wholePath(path)) {
          EXPECT_NE(file.remedy, "") << path;
          return file.reason;
        }
    return {};
  }
  bool noticed(const std::string& words) const {
    return std::ranges::any_of(outcome.notices, [&](const std::string& notice) {
      return notice.find(words) != std::string::npos;
    });
  }

  run::SystemProcesses systemProcesses;
  run::MediaInfoProbe mediaInfo;
  run::ProcessRunner* processes = &systemProcesses;
  run::MediaProbe* probe = &mediaInfo;
  StillClock clock;
  QuietDesktop desktop;
  report::NoConsole console;
  Listener progress;
  std::atomic<bool> cancelled = false;
  run::Options options;
  float framesPerSecond = 25;  // of the sequence
  run::Outcome outcome;

 private:
  Folder folder_;
  std::filesystem::path before_;
};
