// Body of the kernels in band_tile.h. The including source sets TORLIB_TILE_KERNEL (name of the
// kernel), TORLIB_TILE_LANES (doubles per vector) and TORLIB_TILE_ROWS (rows per tile).
//
// A product of two floats is exact in double precision, so a fused multiply-add and a multiply
// followed by a subtraction round alike and the compiler may choose.

#include "torlib/fem/band_tile.h"

#ifdef __AVX2__
#include <immintrin.h>
#endif

namespace torlib::band {
namespace {

constexpr int Lanes = TORLIB_TILE_LANES;
constexpr int TileRows = TORLIB_TILE_ROWS;
using Doubles = double __attribute__((vector_size(Lanes * sizeof(double))));
using Floats = float __attribute__((vector_size(Lanes * sizeof(float))));

#define TORLIB_TILE_INLINE [[gnu::always_inline]] inline
#ifdef __clang__
#define TORLIB_TILE_UNROLL _Pragma("clang loop unroll(full)")
#else
#define TORLIB_TILE_UNROLL _Pragma("GCC unroll 8")
#endif

TORLIB_TILE_INLINE Doubles LoadDoubles(const double* from) {
    Doubles values;
    __builtin_memcpy(&values, from, sizeof values);
    return values;
}

/// Spelled out where the compiler would widen the halves one by one.
TORLIB_TILE_INLINE Doubles Widen(Floats values) {
#if defined(__AVX512F__)
    return _mm512_maskz_cvtps_pd(0xFF, values); // all lanes; the plain form warns in gcc 12
#elif defined(__AVX2__)
    return _mm256_cvtps_pd(values);
#else
    return __builtin_convertvector(values, Doubles);
#endif
}

TORLIB_TILE_INLINE Doubles LoadFloats(const float* from) {
    Floats values;
    __builtin_memcpy(&values, from, sizeof values);
    return Widen(values);
}

TORLIB_TILE_INLINE void StoreFloats(float* to, Doubles values) {
    const Floats rounded = __builtin_convertvector(values, Floats);
    __builtin_memcpy(to, &rounded, sizeof rounded);
}

TORLIB_TILE_INLINE Doubles Round(Doubles values) {
    return Widen(__builtin_convertvector(values, Floats));
}

TORLIB_TILE_INLINE Doubles Positions(int first) {
    Doubles positions = {};
    for (int k = 0; k < Lanes; ++k) {
        positions[k] = first + k;
    }
    return positions;
}

/// R rows by V vectors whose running values stay in registers while all pivots pass.
template <int R, int V>
struct Tile {
    Doubles value[R][V];

    TORLIB_TILE_INLINE void Load(const float* entries, std::ptrdiff_t stride) {
        TORLIB_TILE_UNROLL
        for (int r = 0; r < R; ++r) {
            TORLIB_TILE_UNROLL
            for (int v = 0; v < V; ++v) {
                value[r][v] = LoadFloats(entries + r * stride + v * Lanes);
            }
        }
    }

    TORLIB_TILE_INLINE void Store(float* entries, std::ptrdiff_t stride) const {
        TORLIB_TILE_UNROLL
        for (int r = 0; r < R; ++r) {
            TORLIB_TILE_UNROLL
            for (int v = 0; v < V; ++v) {
                StoreFloats(entries + r * stride + v * Lanes, value[r][v]);
            }
        }
    }

    TORLIB_TILE_INLINE void Apply(const double* row, const double* ratios) {
        TORLIB_TILE_UNROLL
        for (int v = 0; v < V; ++v) {
            const Doubles b = LoadDoubles(row + v * Lanes);
            TORLIB_TILE_UNROLL
            for (int r = 0; r < R; ++r) {
                value[r][v] = Round(value[r][v] - ratios[r] * b);
            }
        }
    }

