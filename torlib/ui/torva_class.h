#pragma once
// Services that a host uses round a computation: the run/cancel state with its poll and its cancel
// button, the lines of a result listing, and working arrays that grow together.
//
//     TORVAClass torva;
//     torva.WriteExitcontrol(ExitRunning);
//     while (Step() && !torva.ActivateDoEvents(form)) { ... }
//     torva.SetLineList(listing, u"Area", u"A", u"[m2]", u"12.5", 30, 10);
//
// Files in reading order: torva_class.cpp (instance, members, member table).

#include "torlib/frame/arithmetic.h"
#include "torlib/platform/component/array.h"
#include "torlib/platform/component/object.h"

namespace torlib {

struct ClassInfo;

class TORLIB_API TORVAClass {
  public:
    static TORVAClass& DefaultInstance();
    static const ClassInfo& Info();

    /// Yields to pending user-interface events and tells whether a cancel has been requested.
    ///
    /// `FrmShow` calculation form, unloaded when a cancel has been requested; none is allowed.
    /// Result: true while a cancel is requested; the state itself does not change.
    /// Errors: those of the form, or of an event that runs meanwhile.
    bool ActivateDoEvents(const Object& FrmShow = {}) const;

    /// Grows three working arrays together, keeping their contents.
    ///
    /// `NDim` [in/out] upper index of the arrays, on return NDim + NIncrment. `NIncrment` growth.
    /// `Array1`, `Array2`, `Array3` [in/out] come back with the bounds 0..NDim.
    /// Errors: 6 when the sum leaves 16 bits, with nothing changed; 9 when it is negative or an
    /// array has two dimensions.
    void ExpandDim(Integer& NDim, const Integer& NIncrment, Array<Single>& Array1,
                   Array<Single>& Array2, Array<Single>& Array3) const;

    /// The action of a cancel button.
    ///
    /// `FrmShow` form of the button: unloaded when the run has ended (state 4, 5 or 6), left open
    /// otherwise, and then the state asks for a cancel.
    /// Errors: 91 when there is no form to unload, and those of the form.
    void OKCancel(const Object& FrmShow) const;

    /// A run of blanks.
    ///
    /// `NumberOfSpaces` how many. Result: empty when the number is not positive.
    String Private_Space(Integer NumberOfSpaces) const;

    /// The run/cancel state of the library; see ExitControlValue.
    Long ReadExitcontrol() const;

    /// Sets the run/cancel state of the library.
    ///
    /// `NewValue` stored as it is, without any check.
    void WriteExitcontrol(Long NewValue) const;

    /// Appends one aligned line "text symbol unit = value" to a result listing.
    ///
    /// `ResultText` [in/out] the listing. `LineText`, `LineSymbol`, `LineUnit` columns. `LineValue`
    /// value, as the utility service formats it. `TabNode` width of the first column. `TabNo` width
    /// of the second and third. A pair of the Arabic letters lam and alef is shown as one sign and
    /// counts as one in the first column. A column never cuts its text; the listing itself may be
    /// one. Errors: those of the utility service; what was appended before stays.
    void SetLineList(String& ResultText, String LineText, String LineSymbol, String LineUnit,
                     String LineValue, Integer TabNode, Integer TabNo) const;
};

} // namespace torlib
