#include "torlib/platform/component/object.h"

namespace torlib {

Variant Object::Get(std::u16string_view property) const {
    return Invoke(property, {});
}

void Object::Put(std::u16string_view property, const Variant& value) const {
    PutIndexed(property, {}, value);
}

void Object::PutIndexed(std::u16string_view property, std::vector<Argument> indices,
                        const Variant& value) const {
    indices.emplace_back(value);
    Run(property, InvokeKind::PropertyPut, indices);
}

Variant Object::Invoke(std::u16string_view member, std::vector<Argument> arguments) const {
    return Run(member, InvokeKind::MethodOrGet, arguments);
}

Variant Object::Invoke(std::u16string_view member) const {
    return Invoke(member, {});
}

bool Object::Offers(std::u16string_view member) const {
    return dispatch_ && dispatch_->NumberOf(member) != 0;
}

Variant Object::Run(std::u16string_view member, InvokeKind kind,
                    std::vector<Argument>& arguments) const {
    if (!dispatch_) {
        RaiseError(ErrorNumber::ObjectNotSet, "there is no object to ask for " + ToUtf8(member));
    }
    const Object held(*this); // the member may end this reference
    Variant result;
    ErrorRecord error;
    const Result code = held.dispatch_->Invoke(member, kind, arguments, &result, &error);
    if (code != Result::Ok) {
        if (error.Number == 0) {
            RaiseError(ErrorNumber::InvalidArgument,
                       ToUtf8(member) + " failed and the object does not say why");
        }
        throw RunTimeError(static_cast<ErrorNumber>(error.Number), error.Member, error.Description);
    }
    return result;
}

} // namespace torlib
