// What the user gets to see of a bored pile.

#include "hosts/slab/piles/bored_pile.h"
#include "hosts/slab/printable.h"
#include "hosts/slab/quantities.h"

#include "torlib/ui/torva_class.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <sstream>

namespace slab {

using Json = nlohmann::ordered_json;
using torlib::FromUtf8;
using torlib::String;

namespace {

/// A value in the project's units as text.
class Writer {
  public:
    explicit Writer(const BoredPile& pile) : units_(pile.Units) {}

    std::string operator()(Dimension kind, double value) const {
        return NumberText(InUnits(units_, kind, value));
    }
    std::string Force(double value) const { return WithUnit(Dimension::Force, value); }
    std::string Settlement(double value) const { return WithUnit(Dimension::Settlement, value); }

  private:
    std::string WithUnit(Dimension kind, double value) const {
        return (*this)(kind, value) + " " + UnitName(units_, kind);
    }

    const Units& units_;
};

std::string Right(const std::string& text, std::size_t width) {
    return text.size() < width ? std::string(width - text.size(), ' ') + text : text;
}

std::string TitleOf(const BoredPile& pile) {
    return pile.Title.empty() ? "Bored pile" : pile.Title;
}

std::vector<std::string> CurveLines(const BoredPile& pile, const BoredPileResults& results) {
    const Writer write(pile);
    const std::string force = " [" + pile.Units.ForceName + "]";
    std::vector<std::string> lines{Right("s [" + pile.Units.SettlementName + "]", 10) +
                                   Right("Q" + force, 12) + Right("base" + force, 14) +
                                   Right("shaft" + force, 14) + "   at"};
    for (const CurvePoint& point : results.Curve) {
        lines.push_back(Right(write(Dimension::Settlement, point.Settlement), 10) +
                        Right(write(Dimension::Force, point.Resistance), 12) +
                        Right(write(Dimension::Force, point.Base), 14) +
                        Right(write(Dimension::Force, point.Resistance - point.Base), 14) + "   " +
                        point.Where);
    }
    const CurvePoint& half = results.HalfLimit;
    lines.push_back(Right(write(Dimension::Settlement, half.Settlement), 10) +
                    Right(write(Dimension::Force, half.Resistance), 12) + Right("", 28) + "   " +
                    half.Where);
    return lines;
}

double LengthOf(const BoredPile& pile) {
    double length = 0;
    for (const PileLayer& layer : pile.Layers) {
        length += layer.Thickness;
    }
    return length;
}

/// A listing with the library's lines.
class PileReport {
  public:
    PileReport(const BoredPile& pile, const BoredPileResults& results)
        : pile_(pile), results_(results), write_(pile) {}

    std::string Text() {
        Raw(TitleOf(pile_));
        Raw("Project file: " + pile_.File);
        Shape();
        Heading("Resistance by settlement (DIN 4014)");
        for (const std::string& line : CurveLines(pile_, results_)) {
            Raw(line);
        }
        Loads();
        for (const std::string& warning : results_.Warnings) {
            Raw("Warning: " + warning);
        }
        return torlib::ToUtf8(text_);
    }

  private:
    void Raw(const std::string& line) { text_ += FromUtf8(Printable(line)) + u"\r\n"; }
    void Heading(const std::string& heading) {
        Raw("");
        Raw(heading);
        Raw(std::string(heading.size(), '-'));
    }
    void Line(const std::string& name, const char16_t* symbol, const std::string& unit,
              const std::string& value) {
        torva_.SetLineList(text_, FromUtf8(name), symbol, FromUtf8(unit), FromUtf8(value), 46, 8);
    }
    void Line(const std::string& name, const char16_t* symbol, Dimension kind, double value) {
        Line(name, symbol, UnitName(pile_.Units, kind), write_(kind, value));
    }
    void Length(const std::string& name, const char16_t* symbol, double metres) {
        Line(name, symbol, pile_.Units.LengthName, NumberText(metres / pile_.Units.Length));
    }

    void Shape() {
        Heading("Pile and ground");
        Length("Diameter of the shaft", u"d", pile_.Diameter);
        Length("Diameter of the base", u"db", pile_.BaseDiameter);
        Length("Length", u"l", LengthOf(pile_));
        for (std::size_t i = 0; i < pile_.Layers.size(); ++i) {
            const std::string layer = " of layer " + std::to_string(i + 1);
            Length("Thickness" + layer, u"h", pile_.Layers[i].Thickness);
            Line("Ultimate skin friction" + layer, u"tau", Dimension::Pressure,
                 results_.SkinFriction[i]);
        }
        constexpr const char* settlements[] = {"0.02", "0.03", "0.10"};
        for (std::size_t i = 0; i < 3; ++i) {
            Line(std::string("Base resistance at ") + settlements[i] + " db", u"sigma",
                 Dimension::Pressure, results_.BaseStresses[i]);
        }
        Line("Ultimate shaft resistance", u"Qs", Dimension::Force, results_.Shaft);
    }

