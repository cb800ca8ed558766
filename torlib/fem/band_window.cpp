#include "torlib/fem/band_window.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

namespace torlib::band {

namespace {

// So far below the largest float that the roundings of all updates cannot carry a bound across it.
constexpr double SafeMagnitude = 3.0E38;

int BlocksFor(int width) {
    return 1 + (width + PanelRows - 1) / PanelRows;
}

std::ptrdiff_t StrideFor(int width) {
    return (BlocksFor(width) + 1) * PanelRows + TilePadding;
}

std::uint32_t MagnitudeBits(float value) {
    return std::bit_cast<std::uint32_t>(value) & 0x7FFFFFFFU;
}

double Magnitude(std::uint32_t bits) {
    constexpr std::uint32_t Infinity = 0x7F800000U;
    return static_cast<double>(std::bit_cast<float>(std::min(bits, Infinity)));
}

} // namespace

std::uint32_t PackRows(const RawBand& band, int first, int count, float* to,
                       std::ptrdiff_t stride) {
    std::uint32_t largest = 0;
    for (int j = 0; j < band.Width; ++j) {
        const float* const column = band.Entries + j * band.Stride + first;
        for (int r = 0; r < count; ++r) {
            to[r * stride + j] = column[r];
            largest = std::max(largest, MagnitudeBits(column[r]));
        }
    }
    return largest;
}

BandWindow::BandWindow(const Kernel& kernel, const RawBand& band)
    : kernel_(kernel),
      band_(band),
      blocks_(BlocksFor(band.Width)),
      stride_(StrideFor(band.Width)),
      rows_(static_cast<std::size_t>(stride_ * PanelRows * blocks_)),
      pivotRows_(static_cast<std::size_t>(PanelRows * stride_)),
      ratios_(static_cast<std::size_t>(PanelRows * stride_)) {}

void BandWindow::Open(int n) {
    std::fill(rows_.begin(), rows_.end(), 0.0F);
    largestEntry_ = 0;
    largestLoad_ = 0;
    open_ = true;
    StartPanel(n);
    Load(n, base_ + blocks_ * PanelRows);
}

void BandWindow::StartPanel(int n) {
    first_ = n;
    current_ = n;
    base_ = n / PanelRows * PanelRows;
    std::fill(pivotRows_.begin(), pivotRows_.end(), 0.0);
    std::fill(ratios_.begin(), ratios_.end(), 0.0);
    panel_ = {pivotRows_.data(), ratios_.data(), stride_, 0, n - base_ + band_.Width - 1};
}

float& BandWindow::Diagonal(int n) {
    if (n == base_ + PanelRows) {
        ApplyPanel();
        Store(first_, n);
        StartPanel(n);
        Load(loaded_, base_ + blocks_ * PanelRows);
    } else if (panel_.Count > 0) {
        kernel_.UpdateRow(panel_, n - base_, RowOf(n));
    }
    current_ = n + 1;
    return *EntryOf(n);
}

bool BandWindow::Eliminate(int n) {
    float* const entry = EntryOf(n);
    float* const load = band_.Load + n;
    const int others = band_.Width - 1;
    const std::ptrdiff_t right = panel_.Count * stride_ + (n - base_) + 1;
    double* const ratios = ratios_.data() + right;
    const double diagonal = static_cast<double>(entry[0]);
    const RowLimits limits =
        kernel_.Reduce(entry + 1, others, diagonal, pivotRows_.data() + right, ratios);
    const double largestEntry = largestEntry_ + limits.Ratio * limits.Row;
    const double largestLoad =
        largestLoad_ + limits.Ratio * std::fabs(static_cast<double>(load[0]));
    const double reduced = static_cast<double>(load[0]) / diagonal;
    if (!(largestEntry < SafeMagnitude && largestLoad < SafeMagnitude &&
          limits.Ratio < SafeMagnitude && std::fabs(reduced) < SafeMagnitude)) {
        std::fill_n(ratios, others, 0.0);
        std::fill_n(pivotRows_.data() + right, others, 0.0);
        return false;
    }
    largestEntry_ = largestEntry;
    largestLoad_ = largestLoad;
    kernel_.UpdateLoad(ratios, others, static_cast<double>(load[0]), load + 1);
    load[0] = static_cast<float>(reduced);
    std::transform(ratios, ratios + others, entry + 1,
                   [](double ratio) { return static_cast<float>(ratio); });
    ++panel_.Count;
    return true;
}

void BandWindow::Close() {
    if (!open_) {
        return;
    }
    open_ = false;
    ApplyPanel();
    Store(first_, loaded_);
}

void BandWindow::ApplyPanel() {
    if (panel_.Count == 0) {
        return;
    }
    const int end = base_ + panel_.Reach + panel_.Count;
    int row = current_;
    for (; row < end && (row - base_) % kernel_.TileRows != 0; ++row) {
        kernel_.UpdateRow(panel_, row - base_, RowOf(row));
    }
    for (; row < end; row += kernel_.TileRows) {
        kernel_.UpdateTile(panel_, row - base_, RowOf(row), stride_);
    }
}

void BandWindow::Load(int first, int last) {
    loaded_ = std::min(last, band_.Rows);
    std::uint32_t largestLoad = 0;
    for (int row = first; row < last;) {
        const int blockEnd = row / PanelRows * PanelRows + PanelRows;
        std::fill_n(RowOf(row), (blockEnd - row) * stride_, 0.0F);
        if (row < loaded_) {
            const int count = std::min(blockEnd, loaded_) - row;
            const std::uint32_t largest = PackRows(band_, row, count, EntryOf(row), stride_ + 1);
            largestEntry_ = std::max(largestEntry_, Magnitude(largest));
        }
        row = blockEnd;
    }
    for (int row = first; row < loaded_; ++row) {
        largestLoad = std::max(largestLoad, MagnitudeBits(band_.Load[row]));
    }
    largestLoad_ = std::max(largestLoad_, Magnitude(largestLoad));
}

void BandWindow::Store(int first, int last) {
    for (int row = first; row < last;) {
        const int end = std::min(row / PanelRows * PanelRows + PanelRows, last);
        const float* const entries = EntryOf(row);
        for (int j = 0; j < band_.Width; ++j) {
            float* const column = band_.Entries + j * band_.Stride;
            for (int r = row; r < end; ++r) {
                column[r] = entries[(r - row) * (stride_ + 1) + j];
            }
        }
        row = end;
    }
}

} // namespace torlib::band
