#include <QAudioSink>
#include <QIODevice>
#include <QMediaDevices>
#include <QThread>
#include <vector>

#include "app/listen/audio_output.h"
#include "app/listen/mix.h"

namespace app {
namespace {

constexpr int kBufferFrames =
    kHeardRate / 10;  // 100 ms: short to react, long enough not to stutter

/// An endless file of what `fill` says, as the sink asks for it.
class Source final : public QIODevice {
 public:
  explicit Source(AudioOutput::Fill fill) : fill_(std::move(fill)) {
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
  }
  bool isSequential() const override { return true; }
  qint64 bytesAvailable() const override { return kBufferFrames * kFrameBytes; }

 protected:
  qint64 readData(char* data, qint64 size) override {
    const auto frames = static_cast<std::size_t>(size / kFrameBytes);
    std::vector<float> stereo(2 * frames);
    fill_(stereo);
    auto* out = reinterpret_cast<qint16*>(data);
    for (const float sample : stereo) *out++ = static_cast<qint16>(sample * 32767);
    return static_cast<qint64>(frames) * kFrameBytes;
  }
  qint64 writeData(const char*, qint64) override { return -1; }

 private:
  static constexpr qint64 kFrameBytes = 4;
  AudioOutput::Fill fill_;
};

QAudioFormat heardFormat() {
  QAudioFormat format;
  format.setSampleRate(kHeardRate);
  format.setChannelCount(2);
  format.setSampleFormat(QAudioFormat::Int16);
  return format;
}

/// The sink lives in a thread of its own, so that a window at work does not interrupt the sound.
class QtOutput final : public AudioOutput {
 public:
  QtOutput() { thread_.start(); }
  ~QtOutput() override {
    stop();
    thread_.quit();
    thread_.wait();
  }

  bool start(Fill fill) override {
    const QAudioDevice device = QMediaDevices::defaultAudioOutput();
    if (device.isNull() || !device.isFormatSupported(heardFormat())) return false;
    bool started = false;
    inThread([&] {
      source_ = std::make_unique<Source>(std::move(fill));
      sink_ = std::make_unique<QAudioSink>(device, heardFormat());
      sink_->setBufferSize(kBufferFrames * 4);
      sink_->start(source_.get());
      started = sink_->error() == QAudio::NoError;
    });
    if (!started) stop();
    return started;
  }

  void stop() override {
    inThread([this] {
      if (sink_) sink_->stop();
      sink_.reset();
      source_.reset();
    });
  }

  std::int64_t framesHeard() const override {
    qint64 heard = 0;
    inThread([&] { heard = sink_ ? sink_->processedUSecs() * kHeardRate / 1'000'000 : 0; });
    return heard;
  }

 private:
  void inThread(const std::function<void()>& work) const {
    QMetaObject::invokeMethod(place_.get(), work, Qt::BlockingQueuedConnection);
  }

  QThread thread_;
  std::unique_ptr<QObject> place_ = [this] {
    auto place = std::make_unique<QObject>();
    place->moveToThread(&thread_);
    return place;
  }();
  std::unique_ptr<Source> source_;
  std::unique_ptr<QAudioSink> sink_;
};

}  // namespace

std::unique_ptr<AudioOutput> systemAudio() { return std::make_unique<QtOutput>(); }

}  // namespace app
