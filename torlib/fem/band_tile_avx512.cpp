#define TORLIB_TILE_KERNEL Avx512Kernel
#define TORLIB_TILE_NAME "avx512"
#define TORLIB_TILE_LANES 8
#define TORLIB_TILE_ROWS 8
#include "torlib/fem/band_tile.inl"
