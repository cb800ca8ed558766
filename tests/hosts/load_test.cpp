// Nodal loads do the work of the loads they stand for, on every displacement that the elements can
// take exactly.

#include "hosts/slab/loads.h"
#include "tests/hosts/project_text.h"
#include "torlib/fem/fem_class.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

/// A displacement x^i y^j with its slopes.
struct Field {
    int I;
    int J;
    double Value(double x, double y) const { return std::pow(x, I) * std::pow(y, J); }
    double X(double x, double y) const { return I == 0 ? 0 : I * Field{I - 1, J}.Value(x, y); }
    double Y(double x, double y) const { return J == 0 ? 0 : J * Field{I, J - 1}.Value(x, y); }
};

double Work(const slab::Model& model, const Field& field) {
    double work = 0;
    for (std::size_t i = 0; i < model.Nodes.size(); ++i) {
        const auto [x, y] = model.Nodes[i];
        work += model.NodalLoads[3 * i] * field.Value(x, y) +
                model.NodalLoads[3 * i + 1] * field.X(x, y) +
                model.NodalLoads[3 * i + 2] * field.Y(x, y);
    }
    return work;
}

/// Integral of a function over 0..1 by Simpson's rule over many strips.
double Integral(const std::function<double(double)>& f) {
    constexpr int strips = 40;
    double sum = 0;
    for (int i = 0; i < strips; ++i) {
        const double a = i * 1.0 / strips;
        sum += (f(a) + 4 * f(a + 0.5 / strips) + f(a + 1.0 / strips)) / 6 / strips;
    }
    return sum;
}

/// A slab 3 x 2 with an opening, of rectangles or triangles; a skew one of listed triangles.
slab::ProjectDraft Slab(const std::string& kind) {
    std::string mesh = "x = [0.5, [5, 0.5]]\ny = [[2, 0.4], [3, 0.4]]\n"
                       "openings = [{x = [2, 2.5], y = [0.8, 1.2]}]\n";
    if (kind == "triangles") {
        mesh += "triangles = true\n";
    } else if (kind == "skew") {
        mesh =
            "nodes = [[0, 0], [2, 0], [3.5, 0], [-0.2, 1.1], [1.7, 0.9], [3, 1.4], [0, 2], [1.4, 2.2], "
            "[3.3, 2]]\nelements = [[1, 2, 5], [1, 5, 4], [2, 3, 6], [2, 6, 5], [4, 5, 8], [4, 8, 7], "
            "[5, 6, 9], [5, 9, 8]]\n";
    }
    const std::string text = "[mesh]\n" + mesh;
    const toml::table table = toml::parse(text);
    const slab::SourceFile file{kind, {}};
    slab::ProjectDraft draft;
    slab::ReadMesh(slab::KeyTable(table, "", file), draft);
    draft.Model.NodalLoads.assign(3 * draft.Model.Nodes.size(), 0);
    return draft;
}

/// Rectangles carry full cubics, the triangles full quadratics.
std::vector<Field> FieldsOf(const std::string& kind) {
    const int degree = kind == "rectangles" ? 3 : 2;
    std::vector<Field> fields;
    for (int i = 0; i <= degree; ++i) {
        for (int j = 0; i + j <= degree; ++j) {
            fields.push_back({i, j});
        }
    }
    return fields;
}

const std::string kinds[] = {"rectangles", "triangles", "skew"};

TEST(Loads, OfPatchesDoTheirWork) {
    const slab::Region regions[] = {
        {{0.13, 0.21}, {1.87, 1.62}}, {{0.5, 0.4}, {1, 0.8}}, {{1.1, 0.7}, {1.2, 0.75}}};
    for (const std::string& kind : kinds) {
        for (const slab::Region& r : regions) {
            slab::ProjectDraft draft = Slab(kind);
            const double width = r.High.x - r.Low.x;
            const double height = r.High.y - r.Low.y;
            EXPECT_NEAR(slab::AddPatchLoad(draft, r, 3), width * height, 1e-12);
            for (const Field& f : FieldsOf(kind)) {
                const double exact =
                    3 * width * height * Integral([&](double s) {
                        return Integral([&](double t) {
                            return f.Value(r.Low.x + s * width, r.Low.y + t * height);
                        });
                    });
                EXPECT_NEAR(Work(draft.Model, f), exact, 1e-11) << kind << f.I << f.J;
            }
        }
    }
}

