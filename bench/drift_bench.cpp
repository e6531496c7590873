// What is left of drifting clocks in the documents of long takes: a recorder that runs all the time
// and a second camera, each 50 millionths beside the camera that is the clock, heard and placed by
// a real run, first with --drift off, then with --drift pieces. Pictures are told from the document
// against the truth; sound is compared, where the document has it, with the event itself. The first
// camera counts as it stands without frames.
//   drift_bench [MINUTES...]    of the recorder; 60 and 90 without
#include <cstdio>
#include <cstdlib>

#include "analysis/sound.h"
#include "tests/run/drifting.h"
#include "tests/run/event.h"

namespace {

constexpr double kPpm = 50, kMillionth = 1e-6;
constexpr double kLead = 20;  // seconds that the recorder is on before and after the first camera

struct Device {
  std::string name;
  double on, off, ppm;
  double momentOf(double event) const { return (event - on) * (1 + ppm * kMillionth); }
};

void makeClip(const Event& event, const std::string& name, const std::vector<std::int16_t>& sound) {
  event.made(name, {"-i", event.sound("sound.wav", sound), "-f", "lavfi", "-i",
                    "color=s=64x48:r=25", "-shortest", "-c:v", "mpeg4", "-c:a", "pcm_s16le"});
}

/// How much later than `wanted` samples of the event the file has its moment `seconds`, in seconds.
double lagOf(const std::string& file, double seconds, const std::vector<std::int16_t>& event,
             double eventSeconds) {
  constexpr int kReach = 4000, kLength = 16000;  // samples: half a second, two seconds
  const auto piece = analysis::readPiece(file, std::llround(seconds * 8000), kLength);
  const std::int64_t first = std::llround(eventSeconds * 8000);
  std::vector<double> sums;
  for (int lag = -kReach; lag <= kReach; ++lag) {
    double sum = 0;
    for (int i = 0; i < kLength; ++i) sum += piece[i] * event[first + lag + i];
    sums.push_back(sum);
  }
  const auto best = std::max_element(sums.begin() + 1, sums.end() - 1);
  const double before = best[-1], top = best[0], after = best[1];
  const double between = (before - after) / (2 * (before - 2 * top + after));
  return -(double(best - sums.begin()) - kReach + between) / 8000;
}

void show(const char* what, double first, double last, double worst) {
  std::printf("  %-28s %9.2f ms at the head %9.2f ms at the end %9.2f ms at the worst\n", what,
              first * 1000, last * 1000, worst * 1000);
}

class Take {
 public:
  explicit Take(double minutes)
      : sound_(eventWithPauses(minutes * 60 + 10)),
        recorder_{"R.wav", 1, minutes * 60 + 1, kPpm},
        clock_{"A.mov", 1 + kLead, minutes * 60 + 1 - kLead, 0},
        camera_{"B.mov", 1 + 3 * kLead, minutes * 60 + 1 - 2 * kLead, -kPpm} {
    event_.sound(recorder_.name, heard(recorder_));
    makeClip(event_, clock_.name, heard(clock_));
    makeClip(event_, camera_.name, heard(camera_));
    event_.options.formats = {"otio"};
  }

  void measure(const char* drift) {
    event_.options.drift = drift;
    event_.run(
        {event_.media(recorder_.name), event_.media(clock_.name), event_.media(camera_.name)});
    std::printf(" --drift %s\n", drift);
    document_ = readWhole(event_.results() / "SYNCED--14-05-09--.otio");
    start_ = piecesOf(document_, "Video", clock_.name).at(0).exact;
    showPictures();
    showSound();
  }

 private:
  std::vector<std::int16_t> heard(const Device& device) const {
    return heardBy(sound_, device.on, device.off, device.ppm);
  }

  /// On the document's timeline, by the first camera's clock.
  double placeOf(double event) const { return start_ + clock_.momentOf(event); }

  void showPictures() const {
    const auto pieces = piecesOf(document_, "Video", camera_.name);
    const auto error = [&](const Piece& piece, double moment) {
      const double event = camera_.on + (piece.in + moment) / (1 + camera_.ppm * kMillionth);
      return piece.at + moment - placeOf(event);
    };
    double worst = 0;
    for (const Piece& piece : pieces)
      worst = std::max({worst, std::abs(error(piece, 0)), std::abs(error(piece, piece.length))});
    std::printf("  %zu pieces\n", pieces.size());
    show("the second camera's picture", error(pieces.front(), 0),
         error(pieces.back(), pieces.back().length), worst);
  }

  void showSound() const {
    const Piece piece = piecesOf(document_, "Audio", recorder_.name).at(0);
    const std::string anew = report::toUtf8(event_.results() / "sound" / recorder_.name);
    const bool isNew = std::filesystem::exists(report::fromUtf8(anew));
    const auto error = [&](double event) {
      const double moment = piece.in + placeOf(event) - piece.at;
      return lagOf(isNew ? anew : event_.media(recorder_.name), moment, sound_, event);
    };
    const double first = error(clock_.on + 1), last = error(clock_.off - 4);
    double worst = 0;
    for (double event = clock_.on + 1; event < clock_.off - 4; event += 61)
      worst = std::max(worst, std::abs(error(event)));
    show(isNew ? "the recorder, written anew" : "the recorder", first, last,
         std::max({worst, std::abs(first), std::abs(last)}));
  }

  Event event_;
  std::vector<std::int16_t> sound_;
  Device recorder_, clock_, camera_;
  std::string document_;
  double start_ = 0;
};

}  // namespace

int main(int count, char** words) {
  std::vector<double> minutes;
  for (int i = 1; i < count; ++i) minutes.push_back(std::atof(words[i]));
  if (minutes.empty()) minutes = {60, 90};
  for (const double length : minutes) {
    std::printf("%g minutes, clocks %g millionths apart\n", length, kPpm);
    Take take(length);
    for (const char* drift : {"off", "pieces"}) take.measure(drift);
  }
}
