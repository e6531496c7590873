#include "align/fft.h"

#include <cmath>
#include <complex>
#include <map>
#include <numbers>
#include <unsupported/Eigen/FFT>
#include <vector>

#include "analysis/lanes.h"
#include "report/per_thread.h"

namespace align {
namespace {

using analysis::Lanes;
using Complex = std::complex<Lanes>;
using Index = Eigen::Index;

/// What transforms of `count` real values need; every thread keeps its own.
struct Plan {
  std::vector<Complex> in, out;            // even values real, odd ones imaginary; out has room for
                                           // one more, as spectra go round
  std::vector<std::complex<float>> turns;  // by -k / count of a circle

  explicit Plan(Index count) : in(std::size_t(count / 2)), out(in.size() + 1) {
    for (Index k = 0; k <= count / 2; ++k) {
      const double angle = -2 * std::numbers::pi * double(k) / double(count);
      turns.emplace_back(float(std::cos(angle)), float(std::sin(angle)));
    }
  }
};

Plan& planFor(Index count) {
  static const report::PerThread<std::map<Index, Plan>> plans;
  return (*plans).try_emplace(count, count).first->second;
}

void transform(Plan& plan) {
  static const report::PerThread<Eigen::FFT<Lanes>> fft;
  (*fft).fwd(plan.out.data(), plan.in.data(), static_cast<Index>(plan.in.size()));
}

Complex turned(const Complex& z, const std::complex<float>& by) {
  const Lanes re(by.real()), im(by.imag());
  return {z.real() * re - z.imag() * im, z.real() * im + z.imag() * re};
}

Complex halved(const Complex& z) { return {z.real() * Lanes(0.5f), z.imag() * Lanes(0.5f)}; }

}  // namespace

// A real signal is transformed as half as many complex numbers: the spectra of its even and odd
// values are taken apart, and the odd ones' turned by their delay of one sample.
Spectra forward(const Signals& signals, Spectra into) {
  const Index half = signals.cols() / 2;
  Plan& plan = planFor(signals.cols());
  for (Index n = 0; n < half; ++n)
    plan.in[std::size_t(n)] = {Lanes::load(signals.col(2 * n).data()),
                               Lanes::load(signals.col(2 * n + 1).data())};
  transform(plan);
  plan.out.back() = plan.out.front();
  into.re.resize(4, half + 1);
  into.im.resize(4, half + 1);
  for (Index k = 0; k <= half; ++k) {
    const Complex low = plan.out[std::size_t(k)];
    const Complex high = std::conj(plan.out[std::size_t(half - k)]);
    const Complex odd = turned(halved(low - high), plan.turns[std::size_t(k)]);
    const Complex bin = halved(low + high) + Complex(odd.imag(), -odd.real());
    bin.real().store(into.re.col(k).data());
    bin.imag().store(into.im.col(k).data());
  }
  return into;
}

// The same way back; conjugated in and out, the forward transform is its own inverse.
Signals inverse(const Spectra& spectra, Signals into) {
  const Index half = spectra.re.cols() - 1;
  Plan& plan = planFor(2 * half);
  const auto bin = [&](Index k) {
    return Complex(Lanes::load(spectra.re.col(k).data()), Lanes::load(spectra.im.col(k).data()));
  };
  for (Index k = 0; k < half; ++k) {
    const Complex low = bin(k), high = std::conj(bin(half - k));
    const Complex odd = turned(low - high, std::conj(plan.turns[std::size_t(k)]));
    plan.in[std::size_t(k)] = std::conj(low + high + Complex(-odd.imag(), odd.real()));
  }
  transform(plan);
  into.resize(4, 2 * half);
  const Lanes scale(0.5f / static_cast<float>(half));
  for (Index n = 0; n < half; ++n) {
    const Complex& pair = plan.out[std::size_t(n)];
    (pair.real() * scale).store(into.col(2 * n).data());
    (-pair.imag() * scale).store(into.col(2 * n + 1).data());
  }
  return into;
}

}  // namespace align
