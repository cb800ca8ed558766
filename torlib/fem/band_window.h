#pragma once
// The part of the band that the pivots of one panel touch, packed row by row. Equations count from
// 0 here. The window is a ring of blocks of PanelRows rows; within a block, entry (row, m) stands
// at m - (first row of the block), so that the same column lies at the same place in all rows of a
// block. What stands left of the diagonal there is scratch.
//
//     BandWindow window(kernel, band);
//     window.Open(n);
//     while (window.Diagonal(n) != 0 && window.Eliminate(n)) { ++n; }
//     window.Close();                        // the band holds what was done

#include "torlib/fem/band_tile.h"

#include <cstdint>
#include <vector>

namespace torlib::band {

/// A caller's band and load vector as raw floats; bounds were proved before.
struct RawBand {
    float* Entries;        ///< A(1, 1)
    std::ptrdiff_t Stride; ///< distance of A(1, 2) from A(1, 1)
    float* Load;           ///< Q(1)
    int Width;             ///< Nw
    int Rows;              ///< N3 + Nw - 1
};

/// Copies rows first..first+count-1 to row-major storage; `stride` is the distance of its rows.
/// Returns the bits of the largest magnitude, which as integers sort infinities and NaN last.
std::uint32_t PackRows(const RawBand& band, int first, int count, float* to, std::ptrdiff_t stride);

class BandWindow {
  public:
    BandWindow(const Kernel& kernel, const RawBand& band);
    ~BandWindow() { Close(); }
    BandWindow(const BandWindow&) = delete;
    BandWindow& operator=(const BandWindow&) = delete;

    bool IsOpen() const { return open_; }
    /// Packs the band from equation n on.
    void Open(int n);
    /// Brings row n up to date with all pivots above it and gives its diagonal.
    float& Diagonal(int n);
    /// Eliminates equation n; false, with nothing done, when a value might overflow.
    bool Eliminate(int n);
    /// Applies what is pending and writes all rows back.
    void Close();

  private:
    float* RowOf(int row) { return Block(row) + (row % PanelRows) * stride_; }
    float* Block(int row) {
        return rows_.data() + stride_ * PanelRows * (row / PanelRows % blocks_);
    }
    float* EntryOf(int row) { return RowOf(row) + row % PanelRows; }

    void StartPanel(int n);
    void ApplyPanel();
    void Load(int first, int last);
    void Store(int first, int last);

    const Kernel& kernel_;
    const RawBand band_;
    const int blocks_;
    const std::ptrdiff_t stride_;
    std::vector<float> rows_;
    std::vector<double> pivotRows_;
    std::vector<double> ratios_;
    Panel panel_ = {};
    bool open_ = false;
    int first_ = 0;           // first equation of the panel
    int base_ = 0;            // first row of its block
    int current_ = 0;         // rows up to this one have taken the panel's updates
    int loaded_ = 0;          // rows packed so far end here
    double largestEntry_ = 0; // bounds of all magnitudes in the window and its part of the load
    double largestLoad_ = 0;
};

} // namespace torlib::band
