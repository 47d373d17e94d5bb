#include "norel/Desktop/Domain/Payloads/Parameter.h"
#include "norel/Desktop/Utils/ConvertToGenericString.h"

#include <cmath>
#include <functional>
#include <gmock/gmock.h>
#include <limits>
#include <optional>
#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {
namespace {

using testing::ThrowsMessage;
using Utils::ConvertToGenericString::convertToGenericString;
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();

template <typename T>
void expectRejected(const typename Parameter<T>::Builder& builder, const std::string& message) {
    EXPECT_THAT([&] { builder.build(); },
                ThrowsMessage<std::invalid_argument>("Profile Parameter: " + message));
}

template <typename T>
struct ParameterOf : testing::Test {
    using Builder = typename Parameter<T>::Builder;
};
using Numbers = testing::Types<double, unsigned int, int>;
TYPED_TEST_SUITE(ParameterOf, Numbers);

TYPED_TEST(ParameterOf, DefaultBuilderAllowsTheWholeRange) {
    const typename TestFixture::Builder builder;
    const Parameter<TypeParam> parameter = builder.build();
    EXPECT_EQ(parameter.getValue(), TypeParam(0));
    EXPECT_EQ(parameter.getMinimum(), std::numeric_limits<TypeParam>::lowest());
    EXPECT_EQ(parameter.getMaximum(), std::numeric_limits<TypeParam>::max());
    EXPECT_EQ(parameter.getDefaultValue(), TypeParam(0));
    EXPECT_TRUE(parameter.getPresets().empty());
    EXPECT_EQ(parameter.getPrecision(), 1.0);
    EXPECT_EQ(parameter.getUnit(), "");
}

TYPED_TEST(ParameterOf, ReportsTheFirstViolatedRule) {
    typename TestFixture::Builder builder{9, 5, 3, 2, {{"b", 1}, {"fine", 4}, {"Z", 7}, {"", 6}}, 0.5, "M"};
    expectRejected<TypeParam>(builder, "minimum (5) must be smaller or equal to maximum (3)");
    builder.minimum = 3;
    builder.maximum = 5;
    expectRejected<TypeParam>(builder, "defaultValue (2) must be within min/max (3/5)");
    builder.defaultValue = 6;
    expectRejected<TypeParam>(builder, "defaultValue (6) must be within min/max (3/5)");
    builder.defaultValue = 3;
    expectRejected<TypeParam>(
        builder, "presets (key:  with value: 6) must be within min/max (3/5)\n"
                 "Profile Parameter: presets (key: Z with value: 7) must be within min/max (3/5)\n"
                 "Profile Parameter: presets (key: b with value: 1) must be within min/max (3/5)");
    builder.presets = {{"low", 3}, {"high", 5}};
    expectRejected<TypeParam>(builder, "value (9) must be within min/max (3/5)");
    builder.value = 2;
    expectRejected<TypeParam>(builder, "value (2) must be within min/max (3/5)");
    builder.value = 5;
    expectRejected<TypeParam>(builder, "unit \"M\" is not supported");
    builder.unit = "m";
    expectRejected<TypeParam>(builder, "precision (0.5) is not a power of ten");
    builder.precision = 10;
    EXPECT_NO_THROW(builder.build());
    builder.minimum = builder.defaultValue = 5;
    builder.presets.clear();
    EXPECT_NO_THROW(builder.build()); // 5 is the only valid value
}

TYPED_TEST(ParameterOf, ComparesAllSevenFields) {
    using ParameterBuilder = typename Parameter<TypeParam>::Builder;
    ParameterBuilder builder{3, 1, 9, 2, {}, 0.1, "deg"};
    builder.presets["b"] = 4;
    builder.presets["a"] = 5;
    const Parameter<TypeParam> parameter = builder.build();
    EXPECT_TRUE(parameter == ParameterBuilder({3, 1, 9, 2, {{"a", 5}, {"b", 4}}, 0.1, "deg"}).build());
    const std::function<void(ParameterBuilder&)> changes[] = {
        [](ParameterBuilder& b) { b.value = 4; },
        [](ParameterBuilder& b) { b.minimum = 0; },
        [](ParameterBuilder& b) { b.maximum = 8; },
        [](ParameterBuilder& b) { b.defaultValue = 3; },
        [](ParameterBuilder& b) { b.presets["a"] = 4; },
        [](ParameterBuilder& b) { b.presets["c"] = 4; },
        [](ParameterBuilder& b) { b.presets.erase("a"); },
        [](ParameterBuilder& b) {
            b.presets = {{"a", 5}, {"B", 4}};
        },
        [](ParameterBuilder& b) { b.precision = 1; },
        [](ParameterBuilder& b) { b.unit = ""; },
    };
    for (const auto& change : changes) {
        ParameterBuilder changed = builder;
        change(changed);
        EXPECT_TRUE(parameter != changed.build());
    }
}

TEST(Parameter, ComparesSignedAndUnsignedIntegers) {
    expectRejected<int>({-1, 0, 5, 0, {}, 1, ""}, "value (-1) must be within min/max (0/5)");
    EXPECT_NO_THROW((Parameter<int>::Builder{-90, -90, -1, -2, {{"", -1}}, 1, ""}.build()));
    EXPECT_NO_THROW(
        (Parameter<unsigned int>::Builder{4294967295U, 3000000000U, 4294967295U, 3000000000U, {}, 1, ""}
             .build()));
}

TEST(Parameter, RejectsNanAndAcceptsInfiniteBounds) {
    using Builder = Parameter<double>::Builder;
    expectRejected<double>({0, NOT_A_NUMBER, 1, 0, {}, 1, ""},
                           "defaultValue (0) must be within min/max (nan/1)");
    expectRejected<double>({0, 0, NOT_A_NUMBER, 0, {}, 1, ""},
                           "defaultValue (0) must be within min/max (0/nan)");
    expectRejected<double>({0, 0, 1, NOT_A_NUMBER, {}, 1, ""},
                           "defaultValue (nan) must be within min/max (0/1)");
    expectRejected<double>({0, 0, 1, 0, {{"p", NOT_A_NUMBER}}, 1, ""},
                           "presets (key: p with value: nan) must be within min/max (0/1)");
    expectRejected<double>({NOT_A_NUMBER, 0, 1, 0, {}, 1, ""}, "value (nan) must be within min/max (0/1)");
    Builder infinite;
    infinite.value = INFINITE;
    expectRejected<double>(infinite, "value (inf) must be within min/max "
                                     "(-1.7976931348623157e+308/1.7976931348623157e+308)");
    EXPECT_NO_THROW((Builder{INFINITE, -INFINITE, INFINITE, 0, {}, 1, ""}.build()));
    EXPECT_TRUE((Builder{0.0, 0, 1, 0, {}, 1, ""}.build() == Builder{-0.0, 0, 1, 0, {}, 1, ""}.build()));
}

TEST(Parameter, AcceptsOnlyPowersOfTenAsPrecision) {
    for (const double precision : {1e-05, 0.001, 0.01, 0.1, 1.0, 1.002, 0.998, 10.0, 100.0, 1e300, 1e-300})
        EXPECT_NO_THROW((Parameter<int>::Builder{0, 0, 0, 0, {}, precision, ""}.build())) << precision;
    for (const double precision :
         {1.003, 0.997, 0.25, 2.0, 5.0, 0.0, -0.1, -1.0, INFINITE, -INFINITE, NOT_A_NUMBER})
        expectRejected<unsigned int>({0, 0, 0, 0, {}, precision, ""}, "precision (" +
                                                                          convertToGenericString(precision) +
                                                                          ") is not a power of ten");
}

TEST(Parameter, AcceptsExactlyTheSupportedUnits) {
    for (const char* unit : {"sec", "m", "deg", "arcmin", "pts/m^2", "px", ""})
        EXPECT_NO_THROW((Parameter<int>::Builder{0, 0, 0, 0, {}, 1, unit}.build())) << unit;
    for (const char* unit : {"M", "m^2", "s", "Deg", "deg ", " ", "pts/m^2\n", "p", "arcmi"})
        expectRejected<int>({0, 0, 0, 0, {}, 1, unit}, std::string("unit \"") + unit + "\" is not supported");
    expectRejected<int>({0, 0, 0, 0, {}, 1, std::string("m\0", 2)}, "unit \"m"); // what() ends at the NUL
}

} // namespace
} // namespace norel::Desktop::Domain::Payloads
