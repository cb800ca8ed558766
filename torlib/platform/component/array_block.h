#pragma once
// The memory of an array's elements, shared and counted. It comes from the C allocator and holds no
// pointer to a function, so that a client may use and free what a server allocated, also after the
// server was unloaded.

#include "torlib/platform/api.h"

#include <atomic>
#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

namespace torlib {

/// Stands in front of the elements.
struct ArrayBlock {
    std::atomic<std::size_t> Holders;
    std::size_t Size;
};
static_assert(sizeof(ArrayBlock) % alignof(std::max_align_t) == 0);

/// Zero bytes for so many elements behind a block with one holder, or nullptr without memory.
TORLIB_API ArrayBlock* NewArrayBlock(std::size_t size, std::size_t elementSize) noexcept;
TORLIB_API void FreeArrayBlock(ArrayBlock* block) noexcept;

/// A share in the elements of a block; the last holder destroys them.
template <class T>
class ArrayElements {
    static_assert(std::is_nothrow_default_constructible_v<T>);
    static_assert(alignof(T) <= alignof(std::max_align_t));

  public:
    ArrayElements() = default;
    ArrayElements(const ArrayElements& other) noexcept : block_(other.block_) {
        if (block_) {
            block_->Holders.fetch_add(1, std::memory_order_relaxed);
        }
    }
    ArrayElements(ArrayElements&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
    ArrayElements& operator=(ArrayElements other) noexcept {
        std::swap(block_, other.block_);
        return *this;
    }
    ~ArrayElements() {
        if (block_ && block_->Holders.fetch_sub(1, std::memory_order_acq_rel) == 1) {
            std::destroy_n(Data(), block_->Size);
            FreeArrayBlock(block_);
        }
    }

    /// So many zero elements; null without memory. Zero bytes are the zero of every element type
    /// that may be copied byte by byte.
    static ArrayElements New(std::size_t size) noexcept {
        ArrayElements result;
        result.block_ = NewArrayBlock(size, sizeof(T));
        if constexpr (!std::is_trivially_copyable_v<T>) {
            if (result.block_) {
                std::uninitialized_value_construct_n(result.Data(), size);
            }
        }
        return result;
    }

    explicit operator bool() const noexcept { return block_ != nullptr; }
    bool IsShared() const noexcept {
        return block_ && block_->Holders.load(std::memory_order_acquire) > 1;
    }
    T* Data() const noexcept {
        return block_ ? static_cast<T*>(static_cast<void*>(block_ + 1)) : nullptr;
    }

  private:
    ArrayBlock* block_ = nullptr;
};

} // namespace torlib
