#include "torlib/platform/component/variant.h"

#include "tests/error_text.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <utility>
#include <vector>

namespace torlib {
namespace {

using test::ErrorText;

TEST(Array, KeepsTheCallersBoundsAndStoresColumnByColumn) {
    Array<double> a(Bounds{1, 3}, Bounds{-1, 2});
    for (int j = -1; j <= 2; ++j) {
        for (int i = 1; i <= 3; ++i) {
            a(i, j) = 10 * i + j;
        }
    }
    EXPECT_EQ(a.Size(), 12U);
    EXPECT_EQ(a.LBound(2) + a.UBound(1), -1 + 3);
    for (const auto& [at, i, j] : {std::array{0, 1, -1}, {2, 3, -1}, {3, 1, 0}, {11, 3, 2}}) {
        EXPECT_EQ(a.Data()[at], 10 * i + j);
    }
}

TEST(Array, ABadIndexOrShapeIsErrorNine) {
    Array<double> none;
    Array<double> line(Bounds{1, 3});
    Array<double> table(Bounds{1, 2}, Bounds{0, 1});
    const auto read = [](const auto& a, auto... index) { return ErrorText([&] { a(index...); }); };
    EXPECT_EQ(read(none, 0), "array is not allocated (error 9)");
    EXPECT_EQ(read(none, 0, 0), "array is not allocated (error 9)");
    EXPECT_EQ(read(line, 0), "index 0 outside 1..3 (error 9)");
    EXPECT_EQ(read(line, 4), "index 4 outside 1..3 (error 9)");
    EXPECT_EQ(read(line, 1, 1), "two indices given for an array of one dimension (error 9)");
    EXPECT_EQ(read(table, 1), "one index given for an array of two dimensions (error 9)");
    EXPECT_EQ(read(table, 2, 2), "index (2, 2) outside (1..2, 0..1) (error 9)");
    EXPECT_EQ(read(table, 3, 0), "index (3, 0) outside (1..2, 0..1) (error 9)");
    EXPECT_EQ(read(table, 1, -1), "index (1, -1) outside (1..2, 0..1) (error 9)");
    EXPECT_EQ(read(line, 1), "");
    EXPECT_EQ(read(table, 2, 1), "");
    EXPECT_NE(ErrorText([&] { line.UBound(2); }), "");
    EXPECT_NE(ErrorText([&] { none.LBound(); }), "");
    EXPECT_NE(ErrorText([&] { Array<double>(Bounds{3, 1}); }), "");
    EXPECT_EQ(ErrorText([&] { Array<double>(Bounds{1, 0}); }), "");
}

TEST(Array, ReDimIsFreshAndReDimPreserveKeepsWhatBothRangesHold) {
    Array<double> a(Bounds{2, 4});
    a(2) = 2;
    a(4) = 4;
    a.ReDimPreserve(3);
    EXPECT_EQ(a.LBound() * 10 + a.UBound(), 3);
    EXPECT_EQ(a(0), 0);
    a.ReDimPreserve(5);
    EXPECT_EQ(a(2), 2);
    EXPECT_EQ(a(4), 0) << "cut off before, so it does not come back";
    a.ReDim(2);
    EXPECT_EQ(a(2), 0);
    a.ReDim(1, 2);
    EXPECT_EQ(ErrorText([&] { a.ReDim(-1); }), "cannot have the size -1 (error 9)");
    EXPECT_NE(ErrorText([&] { a.ReDim(3, -1); }), "");
    EXPECT_NE(ErrorText([&] { a.ReDimPreserve(4); }), "") << "two dimensions do not grow";
    EXPECT_EQ(std::pair(a.Dimensions(), a.Size()), std::pair(2, std::size_t{6}))
        << "a refused size leaves it as it is";
}

TEST(Array, MessagesNameTheMemberAndTheArgumentAtWork) {
    Array<double> a(Bounds{1, 2});
    const MemberScope outer("Outer.Member", Named("Other", a));
    {
        const MemberScope inner("Inner.Member", Named("A", a));
        EXPECT_EQ(ErrorText([&] { a(5) = 1; }), "Inner.Member: A: index 5 outside 1..2 (error 9)");
    }
    EXPECT_EQ(ErrorText([&] { a(5) = 1; }), "Outer.Member: Other: index 5 outside 1..2 (error 9)");
}

TEST(Array, BorrowedMemoryIsWorkedInAndKeepsItsBounds) {
    auto owner = std::make_shared<std::vector<double>>(12, 1.5);
    const std::weak_ptr<void> alive = owner;
    double* const memory = owner->data();
    Array<double> a;
    a.Borrow(memory, std::move(owner), {0, 3}, {0, 2});
    a(3, 1) = 7;
    EXPECT_EQ(memory[7], 7);
    for (const auto& change : std::initializer_list<void (*)(Array<double>&)>{
             [](auto& x) { x.ReDim(2, 2); }, [](auto& x) { x.ReDim(3, 3); },
             [](auto& x) { x.ReDim(11); },
             [](auto& x) {
                 x.ReDim(Bounds{0, 3}, Bounds{1, 3});
             },
             [](auto& x) {
                 x = Array<double>(Bounds{0, 3}, Bounds{-1, 1});
             },
             [](auto& x) {
                 x.ReDim(Bounds{1, 4}, Bounds{0, 2});
             },
             [](auto& x) {
                 x = Array<double>(Bounds{0, 3});
             }}) {
        EXPECT_NE(ErrorText([&] { change(a); }).find("(error 10)"), std::string::npos);
    }
    EXPECT_EQ(memory[7], 7) << "a refused change leaves the elements";
    const Array<double> copy = a;
    Array<double> wanted(Bounds{0, 3}, Bounds{0, 2});
    wanted(1, 2) = 4;
    a = std::move(wanted);
    EXPECT_EQ(memory[9], 4);
    EXPECT_EQ(copy(3, 1), 7) << "a copy has memory of its own";
    a.ReDim(3, 2);
    EXPECT_EQ(memory[9], 0) << "the bounds that it has are cleared in place";
    Array<double> moved = std::move(a);
    moved(0, 0) = 2;
    EXPECT_FALSE(alive.expired());
    moved = Array<double>(moved);
    EXPECT_EQ(memory[0], 2);
    { const Array<double> last = std::move(moved); }
    EXPECT_TRUE(alive.expired());
}

TEST(Array, WhoeverLooksAtTheMemoryFixesTheBoundsAndKeepsItAlive) {
    Array<double> a(Bounds{0, 3});
    auto look = a.Share();
    a(2) = 5;
    EXPECT_EQ(static_cast<double*>(look.get())[2], 5);
    EXPECT_NE(ErrorText([&] { a.ReDimPreserve(4); }).find("(error 10)"), std::string::npos);
    a.ReDimPreserve(3);
    EXPECT_EQ(a(2), 5);
    { const Array<double> gone = std::move(a); }
    EXPECT_EQ(static_cast<double*>(look.get())[2], 5);
    a = Array<double>(Bounds{0, 1});
    look = a.Share();
    look.reset();
    a.ReDim(9);
    EXPECT_EQ(a.UBound(), 9);
}

constexpr int smallest = std::numeric_limits<int>::min();
constexpr int largest = std::numeric_limits<int>::max();

TEST(Array, WithoutMemoryItIsLeftUnallocated) {
    const struct {
        Bounds rows, columns;
        const char* text;
    } cases[] = {
        {{0, 2000000000}, {0, 2000000000}, "0..2000000000, 0..2000000000"},
        // The number of elements is 2^64 here, which is 0 in 64 bits, and 2^64 bytes behind.
        {{smallest, largest},
         {smallest, largest},
         "-2147483648..2147483647, -2147483648..2147483647"},
        {{1, 1 << 30}, {0, largest}, "1..1073741824, 0..2147483647"},
        {{0, largest}, {1, 1 << 24}, "0..2147483647, 1..16777216"}, // 2^58 bytes can be counted
    };
    for (const auto& c : cases) {
        Array<double> a(Bounds{0, 3});
        EXPECT_EQ(ErrorText([&] { a.ReDim(c.rows, c.columns); }),
                  "there is no memory for the bounds " + std::string(c.text) + " (error 7)");
        EXPECT_EQ(a.Dimensions(), 0);
        EXPECT_EQ(ErrorText([&] { a(5, 5) = 1; }), "array is not allocated (error 9)");
        double place = 0;
        EXPECT_EQ(ErrorText([&] { a.Borrow(&place, {}, c.rows, c.columns); }).empty(),
                  c.rows.Upper == largest && c.rows.Lower == 0)
            << "memory of others only needs to be countable";
    }
}

TEST(Array, BoundsMayReachTheEndsOfTheWholeNumbers) {
    for (const Bounds range : {Bounds{smallest, smallest + 2}, Bounds{largest - 2, largest}}) {
        const int middle = range.Lower + 1;
        Array<double> line(range);
        Array<double> table(Bounds{1, 2}, range);
        line(middle) = 3;
        table(2, middle) = 4;
        EXPECT_EQ(line.Data()[1] + table.Data()[3], 7);
        for (const int beyond : {range.Lower > 0 ? smallest : largest, 0, range.Lower ^ 4}) {
            EXPECT_NE(ErrorText([&] { line(beyond); }).find("(error 9)"), std::string::npos);
            EXPECT_NE(ErrorText([&] { table(1, beyond); }).find("(error 9)"), std::string::npos);
        }
        line.ReDimPreserve(2); // the ranges share no index
        EXPECT_EQ(line(0) + line(1) + line(2), 0);
    }
}

TEST(Array, WhatNeedsTheModuleIsCountedUntilItIsGone) {
    const long before = LiveInModule();
    std::shared_ptr<void> look;
    {
        const Array<double> a(Bounds{0, 3});
        const auto copy = std::make_unique<Array<double>>(a);
        EXPECT_EQ(LiveInModule(), before + 2);
        look = a.Share();
    }
    EXPECT_EQ(LiveInModule(), before + 1) << "the look runs code of the module when it ends";
    look.reset();
    EXPECT_EQ(LiveInModule(), before);
}

} // namespace
} // namespace torlib
