#pragma once
// The slab as a system of equations: assembled, restrained and eliminated by the library, with the
// digits given back in double precision.
//
//     SlabSystem system(model, options, window);
//     Vector u = system.Solve(soilSprings, extraForces);   // a new elimination
//     system.Respond(forces, y);                           // the same factor, loads on settlements

#include "hosts/slab/analysis.h"
#include "hosts/slab/band_factor.h"
#include "hosts/slab/digits.h"
#include "hosts/slab/library_types.h"
#include "hosts/slab/restraints.h"
#include "torlib/fem/fem_class.h"

namespace slab {

class SlabSystem {
  public:
    SlabSystem(const Model& model, const AnalysisOptions& options, RunWindow& window);

    int Equations() const { return static_cast<int>(3 * model_.Nodes.size()); }
    int HalfBandWidth() const { return Nw_; }
    const RestraintList& Restrained() const { return restraints_; }

    /// Displacements under the model's loads and prescribed values, with a soil spring (kN/m) and
    /// an extra downward force (kN) at each node. Throws AnalysisFailure for a mechanism.
    Vector Solve(const Vector& soilSprings, const Vector& extraForces);
    /// Displacements under downward forces at the nodes alone, nothing prescribed, with the springs
    /// of the last Solve.
    /// Good to a millionth of the forces: enough for a step of an iteration.
    void Respond(const Vector& forces, Vector& u);
    /// Restores equilibrium of displacements and contact forces on the soil under the model's
    /// loads: moves u a little, and the forces by the springs of the last Solve. Not in a plain
    /// analysis.
    void Balance(Vector& u, Vector& soilForces);

    /// Forces and moments with which slab, beams and node springs resist the displacements.
    Vector PlateForces(const Vector& u) const;
    /// Loads at the nodes, 3 a node.
    const Vector& Loads() const { return loads_; }
    /// Constants of the node springs, 3 a node.
    const Vector& NodeSprings() const { return nodeSprings_; }

    slab::Digits Digits;
    double Seconds = 0; ///< assembly, elimination, substitutions, correction
    /// Equation whose pivot is smallest relative to its diagonal, from 1, and that ratio.
    int WeakestEquation = 0;
    double WeakestPivot = 1;

  private:
    void BuildMatrix();
    Array<Single> Assemble(Array<Single>& Q, const Vector& extraForces);
    void NoteWeakestPivot();
    Vector FreeLoads(const Vector& extraForces) const;
    void Poll() const;

    const Model& model_;
    const AnalysisOptions& options_;
    RunWindow& window_;
    torlib::FEM_Class fem_;
    int Nw_ = 0;
    std::vector<Element> elements_; // plates and beams
    RestraintList restraints_;
    BlockMatrix stiffness_; // plates and beams alone, double precision
    Vector loads_;
    Vector nodeSprings_;
    Vector springs_;  // node springs and soil springs of the last Solve
    Vector diagonal_; // of plates and beams
    BandFactor factor_;
};

} // namespace slab
