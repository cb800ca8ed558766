#pragma once
// The mesh of a project: a rectangular grid with regions cut out, or listed nodes and elements.
// Files in reading order: mesh.cpp (choice, regions, selections), mesh_grid.cpp, mesh_listed.cpp,
// mesh_checks.cpp.

#include "hosts/slab/project_draft.h"

namespace slab {

/// Reads the table [mesh] into nodes, elements and symmetry.
void ReadMesh(const KeyTable& root, ProjectDraft& draft);

/// Reads the key symmetry, which may be missing.
torlib::SymmetricCase ReadSymmetry(const KeyTable& table);

/// A rectangle x = [from, to], y = [from, to], in metres.
Region ReadRegion(const KeyTable& table, const ProjectDraft& draft);

/// The same, following the mesh lines of a grid; refused when it runs through elements.
Region ReadMeshRegion(const KeyTable& table, const ProjectDraft& draft);

/// The indices of the elements that `x` and `y` or `elements` of a table select; all of them when
/// the table has none of the keys. A rectangle takes the elements whose centres lie in it and has
/// to follow the mesh lines of a grid.
std::vector<std::size_t> SelectedElements(const KeyTable& table, const ProjectDraft& draft);

std::vector<Side> SidesOf(const Element& element);

/// Sides that belong to one element only: the outline of the slab and of its openings.
std::vector<Side> BoundarySides(const Model& model);

Point CentreOf(const Element& element, const std::vector<Point>& nodes);
double Distance(const Point& a, const Point& b);
/// Smallest coordinates and largest coordinates of all nodes.
std::pair<Point, Point> Extent(const std::vector<Point>& nodes);
/// "(2.5, 4)" in the length unit of the project.
std::string PlaceText(const Point& place, const UnitScale& scale);

// The two kinds of mesh, and what both have to satisfy.
void ReadGrid(const KeyTable& mesh, ProjectDraft& draft);
void ReadListedMesh(const KeyTable& mesh, ProjectDraft& draft);
/// Nodes that coincide, elements that overlap, and nodes inside a side of an element.
void CheckListedTopology(const KeyTable& mesh, const ProjectDraft& draft);
/// Three times the largest difference of node numbers in an element plus one.
int HalfBandWidth(const Model& model);
/// Whether a point lies on the line from a to b, away from its ends.
bool LiesInside(const Point& p, const Point& a, const Point& b, double tolerance);
/// Refuses a node too far from the origin for 32 bits.
void CheckFromOrigin(const Entry& entry, const Point& place, const ProjectDraft& draft);
/// Extent, shape of the elements and number of equations.
void CheckMesh(const KeyTable& mesh, const ProjectDraft& draft);

} // namespace slab
