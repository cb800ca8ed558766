#pragma once
// A counted reference to a late-bound object, with the calls spelled out.
//
//     Object form = ...;
//     form.Get(u"PrB").ToObject().Put(u"Value", 3);
//     fem.Invoke(u"SolveMatrix", {Nw, N3, ByRef(A), ByRef(Q)});
//     fem.Invoke(u"SolveMatrix", {Nw, N3, ByRef(A), ByRef(Q), {u"PrograssBarMode", true}});
//
//     const std::int32_t Kz = piles.NumberOf(u"Kz");   // once; then many calls without the name
//     stiffness = piles.InvokeNumber(Kz, {load, settlement}).ToDouble();

#include "torlib/platform/component/unknown.h"

#include <initializer_list>
#include <utility>
#include <vector>

namespace torlib {

class TORLIB_API Object {
  public:
    Object() = default;
    Object(std::nullptr_t) {}
    /// Shares the object: takes a reference of its own.
    explicit Object(Dispatch* dispatch) : dispatch_(dispatch) {
        if (dispatch_) {
            dispatch_->AddRef();
        }
    }
    Object(const Object& other) : Object(other.dispatch_) {}
    Object(Object&& other) noexcept : dispatch_(std::exchange(other.dispatch_, nullptr)) {}
    Object& operator=(Object other) noexcept {
        std::swap(dispatch_, other.dispatch_);
        return *this;
    }
    ~Object() {
        if (dispatch_) {
            dispatch_->Release();
        }
    }

    /// Takes over a reference that the caller already holds.
    static Object Adopt(Dispatch* dispatch) {
        Object object;
        object.dispatch_ = dispatch;
        return object;
    }

    explicit operator bool() const noexcept { return dispatch_ != nullptr; }
    Dispatch* Pointer() const noexcept { return dispatch_; }
    friend bool operator==(const Object& a, const Object& b) { return a.dispatch_ == b.dispatch_; }

    /// Reads a property. Errors of the object come back with their number; no object raises 91.
    Variant Get(std::u16string_view property) const;
    /// Sets a property.
    void Put(std::u16string_view property, const Variant& value) const;
    /// Sets a property that takes indices.
    void PutIndexed(std::u16string_view property, std::vector<Argument> indices,
                    const Variant& value) const;
    /// Calls a method or reads a property, with positional and named arguments.
    Variant Invoke(std::u16string_view member, std::vector<Argument> arguments) const;
    Variant Invoke(std::u16string_view member) const;
    /// Whether the object has a member of this name; no object has none.
    bool Offers(std::u16string_view member) const;

    /// The number of a member, or of a parameter of a numbered member, for the calls below. A name
    /// that the object does not have raises 438, a parameter's 448.
    std::int32_t NumberOf(std::u16string_view member) const;
    std::int32_t NumberOf(std::int32_t member, std::u16string_view parameter) const;
    /// Calls a method or reads a property. The last arguments are for the parameters whose numbers
    /// stand in `named`.
    Variant InvokeNumber(std::int32_t member, std::span<const Variant> arguments = {},
                         std::span<const std::int32_t> named = {}) const;
    Variant InvokeNumber(std::int32_t member, std::initializer_list<Variant> arguments,
                         std::initializer_list<std::int32_t> named = {}) const;
    /// Sets a property, the new value last, behind the indices if it has any.
    void PutNumber(std::int32_t property, std::span<const Variant> arguments) const;
    void PutNumber(std::int32_t property, const Variant& value) const;

  private:
    void RequireObject(std::u16string_view wanted) const;
    template <class Call>
    Variant Checked(const Call& call) const;
    Variant Run(std::u16string_view member, InvokeKind kind,
                std::vector<Argument>& arguments) const;

    Dispatch* dispatch_ = nullptr;
};

} // namespace torlib

#include "torlib/platform/component/variant.h"
