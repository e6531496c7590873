// A converted sound may be cut short or be anything at all: whatever the file holds, it is read as
// often as it is asked for, and is what it was before.
#include <algorithm>
#include <span>

#include "analysis/fingerprint.h"
#include "analysis/sample_source.h"
#include "fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const fuzz::File file(fuzz::textOf(data, size));
  analysis::SamplesInFile source(file.path());
  constexpr std::int64_t kLongest = 60 * analysis::kSampleRate;  // headers may announce days
  if (source.empty() || source.length() > kLongest) return 0;
  std::vector<float> whole(static_cast<std::size_t>(source.length()) + 200);
  source.read(-100, whole);
  const std::vector<float> piece = analysis::readPiece(file.path(), 10, 50);
  for (std::size_t i = 0; i < piece.size(); ++i)
    fuzz::require(piece[i] == whole[i + 110] || piece[i] != piece[i],
                  "a piece is cut from the whole");
  const auto heard = std::span(whole).first(std::min<std::size_t>(whole.size(), 8000));
  fuzz::require(analysis::fingerprint(heard, 0.98f).rows() >= 8, "a fingerprint has its zero rows");
  return 0;
}
