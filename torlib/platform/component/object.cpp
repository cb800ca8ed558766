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

std::int32_t Object::NumberOf(std::u16string_view member) const {
    RequireObject(member);
    const std::int32_t number = dispatch_->NumberOf(member);
    if (number == 0) {
        RaiseError(ErrorNumber::NoSuchMember, "the object has no member " + ToUtf8(member));
    }
    return number;
}

std::int32_t Object::NumberOf(std::int32_t member, std::u16string_view parameter) const {
    RequireObject(parameter);
    const std::int32_t number = dispatch_->ParameterNumberOf(member, parameter);
    if (number == 0) {
        RaiseError(ErrorNumber::NoSuchNamedArgument, "there is no parameter " + ToUtf8(parameter));
    }
    return number;
}

Variant Object::InvokeNumber(std::int32_t member, std::span<const Variant> arguments,
                             std::span<const std::int32_t> named) const {
    RequireObject(u"a member by number");
    return Checked([=](Dispatch& object, Variant& result, ErrorRecord& error) {
        return object.InvokeNumber(member, InvokeKind::MethodOrGet, arguments, named, &result,
                                   &error);
    });
}

Variant Object::InvokeNumber(std::int32_t member, std::initializer_list<Variant> arguments,
                             std::initializer_list<std::int32_t> named) const {
    return InvokeNumber(member, std::span(arguments.begin(), arguments.size()),
                        std::span(named.begin(), named.size()));
}

void Object::PutNumber(std::int32_t property, std::span<const Variant> arguments) const {
    RequireObject(u"a member by number");
    Checked([=](Dispatch& object, Variant& result, ErrorRecord& error) {
        return object.InvokeNumber(property, InvokeKind::PropertyPut, arguments, {}, &result,
                                   &error);
    });
}

void Object::PutNumber(std::int32_t property, const Variant& value) const {
    PutNumber(property, std::span(&value, 1));
}

void Object::RequireObject(std::u16string_view wanted) const {
    if (!dispatch_) {
        RaiseError(ErrorNumber::ObjectNotSet, "there is no object to ask for " + ToUtf8(wanted));
    }
}

template <class Call>
Variant Object::Checked(const Call& call) const {
    const Object alive = *this; // the call may take away the reference that it was made by
    Variant result;
    ErrorRecord error;
    if (call(*alive.dispatch_, result, error) != Result::Ok) {
        if (error.Number == 0) {
            RaiseError(ErrorNumber::InvalidArgument,
                       "the call failed and the object does not say why");
        }
        throw RunTimeError(static_cast<ErrorNumber>(error.Number), error.Member, error.Description);
    }
    return result;
}

Variant Object::Run(std::u16string_view member, InvokeKind kind,
                    std::vector<Argument>& arguments) const {
    RequireObject(member);
    return Checked([&](Dispatch& object, Variant& result, ErrorRecord& error) {
        return object.Invoke(member, kind, arguments, &result, &error);
    });
}

} // namespace torlib
