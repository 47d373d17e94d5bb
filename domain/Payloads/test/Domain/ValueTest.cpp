#include "Building.h"
#include "Sample.h"

#include <functional>
#include <gmock/gmock.h>
#include <map>
#include <typeindex>

namespace norel::Desktop::Domain::Payloads::Test {
namespace {

using testing::ThrowsMessage;

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
        const auto build = [] { return typename V::Builder().build(); };
        if (const auto message = messages.find(typeid(V)); message != messages.end())
            EXPECT_THAT(build, ThrowsMessage<std::invalid_argument>(message->second));
        else
            EXPECT_TRUE(build() == build()) << typeid(V).name();
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
            ASSERT_THAT([&] { builder.build(); }, ThrowsMessage<std::invalid_argument>(leaf.message));
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
        const auto check = [&](const auto& row) {
            EXPECT_TRUE(std::invoke(row.getter, value) == buildMember(builder.*row.member));
        };
        std::apply([&](const auto&... rows) { (check(rows), ...); }, rowsOf<Value>());
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
