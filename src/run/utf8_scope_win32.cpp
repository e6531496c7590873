#include "run/utf8_scope.h"

namespace run {

Utf8Scope::Utf8Scope() = default;
Utf8Scope::~Utf8Scope() = default;

}  // namespace run
