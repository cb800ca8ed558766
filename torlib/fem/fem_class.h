#pragma once
// The finite-element core: slabs, beams, frames and walls on a symmetric band matrix. The host
// sizes the band, asks for the stiffness and load vector of each element, adds them into the band,
// imposes the supports and solves:
//
//     FEM_Class fem;
//     fem.GetBandWidth(Nw, NE, I_ElementType, I_Corner);
//     fem.SetElementStiffnessMatrix(SK, e, T, bnu, NNode, XE, YE);
//     fem.GlobalStiffnessMatrix(A, SK, 3, NNode, Node);
//     fem.SetBoundaryToMatrix(Nw, NF, A, Q, AufL, NS);
//     fem.SolveMatrix(Nw, N3, A, Q);
//
// Files in reading order: band_matrix.cpp (width, restraints), band_solver.cpp (elimination),
// progress.cpp (progress display), plate_stiffness.cpp (dispatch, rectangle),
// triangle_stiffness.cpp, element_loads.cpp, assembly.cpp, supports.cpp (support texts),
// symmetry.cpp (half and quarter models), grid_beam.cpp, grid_beam_assembly.cpp, plane_frame.cpp,
// wall_triangle.cpp (plane stress), foundation_level.cpp (levels, node coordinates), fem_class.cpp
// (instance, member table).
//
// Shared by all members: units are the caller's, one consistent set for lengths, forces and
// moduli; rotations and slopes are in radians. The equation number of degree of freedom j of node n
// is (n - 1) * NFreedom + j; plates and grid beams carry (w, dw/dx, dw/dy) at a node, plane frames
// (u, v, rotation from +y towards +x), wall triangles (u, v).
// A(n, l), l = 1..Nw, holds K(n, n + l - 1). A and Q carry Nw - 1 zero rows beyond the last
// equation. An index such as n + l - 1 is formed as a whole and checked against 16 bits where it is
// stored. Every member raises 6 when a value exceeds its 32 bits or 0 is divided by 0, and when a
// count is 32767, beside the errors that its own text tells. An array that was re-dimensioned
// before an error stays so.

#include "torlib/frame/arithmetic.h"
#include "torlib/frame/enumerations.h"
#include "torlib/frame/optional_ref.h"
#include "torlib/platform/component/array.h"
#include "torlib/platform/component/object.h"

namespace torlib {

struct ClassInfo;

class TORLIB_API FEM_Class {
  public:
    static FEM_Class& DefaultInstance();
    static const ClassInfo& Info();

    /// Sizes the band for a mesh of plate elements.
    ///
    /// `Nw` [out] half band width including the diagonal, 3 equations a node. `NE` number of
    /// elements. `I_ElementType(1..NE)` number of corners of each element, 3 or 4.
    /// `I_Corner(1..NE, 1..4)` node numbers of the corners. `FrmShow` is not used.
    /// Result: false. Nw = 3 (d + 1), d the largest difference of node numbers within one element.
    /// Errors: 6 when the width leaves 16 bits; 9 for an index outside the arrays or an element of
    /// more than 4 corners.
    bool GetBandWidth(Integer& Nw, Integer NE, const Array<Integer>& I_ElementType,
                      const Array<Integer>& I_Corner, const Object& FrmShow = {}) const;

    /// Imposes prescribed values: each restrained row and column moves to the right-hand side and
    /// leaves a unit diagonal.
    ///
    /// `Nw` half band width. `NF` number of restraints. `A(1..N3+Nw-1, 1..Nw)` [in/out] band
    /// matrix. `Q(1..N3+Nw-1)` [in/out] load vector. `AufL(1..NF)` prescribed values. `NS(1..NF)`
    /// equation numbers. `FrmShow` form that is unloaded when the user cancels. Result: true when
    /// cancelled, with A and Q as they are at that moment. An equation that is listed twice keeps
    /// the last of its values. Errors: 6 when an equation number leaves 16 bits or a value
    /// overflows; 9 for an index outside the arrays. Source: Bathe (1996), Finite Element
    /// Procedures, section 4.2.2.
    bool SetBoundaryToMatrix(Integer Nw, Integer NF, Array<Single>& A, Array<Single>& Q,
                             const Array<Single>& AufL, const Array<Integer>& NS,
                             const Object& FrmShow = {}) const;

