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
    Reserved(u"SortingLine"),
    Reserved(u"DefiningPoint"),
    Reserved(u"DeletingDuplicatePoints"),
    Method<&Geometry_Class::TriangularGeometry>(u"TriangularGeometry",
        u"Splits a triangle by its altitude into two right triangles.",
        {u"XI", u"Yi", u"Xj", u"Yj", u"XK", u"YK", u"Dt", u"ET", u"FT", {u"Theta", Omitted},
         {u"Jsign", Omitted}}),
    Reserved(u"Sortingbeamelements"),
};
// clang-format on

} // namespace

Geometry_Class& Geometry_Class::DefaultInstance() {
    static Geometry_Class instance;
    return instance;
}

const ClassInfo& Geometry_Class::Info() {
    static const ClassInfo info = DescribeClass<Geometry_Class>(
        u"Geometry_Class", u"Polygons, points and triangles in the plane.", members);
    return info;
}

} // namespace torlib
