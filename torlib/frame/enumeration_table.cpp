#include "torlib/frame/enumeration_table.h"

#include "torlib/frame/enumerations.h"
#include "torlib/frame/picture_enumerations.h"

namespace torlib {

namespace {

constexpr EnumerationValue values_of_ArrowType[] = {
    {u"SingleArrow", static_cast<std::int32_t>(ArrowType::SingleArrow)},
    {u"DoubleArrow", static_cast<std::int32_t>(ArrowType::DoubleArrow)},
};
constexpr EnumerationValue values_of_AxisDirection[] = {
    {u"ZAxis", static_cast<std::int32_t>(AxisDirection::ZAxis)},
    {u"XAxis", static_cast<std::int32_t>(AxisDirection::XAxis)},
    {u"YAxis", static_cast<std::int32_t>(AxisDirection::YAxis)},
};
constexpr EnumerationValue values_of_ButtonType[] = {
    {u"TB_NEW", static_cast<std::int32_t>(ButtonType::TB_NEW)},
    {u"TB_OPEN", static_cast<std::int32_t>(ButtonType::TB_OPEN)},
    {u"TB_SAVE", static_cast<std::int32_t>(ButtonType::TB_SAVE)},
    {u"TB_UNDO", static_cast<std::int32_t>(ButtonType::TB_UNDO)},
    {u"TB_CUT", static_cast<std::int32_t>(ButtonType::TB_CUT)},
    {u"TB_COPY", static_cast<std::int32_t>(ButtonType::TB_COPY)},
    {u"TB_PASTE", static_cast<std::int32_t>(ButtonType::TB_PASTE)},
    {u"TB_BOLD", static_cast<std::int32_t>(ButtonType::TB_BOLD)},
    {u"TB_ITALIC", static_cast<std::int32_t>(ButtonType::TB_ITALIC)},
    {u"TB_UNDERLINE", static_cast<std::int32_t>(ButtonType::TB_UNDERLINE)},
};
constexpr EnumerationValue values_of_SystemOfAnalysis[] = {
    {u"SlabFoundation", static_cast<std::int32_t>(SystemOfAnalysis::SlabFoundation)},
    {u"SpaceFrame", static_cast<std::int32_t>(SystemOfAnalysis::SpaceFrame)},
    {u"SlabFloor", static_cast<std::int32_t>(SystemOfAnalysis::SlabFloor)},
    {u"FoundationWithFrame", static_cast<std::int32_t>(SystemOfAnalysis::FoundationWithFrame)},
    {u"FoundationWithFloors", static_cast<std::int32_t>(SystemOfAnalysis::FoundationWithFloors)},
    {u"SystemOfSlabFoundation",
     static_cast<std::int32_t>(SystemOfAnalysis::SystemOfSlabFoundation)},
    {u"Gridbeams", static_cast<std::int32_t>(SystemOfAnalysis::Gridbeams)},
    {u"PlaneFrame", static_cast<std::int32_t>(SystemOfAnalysis::PlaneFrame)},
    {u"WallPlate", static_cast<std::int32_t>(SystemOfAnalysis::WallPlate)},
};
constexpr EnumerationValue values_of_LogicFont[] = {
    {u"LF_FACESIZE", static_cast<std::int32_t>(LogicFont::LF_FACESIZE)},
    {u"LF_FULLFACESIZE", static_cast<std::int32_t>(LogicFont::LF_FULLFACESIZE)},
};
constexpr EnumerationValue values_of_ToolBarType[] = {
    {u"TB_CANCEL", static_cast<std::int32_t>(ToolBarType::TB_CANCEL)},
    {u"TB_EDIT", static_cast<std::int32_t>(ToolBarType::TB_EDIT)},
    {u"TB_DRAW", static_cast<std::int32_t>(ToolBarType::TB_DRAW)},
};
constexpr EnumerationValue values_of_TypeOfNode[] = {
    {u"FreeNode", static_cast<std::int32_t>(TypeOfNode::FreeNode)},
    {u"ExistNode", static_cast<std::int32_t>(TypeOfNode::ExistNode)},
    {u"BoundaryNode", static_cast<std::int32_t>(TypeOfNode::BoundaryNode)},
};
constexpr EnumerationValue values_of_ElementType[] = {
    {u"TriangularElement", static_cast<std::int32_t>(ElementType::TriangularElement)},
    {u"QuadrilateralElement", static_cast<std::int32_t>(ElementType::QuadrilateralElement)},
};
constexpr EnumerationValue values_of_NULLGraphic[] = {
    {u"ALTERNATE", static_cast<std::int32_t>(NULLGraphic::ALTERNATE)},
    {u"NULL_BRUSH", static_cast<std::int32_t>(NULLGraphic::NULL_BRUSH)},
    {u"NULL_PEN", static_cast<std::int32_t>(NULLGraphic::NULL_PEN)},
};
constexpr EnumerationValue values_of_IntegerLimits[] = {
    {u"MinInteger", static_cast<std::int32_t>(IntegerLimits::MinInteger)},
    {u"MaxInteger", static_cast<std::int32_t>(IntegerLimits::MaxInteger)},
};
constexpr EnumerationValue values_of_MapMode[] = {
    {u"MM_TEXT", static_cast<std::int32_t>(MapMode::MM_TEXT)},
    {u"MM_HIMETRIC", static_cast<std::int32_t>(MapMode::MM_HIMETRIC)},
    {u"MM_ISOTROPIC", static_cast<std::int32_t>(MapMode::MM_ISOTROPIC)},
    {u"MM_ANISOTROPIC", static_cast<std::int32_t>(MapMode::MM_ANISOTROPIC)},
};
constexpr EnumerationValue values_of_PenMode[] = {
    {u"R2_NOT", static_cast<std::int32_t>(PenMode::R2_NOT)},
    {u"R2_COPYPEN", static_cast<std::int32_t>(PenMode::R2_COPYPEN)},
};
constexpr EnumerationValue values_of_SymmetricCase[] = {
    {u"Unsymmetric", static_cast<std::int32_t>(SymmetricCase::Unsymmetric)},
    {u"X_symmetric", static_cast<std::int32_t>(SymmetricCase::X_symmetric)},
    {u"Y_Symmetric", static_cast<std::int32_t>(SymmetricCase::Y_Symmetric)},
    {u"XY_Symmetric", static_cast<std::int32_t>(SymmetricCase::XY_Symmetric)},
    {u"X_AntiSymmetric", static_cast<std::int32_t>(SymmetricCase::X_AntiSymmetric)},
    {u"Y_AntiSymmetric", static_cast<std::int32_t>(SymmetricCase::Y_AntiSymmetric)},
};
constexpr EnumerationValue values_of_MeshDataType[] = {
    {u"Terminate", static_cast<std::int32_t>(MeshDataType::Terminate)},
    {u"FENet", static_cast<std::int32_t>(MeshDataType::FENet)},
    {u"EditBoundary", static_cast<std::int32_t>(MeshDataType::EditBoundary)},
    {u"Material", static_cast<std::int32_t>(MeshDataType::Material)},
    {u"Loads", static_cast<std::int32_t>(MeshDataType::Loads)},
    {u"BeamElement", static_cast<std::int32_t>(MeshDataType::BeamElement)},
    {u"Boring", static_cast<std::int32_t>(MeshDataType::Boring)},
    {u"SpringSupport", static_cast<std::int32_t>(MeshDataType::SpringSupport)},
    {u"AddtionalSettlement", static_cast<std::int32_t>(MeshDataType::AddtionalSettlement)},
    {u"EditPiles", static_cast<std::int32_t>(MeshDataType::EditPiles)},
    {u"EditFrameSupports", static_cast<std::int32_t>(MeshDataType::EditFrameSupports)},
    {u"EditWallSupports", static_cast<std::int32_t>(MeshDataType::EditWallSupports)},
    {u"SpringSupportFrame", static_cast<std::int32_t>(MeshDataType::SpringSupportFrame)},
    {u"SpringSupportWall", static_cast<std::int32_t>(MeshDataType::SpringSupportWall)},
    {u"LoadPlaneFrame", static_cast<std::int32_t>(MeshDataType::LoadPlaneFrame)},
    {u"LoadWallPlate", static_cast<std::int32_t>(MeshDataType::LoadWallPlate)},
};
constexpr EnumerationValue values_of_MeshGenerationTypes[] = {
    {u"GridBased_Rect", static_cast<std::int32_t>(MeshGenerationTypes::GridBased_Rect)},
    {u"GridBased_I", static_cast<std::int32_t>(MeshGenerationTypes::GridBased_I)},
    {u"GridBased_II", static_cast<std::int32_t>(MeshGenerationTypes::GridBased_II)},
    {u"GridBased_III", static_cast<std::int32_t>(MeshGenerationTypes::GridBased_III)},
    {u"GridBased_IV", static_cast<std::int32_t>(MeshGenerationTypes::GridBased_IV)},
    {u"Delaunay", static_cast<std::int32_t>(MeshGenerationTypes::Delaunay)},
    {u"Circle_Rect", static_cast<std::int32_t>(MeshGenerationTypes::Circle_Rect)},
    {u"Circle_Trng", static_cast<std::int32_t>(MeshGenerationTypes::Circle_Trng)},
    {u"Circle_Curved", static_cast<std::int32_t>(MeshGenerationTypes::Circle_Curved)},
};
constexpr EnumerationValue values_of_BoringFieldType[] = {
    {u"InterpolationMethod", static_cast<std::int32_t>(BoringFieldType::InterpolationMethod)},
    {u"subareaMethod", static_cast<std::int32_t>(BoringFieldType::subareaMethod)},
    {u"BorByHand", static_cast<std::int32_t>(BoringFieldType::BorByHand)},
};
constexpr EnumerationValue values_of_FrameLoadCase[] = {
    {u"SelfWeight", static_cast<std::int32_t>(FrameLoadCase::SelfWeight)},
    {u"SnowLoad", static_cast<std::int32_t>(FrameLoadCase::SnowLoad)},
    {u"WindLoad", static_cast<std::int32_t>(FrameLoadCase::WindLoad)},
};
constexpr EnumerationValue values_of_FrameHingedType[] = {
    {u"No_Hinge", static_cast<std::int32_t>(FrameHingedType::No_Hinge)},
    {u"I_Hinge", static_cast<std::int32_t>(FrameHingedType::I_Hinge)},
    {u"J_Hinge", static_cast<std::int32_t>(FrameHingedType::J_Hinge)},
    {u"IJ_Hinge", static_cast<std::int32_t>(FrameHingedType::IJ_Hinge)},
};
constexpr EnumerationValue values_of_EdgeType[] = {
    {u"OuterEdge", static_cast<std::int32_t>(EdgeType::OuterEdge)},
    {u"InnerEdge", static_cast<std::int32_t>(EdgeType::InnerEdge)},
    {u"AtNode", static_cast<std::int32_t>(EdgeType::AtNode)},
};
constexpr EnumerationValue values_of_ElementPositionType[] = {
    {u"LeftElement", static_cast<std::int32_t>(ElementPositionType::LeftElement)},
    {u"MidElement", static_cast<std::int32_t>(ElementPositionType::MidElement)},
    {u"RightElement", static_cast<std::int32_t>(ElementPositionType::RightElement)},
    {u"FullElement", static_cast<std::int32_t>(ElementPositionType::FullElement)},
};
constexpr EnumerationValue values_of_CircSegment[] = {
    {u"NSegment", static_cast<std::int32_t>(CircSegment::NSegment)},
};
constexpr EnumerationValue values_of_GraphicType[] = {
    {u"ResultIsometric", static_cast<std::int32_t>(GraphicType::ResultIsometric)},
    {u"ContourLines", static_cast<std::int32_t>(GraphicType::ContourLines)},
    {u"ValueTabulation", static_cast<std::int32_t>(GraphicType::ValueTabulation)},
    {u"ResultDistribuation", static_cast<std::int32_t>(GraphicType::ResultDistribuation)},
    {u"CircularDiagramms", static_cast<std::int32_t>(GraphicType::CircularDiagramms)},
    {u"Deformation", static_cast<std::int32_t>(GraphicType::Deformation)},
    {u"MainMoment", static_cast<std::int32_t>(GraphicType::MainMoment)},
    {u"ReactionArrows", static_cast<std::int32_t>(GraphicType::ReactionArrows)},
    {u"SoilVectorDeformation", static_cast<std::int32_t>(GraphicType::SoilVectorDeformation)},
    {u"SoilMeshDeformation", static_cast<std::int32_t>(GraphicType::SoilMeshDeformation)},
    {u"SoilPrincipalStress", static_cast<std::int32_t>(GraphicType::SoilPrincipalStress)},
    {u"SoilPrincipalStrain", static_cast<std::int32_t>(GraphicType::SoilPrincipalStrain)},
    {u"DataIsometric", static_cast<std::int32_t>(GraphicType::DataIsometric)},
    {u"DataPlan", static_cast<std::int32_t>(GraphicType::DataPlan)},
    {u"ExtFoundition", static_cast<std::int32_t>(GraphicType::ExtFoundition)},
    {u"Bohrprofile", static_cast<std::int32_t>(GraphicType::Bohrprofile)},
    {u"BohrLayer", static_cast<std::int32_t>(GraphicType::BohrLayer)},
    {u"PunchingShear", static_cast<std::int32_t>(GraphicType::PunchingShear)},
    {u"PlanBeamResults", static_cast<std::int32_t>(GraphicType::PlanBeamResults)},
    {u"IsoBeamResults", static_cast<std::int32_t>(GraphicType::IsoBeamResults)},
    {u"LimitDepthSection", static_cast<std::int32_t>(GraphicType::LimitDepthSection)},
    {u"WallPrincipalStress", static_cast<std::int32_t>(GraphicType::WallPrincipalStress)},
    {u"WallPrincipalStrain", static_cast<std::int32_t>(GraphicType::WallPrincipalStrain)},
    {u"SpaceNumbering1", static_cast<std::int32_t>(GraphicType::SpaceNumbering1)},
    {u"SpaceLoads1", static_cast<std::int32_t>(GraphicType::SpaceLoads1)},
    {u"SpaceInternalForces1", static_cast<std::int32_t>(GraphicType::SpaceInternalForces1)},
    {u"AddData_SlabNumbering", static_cast<std::int32_t>(GraphicType::AddData_SlabNumbering)},
    {u"AddData_Coordinate", static_cast<std::int32_t>(GraphicType::AddData_Coordinate)},
    {u"AddData_ElementGroups", static_cast<std::int32_t>(GraphicType::AddData_ElementGroups)},
    {u"AddData_SlabThickness", static_cast<std::int32_t>(GraphicType::AddData_SlabThickness)},
    {u"AddData_SystemLoading", static_cast<std::int32_t>(GraphicType::AddData_SystemLoading)},
    {u"AddData_ColumnType", static_cast<std::int32_t>(GraphicType::AddData_ColumnType)},
    {u"AddData_BoundaryConditions",
     static_cast<std::int32_t>(GraphicType::AddData_BoundaryConditions)},
    {u"AddData_BoundaryConditionsFrame",
     static_cast<std::int32_t>(GraphicType::AddData_BoundaryConditionsFrame)},
    {u"AddData_BoundaryConditionsWall",
     static_cast<std::int32_t>(GraphicType::AddData_BoundaryConditionsWall)},
    {u"AddData_SpringSupports", static_cast<std::int32_t>(GraphicType::AddData_SpringSupports)},
    {u"AddData_SpringSupportsFrame",
     static_cast<std::int32_t>(GraphicType::AddData_SpringSupportsFrame)},
    {u"AddData_SpringSupportsWall",
     static_cast<std::int32_t>(GraphicType::AddData_SpringSupportsWall)},
    {u"AddData_LoadPlaneFrame", static_cast<std::int32_t>(GraphicType::AddData_LoadPlaneFrame)},
    {u"AddData_LoadWallPlate", static_cast<std::int32_t>(GraphicType::AddData_LoadWallPlate)},
    {u"AddData_SystemGirder", static_cast<std::int32_t>(GraphicType::AddData_SystemGirder)},
    {u"AddData_BeamTorsionMoments",
     static_cast<std::int32_t>(GraphicType::AddData_BeamTorsionMoments)},
    {u"AddData_BeamBendingMomentsMb",
     static_cast<std::int32_t>(GraphicType::AddData_BeamBendingMomentsMb)},
    {u"AddData_BeamShearForcesQs",
     static_cast<std::int32_t>(GraphicType::AddData_BeamShearForcesQs)},
    {u"AddData_ReactionV", static_cast<std::int32_t>(GraphicType::AddData_ReactionV)},
    {u"AddData_ReactionMx", static_cast<std::int32_t>(GraphicType::AddData_ReactionMx)},
    {u"AddData_ReactionMy", static_cast<std::int32_t>(GraphicType::AddData_ReactionMy)},
    {u"AddData_ReactionRv", static_cast<std::int32_t>(GraphicType::AddData_ReactionRv)},
    {u"AddData_ReactionRh", static_cast<std::int32_t>(GraphicType::AddData_ReactionRh)},
    {u"AddData_ReactionMz", static_cast<std::int32_t>(GraphicType::AddData_ReactionMz)},
    {u"AddData_Bohrprofile", static_cast<std::int32_t>(GraphicType::AddData_Bohrprofile)},
    {u"AddData_Piles", static_cast<std::int32_t>(GraphicType::AddData_Piles)},
    {u"AddData_AddtionalSettlement",
     static_cast<std::int32_t>(GraphicType::AddData_AddtionalSettlement)},
    {u"AddData_PunchingShear", static_cast<std::int32_t>(GraphicType::AddData_PunchingShear)},
    {u"AddData_StrVerticalDisplacements",
     static_cast<std::int32_t>(GraphicType::AddData_StrVerticalDisplacements)},
    {u"AddData_StrHorizontalDisplacements",
     static_cast<std::int32_t>(GraphicType::AddData_StrHorizontalDisplacements)},
    {u"AddData_StrRotation", static_cast<std::int32_t>(GraphicType::AddData_StrRotation)},
    {u"AddData_StFrameDeformations",
     static_cast<std::int32_t>(GraphicType::AddData_StFrameDeformations)},
};
constexpr EnumerationValue values_of_UserBottomType[] = {
    {u"NoBottom", static_cast<std::int32_t>(UserBottomType::NoBottom)},
    {u"IrregularSlab", static_cast<std::int32_t>(UserBottomType::IrregularSlab)},
    {u"circularSlab", static_cast<std::int32_t>(UserBottomType::circularSlab)},
    {u"SquareSlab", static_cast<std::int32_t>(UserBottomType::SquareSlab)},
    {u"RectangularSlab", static_cast<std::int32_t>(UserBottomType::RectangularSlab)},
    {u"RingSlab", static_cast<std::int32_t>(UserBottomType::RingSlab)},
    {u"QuarterCricularSlab", static_cast<std::int32_t>(UserBottomType::QuarterCricularSlab)},
    {u"QuarterRingSlab", static_cast<std::int32_t>(UserBottomType::QuarterRingSlab)},
    {u"NodeMark", static_cast<std::int32_t>(UserBottomType::NodeMark)},
    {u"InsertNode", static_cast<std::int32_t>(UserBottomType::InsertNode)},
    {u"PointLoad", static_cast<std::int32_t>(UserBottomType::PointLoad)},
    {u"MomentMx", static_cast<std::int32_t>(UserBottomType::MomentMx)},
    {u"MomentMy", static_cast<std::int32_t>(UserBottomType::MomentMy)},
    {u"LineLoad", static_cast<std::int32_t>(UserBottomType::LineLoad)},
    {u"LineM", static_cast<std::int32_t>(UserBottomType::LineM)},
    {u"DistLoadPolygon", static_cast<std::int32_t>(UserBottomType::DistLoadPolygon)},
    {u"DistLoadUniform", static_cast<std::int32_t>(UserBottomType::DistLoadUniform)},
    {u"LoadDelete", static_cast<std::int32_t>(UserBottomType::LoadDelete)},
    {u"LoadMarking", static_cast<std::int32_t>(UserBottomType::LoadMarking)},
    {u"BeamDelete", static_cast<std::int32_t>(UserBottomType::BeamDelete)},
    {u"BeamAdd", static_cast<std::int32_t>(UserBottomType::BeamAdd)},
    {u"BeamMarking", static_cast<std::int32_t>(UserBottomType::BeamMarking)},
    {u"ElementData", static_cast<std::int32_t>(UserBottomType::ElementData)},
    {u"EditHinge", static_cast<std::int32_t>(UserBottomType::EditHinge)},
    {u"RemoveHinge", static_cast<std::int32_t>(UserBottomType::RemoveHinge)},
    {u"EditFrameDL", static_cast<std::int32_t>(UserBottomType::EditFrameDL)},
    {u"RemoveFrameDL", static_cast<std::int32_t>(UserBottomType::RemoveFrameDL)},
    {u"NewGenerationOverOldOne",
     static_cast<std::int32_t>(UserBottomType::NewGenerationOverOldOne)},
    {u"CompleteGridData", static_cast<std::int32_t>(UserBottomType::CompleteGridData)},
    {u"CompleteMeshBoundary", static_cast<std::int32_t>(UserBottomType::CompleteMeshBoundary)},
    {u"AutoGeneration", static_cast<std::int32_t>(UserBottomType::AutoGeneration)},
    {u"DrawMeshBoundary", static_cast<std::int32_t>(UserBottomType::DrawMeshBoundary)},
    {u"DrawOpeningBoundary", static_cast<std::int32_t>(UserBottomType::DrawOpeningBoundary)},
    {u"DrawLineBoundary", static_cast<std::int32_t>(UserBottomType::DrawLineBoundary)},
    {u"DrawPointBoundary", static_cast<std::int32_t>(UserBottomType::DrawPointBoundary)},
    {u"BoringTriangle", static_cast<std::int32_t>(UserBottomType::BoringTriangle)},
    {u"BoringLinear", static_cast<std::int32_t>(UserBottomType::BoringLinear)},
    {u"ZoomWindow", static_cast<std::int32_t>(UserBottomType::ZoomWindow)},
    {u"Refine", static_cast<std::int32_t>(UserBottomType::Refine)},
    {u"FixedDatum", static_cast<std::int32_t>(UserBottomType::FixedDatum)},
    {u"OrginCoord", static_cast<std::int32_t>(UserBottomType::OrginCoord)},
};
constexpr EnumerationValue values_of_SectionGraphics[] = {
    {u"Draw_Settlements", static_cast<std::int32_t>(SectionGraphics::Draw_Settlements)},
    {u"Draw_ContactPressures", static_cast<std::int32_t>(SectionGraphics::Draw_ContactPressures)},
    {u"Draw_Moments_mx", static_cast<std::int32_t>(SectionGraphics::Draw_Moments_mx)},
    {u"Draw_Moments_my", static_cast<std::int32_t>(SectionGraphics::Draw_Moments_my)},
    {u"Draw_Moments_mxy", static_cast<std::int32_t>(SectionGraphics::Draw_Moments_mxy)},
    {u"Draw_ShearForces_Qx", static_cast<std::int32_t>(SectionGraphics::Draw_ShearForces_Qx)},
    {u"Draw_ShearForces_Qy", static_cast<std::int32_t>(SectionGraphics::Draw_ShearForces_Qy)},
    {u"Draw_SupportReactions_V",
     static_cast<std::int32_t>(SectionGraphics::Draw_SupportReactions_V)},
    {u"Draw_SupportReactions_Mx",
     static_cast<std::int32_t>(SectionGraphics::Draw_SupportReactions_Mx)},
    {u"Draw_SupportReactions_My",
     static_cast<std::int32_t>(SectionGraphics::Draw_SupportReactions_My)},
    {u"Draw_TopReinforcements_X",
     static_cast<std::int32_t>(SectionGraphics::Draw_TopReinforcements_X)},
    {u"Draw_TopReinforcements_Y",
     static_cast<std::int32_t>(SectionGraphics::Draw_TopReinforcements_Y)},
    {u"Draw_BottomReinforcements_X",
     static_cast<std::int32_t>(SectionGraphics::Draw_BottomReinforcements_X)},
    {u"Draw_BottomReinforcements_Y",
     static_cast<std::int32_t>(SectionGraphics::Draw_BottomReinforcements_Y)},
    {u"Draw_ModulusOfsubgradeReactionsks",
     static_cast<std::int32_t>(SectionGraphics::Draw_ModulusOfsubgradeReactionsks)},
    {u"Draw_DisplacementsDueToTemperatureChangeSt",
     static_cast<std::int32_t>(SectionGraphics::Draw_DisplacementsDueToTemperatureChangeSt)},
    {u"Draw_StrSettlementsDueToExternalFoundationsSe",
     static_cast<std::int32_t>(SectionGraphics::Draw_StrSettlementsDueToExternalFoundationsSe)},
    {u"Draw_StrAdditionalSoilSettlementsSs",
     static_cast<std::int32_t>(SectionGraphics::Draw_StrAdditionalSoilSettlementsSs)},
    {u"Draw_StrUltimateBearingCapacity",
     static_cast<std::int32_t>(SectionGraphics::Draw_StrUltimateBearingCapacity)},
    {u"Draw_StrPrincipalMoments_hm1",
     static_cast<std::int32_t>(SectionGraphics::Draw_StrPrincipalMoments_hm1)},
    {u"Draw_StrPrincipalMoments_hm2",
     static_cast<std::int32_t>(SectionGraphics::Draw_StrPrincipalMoments_hm2)},
    {u"Draw_HorizontalDisplacements_u",
     static_cast<std::int32_t>(SectionGraphics::Draw_HorizontalDisplacements_u)},
    {u"Draw_SupportReactions_Rv",
     static_cast<std::int32_t>(SectionGraphics::Draw_SupportReactions_Rv)},
    {u"Draw_SupportReactions_Rh",
     static_cast<std::int32_t>(SectionGraphics::Draw_SupportReactions_Rh)},
    {u"Draw_SupportReactions_Mz",
     static_cast<std::int32_t>(SectionGraphics::Draw_SupportReactions_Mz)},
};

constexpr EnumerationInfo enumerations[] = {
    {u"ArrowType", values_of_ArrowType},
    {u"AxisDirection", values_of_AxisDirection},
    {u"ButtonType", values_of_ButtonType},
    {u"SystemOfAnalysis", values_of_SystemOfAnalysis},
    {u"LogicFont", values_of_LogicFont},
    {u"ToolBarType", values_of_ToolBarType},
    {u"TypeOfNode", values_of_TypeOfNode},
    {u"ElementType", values_of_ElementType},
    {u"NULLGraphic", values_of_NULLGraphic},
    {u"IntegerLimits", values_of_IntegerLimits},
    {u"MapMode", values_of_MapMode},
    {u"PenMode", values_of_PenMode},
    {u"SymmetricCase", values_of_SymmetricCase},
    {u"MeshDataType", values_of_MeshDataType},
    {u"MeshGenerationTypes", values_of_MeshGenerationTypes},
    {u"BoringFieldType", values_of_BoringFieldType},
    {u"FrameLoadCase", values_of_FrameLoadCase},
    {u"FrameHingedType", values_of_FrameHingedType},
    {u"EdgeType", values_of_EdgeType},
    {u"ElementPositionType", values_of_ElementPositionType},
    {u"CircSegment", values_of_CircSegment},
    {u"GraphicType", values_of_GraphicType},
    {u"UserBottomType", values_of_UserBottomType},
    {u"SectionGraphics", values_of_SectionGraphics},
};

} // namespace

std::span<const EnumerationInfo> Enumerations() {
    return enumerations;
}

} // namespace torlib
