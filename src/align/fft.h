#pragma once

#include <Eigen/Core>

namespace align {

/// Four signals of one length, one in each row, so that one pass transforms all four.
using Signals = Eigen::Array4Xf;

/// Their spectra: one row a signal, one column a bin, from 0 to half the signals' length.
struct Spectra {
  Eigen::Array4Xf re, im;
};

/// Transforms four real signals of an even length. Callable from any thread. The result takes over
/// the memory of `into`, so that a caller who transforms often need not ask the system for more.
Spectra forward(const Signals& signals, Spectra into = {});

/// The inverse, scaled so that inverse(forward(x)) is x.
Signals inverse(const Spectra& spectra, Signals into = {});

}  // namespace align