    void Loads() {
        Heading("Working load");
        Line("Load", u"Q", Dimension::Force, pile_.Load);
        Line("Carried by the shaft", u"Qs", Dimension::Force, results_.ShaftLoad);
        Line("Carried by the base", u"Qb", Dimension::Force, results_.BaseLoad);
        Line("Settlement", u"s", Dimension::Settlement, results_.Settlement);
        if (pile_.Settlement >= 0) {
            Line("Resistance at a settlement of " + write_.Settlement(pile_.Settlement), u"Q",
                 Dimension::Force, results_.LoadAtSettlement);
        }
    }

    const BoredPile& pile_;
    const BoredPileResults& results_;
    Writer write_;
    torlib::TORVAClass torva_;
    String text_;
};

/// The curve in a frame, settlement downward.
class Diagram {
  public:
    Diagram(const BoredPile& pile, const BoredPileResults& results)
        : pile_(pile), results_(results), write_(pile) {
        for (const CurvePoint& point : results.Curve) {
            load_ = std::max(load_, point.Resistance);
            settlement_ = std::max(settlement_, point.Settlement);
        }
        load_ = 1.08 * std::max({load_, pile.Load, results.LoadAtSettlement});
        settlement_ = 1.08 * std::max({settlement_, results.Settlement, pile.Settlement});
    }

    std::string Text() {
        out_ << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"620\" height=\"520\" "
                "viewBox=\"0 0 620 520\" font-family=\"sans-serif\" font-size=\"13\">\n"
                "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n"
                "<rect x=\"70\" y=\"70\" width=\"500\" height=\"400\" fill=\"none\" "
                "stroke=\"#555\"/>\n";
        Text(70, 26, "start", "Resistance and settlement of a bored pile");
        Text(320, 48, "middle", "Q [" + pile_.Units.ForceName + "]");
        Text(20, 500, "start", "s [" + pile_.Units.SettlementName + "]");
        Curve("base", -8, [](const CurvePoint& point) { return point.Base; });
        Curve("shaft", 8, [](const CurvePoint& point) { return point.Resistance - point.Base; });
        Curve("", 0, [](const CurvePoint& point) { return point.Resistance; });
        for (const CurvePoint& point : results_.Curve) {
            Dot(point.Resistance, point.Settlement, "#1b4a8a");
        }
        Mark(pile_.Load, results_.Settlement, "#c03020", "load");
        if (pile_.Settlement >= 0) {
            Mark(results_.LoadAtSettlement, pile_.Settlement, "#208040", "asked for");
        }
        Ticks();
        out_ << "</svg>\n";
        return out_.str();
    }

  private:
    double X(double load) const { return 70 + 500 * load / load_; }
    double Y(double settlement) const { return 70 + 400 * settlement / settlement_; }

    void Text(double x, double y, const char* anchor, const std::string& text) {
        out_ << "<text x=\"" << x << "\" y=\"" << y << "\" text-anchor=\"" << anchor << "\">"
             << text << "</text>\n";
    }
    /// A part of the resistance, dashed and named beside its last piece, or the whole.
    void Curve(const char* name, double beside, double (*part)(const CurvePoint&)) {
        out_ << "<path fill=\"none\" stroke=\"#1b4a8a\" stroke-width=\"" << (*name ? 1 : 2)
             << "\" stroke-dasharray=\"" << (*name ? 2 : 0) << "\" d=\"M" << X(0) << ',' << Y(0);
        for (const CurvePoint& point : results_.Curve) {
            out_ << 'L' << X(part(point)) << ',' << Y(point.Settlement);
        }
        out_ << "\"/>\n";
        const CurvePoint& from = results_.Curve[results_.Curve.size() - 2];
        const CurvePoint& to = results_.Curve.back();
        Text(X((part(from) + part(to)) / 2) + beside, Y((from.Settlement + to.Settlement) / 2),
             beside < 0 ? "end" : "start", name);
    }
    void Dot(double load, double settlement, const char* colour) {
        out_ << "<circle cx=\"" << X(load) << "\" cy=\"" << Y(settlement) << "\" r=\"4\" fill=\""
             << colour << "\"/>\n";
    }
    /// A dot with what it stands for beside it.
    void Mark(double load, double settlement, const char* colour, const char* what) {
        Dot(load, settlement, colour);
        Text(X(load) - 10, Y(settlement) + 14, "end",
             std::string(what) + ": " + write_.Force(load) + ", " + write_.Settlement(settlement));
    }
    void Ticks() {
        for (int k = 0; k <= 4; ++k) {
            const double load = load_ * k / 4;
            const double settlement = settlement_ * k / 4;
            Text(X(load), 64, "middle",
                 NumberText(InUnits(pile_.Units, Dimension::Force, load), 2));
            Text(64, Y(settlement) + 4, "end",
                 NumberText(InUnits(pile_.Units, Dimension::Settlement, settlement), 2));
        }
    }

