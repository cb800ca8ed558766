#include "torlib/frame/record_table.h"

#include "torlib/frame/records.h"

namespace torlib {

namespace {

template <class T>
struct FieldType {
    static constexpr ParameterType Type = table::Description<T>::Value;
    static constexpr int FixedUpper = -1;
};
template <class T, std::size_t N>
struct FieldType<std::array<T, N>> {
    static constexpr ParameterType Type = table::Description<T>::Value;
    static constexpr int FixedUpper = static_cast<int>(N) - 1;
};
template <>
struct FieldType<Vec3> {
    static constexpr ParameterType Type{ValueType::Record, u"Vec3"};
    static constexpr int FixedUpper = -1;
};

template <class Record, class T>
constexpr RecordField Field(T Record::*, std::u16string_view name) {
    return {name, FieldType<T>::Type, FieldType<T>::FixedUpper};
}

constexpr RecordField fields_of_Vec3[] = {
    Field(&Vec3::x, u"x"),
    Field(&Vec3::Y, u"Y"),
    Field(&Vec3::Z, u"Z"),
};
constexpr RecordField fields_of_PlaneData[] = {
    Field(&PlaneData::Normal, u"Normal"),
    Field(&PlaneData::H, u"H"),
};
constexpr RecordField fields_of_FVertex[] = {
    Field(&FVertex::Count, u"Count"),       Field(&FVertex::Vert, u"Vert"),
    Field(&FVertex::NTyColor, u"NTyColor"), Field(&FVertex::Edge, u"Edge"),
    Field(&FVertex::Color, u"Color"),       Field(&FVertex::Dividable, u"Dividable"),
    Field(&FVertex::PlaneID, u"PlaneID"),   Field(&FVertex::GenerationID, u"GenerationID"),
};
constexpr RecordField fields_of_FElementType[] = {
    Field(&FElementType::Type, u"Type"),
    Field(&FElementType::Node, u"Node"),
    Field(&FElementType::Side, u"Side"),
};

constexpr RecordInfo records[] = {
    {u"Vec3", u"A point or direction.", fields_of_Vec3},
    {u"PlaneData", u"Plane of a surface, Normal . P = H.", fields_of_PlaneData},
    {u"FVertex", u"A polygon surface in space.", fields_of_FVertex},
    {u"FElementType", u"A mesh element with its corner nodes.", fields_of_FElementType},
};

} // namespace

std::span<const RecordInfo> Records() {
    return records;
}

} // namespace torlib
