#pragma once
// The binary door of the component layer: identifiers, result codes and the interfaces that a
// server and its clients agree on. Nothing here throws; errors cross as result codes and records.

#include "torlib/platform/api.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace torlib {

class Variant;

/// A 128-bit identifier of a class or an interface.
struct Guid {
    std::uint32_t Data1 = 0;
    std::uint16_t Data2 = 0;
    std::uint16_t Data3 = 0;
    std::array<std::uint8_t, 8> Data4{};

    friend bool operator==(const Guid&, const Guid&) = default;
};

/// "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}" in capitals.
TORLIB_API std::u16string GuidText(const Guid& guid);
/// Reads the form that GuidText writes, in either case; false when the text is something else.
TORLIB_API bool ParseGuid(std::u16string_view text, Guid* guid);

/// Result of an interface call; negative values are failures.
enum class Result : std::int32_t {
    Ok = 0,
    False = 1,
    NoInterface = -1,
    ClassNotAvailable = -2,
    NoAggregation = -3,
    RegistryFailed = -4,
    Exception = -5,      ///< the error record, where one was given, says what happened
    InvalidPointer = -6, ///< no place was given for what was asked for
    NotLocked = -7,      ///< an unlock of a server that is not locked
    OutOfMemory = -8,
};

/// What a failed late-bound call carries back.
struct ErrorRecord {
    int Number = 0;
    std::string Member;
    std::string Description;
};

class Unknown {
  public:
    /// Hands out another interface of the same object, with a reference of its own.
    virtual Result QueryInterface(const Guid& interface, void** object) = 0;
    virtual std::uint32_t AddRef() = 0;
    virtual std::uint32_t Release() = 0;

  protected:
    ~Unknown() = default;
};

enum class InvokeKind : std::uint8_t {
    Method = 1,
    PropertyGet = 2,
    MethodOrGet = 3,
    PropertyPut = 4
};

/// One argument of a late-bound call; an empty name means that it stands at its position.
struct Argument;

/// Late-bound access by member name, or by number for a client that calls a member many times.
class Dispatch : public Unknown {
  public:
    /// Calls a member. With PropertyPut the last argument is the new value. By-reference arguments
    /// are written back, also when the call fails. `result` and `error` may be null.
    virtual Result Invoke(std::u16string_view member, InvokeKind kind,
                          std::span<Argument> arguments, Variant* result, ErrorRecord* error) = 0;
    /// The number of a member by its name, case-blind: from 1, and the same as long as the object
    /// lives; 0 when the object has no such member.
    virtual std::int32_t NumberOf(std::u16string_view member) = 0;
    /// The number of a parameter of a numbered member by its name, case-blind: from 1; 0 when there
    /// is no such parameter, or when the object does not know its parameters by name.
    virtual std::int32_t ParameterNumberOf(std::int32_t member, std::u16string_view parameter) = 0;
    /// Calls a member by its number, otherwise as Invoke does. The last arguments are for the
    /// parameters whose numbers stand in `named`, in that order; those before stand at their
    /// positions.
    virtual Result InvokeNumber(std::int32_t member, InvokeKind kind,
                                std::span<const Variant> arguments,
                                std::span<const std::int32_t> named, Variant* result,
                                ErrorRecord* error) = 0;

  protected:
    ~Dispatch() = default;
};

class ClassFactory : public Unknown {
  public:
    virtual Result CreateInstance(const Guid& interface, void** object) = 0;
    /// Keeps the server loaded while locked; NotLocked for an unlock without its lock.
    virtual Result LockServer(bool lock) = 0;

  protected:
    ~ClassFactory() = default;
};

/// The factory of an application object: a class with an implicit default instance.
class ApplicationFactory : public ClassFactory {
  public:
    /// Hands out the one default instance, whose state lasts while the server stays loaded.
    virtual Result GetDefaultInstance(const Guid& interface, void** object) = 0;

  protected:
    ~ApplicationFactory() = default;
};

inline constexpr Guid IidUnknown{
    0x7a3c1c00, 0x52d1, 0x4e0e, {0x9d, 0x6b, 0x0c, 0x41, 0x5e, 0x28, 0x70, 0x01}};
inline constexpr Guid IidDispatch{
    0x7a3c1c01, 0x52d1, 0x4e0e, {0x9d, 0x6b, 0x0c, 0x41, 0x5e, 0x28, 0x70, 0x01}};
inline constexpr Guid IidClassFactory{
    0x7a3c1c02, 0x52d1, 0x4e0e, {0x9d, 0x6b, 0x0c, 0x41, 0x5e, 0x28, 0x70, 0x01}};
inline constexpr Guid IidApplicationFactory{
    0x7a3c1c04, 0x52d1, 0x4e0e, {0x9d, 0x6b, 0x0c, 0x41, 0x5e, 0x28, 0x70, 0x01}};

} // namespace torlib
