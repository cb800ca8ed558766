// What rounding to 32 bits costs on fine meshes and what the host's correction gives back: tables
// of square plates and of rafts on soft springs, the plain solution beside the corrected one.

#include "tests/hosts/slab_models.h"

#include <cstdio>

namespace {

using namespace slab;

double Error(const Model& model, const Results& results, double exact) {
    return 100 * (At(model, results, 5, 5).Settlement / exact - 1);
}

void Row(const Model& model, int n, double exact) {
    const Results plain = Analysed(model, {.Plain = true});
    const Results corrected = Analysed(model);
    std::printf("| %d | %.3f | %.4f | %.1e | %.1e | %d | %.2f | %.2f |\n", n,
                Error(model, plain, exact), Error(model, corrected, exact),
                corrected.Digits.ResidualBefore, corrected.Digits.ResidualAfter,
                corrected.Digits.Steps, plain.SolverSeconds, corrected.SolverSeconds);
    std::fflush(stdout);
}

void Header(const char* title) {
    std::printf(
        "\n%s\n\n| elements a side | plain, %% | corrected, %% | residual before | after | steps "
        "| plain, s | corrected, s |\n|---|---|---|---|---|---|---|---|\n",
        title);
}

} // namespace

int main() {
    Plate plate;
    plate.Lx = plate.Ly = 10;
    Header("Simply supported square plate, uniform load: settlement of the centre");
    for (const int n : {8, 12, 16, 20, 30, 40, 50, 60, 80, 100}) {
        plate.Nx = plate.Ny = n;
        Model model = Grid(plate);
        HoldEdges(model, plate, false);
        Row(model, n, 0.00406235 * plate.Load * 1e4 / plate.Rigidity());
    }
    plate.Thickness = 0.3;
    Header("Square raft on springs of 5000 kN/m3, uniform load: settlement of the centre");
    for (const int n : {8, 16, 30, 60, 80, 100}) {
        plate.Nx = plate.Ny = n;
        Model model = Grid(plate);
        OnWinkler(model, 5000);
        Row(model, n, plate.Load / 5000);
    }
}
