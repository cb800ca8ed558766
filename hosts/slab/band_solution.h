#pragma once
// What every analysis on the library's band does alike: sizing it, eliminating it, and giving the
// digits back.

#include "hosts/slab/analysis.h"
#include "hosts/slab/digits.h"
#include "hosts/slab/library_types.h"
#include "hosts/slab/restraints.h"
#include "torlib/fem/fem_class.h"

namespace slab {

/// Half band width of a mesh with three freedoms a node. Throws AnalysisFailure when nodes, or
/// equations and width together, cannot be counted in 16 bits.
int BandWidthOf(const Model& model, const std::vector<Element>& elements,
                const torlib::FEM_Class& fem);

/// Imposes the restraints on the band and eliminates it, with progress on the window; Q becomes the
/// solution. Throws AnalysisFailure or Cancelled.
BandFactor Eliminated(torlib::FEM_Class& fem, RunWindow& window, int halfBandWidth, int equations,
                      const RestraintList& restraints, Array<Single>& A, Array<Single>& Q);

/// Corrects the 32-bit solution u and notes what that gave; in a plain analysis notes only what
/// there is to correct. The first `displacements` freedoms of a node are lengths.
void CorrectAndNote(const HeldSystem& system, const BandFactor& factor, const Vector& b, Vector& u,
                    const AnalysisOptions& options, int displacements,
                    const std::function<void()>& poll, Digits& digits);

} // namespace slab
