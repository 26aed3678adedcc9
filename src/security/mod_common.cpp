#include "security/mod_common.h"

#include <stdexcept>

namespace kestrane::modCommon {

void FailWithOverflow() { throw std::overflow_error("error 6: overflow"); }

}  // namespace kestrane::modCommon
