// What the media library answers comes from the files themselves: lines "stream field=answer" with
// streams g (general), v (picture), a (sound) and o (other).
#include "run/media_fields.h"

#include <cmath>
#include <map>
#include <sstream>

#include "fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::map<char, std::map<std::string, std::string>> answers;
  std::istringstream text{std::string(fuzz::textOf(data, size))};
  for (std::string line; std::getline(text, line);) {
    const std::size_t equals = line.find('=');
    if (line.size() > 2 && equals != std::string::npos && equals > 2)
      answers[line[0]][line.substr(2, equals - 2)] = line.substr(equals + 1);
  }
  using run::StreamFields;
  run::FileFields file{StreamFields(answers['g']), {}, {}, {}};
  if (answers.contains('v')) file.pictures.emplace_back(answers['v']);
  if (answers.contains('a')) file.sounds.emplace_back(answers['a']);
  if (answers.contains('o')) file.others.emplace_back(answers['o']);
  const run::MediaProperties media = run::propertiesOf(file);
  for (const project::Sound& sound : media.facts.sounds)
    fuzz::require(std::isfinite(sound.startSeconds), "a sound begins somewhere");
  if (media.facts.timecode)
    fuzz::require(std::isfinite(media.facts.timecode->seconds()), "a timecode is a moment");
  return 0;
}
