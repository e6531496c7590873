#include "app/listen/player.h"

#include <algorithm>
#include <cmath>

namespace app {
namespace {

std::function<std::unique_ptr<AudioOutput>()>& outputMaker() {
  static std::function<std::unique_ptr<AudioOutput>()> make = systemAudio;
  return make;
}

std::int64_t frameOf(double seconds) { return std::llround(seconds * kHeardRate); }

void toggleIn(std::vector<int>& list, int value) {
  if (std::erase(list, value) == 0) list.push_back(value);
}

}  // namespace

Player::Player(QObject* parent) : QObject(parent) {
  timer_.setInterval(16);  // the playhead follows at the pace of screens
  connect(&timer_, &QTimer::timeout, this, &Player::follow);
}

Player::~Player() {
  if (output_) output_->stop();
}

void Player::setOutput(std::function<std::unique_ptr<AudioOutput>()> make) {
  outputMaker() = std::move(make);
}

void Player::setTimeline(TimelineModel* timeline) {
  if (timeline == timeline_) return;
  stop();
  if (timeline_) timeline_->disconnect(this);
  timeline_ = timeline;
  choice_ = {};
  loopBegin_ = loopEnd_ = 0;
  if (timeline) {
    connect(timeline, &QAbstractItemModel::dataChanged, this, &Player::refresh);
    connect(timeline, &QAbstractItemModel::modelReset, this, &Player::refresh);
  }
  setPosition(0);
  refresh();
  Q_EMIT timelineChanged();
  Q_EMIT choiceChanged();
}

void Player::setPosition(double seconds) {
  const double end = timeline_ ? timeline_->lengthSeconds() : 0;
  position_ = std::clamp(seconds, 0.0, std::max(0.0, end));
  if (playing_) start();
  Q_EMIT positionChanged();
}

void Player::toggle() {
  if (playing_) return stop();
  if (!timeline_ || timeline_->rowCount() == 0) return;
  if (position_ >= timeline_->lengthSeconds() - 0.01) setPosition(0);
  start();
}

void Player::start() {
  if (!output_) output_ = outputMaker()();
  output_->stop();
  refresh();
  startFrame_ = frameOf(position_);
  const auto fill = [this, start = startFrame_, played = std::int64_t(0),
                     sounds = std::make_shared<SoundStore>()](std::span<float> stereo) mutable {
    std::shared_ptr<const Programme> programme;
    {
      const std::lock_guard lock(mutex_);
      programme = programme_;
    }
    play(*programme, *sounds, start, played, stereo);
    played += static_cast<std::int64_t>(stereo.size() / 2);
  };
  const bool wasPlaying = playing_;
  playing_ = output_->start(fill);
  setProblem(playing_ ? QString() : tr("There is no sound device to play on."));
  playing_ ? timer_.start() : timer_.stop();
  if (playing_ != wasPlaying) Q_EMIT playingChanged();
}

void Player::stop() {
  if (!playing_) return;
  follow();
  output_->stop();
  timer_.stop();
  playing_ = false;
  Q_EMIT playingChanged();
}

void Player::follow() {
  if (!playing_) return;
  const Loop loop{frameOf(loopBegin_), frameOf(loopEnd_)};
  position_ = double(frameAfter(startFrame_, output_->framesHeard(), loop)) / kHeardRate;
  const bool atEnd = !timeline_ || position_ >= timeline_->lengthSeconds();
  if (atEnd) {
    position_ = timeline_ ? timeline_->lengthSeconds() : 0;
    output_->stop();
    timer_.stop();
    playing_ = false;
    Q_EMIT playingChanged();
  }
  Q_EMIT positionChanged();
}

void Player::toggleSolo(int lane) {
  toggleIn(choice_.solo, lane);
  refresh();
  Q_EMIT choiceChanged();
}

void Player::toggleMute(int lane) {
  toggleIn(choice_.muted, lane);
  refresh();
  Q_EMIT choiceChanged();
}

void Player::setPair(int left, int right) {
  choice_.leftRow = right >= 0 ? left : -1;
  choice_.rightRow = left >= 0 ? right : -1;
  refresh();
  Q_EMIT choiceChanged();
}

void Player::setLoop(double begin, double end) {
  loopBegin_ = begin;
  loopEnd_ = std::max(begin, end);
  if (loopEnd_ > loopBegin_ && (position_ < loopBegin_ || position_ >= loopEnd_)) {
    position_ = loopBegin_;
    Q_EMIT positionChanged();
  }
  if (playing_) start();
  refresh();
  Q_EMIT choiceChanged();
}

void Player::refresh() {
  auto programme = std::make_shared<Programme>();
  if (timeline_) programme->clips = timeline_->heardClips();
  programme->voices = voicesOf(programme->clips, choice_);
  programme->loop = {frameOf(loopBegin_), frameOf(loopEnd_)};
  const std::lock_guard lock(mutex_);
  programme_ = std::move(programme);
}

void Player::setProblem(const QString& problem) {
  if (problem == problem_) return;
  problem_ = problem;
  Q_EMIT problemChanged();
}

}  // namespace app
