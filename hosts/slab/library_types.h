#pragma once
// The library's stored numbers and arrays under their own names: what crosses its door is rounded
// to 32 bits and checked, while the host's own double numbers are not.

#include "torlib/frame/arithmetic.h"
#include "torlib/platform/component/array.h"

namespace slab {

using torlib::Array;
using torlib::Bounds;
using torlib::Integer;
using torlib::Single;

} // namespace slab