    const BoredPile& pile_;
    const BoredPileResults& results_;
    Writer write_;
    double load_ = 0;
    double settlement_ = 0;
    std::ostringstream out_;
};

} // namespace

std::string SummaryText(const BoredPile& pile, const BoredPileResults& results) {
    const Writer write(pile);
    std::ostringstream out;
    out << Printable(TitleOf(pile)) << "\n\n";
    for (const std::string& line : CurveLines(pile, results)) {
        out << line << '\n';
    }
    out << "\n  Shaft      ultimate resistance " << write.Force(results.Shaft) << "\n  Load       "
        << write.Force(pile.Load) << " = shaft " << write.Force(results.ShaftLoad) << " + base "
        << write.Force(results.BaseLoad) << ": settlement " << write.Settlement(results.Settlement)
        << '\n';
    if (pile.Settlement >= 0) {
        out << "  Asked for  " << write.Force(results.LoadAtSettlement) << " at a settlement of "
            << write.Settlement(pile.Settlement) << '\n';
    }
    for (const std::string& warning : results.Warnings) {
        out << "  Warning    " << warning << '\n';
    }
    return out.str();
}

std::string ReportText(const BoredPile& pile, const BoredPileResults& results) {
    return PileReport(pile, results).Text();
}

std::string JsonText(const BoredPile& pile, const BoredPileResults& results) {
    const auto in = [&pile](Dimension kind, double value) {
        return InUnits(pile.Units, kind, value);
    };
    const auto force = [&in](double value) { return in(Dimension::Force, value); };
    const auto settlement = [&in](double value) { return in(Dimension::Settlement, value); };
    Json document;
    document["title"] = pile.Title;
    document["file"] = pile.File;
    document["units"] = {{"length", pile.Units.LengthName},
                         {"force", pile.Units.ForceName},
                         {"settlement", pile.Units.SettlementName},
                         {"stress", UnitName(pile.Units, Dimension::Pressure)}};
    Json curve = Json::array();
    for (const CurvePoint& point : results.Curve) {
        curve.push_back({{"settlement", settlement(point.Settlement)},
                         {"resistance", force(point.Resistance)},
                         {"base", force(point.Base)},
                         {"shaft", force(point.Resistance - point.Base)},
                         {"at", point.Where}});
    }
    document["curve"] = std::move(curve);
    document["half_limit"] = {{"settlement", settlement(results.HalfLimit.Settlement)},
                              {"resistance", force(results.HalfLimit.Resistance)}};
    document["shaft_resistance"] = force(results.Shaft);
    for (const double stress : results.BaseStresses) {
        document["base_stresses"].push_back(in(Dimension::Pressure, stress));
    }
    for (const double friction : results.SkinFriction) {
        document["skin_friction"].push_back(in(Dimension::Pressure, friction));
    }
    const double error = std::fabs(pile.Load - results.ShaftLoad - results.BaseLoad) / pile.Load;
    document["balance"] = {{"loads", force(pile.Load)},
                           {"shaft", force(results.ShaftLoad)},
                           {"base", force(results.BaseLoad)},
                           {"relative_error", error}};
    document["settlement"] = settlement(results.Settlement);
    if (pile.Settlement >= 0) {
        document["asked"] = {{"settlement", settlement(pile.Settlement)},
                             {"resistance", force(results.LoadAtSettlement)}};
    }
    document["warnings"] = results.Warnings;
    return Printable(document.dump(1, ' ', false, Json::error_handler_t::replace), true) + "\n";
}

std::string PictureText(const BoredPile& pile, const BoredPileResults& results) {
    return Diagram(pile, results).Text();
}

} // namespace slab
