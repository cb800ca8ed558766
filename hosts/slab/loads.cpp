#include "hosts/slab/loads.h"

#include "hosts/slab/limits.h"
#include "hosts/slab/shape_functions.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace slab {

namespace {

/// Gauss-Legendre points on 0..1; three integrate terms up to the fifth power without error.
constexpr struct {
    double Place;
    double Weight;
} gauss[] = {{0.11270166537925831, 5.0 / 18}, {0.5, 8.0 / 18}, {0.88729833462074169, 5.0 / 18}};

double Cross(const Point& a, const Point& b, const Point& p) {
    return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
}

Point Between(const Point& a, const Point& b, double t) {
    return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)};
}

/// Distance of a point from the outline of an element, positive inside.
double Depth(const Element& element, const std::vector<Point>& nodes, const Point& p) {
    double depth = HUGE_VAL;
    for (const auto& [from, to] : SidesOf(element)) {
        const Point& a = nodes[from - 1];
        const Point& b = nodes[to - 1];
        depth = std::min(depth, Cross(a, b, p) / slab::Distance(a, b));
    }
    return depth;
}

/// Adds a force and moments at a point of an element.
void AddAt(Model& model, const Element& element, const Point& at, double force, double momentX = 0,
           double momentY = 0) {
    const ShapeValues shape = ShapeFunctions(element, model.Nodes, at);
    for (int i = 0; i < 3 * element.Corners; ++i) {
        const int node = element.Node[i / 3];
        model.NodalLoads[3 * (node - 1) + i % 3] +=
            force * shape.W[i] + momentX * shape.Wx[i] + momentY * shape.Wy[i];
    }
}

/// The part of a convex polygon to the left of a line (Sutherland and Hodgman, 1974).
std::vector<Point> ClippedLeft(const std::vector<Point>& polygon, const Point& a, const Point& b) {
    std::vector<Point> left;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point& p = polygon[i];
        const Point& q = polygon[(i + 1) % polygon.size()];
        const double dp = Cross(a, b, p);
        const double dq = Cross(a, b, q);
        if (dp >= 0) {
            left.push_back(p);
        }
        if ((dp > 0 && dq < 0) || (dp < 0 && dq > 0)) {
            left.push_back(Between(p, q, dp / (dp - dq)));
        }
    }
    return left;
}

/// Adds a pressure on a triangle of an element, by Gauss points collapsed into its first corner.
double AddOnTriangle(Model& model, const Element& element, const std::array<Point, 3>& corners,
                     double pressure) {
    const double area2 = Cross(corners[0], corners[1], corners[2]);
    for (const auto& u : gauss) {
        for (const auto& v : gauss) {
            const Point far = Between(corners[1], corners[2], v.Place);
            const double share = u.Weight * v.Weight * u.Place * area2;
            AddAt(model, element, Between(corners[0], far, u.Place), pressure * share);
        }
    }
    return area2 / 2;
}

/// The stretch of the segment from..to, as parameters 0..1, that runs in an element or closer to it
/// than the tolerance; empty when first >= second.
std::pair<double, double> StretchIn(const Element& element, const std::vector<Point>& nodes,
                                    const Point& from, const Point& to, double tolerance) {
    double first = 0;
    double last = 1;
    for (const auto& [start, end] : SidesOf(element)) {
        const Point& a = nodes[start - 1];
        const Point& b = nodes[end - 1];
        const double length = slab::Distance(a, b);
        const double depth0 = Cross(a, b, from) / length + tolerance;
        const double depth1 = Cross(a, b, to) / length + tolerance;
        if (depth0 < 0 && depth1 < 0) {
            return {1, 0};
        }
        if (depth0 < 0) {
            first = std::max(first, depth0 / (depth0 - depth1));
        } else if (depth1 < 0) {
            last = std::min(last, depth0 / (depth0 - depth1));
        }
    }
    return {first, last};
}

struct Stretch {
    const Element* Owner;
    double First;
    double Last;
};

std::vector<Stretch> StretchesOf(const ProjectDraft& draft, const Point& from, const Point& to) {
    std::vector<Stretch> stretches;
    for (const std::size_t i : ElementSearch(draft).Along(from, to, draft.Tolerance)) {
        const Element& element = draft.Model.Elements[i];
        const auto [first, last] = StretchIn(element, draft.Model.Nodes, from, to, draft.Tolerance);
        if (first < last) {
            stretches.push_back({&element, first, last});
        }
    }
    return stretches;
}

