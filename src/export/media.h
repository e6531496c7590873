#pragma once

#include <string>
#include <vector>

#include "export/frame_rate.h"
#include "export/project.h"

namespace timeline {

// What the documents ask of a media file, with what stands in for facts that it does not tell.

bool hasPicture(const Media& media);
bool hasSound(const Media& media);

/// From the file's start to the end of its longer part.
double lengthSeconds(const Media& media);

/// Its own rate, snapped to the usual ones; that of the sequence if it is unknown.
FrameRate pictureRate(const Media& media, FrameRate sequenceRate);

struct PictureSize {
  int width = 0, height = 0;  // 0: unknown
  bool operator==(const PictureSize&) const = default;
};
/// As the picture is shown, upright and with square pixels; even numbers.
PictureSize shownSize(const project::Picture& picture);
PictureSize shownSize(const Media& media);

/// One channel of the sound; streams and channels count from 0 in the order of the file.
struct Channel {
  int stream, channel;
  std::string name;  // "L", "LFE"; empty: not told
};
/// All channels of all streams: two where the file does not tell; none without sound.
std::vector<Channel> channelsOf(const Media& media);
int soundChannels(const Media& media);

int soundStreams(const Media& media);  // one where the file does not tell; 0 without sound

/// Whether a channel is meant to sound: all are, unless a later stream than the first was listened
/// to; then that one alone, for the first was silent.
bool isHeard(const Media& media, const Channel& channel);

int soundRate(const Media& media);  // Hz, of the first stream; 48000 where it is not told
int soundBits(const Media& media);  // 16 where it is not told

/// The whole file's stream that is its sound stream of that number; where the file does not tell,
/// streams count as cameras write them, the picture first.
int indexOfSound(const Media& media, int stream);

/// The moment of the file's start by its own clock, in units of the timecode's rate; without a
/// timecode 0 at `otherwise`.
project::Timecode timecodeOf(const Media& media, FrameRate otherwise);
FrameRate rateOf(const project::Timecode& timecode);

/// "10:00:00:05", with drop-frame numbering "01:00:00;02"; samples as frames of `display`.
std::string timecodeText(const project::Timecode& timecode, FrameRate display);

}  // namespace timeline
