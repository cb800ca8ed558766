// Nodes and members of a plane frame.

#include "hosts/slab/mesh.h"
#include "hosts/slab/plane/frame_elements.h"
#include "hosts/slab/plane/plane_reader.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace slab {

namespace {

/// The library takes points closer than a millimetre for one.
constexpr double SamePlace = 0.001;
constexpr double ShortestMember = 0.01;
constexpr int MostNodes = 10000;
constexpr int MostRows = 32766;

class MemberReader {
  public:
    MemberReader(const KeyTable& root, ProjectDraft& draft, FrameModel& frame)
        : root_(root), draft_(draft), frame_(frame) {}

    void Read() {
        ReadNodes();
        const std::vector<KeyTable> members = root_.Tables("members");
        if (members.empty()) {
            root_.Fail("a frame needs at least one of [[members]]");
        }
        for (const KeyTable& member : members) {
            ReadMember(member);
        }
        RefuseUnusedNodes();
        double shortest = HUGE_VAL;
        for (std::size_t m = 0; m < members.size(); ++m) {
            shortest = std::min(shortest, LengthOf(m));
        }
        draft_.Tolerance = SnappingShare * shortest;
        for (std::size_t m = 0; m < members.size(); ++m) {
            RefuseNodesInside(members[m], m);
        }
        CheckRows();
    }

  private:
    std::vector<Point>& Nodes() { return draft_.Model.Nodes; }

    double LengthOf(std::size_t m) const {
        const Element& element = draft_.Model.Elements[m];
        return Distance(draft_.Model.Nodes[static_cast<std::size_t>(element.Node[0] - 1)],
                        draft_.Model.Nodes[static_cast<std::size_t>(element.Node[1] - 1)]);
    }

    Point PlaceOf(const Entry& entry) const {
        const Point pair = entry.Pair();
        return {pair.x * draft_.Scale.Length, pair.y * draft_.Scale.Length};
    }

    /// The node at a place, from 1, or 0.
    int Find(const Point& place) const {
        int found = 0;
        const auto [column, row] = CellOf(place);
        for (const long long i : {column - 1, column, column + 1}) {
            for (const long long j : {row - 1, row, row + 1}) {
                const auto [first, last] = cells_.equal_range({i, j});
                for (auto at = first; at != last; ++at) {
                    const Point& node =
                        draft_.Model.Nodes[static_cast<std::size_t>(at->second - 1)];
                    const bool earlier = found == 0 || at->second < found;
                    found = earlier && Distance(node, place) < SamePlace ? at->second : found;
                }
            }
        }
        return found;
    }

    /// Of a raster in which nodes at the same place lie in the same cell or in neighbours.
    static std::pair<long long, long long> CellOf(const Point& place) {
        return {std::llround(place.x / SamePlace), std::llround(place.y / SamePlace)};
    }

    void ReadNodes() {
        if (!root_.Has("frame")) {
            return;
        }
        const KeyTable table = root_.Table("frame");
        table.Allow({"nodes", "symmetry"});
        draft_.Model.Symmetry = ReadSymmetry(table);
        if (!table.Has("nodes")) {
            return;
        }
        for (const Entry& entry : table.Get("nodes").List()) {
            const Point place = PlaceOf(entry);
            if (const int known = Find(place)) {
                entry.Fail("lies at the place of node " + std::to_string(known));
            }
            AddNode(entry, place);
        }
        listed_ = true;
    }

    int AddNode(const Entry& entry, const Point& place) {
        if (Nodes().size() == MostNodes) {
            entry.Fail("is one node too many (allowed: up to " + std::to_string(MostNodes) + ")");
        }
        CheckFromOrigin(entry, place, draft_);
        Nodes().push_back(place);
        cells_.emplace(CellOf(place), static_cast<int>(Nodes().size()));
        return static_cast<int>(Nodes().size());
    }

