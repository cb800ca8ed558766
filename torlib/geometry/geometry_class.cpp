#include "torlib/geometry/geometry_class.h"

#include "torlib/frame/class_table.h"

namespace torlib {
namespace {

// clang-format off
constexpr Member members[] = {
    Method<&Geometry_Class::Querschnittswerte>(u"Querschnittswerte",
        u"Area, centroid and centroidal second moments of a polygon.",
        {u"N", u"x", u"Y", u"A", {u"Xs", Omitted}, {u"Ys", Omitted}, {u"Ix", Omitted}, {u"Iy", Omitted},
         {u"Ixy", Omitted}}),
    Method<&Geometry_Class::PointInPolygon>(u"PointInPolygon",
        u"Tells whether a point lies inside a convex polygon.", {u"NS", u"x", u"Y", u"XI", u"Yi"}),
    Method<&Geometry_Class::RepeatedNode>(u"RepeatedNode",
        u"Finds a point in a list, or appends it.", {u"NN", u"XL", u"YL", u"x", u"Y"}),
    Method<&Geometry_Class::SortingPolygonPoints>(u"SortingPolygonPoints",
        u"Sorts points counter-clockwise about their mean point.", {u"N", u"x", u"Y", u"Node"}),
    Method<&Geometry_Class::SortingLine>(u"SortingLine",
        u"Orders the points of a straight line by their distance from its start.",
        {u"NL", u"XL", u"YL", u"Xs", u"Ys", u"XE", u"YE"}),
    Method<&Geometry_Class::DefiningPoint>(u"DefiningPoint",
        u"Appends the point in which two segments meet.",
        {u"XsL1", u"YsL1", u"XeL1", u"YeL1", u"XsL2", u"YsL2", u"XeL2", u"YeL2", u"N", u"XL", u"YL"}),
    Method<&Geometry_Class::DeletingDuplicatePoints>(u"DeletingDuplicatePoints",
        u"Removes repeated points from a list.", {u"N", u"XL", u"YL"}),
    Method<&Geometry_Class::TriangularGeometry>(u"TriangularGeometry",
        u"Splits a triangle by its altitude into two right triangles.",
        {u"XI", u"Yi", u"Xj", u"Yj", u"XK", u"YK", u"Dt", u"ET", u"FT", {u"Theta", Omitted},
         {u"Jsign", Omitted}}),
    Method<&Geometry_Class::Sortingbeamelements>(u"Sortingbeamelements",
        u"Finds the mesh lines that make up each beam element.",
        {u"NME", u"IME", u"KME", u"LT1", u"LT2", u"Nk", u"XGriD", u"YGriD", u"NE", u"NT", u"Np1", u"Np2",
         u"NTy", u"NM", u"Mp1", u"Mp2", u"MTy"}),
};
// clang-format on

} // namespace

Geometry_Class& Geometry_Class::DefaultInstance() {
    static Geometry_Class instance;
    return instance;
}

const ClassInfo& Geometry_Class::Info() {
    static const ClassInfo info = DescribeClass<Geometry_Class>(
        u"Geometry_Class", u"Polygons, points, lines and triangles in the plane.", members);
    return info;
}

} // namespace torlib
