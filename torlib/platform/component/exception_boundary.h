#pragma once
// Where exceptions end: the implementations of Dispatch::Invoke turn whatever was thrown into an
// error record here.
//
//     try { ...; return Result::Ok; }
//     catch (...) { return EndException(error, "Form", u"Caption", MemberAtWork::Called); }

#include "torlib/platform/component/unknown.h"

namespace torlib {

/// Whose name an error carries to the caller: the one that was at work when it was raised, where
/// known, or the one that was called.
enum class MemberAtWork : std::uint8_t { Innermost, Called };

/// Fills the record, which may be null, from the exception that is being handled; call it in
/// `catch (...)`. An exception that is no run-time error is number 5, lack of memory is 7.
/// Result: Result::Exception.
TORLIB_API Result EndException(ErrorRecord* error, std::string_view object,
                               std::u16string_view member, MemberAtWork named) noexcept;

} // namespace torlib
