// A plane frame with its deflected shape and moments.

#include "hosts/slab/plane/frame_elements.h"
#include "hosts/slab/plane/plane_analysis.h"
#include "hosts/slab/plane/plane_canvas.h"
#include "hosts/slab/quantities.h"

#include <algorithm>
#include <cmath>

namespace slab {

namespace {

constexpr int pieces = 20;           // of a member's curve
constexpr double hinge_distance = 7; // pixels from the node
constexpr double label_inset = 0.08; // of the length, from the ends
const char* const member_style = "fill=\"none\" stroke=\"#333\" stroke-width=\"2.5\"";
const char* const moment_style =
    "fill=\"#c0392b\" fill-opacity=\".15\" stroke=\"#c0392b\" stroke-width=\"1\"";
const char* const deflection_style =
    "fill=\"none\" stroke=\"#2471a3\" stroke-width=\"1.5\" stroke-dasharray=\"5 3\"";

/// Deflection to the left at x, relative to the chord: EI w'' = M with w = 0 at both ends.
double Bow(const MemberForces& f, double EI, double x) {
    const double shear = (f.End.M - f.Start.M) / f.Length - f.Across * f.Length / 2;
    const auto twice = [&f, shear](double s) {
        return f.Start.M * s * s / 2 + shear * s * s * s / 6 + f.Across * s * s * s * s / 24;
    };
    return (twice(x) - twice(f.Length) * x / f.Length) / EI;
}

class Drawing {
  public:
    Drawing(const FrameModel& frame, const Vector& u, const std::vector<MemberForces>& forces)
        : frame_(frame), u_(u), forces_(forces), canvas_(frame.Base, Caption(frame.Base)) {
        double largest = 0;
        for (const MemberForces& f : forces) {
            for (const double x : {0.0, f.PlaceOfExtreme(), f.Length}) {
                largest = std::max(largest, std::fabs(f.At(x).M));
            }
        }
        momentScale_ = largest > 0 ? PlaneCanvas::Extent() / 10 / largest : 0;
        smallestLabel_ = largest / 20;
        exaggeration_ = Exaggeration(u);
    }

    std::string Text() {
        for (std::size_t m = 0; m < forces_.size(); ++m) {
            Moments(m);
        }
        canvas_.Supports(frame_.Base);
        for (std::size_t m = 0; m < forces_.size(); ++m) {
            Axis(m);
            Deflection(m);
        }
        for (std::size_t n = 0; n < frame_.Base.Nodes.size(); ++n) {
            const Point p = canvas_.OnPaper(frame_.Base.Nodes[n]);
            canvas_.Text({p.x + 6, p.y - 6}, std::to_string(n + 1), "fill=\"#555\"");
        }
        return canvas_.Document();
    }

  private:
    static std::string Caption(const Model& model) {
        return "red: moments on the side in tension [" + model.Units.ForceName + "." +
               model.Units.LengthName + "]; blue: deflected shape, exaggerated";
    }

    /// A point of a member on the paper, moved to its left by some pixels.
    Point Beside(std::size_t m, double x, double left) const {
        const MemberAxis axis = AxisOf(frame_, m);
        const int start = frame_.Base.Elements[m].Node[0];
        const Point& a = frame_.Base.Nodes[static_cast<std::size_t>(start - 1)];
        const Point p = canvas_.OnPaper({a.x + axis.Cos * x, a.y + axis.Sin * x});
        return {p.x - axis.Sin * left, p.y - axis.Cos * left};
    }

    void Moments(std::size_t m) {
        const MemberForces& f = forces_[m];
        std::vector<Point> outline{Beside(m, 0, 0)};
        for (int i = 0; i <= pieces; ++i) {
            const double x = f.Length * i / pieces;
            outline.push_back(Beside(m, x, -f.At(x).M * momentScale_));
        }
        outline.push_back(Beside(m, f.Length, 0));
        canvas_.Path(outline, moment_style);
        const double inset = label_inset * f.Length;
        Label(m, inset, f.Start.M);
        Label(m, f.Length - inset, f.End.M);
        const double x = f.PlaceOfExtreme();
        if (x > 2 * inset && x < f.Length - 2 * inset) {
            Label(m, x, f.At(x).M);
        }
    }

    /// A moment, unless it is too small to matter, at the edge of its diagram.
    void Label(std::size_t m, double x, double moment) {
        if (std::fabs(moment) > smallestLabel_) {
            const Units& units = frame_.Base.Units;
            const double left = -forces_[m].At(x).M * momentScale_;
            canvas_.Text(Beside(m, x, left), NumberText(moment / units.Force / units.Length, 3),
                         "fill=\"#c0392b\" text-anchor=\"middle\"");
        }
    }

    void Axis(std::size_t m) {
        const double length = forces_[m].Length;
        canvas_.Path({Beside(m, 0, 0), Beside(m, length, 0)}, member_style);
        const double off = std::min(hinge_distance / canvas_.Scale(), length / 4);
        const char* const style = "fill=\"white\" stroke=\"#333\"";
        if (frame_.Members[m].HingedAtStart()) {
            canvas_.Circle(Beside(m, off, 0), 4, style);
        }
        if (frame_.Members[m].HingedAtEnd()) {
            canvas_.Circle(Beside(m, length - off, 0), 4, style);
        }
    }

    void Deflection(std::size_t m) {
        const MemberForces& f = forces_[m];
        const MemberAxis axis = AxisOf(frame_, m);
        const FrameSection& section = frame_.Sections[frame_.Members[m].Section];
        const auto& ends = frame_.Base.Elements[m].Node;
        const std::size_t a = 3 * static_cast<std::size_t>(ends[0] - 1);
        const std::size_t b = 3 * static_cast<std::size_t>(ends[1] - 1);
        std::vector<Point> curve;
        for (int i = 0; i <= pieces; ++i) {
            const double t = static_cast<double>(i) / pieces;
            const double bow = Bow(f, section.Modulus * section.Inertia, t * f.Length);
            const double right = (1 - t) * u_[a] + t * u_[b] - axis.Sin * bow;
            const double up = (1 - t) * u_[a + 1] + t * u_[b + 1] + axis.Cos * bow;
            const Point p = Beside(m, t * f.Length, 0);
            curve.push_back({p.x + right * exaggeration_, p.y - up * exaggeration_});
        }
        canvas_.Path(curve, deflection_style);
    }

    const FrameModel& frame_;
    const Vector& u_;
    const std::vector<MemberForces>& forces_;
    PlaneCanvas canvas_;
    double momentScale_ = 0;
    double smallestLabel_ = 0;
    double exaggeration_ = 0;
};

} // namespace

std::string FramePicture(const FrameModel& frame, const Vector& u,
                         const std::vector<MemberForces>& forces) {
    return Drawing(frame, u, forces).Text();
}

} // namespace slab
