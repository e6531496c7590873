#include "project/device_detection.h"

#include <gtest/gtest.h>

namespace {

using project::SourceFile;

bool isSound(const std::string& path) {
  return path.ends_with(".wav") || path.ends_with(".WAV") || path.ends_with(".mp3");
}

/// The devices as text: "name: file file; ...", tracks of one recording joined by "+".
std::string detected(const std::vector<SourceFile>& files) {
  std::string text;
  for (const project::DetectedDevice& device : project::detectDevices(files)) {
    text += (text.empty() ? "" : "; ") + device.name + ":";
    for (const project::DetectedRecording& recording : device.recordings)
      for (std::size_t i = 0; i < recording.size(); ++i) {
        const std::string& path = files[recording[i]].path;
        text += (i > 0 ? "+" : " ") + path.substr(path.find_last_of("/\\") + 1);
      }
  }
  return text;
}

std::string detected(const std::vector<std::string>& paths) {
  std::vector<SourceFile> files;
  for (const std::string& path : paths) files.push_back({path, !isSound(path), "", ""});
  return detected(files);
}

using Paths = std::vector<std::string>;

TEST(Devices, FoldersOfCardsTakeTheNameAbove) {
  for (const std::string card : {"DCIM/100MEDIA", "DCIM/101_PANA", "PRIVATE/M4ROOT/CLIP",
                                 "CONTENTS/CLIPS001", "PRIVATE/AVCHD/BDMV/STREAM", "DCIM"}) {
    EXPECT_EQ(detected(Paths{"/w/Anna/" + card + "/C0002.MP4", "/w/Anna/" + card + "/C0001.MP4"}),
              "Anna: C0001.MP4 C0002.MP4")
        << card;
  }
  EXPECT_EQ(
      detected(Paths{"/w/Anna/DCIM/100MEDIA/P1000999.MP4", "/w/Anna/DCIM/101MEDIA/P1001000.MP4"}),
      "Anna: P1000999.MP4 P1001000.MP4")
      << "a card goes on in its next folder";
  EXPECT_EQ(detected(Paths{"E:\\DCIM\\100MEDIA\\DJI_0001.MP4", "E:\\DCIM\\100MEDIA\\DJI_0002.MP4"}),
            "DJI: DJI_0001.MP4 DJI_0002.MP4")
      << "a drive letter is no name";
}

TEST(Devices, FoldersNamedAsDevicesHoldOneEach) {
  EXPECT_EQ(detected(Paths{"/w/Cam 1/ceremony.mov", "/w/Cam 1/dance.mov", "/w/Cam 2/clip 10.mov",
                           "/w/Cam 2/clip 2.mov", "/w/Zoom/night.wav"}),
            "Cam 1: ceremony.mov dance.mov; Cam 2: clip 2.mov clip 10.mov; Zoom: night.wav");
  EXPECT_EQ(detected(Paths{"/w/Cam 1/a.mov", "/w/Cam 1/b.mov", "/w/Cam 1/sound.wav"}),
            "Cam 1: a.mov b.mov; sound: sound.wav")
      << "pictures and sounds are never of one device";
}

TEST(Devices, OneFolderForAllIsToldApartByNames) {
  EXPECT_EQ(detected(Paths{"/w/cam1.mov", "/w/cam2.mov", "/w/recorder.wav"}),
            "cam1: cam1.mov; cam2: cam2.mov; recorder: recorder.wav")
      << "cameras, not clips of one";
  EXPECT_EQ(
      detected(Paths{"/w/MVI_0001.MOV", "/w/GOPR0007.MP4", "/w/MVI_0002.MOV", "/w/party.mov"}),
      "MVI: MVI_0001.MOV MVI_0002.MOV; GOPR0007: GOPR0007.MP4; party: party.mov");
}

TEST(Devices, ModelsSpeakBeforeNames) {
  EXPECT_EQ(detected(std::vector<SourceFile>{{"/w/C0001.MP4", true, "Sony", "ILCE-7M3"},
                                             {"/w/C0002.MP4", true, "Sony", "ILCE-7M3"},
                                             {"/w/C0003.MP4", true, "Sony", "ILCE-6400"}}),
            "Sony ILCE-7M3: C0001.MP4 C0002.MP4; Sony ILCE-6400: C0003.MP4");
  EXPECT_EQ(detected(std::vector<SourceFile>{{"/w/one.MP4", true, "Canon", "Canon EOS R6"},
                                             {"/w/two.MP4", true, "Canon", "Canon EOS R6"}}),
            "w: one.MP4 two.MP4");
}

TEST(Devices, TracksOfOneMomentAreOneRecording) {
  EXPECT_EQ(detected(Paths{"/w/H6/ZOOM0001_Tr1.WAV", "/w/H6/ZOOM0001_Tr2.WAV",
                           "/w/H6/ZOOM0001_LR.WAV", "/w/H6/ZOOM0002_LR.WAV"}),
            "H6: ZOOM0001_LR.WAV+ZOOM0001_Tr1.WAV+ZOOM0001_Tr2.WAV ZOOM0002_LR.WAV");
  EXPECT_EQ(detected(Paths{"/w/FOLDER01/ZOOM0003/ZOOM0003_Tr10.WAV",
                           "/w/FOLDER01/ZOOM0003/ZOOM0003_Tr9.WAV"}),
            "w: ZOOM0003_Tr9.WAV+ZOOM0003_Tr10.WAV");
  EXPECT_EQ(
      detected(Paths{"/w/TASCAM_0001S34.wav", "/w/TASCAM_0001S12.wav", "/w/TASCAM_0001D06.wav"}),
      "w: TASCAM_0001S12.wav+TASCAM_0001S34.wav+TASCAM_0001D06.wav");
}

TEST(Devices, NamesDiffer) {
  EXPECT_EQ(detected(Paths{"/a/Cam/x.mov", "/b/Cam/x.mov"}), "Cam: x.mov; Cam (2): x.mov");
  EXPECT_EQ(detected(Paths{}), "");
}

TEST(Devices, NumbersCountInOrder) {
  const std::vector<std::string> ordered = {"a", "a1", "A2", "a10", "b01", "b1a"};
  for (std::size_t i = 0; i < ordered.size(); ++i)
    for (std::size_t j = 0; j < ordered.size(); ++j)
      EXPECT_EQ(project::comesBefore(ordered[i], ordered[j]), i < j) << ordered[i] << ordered[j];
}

}  // namespace