    /// Solves the banded symmetric system in place by Gaussian elimination without pivoting.
    ///
    /// `Nw` half band width. `N3` number of equations. `A(1..N3+Nw-1, 1..Nw)` [in/out] band matrix,
    /// on return its factor: the diagonal terms and the ratios of each row to its diagonal.
    /// `Q(1..N3+Nw-1)` [in/out] load vector, on return the solution. `FrmShow` calculation form,
    /// unloaded when the user cancels. `PrograssBarMode` true shows the progress, one step an
    /// equation, on `FrmShow` and the status bar `ObjStbar`.
    /// Result: true when cancelled; A and Q are then partly reduced and must be built anew. An
    /// equation whose diagonal is zero gets the solution 0. A handler that runs in an event
    /// meanwhile may read A and Q, but sees rows that lag, since part of the band is kept elsewhere
    /// then; what it writes may be lost; new bounds are error 10 to it, as the solver holds both.
    /// Errors: 6 when a value overflows; 7 without memory for the band once more; 9 for an index
    /// outside the arrays; with progress those of ProgressBarValue, such as 91 when form or status
    /// bar is missing. Source: Bathe (1996), Finite Element Procedures, section 8.2. Deviations:
    /// every entry is rounded to 32 bits after each update, in ascending pivot order; a zero
    /// diagonal becomes 1.0E-10 with a zero right-hand side.
    bool SolveMatrix(Integer Nw, Integer N3, Array<Single>& A, Array<Single>& Q,
                     const Object& FrmShow = {}, bool PrograssBarMode = false,
                     const Object& ObjStbar = {});

    /// Shows one step of a computation: bar, step label, remaining time and status bar.
    ///
    /// `FrmShow` form with the progress bar `PrB` (its `Max` set by the caller to the last step)
    /// and the labels `lbltime` and `LblStufe`. `ProgressValue` step, 1..PrB.Max; step 1 starts the
    /// clock. `ObjStbar` status bar with `Visible`, `Panels` and `Refresh`.
    /// The remaining time is extrapolated from the time that the steps so far have taken.
    /// Errors: 11 for step 0; 91 when form or status bar is missing; 424 for a control that is no
    /// object; 438 when a control is missing.
    /// Deviations: the seconds are rounded half away from zero, so 59.5 s reads "60"; a run across
    /// midnight shows a negative time.
    void ProgressBarValue(const Object& FrmShow, const Integer& ProgressValue,
                          const Object& ObjStbar);

    /// Stiffness of a plate element: a triangle of 3 nodes or a rectangle of 4.
    ///
    /// `SK` [out] re-dimensioned to (0..3 NNode, 0..3 NNode), filled from 1. `e` modulus of
    /// elasticity. `T` thickness. `bnu` Poisson's ratio. `NNode` number of nodes. `XE`,
    /// `YE(1..NNode)` corner coordinates, counter-clockwise; a rectangle starts at its corner of
    /// smallest x and y. Result: symmetric, node by node (w, dw/dx, dw/dy); all zero when e or T is
    /// not positive or NNode is neither 3 nor 4. Errors: 6 or 11 for an element without area; 9 for
    /// coordinates outside the arrays. Deviations: of a rectangle only XE(1), XE(2), YE(1) and
    /// YE(4) count; XE and YE that do not cover NNode fail only from 342 nodes on, with SK as
    /// before, so that a count alone takes no memory.
    void SetElementStiffnessMatrix(Array<Single>& SK, Single e, Single T, Single bnu,
                                   const Integer& NNode, const Array<Single>& XE,
                                   const Array<Single>& YE) const;

