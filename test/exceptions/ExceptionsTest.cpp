#include "Library.h"
#include "norel/Desktop/Domain/Payloads/Payloads.h"

#include <functional>
#include <gtest/gtest.h>
#include <string_view>

namespace norel::Desktop::Test {
namespace {

using namespace Domain::Payloads;

/// Some platforms compare type information by address, so all libraries must share that of an exception. On
/// Windows each has its own, compared by name.
#ifdef _WIN32
using Identity = std::string_view;
#else
using Identity = const void*;
#endif

template <typename Exception>
void expectShared(const std::type_info* inLibrary, const std::function<void()>& throwInLibrary) {
    const Identity here = typeid(Exception).name();
    EXPECT_EQ(Identity(inLibrary->name()), here);
    try {
        throwInLibrary();
        ADD_FAILURE() << "nothing was thrown";
    } catch (const Exception& error) {
        EXPECT_EQ(Identity(typeid(error).name()), here);
    }
}

TEST(Exceptions, AreCaughtByTypeAcrossLibrariesOfHiddenVisibility) {
    const auto types = getTypesInLibrary();
    expectShared<ProfileListSerializer::ParsingError>(types[0],
                                                      [] { JsonProfileListSerializer().deserialize("{"); });
    expectShared<Profile::InvalidProfile>(types[1], [] {
        Profile::Builder builder;
        builder.product = "product";
        builder.trajectory.stabilizedMount = "none";
        builder.trajectory.imuOnboard.gnssStandardDeviation = "SD1m";
        builder.build();
    });
    expectShared<ProfileListStorage::InvalidContent>(types[2], throwInvalidContent);
}

} // namespace
} // namespace norel::Desktop::Test
