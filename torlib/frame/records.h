#pragma once
// The records that cross the library's boundary.
//
// The published layout counts the bytes of a 32-bit machine. Here the order of the fields is kept
// and the machine's natural alignment applies: Vec3 24 bytes, PlaneData 32 (28 published, padded to
// a multiple of 8), FElementType 36, and FVertex larger than its 28, since it holds whole arrays.

#include "torlib/frame/enumerations.h"

#include <array>

namespace torlib {

/// A point or direction, in model units, or in device units after a rotation.
struct Vec3 {
    double x = 0;
    double Y = 0;
    double Z = 0;
};
static_assert(sizeof(Vec3) == 24);

/// Plane of a surface: points P of the plane satisfy Normal . P = H.
struct PlaneData {
    Vec3 Normal; ///< unit normal, zero for a degenerate polygon
    Single H;    ///< plane offset
};
static_assert(sizeof(PlaneData) == 32);

/// A polygon surface in space.
struct FVertex {
    Integer Count;          ///< number of corners
    Array<Integer> Vert;    ///< corner vertex numbers 1..Count into an array of Vec3
    Long NTyColor = 0;      ///< base colour of the shading group, blue 65536 + green 256 + red
    Array<EdgeType> Edge;   ///< Edge(i) is the kind of the side from corner i to corner i + 1
    Long Color = 0;         ///< shaded colour, written by the shading
    bool Dividable = false; ///< the surface may be cut
    Integer PlaneID;        ///< plane that the surface belongs to
    Integer GenerationID;   ///< pieces of one cut surface share it
};

/// A mesh element with its corner nodes; index 0 of both arrays is not used.
struct FElementType {
    ElementType Type{};            ///< number of corners; 0 in a fresh record
    std::array<Integer, 5> Node{}; ///< corner node numbers in Node[1..Type]
    std::array<Long, 5> Side{};    ///< flags of the side from Node[j] to the next node
};
static_assert(sizeof(FElementType) == 36);

template <>
struct ValueTypeOf<Vec3> {
    static constexpr ValueType Type = ValueType::Record;
    static constexpr const char16_t* RecordName = u"Vec3";
};
template <>
struct ValueTypeOf<PlaneData> {
    static constexpr ValueType Type = ValueType::Record;
    static constexpr const char16_t* RecordName = u"PlaneData";
};
template <>
struct ValueTypeOf<FVertex> {
    static constexpr ValueType Type = ValueType::Record;
    static constexpr const char16_t* RecordName = u"FVertex";
};
template <>
struct ValueTypeOf<FElementType> {
    static constexpr ValueType Type = ValueType::Record;
    static constexpr const char16_t* RecordName = u"FElementType";
};

} // namespace torlib