    /// Stiffness of the nonconforming 12-parameter plate rectangle.
    ///
    /// `SK(1..12, 1..12)` [out]. `e` modulus of elasticity. `T` thickness. `bnu` Poisson's ratio.
    /// `A`, `B` sides along x and y.
    /// Result: symmetric, node by node (w, dw/dx, dw/dy), nodes counter-clockwise from the corner
    /// of smallest x and y. Errors: 6 or 11 for a side of length zero, or for bnu = +-1 with the
    /// coefficients in the upper triangle; 9 when SK is too small. Source: Adini and Clough (1961),
    /// Analysis of Plate Bending by the Finite Element Method; Melosh (1963), AIAA Journal 1,
    /// 1631-1637; Zienkiewicz and Taylor (2000), The Finite Element Method, vol. 2, section 4.3.
    /// Deviations: the coefficients of the closed form are rounded to 32 bits one by one.
    void SetRecElementStiffness(Array<Single>& SK, Single e, Single T, Single bnu, Single A,
                                Single B) const;

    /// Stiffness of the nonconforming 9-parameter plate triangle.
    ///
    /// `SK(1..9, 1..9)` [out]. `e` modulus of elasticity. `T` thickness. `bnu` Poisson's ratio.
    /// `x`, `Y(1..3)` corner coordinates, counter-clockwise.
    /// Result: symmetric but for the last bits, node by node (w, dw/dx, dw/dy); a clockwise
    /// triangle gives the negative matrix. Errors: 6 or 11 for a triangle without area; 9 when SK
    /// is too small. Source: Bazeley, Cheung, Irons and Zienkiewicz (1965), Triangular Elements in
    /// Plate Bending, Proc. 1st Conf. Matrix Methods in Structural Mechanics, 547-576. Deviations:
    /// integrated in closed form with the slopes along the sides 1-2 and 1-3, which are turned into
    /// x-y slopes at the end, columns before rows, each step rounded to 32 bits; the sum over
    /// the six weights of an entry is one expression in double precision, stored once.
    void SetTriElementStiffness(Array<Single>& SK, Single e, Single T, Single bnu,
                                const Array<Single>& x, const Array<Single>& Y) const;

    /// Consistent load vector of a uniform pressure on a plate element of 3 or 4 nodes.
    ///
    /// `BE` [out] re-dimensioned to 0..3 NNode, filled from 1. `P` pressure, positive along w.
    /// `NNode` number of nodes. `XE`, `YE(1..NNode)` corner coordinates as for the stiffness.
    /// Result: zero when NNode is neither 3 nor 4.
    /// Errors: 6 when a value overflows; 9 for coordinates outside the arrays.
    void SetElementLoadVector(Array<Single>& BE, Single P, const Integer& NNode,
                              const Array<Single>& XE, const Array<Single>& YE) const;

    /// Consistent load vector of a uniform pressure on the plate rectangle.
    ///
    /// `BE(1..12)` [out]. `P` pressure, positive along w. `A`, `B` sides along x and y.
    /// Result: P A B / 4 at each deflection, +-P A^2 B / 24 and +-P A B^2 / 24 at the slopes.
    /// Errors: 6 when a value overflows; 9 when BE is too small.
    /// Source: Zienkiewicz and Taylor (2000), The Finite Element Method, vol. 2, section 4.3.
    void SetRecElementLoadVector(Array<Single>& BE, Single P, Single A, Single B) const;

    /// Consistent load vector of a uniform pressure on the plate triangle.
    ///
    /// `BE(1..9)` [out]. `P` pressure, positive along w. `x`, `Y(1..3)` corner coordinates,
    /// counter-clockwise.
    /// Result: a third of the load at each deflection; zero for a triangle without area; a
    /// clockwise triangle gives the negative vector. Errors: 6 when a value overflows; 9 when BE is
    /// too small. Source: Bazeley, Cheung, Irons and Zienkiewicz (1965), as for the stiffness.
    void SetTriElementLoadVector(Array<Single>& BE, Single P, const Array<Single>& x,
                                 const Array<Single>& Y) const;

