#pragma once
// The shared enumerations. Several serve only the host's own user interface and are published so
// that host and library agree on the values.

#include "torlib/frame/argument_cast.h"

#include <cstdint>

namespace torlib {

/// Arrow heads of a symbol.
enum class ArrowType : std::int32_t {
    SingleArrow = 1,
    DoubleArrow = 2,
};

/// The axis a picture looks along or a section follows.
enum class AxisDirection : std::int32_t {
    ZAxis = 0,
    XAxis = 1,
    YAxis = 2,
};

/// Tool-bar buttons of the host.
enum class ButtonType : std::int32_t {
    TB_NEW = 2,
    TB_OPEN = 3,
    TB_SAVE = 4,
    TB_UNDO = 6,
    TB_CUT = 7,
    TB_COPY = 8,
    TB_PASTE = 9,
    TB_BOLD = 11,
    TB_ITALIC = 12,
    TB_UNDERLINE = 13,
};

/// The systems that a host analyses.
enum class SystemOfAnalysis : std::int32_t {
    SlabFoundation = 0,
    SpaceFrame = 1,
    SlabFloor = 2,
    FoundationWithFrame = 3,
    FoundationWithFloors = 4,
    SystemOfSlabFoundation = 5,
    Gridbeams = 6,
    PlaneFrame = 7,
    WallPlate = 8,
};

/// Sizes of font face names.
enum class LogicFont : std::int32_t {
    LF_FACESIZE = 32,
    LF_FULLFACESIZE = 64,
};

/// Tool bars of the host.
enum class ToolBarType : std::int32_t {
    TB_CANCEL = 0,
    TB_EDIT = 1,
    TB_DRAW = 2,
};

/// What a mesh node is.
enum class TypeOfNode : std::int32_t {
    FreeNode = 0,
    ExistNode = 1,
    BoundaryNode = 2,
};

/// Plate elements by their number of corner nodes.
enum class ElementType : std::int32_t {
    TriangularElement = 3,
    QuadrilateralElement = 4,
};

/// Stock objects and the fill mode of the graphics interface.
enum class NULLGraphic : std::int32_t {
    ALTERNATE = 1,
    NULL_BRUSH = 5,
    NULL_PEN = 8,
};

/// Limits that the host uses for counts; narrower than the 16-bit range.
enum class IntegerLimits : std::int32_t {
    MinInteger = -32000,
    MaxInteger = 32000,
};

/// Mapping modes of the graphics interface.
enum class MapMode : std::int32_t {
    MM_TEXT = 1,
    MM_HIMETRIC = 3,
    MM_ISOTROPIC = 7,
    MM_ANISOTROPIC = 8,
};

/// Raster operations of a pen.
enum class PenMode : std::int32_t {
    R2_NOT = 6,
    R2_COPYPEN = 13,
};

/// Symmetry of the modelled part about y = ymax (the X cases) and x = xmax (the Y cases).
enum class SymmetricCase : std::int32_t {
    Unsymmetric = 1,
    X_symmetric = 2,
    Y_Symmetric = 3,
    XY_Symmetric = 4,
    X_AntiSymmetric = 5,
    Y_AntiSymmetric = 6,
};

/// The host's data dialogs.
enum class MeshDataType : std::int32_t {
    Terminate = 0,
    FENet = 1,
    EditBoundary = 2,
    Material = 3,
    Loads = 4,
    BeamElement = 5,
    Boring = 6,
    SpringSupport = 7,
    AddtionalSettlement = 8,
    EditPiles = 9,
    EditFrameSupports = 10,
    EditWallSupports = 11,
    SpringSupportFrame = 12,
    SpringSupportWall = 13,
    LoadPlaneFrame = 14,
    LoadWallPlate = 15,
};

/// Mesh generators of the host.
enum class MeshGenerationTypes : std::int32_t {
    GridBased_Rect = 0,
    GridBased_I = 1,
    GridBased_II = 2,
    GridBased_III = 3,
    GridBased_IV = 4,
    Delaunay = 5,
    Circle_Rect = 6,
    Circle_Trng = 7,
    Circle_Curved = 8,
};

/// How soil data between borings are found.
enum class BoringFieldType : std::int32_t {
    InterpolationMethod = 1,
    subareaMethod = 2,
    BorByHand = 3,
};

/// Load cases of a frame.
enum class FrameLoadCase : std::int32_t {
    SelfWeight = 1,
    SnowLoad = 2,
    WindLoad = 3,
};

/// Hinges at the ends of a frame member.
enum class FrameHingedType : std::int32_t {
    No_Hinge = 0,
    I_Hinge = 1,
    J_Hinge = 2,
    IJ_Hinge = 3,
};

/// Kind of a side of a surface.
enum class EdgeType : std::int32_t {
    OuterEdge = 0,
    InnerEdge = 1,
    AtNode = 2,
};

/// Place of an element in a row of the mesh.
enum class ElementPositionType : std::int32_t {
    LeftElement = 0,
    MidElement = 1,
    RightElement = 2,
    FullElement = 3,
};

/// Segments that stand for a circle.
enum class CircSegment : std::int32_t {
    NSegment = 16,
};

template <>
struct ValueTypeOf<EdgeType> {
    static constexpr ValueType Type = ValueType::Long;
    static constexpr const char16_t* RecordName = u"EdgeType";
};
template <>
struct PublishedName<AxisDirection> {
    static constexpr const char16_t* Name = u"AxisDirection";
};
template <>
struct PublishedName<ArrowType> {
    static constexpr const char16_t* Name = u"ArrowType";
};
template <>
struct PublishedName<ElementType> {
    static constexpr const char16_t* Name = u"ElementType";
};
template <>
struct PublishedName<SymmetricCase> {
    static constexpr const char16_t* Name = u"SymmetricCase";
};
template <>
struct PublishedName<FrameHingedType> {
    static constexpr const char16_t* Name = u"FrameHingedType";
};

} // namespace torlib
