#pragma once
// The analysis of a slab model, from assembly to results.

#include "hosts/slab/interrupt.h"
#include "hosts/slab/model.h"
#include "hosts/slab/results.h"
#include "hosts/slab/run_window.h"

#include <stdexcept>

namespace slab {

struct AnalysisOptions {
    bool Plain = false; ///< keep the 32-bit solution, without the correction of digits
};

/// The analysis cannot give a result; the message says why and what to do.
class AnalysisFailure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Analyses a model. Throws AnalysisFailure (a mechanism names node and direction) or Cancelled.
Results Analyse(const Model& model, const AnalysisOptions& options, RunWindow& window);

} // namespace slab
