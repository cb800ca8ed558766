#include "torlib/server/class_list.h"

#include "torlib/fem/fem_class.h"
#include "torlib/frame/enum_constant_class.h"
#include "torlib/geometry/geometry_class.h"
#include "torlib/numeric/math_class.h"
#include "torlib/piles/mindlin_class.h"
#include "torlib/piles/pile_geometry_class.h"
#include "torlib/piles/piles_class.h"
#include "torlib/soil/soil_class.h"
#include "torlib/ui/torva_class.h"

namespace torlib {

std::span<const ClassInfo* const> BuiltClasses() {
    static const ClassInfo* const classes[] = {
        &TORVAClass::Info(),     &EnumConstantClass::Info(), &FEM_Class::Info(),
        &Piles_class::Info(),    &Math_Class::Info(),        &Soil_Class::Info(),
        &Geometry_Class::Info(), &Mindlin_class::Info(),     &PileGeometry_Class::Info(),
    };
    return classes;
}

const ClassInfo* FindClass(const Guid& classId) {
    for (const ClassInfo* info : BuiltClasses()) {
        if (info->ClassId == classId) {
            return info;
        }
    }
    return nullptr;
}

} // namespace torlib
