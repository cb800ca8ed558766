#pragma once
// The restraint list: NF equations NS(1..NF) with their prescribed values AufL(1..NF). Index 0 of
// both arrays is never used.

#include "torlib/frame/arithmetic.h"
#include "torlib/platform/component/array.h"

namespace torlib {

/// Makes room for one restraint more.
///
/// `NF` [in/out] count, raised by 1. `NS`, `AufL` [in/out] grown to 0..NF, contents kept.
/// Errors: 6 when the count leaves 16 bits.
void GrowRestraints(Integer& NF, Array<Integer>& NS, Array<Single>& AufL);

/// Appends one restraint.
///
/// Parameters as for GrowRestraints. Errors: 6 when the count leaves 16 bits, or the equation
/// number does; the list has then grown by a zero entry.
void AppendRestraint(Integer& NF, Array<Integer>& NS, Array<Single>& AufL, int equation,
                     Single value);

/// Keeps the first entry of every equation, in the order of the list.
///
/// `NF` [in/out] count. `NS`, `AufL` [in/out] replaced by fresh arrays 0..NF.
/// Errors: 9 for a count beyond the arrays.
void RemoveDuplicateBoundary(Integer& NF, Array<Integer>& NS, Array<Single>& AufL);

} // namespace torlib