std::vector<double> BreaksOf(const std::vector<Stretch>& stretches) {
    std::vector<double> breaks;
    for (const Stretch& stretch : stretches) {
        breaks.push_back(stretch.First);
        breaks.push_back(stretch.Last);
    }
    std::sort(breaks.begin(), breaks.end());
    breaks.erase(std::unique(breaks.begin(), breaks.end()), breaks.end());
    return breaks;
}

/// Follows a line from break to break with the stretches that run there.
class Sweep {
  public:
    explicit Sweep(const std::vector<Stretch>& stretches) : stretches_(stretches) {
        for (std::size_t i = 0; i < stretches.size(); ++i) {
            byFirst_.push_back(i);
        }
        std::sort(byFirst_.begin(), byFirst_.end(), [&stretches](std::size_t a, std::size_t b) {
            return stretches[a].First < stretches[b].First;
        });
    }

    /// The indices, ascending, of the stretches that hold start..end; start never goes back.
    const std::set<std::size_t>& Over(double start, double end) {
        for (; next_ < byFirst_.size() && stretches_[byFirst_[next_]].First <= start; ++next_) {
            over_.insert(byFirst_[next_]);
        }
        std::erase_if(over_, [&](std::size_t i) { return stretches_[i].Last < end; });
        return over_;
    }

  private:
    const std::vector<Stretch>& stretches_;
    std::vector<std::size_t> byFirst_;
    std::size_t next_ = 0;
    std::set<std::size_t> over_;
};

/// The elements that are loaded by an entry of loads.uniform.
std::vector<std::size_t> LoadedElements(const KeyTable& load, const ProjectDraft& draft) {
    if (!load.Has("group")) {
        return SelectedElements(load, draft);
    }
    if (load.Has("x") || load.Has("y") || load.Has("elements")) {
        load.Fail("either group, or x and y, or elements may be given");
    }
    const int wanted = static_cast<int>(ChoiceByName(load.Get("group"), draft.Model.Groups));
    std::vector<std::size_t> chosen;
    for (std::size_t i = 0; i < draft.Model.Elements.size(); ++i) {
        if (draft.Model.Elements[i].Group == wanted) {
            chosen.push_back(i);
        }
    }
    return chosen;
}

void ReadUniform(const KeyTable& load, ProjectDraft& draft) {
    load.Allow({"pressure", "group", "x", "y", "elements"});
    const double pressure = Within(load.Get("pressure"), Any, draft.Scale.Pressure, LargestLoad);
    for (const std::size_t i : LoadedElements(load, draft)) {
        draft.Model.Pressure[i] += pressure;
    }
}

void ReadPatch(const KeyTable& load, ProjectDraft& draft) {
    load.Allow({"pressure", "force", "x", "y"});
    const Region region = ReadRegion(load, draft);
    const double width = region.High.x - region.Low.x;
    const double height = region.High.y - region.Low.y;
    const double pressure =
        load.OneOf({"pressure", "force"}) == "force"
            ? Within(load.Get("force"), Any, draft.Scale.Force, LargestLoad) / (width * height)
            : Within(load.Get("pressure"), Any, draft.Scale.Pressure, LargestLoad);
    const double missing = width * height - AddPatchLoad(draft, region, pressure);
    if (missing > std::min(2 * (width + height) * draft.Tolerance, 0.5 * width * height)) {
        load.Fail(ShortNumber(100 * missing / (width * height)) +
                  " % of the rectangle lies outside the slab (allowed: all of it on the slab)");
    }
}

void ReadPoint(const KeyTable& load, ProjectDraft& draft) {
    load.Allow({"at", "force", "moment_wx", "moment_wy"});
    const Point at = load.Get("at").Pair();
    const double unit = draft.Scale.Length;
    const double force = WithinOrZero(load, "force", Any, draft.Scale.Force, LargestLoad);
    const double momentX = WithinOrZero(load, "moment_wx", Any, draft.Scale.Moment, LargestLoad);
    const double momentY = WithinOrZero(load, "moment_wy", Any, draft.Scale.Moment, LargestLoad);
    if (!load.Has("force") && !load.Has("moment_wx") && !load.Has("moment_wy")) {
        load.Fail("one of these keys is needed: force, moment_wx, moment_wy");
    }
    if (!AddPointLoad(draft, {at.x * unit, at.y * unit}, force, momentX, momentY)) {
        load.Get("at").Fail("lies outside the slab (allowed: points on the slab)");
    }
}

