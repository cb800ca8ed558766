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
    Reserved(u"NodalCoordinatesOverQuadRegion"),
    Reserved(u"NodalCoordinatesDoubleIntegration"),
    Reserved(u"Bilinear"),
    Reserved(u"GauseLegendreQuadrature"),
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
        u"Math_Class", u"Small dense linear algebra, convergence test and curve fit.", members);
    return info;
}

} // namespace torlib
