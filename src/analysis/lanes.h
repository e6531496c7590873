#pragma once

#include <cstring>

namespace analysis {

/// Four floats that behave like one number, so that a transform written for one frame works on
/// four frames at once. One vector register on every processor the program runs on.
struct Lanes {
  using Vector [[gnu::vector_size(16)]] = float;
  Vector v;

  Lanes() = default;
  Lanes(float x) : v{x, x, x, x} {}  // implicit: numbers of a formula mean the same in all lanes
  explicit Lanes(Vector x) : v(x) {}
  static Lanes load(const float* four) {
    Lanes lanes;
    std::memcpy(&lanes.v, four, sizeof lanes.v);
    return lanes;
  }
  void store(float* four) const { std::memcpy(four, &v, sizeof v); }

  friend Lanes operator+(Lanes a, Lanes b) { return Lanes(a.v + b.v); }
  friend Lanes operator-(Lanes a, Lanes b) { return Lanes(a.v - b.v); }
  friend Lanes operator*(Lanes a, Lanes b) { return Lanes(a.v * b.v); }
  friend Lanes operator-(Lanes a) { return Lanes(-a.v); }
  Lanes& operator+=(Lanes b) { return *this = *this + b; }
  Lanes& operator-=(Lanes b) { return *this = *this - b; }
  Lanes& operator*=(Lanes b) { return *this = *this * b; }
};

/// Turns four rows into four columns.
inline void transpose(Lanes& a, Lanes& b, Lanes& c, Lanes& d) {
  const auto low1 = __builtin_shufflevector(a.v, b.v, 0, 4, 1, 5);
  const auto high1 = __builtin_shufflevector(a.v, b.v, 2, 6, 3, 7);
  const auto low2 = __builtin_shufflevector(c.v, d.v, 0, 4, 1, 5);
  const auto high2 = __builtin_shufflevector(c.v, d.v, 2, 6, 3, 7);
  a.v = __builtin_shufflevector(low1, low2, 0, 1, 4, 5);
  b.v = __builtin_shufflevector(low1, low2, 2, 3, 6, 7);
  c.v = __builtin_shufflevector(high1, high2, 0, 1, 4, 5);
  d.v = __builtin_shufflevector(high1, high2, 2, 3, 6, 7);
}

}  // namespace analysis
