#define TORLIB_TILE_KERNEL Avx2Kernel
#define TORLIB_TILE_NAME "avx2"
#define TORLIB_TILE_LANES 4
#define TORLIB_TILE_ROWS 4
#include "torlib/fem/band_tile.inl"
