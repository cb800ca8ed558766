// The slab as one of the systems of the program.

#include "hosts/slab/output.h"
#include "hosts/slab/project.h"
#include "hosts/slab/system.h"

namespace slab {

namespace {

class SlabOutcome : public Outcome {
  public:
    SlabOutcome(const Model& model, Results results)
        : model_(model), results_(std::move(results)) {}

    std::string Summary() const override { return SummaryText(model_, results_); }
    std::string Report() const override { return ReportText(model_, results_); }
    std::string Json() const override { return JsonText(model_, results_); }
    std::string Picture() const override { return PictureText(model_, results_); }
    std::string NotConverged() const override {
        return results_.Converged
                   ? ""
                   : "the iteration between slab and soil did not converge; see the warnings";
    }

  private:
    const Model& model_;
    Results results_;
};

class SlabProject : public Project {
  public:
    explicit SlabProject(Model model) : model_(std::move(model)) {}

    std::string Size() const override {
        return std::to_string(model_.Nodes.size()) + " nodes, " +
               std::to_string(model_.Elements.size()) + " elements";
    }

    std::unique_ptr<Outcome> Analyse(const AnalysisOptions& options,
                                     RunWindow& window) const override {
        return std::make_unique<SlabOutcome>(model_, slab::Analyse(model_, options, window));
    }

  private:
    Model model_;
};

} // namespace

std::unique_ptr<Project> OpenSlab(const ProjectFile& file) {
    return std::make_unique<SlabProject>(ReadSlabProject(file));
}

} // namespace slab
