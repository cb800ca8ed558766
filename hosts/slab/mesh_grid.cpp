// A rectangular grid of elements with regions cut out.

#include "hosts/slab/mesh.h"

#include <cmath>

namespace slab {

namespace {

/// More lines than any mesh within 16 bits has; keeps a slip of the pen from filling the memory.
constexpr int MostSpacings = 10000;
constexpr std::size_t MostGridNodes = 100000;

/// Coordinates of the mesh lines from {count, length} or a list of spacings and [count, spacing].
std::vector<double> ReadLines(const Entry& entry, double origin) {
    std::vector<double> lines{origin};
    if (entry.IsTable()) {
        const KeyTable uniform = entry.Table();
        uniform.Allow({"count", "length"});
        const int count = uniform.Get("count").WholeNumber(1, MostSpacings);
        const double length = uniform.Get("length").Number(Positive);
        for (int i = 1; i <= count; ++i) {
            lines.push_back(origin + length * i / count);
        }
        return lines;
    }
    if (!entry.IsList() || entry.List().empty()) {
        entry.Fail("must be a table { count = ..., length = ... } or a list of spacings");
    }
    for (const Entry& item : entry.List()) {
        const bool repeated = item.IsList();
        const int count = repeated ? item.List(2)[0].WholeNumber(1, MostSpacings) : 1;
        const double spacing = repeated ? item.List(2)[1].Number(Positive) : item.Number(Positive);
        const double start = lines.back();
        for (int i = 1; i <= count; ++i) {
            lines.push_back(start + spacing * i);
        }
        if (lines.size() > MostSpacings + 1) {
            entry.Fail("has more than " + std::to_string(MostSpacings) + " spacings");
        }
    }
    return lines;
}

double SmallestSpacing(const std::vector<double>& lines) {
    double smallest = HUGE_VAL;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        smallest = std::min(smallest, lines[i] - lines[i - 1]);
    }
    return smallest;
}

std::vector<double> ReadLinesInMetres(const KeyTable& mesh, const char* key, double origin,
                                      double unit) {
    std::vector<double> lines = ReadLines(mesh.Get(key), origin);
    for (double& line : lines) {
        line *= unit;
    }
    return lines;
}

/// The grid as cells (column, row), numbered along the side with fewer lines so that the node
/// numbers of an element stay close together.
class Grid {
  public:
    explicit Grid(const ProjectDraft& draft)
        : x_(draft.XLines),
          y_(draft.YLines),
          alongY_(y_.size() <= x_.size()),
          removed_((x_.size() - 1) * (y_.size() - 1), false) {}

    void Remove(const Region& region) {
        const auto [left, right] = CellsBetween(x_, region.Low.x, region.High.x);
        const auto [below, above] = CellsBetween(y_, region.Low.y, region.High.y);
        for (std::size_t i = left; i < right; ++i) {
            for (std::size_t j = below; j < above; ++j) {
                removed_[alongY_ ? i * (y_.size() - 1) + j : j * (x_.size() - 1) + i] = true;
            }
        }
    }

    void Build(bool triangles, Model& model) const {
        std::vector<int> number(x_.size() * y_.size(), 0);
        NumberNodes(number, model);
        for (std::size_t cell = 0; cell < removed_.size(); ++cell) {
            if (removed_[cell]) {
                continue;
            }
            const std::array<std::size_t, 4> corners = CornersOf(cell);
            const std::array<int, 4> n{number[corners[0]], number[corners[1]], number[corners[2]],
                                       number[corners[3]]};
            if (triangles) {
                model.Elements.push_back({3, {n[0], n[1], n[2], 0}, 0});
                model.Elements.push_back({3, {n[0], n[2], n[3], 0}, 0});
            } else {
                model.Elements.push_back({4, n, 0});
            }
        }
    }

  private:
    /// The cells, from the first to behind the last, whose centres lie between two coordinates.
    static std::pair<std::size_t, std::size_t> CellsBetween(const std::vector<double>& lines,
                                                            double low, double high) {
        const auto centre = [&lines](std::size_t i) { return (lines[i] + lines[i + 1]) / 2; };
        std::size_t first = 0;
        while (first + 1 < lines.size() && centre(first) <= low) {
            ++first;
        }
        std::size_t last = first;
        while (last + 1 < lines.size() && centre(last) < high) {
            ++last;
        }
        return {first, last};
    }

    /// Cells are counted along the same side as nodes.
    std::pair<std::size_t, std::size_t> ColumnAndRow(std::size_t cell) const {
        const std::size_t inner = alongY_ ? y_.size() - 1 : x_.size() - 1;
        const std::size_t first = cell / inner;
        const std::size_t second = cell % inner;
        return alongY_ ? std::pair(first, second) : std::pair(second, first);
    }

    std::size_t Place(std::size_t i, std::size_t j) const {
        return alongY_ ? i * y_.size() + j : j * x_.size() + i;
    }

    std::array<std::size_t, 4> CornersOf(std::size_t cell) const {
        const auto [i, j] = ColumnAndRow(cell);
        return {Place(i, j), Place(i + 1, j), Place(i + 1, j + 1), Place(i, j + 1)};
    }

    /// Numbers the nodes that have an element, from 1, and adds them to the model.
    void NumberNodes(std::vector<int>& number, Model& model) const {
        for (std::size_t cell = 0; cell < removed_.size(); ++cell) {
            if (!removed_[cell]) {
                for (const std::size_t corner : CornersOf(cell)) {
                    number[corner] = 1;
                }
            }
        }
        const std::size_t inner = alongY_ ? y_.size() : x_.size();
        for (std::size_t place = 0; place < number.size(); ++place) {
            if (number[place] == 0) {
                continue;
            }
            const std::size_t first = place / inner;
            const std::size_t second = place % inner;
            model.Nodes.push_back(alongY_ ? Point{x_[first], y_[second]}
                                          : Point{x_[second], y_[first]});
            number[place] = static_cast<int>(model.Nodes.size());
        }
    }

    const std::vector<double>& x_;
    const std::vector<double>& y_;
    bool alongY_;
    std::vector<bool> removed_;
};

} // namespace

void ReadGrid(const KeyTable& mesh, ProjectDraft& draft) {
    const Point origin = mesh.Has("origin") ? mesh.Get("origin").Pair() : Point{};
    draft.XLines = ReadLinesInMetres(mesh, "x", origin.x, draft.Scale.Length);
    draft.YLines = ReadLinesInMetres(mesh, "y", origin.y, draft.Scale.Length);
    const std::size_t nodes = draft.XLines.size() * draft.YLines.size();
    if (nodes > MostGridNodes) {
        mesh.Fail("x and y give a grid of " + std::to_string(nodes) + " nodes (allowed: up to " +
                  std::to_string(MostGridNodes) + " before openings are cut out)");
    }
    draft.Tolerance =
        SnappingShare * std::min(SmallestSpacing(draft.XLines), SmallestSpacing(draft.YLines));
    Grid grid(draft);
    for (const KeyTable& opening : mesh.Tables("openings")) {
        opening.Allow({"x", "y"});
        grid.Remove(ReadMeshRegion(opening, draft));
    }
    const bool triangles = mesh.Has("triangles") && mesh.Get("triangles").Flag();
    grid.Build(triangles, draft.Model);
    if (draft.Model.Elements.empty()) {
        mesh.Get("openings").Fail("leave nothing of the slab");
    }
}

} // namespace slab
