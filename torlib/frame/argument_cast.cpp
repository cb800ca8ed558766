#include "torlib/frame/argument_cast.h"

namespace torlib::table {

Variant DefaultOf(const Parameter& parameter) {
    switch (parameter.Default) {
        case Parameter::DefaultKind::Boolean:
            return Variant(parameter.Value != 0);
        case Parameter::DefaultKind::Number:
            return Variant(std::int32_t{parameter.Value});
        case Parameter::DefaultKind::LeftOut:
            return {};
        case Parameter::DefaultKind::Required:
            break;
    }
    RaiseError(ErrorNumber::ArgumentNotOptional, "the argument is not optional");
}

bool SameVariant(const Variant& a, const Variant& b) {
    return a.Value().index() == b.Value().index() &&
           std::visit(
               [&b]<class T>(const T& held) {
                   const T& other = std::get<T>(b.Value());
                   if constexpr (std::is_empty_v<T>) {
                       return true;
                   } else if constexpr (std::is_same_v<T, RecordReference>) {
                       return held.Address == other.Address;
                   } else {
                       return Same(held, other);
                   }
               },
               a.Value());
}

} // namespace torlib::table
