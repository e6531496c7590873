#include "analysis/level.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <numbers>
#include <tuple>

#include "analysis/lanes.h"

namespace analysis {
namespace {

constexpr std::int32_t kFraction = 0x007f'ffff, kOne = 0x3f80'0000;  // of a float's bits
constexpr int kFractionBits = 23, kBias = 127;
constexpr int kWidth = 4;  // numbers in a vector register

using Floats = Lanes::Vector;
using Whole [[gnu::vector_size(sizeof(Floats))]] = std::int32_t;

/// Powers multiplied up, by turns into the lanes of a register. Fractions and exponents are kept
/// apart, so that nothing overflows.
struct Product {
  Floats fraction = {1, 1, 1, 1};
  Floats largest = {};
  Whole exponent = {};
  Whole faint = {};  // below 0 where any power was left out

  void multiply(const float* powers, float limit) {
    const Floats values = Lanes::load(powers).v;
    const Whole counts = values >= limit;
    const Whole bits = (std::bit_cast<Whole>(values) & counts) | (~counts & kOne);
    fraction *= std::bit_cast<Floats>((bits & kFraction) | kOne);
    exponent += (bits >> kFractionBits) - kBias;
    largest = largest > values ? largest : values;
    faint |= ~counts;
  }
};

/// Products that do not wait for one another.
using Products = std::array<Product, 4>;
constexpr int kFactors = kBatch * kBins / (kWidth * std::tuple_size_v<Products>);  // in each lane
static_assert(kFactors < std::numeric_limits<float>::max_exponent);
static_assert(kBatch * kBins < std::numeric_limits<double>::max_exponent);
static_assert(kBins % (kWidth * std::tuple_size_v<Products>) == 0);

double logarithm(const Products& products) {
  double fraction = 1, exponent = 0;
  for (const Product& product : products) {
    for (int lane = 0; lane < kWidth; ++lane) {
      fraction *= product.fraction[lane];
      exponent += product.exponent[lane];
    }
  }
  return std::log(fraction) + exponent * std::numbers::ln2;
}

}  // namespace

void LevelMeter::add(const float* powers, int frames) {
  const int count = frames * kBins;
  Products products;
  for (int i = 0; i < count;) {
    for (Product& product : products) {
      product.multiply(powers + i, faint_);
      i += kWidth;
    }
  }
  logSum_ += logarithm(products);
  count_ += static_cast<std::uint64_t>(count);
  bool anyFaint = false;
  for (const Product& product : products) {
    for (int lane = 0; lane < kWidth; ++lane) {
      largest_ = std::max(largest_, product.largest[lane]);
      anyFaint |= product.faint[lane] != 0;
    }
  }
  if (anyFaint) addFaint(powers, count);
}

void LevelMeter::addFaint(const float* powers, int count) {
  for (int i = 0; i < count; ++i) {
    if (powers[i] >= faint_) continue;
    const float power = powers[i] > 0 ? powers[i] : 0;  // what is no number counts as nothing
    ++faintOfSize_[std::bit_cast<std::uint32_t>(power) >> kSizeShift];
  }
}

float LevelMeter::floor() const {
  return std::max(largest_ * 1e-12f, std::numeric_limits<float>::min());
}

float LevelMeter::mean() const {
  if (!(largest_ > 0)) return std::numeric_limits<float>::quiet_NaN();
  double sum = logSum_;
  for (std::uint32_t size = 0; size < kSizes; ++size) {
    if (faintOfSize_[size] == 0) continue;
    const float middle = std::bit_cast<float>((size << kSizeShift) + (1u << (kSizeShift - 1)));
    sum += faintOfSize_[size] * std::log(std::max<double>(middle, floor()));
  }
  return static_cast<float>(0.5 * sum / static_cast<double>(count_));
}

}  // namespace analysis