    /// A node number, or a place: that of a listed node, or when none are listed a new one.
    int ReadEnd(const Entry& entry) {
        if (!entry.IsList()) {
            if (!listed_) {
                entry.Fail("must be a place [x, y], since [frame] lists no nodes");
            }
            return entry.WholeNumber(1, static_cast<int>(Nodes().size()));
        }
        const Point place = PlaceOf(entry);
        const int known = Find(place);
        if (known == 0 && listed_) {
            entry.Fail("is no node of frame.nodes");
        }
        return known != 0 ? known : AddNode(entry, place);
    }

    void ReadMember(const KeyTable& table) {
        table.Allow({"name", "from", "to", "section", "hinge"});
        Element element{2, {}, 0};
        element.Node[0] = ReadEnd(table.Get("from"));
        element.Node[1] = ReadEnd(table.Get("to"));
        draft_.Model.Elements.push_back(element);
        const std::size_t index = draft_.Model.Elements.size() - 1;
        if (LengthOf(index) < ShortestMember) {
            table.Get("to").Fail("is " + ShortNumber(LengthOf(index) / draft_.Scale.Length) + ' ' +
                                 draft_.Scale.Units.LengthName +
                                 " from the start (allowed: at "
                                 "least " +
                                 ShortNumber(ShortestMember / draft_.Scale.Length) + ")");
        }
        const auto [known, isNew] =
            owner_.try_emplace(std::minmax(element.Node[0], element.Node[1]), index + 1);
        if (!isNew) {
            table.Fail("joins the same nodes as member " + std::to_string(known->second));
        }
        Member member;
        member.Name = table.Has("name") ? table.Get("name").Text() : "";
        member.Section = ChoiceByName(table.Get("section"), frame_.Sections);
        if (const auto hinge = table.Find("hinge")) {
            member.Hinges = static_cast<torlib::FrameHingedType>(
                hinge->Choice({"none", "start", "end", "both"}));
        }
        frame_.Members.push_back(member);
    }

    void RefuseUnusedNodes() {
        std::vector<char> used(Nodes().size(), 0);
        for (const Element& element : draft_.Model.Elements) {
            used[static_cast<std::size_t>(element.Node[0] - 1)] = 1;
            used[static_cast<std::size_t>(element.Node[1] - 1)] = 1;
        }
        const auto unused = std::find(used.begin(), used.end(), 0);
        if (unused != used.end()) {
            root_.Table("frame").Get("nodes").Fail(
                "node " + std::to_string(unused - used.begin() + 1) +
                " belongs to no member; remove it or add its members");
        }
    }

    void RefuseNodesInside(const KeyTable& table, std::size_t m) {
        const Element& element = draft_.Model.Elements[m];
        const Point& a = Nodes()[static_cast<std::size_t>(element.Node[0] - 1)];
        const Point& b = Nodes()[static_cast<std::size_t>(element.Node[1] - 1)];
        for (const std::size_t n : NodeSearch(draft_).Along(a, b, draft_.Tolerance)) {
            if (LiesInside(Nodes()[n], a, b, draft_.Tolerance)) {
                table.Fail("passes through node " + std::to_string(n + 1) + " at " +
                           PlaceText(Nodes()[n], draft_.Scale) +
                           "; let it end there and start anew");
            }
        }
    }

    void CheckRows() const {
        const int equations = 3 * static_cast<int>(draft_.Model.Nodes.size());
        const int width = HalfBandWidth(draft_.Model);
        if (equations + width - 1 > MostRows) {
            root_.Fail("too many equations: " + std::to_string(equations) +
                       " with a half band width of " + std::to_string(width) + ", together " +
                       std::to_string(equations + width - 1) + " rows (allowed: up to " +
                       std::to_string(MostRows) +
                       "); number the nodes so that members join near numbers");
        }
    }

    const KeyTable& root_;
    ProjectDraft& draft_;
    FrameModel& frame_;
    bool listed_ = false;
    std::map<Side, std::size_t> owner_;                         // member numbers
    std::multimap<std::pair<long long, long long>, int> cells_; // node numbers
};

} // namespace

void ReadMembers(const KeyTable& root, ProjectDraft& draft, FrameModel& frame) {
    MemberReader(root, draft, frame).Read();
}

} // namespace slab
