// Conjugate gradients on the matrix in double precision, preconditioned with the 32-bit factor.

#include "hosts/slab/digits.h"

#include <algorithm>
#include <cmath>

namespace slab {

namespace {

constexpr int most_steps = 150; // of one pass
constexpr int most_passes = 4;  // each starts from a freshly formed residual

struct Workspace {
    Vector residual, z, direction, product;
};

/// r = b - K u; returns |r|.
double FormResidual(const HeldSystem& system, const Vector& b, const Vector& u, Vector& r) {
    system.Multiply(u, r);
    for (std::size_t i = 0; i < r.size(); ++i) {
        r[i] = b[i] - r[i];
    }
    return Norm(r);
}

/// One pass until the residual is below `limit`; returns the steps taken.
int Pass(const HeldSystem& system, const BandFactor& factor, double limit, Vector& u,
         Workspace& work, const std::function<void()>& poll) {
    double old = 0;
    for (int step = 0; step < most_steps; ++step) {
        if (Norm(work.residual) <= limit) {
            return step;
        }
        poll();
        work.z = work.residual;
        factor.Precondition(work.z);
        const double rz = Dot(work.residual, work.z);
        if (step == 0) {
            work.direction = work.z;
        } else {
            Scale(work.direction, rz / old);
            AddTo(work.direction, 1, work.z);
        }
        old = rz;
        system.Multiply(work.direction, work.product);
        const double energy = Dot(work.direction, work.product);
        if (!(energy > 0) || !(rz > 0)) {
            return step;
        }
        AddTo(u, rz / energy, work.direction);
        AddTo(work.residual, -rz / energy, work.product);
    }
    return most_steps;
}

} // namespace

void HeldSystem::Multiply(const Vector& x, Vector& y) const {
    Stiffness.Multiply(x, y);
    for (std::size_t i = 0; i < y.size(); ++i) {
        y[i] = Held[i] ? 0 : y[i] + Springs[i] * x[i];
    }
}

Correction CorrectDigits(const HeldSystem& system, const BandFactor& factor, const Vector& b,
                         Vector& u, double goal, const std::function<void()>& poll) {
    Correction report;
    const double size = Norm(b);
    if (size == 0) {
        u.assign(u.size(), 0);
        return report;
    }
    Workspace work;
    double residual = FormResidual(system, b, u, work.residual);
    report.ResidualBefore = residual / size;
    Vector best = u;
    for (int pass = 0; pass < most_passes && residual > goal * size; ++pass) {
        report.Steps += Pass(system, factor, goal * size / 2, u, work, poll);
        const double reached = FormResidual(system, b, u, work.residual);
        if (!(reached < residual)) {
            u = best;
            break;
        }
        const bool stagnant = reached > residual / 4;
        residual = reached;
        best = u;
        if (stagnant) {
            break;
        }
    }
    report.ResidualAfter = residual / size;
    return report;
}

} // namespace slab
