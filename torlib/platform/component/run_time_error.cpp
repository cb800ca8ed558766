#include "torlib/platform/component/run_time_error.h"

#include <utility>

namespace torlib {

namespace {

thread_local const CallScope* innermost_scope = nullptr;

std::string InnermostMember() {
    const CallScope* scope = CallScope::Innermost();
    return scope ? scope->Member() : "";
}

} // namespace

RunTimeError::RunTimeError(ErrorNumber number, std::string description)
    : RunTimeError(number, InnermostMember(), std::move(description)) {}

RunTimeError::RunTimeError(ErrorNumber number, std::string member, std::string description)
    : number_(number), member_(std::move(member)), description_(std::move(description)) {
    text_ = member_.empty() ? description_ : member_ + ": " + description_;
    text_ += " (error " + std::to_string(static_cast<int>(number_)) + ")";
}

void RaiseError(ErrorNumber number, std::string description) {
    throw RunTimeError(number, std::move(description));
}

CallScope::CallScope(const char* member, const NamedArgument* arguments, std::size_t count) noexcept
    : member_(member), arguments_(arguments), count_(count), outer_(innermost_scope) {
    innermost_scope = this;
}

CallScope::~CallScope() {
    innermost_scope = outer_;
}

const CallScope* CallScope::Innermost() noexcept {
    return innermost_scope;
}

const char* CallScope::NameOf(const void* address) const noexcept {
    for (std::size_t i = 0; i < count_; ++i) {
        if (arguments_[i].Address == address) {
            return arguments_[i].Name;
        }
    }
    return nullptr;
}

} // namespace torlib
