#pragma once
// The analyses of plane frames and wall plates, from assembly to results. Files in reading order:
// plane_mechanism.cpp, plane_system.cpp, plane_findings.cpp (what both give), frame_analysis.cpp,
// wall_analysis.cpp.

#include "hosts/slab/plane/plane_model.h"
#include "hosts/slab/plane/plane_results.h"
#include "hosts/slab/plane/plane_system.h"

namespace slab {

/// Throws AnalysisFailure (a mechanism names node and direction) or Cancelled.
PlaneResults AnalyseFrame(const FrameModel& frame, const AnalysisOptions& options,
                          RunWindow& window);
PlaneResults AnalyseWall(const Model& wall, const AnalysisOptions& options, RunWindow& window);

/// Forces at a section of a member: N tension positive; V = dM/dx; M positive with tension on the
/// right-hand side of the way from start to end.
struct SectionForces {
    double N = 0;
    double V = 0;
    double M = 0;
};

/// The forces along a member under its line loads.
struct MemberForces {
    SectionForces Start;
    SectionForces End;
    double Across = 0; ///< load to the left of the way from start to end, kN/m
    double Length = 0;

    SectionForces At(double x) const;
    /// Where the moment has its extreme: within the member, else at the end with the larger size.
    double PlaceOfExtreme() const;
};

// What both systems share.

/// The value, or 0 where it is only what rounding leaves beside values of this size.
double Tidied(double value, double size);

/// The restraints of model, symmetry and idle rotations (node numbers).
RestraintList PlaneRestraints(const Model& model, const std::vector<int>& idle, bool frame);

/// Head, displacements, reactions, balance, digits and warnings.
PlaneResults CommonFindings(const Model& model, const PlaneSystem& system, const Vector& u,
                            bool frame, const AnalysisOptions& options);

/// Extremes over some columns of a table whose first column is the number of the row.
PlaneExtreme ExtremeOf(const ResultTable& table, const std::string& of, const std::string& name,
                       const std::vector<std::string>& keys);

// The pictures.
std::string FramePicture(const FrameModel& frame, const Vector& u,
                         const std::vector<MemberForces>& forces);
std::string WallPicture(const Model& wall, const Vector& u);

} // namespace slab
