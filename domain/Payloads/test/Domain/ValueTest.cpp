#include "Building.h"
#include "Sample.h"

#include <functional>
#include <gmock/gmock.h>
#include <map>
#include <typeindex>

namespace norel::Desktop::Domain::Payloads::Test {
namespace {

using testing::ThrowsMessage;
using Build = std::function<void()>; // one type, so that the matchers are compiled only once

TEST(Value, OfADefaultBuilderIsValidOrViolatesAKnownRule) {
    const std::string unit = "Profile FieldOfViewRange: unit must be \"deg\"";
    const std::string views = "Profile FieldOfViews: at least one FieldOfView is required";
    const std::string mount = "Profile Trajectory: stabilized mount \"\" is invalid";
    const std::map<std::type_index, std::string> messages{
        {typeid(FieldOfView), unit},
        {typeid(BoresightCalibration), unit},
        {typeid(FieldOfViews), views},
        {typeid(Georeferencing), views},
        {typeid(Camera), "Profile Camera: orientation \"\" is invalid"},
        {typeid(Imu), "Profile Imu: GNSS standard deviation \"\" is invalid"},
        {typeid(Trajectory), mount},
        {typeid(Profile), mount},
        {typeid(LidarCoveragePreview),
         "Profile LidarCoveragePreview: downsampling rate (0) must be greater than zero"},
        {typeid(Lidar), "Profile Lidar: alignment \"\" is invalid"}};
    forEachValueType([&]<typename V>() {
        const Build build = [] {
            typename V::Builder builder;
            EXPECT_TRUE(builder.build() == builder.build()) << typeid(V).name();
        };
        if (const auto message = messages.find(typeid(V)); message != messages.end())
            EXPECT_THAT(build, ThrowsMessage<std::invalid_argument>(message->second));
        else
            EXPECT_NO_THROW(build());
    });
}

TEST(Value, BuildsItsMembersInTheDocumentedOrder) {
    forEachValueType([]<typename Value>() {
        SCOPED_TRACE(typeid(Value).name());
        typename Value::Builder builder;
        const Sample sample(builder);
        for (const Leaf& leaf : sample.leaves)
            if (leaf.invalidate)
                leaf.invalidate();
        for (const Leaf& leaf : sample.leaves) {
            if (!leaf.invalidate)
                continue;
            const Build build = [&] { builder.build(); };
            ASSERT_THAT(build, ThrowsMessage<std::invalid_argument>(leaf.message));
            leaf.reset();
        }
        EXPECT_NO_THROW(builder.build());
    });
}

TEST(Value, ReturnsComparesAndPassesOnAllItsMembers) {
    forEachValueType([]<typename Value>() {
        SCOPED_TRACE(typeid(Value).name());
        typename Value::Builder builder;
        const Sample sample(builder);
        const Value value = builder.build();
        const auto isReturned = [&](const auto& row) {
            return std::invoke(row.getter, value) == buildMember(builder.*row.member);
        };
        EXPECT_TRUE(
            std::apply([&](const auto&... rows) { return (isReturned(rows) && ...); }, rowsOf<Value>()));
        EXPECT_TRUE(toBuilder(value).build() == value);
        for (const Leaf& leaf : sample.leaves) {
            if (!leaf.change)
                continue;
            leaf.change();
            EXPECT_TRUE(value != builder.build()) << "leaf " << &leaf - sample.leaves.data();
            leaf.reset();
            EXPECT_TRUE(value == builder.build());
        }
    });
}

} // namespace
} // namespace norel::Desktop::Domain::Payloads::Test
