#pragma once
// Caller-owned arrays of one or two dimensions with the caller's bounds, checked indices and
// column-major storage, so that numerical packages can look at the same memory without a copy.
//
//     Array<Single> A(Bounds{1, 3}, Bounds{1, 2});   // A(1..3, 1..2), all zero
//     A(3, 2) = 0.5;
//     A.ReDim(4);                                    // fresh: A(0..4), all zero
//     auto V = ArrayFromOne<Single>({1, 2, 3});      // V(0..3), values from index 1
//
// An array is fixed while its memory is somebody else's (Borrow) or somebody looks at it (Share):
// it keeps its bounds. Re-dimensioning or assigning with the bounds that it has works in place;
// with other bounds it is error 10.

#include "torlib/platform/component/run_time_error.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

namespace torlib {

/// Index range of one dimension; Upper = Lower - 1 is an empty range.
struct Bounds {
    int Lower = 0;
    int Upper = -1;

    friend bool operator==(const Bounds&, const Bounds&) = default;
};

/// The value types that cross the component boundary.
enum class ValueType : std::uint8_t {
    None,
    Integer,
    Long,
    Single,
    Double,
    Boolean,
    String,
    Variant,
    Object,
    Record,
};

/// Tells the ValueType and, for records, the record's name of a C++ type; specialised beside each
/// type that crosses the boundary.
template <class T>
struct ValueTypeOf;

template <>
struct ValueTypeOf<std::u16string> {
    static constexpr ValueType Type = ValueType::String;
    static constexpr const char16_t* RecordName = nullptr;
};
template <>
struct ValueTypeOf<double> {
    static constexpr ValueType Type = ValueType::Double;
    static constexpr const char16_t* RecordName = nullptr;
};
template <>
struct ValueTypeOf<std::int32_t> {
    static constexpr ValueType Type = ValueType::Long;
    static constexpr const char16_t* RecordName = nullptr;
};

/// What is common to arrays of every element type: bounds, and the errors of a bad index.
class TORLIB_API SafeArray {
  public:
    virtual ~SafeArray();

    /// 0 for an array that is not allocated.
    int Dimensions() const noexcept { return dimensions_; }
    /// Lower bound of dimension 1 or 2; error 9 for a dimension that is not there.
    int LBound(int dimension = 1) const { return Of(dimension).Lower; }
    /// Upper bound of dimension 1 or 2; error 9 for a dimension that is not there.
    int UBound(int dimension = 1) const { return Of(dimension).Upper; }
    ValueType ElementType() const noexcept { return type_; }
    const char16_t* RecordName() const noexcept { return recordName_; }

    /// Re-dimensions to 0..n, or 0..n x 0..m, all zero; a negative size is error 9.
    virtual void ReDim(int n) = 0;
    virtual void ReDim(int n, int m) = 0;
    /// Re-dimensions to these bounds, all zero; an upper bound below the lower one is error 9.
    virtual void ReDim(Bounds bounds) = 0;
    virtual void ReDim(Bounds rows, Bounds columns) = 0;
    /// Re-dimensions to 0..n keeping what both ranges hold at the same index.
    virtual void ReDimPreserve(int n) = 0;
    virtual void* RawData() noexcept = 0;
    virtual std::size_t ElementSize() const noexcept = 0;
    /// An array of the same element type that is not allocated.
    virtual std::unique_ptr<SafeArray> NewLike() const = 0;

    /// Stands in memory of somebody else, which `owner` keeps alive: elements column by column,
    /// one dimension, or two when there are columns. What the array held before is let go.
    virtual void Borrow(void* memory, std::shared_ptr<void> owner, Bounds rows) = 0;
    virtual void Borrow(void* memory, std::shared_ptr<void> owner, Bounds rows, Bounds columns) = 0;
    /// The memory of the elements for somebody who looks at it: it stays alive, and the array is
    /// fixed, as long as the result is held.
    virtual std::shared_ptr<void> Share() const = 0;

  protected:
    SafeArray(ValueType type, const char16_t* recordName) : type_(type), recordName_(recordName) {}
    SafeArray(const SafeArray&) = default;
    SafeArray& operator=(const SafeArray&) = delete;

    const Bounds& Of(int dimension) const;
    void CheckBounds(Bounds first, Bounds second) const;
    [[noreturn]] void RaiseIndex(int i) const;
    [[noreturn]] void RaiseIndex(int i, int j) const;
    [[noreturn]] void RaiseSize(int n) const;
    [[noreturn]] void RaiseFixed() const;
    bool HasBounds(int dimensions, Bounds first, Bounds second) const noexcept;
    void SwapShape(SafeArray& other) noexcept {
        std::swap(dimensions_, other.dimensions_);
        std::swap(bounds_, other.bounds_);
    }

    int dimensions_ = 0;
    Bounds bounds_[2];

  private:
    std::string Label() const;

    ValueType type_;
    const char16_t* recordName_;
};

template <class T>
class Array final : public SafeArray {
  public:
    static constexpr ValueType ElementTypeCode = ValueTypeOf<T>::Type;
    static constexpr const char16_t* ElementRecordName = ValueTypeOf<T>::RecordName;

