#include "torlib/platform/component/variant.h"

#include "tests/error_text.h"

#include <gtest/gtest.h>

#include <array>
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

TEST(Array, WithoutMemoryItIsLeftUnallocated) {
    Array<double> a(Bounds{0, 3});
    EXPECT_ANY_THROW(a.ReDim(2000000000, 2000000000));
    EXPECT_EQ(a.Dimensions(), 0);
    EXPECT_NE(ErrorText([&] { a(0, 0) = 1; }), "");
}

} // namespace
} // namespace torlib