    /// Leaves what lies beyond the pivot's reach alone: subtracting zero would turn -0 into +0.
    TORLIB_TILE_INLINE void ApplyUpTo(int reach, int column, const double* row,
                                      const double* ratios) {
        TORLIB_TILE_UNROLL
        for (int v = 0; v < V; ++v) {
            const Doubles b = LoadDoubles(row + v * Lanes);
            const auto reached = Positions(column + v * Lanes) <= Doubles{} + reach;
            TORLIB_TILE_UNROLL
            for (int r = 0; r < R; ++r) {
                const Doubles next = Round(value[r][v] - ratios[r] * b);
                value[r][v] = reached ? next : value[r][v];
            }
        }
    }
};

template <int R, int V>
TORLIB_TILE_INLINE void Update(const Panel& panel, int row, float* entries, std::ptrdiff_t stride) {
    constexpr int Width = V * Lanes;
    static_assert(PanelRows % R == 0 && Width <= TilePadding);
    const int block = row / PanelRows * PanelRows;
    const int last = panel.Reach + panel.Count - 1;
    for (int column = row / Lanes * Lanes; column <= last; column += Width) {
        float* const corner = entries + (column - block);
        Tile<R, V> tile;
        tile.Load(corner, stride);
        const int nearest = column > row ? column : row;
        int q = nearest > panel.Reach ? nearest - panel.Reach : 0;
        for (; q < panel.Count && panel.Reach + q < column + Width - 1; ++q) {
            tile.ApplyUpTo(panel.Reach + q, column, panel.Rows + q * panel.Stride + column,
                           panel.Ratios + q * panel.Stride + row);
        }
        for (; q < panel.Count; ++q) {
            tile.Apply(panel.Rows + q * panel.Stride + column,
                       panel.Ratios + q * panel.Stride + row);
        }
        tile.Store(corner, stride);
    }
}

void UpdateRow(const Panel& panel, int row, float* entries) {
    Update<1, 4>(panel, row, entries, 0);
}

void UpdateTile(const Panel& panel, int row, float* entries, std::ptrdiff_t stride) {
    Update<TileRows, 2>(panel, row, entries, stride);
}

double Largest(Doubles values) {
    double largest = 0;
    for (int k = 0; k < Lanes; ++k) {
        largest = values[k] > largest ? values[k] : largest;
    }
    return largest;
}

TORLIB_TILE_INLINE Doubles LargerMagnitude(Doubles largest, Doubles values) {
    const Doubles magnitude = values < 0 ? -values : values;
    return magnitude > largest ? magnitude : largest;
}

RowLimits Reduce(const float* entries, int n, double diagonal, double* row, double* ratios) {
    Doubles largestRow = {};
    Doubles largestRatio = {};
    int k = 0;
    for (; k + Lanes <= n; k += Lanes) {
        const Doubles b = LoadFloats(entries + k);
        const Doubles c = Round(b / diagonal);
        __builtin_memcpy(row + k, &b, sizeof b);
        __builtin_memcpy(ratios + k, &c, sizeof c);
        largestRow = LargerMagnitude(largestRow, b);
        largestRatio = LargerMagnitude(largestRatio, c);
    }
    RowLimits limits = {Largest(largestRow), Largest(largestRatio)};
    for (; k < n; ++k) {
        row[k] = static_cast<double>(entries[k]);
        ratios[k] = static_cast<double>(static_cast<float>(row[k] / diagonal));
        const double b = __builtin_fabs(row[k]);
        const double c = __builtin_fabs(ratios[k]);
        limits.Row = b > limits.Row ? b : limits.Row;
        limits.Ratio = c > limits.Ratio ? c : limits.Ratio;
    }
    return limits;
}

void UpdateLoad(const double* ratios, int n, double pivotLoad, float* load) {
    int k = 0;
    for (; k + Lanes <= n; k += Lanes) {
        StoreFloats(load + k, LoadFloats(load + k) - LoadDoubles(ratios + k) * pivotLoad);
    }
    for (; k < n; ++k) {
        load[k] = static_cast<float>(static_cast<double>(load[k]) - ratios[k] * pivotLoad);
    }
}

float SubtractProduct(float value, float ratio, float x) {
    return static_cast<float>(static_cast<double>(value) -
                              static_cast<double>(ratio) * static_cast<double>(x));
}

#ifdef __FMA__
/// True when every step is the one that rounding to double and then to float gives.
bool StepsHold(float value, const float* ratios, const float* x, int n, const float* steps) {
    if (n > 0 && steps[0] != SubtractProduct(value, ratios[0], x[0])) {
        return false;
    }
    auto differs = Doubles{} != Doubles{};
    int k = 1;
    for (; k + Lanes <= n; k += Lanes) {
        const Doubles next =
            Round(LoadFloats(steps + k - 1) - LoadFloats(ratios + k) * LoadFloats(x + k));
        differs |= next != LoadFloats(steps + k);
    }
    bool holds = true;
    for (int lane = 0; lane < Lanes; ++lane) {
        holds = holds && differs[lane] == 0;
    }
    for (; k < n; ++k) {
        holds = holds && steps[k] == SubtractProduct(steps[k - 1], ratios[k], x[k]);
    }
    return holds;
}

/// The steps wait for one another; a fused multiply-add in single precision is the shortest wait
/// and differs from the rule about once in 2^29, which a check of all steps at once finds.
float BackSubstitute(float value, const float* ratios, const float* x, int n, float* steps) {
    float result = value;
    for (int k = 0; k < n; ++k) {
        result = __builtin_fmaf(-ratios[k], x[k], result);
        steps[k] = result;
    }
    if (StepsHold(value, ratios, x, n, steps)) {
        return result;
    }
    result = value;
    for (int k = 0; k < n; ++k) {
        result = SubtractProduct(result, ratios[k], x[k]);
    }
    return result;
}
#else
float BackSubstitute(float value, const float* ratios, const float* x, int n, float*) {
    for (int k = 0; k < n; ++k) {
        value = SubtractProduct(value, ratios[k], x[k]);
    }
    return value;
}
#endif

} // namespace

constinit const Kernel TORLIB_TILE_KERNEL = {
    TORLIB_TILE_NAME, TileRows, UpdateRow, UpdateTile, Reduce, UpdateLoad, BackSubstitute,
};

} // namespace torlib::band
