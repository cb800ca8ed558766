// What the listing of the type library cannot show: identifiers of their own, layout of records.

#include "tests/error_of.h"

#include "torlib/frame/class_catalogue.h"
#include "torlib/frame/records.h"
#include "torlib/platform/component/event_point.h"

#include <gtest/gtest.h>

#include <set>

namespace torlib {
namespace {

TEST(Catalogue, EveryIdentifierIsItsOwn) {
    std::set<std::u16string> ids{GuidText(LibraryId),       GuidText(WaitMessageEventsId),
                                 GuidText(IidUnknown),      GuidText(IidDispatch),
                                 GuidText(IidClassFactory), GuidText(IidEventPoint)};
    for (const CatalogueEntry& entry : ClassCatalogue()) {
        ids.insert(GuidText(entry.ClassId));
        ids.insert(GuidText(entry.InterfaceId));
    }
    EXPECT_EQ(ids.size(), 6 + 2 * 13U);
    EXPECT_EQ(test::ErrorOf([] { CatalogueEntryOf(u"Fem_class"); }), 429);
}

TEST(Records, HaveTheirPublishedLayoutAndStartAtZero) {
    EXPECT_EQ(offsetof(FElementType, Node), 4U);
    EXPECT_EQ(offsetof(FElementType, Side), 16U);
    EXPECT_EQ(offsetof(PlaneData, H), 24U);
    EXPECT_EQ(static_cast<Long>(FElementType{}.Type) + FElementType{}.Node[0], 0);
}

} // namespace
} // namespace torlib
