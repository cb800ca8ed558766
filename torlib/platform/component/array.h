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
// with other bounds it is error 10. Bounds that need more memory than there is are error 7; the
// array is then not allocated. Any 32-bit bounds will do, -2147483648 among them.

#include "torlib/platform/component/array_block.h"
#include "torlib/platform/component/module_count.h"
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

    SafeArray(const SafeArray&) = delete;
    SafeArray& operator=(const SafeArray&) = delete;

  protected:
    SafeArray(ValueType type, const char16_t* recordName) noexcept
        : type_(type), recordName_(recordName) {}

    const Bounds& Of(int dimension) const;
    void CheckBounds(Bounds first, Bounds second) const;
    /// Whether the bytes of so many elements can be counted at all.
    static bool CanBeCounted(Bounds first, Bounds second, std::size_t elementSize) noexcept;
    [[noreturn]] void RaiseIndex(int i) const;
    [[noreturn]] void RaiseIndex(int i, int j) const;
    [[noreturn]] void RaiseSize(int n) const;
    [[noreturn]] void RaiseFixed() const;
    [[noreturn]] void RaiseMemory(int dimensions, Bounds first, Bounds second) const;
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
    ModuleHold hold_;
};

template <class T>
class Array final : public SafeArray {
  public:
    static constexpr ValueType ElementTypeCode = ValueTypeOf<T>::Type;
    static constexpr const char16_t* ElementRecordName = ValueTypeOf<T>::RecordName;

    /// An array that is not allocated: every index is out of range until ReDim.
    Array() noexcept : SafeArray(ElementTypeCode, ElementRecordName) {}
    explicit Array(Bounds bounds) : Array() { Allocate(1, bounds, {0, 0}); }
    Array(Bounds rows, Bounds columns) : Array() { Allocate(2, rows, columns); }
    /// A copy stands in memory of its own.
    Array(const Array& other) : Array() {
        if (other.dimensions_ != 0) {
            Allocate(other.dimensions_, other.bounds_[0], other.bounds_[1]);
            std::copy_n(other.data_, Size(), data_);
        }
    }
    Array(Array&& other) noexcept : Array() { Swap(other); }
    Array& operator=(Array other) {
        if (!IsFixed()) {
            Swap(other);
        } else if (HasBounds(other.dimensions_, other.bounds_[0], other.bounds_[1])) {
            std::move(other.data_, other.data_ + Size(), data_);
        } else {
            RaiseFixed();
        }
        return *this;
    }

    T& operator()(int i) {
        const std::uint32_t k = Distance(i, bounds_[0].Lower);
        if (dimensions_ != 1 || k >= rows_) {
            RaiseIndex(i);
        }
        return data_[k];
    }
    const T& operator()(int i) const { return const_cast<Array&>(*this)(i); }

    T& operator()(int i, int j) {
        const std::uint32_t k = Distance(i, bounds_[0].Lower);
        const std::uint32_t l = Distance(j, bounds_[1].Lower);
        if (dimensions_ != 2 || k >= rows_ || l >= columns_) {
            RaiseIndex(i, j);
        }
        return data_[k + l * rows_];
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
        if (dimensions_ == 2) {
            RaiseIndex(n);
        }
        Array fresh;
        fresh.Take(NewElements(1, {0, n}, {0, 0}), 1, {0, n}, {0, 0});
        const int first = std::max(bounds_[0].Lower, 0);
        const int last = std::min(bounds_[0].Upper, n);
        if (dimensions_ == 1 && first <= last) {
            std::copy_n(&(*this)(first), Length({first, last}), &fresh(first));
        }
        *this = std::move(fresh);
    }

    void Borrow(void* memory, std::shared_ptr<void> owner, Bounds rows) override {
        BorrowAs(1, memory, std::move(owner), rows, {0, 0});
    }
    void Borrow(void* memory, std::shared_ptr<void> owner, Bounds rows, Bounds columns) override {
        BorrowAs(2, memory, std::move(owner), rows, columns);
    }
    std::shared_ptr<void> Share() const override {
        if (borrowed_ || !data_) {
            return {owner_, data_};
        }
        return {data_, Look{elements_, {}}};
    }
    std::unique_ptr<SafeArray> NewLike() const override { return std::make_unique<Array>(); }

    /// The elements, column by column; the distance between columns is Rows().
    T* Data() noexcept { return data_; }
    const T* Data() const noexcept { return data_; }
    void* RawData() noexcept override { return data_; }
    std::size_t ElementSize() const noexcept override { return sizeof(T); }
    std::size_t Rows() const noexcept { return rows_; }
    std::size_t Size() const noexcept { return rows_ * columns_; }

  private:
    /// Lets go of the memory that somebody looked at.
    struct Look {
        ArrayElements<T> Elements;
        ModuleHold Hold;
        void operator()(const void* /*memory*/) { Elements = {}; }
    };

    static std::size_t Length(Bounds range) {
        return static_cast<std::size_t>(std::int64_t{range.Upper} - range.Lower + 1);
    }
    /// An index below the lower bound comes out beyond any upper one.
    static std::uint32_t Distance(int i, int lower) {
        return static_cast<std::uint32_t>(i) - static_cast<std::uint32_t>(lower);
    }
    bool IsFixed() const noexcept { return borrowed_ || elements_.IsShared(); }
    ArrayElements<T> NewElements(int dimensions, Bounds first, Bounds second) const {
        ArrayElements<T> fresh;
        if (CanBeCounted(first, second, sizeof(T))) {
            fresh = ArrayElements<T>::New(Length(first) * Length(second));
        }
        if (!fresh) {
            RaiseMemory(dimensions, first, second);
        }
        return fresh;
    }
    void Allocate(int dimensions, Bounds first, Bounds second) {
        CheckBounds(first, second);
        if (IsFixed() && !HasBounds(dimensions, first, second)) {
            RaiseFixed();
        }
        if (dimensions_ != 0 && CanBeCounted(first, second, sizeof(T)) &&
            Length(first) * Length(second) == Size()) {
            std::fill_n(data_, Size(), T());
            TakeShape(dimensions, first, second);
        } else {
            Take({}, 0, {0, -1}, {0, 0}); // the old memory goes before the new one comes
            Take(NewElements(dimensions, first, second), dimensions, first, second);
        }
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
        if (!CanBeCounted(first, second, sizeof(T))) {
            RaiseMemory(dimensions, first, second);
        }
        elements_ = {};
        data_ = static_cast<T*>(memory);
        owner_ = std::move(owner);
        borrowed_ = true;
        TakeShape(dimensions, first, second);
    }
    void Take(ArrayElements<T> elements, int dimensions, Bounds first, Bounds second) noexcept {
        elements_ = std::move(elements);
        data_ = elements_.Data();
        TakeShape(dimensions, first, second);
    }
    void TakeShape(int dimensions, Bounds first, Bounds second) noexcept {
        rows_ = Length(first);
        columns_ = Length(second);
        dimensions_ = dimensions;
        bounds_[0] = first;
        bounds_[1] = second;
    }
    void Swap(Array& other) noexcept {
        SwapShape(other);
        std::swap(rows_, other.rows_);
        std::swap(columns_, other.columns_);
        std::swap(data_, other.data_);
        std::swap(elements_, other.elements_);
        std::swap(owner_, other.owner_);
        std::swap(borrowed_, other.borrowed_);
    }

    std::size_t rows_ = 0;
    std::size_t columns_ = 0;
    T* data_ = nullptr; // in the elements' block, or in memory that the owner keeps
    ArrayElements<T> elements_;
    std::shared_ptr<void> owner_;
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
