#include "torlib/platform/component/exception_boundary.h"

#include "torlib/platform/component/variant.h"

#include <new>
#include <stdexcept>

namespace torlib {

namespace {

/// The exception that is being handled, under the name of the called member.
ErrorRecord Described(const std::string& called, MemberAtWork named) {
    const auto number = [](ErrorNumber n) { return static_cast<int>(n); };
    try {
        throw;
    } catch (const RunTimeError& failure) {
        const bool inner = named == MemberAtWork::Innermost && !failure.Member().empty();
        return {number(failure.Number()), inner ? failure.Member() : called, failure.Description()};
    } catch (const std::bad_alloc&) {
        return {number(ErrorNumber::OutOfMemory), called, "out of memory"};
    } catch (const std::length_error&) {
        return {number(ErrorNumber::OutOfMemory), called, "out of memory"};
    } catch (const std::exception& failure) {
        return {number(ErrorNumber::InvalidArgument), called, failure.what()};
    } catch (...) {
        return {number(ErrorNumber::InvalidArgument), called, "an exception of an unknown type"};
    }
}

} // namespace

Result EndException(ErrorRecord* error, std::string_view object, std::u16string_view member,
                    MemberAtWork named) noexcept {
    if (!error) {
        return Result::Exception;
    }
    try {
        *error = Described(std::string(object) + "." + ToUtf8(member), named);
    } catch (...) { // no memory for the texts: the number alone
        error->Number = static_cast<int>(ErrorNumber::OutOfMemory);
    }
    return Result::Exception;
}

} // namespace torlib
