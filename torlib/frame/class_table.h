#pragma once
// The table of a public class: one row a member, in interface order. From it come late-bound calls,
// names and identifiers, the type library and the reference listing. A row looks like this; types,
// directions and the number of parameters are deduced from the member pointer:
//
//     constexpr Member members[] = {
//         Method<&FEM_Class::SolveMatrix>(u"SolveMatrix", u"Solves the banded system in place.",
//             {{u"Nw"}, {u"N3"}, {u"A"}, {u"Q"}, {u"FrmShow", Omitted}, {u"PrograssBarMode", false},
//              {u"ObjStbar", Omitted}}),
//         PropertyGet<&TORVAClass::ReadExitcontrol>(u"Exitcontrol", u"..."),
//         PropertyPut<&TORVAClass::WriteExitcontrol>(u"Exitcontrol", u"...", {{u"NewValue"}}),
//         Reserved(u"BeamData"),   // keeps the slot of a member that has no code yet
//     };
//     const ClassInfo& FEM_Class::Info() {
//         static const ClassInfo info = DescribeClass<FEM_Class>(u"FEM_Class", u"...", members);
//         return info;
//     }
