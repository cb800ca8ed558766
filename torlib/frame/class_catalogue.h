#pragma once
// The thirteen public classes with their fixed identifiers, whether or not they have code yet.

#include "torlib/platform/component/unknown.h"

#include <span>
#include <string_view>

namespace torlib {

struct CatalogueEntry {
    std::u16string_view Name;
    Guid ClassId;
    Guid InterfaceId;
};

inline constexpr std::u16string_view LibraryName = u"TORVALib";
inline constexpr std::u16string_view LibraryDescription = u"TORVA Library";
inline constexpr int LibraryMajorVersion = 74;
inline constexpr int LibraryMinorVersion = 1;
inline constexpr Guid LibraryId{
    0xb24e9000, 0x3f67, 0x4c8a, {0xa1, 0x5d, 0x72, 0x0e, 0x93, 0x4b, 0xc6, 0x18}};
/// Identifier of the event interface __ClsWaitMessage.
inline constexpr Guid WaitMessageEventsId{
    0xb24e9300, 0x3f67, 0x4c8a, {0xa1, 0x5d, 0x72, 0x0e, 0x93, 0x4b, 0xc6, 0x18}};

TORLIB_API std::span<const CatalogueEntry> ClassCatalogue();

/// The entry of a class; an unknown name raises 429.
TORLIB_API const CatalogueEntry& CatalogueEntryOf(std::u16string_view name);

} // namespace torlib
