#include "app/timeline_canvas.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QtMath>
#include <algorithm>
#include <cmath>
#include <vector>

namespace app {
namespace {

constexpr double kNarrowest = 3;     // pixels of a clip, so that it can be seen and hit
constexpr double kLabelHeight = 20;  // above the waveform
constexpr double kRadius = 5;
constexpr double kSign = 9;
constexpr int kKeptRate = 8000;   // Hz, of the kept sounds
constexpr double kFrameRoom = 8;  // pixels between two frames from which the grid shows
constexpr double kPeaksUpTo = 1.5 * Waveform::kPeaksPerSecond;  // pixels a second

/// The sign of a state within `box`, in the painter's pen: told apart also without colours.
void paintSign(QPainter& painter, project::State state, const QRectF& box) {
  const QPointF c = box.center();
  const double r = box.width() / 2;
  switch (state) {
    case project::State::sure:
      painter.drawPolyline(
          QPolygonF{c + QPointF(-r, 0), c + QPointF(-r / 3, r * 0.7), c + QPointF(r, -r * 0.8)});
      break;
    case project::State::lookHere:
      painter.drawText(box.adjusted(-4, -4, 4, 4), Qt::AlignCenter, "?");
      break;
    case project::State::byHand:
      painter.drawPolygon(
          QPolygonF{c + QPointF(0, -r), c + QPointF(r, 0), c + QPointF(0, r), c + QPointF(-r, 0)});
      break;
    case project::State::byClock:
      painter.drawEllipse(c, r, r);
      painter.drawPolyline(QPolygonF{c + QPointF(0, -r * 0.7), c, c + QPointF(r * 0.6, 0)});
      break;
    case project::State::excluded:
      painter.drawEllipse(c, r, r);
      painter.drawLine(c + QPointF(-r * 0.7, r * 0.7), c + QPointF(r * 0.7, -r * 0.7));
      break;
    default:
      break;  // the others stand on no timeline
  }
}

/// A pin's head and needle.
void paintPin(QPainter& painter, const QRectF& box) {
  const QPointF c = box.center();
  painter.drawEllipse(c - QPointF(0, 2), 2.5, 2.5);
  painter.drawLine(c + QPointF(0, 0.5), c + QPointF(0, 5));
}

QString stateColourName(project::State state) {
  switch (state) {
    case project::State::sure:
      return "good";
    case project::State::lookHere:
      return "warning";
    case project::State::byHand:
      return "byHand";
    case project::State::byClock:
      return "byClock";
    default:
      return "dim";
  }
}

/// Where several samples share a pixel: from the lowest to the highest of them.
void paintColumns(QPainter& painter, const QRectF& seen, const std::vector<float>& samples,
                  double scale, const QColor& colour) {
  const double perPixel = double(samples.size() - 1) / seen.width();
  const double middle = seen.center().y();
  for (double x = 0; x < seen.width(); ++x) {
    const auto from = samples.begin() + static_cast<std::ptrdiff_t>(x * perPixel);
    const auto to = samples.begin() + static_cast<std::ptrdiff_t>((x + 1) * perPixel) + 1;
    const auto [low, high] = std::minmax_element(from, std::min(to, samples.end()));
    const double top = middle - scale * *high, bottom = middle - scale * *low;
    painter.fillRect(QRectF(seen.left() + x, top, 1, std::max(1.0, bottom - top)), colour);
  }
}

QColor faded(QColor colour, double alpha) {
  colour.setAlphaF(static_cast<float>(colour.alphaF() * alpha));
  return colour;
}

}  // namespace

TimelineCanvas::TimelineCanvas(QQuickItem* parent) : QQuickPaintedItem(parent) {
  connect(this, &TimelineCanvas::changed, this, [this] { update(); });
}

void TimelineCanvas::setTimeline(TimelineModel* timeline) {
  if (timeline == timeline_) return;
  if (timeline_) timeline_->disconnect(this);
  timeline_ = timeline;
  if (timeline) {
    const auto redraw = [this] { update(); };
    connect(timeline, &TimelineModel::changed, this, redraw);
    connect(timeline, &QAbstractItemModel::dataChanged, this, redraw);
  }
  Q_EMIT changed();
}

QRectF TimelineCanvas::boxOf(const TimelineClip& clip) const {
  const double start = clip.start + (selected(clip) ? dragSeconds_ : 0);
  return {xOf(start), clip.lane * laneHeight_ - laneOffset_ + 2,
          std::max(kNarrowest, clip.length * pixelsPerSecond_), laneHeight_ - 8};
}

int TimelineCanvas::recordingAt(double x, double y) const {
  if (!timeline_) return 0;
  int found = 0;
  for (const TimelineClip& clip : timeline_->clips())
    if (boxOf(clip).contains(x, y)) found = clip.recording;  // the last one is drawn on top
  return found;
}

QColor TimelineCanvas::laneColour(int lane) const {
  return laneColours_.isEmpty() ? QColor(Qt::gray) : laneColours_[lane % laneColours_.size()];
}

/// Looked up once for all clips.
void TimelineCanvas::takeColours() {
  laneColours_.clear();
  for (const QVariant& lane : look_.value("lanes").toList()) laneColours_ << lane.value<QColor>();
  colours_.clear();
  for (auto it = look_.cbegin(); it != look_.cend(); ++it)
    if (const auto colour = it->value<QColor>(); colour.isValid())
      colours_.insert(it.key(), colour);
}

void TimelineCanvas::paint(QPainter* painter) {
  if (!timeline_ || pixelsPerSecond_ <= 0) return;
  takeColours();
  painter->setRenderHint(QPainter::Antialiasing);
  paintLanes(*painter);
  for (int row = 0; row < timeline_->rowCount(); ++row) paintClip(*painter, row);
  paintFrames(*painter);
}

void TimelineCanvas::paintLanes(QPainter& painter) const {
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour("laneSurface"));
  for (int lane = 0; lane < timeline_->lanes().size(); ++lane)
    painter.drawRoundedRect(QRectF(0, lane * laneHeight_ - laneOffset_, width(), laneHeight_ - 4),
                            6, 6);
}

