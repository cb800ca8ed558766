#pragma once
// An optional by-reference output: writes reach the caller's variable, or nothing when it was left
// out.
//
//     bool CheckConvergence(..., OptionalRef<Single> Big = {});
//     fem.CheckConvergence(n, e_new, e_old, tolerance, big);

namespace torlib {

template <class T>
class OptionalRef {
  public:
    OptionalRef() = default;
    OptionalRef(T& target) : target_(&target) {}

    bool Present() const noexcept { return target_ != nullptr; }
    /// The caller's variable, for a member that computes in it; `standIn` when it was left out.
    T& Or(T& standIn) const noexcept { return target_ ? *target_ : standIn; }
    void Set(const T& value) const {
        if (target_) {
            *target_ = value;
        }
    }

  private:
    T* target_ = nullptr;
};

template <class T>
inline constexpr bool IsOptionalRef = false;
template <class T>
inline constexpr bool IsOptionalRef<OptionalRef<T>> = true;

} // namespace torlib
