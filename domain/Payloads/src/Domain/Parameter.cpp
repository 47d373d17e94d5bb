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

[[noreturn]] void fail(const std::string& rule) { throw std::invalid_argument("Profile Parameter: " + rule); }

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
void checkPresets(const typename Parameter<T>::Builder& builder) {
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
        fail(lines);
}

template <typename T>
void checkParameter(const typename Parameter<T>::Builder& builder) {
    const auto& [value, minimum, maximum, defaultValue, presets, precision, unit] = builder;
    if (minimum > maximum)
        fail("minimum (" + convertToGenericString(minimum) + ") must be smaller or equal to maximum (" +
             convertToGenericString(maximum) + ")");
    if (!isWithinRange<T>(builder, defaultValue))
        fail("defaultValue (" + convertToGenericString(defaultValue) + ")" + rangeRule<T>(builder));
    checkPresets<T>(builder);
    if (!isWithinRange<T>(builder, value))
        fail("value (" + convertToGenericString(value) + ")" + rangeRule<T>(builder));
    if (!isOneOf(AllowedValues::UNITS, unit))
        fail("unit \"" + shortened(unit) + "\" is not supported");
    if (!isPowerOfTen(precision))
        fail("precision (" + convertToGenericString(precision) + ") is not a power of ten");
}

} // namespace

void checkFields(const Parameter<double>::Builder& builder) { checkParameter<double>(builder); }
void checkFields(const Parameter<unsigned int>::Builder& builder) { checkParameter<unsigned int>(builder); }
void checkFields(const Parameter<int>::Builder& builder) { checkParameter<int>(builder); }

template <typename T>
Parameter<T> Parameter<T>::Builder::build() const {
    return buildPlain<Parameter>(*this);
}

template class Parameter<double>;
template class Parameter<unsigned int>;
template class Parameter<int>;

} // namespace norel::Desktop::Domain::Payloads