    /// Adds an element matrix into the band matrix.
    ///
    /// `A` [in/out] band matrix. `SK(1..NNode NFreedom, 1..NNode NFreedom)` element matrix.
    /// `NFreedom` degrees of freedom a node. `NNode` number of nodes. `Node(1..NNode)` their global
    /// numbers.
    /// Only the terms on and above the diagonal of the global matrix are taken.
    /// Errors: 6 when an equation number leaves 16 bits or a value overflows; 9 for a row or band
    /// column outside A. Terms that were added before an error stay.
    void GlobalStiffnessMatrix(Array<Single>& A, const Array<Single>& SK, Integer NFreedom,
                               Integer NNode, const Array<Integer>& Node) const;

    /// Adds an element load vector into the global load vector.
    ///
    /// `Q` [in/out] load vector. `BE(1..NNode NFreedom)` element vector. `NFreedom` degrees of
    /// freedom a node. `NNode` number of nodes. `Node(1..NNode)` their global numbers. Errors: 6
    /// when an equation number leaves 16 bits or a value overflows; 9 for an index outside the
    /// arrays.
    void GlobalLoadVector(Array<Single>& Q, const Array<Single>& BE, Integer NFreedom,
                          Integer NNode, const Array<Integer>& Node) const;

    /// Adds nodal spring constants to the diagonal of an element matrix.
    ///
    /// `NFreedom` degrees of freedom a node, `NNode` number of element nodes, `NV` number of spring
    /// nodes: reals, rounded to whole numbers with halves to the even neighbour. `KV(1..NV)` spring
    /// nodes. `Fk(1..NV NFreedom)` spring constants, node by node. `Node(1..NNode)` element nodes.
    /// `ST` [in/out] element matrix.
    /// A spring node receives its springs once for every element that is passed with it.
    /// Errors: 6 when a count leaves 16 bits or a value overflows; 9 for an index outside the
    /// arrays.
    void AdditionalStiffness(Single NFreedom, Single NNode, Single NV, const Array<Integer>& KV,
                             const Array<Single>& Fk, const Array<Integer>& Node,
                             Array<Single>& ST) const;

    /// Builds the restraint list from the support texts of the supported nodes.
    ///
    /// `NFreedom` degrees of freedom a node. `NDesp` how many of them are displacements. `NA`
    /// number of supported nodes. `KA(1..NA)` their numbers. `De(1..NA NFreedom)` [in/out]
    /// conditions, node by node: "F" is free, any other text a prescribed value, displacements in
    /// hundredths of the length unit. `NF` [out] number of restraints. `NS`, `AufL(1..NF)` [out]
    /// equation numbers and values, in the order of De; untouched when NF is 0. The displacement
    /// texts come back divided by 100, so a second call divides them again. Errors: 6 when an
    /// equation number leaves 16 bits; 9 for an index outside the arrays; whatever the utility
    /// service raises for a text that is not a number.
    void SetBoundaryInSystem(Integer NFreedom, Integer NDesp, Integer NA, const Array<Integer>& KA,
                             Array<String>& De, Integer& NF, Array<Integer>& NS,
                             Array<Single>& AufL) const;

    /// Appends the restraints of the symmetry lines of a wall plate.
    ///
    /// `Nk` number of nodes. `XGriD`, `YGriD(1..Nk)` node coordinates. `Isym` symmetry: X cases
    /// about the line y = ymax, Y cases about x = xmax, the largest coordinates of the nodes; a
    /// node nearer to the line than 0.001 lies on it. `NF` [in/out] number of restraints. `AufL`,
    /// `NS(1..NF)` [in/out] values and equation numbers, each equation once on return: first come,
    /// first kept; Unsymmetric leaves the list alone.
    /// Restrained to 0: v in the case X_symmetric, u in Y_Symmetric, u at xmax and v at ymax in
    /// XY_Symmetric, u in X_AntiSymmetric, v in Y_AntiSymmetric.
    /// Errors: 6 when an equation number leaves 16 bits; 9 for an index outside the arrays.
    void SymmetricalBoundaryWall(Integer Nk, const Array<Single>& XGriD, const Array<Single>& YGriD,
                                 SymmetricCase Isym, Integer& NF, Array<Single>& AufL,
                                 Array<Integer>& NS) const;

