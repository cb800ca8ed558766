#include "torlib/numeric/math_class.h"

#include "torlib/frame/class_table.h"

namespace torlib {
namespace {

constexpr Member members[] = {
    Method<&Math_Class::ProductTwoUnequalMatrices>(u"ProductTwoUnequalMatrices",
                                                   u"Product of two matrices, C = A B.",
                                                   {u"L", u"M", u"N", u"A", u"B", u"C"}),
    Method<&Math_Class::ProductTwoEqualMatrices>(u"ProductTwoEqualMatrices",
                                                 u"Product of two square matrices, C = A B.",
                                                 {u"N", u"A", u"B", u"C"}),
    Method<&Math_Class::ProductUnsymmetricalMatrxByVector>(
        u"ProductUnsymmetricalMatrxByVector",
        u"Product of a rectangular matrix and a vector, U = A V.", {u"N", u"M", u"A", u"V", u"U"}),
    Method<&Math_Class::ProductMatrxByVector>(u"ProductMatrxByVector",
                                              u"Product of a square matrix and a vector, U = A V.",
                                              {u"N", u"A", u"V", u"U"}),
    Method<&Math_Class::AddVectorToVector>(u"AddVectorToVector", u"Sum of two vectors, U = W + V.",
                                           {u"N", u"W", u"V", u"U"}),
    Method<&Math_Class::ProductTwoVectorsByMatrix>(u"ProductTwoVectorsByMatrix",
                                                   u"Row sums of a matrix weighted by two vectors.",
                                                   {u"N", u"P", u"A", u"Q1", u"Q2"}),
    Method<&Math_Class::BestFitting>(u"BestFitting", u"Least-squares straight line Y = C1 + C2 x.",
                                     {u"N", u"x", u"Y", u"C1", u"C2"}),
    Method<&Math_Class::InverseMatrix>(u"InverseMatrix",
                                       u"Inverse of a square matrix without exchange of rows.",
                                       {u"N", u"A", u"B"}),
    Method<&Math_Class::CheckConvergence>(
        u"CheckConvergence",
        u"Tells whether an iteration has settled, and takes the new values over.",
        {u"N", u"E_New", u"E_Old", u"Tolerance", {u"Big", Omitted}}),
    Method<&Math_Class::NodalCoordinatesOverQuadRegion>(u"NodalCoordinatesOverQuadRegion",
                                                        u"Table of the corners of a quadrilateral.",
                                                        {u"x", u"Y", u"Coord"}),
    Method<&Math_Class::NodalCoordinatesDoubleIntegration>(
        u"NodalCoordinatesDoubleIntegration",
        u"Table of the corners of the rectangle x1..x2, y1..y2.",
        {u"x1", u"x2", u"y1", u"y2", u"Coord"}),
    Method<&Math_Class::Bilinear>(
        u"Bilinear", u"Bilinear shape functions and their derivatives at a sampling point.",
        {u"Der", u"Fun", u"Samp", u"i", u"j"}),
    Method<&Math_Class::GauseLegendreQuadrature>(
        u"GauseLegendreQuadrature", u"Points and weights of Gauss-Legendre integration over -1..1.",
        {u"Samp", u"Ngp"}),
    Method<&Math_Class::SolvingSystemLinearEquationsUnsymmetricalMatrix>(
        u"SolvingSystemLinearEquationsUnsymmetricalMatrix",
        u"Solves an unsymmetric system by elimination without pivoting.", {u"N", u"A", u"Q", u"x"}),
};

} // namespace

Math_Class& Math_Class::DefaultInstance() {
    static Math_Class instance;
    return instance;
}

const ClassInfo& Math_Class::Info() {
    static const ClassInfo info = DescribeClass<Math_Class>(
        u"Math_Class",
        u"Small dense linear algebra, convergence test, curve fit and Gauss-Legendre integration.",
        members);
    return info;
}

} // namespace torlib
