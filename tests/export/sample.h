#pragma once

#include "export/project.h"

namespace sample {

/// A small run at `fps`: a camera with two clips, one of a single clip on a Windows drive, a
/// stereo and a mono recorder, a second group, and two files that match nothing.
inline timeline::Project run(double fps, int width, int height) {
  timeline::Project project;
  project.fps = fps;
  project.width = width;
  project.height = height;
  const timeline::Media camera{"", 0, true, fps, width, height, true, 2, 48000, -1};
  const timeline::Media recorder{"", 0, false, 0, 0, 0, true, 2, 44100, -1};
  const auto add = [&](timeline::Media media, const char* path, double seconds, int device = -1) {
    media.path = path;
    media.durationSeconds = seconds;
    media.device = device;
    project.media.push_back(media);
  };
  add(camera, "/shoot/cam 1/a&b.mov", 10.01, 3);
  add(camera, "/shoot/cam 1/second <take>.mov", 4.5, 3);
  add(camera, "C:\\My Clips\\wide.mp4", 20.0);
  add(recorder, "\\\\nas\\sound\\desk.WAV", 30.123);
  add(recorder, "/shoot/lavalier.wav", 12.3456);
  project.media.back().audioChannels = 1;
  add(camera, "/shoot/phone.mp4", 3.0);
  add(recorder, "/shoot/alone.mp3", 2.5);
  add(camera, "/shoot/silent.mov", 1.0);
  project.media.back().hasAudio = false;
  project.groups = {
      {"Group 1",
       {{3, 0, 0.99}, {0, 1.4803, 0.95}, {4, 2.0301, 0.7}, {2, 3.3333, 0.9}, {1, 15.2, 0.4}}},
      {"Group 2", {{4, 0, 0.6}, {5, 7.777, 0.6}}}};
  project.groups[1].clips[0].media = 5;
  project.groups[1].clips[1].media = 2;
  project.unsynced = {6, 7};
  return project;
}

}  // namespace sample
