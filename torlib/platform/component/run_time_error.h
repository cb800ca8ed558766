#pragma once
// Run-time errors: the one kind of exception of the library, and the record of which public member
// is at work, so that an error can say which member and which argument it concerns.
//
//     void FEM_Class::SolveMatrix(Integer Nw, Integer N3, Array<Single>& A, Array<Single>& Q) {
//         const MemberScope scope("FEM_Class.SolveMatrix", Named("A", A), Named("Q", Q));
//         ...   // an index outside A now reads "FEM_Class.SolveMatrix: A: index 12 outside 1..11"
//     }

#include "torlib/platform/api.h"

#include <array>
#include <cstddef>
#include <exception>
#include <string>

namespace torlib {

/// The closed set of error numbers, with when each is used.
enum class ErrorNumber : int {
    InvalidArgument = 5,       ///< a mathematical function outside its domain, a senseless value
    Overflow = 6,              ///< a stored value outside its type, or 0/0
    OutOfMemory = 7,           ///< no memory for an array or an object
    OutOfRange = 9,            ///< an index outside an array, or a wrong number of dimensions
    ArrayFixed = 10,           ///< new bounds for an array whose memory is borrowed or looked at
    DivisionByZero = 11,       ///< anything but zero divided by zero
    TypeMismatch = 13,         ///< an argument that cannot be converted to the parameter's type
    FileNotFound = 53,         ///< a file that is needed and not there
    FileNotWritable = 75,      ///< a file or folder that cannot be read or written
    ObjectNotSet = 91,         ///< a member of no object was asked for
    ObjectRequired = 424,      ///< a value that is not an object stands where an object must
    CannotCreateObject = 429,  ///< no server for a class, or the server failed to make an object
    NoSuchMember = 438,        ///< a late-bound call of a member that the object does not have
    NoSuchNamedArgument = 448, ///< a named argument that the member does not have
    ArgumentNotOptional = 449, ///< a required argument was left out
    WrongArgumentCount = 450,  ///< more arguments than parameters, or one given twice
};

/// A run-time error: number, public member at work (may be empty) and description.
class TORLIB_API RunTimeError : public std::exception {
  public:
    /// Takes the member from the innermost MemberScope.
    RunTimeError(ErrorNumber number, std::string description);
    RunTimeError(ErrorNumber number, std::string member, std::string description);

    ErrorNumber Number() const noexcept { return number_; }
    const std::string& Member() const noexcept { return member_; }
    const std::string& Description() const noexcept { return description_; }
    /// "member: description (error number)".
    const char* what() const noexcept override { return text_.c_str(); }

  private:
    ErrorNumber number_;
    std::string member_;
    std::string description_;
    std::string text_;
};

[[noreturn]] TORLIB_API void RaiseError(ErrorNumber number, std::string description);

/// An argument of the running member, known by its address.
struct NamedArgument {
    const char* Name;
    const void* Address;
};

template <class T>
NamedArgument Named(const char* name, const T& argument) {
    return {name, &argument};
}

/// The running public member and its arguments; scopes nest, and the innermost one speaks.
class TORLIB_API CallScope {
  public:
    CallScope(const CallScope&) = delete;
    CallScope& operator=(const CallScope&) = delete;

    static const CallScope* Innermost() noexcept;
    const char* Member() const noexcept { return member_; }
    /// Name of the argument at this address, or nullptr.
    const char* NameOf(const void* address) const noexcept;

  protected:
    CallScope(const char* member, const NamedArgument* arguments, std::size_t count) noexcept;
    ~CallScope();

  private:
    const char* member_;
    const NamedArgument* arguments_;
    std::size_t count_;
    const CallScope* outer_;
};

template <std::size_t N>
struct ArgumentList {
    std::array<NamedArgument, N> list;
};

/// Stands first in a public member's body; see the example above.
template <std::size_t N>
class MemberScope : ArgumentList<N>, public CallScope {
  public:
    template <class... Arguments>
    explicit MemberScope(const char* member, Arguments... arguments) noexcept
        : ArgumentList<N>{{arguments...}}, CallScope(member, this->list.data(), N) {}
};
template <class... Arguments>
MemberScope(const char*, Arguments...) -> MemberScope<sizeof...(Arguments)>;

} // namespace torlib
