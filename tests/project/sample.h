#pragma once

#include "project/project.h"

namespace project {

/// A project in which no field has the value that it has by itself.
inline Project fullProject() {
  MediaFile camera{"/media/card/Cam 1/C0001.MP4", 123456789012, 1716040000, {}, {}};
  camera.facts.picture =
      Picture{{30000, 1001}, true, 3840, 2160, 90, 1.5, Scan::bottomFieldFirst, 9};
  camera.facts.sounds = {{2, 48000, 24, {"L", "R"}, 10.25, -0.5}, {1, 44100, 16, {"C"}, 3, 0.25}};
  camera.facts.timecode = Timecode{{30000, 1001}, 107892, true};
  camera.facts.deviceModel = "Example X100";
  camera.facts.recordedAt = 1716041109;
  camera.facts.lengthSeconds = 10.125;
  const MediaFile lost{"/media/card/100% \xff\n\xe2\x82\xac.WAV", 7, 8, {}, {}};
  const Recording first{3, {camera, lost}, 10.2, 0.1, 1, true, {}, {}};
  const Recording second{4, {lost}, 0.3, 0.4, 0, false, Reason{"It is silent.", "Look at it."}, {}};
  Project project;
  project.settings = {
      0.985, 0,        false, 29.97, FrameSize{1280, 720}, {"fcpx", "otio"}, true, true,
      true,  "pieces", true,  {}};
  project.devices = {{1, "Cam \"1\"", DeviceKind::camera, {first}, {}},
                     {2, "Zoom", DeviceKind::recorder, {second}, {}}};
  project.groups = {{5,
                     "Dance",
                     {{3, -0.1, PlacedBy::hand, 0.1, 1e-5, -12.5, 0.02, {4}, true, true, true, {}}},
                     {}},
                    {6,
                     "Talk",
                     {{4, 1.0 / 3, PlacedBy::clock, 1, {}, {}, {}, {3}, false, false, false, {}}},
                     {}}};
  project.evidence = {{3, 4, {{12.5, 7}, {-3, 0.5}}, {}}};
  project.written = {"/home/me/SYNCED", "14:05:09", {"/home/me/SYNCED/a.otio"}, {"So."}, {}};
  return project;
}

}  // namespace project
