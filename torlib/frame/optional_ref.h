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
    void Set(const T& value) const {
        if (target_) {
            *target_ = value;
        }
    }

  private:
    T* target_ = nullptr;
};

} // namespace torlib
