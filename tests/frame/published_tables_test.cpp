#include "torlib/frame/class_catalogue.h"
#include "torlib/frame/enum_constant_class.h"
#include "torlib/frame/enumeration_table.h"
#include "torlib/frame/record_table.h"
#include "torlib/frame/records.h"
#include "torlib/frame/type_library.h"

#include "tests/error_text.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace torlib {
namespace {

TEST(Catalogue, EveryIdentifierIsItsOwn) {
    std::set<std::u16string> ids{GuidText(LibraryId), GuidText(WaitMessageEventsId),
                                 GuidText(IidUnknown), GuidText(IidDispatch),
                                 GuidText(IidClassFactory)};
    for (const CatalogueEntry& entry : ClassCatalogue()) {
        ids.insert(GuidText(entry.ClassId));
        ids.insert(GuidText(entry.InterfaceId));
    }
    EXPECT_EQ(ids.size(), 5 + 2 * 13U);
    EXPECT_EQ(test::ErrorOf([] { CatalogueEntryOf(u"Fem_class"); }), 429);
}

TEST(Enumerations, HaveTheirPublishedSizesAndValues) {
    std::map<std::u16string_view, std::map<std::u16string_view, int>> known;
    for (const EnumerationInfo& enumeration : Enumerations()) {
        for (const EnumerationValue& value : enumeration.Values) {
            EXPECT_TRUE(known[enumeration.Name].emplace(value.Name, value.Value).second);
        }
    }
    EXPECT_EQ(known.size(), 24U);
    const struct {
        const char16_t* name;
        std::size_t count;
    } sizes[] = {{u"GraphicType", 58},        {u"UserBottomType", 41}, {u"SectionGraphics", 25},
                 {u"MeshDataType", 16},       {u"ButtonType", 10},     {u"SystemOfAnalysis", 9},
                 {u"MeshGenerationTypes", 9}, {u"SymmetricCase", 6}};
    for (const auto& c : sizes) {
        EXPECT_EQ(known[c.name].size(), c.count) << ToUtf8(c.name);
    }
    const struct {
        const char16_t* enumeration;
        const char16_t* value;
        int number;
    } values[] = {
        {u"UserBottomType", u"ZoomWindow", 60},
        {u"UserBottomType", u"Refine", 476},
        {u"UserBottomType", u"FixedDatum", 477},
        {u"UserBottomType", u"OrginCoord", 478},
        {u"IntegerLimits", u"MinInteger", -32000},
        {u"IntegerLimits", u"MaxInteger", 32000},
        {u"GraphicType", u"SpaceInternalForces1", 32},
        {u"GraphicType", u"AddData_ReactionV", 51},
        {u"GraphicType", u"AddData_StFrameDeformations", 64},
        {u"SectionGraphics", u"Draw_SupportReactions_Mz", 24},
        {u"SymmetricCase", u"Y_AntiSymmetric", 6},
        {u"MeshDataType", u"LoadWallPlate", 15},
        {u"ElementType", u"QuadrilateralElement", 4},
        {u"PenMode", u"R2_COPYPEN", 13},
        {u"CircSegment", u"NSegment", 16},
        {u"LogicFont", u"LF_FULLFACESIZE", 64},
    };
    for (const auto& c : values) {
        EXPECT_EQ(known[c.enumeration][c.value], c.number) << ToUtf8(c.value);
    }
}

TEST(Records, KeepTheirFieldsInOrderAndIndexZero) {
    std::string text;
    for (const RecordInfo& record : Records()) {
        text += ToUtf8(record.Name) + ":";
        for (const RecordField& field : record.Fields) {
            text += " " + ToUtf8(field.Name);
        }
        text += "; ";
    }
    EXPECT_EQ(text, "Vec3: x Y Z; PlaneData: Normal H; FVertex: Count Vert NTyColor Edge Color "
                    "Dividable PlaneID GenerationID; FElementType: Type Node Side; ");
    EXPECT_EQ(offsetof(FElementType, Node), 4U);
    EXPECT_EQ(offsetof(FElementType, Side), 16U);
    EXPECT_EQ(offsetof(PlaneData, H), 24U);
    EXPECT_EQ(static_cast<Long>(FElementType{}.Type), 0) << "a fresh record is zero everywhere";
    EXPECT_EQ(FElementType{}.Node[0], 0) << "index 0 is there, though the routines start at 1";
}

TEST(TypeLibrary, ListsEveryClassOfTheCatalogueAndMarksThoseWithoutCode) {
    const ClassInfo* classes[] = {&EnumConstantClass::Info()};
    const std::string text = TypeLibraryText(classes);
    std::size_t without = 0;
    for (std::size_t at = text.find("without code"); at != std::string::npos;
         at = text.find("without code", at + 1)) {
        ++without;
    }
    EXPECT_EQ(without, 12U);
    for (const CatalogueEntry& entry : ClassCatalogue()) {
        EXPECT_NE(
            text.find("\nclass " + ToUtf8(entry.Name) + " " + ToUtf8(GuidText(entry.ClassId))),
            std::string::npos);
    }
}

} // namespace
} // namespace torlib
