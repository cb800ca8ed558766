// The fast elimination against the entry-by-entry routine, bit for bit, and both against laws.

#include "tests/error_text.h"
#include "torlib/fem/band_kernel.h"
#include "torlib/fem/fem_class.h"
#include "torlib/frame/run_state.h"
#include "torlib/platform/instruction_set.h"
#include "torlib/platform/windows/events.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <new>
#include <optional>
#include <ostream>
#include <random>
#include <sys/mman.h>
#include <vector>

namespace torlib {
namespace {

enum class Kind {
    Dominant,      // positive definite, largest on the diagonal
    RandomSigns,   // neither symmetric positive nor dominant
    ZeroDiagonals, // some equations without stiffness
    Overflowing,   // grows beyond the largest float at a random equation
    HugeLoad,      // only the right-hand side grows beyond it
    NotFinite,     // the caller's data hold an infinity and a NaN
    Tiny,          // results below the smallest normal float, and negative zeros
};

struct System {
    int Nw, N3;
    Array<Single> A, Q;
};

Single RawSingle(float value) {
    return std::bit_cast<Single>(value);
}

/// A random band in arrays that start at `lower`; trailing rows are zero or random.
System MakeSystem(Kind kind, int Nw, int N3, int lower = 0, bool trailing = false) {
    std::mt19937 random(static_cast<unsigned>(1000 * Nw + 10 * N3 + static_cast<int>(kind)));
    std::uniform_real_distribution<double> uniform(-1, 1);
    const Bounds rows = {lower, N3 + Nw - 1 + (trailing ? 3 : 0)};
    System s = {Nw, N3, Array<Single>(rows, Bounds{lower, Nw}), Array<Single>(rows)};
    const int victim = 1 + static_cast<int>(random() % static_cast<unsigned>(N3));
    const double scale = kind == Kind::Tiny ? 1E-38 : 1;
    for (int n = 1; n <= (trailing ? rows.Upper : N3); ++n) {
        const int last = trailing ? Nw : std::min(Nw, N3 - n + 1);
        for (int l = 2; l <= last; ++l) {
            s.A(n, l) = scale * uniform(random);
        }
        const double dominance = kind == Kind::RandomSigns ? 4 * uniform(random) : 1.2 * Nw;
        s.A(n, 1) = scale * (dominance + uniform(random));
        s.Q(n) = scale * uniform(random);
        if (kind == Kind::ZeroDiagonals && n % 5 == 2) {
            for (int l = 1; l <= Nw; ++l) {
                s.A(n, l) = 0;
            }
        }
        if (kind == Kind::Tiny && n % 3 == 0) {
            s.A(n, Nw) = RawSingle(-0.0F);
            s.Q(n) = RawSingle(-0.0F);
        }
    }
    if (kind == Kind::Overflowing) {
        s.A(victim, 1) = 1E-30;
        s.A(victim, std::min(Nw, 2)) = 3E7;
    } else if (kind == Kind::HugeLoad) {
        s.A(victim, 1) = 1E-10;
        s.A(victim, std::min(Nw, 2)) = 50;
        s.Q(victim) = 3E27;
    } else if (kind == Kind::NotFinite) {
        s.A(victim, (Nw + 1) / 2) = RawSingle(std::numeric_limits<float>::infinity());
        s.Q(N3) = RawSingle(std::numeric_limits<float>::quiet_NaN());
    }
    return s;
}

/// Everything a caller can see of a run.
struct Outcome {
    int Error = 0; // number, or 0
    bool Cancelled = false;
    std::vector<int> Steps; // the progress shown, 0 for a poll
    std::vector<std::uint32_t> Bits;

