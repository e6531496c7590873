#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <random>

#include "align/fft.h"
#include "align/resemblance.h"
#include "tests/align/shoot.h"

namespace align {
namespace {

TEST(Fft, TransformsFourSignalsAsTheSumsSay) {
  constexpr Eigen::Index kCount = 96;
  std::mt19937 random(5);
  std::normal_distribution<float> normal;
  const Signals signals = Signals::NullaryExpr(4, kCount, [&] { return normal(random); });
  const Spectra spectra = forward(signals);
  ASSERT_EQ(spectra.re.cols(), kCount / 2 + 1);
  for (Eigen::Index row = 0; row < 4; ++row)
    for (Eigen::Index k = 0; k <= kCount / 2; ++k) {
      std::complex<double> sum;
      for (Eigen::Index n = 0; n < kCount; ++n)
        sum += std::polar(double(signals(row, n)),
                          -2 * std::numbers::pi * double(k * n) / double(kCount));
      EXPECT_NEAR(spectra.re(row, k), sum.real(), 1e-4);
      EXPECT_NEAR(spectra.im(row, k), sum.imag(), 1e-4);
    }
  EXPECT_LT((inverse(spectra) - signals).abs().maxCoeff(), 1e-5f);
}

// The transform over all lags against plain sums of products.
TEST(Envelope, ResemblancesAreTheSumsOfProducts) {
  const Envelope a = envelopeOf(recorded(1, 0, 40)), b = envelopeOf(recorded(1, 12, 20, 0, 0.3));
  double power = 0, best = 0, count = 0;
  Eigen::Index bestLag = 0;
  for (Eigen::Index lag = -b.cols(); lag < a.cols(); ++lag) {
    const Eigen::Index from = std::max<Eigen::Index>(0, lag),
                       to = std::min(a.cols(), lag + b.cols());
    if (double(to - from) < 4 * kEnvelopeRate) continue;
    const double sum = (a.middleCols(from, to - from).cast<double>() *
                        b.middleCols(from - lag, to - from).cast<double>())
                           .sum() /
                       std::sqrt(double(to - from));
    power += sum * sum, ++count;
    if (sum > best) best = sum, bestLag = lag;
  }
  const auto found = resemblances(a, b, 3, 4);
  ASSERT_FALSE(found.empty());
  EXPECT_NEAR(found[0].offsetSeconds, double(bestLag) / kEnvelopeRate, 1e-6);
  EXPECT_NEAR(found[0].strength, best / std::sqrt(power / count), 0.01 * found[0].strength);
  EXPECT_NEAR(found[0].offsetSeconds, 12, 0.05);
}

TEST(Envelope, AnOffsetsResemblanceTellsTheRightOneFromOthers) {
  const Envelope a = envelopeOf(recorded(1, 0, 40)), b = envelopeOf(recorded(1, 12, 20, 0, 0.3));
  EXPECT_GT(resemblanceAt(a, b, 12.06).value(), 4);
  EXPECT_LT(resemblanceAt(a, b, 9.5).value(), 3);
  EXPECT_FALSE(resemblanceAt(a, b, 39).has_value());
  EXPECT_TRUE(resemblances(envelopeOf({}), a, 3, 4).empty());
}

}  // namespace
}  // namespace align
