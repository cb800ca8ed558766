#pragma once
// Reactions, balance of forces, and warnings with numbers where a result is not to be trusted.

#include "hosts/slab/interaction.h"

namespace slab {

/// Reactions of supports and node springs, and the vertical balance; the nodes must be filled.
void FillReactions(const Model& model, const SlabSystem& system, const ContactState& state,
                   Results& results);

/// Appends the warnings.
void FillWarnings(const Model& model, const AnalysisOptions& options, const SlabSystem& system,
                  const ContactState& state, Results& results);

} // namespace slab