    /// Appends the restraints of the symmetry lines of a plane frame.
    ///
    /// `NE` number of members. `Np1`, `Np2(1..NE)` their start and end nodes. `XGriD`, `YGriD` node
    /// coordinates. `Isym`, `NF`, `AufL`, `NS` and the tolerance as for the wall plate.
    /// Restrained to 0: as for the wall plate, and the rotation too in the symmetric cases.
    /// Errors: 6 when an equation number leaves 16 bits; 9 for an index outside the arrays.
    void SymmetricalBoundaryFrame(Integer NE, const Array<Integer>& Np1, const Array<Integer>& Np2,
                                  const Array<Single>& XGriD, const Array<Single>& YGriD,
                                  SymmetricCase Isym, Integer& NF, Array<Single>& AufL,
                                  Array<Integer>& NS) const;

    /// Appends the restraints of the symmetry lines of a plate.
    ///
    /// Parameters, tolerance and errors as for the wall plate.
    /// Restrained to 0: dw/dy in the case X_symmetric, dw/dx in Y_Symmetric, dw/dx at xmax and
    /// dw/dy at ymax in XY_Symmetric, w and dw/dx in X_AntiSymmetric, w and dw/dy in
    /// Y_AntiSymmetric.
    void SymmetricalBoundaryPlate(Integer Nk, const Array<Single>& XGriD,
                                  const Array<Single>& YGriD, SymmetricCase Isym, Integer& NF,
                                  Array<Single>& AufL, Array<Integer>& NS) const;

    /// Rigidities and projections of one grid beam.
    ///
    /// `StartNode`, `EndNode` node numbers. `ElementType` section type. `EmGrid`, `GridInertia`,
    /// `GModul`, `GridTorsion` modulus of elasticity, moment of inertia, shear modulus and torsion
    /// constant of each section type, from 1. `XGriD`, `YGriD(1..)` node coordinates. `EI`, `GJ`
    /// [out] flexural and torsional rigidity. `XD`, `YD` [out] projections, end minus start. `i`,
    /// `j` [out] the two node numbers. Errors: 9 for a type or node outside the arrays.
    void BeamData(Integer StartNode, Integer EndNode, Integer ElementType,
                  const Array<Single>& EmGrid, const Array<Single>& GridInertia,
                  const Array<Single>& GModul, const Array<Single>& GridTorsion,
                  const Array<Single>& XGriD, const Array<Single>& YGriD, Single& EI, Single& GJ,
                  Single& XD, Single& YD, OptionalRef<Integer> i = {},
                  OptionalRef<Integer> j = {}) const;

    /// Axes and stiffness factors of a grid beam.
    ///
    /// `TR` [out] re-dimensioned to (0..6, 0..6): at both nodes the deflection, then the slopes
    /// across and along the beam turned into dw/dx and dw/dy. `XD`, `YD`, `EI`, `GJ` as from
    /// BeamData. `F1`, `F2` [out] EI and GJ over the length. `ALE` [out] length. `SI`, `CO` [out]
    /// -XD and YD over the length. `S2`, `C2`, `CS` [out] their squares and product.
    /// Errors: 11 for a beam without length, after ALE is set. Source: Weaver and Gere (1990),
    /// Matrix Analysis of Framed Structures, rotation of axes.
    void TransformationMatrix(Array<Single>& TR, Single XD, Single YD, Single EI, Single GJ,
                              Single& F1, Single& F2, Single& ALE, Single& SI, Single& CO,
                              Single& S2, Single& C2, Single& CS) const;

