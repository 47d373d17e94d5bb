#include "Building.h"
#include "Sample.h"

#include <gmock/gmock.h>
#include <typeinfo>

namespace norel::Desktop::Domain::Payloads::Test {
namespace {

using testing::ThrowsMessage;

/// Why a fresh Builder does not build; empty if it does.
template <typename V>
std::string freshRefusal() {
    if constexpr (is<V, FieldOfView> || is<V, BoresightCalibration>)
        return "Profile FieldOfViewRange: unit must be \"deg\"";
    else if constexpr (is<V, FieldOfViews> || is<V, Georeferencing>)
        return "Profile FieldOfViews: at least one FieldOfView is required";
    else if constexpr (is<V, Camera>)
        return "Profile Camera: orientation \"\" is invalid";
    else if constexpr (is<V, Imu>)
        return "Profile Imu: GNSS standard deviation \"\" is invalid";
    else if constexpr (is<V, Trajectory> || is<V, Profile>)
        return "Profile Trajectory: stabilized mount \"\" is invalid";
    else if constexpr (is<V, LidarCoveragePreview>)
        return "Profile LidarCoveragePreview: downsampling rate (0) must be greater than zero";
    else if constexpr (is<V, Lidar>)
        return "Profile Lidar: alignment \"\" is invalid";
    else
        return {};
}

TEST(Value, OfAFreshBuilderIsBuiltOrRefusedWithItsFirstRule) {
    forEachValueType([]<typename V>() {
        const typename V::Builder builder;
        const auto build = [&] { return builder.build(); };
        if (const std::string refusal = freshRefusal<V>(); !refusal.empty()) {
            EXPECT_THAT(build, ThrowsMessage<std::invalid_argument>(refusal));
        } else {
            EXPECT_TRUE(build() == build()) << typeid(V).name();
        }
    });
}

TEST(Value, BuildsItsMembersInTheirOrder) {
    forEachValueType([]<typename Value>() {
        SCOPED_TRACE(typeid(Value).name());
        typename Value::Builder builder;
        const Sample sample(builder);
        for (const Leaf& leaf : sample.leaves)
            if (leaf.spoil)
                leaf.spoil();
        for (const Leaf& leaf : sample.leaves) {
            if (!leaf.spoil)
                continue;
            ASSERT_THAT([&] { builder.build(); }, ThrowsMessage<std::invalid_argument>(leaf.refusal));
            leaf.mend();
        }
        EXPECT_NO_THROW(builder.build());
    });
}

TEST(Value, EqualsOneWithTheSameMembersOnly) {
    forEachValueType([]<typename Value>() {
        SCOPED_TRACE(typeid(Value).name());
        typename Value::Builder builder;
        const Sample sample(builder);
        const Value value = builder.build();
        for (const Leaf& leaf : sample.leaves) {
            if (!leaf.change)
                continue;
            leaf.change();
            EXPECT_TRUE(value != builder.build()) << "leaf " << &leaf - sample.leaves.data();
            leaf.mend();
            EXPECT_TRUE(value == builder.build());
        }
    });
}

TEST(Value, GivesEachMemberThroughItsGetter) {
    forEachValueType([]<typename Value>() {
        typename Value::Builder builder;
        const Sample sample(builder);
        const Value value = builder.build();
        const auto check = [&](const auto& row) {
            EXPECT_TRUE((value.*row.getter)() == buildMember(builder.*row.member)) << typeid(Value).name();
        };
        std::apply([&](const auto&... rows) { (check(rows), ...); }, rowsOf<Value>());
    });
}

} // namespace
} // namespace norel::Desktop::Domain::Payloads::Test
