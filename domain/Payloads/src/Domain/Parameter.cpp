#include "norel/Desktop/Domain/Payloads/Parameter.h"

#include "AllowedValues.h"
#include "Building.h"
#include "norel/Desktop/Utils/ConvertToGenericString.h"

#include <cmath>
#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {
namespace {

using Utils::ConvertToGenericString::convertToGenericString;

bool isPowerOfTen(double precision) {
    constexpr double tolerance = 0.001;
    const double exponent = std::log10(precision);
    return std::isfinite(exponent) && std::abs(exponent - std::round(exponent)) <= tolerance;
}

std::invalid_argument violated(const std::string& rule) {
    return std::invalid_argument("Profile Parameter: " + rule);
}

template <typename T>
bool isWithinRange(const typename Parameter<T>::Builder& builder, T number) {
    return builder.minimum <= number && number <= builder.maximum;
}

template <typename T>
std::string rangeRule(const typename Parameter<T>::Builder& builder) {
    return " must be within min/max (" + convertToGenericString(builder.minimum) + "/" +
           convertToGenericString(builder.maximum) + ")";
}

template <typename T>
void checkPresets(const typename Parameter<T>::Builder& builder, RuleCheck& check) {
    constexpr std::size_t maximumLength = 10000;
    std::string lines;
    for (const auto& [name, preset] : builder.presets) {
        if (isWithinRange<T>(builder, preset))
            continue;
        lines += lines.empty() ? "" : "\nProfile Parameter: ";
        if (lines.size() > maximumLength) {
            lines += "more presets must be within min/max";
            break;
        }
        lines += "presets (key: " + shortened(name) + " with value: " + convertToGenericString(preset) + ")" +
                 rangeRule<T>(builder);
    }
    if (!lines.empty())
        check.fail(&builder.presets, violated(lines));
}

template <typename T>
void checkRange(const typename Parameter<T>::Builder& builder, RuleCheck& check) {
    const auto fail = [&](const char* name, const T& number) {
        check.fail(&number,
                   violated(name + (" (" + convertToGenericString(number)) + ")" + rangeRule<T>(builder)));
    };
    if (!isWithinRange<T>(builder, builder.defaultValue))
        fail("defaultValue", builder.defaultValue);
    checkPresets<T>(builder, check);
    if (!isWithinRange<T>(builder, builder.value))
        fail("value", builder.value);
}

template <typename T>
void checkParameter(const typename Parameter<T>::Builder& builder, RuleCheck& check) {
    const auto& [value, minimum, maximum, defaultValue, presets, precision, unit] = builder;
    if (minimum > maximum) // nothing is within such bounds
        check.fail(&minimum, violated("minimum (" + convertToGenericString(minimum) +
                                      ") must be smaller or equal to maximum (" +
                                      convertToGenericString(maximum) + ")"));
    else
        checkRange<T>(builder, check);
    if (!isOneOf(AllowedValues::UNITS, unit))
        check.fail(&unit, violated("unit \"" + shortened(unit) + "\" is not supported"),
                   AllowedValues::UNITS);
    if (!isPowerOfTen(precision))
        check.fail(&precision,
                   violated("precision (" + convertToGenericString(precision) + ") is not a power of ten"));
}

} // namespace

void checkFields(const Parameter<double>::Builder& builder, RuleCheck& check) {
    checkParameter<double>(builder, check);
}
void checkFields(const Parameter<unsigned int>::Builder& builder, RuleCheck& check) {
    checkParameter<unsigned int>(builder, check);
}
void checkFields(const Parameter<int>::Builder& builder, RuleCheck& check) {
    checkParameter<int>(builder, check);
}

template <typename T>
Parameter<T> Parameter<T>::Builder::build() const {
    return buildPlain<Parameter>(*this);
}

template NOREL_PAYLOADS_EXPORT Parameter<double> Parameter<double>::Builder::build() const;
template NOREL_PAYLOADS_EXPORT Parameter<unsigned int> Parameter<unsigned int>::Builder::build() const;
template NOREL_PAYLOADS_EXPORT Parameter<int> Parameter<int>::Builder::build() const;

} // namespace norel::Desktop::Domain::Payloads