void ReadLine(const KeyTable& load, ProjectDraft& draft) {
    load.Allow({"from", "to", "force"});
    const double unit = draft.Scale.Length;
    const Point first = load.Get("from").Pair();
    const Point last = load.Get("to").Pair();
    const Point from{first.x * unit, first.y * unit};
    const Point to{last.x * unit, last.y * unit};
    const double length = slab::Distance(from, to);
    if (length <= draft.Tolerance) {
        load.Get("to").Fail("is the same point as from");
    }
    const double loaded = AddLineLoad(
        draft, from, to, Within(load.Get("force"), Any, draft.Scale.LineLoad, LargestLoad));
    if (length - loaded > std::min(2 * draft.Tolerance, 0.5 * length)) {
        load.Fail(ShortNumber((length - loaded) / unit) + ' ' + draft.Scale.Units.LengthName +
                  " of the line lie outside the slab (allowed: all of it on the slab)");
    }
}

} // namespace

bool AddPointLoad(ProjectDraft& draft, const Point& at, double force, double momentX,
                  double momentY) {
    std::vector<const Element*> owners;
    for (const std::size_t i : ElementSearch(draft).Meeting({at, at})) {
        const Element& element = draft.Model.Elements[i];
        if (Depth(element, draft.Model.Nodes, at) >= -draft.Tolerance) {
            owners.push_back(&element);
        }
    }
    // Slopes differ a little from element to element, so neighbours share what stands between them.
    const double share = owners.empty() ? 0 : 1.0 / static_cast<double>(owners.size());
    for (const Element* owner : owners) {
        AddAt(draft.Model, *owner, at, share * force, share * momentX, share * momentY);
    }
    return !owners.empty();
}

double AddPatchLoad(ProjectDraft& draft, const Region& region, double pressure) {
    double area = 0;
    for (const std::size_t e : ElementSearch(draft).Meeting(region)) {
        const Element& element = draft.Model.Elements[e];
        std::vector<Point> part{
            region.Low, {region.High.x, region.Low.y}, region.High, {region.Low.x, region.High.y}};
        for (const auto& [from, to] : SidesOf(element)) {
            part = ClippedLeft(part, draft.Model.Nodes[from - 1], draft.Model.Nodes[to - 1]);
        }
        for (std::size_t i = 2; i < part.size(); ++i) {
            area += AddOnTriangle(draft.Model, element, {part[0], part[i - 1], part[i]}, pressure);
        }
    }
    return area;
}

double AddLineLoad(ProjectDraft& draft, const Point& from, const Point& to, double perLength) {
    const std::vector<Stretch> stretches = StretchesOf(draft, from, to);
    const std::vector<double> breaks = BreaksOf(stretches);
    const double length = slab::Distance(from, to);
    Sweep sweep(stretches);
    double loaded = 0;
    for (std::size_t i = 1; i < breaks.size(); ++i) {
        const double start = breaks[i - 1];
        const double end = breaks[i];
        const std::set<std::size_t>& owners = sweep.Over(start, end);
        for (const std::size_t owner : owners) {
            const double force =
                perLength * (end - start) * length / static_cast<double>(owners.size());
            for (const auto& u : gauss) {
                AddAt(draft.Model, *stretches[owner].Owner,
                      Between(from, to, start + u.Place * (end - start)), force * u.Weight);
            }
        }
        loaded += owners.empty() ? 0 : (end - start) * length;
    }
    return loaded;
}

void ReadLoads(const KeyTable& root, ProjectDraft& draft) {
    Model& model = draft.Model;
    model.Pressure.assign(model.Elements.size(), 0);
    model.NodalLoads.assign(3 * model.Nodes.size(), 0);
    for (std::size_t i = 0; i < model.Elements.size(); ++i) {
        const auto group = static_cast<std::size_t>(model.Elements[i].Group);
        model.Pressure[i] = draft.UnitWeights[group] * model.Groups[group].Thickness;
    }
    if (!root.Has("loads")) {
        return;
    }
    const KeyTable loads = root.Table("loads");
    loads.Allow({"uniform", "patch", "point", "line"});
    const struct {
        const char* Key;
        void (*Read)(const KeyTable&, ProjectDraft&);
    } kinds[] = {
        {"uniform", ReadUniform}, {"patch", ReadPatch}, {"point", ReadPoint}, {"line", ReadLine}};
    for (const auto& [key, read] : kinds) {
        for (const KeyTable& load : loads.Tables(key)) {
            read(load, draft);
        }
    }
}

} // namespace slab
