#include "align/direct.h"

#include <algorithm>
#include <cmath>

namespace align {
namespace {

constexpr int kReach = 280;      // 35 ms; later echoes are heard as such and are weaker
constexpr int kSide = 8;         // 1 ms: the peak's own width
constexpr float kRival = 0.45f;  // of the highest peak; less is an ordinary reflection
constexpr float kSure = 0.3f;    // an explanation so much better than the next leaves no doubt
constexpr float kOwn = 0.3f;     // what a peak's own height says: little, for echoes may be louder
constexpr float kNoEcho = 0.06f, kEcho = 0.16f;  // of a recording's own echoes: none; certainly one

// Adds the lags around `centre` (from the middle of `lags`).
void stack(std::vector<float>& sum, const std::vector<float>& lags, long centre) {
  const std::ptrdiff_t first =
      static_cast<std::ptrdiff_t>(lags.size() / 2) - std::ssize(sum) / 2 + centre;
  for (std::ptrdiff_t i = 0; i < std::ssize(sum); ++i)
    if (first + i >= 0 && first + i < std::ssize(lags))
      sum[std::size_t(i)] += lags[std::size_t(first + i)];
}

// Nothing yet; the middle element is the line.
std::vector<float> emptyStack() { return std::vector<float>(2 * kReach + 7, 0.0f); }

// Sum of the supporting windows' correlations along the line.
std::vector<float> stackedAlong(std::span<const WindowCorrelation> windows, const DelayLine& line) {
  std::vector<float> sum = emptyStack();
  for (std::size_t w = 0; w < windows.size(); ++w)
    if (line.heights[w] >= kSupport) stack(sum, windows[w].lags, std::lround(line.delays[w]));
  return sum;
}

// How well the other peaks are echoes of one at `lag`.
float explained(std::span<const ResponsePeak> peaks, const ResponsePeak& direct,
                std::span<const float> echoesOfA, std::span<const float> echoesOfB) {
  float sum = kOwn * direct.height;
  for (const ResponsePeak& peak : peaks) {
    const int later = peak.lag - direct.lag;
    const auto echoes = later > 0 ? echoesOfA : echoesOfB;
    const auto at = static_cast<std::size_t>(std::abs(later));
    if (later != 0 && at < echoes.size())
      sum += peak.height * std::clamp((echoes[at] - kNoEcho) / (kEcho - kNoEcho), 0.0f, 1.0f);
  }
  return sum;
}

}  // namespace

std::vector<ResponsePeak> responsePeaks(std::span<const WindowCorrelation> windows,
                                        const DelayLine& line) {
  const std::vector<float> response = stackedAlong(windows, line);
  const auto middle = static_cast<int>(response.size() / 2);
  const float top = std::ranges::max(std::span(response).subspan(std::size_t(middle) - 2, 5));
  std::vector<ResponsePeak> peaks{{0, 1.0f}};
  for (int lag = -kReach; lag <= kReach && top > 0; ++lag) {
    const auto at = static_cast<std::size_t>(middle + lag);
    const float height = response[at] / top;
    const bool highest = response[at] >= std::ranges::max(std::span(response).subspan(at - 3, 7));
    if (std::abs(lag) >= kSide && height > kRival && highest) peaks.push_back({lag, height});
  }
  return peaks;
}

std::vector<float> selfEchoes(std::span<const std::vector<float>> lags) {
  std::vector<float> response = emptyStack();
  for (const auto& piece : lags) stack(response, piece, 0);
  const std::size_t middle = response.size() / 2;
  std::vector<float> echoes(kReach + 1, 0.0f);
  for (std::size_t lag = kSide; lag < echoes.size() && response[middle] > 0; ++lag) {
    const float around = std::ranges::max(std::span(response).subspan(middle + lag - 2, 5));
    echoes[lag] = std::clamp(2 * around / response[middle], 0.0f, 1.0f);
  }
  return echoes;
}

DirectSound directSound(std::span<const ResponsePeak> peaks, std::span<const float> echoesOfA,
                        std::span<const float> echoesOfB) {
  DirectSound best;
  float most = 0, next = 0;
  int rival = 0;
  for (const ResponsePeak& peak : peaks) {
    const float sum = explained(peaks, peak, echoesOfA, echoesOfB);
    if (sum > most) {
      next = most, rival = best.shiftSamples;
      most = sum, best.shiftSamples = peak.lag;
    } else if (sum > next) {
      next = sum, rival = peak.lag;
    }
  }
  if (peaks.size() < 2) return best;
  best.doubtSamples =
      std::abs(rival - best.shiftSamples) * std::clamp(1 - (most - next) / kSure, 0.0f, 1.0f);
  return best;
}

}  // namespace align
