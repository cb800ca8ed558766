#pragma once
// The innermost loops of the banded elimination on raw floats, one set of functions per
// instruction set, all compiled from band_tile.inl and all giving the same bits. This header and
// that source include no code of others, so nothing compiled for a newer processor can be
// linked into the rest of the program.
//
// Positions are relative to the start of the panel's block; they count from 0.

#include <cstddef>

namespace torlib::band {

/// Pivots of a panel; also rows per block of the window, so that a tile never leaves its block.
inline constexpr int PanelRows = 16;
/// Floats that a tile may read past the end of a row.
inline constexpr int TilePadding = 64;

/// Pivots that were eliminated and are not yet applied to the rows below.
struct Panel {
    const double* Rows;   ///< unscaled pivot rows: pivot q, position m at Rows[q * Stride + m]
    const double* Ratios; ///< ratio of row m to pivot q at Ratios[q * Stride + m], 0 out of reach
    std::ptrdiff_t Stride;
    int Count; ///< number of pivots
    int Reach; ///< last position that pivot 0 reaches; pivot q reaches Reach + q
};

/// Largest magnitudes of a pivot row and of its ratios.
struct RowLimits {
    double Row;
    double Ratio;
};

struct Kernel {
    const char* Name;
    int TileRows;
    /// Applies the panel to row `row`; `entries` is the row from its block's start on.
    void (*UpdateRow)(const Panel& panel, int row, float* entries);
    /// Applies the panel to TileRows rows that lie `stride` apart.
    void (*UpdateTile)(const Panel& panel, int row, float* entries, std::ptrdiff_t stride);
    /// Widens the n entries right of the diagonal and divides them by it.
    RowLimits (*Reduce)(const float* entries, int n, double diagonal, double* row, double* ratios);
    /// load[k] -= ratios[k] * pivotLoad, each rounded to 32 bits.
    void (*UpdateLoad)(const double* ratios, int n, double pivotLoad, float* load);
    /// value - ratios[0] * x[0] - ... from left to right, each step rounded to 32 bits; `steps`
    /// holds n floats of scratch.
    float (*BackSubstitute)(float value, const float* ratios, const float* x, int n, float* steps);
};

extern const Kernel PortableKernel;
#ifdef TORLIB_X86_KERNELS
extern const Kernel Avx2Kernel;
extern const Kernel Avx512Kernel;
#endif

} // namespace torlib::band
