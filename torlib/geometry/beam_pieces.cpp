#include "torlib/geometry/geometry_class.h"
#include "torlib/geometry/point.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace torlib {
namespace {

using plane::Point;

constexpr double tolerance = 0.001;

/// A mesh line by its end nodes.
struct Piece {
    Integer From;
    Integer To;
};

/// The caller's nodes and mesh lines.
struct Mesh {
    const Array<Single>& XGriD;
    const Array<Single>& YGriD;
    const Integer& NM;
    const Array<Integer>& Mp1;
    const Array<Integer>& Mp2;

    Point At(int node) const { return {XGriD(node), YGriD(node)}; }
};

/// The mesh lines on a beam, the points at their ends, and their length together.
struct Pieces {
    std::vector<Piece> List;
    Integer N = 0;
    Array<Single> XL;
    Array<Single> YL;
    Single S = 0;

    void Append(const Point& point) {
        N = N + 1;
        XL.ReDimPreserve(N);
        YL.ReDimPreserve(N);
        XL(N) = point.x;
        YL(N) = point.Y;
    }

    /// Whether the sorted point k is this one.
    bool Holds(int k, const Point& point) const {
        return Abs(point.x - XL(k)) < tolerance && Abs(point.Y - YL(k)) < tolerance;
    }

    /// The piece between the sorted points k and k + 1, in the direction of the beam.
    std::optional<Piece> After(int k, const Mesh& mesh) const {
        for (const Piece& piece : List) {
            const Point from = mesh.At(piece.From);
            const Point to = mesh.At(piece.To);
            if (Holds(k, from) && Holds(k + 1, to)) {
                return piece;
            }
            if (Holds(k, to) && Holds(k + 1, from)) {
                return Piece{piece.To, piece.From};
            }
        }
        return {};
    }

    /// The pieces that follow one another along the beam P-Q; fewer than there are when some
    /// overlap and leave a gap, however well their lengths add up.
    std::vector<Piece> Chain(const Point& P, const Point& Q, const Mesh& mesh) {
        Append(P); // a first node near the start is a point after it
        Geometry_Class::DefaultInstance().SortingLine(N, XL, YL, P.x, P.Y, Q.x, Q.Y);
        std::vector<Piece> chain;
        for (int k : Range(1, N - 1)) {
            if (const auto piece = After(k, mesh)) {
                chain.push_back(*piece);
            }
        }
        return chain;
    }
};

/// The mesh lines that lie on the beam P-Q between its ends.
Pieces FindPieces(const Point& P, const Point& Q, const Mesh& mesh) {
    Pieces pieces;
    for (int k : Range(1, mesh.NM)) {
        const Piece line{mesh.Mp1(k), mesh.Mp2(k)};
        const Point from = mesh.At(line.From);
        const Point to = mesh.At(line.To);
        Integer N = 0;
        Array<Single> x;
        Array<Single> Y;
        Geometry_Class::DefaultInstance().DefiningPoint(P.x, P.Y, Q.x, Q.Y, from.x, from.Y, to.x,
                                                        to.Y, N, x, Y);
        if (N == 2) {
            const Single length = plane::Distance(from, to);
            pieces.S = pieces.S + length;
            pieces.List.push_back(line);
            pieces.Append(from);
            pieces.Append(to);
        }
    }
    return pieces;
}

/// Gives a list of rows one more, the last, with one end of each piece; the rows before it stay.
void AddRow(Array<Integer>& list, int rows, const std::vector<Piece>& chain, Integer Piece::*end) {
    const int columns = static_cast<int>(chain.size());
    const int before = rows > 1 ? list.UBound(2) : 0;
    Array<Integer> wider;
    wider.ReDim(rows, std::max(columns, before));
    for (int r : Range(1, rows - 1)) {
        for (int j : Range(1, before)) {
            wider(r, j) = list(r, j);
        }
    }
    for (int j : Range(1, columns)) {
        wider(rows, j) = chain[static_cast<std::size_t>(j - 1)].*end;
    }
    list = std::move(wider);
}

} // namespace

void Geometry_Class::Sortingbeamelements(Integer& NME, Array<Integer>& IME, Array<Integer>& KME,
                                         Array<Integer>& LT1, Array<Integer>& LT2,
                                         const Integer& /*Nk*/, const Array<Single>& XGriD,
                                         const Array<Single>& YGriD, const Integer& NE,
                                         const Integer& /*NT*/, const Array<Integer>& Np1,
                                         const Array<Integer>& Np2, const Array<Integer>& NTy,
                                         Integer& NM, Array<Integer>& Mp1, Array<Integer>& Mp2,
                                         Array<Integer>& MTy) const {
    const MemberScope scope("Geometry_Class.Sortingbeamelements", Named("IME", IME),
                            Named("KME", KME), Named("LT1", LT1), Named("LT2", LT2),
                            Named("XGriD", XGriD), Named("YGriD", YGriD), Named("Np1", Np1),
                            Named("Np2", Np2), Named("NTy", NTy), Named("Mp1", Mp1),
                            Named("Mp2", Mp2), Named("MTy", MTy));
    const Mesh mesh{XGriD, YGriD, NM, Mp1, Mp2};
    NME = 0;
    for (int e : Range(1, NE)) {
        const Point P = mesh.At(Np1(e));
        const Point Q = mesh.At(Np2(e));
        const Single L = plane::Distance(P, Q);
        Pieces pieces = FindPieces(P, Q, mesh);
        const Integer count = pieces.List.size();
        if (Abs(pieces.S - L) >= tolerance || count < 2) {
            continue;
        }
        const std::vector<Piece> chain = pieces.Chain(P, Q, mesh);
        if (chain.size() != pieces.List.size()) {
            continue;
        }
        NME = NME + 1;
        IME.ReDimPreserve(NME);
        KME.ReDimPreserve(NME);
        IME(NME) = e;
        KME(NME) = count;
        AddRow(LT1, NME, chain, &Piece::From);
        AddRow(LT2, NME, chain, &Piece::To);
    }

    NM = 0;
    for (int r : Range(1, NME)) {
        for (int j : Range(1, KME(r))) {
            NM = NM + 1;
            Mp1.ReDimPreserve(NM);
            Mp2.ReDimPreserve(NM);
            MTy.ReDimPreserve(NM);
            Mp1(NM) = LT1(r, j);
            Mp2(NM) = LT2(r, j);
            MTy(NM) = NTy(IME(r));
        }
    }
}

} // namespace torlib
