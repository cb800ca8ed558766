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
    static constexpr ParameterType Type = [] {
        ParameterType type = table::Description<T>::Value;
        type.NewArray = &table::NewArray<T>;
        return type;
    }();
    static constexpr int FixedUpper = static_cast<int>(N) - 1;
};

template <class T>
void* AddressOf(T& field) {
    if constexpr (std::is_base_of_v<SafeArray, T>) {
        return static_cast<SafeArray*>(&field);
    } else {
        return &field;
    }
}

template <class Record, class T>
constexpr RecordField Typed(T Record::*, std::u16string_view name, void* (*locate)(void*)) {
    return {name, FieldType<T>::Type, FieldType<T>::FixedUpper, locate};
}

template <class Record, auto Member>
constexpr RecordField Field(std::u16string_view name) {
    return Typed(Member, name,
                 [](void* record) { return AddressOf(static_cast<Record*>(record)->*Member); });
}

template <class Record>
constexpr RecordInfo Described(std::u16string_view doc, std::span<const RecordField> fields) {
    return {ValueTypeOf<Record>::RecordName,
            doc,
            fields,
            sizeof(Record),
            []() -> std::shared_ptr<void> { return std::make_shared<Record>(); },
            [](void* to, const void* from) {
                *static_cast<Record*>(to) = *static_cast<const Record*>(from);
            },
            &table::NewArray<Record>};
}

constexpr RecordField fields_of_Vec3[] = {
    Field<Vec3, &Vec3::x>(u"x"),
    Field<Vec3, &Vec3::Y>(u"Y"),
    Field<Vec3, &Vec3::Z>(u"Z"),
};
constexpr RecordField fields_of_PlaneData[] = {
    Field<PlaneData, &PlaneData::Normal>(u"Normal"),
    Field<PlaneData, &PlaneData::H>(u"H"),
};
constexpr RecordField fields_of_FVertex[] = {
    Field<FVertex, &FVertex::Count>(u"Count"),
    Field<FVertex, &FVertex::Vert>(u"Vert"),
    Field<FVertex, &FVertex::NTyColor>(u"NTyColor"),
    Field<FVertex, &FVertex::Edge>(u"Edge"),
    Field<FVertex, &FVertex::Color>(u"Color"),
    Field<FVertex, &FVertex::Dividable>(u"Dividable"),
    Field<FVertex, &FVertex::PlaneID>(u"PlaneID"),
    Field<FVertex, &FVertex::GenerationID>(u"GenerationID"),
};
constexpr RecordField fields_of_FElementType[] = {
    Field<FElementType, &FElementType::Type>(u"Type"),
    Field<FElementType, &FElementType::Node>(u"Node"),
    Field<FElementType, &FElementType::Side>(u"Side"),
};

constexpr RecordInfo records[] = {
    Described<Vec3>(u"A point or direction.", fields_of_Vec3),
    Described<PlaneData>(u"Plane of a surface, Normal . P = H.", fields_of_PlaneData),
    Described<FVertex>(u"A polygon surface in space.", fields_of_FVertex),
    Described<FElementType>(u"A mesh element with its corner nodes.", fields_of_FElementType),
};

} // namespace

std::span<const RecordInfo> Records() {
    return records;
}

} // namespace torlib
