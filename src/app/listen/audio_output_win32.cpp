#include <windows.h>
// keep this order: it needs the types of the first
#include <mmsystem.h>

#include <array>
#include <atomic>
#include <thread>
#include <vector>

#include "app/listen/audio_output.h"
#include "app/listen/mix.h"

namespace app {
namespace {

constexpr int kBlockFrames = kHeardRate / 50;  // 20 ms
constexpr int kBlocks = 5;                     // 100 ms ahead

struct Block {
  WAVEHDR header = {};
  std::vector<short> samples = std::vector<short>(2 * kBlockFrames);
};

/// The system's wave output, fed by a thread of its own.
class WaveOutput final : public AudioOutput {
 public:
  ~WaveOutput() override { stop(); }

  bool start(Fill fill) override {
    stop();
    WAVEFORMATEX format = {WAVE_FORMAT_PCM, 2, kHeardRate, kHeardRate * 4, 4, 16, 0};
    ready_ = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    if (waveOutOpen(&device_, WAVE_MAPPER, &format, reinterpret_cast<DWORD_PTR>(ready_), 0,
                    CALLBACK_EVENT) != MMSYSERR_NOERROR) {
      device_ = nullptr;
      CloseHandle(ready_);
      return false;
    }
    ended_ = false;
    feeder_ = std::thread([this, fill = std::move(fill)] { feed(fill); });
    return true;
  }

  void stop() override {
    if (!device_) return;
    ended_ = true;
    SetEvent(ready_);
    feeder_.join();
    waveOutReset(device_);
    for (Block& block : blocks_) waveOutUnprepareHeader(device_, &block.header, sizeof(WAVEHDR));
    waveOutClose(device_);
    device_ = nullptr;
    CloseHandle(ready_);
  }

  std::int64_t framesHeard() const override {
    MMTIME time = {};
    time.wType = TIME_SAMPLES;
    if (!device_ || waveOutGetPosition(device_, &time, sizeof time) != MMSYSERR_NOERROR) return 0;
    return time.wType == TIME_SAMPLES ? time.u.sample : time.u.cb / 4;
  }

 private:
  void feed(const Fill& fill) {
    SetThreadPriority(GetCurrentThread(),
                      THREAD_PRIORITY_HIGHEST);  // a run beside it takes all cores
    for (Block& block : blocks_) {
      block.header = {};
      block.header.lpData = reinterpret_cast<char*>(block.samples.data());
      block.header.dwBufferLength = static_cast<DWORD>(block.samples.size() * sizeof(short));
      waveOutPrepareHeader(device_, &block.header, sizeof(WAVEHDR));
      block.header.dwFlags |= WHDR_DONE;
    }
    while (!ended_) {
      for (Block& block : blocks_)
        if (block.header.dwFlags & WHDR_DONE) play(block, fill);
      WaitForSingleObject(ready_, INFINITE);
    }
  }

  void play(Block& block, const Fill& fill) {
    std::array<float, 2 * kBlockFrames> stereo;
    fill(stereo);
    for (std::size_t i = 0; i < stereo.size(); ++i)
      block.samples[i] = static_cast<short>(stereo[i] * 32767);
    block.header.dwFlags &= ~static_cast<DWORD>(WHDR_DONE);
    waveOutWrite(device_, &block.header, sizeof(WAVEHDR));
  }

  HWAVEOUT device_ = nullptr;
  HANDLE ready_ = nullptr;
  std::array<Block, kBlocks> blocks_;
  std::thread feeder_;
  std::atomic<bool> ended_ = true;
};

}  // namespace

std::unique_ptr<AudioOutput> systemAudio() { return std::make_unique<WaveOutput>(); }

}  // namespace app
