#include "hosts/slab/plane/plane_canvas.h"

#include "hosts/slab/mesh.h"
#include "hosts/slab/svg_text.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace slab {

namespace {

constexpr double extent = 640;
constexpr double margin = 110;
constexpr double shown_displacement = extent / 20;

} // namespace

PlaneCanvas::PlaneCanvas(const Model& model, const std::string& caption) {
    std::tie(low_, high_) = slab::Extent(model.Nodes);
    scale_ = extent / std::max(high_.x - low_.x, high_.y - low_.y);
    const double width = std::max((high_.x - low_.x) * scale_ + 2 * margin, 520.0);
    const double height = (high_.y - low_.y) * scale_ + 2 * margin;
    std::ostringstream head;
    head << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << Short(width) << "\" height=\""
         << Short(height) << "\" viewBox=\"0 0 " << Short(width) << ' ' << Short(height)
         << "\" font-family=\"sans-serif\" font-size=\"12\">\n"
         << "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n"
         << "<text x=\"24\" y=\"28\" font-size=\"17\">" << Escaped(model.Title)
         << "</text>\n<text x=\"24\" y=\"47\" fill=\"#555\">" << Escaped(caption) << "</text>\n";
    head_ = head.str();
}

double PlaneCanvas::Extent() {
    return extent;
}

Point PlaneCanvas::OnPaper(const Point& p) const {
    return {margin + (p.x - low_.x) * scale_, margin + (high_.y - p.y) * scale_};
}

void PlaneCanvas::Path(const std::vector<Point>& points, const std::string& style) {
    out_ << "<path " << style << " d=\"";
    for (std::size_t i = 0; i < points.size(); ++i) {
        out_ << (i == 0 ? 'M' : 'L') << Short(points[i].x) << ',' << Short(points[i].y);
    }
    out_ << "\"/>\n";
}

void PlaneCanvas::Circle(const Point& at, double radius, const std::string& style) {
    out_ << "<circle cx=\"" << Short(at.x) << "\" cy=\"" << Short(at.y) << "\" r=\""
         << Short(radius) << "\" " << style << "/>\n";
}

void PlaneCanvas::Text(const Point& at, const std::string& text, const std::string& style) {
    out_ << "<text x=\"" << Short(at.x) << "\" y=\"" << Short(at.y) << "\" " << style << '>'
         << Escaped(text) << "</text>\n";
}

void PlaneCanvas::Supports(const Model& model) {
    std::map<int, bool> clamped;
    for (const Restraint& restraint : model.Restraints) {
        clamped[restraint.Node] = clamped[restraint.Node] || restraint.Freedom == 3;
    }
    for (const auto& [node, turns] : clamped) {
        const Point p = OnPaper(model.Nodes[static_cast<std::size_t>(node - 1)]);
        const char* const style = "fill=\"#ddd\" stroke=\"#333\"";
        if (turns) {
            Path({{p.x - 7, p.y},
                  {p.x + 7, p.y},
                  {p.x + 7, p.y + 12},
                  {p.x - 7, p.y + 12},
                  {p.x - 7, p.y}},
                 style);
        } else {
            Path({p, {p.x + 7, p.y + 12}, {p.x - 7, p.y + 12}, p}, style);
        }
    }
}

std::string PlaneCanvas::Document() const {
    return head_ + out_.str() + "</svg>\n";
}

double Exaggeration(const std::vector<double>& u) {
    double largest = 0;
    for (std::size_t i = 0; i + 2 < u.size(); i += 3) {
        largest = std::max(largest, std::hypot(u[i], u[i + 1]));
    }
    return largest > 0 ? shown_displacement / largest : 0;
}

} // namespace slab