    /// Stiffness of a grid beam in global axes.
    ///
    /// `ST` [out] re-dimensioned to (0..6, 0..6), filled from 1: symmetric, start then end, (w,
    /// dw/dx, dw/dy) each. The other parameters as from TransformationMatrix. Errors: 6 or 11 for
    /// ALE = 0, ST is then as before. Source: Weaver and Gere (1990), Matrix Analysis of Framed
    /// Structures, grid member; no shear deformation, Saint-Venant torsion.
    void BeamStiffness(Array<Single>& ST, Single F1, Single F2, Single ALE, Single SI, Single CO,
                       Single S2, Single C2, Single CS) const;

    /// Equivalent nodal loads of a uniform line load on a grid beam, to be added to the load
    /// vector.
    ///
    /// `UG` [out] re-dimensioned to (0..6), filled from 1, in global axes as the stiffness.
    /// `TR` from TransformationMatrix. `PP` load per length, positive along w. `ALE` length.
    /// Result: PP ALE / 2 at each deflection; +PP ALE^2 / 12 at the start and the negative at the
    /// end, at the slope along the beam. Errors: 9 when TR is too small. Source: Weaver and Gere
    /// (1990), table of fixed-end actions.
    void BeamLoadVector(Array<Single>& UG, const Array<Single>& TR, Single PP, Single ALE) const;

    /// Adds all grid beams and their line loads into the band matrix and the load vector.
    ///
    /// `NodeStart`, `NodeEnd`, `NTy(1..NEGrid)` nodes and section type of each beam. `EmGrid`,
    /// `GridInertia`, `GModul`, `GridTorsion`, `XGriD`, `YGriD` as for BeamData. `NEGrid` number of
    /// beams. `QL(1..NEGrid)` line loads, positive along w. `Q`, `A` [in/out] load vector and band
    /// matrix. `FrmShow`, `PrograssBarMode`, `ObjStbar` as for SolveMatrix, one step a beam.
    /// Result: false when all beams are added; true when cancelled, or after an error. Errors are
    /// not raised but reported through the utility service, also those of a host's handler that
    /// runs in an event meanwhile, and file number 1 is closed; beams that were added before stay.
    bool SetBeamStiffnessMatrix(const Array<Integer>& NodeStart, const Array<Integer>& NodeEnd,
                                const Array<Integer>& NTy, const Array<Single>& EmGrid,
                                const Array<Single>& GridInertia, const Array<Single>& GModul,
                                const Array<Single>& GridTorsion, const Array<Single>& XGriD,
                                const Array<Single>& YGriD, Integer NEGrid, const Array<Single>& QL,
                                Array<Single>& Q, Array<Single>& A, const Object& FrmShow = {},
                                bool PrograssBarMode = false, const Object& ObjStbar = {});

    /// Stiffness of a plane-frame member in global axes.
    ///
    /// `ST` [out] re-dimensioned to (0..6, 0..6), filled from 1: symmetric, start then end, (u, v,
    /// rotation from +y towards +x) each. `G` hinges: 1 at the start, 2 at the end, 3 at both, any
    /// other value none. `EI`, `EA` flexural and axial rigidity. `AL` length. `CO`, `SI` direction
    /// cosines of the axis from start to end.
    /// A hinged rotation has a zero row and column, so a node where every member is hinged keeps
    /// the rotation 0. Errors: 11 for AL = 0, ST is then as before. Source: Weaver and Gere (1990),
    /// plane-frame member; no shear deformation. Deviations: rotations are clockwise.
    void BeamPlaneStiffness(Array<Single>& ST, Single G, Single EI, Single EA, Single AL, Single CO,
                            Single SI) const;