    /// An array that is not allocated: every index is out of range until ReDim.
    Array() : SafeArray(ElementTypeCode, ElementRecordName) {}
    explicit Array(Bounds bounds) : Array() { Allocate(1, bounds, {0, 0}); }
    Array(Bounds rows, Bounds columns) : Array() { Allocate(2, rows, columns); }
    /// A copy stands in memory of its own.
    Array(const Array& other) : SafeArray(other), rows_(other.rows_), size_(other.size_) {
        if (other.memory_) {
            memory_ = std::make_shared<T[]>(size_);
            std::copy_n(other.Data(), size_, Data());
        }
    }
    Array(Array&& other) noexcept : Array() { Swap(other); }
    Array& operator=(Array other) {
        if (!IsFixed()) {
            Swap(other);
        } else if (HasBounds(other.dimensions_, other.bounds_[0], other.bounds_[1])) {
            std::move(other.Data(), other.Data() + size_, Data());
        } else {
            RaiseFixed();
        }
        return *this;
    }

    T& operator()(int i) {
        const auto k = static_cast<std::size_t>(i - bounds_[0].Lower);
        if (dimensions_ != 1 || i < bounds_[0].Lower || k >= rows_) {
            RaiseIndex(i);
        }
        return Data()[k];
    }
    const T& operator()(int i) const { return const_cast<Array&>(*this)(i); }

    T& operator()(int i, int j) {
        if (dimensions_ != 2 || i < bounds_[0].Lower || i > bounds_[0].Upper ||
            j < bounds_[1].Lower || j > bounds_[1].Upper) {
            RaiseIndex(i, j);
        }
        return Data()[static_cast<std::size_t>(i - bounds_[0].Lower) +
                      static_cast<std::size_t>(j - bounds_[1].Lower) * rows_];
    }
    const T& operator()(int i, int j) const { return const_cast<Array&>(*this)(i, j); }

    void ReDim(int n) override { ReAllocate(1, n, {0, n}, {0, 0}); }
    void ReDim(int n, int m) override { ReAllocate(2, n < m ? n : m, {0, n}, {0, m}); }
    void ReDim(Bounds bounds) override { Allocate(1, bounds, {0, 0}); }
    void ReDim(Bounds rows, Bounds columns) override { Allocate(2, rows, columns); }
    void ReDimPreserve(int n) override {
        if (n < 0) {
            RaiseSize(n);
        }
        Array fresh(Bounds{0, n});
        if (dimensions_ == 2) {
            RaiseIndex(n);
        }
        if (dimensions_ == 1) {
            for (int i = bounds_[0].Lower < 0 ? 0 : bounds_[0].Lower;
                 i <= n && i <= bounds_[0].Upper; ++i) {
                fresh(i) = (*this)(i);
            }
        }
        *this = std::move(fresh);
    }

    void Borrow(void* memory, std::shared_ptr<void> owner, Bounds rows) override {
        BorrowAs(1, memory, std::move(owner), rows, {0, 0});
    }
    void Borrow(void* memory, std::shared_ptr<void> owner, Bounds rows, Bounds columns) override {
        BorrowAs(2, memory, std::move(owner), rows, columns);
    }
    std::shared_ptr<void> Share() const override { return {memory_, memory_.get()}; }
    std::unique_ptr<SafeArray> NewLike() const override { return std::make_unique<Array>(); }

    /// The elements, column by column; the distance between columns is Rows().
    T* Data() noexcept { return memory_.get(); }
    const T* Data() const noexcept { return memory_.get(); }
    void* RawData() noexcept override { return memory_.get(); }
    std::size_t ElementSize() const noexcept override { return sizeof(T); }
    std::size_t Rows() const noexcept { return rows_; }
    std::size_t Size() const noexcept { return size_; }

  private:
    static std::size_t Length(Bounds range) {
        return static_cast<std::size_t>(std::int64_t{range.Upper} - range.Lower + 1);
    }
    bool IsFixed() const noexcept { return borrowed_ || memory_.use_count() > 1; }
    void Allocate(int dimensions, Bounds first, Bounds second) {
        CheckBounds(first, second);
        if (IsFixed() && !HasBounds(dimensions, first, second)) {
            RaiseFixed();
        }
        const std::size_t size = Length(first) * Length(second);
        if (memory_ && size == size_) {
            std::fill_n(Data(), size_, T());
        } else {
            TakeShape(0, {0, -1}, {0, 0}); // not allocated, should the memory not suffice
            memory_.reset();
            memory_ = std::make_shared<T[]>(size);
        }
        TakeShape(dimensions, first, second);
    }
    void ReAllocate(int dimensions, int smallest, Bounds first, Bounds second) {
        if (smallest < 0) {
            RaiseSize(smallest);
        }
        Allocate(dimensions, first, second);
    }
    void BorrowAs(int dimensions, void* memory, std::shared_ptr<void> owner, Bounds first,
                  Bounds second) {
        CheckBounds(first, second);
        memory_ = {std::move(owner), static_cast<T*>(memory)};
        borrowed_ = true;
        TakeShape(dimensions, first, second);
    }
    void TakeShape(int dimensions, Bounds first, Bounds second) {
        rows_ = Length(first);
        size_ = rows_ * Length(second);
        dimensions_ = dimensions;
        bounds_[0] = first;
        bounds_[1] = second;
    }
    void Swap(Array& other) noexcept {
        SwapShape(other);
        std::swap(rows_, other.rows_);
        std::swap(size_, other.size_);
        std::swap(memory_, other.memory_);
        std::swap(borrowed_, other.borrowed_);
    }

    std::size_t rows_ = 0;
    std::size_t size_ = 0;
    std::shared_ptr<T[]> memory_;
    bool borrowed_ = false;
};

/// An array 0..n whose elements 1..n hold the values; index 0 is zero.
template <class T>
Array<T> ArrayFromOne(std::initializer_list<T> values) {
    Array<T> result(Bounds{0, static_cast<int>(values.size())});
    int i = 0;
    for (const T& value : values) {
        result(++i) = value;
    }
    return result;
}

} // namespace torlib
