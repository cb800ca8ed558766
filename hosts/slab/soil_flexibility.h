#pragma once
// The flexibility matrix of the soil surface: settlement at every node from a unit force on the
// contact area of every node, the mirror images of a half or quarter model included.

#include "hosts/slab/block_matrix.h"
#include "hosts/slab/contact_area.h"
#include "hosts/slab/model.h"
#include "hosts/slab/run_window.h"

#include <memory>
#include <utility>

namespace slab {

class SoilFlexibility {
  public:
    /// Throws Cancelled, or AnalysisFailure when the matrix does not fit into memory.
    SoilFlexibility(const Model& model, const std::vector<ContactArea>& areas, RunWindow& window);

    /// A matrix that stands already, nodes x nodes, row by row.
    SoilFlexibility(std::size_t nodes, std::unique_ptr<float[]> rows)
        : nodes_(nodes), row_(std::move(rows)) {}

    /// Settlements under contact forces, m and kN.
    Vector Settlements(const Vector& forces) const;
    double Coefficient(int node, int loaded) const;
    /// Coefficients that were computed, not taken from an equal pair of nodes.
    long Computed() const { return computed_; }

  private:
    std::size_t nodes_ = 0;
    std::unique_ptr<float[]> row_; // nodes_ x nodes_
    long computed_ = 0;
};

} // namespace slab
