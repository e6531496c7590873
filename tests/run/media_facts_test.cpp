#include <gtest/gtest.h>

#include "run/media_fields.h"
#include "run/media_probe.h"
#include "run/media_timecode.h"
#include "tests/run/media.h"

namespace {

using project::MediaFacts;
using Words = std::vector<std::string>;

const Words kSound{"-f", "lavfi", "-i", "sine=r=48000:d=3"};

Words picture(const std::string& rate, const std::string& filter = "null") {
  return {"-f", "lavfi", "-i", "testsrc2=s=320x180:d=4:r=" + rate + "," + filter};
}

/// Makes `name` of the parts and asks for its facts.
MediaFacts factsOf(const Folder& folder, const std::string& name, const std::vector<Words>& parts) {
  Words words;
  for (const Words& part : parts) words.insert(words.end(), part.begin(), part.end());
  words.push_back(folder.file(name));
  EXPECT_TRUE(ffmpeg(words)) << name;
  run::MediaInfoProbe probe;
  return probe.query(folder.file(name)).facts;
}

const Words kH264{"-c:v", "libx264", "-preset", "ultrafast", "-c:a", "aac"};
const Words kPcm24{"-c:v", "mpeg2video", "-c:a", "pcm_s24le"};

TEST(MediaFacts, TellRatesAndLengthsOfPictureAndSound) {
  const Folder folder;
  const MediaFacts facts = factsOf(folder, "a.mp4", {picture("30000/1001"), kSound, kH264});
  ASSERT_TRUE(facts.picture);
  EXPECT_EQ(facts.picture->rate, (project::Rate{30000, 1001}));
  EXPECT_FALSE(facts.picture->variableRate);
  EXPECT_EQ(facts.picture->width * 1000 + facts.picture->height, 320180);
  EXPECT_NEAR(facts.picture->lengthSeconds, 4.004, 0.002);
  ASSERT_EQ(facts.sounds.size(), 1u);
  EXPECT_NEAR(facts.sounds[0].lengthSeconds, 3, 0.03);
  EXPECT_FALSE(facts.timecode);
}

TEST(MediaFacts, TellHowAPictureIsShown) {
  const Folder folder;
  const std::string moving = "select='lt(mod(n*7919\\,11)\\,5.5)'";
  const MediaFacts phone =
      factsOf(folder, "vfr.mp4", {picture("60", moving), kSound, {"-vsync", "vfr"}, kH264});
  EXPECT_TRUE(phone.picture->variableRate);
  (void)factsOf(folder, "plain.mp4", {picture("25"), kSound, kH264});
  const MediaFacts upright =
      factsOf(folder, "upright.mp4",
              {{"-i", folder.file("plain.mp4"), "-c", "copy", "-metadata:s:v", "rotate=90"}});
  EXPECT_EQ(upright.picture->rotation % 180, 90);
  const MediaFacts tape =
      factsOf(folder, "tape.m2t",
              {picture("25", "scale=1440:1080,setsar=4/3,setfield=tff"),
               kSound,
               {"-flags", "+ilme+ildct", "-top", "1", "-c:v", "mpeg2video", "-f", "mpegts"}});
  EXPECT_NEAR(tape.picture->pixelAspect, 4.0 / 3, 0.01);
  EXPECT_EQ(tape.picture->scan, project::Scan::topFieldFirst);
  EXPECT_FALSE(tape.timecode);  // what stands in the picture's stream is no camera's track
}

TEST(MediaFacts, APictureOfUntoldRateIsAPicture) {
  const Folder folder;
  (void)factsOf(folder, "cam.mts", {picture("25"), kSound, kH264});
  run::MediaInfoProbe probe;
  const run::MediaProperties found = probe.query(folder.file("cam.mts"));
  EXPECT_TRUE(found.facts.picture);
  EXPECT_GE(found.frameRate.size(), 2u);
}

TEST(MediaFacts, TellAllSoundStreams) {
  const Folder folder;
  const Words all{"-map", "0", "-map", "1", "-map", "2"};
  for (const char* name : {"four.mov", "two.mxf"}) {
    const MediaFacts facts = factsOf(folder, name, {picture("25"), kSound, kSound, all, kPcm24});
    ASSERT_EQ(facts.sounds.size(), 2u) << name;
    EXPECT_EQ(facts.sounds[1].channels, 1) << name;
    EXPECT_EQ(facts.sounds[1].bits, 24) << name;
    EXPECT_EQ(facts.sounds[1].rate, 48000) << name;
  }
  const MediaFacts six = factsOf(folder, "51.wav", {kSound, {"-ac", "6", "-c:a", "pcm_s24le"}});
  EXPECT_EQ(six.sounds[0].channels, 6);
  ASSERT_EQ(six.sounds[0].layout.size(), 6u);
  EXPECT_EQ(six.sounds[0].layout[3], "LFE");
}

TEST(MediaFacts, TellTimecodeOfCamerasAndRecorders) {
  const Folder folder;
  struct Case {
    const char *name, *rate, *timecode;
    std::int64_t frames;
    bool drop;
  };
  for (const auto& [name, rate, timecode, frames, drop] :
       {Case{"plain.mov", "25", "10:00:00:05", 900005, false},
        {"drop.mov", "30000/1001", "01:00:00;02", 107894, true},
        {"drop60.mp4", "60000/1001", "01:10:00;00", 251748, true},
        {"film.mov", "24000/1001", "23:59:59:23", 2073599, false},
        {"tape.mxf", "25", "09:59:59:10", 899985, false}}) {
    const bool mxf = std::string_view(name).ends_with("mxf");
    const MediaFacts facts = factsOf(
        folder, name, {picture(rate), kSound, {"-timecode", timecode}, mxf ? kPcm24 : kH264});
    ASSERT_TRUE(facts.timecode) << name;
    EXPECT_EQ(facts.timecode->units, frames) << name;
    EXPECT_EQ(facts.timecode->dropFrame, drop) << name;
    EXPECT_EQ(facts.timecode->rate, facts.picture->rate) << name;
    EXPECT_LT(std::abs(facts.sounds[0].startSeconds), 0.05) << name;
  }
  const MediaFacts wave = factsOf(
      folder, "bwf.wav",
      {kSound,
       {"-c:a", "pcm_s24le", "-metadata", "time_reference=1728000123", "-write_bext", "1"}});
  ASSERT_TRUE(wave.timecode);
  EXPECT_EQ(wave.timecode->units, 1728000123);
  EXPECT_EQ(wave.timecode->rate, (project::Rate{48000, 1}));
}

TEST(MediaFacts, WhatIsNoTimecodeIsNone) {
  for (const char* text : {"", "10", "10:00:00", "10:60:00:00", "10:00:00:25", "aa:bb:cc:dd"})
    EXPECT_FALSE(run::parsedTimecode(text, {25, 1}, false)) << text;
  EXPECT_FALSE(run::parsedTimecode("10:00:00:00", {}, false));
  EXPECT_FALSE(run::parsedTimecode("9000000000000000000:00:00:00", {25, 1}, false));
}

TEST(MediaFacts, NumbersThatNoHeaderMeansCountAsUntold) {
  for (const char* number : {"4799222229", "1e300", "-7", "inf", "nan"}) {
    const run::StreamFields stream({{"Width", number},
                                    {"FrameRate_Num", number},
                                    {"FrameRate_Den", "0"},
                                    {"FrameRate", number},
                                    {"Channel(s)", number},
                                    {"SamplingRate", number},
                                    {"Delay_Source", "Container (bext)"},
                                    {"Delay", "1000"}});
    const MediaFacts facts = run::propertiesOf({{}, {stream}, {stream}, {}}).facts;
    EXPECT_EQ(facts.picture->width, 0) << number;
    EXPECT_FALSE(facts.picture->rate.known()) << number;
    EXPECT_EQ(facts.sounds.at(0).channels, 0) << number;
    EXPECT_EQ(facts.sounds.at(0).rate, 0) << number;
    EXPECT_FALSE(facts.timecode) << number;
  }
}

}  // namespace
