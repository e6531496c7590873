#include "cli/progress_line.h"

#include <algorithm>

#include "report/text.h"

namespace cli {
namespace {

constexpr auto kPause = std::chrono::milliseconds(80);  // between two looks of the line
constexpr int kStages = 6;

std::string_view stageName(run::Stage stage) {
  switch (stage) {
    case run::Stage::convert:
      return "Reading sound";
    case run::Stage::probe:
      return "Looking at pictures";
    case run::Stage::fingerprint:
      return "Listening";
    case run::Stage::compare:
      return "Comparing";
    case run::Stage::place:
      return "Placing";
    case run::Stage::write:
      break;
  }
  return "Writing documents";
}

int percent(const Step& step) {
  return step.total > 0 ? std::clamp(100 * step.done / step.total, 0, 100) : 0;
}

/// h:mm:ss
std::string timeText(double seconds) {
  const std::string text = report::clockText(static_cast<long long>(seconds));
  return text.substr(0, text.size() - 4);
}

std::string fileName(const std::string& path) {
  return report::printable(path.substr(path.find_last_of("/\\") + 1));
}

}  // namespace

std::string progressText(const Step& step, int columns) {
  const std::string head = std::to_string(static_cast<int>(step.stage) + 1) + "/" +
                           std::to_string(kStages) + " " + std::string(stageName(step.stage)) +
                           "  " + std::to_string(percent(step)) + " %  " + timeText(step.seconds);
  const int left = columns - report::displayWidth(head) - 2;
  if (step.file.empty() || left < 8) return report::elidedMiddle(head, columns);
  return head + "  " + report::elidedMiddle(fileName(step.file), left);
}

ProgressLine::ProgressLine(std::FILE* stream, std::function<int()> columns)
    : stream_(stream), columns_(std::move(columns)) {}

ProgressLine::~ProgressLine() { clear(); }

bool ProgressLine::isDue(run::Stage stage, bool last) {
  const Clock::time_point now = Clock::now();
  if (visible_ && stage == shownStage_ && !last && now - shown_ < kPause) return false;
  shown_ = now;
  shownStage_ = stage;
  return true;
}

void ProgressLine::stage(run::Stage stage, std::string_view file, int done, int total) {
  const std::lock_guard lock(mutex_);
  const int columns = columns_();
  if (columns <= 1 || !isDue(stage, done == total)) return;
  const double seconds = std::chrono::duration<double>(Clock::now() - start_).count();
  const Step step{stage, std::string(file), done, total, seconds};
  // One column stays free: a full line would wrap on some terminals.
  const std::string text = "\r" + progressText(step, columns - 1) + "\x1b[K";
  std::fwrite(text.data(), 1, text.size(), stream_);
  std::fflush(stream_);
  visible_ = true;
}

void ProgressLine::clear() {
  const std::lock_guard lock(mutex_);
  if (!visible_) return;
  std::fputs("\r\x1b[K", stream_);
  std::fflush(stream_);
  visible_ = false;
}

}  // namespace cli
