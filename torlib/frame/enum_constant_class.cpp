#include "torlib/frame/enum_constant_class.h"

#include "torlib/frame/class_table.h"

namespace torlib {

EnumConstantClass& EnumConstantClass::DefaultInstance() {
    static EnumConstantClass instance;
    return instance;
}

const ClassInfo& EnumConstantClass::Info() {
    static const ClassInfo info = DescribeClass<EnumConstantClass>(
        u"EnumConstantClass", u"Carries the shared enumerations; it has no members.", {});
    return info;
}

} // namespace torlib
