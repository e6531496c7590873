#include "run/joined_sound.h"

#include <algorithm>

#include "run/clock_command.h"

namespace run {
namespace {

std::string number(std::int64_t value) { return std::to_string(value); }

std::string cutTo(std::int64_t length) {
  return "aformat=sample_fmts=s32,apad,atrim=end_sample=" + number(length);
}

/// Each channel of the target from the source's of that number.
std::string channelMap(int from, int to) {
  std::string text = "pan=" + number(to) + "c";
  for (int channel = 0; channel < to; ++channel)
    text += "|c" + number(channel) + "=c" + number(std::min(channel, from - 1));
  return text;
}

std::string filters(const SoundPart& part, const JoinedSound& sound, std::size_t input) {
  if (part.source.empty())
    return "anullsrc=r=" + number(sound.rate) + ":cl=" + number(sound.channels) + "c," +
           cutTo(part.length);
  return "[" + number(std::int64_t(input)) + ":a:" + number(part.stream) +
         "]atrim=start_sample=" + number(part.skip) + ",asetpts=PTS-STARTPTS," +
         stretchFilters(double(sound.rate) / (part.rate * part.playRate), sound.rate) +
         channelMap(part.channels, sound.channels) + "," + cutTo(part.length);
}

std::string graph(const JoinedSound& sound) {
  std::string text, labels;
  std::size_t input = 0;
  for (std::size_t i = 0; i < sound.parts.size(); ++i) {
    const std::string label = "[p" + std::to_string(i) + "]";
    text += filters(sound.parts[i], sound, input) + label + ";";
    labels += label;
    if (!sound.parts[i].source.empty()) ++input;
  }
  return text + labels + "concat=n=" + std::to_string(sound.parts.size()) + ":v=0:a=1[out]";
}

}  // namespace

Command joinedSoundCommand(const std::string& programFolder, const JoinedSound& sound) {
  std::vector<ProgramWord> words{{"-v"}, {"error"}};
  for (const SoundPart& part : sound.parts)
    if (!part.source.empty()) words.insert(words.end(), {{"-i"}, {part.source, true}});
  words.insert(words.end(), {{"-filter_complex"},
                             {graph(sound)},
                             {"-map"},
                             {"[out]"},
                             {"-c:a"},
                             {soundCodec(sound.bits)},
                             {"-rf64"},
                             {"auto"},
                             {"-f"},
                             {"wav"},
                             {"-y"},
                             {sound.target, true}});
  return ffmpegCommand(programFolder, words);
}

}  // namespace run
