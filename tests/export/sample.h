#pragma once

#include "export/frame_rate.h"
#include "export/project.h"

namespace sample {

inline timeline::Media recorder(const std::string& path, double seconds, int channels = 2,
                                int rate = 48000, int device = -1) {
  timeline::Media media;
  media.path = path;
  media.soundSeconds = seconds;
  media.facts.sounds = {{channels, rate, 16, {}, seconds, 0}};
  media.device = device;
  return media;
}

inline timeline::Media camera(const std::string& path, double seconds, double fps = 25,
                              int width = 1920, int height = 1080, int channels = 2,
                              int device = -1) {
  timeline::Media media = recorder(path, seconds, channels, 48000, device);
  const timeline::FrameRate rate = timeline::exactRate(fps);
  media.facts.picture = project::Picture{{rate.units, rate.seconds}, false, width, height};
  media.pictureSeconds = seconds;
  return media;
}

/// A small run at `fps`: a camera with two clips, one of a single clip on a Windows drive, a
/// stereo and a mono recorder, a second group, and two files that match nothing. One camera and
/// one recorder have a timecode, one picture has four sound streams and outlasts them.
inline timeline::Project run(double fps, int width, int height) {
  timeline::Project project;
  project.fps = fps;
  project.width = width;
  project.height = height;
  const auto shot = [&](const char* path, double seconds, int device = -1) {
    project.media.push_back(camera(path, seconds, fps, width, height, 2, device));
  };
  shot("/shoot/cam 1/a&b.mov", 10.01, 3);
  shot("/shoot/cam 1/second <take>.mov", 4.5, 3);
  shot("C:\\My Clips\\wide.mp4", 20.0);
  project.media.push_back(recorder("\\\\nas\\sound\\desk.WAV", 30.123, 2, 44100));
  project.media.push_back(recorder("/shoot/lavalier.wav", 12.3456, 1, 44100));
  shot("/shoot/phone.mp4", 3.0);
  project.media.push_back(recorder("/shoot/alone.mp3", 2.5, 2, 44100));
  shot("/shoot/silent.mov", 1.0);
  project.media.back().soundSeconds = 0;
  const project::Rate rate = project.media[0].facts.picture->rate;
  project.media[0].facts.timecode = project::Timecode{rate, 107892, rate.seconds == 1001};
  project.media[1].facts.timecode = project::Timecode{rate, 200000, rate.seconds == 1001};
  project.media[3].facts.timecode = project::Timecode{{44100, 1}, 44100ll * 36000 + 123, false};
  project.media[2].facts.sounds.assign(4, {1, 48000, 24, {}, 18.5, 0});
  project.media[2].soundSeconds = 18.5;
  project.media[2].heardStream = 1;
  project.media[2].deviceName = "Camera W";
  project.groups = {{"Group 1",
                     {{3, 0, 0.99, 0.0004},
                      {0, 1.4803, 0.95},
                      {4, 2.0301, 0.7},
                      {2, 3.3333, 0.9},
                      {1, 15.2, 0.4}}},
                    {"Group 2", {{5, 0, 0.6}, {2, 7.777, 0.6}}}};
  project.unsynced = {6, 7};
  return project;
}

}  // namespace sample