void TimelineCanvas::paintFrames(QPainter& painter) const {
  if (framesPerSecond_ <= 0 || pixelsPerSecond_ / framesPerSecond_ < kFrameRoom) return;
  painter.setPen(QPen(colour("grid"), 1));
  const auto first = static_cast<qint64>(std::ceil(startSeconds_ * framesPerSecond_));
  for (qint64 frame = first;; ++frame) {
    const double x = std::round(xOf(double(frame) / framesPerSecond_)) + 0.5;
    if (x > width()) break;
    painter.drawLine(QPointF(x, 0), QPointF(x, height()));
  }
}

/// Ends far outside the view are cut off; clips of a few pixels are drawn without round corners,
/// which nobody would see and a thousand of them would wait for.
void TimelineCanvas::paintBox(QPainter& painter, const QRectF& box) const {
  constexpr double kOutside = 40;  // pixels
  const QRectF shown =
      box.intersected(QRectF(-kOutside, box.top(), width() + 2 * kOutside, box.height()));
  if (box.width() > 2 * kRadius) {
    painter.drawRoundedRect(shown.adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    return;
  }
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.drawRect(shown.toRect().adjusted(0, 0, -1, -1));
}

void TimelineCanvas::paintClip(QPainter& painter, int row) {
  const TimelineClip& clip = timeline_->clips()[static_cast<std::size_t>(row)];
  const QRectF box = boxOf(clip);
  const QRectF seen = box.intersected(QRectF(0, 0, width(), height()));
  if (seen.isEmpty()) return;
  const bool silent = silentLanes_.contains(clip.lane);
  const QColor tone =
      clip.state == project::State::excluded ? colour("dim") : laneColour(clip.lane);
  const bool current = clip.recording == current_, chosen = selected(clip);
  painter.save();
  painter.setOpacity(clip.state == project::State::excluded ? 0.5 : silent ? 0.55 : 1);
  painter.setBrush(faded(tone, chosen ? 0.34 : 0.16));
  QPen border(current ? colour("focus") : faded(tone, chosen ? 1 : 0.55), current ? 2 : 1);
  if (clip.state == project::State::byClock || clip.state == project::State::excluded)
    border.setStyle(Qt::DashLine);
  painter.setPen(border);
  paintBox(painter, box);
  const QRectF wave = seen.adjusted(1, kLabelHeight, -1, -4);
  paintSound(painter, row, wave, faded(tone, 0.85));
  if (const int partner = partnerOf(row); partner >= 0)
    paintSound(painter, partner, wave,
               faded(laneColour(timeline_->clips()[static_cast<std::size_t>(partner)].lane), 0.7));
  paintLabel(painter, clip, seen);
  painter.restore();
}

/// Of a selected pair, the other one, if both stand at the same time; -1 otherwise.
int TimelineCanvas::partnerOf(int row) const {
  if (selection_.size() != 2) return -1;
  const int recording = timeline_->recordingAt(row);
  const auto at = selection_.indexOf(recording);
  if (at < 0) return -1;
  const int partner = timeline_->rowOf(selection_[1 - at]);
  if (partner < 0) return -1;
  const QList<double> both = timeline_->overlap(row, partner);
  return both[1] > both[0] ? partner : -1;
}

void TimelineCanvas::paintLabel(QPainter& painter, const TimelineClip& clip,
                                const QRectF& seen) const {
  constexpr double kRoom = 44;  // pixels below which no name can be read
  if (seen.width() < kRoom || seen.height() < kLabelHeight) return;
  QFont font(look_.value("family").toString());
  font.setPixelSize(12);
  font.setWeight(QFont::Medium);
  painter.setFont(font);
  const QFontMetricsF metrics(font);
  const QRectF line(seen.left() + 8, seen.top() + 3, seen.width() - 16, kLabelHeight - 2);
  QRectF sign(line.right() - kSign, line.center().y() - kSign / 2, kSign, kSign);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(colour(stateColourName(clip.state)), 1.6));
  paintSign(painter, clip.state, sign);
  if (clip.pinned) paintPin(painter, sign.translated(-kSign - 6, 0));
  painter.setPen(colour("text"));
  const double signs = kSign + 8 + (clip.pinned ? kSign + 6 : 0);
  painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                   metrics.elidedText(clip.name, Qt::ElideMiddle, line.width() - signs));
}

