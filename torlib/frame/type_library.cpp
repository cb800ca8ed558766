#include "torlib/frame/type_library.h"

#include "torlib/frame/enumeration_table.h"
#include "torlib/frame/event_table.h"
#include "torlib/frame/record_table.h"

#include <algorithm>

namespace torlib {

namespace {

std::string TypeText(const ParameterType& type) {
    static constexpr const char* names[] = {"",        "Integer", "Long",    "Single", "Double",
                                            "Boolean", "String",  "Variant", "Object", "Record"};
    return type.TypeName ? ToUtf8(type.TypeName) : names[static_cast<std::size_t>(type.Type)];
}

std::string Padded(std::string text, std::size_t width) {
    text.resize(std::max(text.size(), width), ' ');
    return text;
}

const char* DirectionText(const ParameterType& type) {
    return type.Writable ? "in out" : type.ByReference ? "in ref" : "in";
}

std::string DefaultText(const Parameter& parameter) {
    switch (parameter.Default) {
        case Parameter::DefaultKind::Required:
            return "";
        case Parameter::DefaultKind::LeftOut:
            return ", optional";
        case Parameter::DefaultKind::Boolean:
            return std::string(", optional = ") + (parameter.Value ? "True" : "False");
        case Parameter::DefaultKind::Number:
            return ", optional = " + std::to_string(parameter.Value);
    }
    return "";
}

const char* KindText(MemberKind kind) {
    switch (kind) {
        case MemberKind::Method:
            return "method";
        case MemberKind::PropertyGet:
            return "get";
        case MemberKind::PropertyPut:
            return "put";
        case MemberKind::Reserved:
            break;
    }
    return "reserved";
}

/// The lines below a member or event: what it does and what it takes.
std::string DetailsText(const Member& member) {
    std::string text = member.Doc.empty() ? "" : "      \"" + ToUtf8(member.Doc) + "\"\n";
    for (std::size_t i = 0; i < member.Count; ++i) {
        const ParameterType& type = member.Types[i];
        text += "      " + Padded(DirectionText(type), 8) + ToUtf8(member.Parameters[i].Name) +
                (type.IsArray ? "()" : "") + " As " + TypeText(type) +
                DefaultText(member.Parameters[i]) + "\n";
    }
    return text;
}

std::string MemberText(const ClassInfo& info, const Member& member) {
    // A member that has no code yet keeps the number of its place.
    const auto place = static_cast<std::int32_t>(&member - info.Members.data()) + 1;
    const std::int32_t number =
        member.Kind == MemberKind::Reserved ? place : info.NumberOf(member.Name);
    std::string text = Padded("  id " + std::to_string(number), 8) + KindText(member.Kind) + " " +
                       ToUtf8(member.Name);
    if (member.Return.Type != ValueType::None) {
        text += " As " + TypeText(member.Return);
    }
    return text + "\n" + DetailsText(member);
}

std::string ClassText(const CatalogueEntry& entry, const ClassInfo* info) {
    const std::string name = ToUtf8(entry.Name);
    std::string text = "\nclass " + name + " " + ToUtf8(GuidText(entry.ClassId)) + "\n  progid " +
                       ToUtf8(LibraryName) + "." + name + ", creatable, application object\n" +
                       "  interface _" + name + " " + ToUtf8(GuidText(entry.InterfaceId)) +
                       ", dispatch by name and by number\n";
    if (const EventInterfaceInfo* events = FindEventInterface(entry.Name)) {
        text += "  events " + ToUtf8(events->Name) + "\n";
    }
    if (!info) {
        return text + "  without code in this build\n";
    }
    text += "  \"" + ToUtf8(info->Doc) + "\"\n";
    for (const Member& member : info->Members) {
        text += MemberText(*info, member);
    }
    return text;
}

std::string EventsText(const EventInterfaceInfo& events) {
    std::string text =
        "\nevents " + ToUtf8(events.Name) + " " + ToUtf8(GuidText(events.InterfaceId)) + "\n";
    std::size_t id = 0;
    for (const Member& event : events.Events) {
        text +=
            "  id " + std::to_string(++id) + " " + ToUtf8(event.Name) + "\n" + DetailsText(event);
    }
    return text;
}

std::string EnumerationText(const EnumerationInfo& enumeration) {
    std::string text = "\nenum " + ToUtf8(enumeration.Name) + "\n";
    for (const EnumerationValue& value : enumeration.Values) {
        text += "  " + ToUtf8(value.Name) + " = " + std::to_string(value.Value) + "\n";
    }
    return text;
}

std::string RecordText(const RecordInfo& record) {
    std::string text = "\nrecord " + ToUtf8(record.Name) + ", " + std::to_string(record.Size) +
                       " bytes\n  \"" + ToUtf8(record.Doc) + "\"\n";
    for (const RecordField& field : record.Fields) {
        text += "  " + ToUtf8(field.Name);
        if (field.FixedUpper >= 0) {
            text += "(0 To " + std::to_string(field.FixedUpper) + ")";
        } else if (field.Type.IsArray) {
            text += "()";
        }
        text += " As " + TypeText(field.Type) + "\n";
    }
    return text;
}

std::string VersionNumber() {
    return std::to_string(LibraryMajorVersion) + "." + std::to_string(LibraryMinorVersion);
}

} // namespace

std::string TypeLibraryText(std::span<const ClassInfo* const> classes) {
    std::string text = "library " + ToUtf8(LibraryName) + " " + ToUtf8(GuidText(LibraryId)) +
                       "\n  version " + VersionNumber() + "\n  \"" + ToUtf8(LibraryDescription) +
                       "\"\n";
    for (const CatalogueEntry& entry : ClassCatalogue()) {
        const auto at =
            std::find_if(classes.begin(), classes.end(),
                         [&entry](const ClassInfo* info) { return info->Name == entry.Name; });
        text += ClassText(entry, at == classes.end() ? nullptr : *at);
    }
    for (const EventInterfaceInfo& events : EventInterfaces()) {
        text += EventsText(events);
    }
    for (const EnumerationInfo& enumeration : Enumerations()) {
        text += EnumerationText(enumeration);
    }
    for (const RecordInfo& record : Records()) {
        text += RecordText(record);
    }
    return text;
}

std::string VersionText() {
    return "FileDescription = " + ToUtf8(LibraryDescription) +
           "\nFileVersion = " + VersionNumber() + "\nInternalName = torlib\nOLESelfRegister =\n";
}

} // namespace torlib
