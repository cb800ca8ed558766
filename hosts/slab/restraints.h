#pragma once
// Supports and symmetry of a model as restrained equations, and the check that they hold the slab.

#include "hosts/slab/block_matrix.h"
#include "hosts/slab/library_types.h"
#include "hosts/slab/model.h"
#include "torlib/fem/fem_class.h"

#include <string>

namespace slab {

/// The restraint list in the library's form, and the same by equation.
struct RestraintList {
    Integer NF = 0;
    Array<Integer> NS;
    Array<Single> AufL;
    std::vector<char> Held; ///< by equation, from 0
    Vector Value;           ///< prescribed value by equation
};

RestraintList Restraints(const Model& model, torlib::FEM_Class& fem);

/// The restraints of the model's list alone, three freedoms a node, of which the first
/// `displacements` are lengths; Held and Value are left to FillEquations.
RestraintList ListedRestraints(const Model& model, int displacements, torlib::FEM_Class& fem);
/// Coordinates from the symmetry lines x = xmax and y = ymax, so that the library's 1 mm tolerance
/// holds far from the origin.
void FromSymmetryLines(const Model& model, Array<Single>& XGriD, Array<Single>& YGriD);
/// Fills Held and Value from the library's list.
void FillEquations(const Model& model, RestraintList& list);

/// Where a node lies relative to the symmetry lines x = xmax and y = ymax of a half or quarter
/// model.
class SymmetryLines {
  public:
    explicit SymmetryLines(const Model& model);

    /// +1 when the structure mirrors itself in the line y = ymax, -1 with changed sign, 0 not at
    /// all.
    int AcrossX() const { return acrossX_; }
    /// The same in the line x = xmax.
    int AcrossY() const { return acrossY_; }
    double XMax() const { return xMax_; }
    double YMax() const { return yMax_; }
    bool OnXMax(const Point& p) const;
    bool OnYMax(const Point& p) const;
    /// How many times the part of a thing at this place makes the whole: 1, 2 on a line, 4 on two.
    int PartsAt(const Point& p) const;
    /// Whether the structure's mirror image holds a freedom (1, 2, 3) of a node here at 0. With one
    /// displacement the freedoms are w, dw/dx, dw/dy of a plate; with two u, v, rotation in a
    /// plane.
    bool Hold(const Point& p, int freedom, std::size_t displacements) const;
    /// On a line where settlement and contact force vanish by antisymmetry.
    bool Silent(const Point& p) const;

  private:
    int acrossX_ = 0;
    int acrossY_ = 0;
    double xMax_ = 0;
    double yMax_ = 0;
};

/// A place and the sign with which what stands there answers.
struct MirrorImage {
    Point At;
    double Sign = 1;
};

/// The point and its mirror images: the settlement at the point from a mirrored load is that at the
/// mirrored point from the load itself. On a symmetry line a point is its own image and comes
/// twice.
std::vector<MirrorImage> MirrorImages(const Point& p, const SymmetryLines& lines);

/// "node 12 at x = 3 m, y = 4 m".
std::string NameOfNode(const Model& model, int node);
/// "settlement", "slope in x" or "slope in y" for freedom 1, 2 or 3.
const char* NameOfFreedom(int freedom);

/// Throws AnalysisFailure when a part of the slab can move as a rigid body: `springs` holds the
/// spring constant of every equation, soil included.
void RequireHeld(const Model& model, const RestraintList& restraints, const Vector& springs);

} // namespace slab