void TimelineCanvas::paintSound(QPainter& painter, int row, const QRectF& seen,
                                const QColor& colour) {
  if (seen.width() < 2 || seen.height() < 4 || timeline_->waveform(row).peaks.isEmpty()) return;
  if (pixelsPerSecond_ <= kPeaksUpTo)
    paintPeaks(painter, row, seen, colour);
  else
    paintSamples(painter, row, seen, colour);
}

void TimelineCanvas::paintPeaks(QPainter& painter, int row, const QRectF& seen,
                                const QColor& colour) const {
  const TimelineClip& clip = timeline_->clips()[static_cast<std::size_t>(row)];
  const Waveform& waveform = timeline_->waveform(row);
  const double begin = clip.start + clip.soundStart + (selected(clip) ? dragSeconds_ : 0);
  const double middle = seen.center().y(), most = seen.height() / 2;
  const bool smooth = painter.testRenderHint(QPainter::Antialiasing);
  painter.setRenderHint(QPainter::Antialiasing, false);  // whole columns of pixels
  for (int x = qCeil(seen.left()); x < seen.right(); ++x) {
    const double from = startSeconds_ + x / pixelsPerSecond_ - begin;
    const double to = from + 1 / pixelsPerSecond_;
    if (to < 0 || from * Waveform::kPeaksPerSecond >= double(waveform.peaks.size())) continue;
    const int half = qRound(most * waveform.loudestBetween(from, to) / 255);
    painter.fillRect(QRect(x, qRound(middle) - half, 1, std::max(1, 2 * half)), colour);
  }
  painter.setRenderHint(QPainter::Antialiasing, smooth);
}

void TimelineCanvas::paintSamples(QPainter& painter, int row, const QRectF& seen,
                                  const QColor& colour) {
  const TimelineClip& clip = timeline_->clips()[static_cast<std::size_t>(row)];
  const double begin = clip.start + clip.soundStart + (selected(clip) ? dragSeconds_ : 0);
  const auto sampleAt = [&](double x) {
    return (startSeconds_ + x / pixelsPerSecond_ - begin) * kKeptRate;
  };
  const auto first = static_cast<std::int64_t>(std::floor(sampleAt(seen.left())));
  const auto last = static_cast<std::int64_t>(std::ceil(sampleAt(seen.right()))) + 1;
  std::vector<float> samples(static_cast<std::size_t>(last - first + 1));
  sounds_.read(clip.sound, first, samples);
  const double scale = seen.height() / 2 / std::max(1e-4f, timeline_->waveform(row).loudest);
  const double pixels = pixelsPerSecond_ / kKeptRate;  // between two samples
  if (pixels < 1) return paintColumns(painter, seen, samples, scale, colour);
  QPolygonF line;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double x = xOf(begin + double(first + static_cast<std::int64_t>(i)) / kKeptRate);
    line << QPointF(x, seen.center().y() - scale * samples[i]);
  }
  painter.setPen(QPen(colour, pixels > 4 ? 1.5 : 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(line);
  if (pixels < 6) return;
  painter.setBrush(colour);
  painter.setPen(Qt::NoPen);
  for (const QPointF& point : line) painter.drawEllipse(point, 2, 2);
}

}  // namespace app