    /// Equivalent nodal loads of line loads on a plane-frame member, to be added to the load
    /// vector.
    ///
    /// `QK` [out] re-dimensioned to (0..6), filled from 1, in global axes as the stiffness. `Px`
    /// load along +x per length in y. `Py` load along -y per length in x. `XL`, `YL` projections,
    /// end minus start. `IG` hinges: 0 none, 1 at the start, 2 at the end, 3 at both; any other
    /// value leaves QK zero. The forces that hold the fixed ends are the negative of the result.
    /// Source: Weaver and Gere (1990), table of fixed-end actions. Deviations: with one hinge the
    /// part of the load along an inclined member is shared 3/8 to 5/8 like the part across it; the
    /// balance of forces and moments holds, and 1/8 of that part stretches the member in excess.
    void BeamPlaneLoadVector(Array<Single>& QK, Single Px, Single Py, Single XL, Single YL,
                             Integer IG) const;

    /// Matrix that turns global into member components, (along, across, rotation) at each node.
    ///
    /// `TR` [out] re-dimensioned to (0..6, 0..6), filled from 1. `CO`, `SI` direction cosines.
    /// Source: Weaver and Gere (1990), rotation of axes.
    void PlaneTransformationMatrix(Array<Single>& TR, Single CO, Single SI) const;

    /// Stiffness of the triangle of constant strain in plane stress.
    ///
    /// `SK` [out] re-dimensioned to (0..6, 0..6), filled from 1: symmetric, (u, v) corner by
    /// corner. `x`, `Y(1..3)` corner coordinates in either sense of rotation. `e` modulus of
    /// elasticity. `T` thickness. `bnu` Poisson's ratio. `AL` area. Errors: 5 for a negative area;
    /// 9 for coordinates outside the arrays; 11 for AL = 0 or bnu = +-1.
    /// Source: Turner, Clough, Martin and Topp (1956), J. Aeronautical Sciences 23, 805-823.
    void SetStressElementStiffness(Array<Single>& SK, const Array<Single>& x,
                                   const Array<Single>& Y, Single e, Single T, Single bnu,
                                   Single AL) const;

    /// Gives every node a foundation level: one for all, or shares of the element groups.
    ///
    /// `Nk`, `NE` number of nodes and elements. `I_ElementType(1..NE)` number of corners.
    /// `I_Corner(1..NE, 1..4)` corner nodes. `TF` [in/out] level of all nodes; by groups, the share
    /// of the last element on return. `Tk` is added to every group's level. `Ngs` "J" takes levels
    /// by groups, any other text one level. `MGRU(1..NE)` group of each element. `pt(1..)` level of
    /// each group. `TFV` [out] re-dimensioned to (0..Nk). By groups each element gives each of its
    /// corners pt + Tk over its corner count, so that edge nodes of a mesh of rectangles get a half
    /// and corner nodes a quarter of the level. Errors: 6 or 11 for an element without corners; 9
    /// for an index outside the arrays or Nk < 0.
    void SetFoundationLevel(const Integer& Nk, const Integer& NE,
                            const Array<Integer>& I_ElementType, const Array<Integer>& I_Corner,
                            Single& TF, const Single& Tk, const String& Ngs,
                            const Array<Integer>& MGRU, const Array<Single>& pt,
                            Array<Single>& TFV) const;

    /// Turns node coordinates of a local system into global ones, in place.
    ///
    /// `N` number of nodes. `x`, `Y(1..N)` [in/out] coordinates. `Beta` angle in degrees from the
    /// global to the local x axis, counter-clockwise. `Xo`, `yo` global coordinates of the local
    /// origin. Errors: 5 for an angle beyond 2^51 radians; 9 when N exceeds the arrays.
    /// Deviations: the angle in radians is rounded to 32 bits.
    void GetGlobalNodeCoordinate(Integer N, Array<Single>& x, Array<Single>& Y, Single Beta,
                                 Single Xo, Single yo) const;

  private:
    Single progressStartTime_; // seconds since midnight at step 1
};

} // namespace torlib
