// Plane frames and wall plates as systems of the program.

#include "hosts/slab/plane/plane_analysis.h"
#include "hosts/slab/plane/plane_output.h"
#include "hosts/slab/plane/plane_reader.h"
#include "hosts/slab/project_file.h"
#include "hosts/slab/system.h"

namespace slab {

namespace {

class PlaneOutcome : public Outcome {
  public:
    explicit PlaneOutcome(PlaneResults results) : results_(std::move(results)) {}

    std::string Summary() const override { return PlaneSummary(results_); }
    std::string Report() const override { return PlaneReport(results_); }
    std::string Json() const override { return PlaneJson(results_); }
    std::string Picture() const override { return results_.Picture; }

  private:
    PlaneResults results_;
};

class FrameProject : public Project {
  public:
    explicit FrameProject(FrameModel frame) : frame_(std::move(frame)) {}

    std::string Size() const override {
        return std::to_string(frame_.Base.Nodes.size()) + " nodes, " +
               std::to_string(frame_.Members.size()) + " members";
    }
    std::unique_ptr<Outcome> Analyse(const AnalysisOptions& options,
                                     RunWindow& window) const override {
        return std::make_unique<PlaneOutcome>(AnalyseFrame(frame_, options, window));
    }

  private:
    FrameModel frame_;
};

class WallProject : public Project {
  public:
    explicit WallProject(Model wall) : wall_(std::move(wall)) {}

    std::string Size() const override {
        return std::to_string(wall_.Nodes.size()) + " nodes, " +
               std::to_string(wall_.Elements.size()) + " triangles";
    }
    std::unique_ptr<Outcome> Analyse(const AnalysisOptions& options,
                                     RunWindow& window) const override {
        return std::make_unique<PlaneOutcome>(AnalyseWall(wall_, options, window));
    }

  private:
    Model wall_;
};

} // namespace

std::unique_ptr<Project> OpenFrame(const ProjectFile& file) {
    return std::make_unique<FrameProject>(ReadFrameProject(file));
}

std::unique_ptr<Project> OpenWall(const ProjectFile& file) {
    return std::make_unique<WallProject>(ReadWallProject(file));
}

} // namespace slab
