// Writes calls of every member of every class with generated arguments, and the C++ answers, as one
// JSON object a line: python_test.py makes the same calls and compares.

#include "tests/server/generated_arguments.h"

#include "torlib/frame/class_object.h"
#include "torlib/frame/run_state.h"
#include "torlib/platform/clock.h"
#include "torlib/server/class_list.h"

#include <iostream>
#include <nlohmann/json.hpp>

namespace torlib {
namespace {

using nlohmann::json;
using test::GeneratedArguments;

json Encoded(SafeArray& array) {
    json bounds = json::array();
    std::size_t count = 1;
    for (int d = 1; d <= array.Dimensions(); ++d) {
        bounds.push_back({array.LBound(d), array.UBound(d)});
        count *= static_cast<std::size_t>(array.UBound(d) - array.LBound(d) + 1);
    }
    json elements = json::array();
    for (std::size_t i = 0; i < count && array.Dimensions() > 0; ++i) {
        const char* const place =
            static_cast<const char*>(array.RawData()) + i * array.ElementSize();
        switch (array.ElementType()) {
            case ValueType::Integer:
                elements.push_back(reinterpret_cast<const Integer*>(place)->Value());
                break;
            case ValueType::Single:
                elements.push_back(double{reinterpret_cast<const Single*>(place)->Value()});
                break;
            default:
                elements.push_back(ToUtf8(*reinterpret_cast<const String*>(place)));
        }
    }
    static constexpr const char* names[] = {"", "int16", "int32", "float32", "float64", "", "str"};
    return {{"dtype", names[static_cast<std::size_t>(array.ElementType())]},
            {"bounds", bounds},
            {"elements", elements}};
}

json Encoded(const Variant& value) {
    return std::visit(
        []<class T>(const T& held) -> json {
            if constexpr (std::is_same_v<T, SafeArray*>) {
                return Encoded(*held);
            } else if constexpr (std::is_same_v<T, float>) {
                return double{held};
            } else if constexpr (std::is_same_v<T, std::u16string>) {
                return ToUtf8(held);
            } else if constexpr (std::is_same_v<T, Object>) {
                return {{"window", true}};
            } else if constexpr (std::is_arithmetic_v<T>) {
                return held;
            } else {
                return nullptr;
            }
        },
        value.Dereferenced().Value());
}

json Encoded(const std::vector<Variant>& values) {
    json all = json::array();
    for (const Variant& value : values) {
        all.push_back(Encoded(value));
    }
    return all;
}

json Called(const ClassInfo& info, const Member& member, unsigned seed, unsigned shape) {
    static constexpr Long states[] = {ExitRunning, ExitRunning, ExitCancelRequested, ExitFinished};
    static constexpr const char* kinds[] = {"method", "get", "put"};
    const GeneratedArguments arguments(member, seed, shape);
    json call{{"class", ToUtf8(info.Name)},
              {"member", ToUtf8(member.Name)},
              {"kind", kinds[static_cast<std::size_t>(member.Kind)]},
              {"state", states[seed % 4]},
              {"given", Encoded(arguments.Values())}};
    ExitControlState() = states[seed % 4];
    const std::unique_ptr<void, void (*)(void*)> instance(info.Create(), info.Destroy);
    Variant result;
    call["error"] = nullptr;
    try {
        member.Run(instance.get(), arguments.Values(), &result);
    } catch (const RunTimeError& error) {
        call["error"] = {static_cast<int>(error.Number()), error.what()};
    }
    json results = json::array();
    if (member.Return.Type != ValueType::None) {
        results.push_back(Encoded(result));
    }
    for (std::size_t i = 0; i < member.Count; ++i) {
        call["names"].push_back(ToUtf8(member.Parameters[i].Name));
        if (member.Types[i].Writable && !member.Types[i].IsArray) {
            results.push_back(Encoded(arguments.Values()[i]));
        }
    }
    call["results"] = results;
    call["after"] = Encoded(arguments.Values());
    call["logs"] = arguments.Logs();
    call["state after"] = ExitControlState().load();
    return call;
}

/// The first few calls, and more until some have come to their end.
void WriteCalls(const ClassInfo& info, const Member& member) {
    const std::vector<unsigned> shapes = test::Shapes(member);
    int completed = 0;
    for (unsigned seed = 0; seed < 4 || (completed < 3 && seed < 4 * shapes.size() + 32); ++seed) {
        const json call = Called(info, member, seed, shapes[seed % shapes.size()]);
        const bool ended = call["error"].is_null();
        completed += ended ? 1 : 0;
        if (seed < 4 || ended) {
            std::cout << call.dump() << "\n";
        }
    }
}

} // namespace
} // namespace torlib

int main() {
    using namespace torlib;
    ReplaceClock([] { return 43200.0; });
    for (const ClassInfo* info : BuiltClasses()) {
        for (const Member& member : info->Members) {
            if (member.Kind != MemberKind::Reserved) {
                WriteCalls(*info, member);
            }
        }
    }
}
