#include "torlib/frame/arithmetic.h"

#include "torlib/platform/component/variant.h"

namespace torlib {

Integer ToInteger(Real value) {
    return RoundToInt16(value.Value());
}

Long ToLong(Real value) {
    return RoundToInt32(value.Value());
}

} // namespace torlib
