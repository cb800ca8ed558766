#include "hosts/slab/output.h"
#include "hosts/slab/quantities.h"
#include "hosts/slab/svg_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <sstream>

namespace slab {

namespace {

constexpr double plan_size = 640;
constexpr double margin = 60;
constexpr double legend_width = 150;
constexpr int band_count = 10;
/// Elements are shaded in this many strips a side, fewer when the mesh is fine.
constexpr int finest_cells = 40000;

/// From pale to deep blue: small settlements light, large ones dark.
std::string BandColour(int band) {
    const double t = (band + 0.5) / band_count;
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x",
                  static_cast<unsigned>(std::lround(236 - 216 * t)),
                  static_cast<unsigned>(std::lround(244 - 170 * t)),
                  static_cast<unsigned>(std::lround(250 - 110 * t)));
    return text;
}

class Plan {
  public:
    Plan(const Model& model, const Results& results) : model_(model), results_(results) {
        for (const Point& p : model.Nodes) {
            low_ = {std::min(low_.x, p.x), std::min(low_.y, p.y)};
            high_ = {std::max(high_.x, p.x), std::max(high_.y, p.y)};
        }
        scale_ = plan_size / std::max(high_.x - low_.x, high_.y - low_.y);
        width_ = (high_.x - low_.x) * scale_ + 2 * margin + legend_width;
        height_ = std::max((high_.y - low_.y) * scale_ + 2 * margin, 400.0);
        least_ = greatest_ = results.Nodes.front().Settlement;
        for (const NodeResult& node : results.Nodes) {
            least_ = std::min(least_, node.Settlement);
            greatest_ = std::max(greatest_, node.Settlement);
        }
        const double cells = finest_cells / static_cast<double>(model.Elements.size());
        strips_ = std::clamp(static_cast<int>(std::sqrt(cells)), 1, 8);
    }

    std::string Text() {
        out_ << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << width_ << "\" height=\""
             << height_ << "\" viewBox=\"0 0 " << width_ << ' ' << height_
             << "\" font-family=\"sans-serif\" font-size=\"13\">\n"
             << "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n";
        for (const Element& element : model_.Elements) {
            Shade(element);
        }
        Mesh();
        Piles();
        Frame();
        Legend();
        out_ << "</svg>\n";
        return out_.str();
    }

  private:
    struct Sample {
        double x, y, value;
    };

    Sample At(int node) const {
        const auto i = static_cast<std::size_t>(node) - 1;
        const Point& p = model_.Nodes[i];
        return {margin + (p.x - low_.x) * scale_, margin + (high_.y - p.y) * scale_,
                results_.Nodes[i].Settlement};
    }

    int Band(double value) const {
        const double range = greatest_ - least_;
        const double t = range > 0 ? (value - least_) / range : 0;
        return std::clamp(static_cast<int>(t * band_count), 0, band_count - 1);
    }

    /// A triangle counts as a quadrilateral whose last two corners fall together.
    void Shade(const Element& element) {
        std::array<Sample, 4> corner;
        for (std::size_t k = 0; k < 4; ++k) {
            corner[k] =
                At(element.Node[std::min(k, static_cast<std::size_t>(element.Corners) - 1)]);
        }
        const auto inside = [&corner](double s, double t) {
            const double f[] = {(1 - s) * (1 - t), s * (1 - t), s * t, (1 - s) * t};
            Sample sum{0, 0, 0};
            for (std::size_t k = 0; k < 4; ++k) {
                sum.x += f[k] * corner[k].x;
                sum.y += f[k] * corner[k].y;
                sum.value += f[k] * corner[k].value;
            }
            return sum;
        };
        const double step = 1.0 / strips_;
        for (int i = 0; i < strips_; ++i) {
            for (int j = 0; j < strips_; ++j) {
                const double s = i * step;
                const double t = j * step;
                const std::string colour =
                    BandColour(Band(inside(s + step / 2, t + step / 2).value));
                out_ << "<path fill=\"" << colour << "\" stroke=\"" << colour
                     << "\" stroke-width=\".6\" d=\"M";
                for (const auto& [ds, dt] :
                     {std::pair{0.0, 0.0}, {step, 0.0}, {step, step}, {0.0, step}}) {
                    const Sample p = inside(s + ds, t + dt);
                    out_ << ' ' << Short(p.x) << ',' << Short(p.y);
                }
                out_ << "Z\"/>\n";
            }
        }
    }

    void Mesh() {
        out_ << "<path fill=\"none\" stroke=\"#00000030\" stroke-width=\".5\" d=\"";
        for (const Element& element : model_.Elements) {
            for (int k = 0; k < element.Corners; ++k) {
                const Sample p = At(element.Node[static_cast<std::size_t>(k)]);
                out_ << (k == 0 ? 'M' : 'L') << Short(p.x) << ',' << Short(p.y);
            }
            out_ << 'Z';
        }
        out_ << "\"/>\n";
    }

    void Piles() {
        for (const Pile& pile : model_.Piling.Piles) {
            const Sample p = At(pile.Node);
            out_ << "<circle cx=\"" << Short(p.x) << "\" cy=\"" << Short(p.y) << "\" r=\""
                 << Short(pile.Diameter / 2 * scale_)
                 << "\" fill=\"#ffffff80\" stroke=\"#222\" stroke-width=\"1.5\"/>\n";
        }
    }

    void Frame() {
        const std::string title = model_.Title.empty() ? "Slab" : model_.Title;
        out_ << "<text x=\"" << margin << "\" y=\"28\" font-size=\"17\">" << Escaped(title)
             << "</text>\n<text x=\"" << margin << "\" y=\"47\" fill=\"#555\">Settlement ["
             << model_.Units.SettlementName << "]</text>\n";
        const double bottom = margin + (high_.y - low_.y) * scale_;
        const double right = margin + (high_.x - low_.x) * scale_;
        const auto length = [this](double metres) {
            return NumberText(metres / model_.Units.Length) + " " + model_.Units.LengthName;
        };
        out_ << "<text x=\"" << (margin + right) / 2 << "\" y=\"" << bottom + 22
             << "\" text-anchor=\"middle\" fill=\"#555\">" << length(high_.x - low_.x)
             << "</text>\n<text transform=\"translate(" << margin - 14 << ','
             << (margin + bottom) / 2 << ") rotate(-90)\" text-anchor=\"middle\" fill=\"#555\">"
             << length(high_.y - low_.y) << "</text>\n";
    }

    void Legend() {
        const double left = width_ - legend_width;
        const double step = 26;
        for (int band = 0; band < band_count; ++band) {
            out_ << "<rect x=\"" << left << "\" y=\"" << margin + band * step
                 << "\" width=\"24\" height=\"" << step << "\" fill=\"" << BandColour(band)
                 << "\"/>\n";
        }
        for (int line = 0; line <= band_count; ++line) {
            const double value = least_ + (greatest_ - least_) * line / band_count;
            out_ << "<text x=\"" << left + 32 << "\" y=\"" << margin + line * step + 4 << "\">"
                 << NumberText(InUnits(model_.Units, Dimension::Settlement, value)) << "</text>\n";
        }
    }

    const Model& model_;
    const Results& results_;
    Point low_{1e300, 1e300};
    Point high_{-1e300, -1e300};
    double scale_ = 1;
    double width_ = 0;
    double height_ = 0;
    double least_ = 0;
    double greatest_ = 0;
    int strips_ = 1;
    std::ostringstream out_;
};

} // namespace

std::string PictureText(const Model& model, const Results& results) {
    return Plan(model, results).Text();
}

} // namespace slab
