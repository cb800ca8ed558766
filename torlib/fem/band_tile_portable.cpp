#define TORLIB_TILE_KERNEL PortableKernel
#define TORLIB_TILE_NAME "portable"
#define TORLIB_TILE_LANES 2
#define TORLIB_TILE_ROWS 4
#include "torlib/fem/band_tile.inl"
