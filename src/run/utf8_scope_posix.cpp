#include <locale.h>

#include <clocale>

#include "run/utf8_scope.h"

namespace run {
namespace {

/// Made once and kept; null on a system that has no such locale.
locale_t utf8Locale() {
  static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  return locale;
}

}  // namespace

Utf8Scope::Utf8Scope() {
  if (const locale_t locale = utf8Locale()) previous_ = uselocale(locale);
}

Utf8Scope::~Utf8Scope() {
  if (previous_) uselocale(static_cast<locale_t>(previous_));
}

}  // namespace run