TEST(Loads, OfLinesDoTheirWork) {
    const std::pair<slab::Point, slab::Point> lines[] = {
        {{0.1, 0.2}, {1.9, 1.7}},                         // across elements
        {{0, 0.4}, {3, 0.4}},                             // along sides
        {{0.3, 0.402}, {2.9, 0.4}},                       // beside sides
        {{1.5, 0}, {1.5, 2}},       {{0, 0}, {0.5, 0.4}}, // along a diagonal
        {{0.7, 0.5}, {0.8, 0.5}}};                        // within an element
    for (const std::string& kind : kinds) {
        for (const auto& [a, b] : lines) {
            slab::ProjectDraft draft = Slab(kind);
            const double length = slab::Distance(a, b);
            EXPECT_NEAR(slab::AddLineLoad(draft, a, b, 5), length, 1e-12);
            for (const Field& f : FieldsOf(kind)) {
                const double exact =
                    5 * length * Integral([&, from = a, to = b](double t) {
                        return f.Value(from.x + t * (to.x - from.x), from.y + t * (to.y - from.y));
                    });
                EXPECT_NEAR(Work(draft.Model, f), exact, 1e-11) << kind << a.x << f.I << f.J;
            }
        }
    }
}

TEST(Loads, AtPointsDoTheirWork) {
    for (const std::string& kind : kinds) {
        for (const slab::Point& p : {slab::Point{0.31, 0.27}, {0.5, 0.9}, {1.5, 1.2}, {2, 1.21}}) {
            slab::ProjectDraft draft = Slab(kind);
            ASSERT_TRUE(slab::AddPointLoad(draft, p, 2, 3, 5));
            for (const Field& f : FieldsOf(kind)) {
                const double exact = 2 * f.Value(p.x, p.y) + 3 * f.X(p.x, p.y) + 5 * f.Y(p.x, p.y);
                EXPECT_NEAR(Work(draft.Model, f), exact, 1e-11) << kind << p.x << f.I << f.J;
            }
        }
    }
    slab::ProjectDraft draft = Slab("rectangles");
    EXPECT_FALSE(slab::AddPointLoad(draft, {2.2, 1}, 1, 0, 0)); // in the opening
}

TEST(Loads, OnPartOfTheSlabCountWhatLiesOnIt) {
    slab::ProjectDraft draft = Slab("rectangles");
    EXPECT_NEAR(slab::AddPatchLoad(draft, {{-1, -1}, {9, 9}}, 1), 6 - 0.2, 1e-12);
    EXPECT_NEAR(slab::AddLineLoad(draft, {-1, 1}, {9, 1}, 1), 2.5, 4.1 * draft.Tolerance);
    EXPECT_EQ(slab::AddLineLoad(draft, {-1, 3}, {9, 3}, 1), 0);
}

TEST(Loads, OfAWholeElementEqualThoseOfAUniformPressure) {
    const torlib::FEM_Class fem;
    for (const std::string& kind : kinds) {
        slab::ProjectDraft draft = Slab(kind);
        const slab::Element element = draft.Model.Elements[1];
        draft.Model.Elements = {element};
        torlib::Array<torlib::Single> x(torlib::Bounds{1, 4}), y(torlib::Bounds{1, 4}), be;
        for (int i = 0; i < element.Corners; ++i) {
            x(i + 1) = draft.Model.Nodes[element.Node[i] - 1].x;
            y(i + 1) = draft.Model.Nodes[element.Node[i] - 1].y;
        }
        fem.SetElementLoadVector(be, 7, torlib::Integer(element.Corners), x, y);
        slab::AddPatchLoad(draft, {{-9, -9}, {9, 9}}, 7);
        for (int i = 0; i < 3 * element.Corners; ++i) {
            const double load = draft.Model.NodalLoads[3 * (element.Node[i / 3] - 1) + i % 3];
            EXPECT_NEAR(load, be(i + 1).Value(), 1e-5) << kind << i;
        }
    }
}

} // namespace