    friend bool operator==(const Outcome&, const Outcome&) = default;
};

void PrintTo(const Outcome& outcome, std::ostream* out) {
    *out << "error " << outcome.Error << ", cancelled " << outcome.Cancelled << ", "
         << outcome.Steps.size() << " events";
}

enum class Stop { Never, Cancel, ThrowFromPoll, ThrowFromProgress };

/// Runs the reference (no kernel) or a kernel; stops at event number `at`, counted from 1.
Outcome OutcomeOf(const band::Kernel* kernel, System s, Stop stop = Stop::Never, int at = 0) {
    Outcome outcome;
    int polls = 0, shown = 0;
    band::EquationEvents events;
    events.Progress = [&](Integer n) {
        outcome.Steps.push_back(n);
        if (stop == Stop::ThrowFromProgress && ++shown == at) {
            RaiseError(ErrorNumber::ObjectRequired, "no form");
        }
    };
    events.Cancelled = [&] {
        outcome.Steps.push_back(0);
        if (stop == Stop::ThrowFromPoll && ++polls == at) {
            RaiseError(ErrorNumber::NoSuchMember, "event handler");
        }
        return stop == Stop::Cancel && ++polls == at;
    };
    try {
        outcome.Cancelled = kernel ? band::Solve(*kernel, s.Nw, s.N3, s.A, s.Q, events)
                                   : band::SolveReference(s.Nw, s.N3, s.A, s.Q, events);
    } catch (const RunTimeError& error) {
        outcome.Error = static_cast<int>(error.Number());
    }
    for (const Array<Single>* array : {&s.A, &s.Q}) {
        for (std::size_t k = 0; k < array->Size(); ++k) {
            outcome.Bits.push_back(std::bit_cast<std::uint32_t>(array->Data()[k]));
        }
    }
    return outcome;
}

class EveryKernel : public testing::TestWithParam<const band::Kernel*> {};

TEST_P(EveryKernel, GivesTheBitsErrorsAndEventsOfTheReference) {
    const struct {
        Kind kind;
        int lower;
        bool trailing;
        int error; // expected of at least one of the sizes; 0 for none at all
    } shapes[] = {
        {Kind::Dominant, 0, false, 0},     {Kind::Dominant, 1, true, 0},
        {Kind::RandomSigns, -2, false, 0}, {Kind::ZeroDiagonals, 0, false, 0},
        {Kind::ZeroDiagonals, 1, true, 0}, {Kind::Overflowing, 0, true, 6},
        {Kind::HugeLoad, -1, true, 6},     {Kind::NotFinite, 0, true, 6},
        {Kind::Tiny, 0, true, 0},
    };
    for (const auto& shape : shapes) {
        int errors = 0;
        for (int Nw = 1; Nw <= 70; Nw += Nw < 36 ? 1 : 5) {
            for (const int N3 : {1, 2, Nw / 2 + 1, Nw + 1, 2 * Nw + 17, 61}) {
                const System s = MakeSystem(shape.kind, Nw, N3, shape.lower, shape.trailing);
                const Outcome expected = OutcomeOf(nullptr, s);
                ASSERT_EQ(expected, OutcomeOf(GetParam(), s))
                    << "kind " << static_cast<int>(shape.kind) << " Nw " << Nw << " N3 " << N3;
                errors += expected.Error == shape.error && shape.error != 0;
                ASSERT_TRUE(shape.kind == Kind::RandomSigns || shape.error != 0 ||
                            expected.Error == 0);
            }
        }
        EXPECT_EQ(errors > 0, shape.error != 0) << static_cast<int>(shape.kind);
    }
}

TEST_P(EveryKernel, GivesTheBitsOfTheReferenceForWideBands) {
    for (const auto& [Nw, N3] : {std::pair{130, 301}, {200, 333}, {333, 350}}) {
        for (const Kind kind : {Kind::Dominant, Kind::Tiny}) {
            const System s = MakeSystem(kind, Nw, N3, 0, true);
            EXPECT_EQ(OutcomeOf(nullptr, s), OutcomeOf(GetParam(), s)) << Nw;
        }
    }
}

TEST_P(EveryKernel, LeavesTheStateOfTheReferenceWhenStoppedAtAnyEquation) {
    for (const Stop stop : {Stop::Cancel, Stop::ThrowFromPoll, Stop::ThrowFromProgress}) {
        for (const auto& [Nw, N3] : {std::pair{1, 9}, {7, 20}, {19, 53}, {40, 35}}) {
            const System s = MakeSystem(Kind::ZeroDiagonals, Nw, N3, 0, true);
            const int last = stop == Stop::ThrowFromProgress ? N3 : 2 * N3 - 1;
            for (int at = 1; at <= last; ++at) {
                const Outcome expected = OutcomeOf(nullptr, s, stop, at);
                ASSERT_TRUE(expected.Cancelled || expected.Error != 0);
                ASSERT_EQ(expected, OutcomeOf(GetParam(), s, stop, at)) << Nw << " at " << at;
            }
        }
    }
}

// a - c b with a = 1 + 2^-23, c = 1 - 2^-15, b = 2^-24 (1 + 2^-15): the exact value lies just above
// the midpoint 1 + 2^-24 of two floats. Rounding to double first gives the midpoint, whose even
// neighbour is 1; a single rounding to float would give 1 + 2^-23.
TEST_P(EveryKernel, RoundsToDoubleBeforeItRoundsToFloat) {
    const float a = 1 + 0x1p-23F;
    const float c = 1 - 0x1p-15F;
    const float b = 0x1p-24F * (1 + 0x1p-15F);
    System s = {3, 3, Array<Single>(Bounds{0, 5}, Bounds{0, 3}), Array<Single>(Bounds{0, 5})};
    s.A(1, 1) = 1; // row 1 subtracts c = A(1, 2) times b = A(1, 3) from A(2, 2)
    s.A(1, 2) = c;
    s.A(1, 3) = b;
    s.A(2, 1) = 2;
    s.A(2, 2) = a;
    s.A(3, 1) = 1;
    s.Q(3) = 0;
    System stopped = s;
    int polls = 0;
    band::EquationEvents events;
    events.Cancelled = [&] { return ++polls == 2; };
    ASSERT_TRUE(band::Solve(*GetParam(), 3, 3, stopped.A, stopped.Q, events));
    EXPECT_EQ(stopped.A(2, 2).Value(), 1.0F);

    float steps[2];
    const float ratios[] = {0, c};
    const float unknowns[] = {3, b};
    EXPECT_EQ(GetParam()->BackSubstitute(a, ratios, unknowns, 2, steps), 1.0F);
}

// Equation 1 is 1, 0.5, 2 and the third unknown 2E38, so the last of its steps back overflows.
TEST_P(EveryKernel, KeepsWhatPrecedesAnOverflowOnTheWayBack) {
    System s = {3, 3, Array<Single>(Bounds{0, 5}, Bounds{0, 3}), Array<Single>(Bounds{0, 5})};
    const double rows[3][3] = {{1, 0.5, 2}, {1.25, 1, 0}, {5, 0, 0}};
    for (int n = 1; n <= 3; ++n) {
        for (int l = 1; l <= 3; ++l) {
            s.A(n, l) = rows[n - 1][l - 1];
        }
    }
    s.Q(2) = 3;
    s.Q(3) = 2E38;
    const Outcome expected = OutcomeOf(nullptr, s);
    EXPECT_EQ(expected.Error, 6);
    EXPECT_EQ(expected.Steps.size(), 3U * 2 + 2); // stopped in the last equation of all
    EXPECT_EQ(expected, OutcomeOf(GetParam(), s));
}

/// Floats or doubles that end (or start) where memory ends (or starts): a step beyond is a crash.
template <class T>
class Fenced {
  public:
    Fenced(std::size_t count, bool atEnd) : pages_((count * sizeof(T) + PageSize - 1) / PageSize) {
        const std::size_t inside = pages_ * PageSize;
        void* const all =
            mmap(nullptr, inside + 2 * PageSize, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        memory_ = static_cast<char*>(all);
        char* const first = memory_ + PageSize;
        EXPECT_EQ(mprotect(first, inside, PROT_READ | PROT_WRITE), 0);
        data_ = reinterpret_cast<T*>(atEnd ? first + inside - count * sizeof(T) : first);
    }
    Fenced(const Fenced&) = delete;
    Fenced& operator=(const Fenced&) = delete;
    ~Fenced() { munmap(memory_, (pages_ + 2) * PageSize); }
    T* Data() const { return data_; }

  private:
    static constexpr std::size_t PageSize = 4096;
    std::size_t pages_;
    char* memory_;
    T* data_;
};

// Whatever the width, nothing outside the caller's arrays and the kernel's own is read or written.
TEST_P(EveryKernel, StaysInsideTheArrays) {
    const band::Kernel& kernel = *GetParam();
    for (const bool atEnd : {false, true}) {
        for (int n = 1; n <= 35; ++n) {
            const auto size = static_cast<std::size_t>(n);
            const Fenced<float> ratios(size, atEnd), x(size, atEnd), steps(size, atEnd);
            std::fill_n(ratios.Data(), n, 0.25F);
            std::fill_n(x.Data(), n, 2.0F);
            EXPECT_EQ(kernel.BackSubstitute(1, ratios.Data(), x.Data(), n, steps.Data()),
                      1 - 0.5F * static_cast<float>(n));
            const Fenced<double> row(size, atEnd), wide(size, atEnd);
            EXPECT_EQ(kernel.Reduce(x.Data(), n, 4, row.Data(), wide.Data()).Ratio, 0.5);
            kernel.UpdateLoad(wide.Data(), n, 2, x.Data());
            EXPECT_EQ(x.Data()[n - 1], 1);
        }
        for (const auto& [Nw, N3] : {std::pair{1, 5}, {7, 20}, {18, 35}, {45, 60}}) {
            System s = MakeSystem(Kind::Dominant, Nw, N3, 1);
            const Outcome expected = OutcomeOf(nullptr, s);
            const Fenced<Single> A(s.A.Size(), atEnd), Q(s.Q.Size(), atEnd);
            std::copy_n(s.A.Data(), s.A.Size(), A.Data());
            std::copy_n(s.Q.Data(), s.Q.Size(), Q.Data());
            const Bounds rows = {1, N3 + Nw - 1};
            s.A.Borrow(A.Data(), {}, rows, {1, Nw});
            s.Q.Borrow(Q.Data(), {}, rows);
            ASSERT_FALSE(band::Solve(kernel, Nw, N3, s.A, s.Q));
            EXPECT_EQ(std::bit_cast<std::uint32_t>(Q.Data()[0]), expected.Bits[s.A.Size()]);
        }
    }
}

// A zero keeps the sign that double precision gives it, on every way through the steps; 1 + 2^-23
// less (1 - 2^-15) 2^-24 (1 + 2^-15) is where a single rounding would go another way.
TEST_P(EveryKernel, GivesZerosTheSignOfDoublePrecision) {
    const float ratios[] = {0, -0.0F, 1, -1, 1E-30F, -1E-30F, 1 - 0x1p-15F};
    const float unknowns[] = {0, -0.0F, 1, -1, 1E-30F, 0x1p-24F * (1 + 0x1p-15F), 1};
    const float values[] = {0, -0.0F, 1, -1, 1 + 0x1p-23F, 1E-45F, -1E-45F};
    std::mt19937 random(5);
    int zeros = 0;
    for (int round = 0; round < 20000; ++round) {
        const int n = 1 + static_cast<int>(random() % 12);
        float c[12], x[12], steps[12];
        const float start = values[random() % std::size(values)];
        float expected = start;
        for (int k = 0; k < n; ++k) {
            c[k] = ratios[random() % std::size(ratios)];
            x[k] = unknowns[random() % std::size(unknowns)];
            expected = static_cast<float>(static_cast<double>(expected) -
                                          static_cast<double>(c[k]) * static_cast<double>(x[k]));
        }
        const float result = GetParam()->BackSubstitute(start, c, x, n, steps);
        ASSERT_EQ(std::bit_cast<std::uint32_t>(result), std::bit_cast<std::uint32_t>(expected));
        zeros += expected == 0;
    }
    EXPECT_GT(zeros, 1000);
}

INSTANTIATE_TEST_SUITE_P(Kernels, EveryKernel,
                         testing::ValuesIn(band::AvailableKernels().begin(),
                                           band::AvailableKernels().end()),
                         [](const auto& kernel) { return std::string(kernel.param->Name); });

TEST(Kernels, AreThoseOfTheInstructionSetAndOlderOnes) {
    using enum InstructionSet;
    const InstructionSet newest = NewestInstructionSet();
    const auto kernels = band::AvailableKernels();
    ASSERT_EQ(kernels.size(), static_cast<std::size_t>(newest) + 1);
    for (std::size_t k = 0; k < kernels.size(); ++k) {
        EXPECT_STREQ(kernels[k]->Name, InstructionSetNames[k]);
    }
    const char* const limit = std::getenv("TORLIB_INSTRUCTION_SET");
    EXPECT_EQ(LimitedInstructionSet(InstructionSetOfProcessor(), limit), newest);
    EXPECT_EQ(LimitedInstructionSet(Avx2, nullptr), Avx2);
    EXPECT_EQ(LimitedInstructionSet(Avx512, ""), Avx512);
    EXPECT_EQ(LimitedInstructionSet(Avx512, "avx2"), Avx2);
    EXPECT_EQ(LimitedInstructionSet(Avx512, "portable"), Portable);
    EXPECT_EQ(LimitedInstructionSet(Portable, "avx512"), Portable) << "not beyond the processor";
    EXPECT_EQ(test::ErrorOf([] { LimitedInstructionSet(Avx2, "AVX2"); }), 5);
}

TEST(SolveMatrix, AnEquationWithoutStiffnessGetsZero) {
    System s = MakeSystem(Kind::ZeroDiagonals, 6, 23);
    for (int n = 1; n <= s.N3; ++n) {
        for (int l = 2; l <= s.Nw; ++l) { // cut the rows above off from the empty ones
            if ((n + l - 1) % 5 == 2) {
                s.A(n, l) = 0;
            }
        }
    }
    ASSERT_FALSE(FEM_Class().SolveMatrix(s.Nw, s.N3, s.A, s.Q));
    for (int n = 1; n <= s.N3; ++n) {
        EXPECT_EQ(s.Q(n) == 0, n % 5 == 2) << n;
    }
}

TEST(SolveMatrix, NamesWhatIsOutOfRange) {
    const struct {
        int Nw, N3, rows, columns, loads;
        const char* text;
    } cases[] = {{4, 10, 10, 4, 13, "A: index (11, 1) outside (0..10, 0..4) (error 9)"},
                 {4, 10, 13, 3, 13, "A: index (1, 4) outside (0..13, 0..3) (error 9)"},
                 {4, 10, 13, 4, 10, "Q: index 11 outside 0..10 (error 9)"},
                 {1, 32767, 32767, 1, 32767, "(error 6)"},
                 {3, 32766, 32770, 3, 32770, "(error 6)"}};
    for (const auto& c : cases) {
        Array<Single> A(Bounds{0, c.rows}, Bounds{0, c.columns}), Q(Bounds{0, c.loads});
        for (int n = 1; n <= c.rows; ++n) {
            A(n, 1) = 2;
        }
        const std::string text =
            test::ErrorText([&] { FEM_Class().SolveMatrix(c.Nw, c.N3, A, Q); });
        EXPECT_TRUE(text.starts_with("FEM_Class.SolveMatrix: ") && text.ends_with(c.text)) << text;
    }
}

TEST(SolveMatrix, HoldsItsArraysAgainstHandlersThatResizeThem) {
    for (const bool complete : {true, false}) { // what lacks rows is solved entry by entry
        System s = MakeSystem(Kind::Dominant, 5, 40);
        if (!complete) {
            s.A = Array<Single>(Bounds{0, 42}, Bounds{0, 5});
        }
        System untouched = s;
        int refused = 0;
        std::function<void()> resize = [&] {
            refused += test::ErrorOf([&] { s.A.ReDim(3, 3); }) == 10 ? 1 : 0;
            refused += test::ErrorOf([&] { s.Q.ReDimPreserve(90); }) == 10 ? 1 : 0;
            refused += test::ErrorOf([&] { s.Q = Array<Single>(); }) == 10 ? 1 : 0;
            if (refused < 60) {
                PostEvent(resize);
            }
        };
        const auto solve = [](System& t) {
            return test::ErrorText([&] { FEM_Class().SolveMatrix(t.Nw, t.N3, t.A, t.Q); });
        };
        const std::string error = solve(untouched);
        EXPECT_EQ(error.empty(), complete);
        PostEvent(resize);
        EXPECT_EQ(solve(s), error);
        EXPECT_EQ(refused, 60);
        EXPECT_TRUE(std::equal(s.Q.Data(), s.Q.Data() + s.Q.Size(), untouched.Q.Data()));
        s.A.ReDim(3, 3);
        EXPECT_EQ(s.A.UBound(1), 3) << "free again";
    }
}

TEST(SolveMatrix, ShowsItsProgressAndStopsWhenCancelled) {
    System s = MakeSystem(Kind::Dominant, 4, 9);
    EXPECT_EQ(test::ErrorOf([&] { FEM_Class().SolveMatrix(4, 9, s.A, s.Q, {}, true); }), 91);
    PostEvent([] { throw std::bad_alloc(); });
    EXPECT_EQ(test::ErrorOf([&] { FEM_Class().SolveMatrix(4, 9, s.A, s.Q); }), 7);
    ExitControlState() = ExitCancelRequested;
    EXPECT_TRUE(FEM_Class().SolveMatrix(4, 9, s.A, s.Q));
    ExitControlState() = ExitRunning;
}

} // namespace
} // namespace torlib
