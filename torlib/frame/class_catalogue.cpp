#include "torlib/frame/class_catalogue.h"

#include "torlib/platform/component/variant.h"

namespace torlib {

namespace {

// Fixed once and for all: hosts keep them.
constexpr Guid Class(std::uint32_t number) {
    return {0xb24e9100 + number, 0x3f67, 0x4c8a, {0xa1, 0x5d, 0x72, 0x0e, 0x93, 0x4b, 0xc6, 0x18}};
}
constexpr Guid Interface(std::uint32_t number) {
    return {0xb24e9200 + number, 0x3f67, 0x4c8a, {0xa1, 0x5d, 0x72, 0x0e, 0x93, 0x4b, 0xc6, 0x18}};
}

constexpr CatalogueEntry catalogue[] = {
    {u"TORVAClass", Class(1), Interface(1)},
    {u"TORVASolverClass", Class(2), Interface(2)},
    {u"EnumConstantClass", Class(3), Interface(3)},
    {u"FEM_Class", Class(4), Interface(4)},
    {u"TORVAGraphicClass", Class(5), Interface(5)},
    {u"Piles_class", Class(6), Interface(6)},
    {u"Cls3dGraphics", Class(7), Interface(7)},
    {u"Math_Class", Class(8), Interface(8)},
    {u"Soil_Class", Class(9), Interface(9)},
    {u"ClsWaitMessage", Class(10), Interface(10)},
    {u"Geometry_Class", Class(11), Interface(11)},
    {u"Mindlin_class", Class(12), Interface(12)},
    {u"PileGeometry_Class", Class(13), Interface(13)},
};
static_assert(std::size(catalogue) == 13);

} // namespace

std::span<const CatalogueEntry> ClassCatalogue() {
    return catalogue;
}

const CatalogueEntry& CatalogueEntryOf(std::u16string_view name) {
    for (const CatalogueEntry& entry : catalogue) {
        if (entry.Name == name) {
            return entry;
        }
    }
    RaiseError(ErrorNumber::CannotCreateObject, "there is no class " + ToUtf8(name));
}

} // namespace torlib
