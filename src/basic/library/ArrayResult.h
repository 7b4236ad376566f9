#pragma once

#include "basic/values/ValueBodies.h"

namespace dorvik::basic {

/// A dynamic array of one dimension from 0 as functions give it, of texts or of Variants. No element:
/// its upper bound is -1. Raises 7.
Ref<ArrayBody> TextArray(std::size_t elements);
Ref<ArrayBody> VariantArray(std::size_t elements);

}  // namespace dorvik::basic
