#pragma once
// A plane frame or a wall plate as a system of equations: assembled, restrained and eliminated by
// the library, with the digits given back in double precision.
//
//     PlaneSystem system(model, elements, restraints, options, window);
//     const Vector u = system.Solve();

#include "hosts/slab/band_solution.h"
#include "hosts/slab/library_types.h"
#include "hosts/slab/plane/plane_element.h"

namespace slab {

class PlaneSystem {
  public:
    PlaneSystem(const Model& model, ElementSource elements, RestraintList restraints,
                const AnalysisOptions& options, RunWindow& window);

    int Equations() const { return static_cast<int>(3 * model_.Nodes.size()); }
    int HalfBandWidth() const { return Nw_; }
    const RestraintList& Restrained() const { return restraints_; }
    /// Constants of the node springs, 3 a node.
    const Vector& Springs() const { return springs_; }

    /// Displacements under the loads and prescribed values. Throws AnalysisFailure or Cancelled.
    Vector Solve();
    /// Loads at the nodes with those of the elements, 3 a node; known after Solve.
    const Vector& Loads() const { return loads_; }
    /// Forces that act on the elements at the nodes beyond loads and springs: those of supports.
    Vector HeldForces(const Vector& u) const;

    slab::Digits Digits;

  private:
    void Assemble(Array<Single>& A, Array<Single>& Q);
    void AddSprings(std::size_t element, Array<Single>& ST, std::vector<char>& given);

    const Model& model_;
    ElementSource elements_;
    RestraintList restraints_;
    const AnalysisOptions& options_;
    RunWindow& window_;
    torlib::FEM_Class fem_;
    int Nw_ = 0;
    BlockMatrix stiffness_;
    Vector loads_;
    Vector springs_;
};

} // namespace slab
