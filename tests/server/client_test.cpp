// What a client sees that is linked with the component layer and nothing else of the library; the
// arithmetic types are headers.

#include "tests/error_text.h"
#include "tests/server/registered_server.h"

#include "torlib/frame/arithmetic.h"
#include "torlib/platform/component/registry.h"

#include <exception>

namespace torlib {
namespace {

using Client = test::RegisteredServer;
using test::ServerFile;

TEST_F(Client, CreatesByEitherIdentifierAndCalculates) {
    for (const RegistryEntry& entry : ReadRegistry()) {
        if (entry.Kind == "class") {
            EXPECT_TRUE(CreateObject(FromUtf8(entry.Value("progid")))) << entry.Key;
            EXPECT_NE(FindEntry(ReadRegistry(), "interface", entry.Value("interface")), nullptr);
            EXPECT_NE(FindEntry(ReadRegistry(), "typelib", entry.Value("typelib")), nullptr);
            EXPECT_EQ(entry.Value("version"), "74.1");
        }
    }
    const RegistryEntry entry = *FindEntry(ReadRegistry(), "progid", "torvalib.math_class");
    const Object math = CreateObject(FromUtf8(entry.Value("class")));
    auto U = ArrayFromOne<Single>({320, -95}), V = ArrayFromOne<Single>({10, 100, 1000});
    float big = 0;
    EXPECT_FALSE(
        math.Invoke(u"CheckConvergence", {2, ByRef(U), ByRef(V), 1, ByRef(big)}).ToBoolean());
    EXPECT_EQ(big, 310.0F);
    EXPECT_EQ(V(2).Value(), -95.0F);
    EXPECT_EQ(test::ErrorText([&] {
                  math.Invoke(u"InverseMatrix", {3, ByRef(U), ByRef(V)});
              }),
              "Math_Class.InverseMatrix: A: two indices given for an array of one dimension "
              "(error 9)");
}

TEST_F(Client, TheServerStaysLoadedWhileAnythingOfItIsInUse) {
    Guid mathClass;
    ParseGuid(FromUtf8(FindEntry(ReadRegistry(), "progid", "TORVALib.Math_Class")->Value("class")),
              &mathClass);
    const ServerFile server;
    EXPECT_EQ(server.CanUnload(), Result::Ok);
    void* pointer = nullptr;
    ASSERT_EQ(server.ClassObject(mathClass, IidClassFactory, &pointer), Result::Ok);
    auto* factory = static_cast<ClassFactory*>(pointer);
    EXPECT_EQ(server.CanUnload(), Result::False) << "a factory is held";
    ASSERT_EQ(factory->CreateInstance(IidDispatch, &pointer), Result::Ok);
    Object object = Object::Adopt(static_cast<Dispatch*>(pointer));
    EXPECT_EQ(factory->LockServer(true), Result::Ok);
    EXPECT_EQ(factory->CreateInstance(Guid{}, &pointer), Result::NoInterface);
    EXPECT_EQ(pointer, nullptr);
    EXPECT_EQ(factory->Release(), 0U);
    Object copy = object;
    object = nullptr;
    EXPECT_EQ(server.CanUnload(), Result::False) << "an object is held and the server is locked";
    copy = nullptr;
    EXPECT_EQ(server.CanUnload(), Result::False) << "the server is locked";
    ASSERT_EQ(server.ClassObject(mathClass, IidClassFactory, &pointer), Result::Ok);
    factory = static_cast<ClassFactory*>(pointer);
    factory->LockServer(false);
    factory->Release();
    EXPECT_EQ(server.CanUnload(), Result::Ok);
    EXPECT_EQ(server.ClassObject(IidUnknown, IidClassFactory, &pointer), Result::ClassNotAvailable);
    EXPECT_EQ(server.ClassObject(mathClass, IidDispatch, &pointer), Result::NoInterface);
    EXPECT_EQ(server.CanUnload(), Result::Ok) << "a refusal holds nothing";
}

TEST_F(Client, WhatTheServerMadeForTheClientOutlivesTheServer) {
    Array<Single> A(Bounds{0, 2}, Bounds{0, 2});
    A(1, 1) = A(2, 2) = 2;
    auto V = ArrayFromOne<Single>({3, 4});
    Array<Single> U(Bounds{7, 8});
    const auto held = std::make_shared<Array<Single>>(Bounds{1, 1});
    Variant variable = std::shared_ptr<SafeArray>(held);
    std::u16string listing = u"a text that lies in memory of its own: ";
    Variant line = listing;
    Array<Single> other;
    std::exception_ptr error;
    std::shared_ptr<void> look;
    {
        Object math = CreateObject(u"TORVALib.Math_Class");
        const Object torva = CreateObject(u"TORVALib.TORVAClass");
        for (const Variant& target : {ByRef(U), ByRef(variable)}) {
            math.Invoke(u"ProductMatrxByVector", {2, ByRef(A), ByRef(V), target});
        }
        for (const Variant& target : {ByRef(listing), ByRef(line)}) {
            torva.Invoke(u"SetLineList", {target, u"Area", u"A", u"m2", u"1", 40, 8});
        }
        try {
            math.Invoke(u"InverseMatrix", {3, ByRef(V), ByRef(other)});
        } catch (...) {
            error = std::current_exception();
        }
        look = U.Share();
        math = nullptr;
        EXPECT_EQ(UnloadFreeServers(), 1) << "the other object is held";
    }
    ASSERT_EQ(UnloadFreeServers(), 0);
    ASSERT_FALSE(ServerFile::IsLoaded());
    EXPECT_EQ(static_cast<float*>(look.get())[2], 8.0F);
    look.reset();
    for (Array<Single>* product : {&U, held.get()}) {
        EXPECT_EQ((*product)(2), 8);
        const Array<Single> copy = *product;
        product->ReDimPreserve(5);
        EXPECT_EQ((*product)(1) + copy(1), 12);
        product->ReDim(1);
    }
    variable = 0;
    EXPECT_EQ(line.ToText(), listing);
    EXPECT_EQ(listing.substr(listing.size() - 5), u"= 1\r\n");
    listing += listing;
    EXPECT_EQ(test::ErrorOf([&] { std::rethrow_exception(error); }), 9);
}

TEST_F(Client, ANullPlaceOrAnUnbalancedUnlockIsRefused) {
    Guid mathClass;
    ParseGuid(FromUtf8(FindEntry(ReadRegistry(), "progid", "TORVALib.Math_Class")->Value("class")),
              &mathClass);
    const ServerFile server;
    EXPECT_EQ(server.ClassObject(mathClass, IidClassFactory, nullptr), Result::InvalidPointer);
    EXPECT_EQ(server.ClassObject(IidUnknown, IidClassFactory, nullptr), Result::InvalidPointer);
    void* pointer = nullptr;
    ASSERT_EQ(server.ClassObject(mathClass, IidClassFactory, &pointer), Result::Ok);
    auto* factory = static_cast<ClassFactory*>(pointer);
    EXPECT_EQ(factory->CreateInstance(IidDispatch, nullptr), Result::InvalidPointer);
    EXPECT_EQ(factory->QueryInterface(IidClassFactory, nullptr), Result::InvalidPointer);
    EXPECT_EQ(factory->LockServer(false), Result::NotLocked);
    EXPECT_EQ(factory->LockServer(true), Result::Ok);
    EXPECT_EQ(factory->Release(), 0U);
    EXPECT_EQ(server.CanUnload(), Result::False) << "the refused unlock has taken no later lock";
    ASSERT_EQ(server.ClassObject(mathClass, IidClassFactory, &pointer), Result::Ok);
    factory = static_cast<ClassFactory*>(pointer);
    EXPECT_EQ(factory->LockServer(false), Result::Ok);
    factory->Release();
    EXPECT_EQ(server.CanUnload(), Result::Ok);
}

TEST_F(Client, UnloadingTakesAFreeServerOutOfTheProcess) {
    ASSERT_FALSE(ServerFile::IsLoaded());
    Object torva = CreateObject(u"TORVALib.TORVAClass");
    torva.Put(u"Exitcontrol", 5);
    EXPECT_EQ(UnloadFreeServers(), 1);
    EXPECT_EQ(torva.Get(u"Exitcontrol").ToLong(), 5);
    torva = nullptr;
    EXPECT_EQ(UnloadFreeServers(), 0);
    EXPECT_FALSE(ServerFile::IsLoaded());
    EXPECT_EQ(CreateObject(u"TORVALib.TORVAClass").Get(u"Exitcontrol").ToLong(), 0)
        << "a freshly loaded library starts at 0";
}

TEST_F(Client, AReferenceToADefaultInstanceKeepsTheServerAndItsState) {
    Object shared = DefaultObject(u"TORVALib.TORVAClass");
    shared.Put(u"Exitcontrol", 5);
    EXPECT_EQ(UnloadFreeServers(), 1);
    EXPECT_EQ(DefaultObject(u"torvalib.torvaclass").Get(u"Exitcontrol").ToLong(), 5);
    shared = nullptr;
    EXPECT_EQ(UnloadFreeServers(), 0) << "the instance alone does not hold the server";
    EXPECT_FALSE(ServerFile::IsLoaded());
    EXPECT_EQ(test::ErrorOf([] { DefaultObject(u"TORVALib.Nothing"); }), 429);
}

TEST_F(Client, UnregisteringLeavesNothingButTheEntriesOfOthers) {
    RegisterEntries({{"progid", "Other.Class", {{"server", "/other.so"}}}});
    const std::size_t all = ReadRegistry().size();
    EXPECT_EQ(ServerFile().Register(), Result::Ok);
    EXPECT_EQ(ReadRegistry().size(), all) << "registering again changes nothing";
    EXPECT_EQ(ServerFile().Unregister(), Result::Ok);
    ASSERT_EQ(ReadRegistry().size(), 1U);
    EXPECT_EQ(ReadRegistry()[0].Key, "Other.Class");
    EXPECT_EQ(test::ErrorOf([] { CreateObject(u"TORVALib.Math_Class"); }), 429);
    setenv("TORLIB_REGISTRY", "/proc/no/such/place", 1);
    EXPECT_EQ(ServerFile().Register(), Result::RegistryFailed);
    EXPECT_EQ(ServerFile().Unregister(), Result::RegistryFailed);
}

} // namespace
} // namespace torlib
