#include "Library.h"
#include "norel/Desktop/Domain/Payloads/Payloads.h"

#include <gtest/gtest.h>
#include <typeinfo>

namespace norel::Desktop::Test {
namespace {

using namespace Domain::Payloads;

/// Some platforms compare type information by address, so all libraries must share that of an exception.
template <typename Exception>
void expectSharedType(int kind, const std::function<void()>& throwInPayloads) {
    EXPECT_THROW(throwAcrossLibraries(kind), Exception);
    const void* const here = typeid(Exception).name();
    for (const std::function<void()>& operation :
         {throwInPayloads, std::function([=] { throwAcrossLibraries(kind); })})
        EXPECT_EQ(static_cast<const void*>(catchAcrossLibraries(operation)), here)
            << typeid(Exception).name();
}

TEST(Exceptions, AreCaughtByTypeAcrossLibrariesOfHiddenVisibility) {
    expectSharedType<ProfileListSerializer::ParsingError>(
        0, [] { JsonProfileListSerializer().deserialize("{"); });
    expectSharedType<Profile::InvalidProfile>(1, [] {
        Profile::Builder builder;
        builder.product = "product";
        builder.trajectory.stabilizedMount = "none";
        builder.trajectory.imuOnboard.gnssStandardDeviation = "SD1m";
        builder.build();
    });
    expectSharedType<ProfileListStorage::InvalidContent>(
        2, [] { throw ProfileListStorage::InvalidContent("m"); });
}

} // namespace
} // namespace norel::Desktop::Test
