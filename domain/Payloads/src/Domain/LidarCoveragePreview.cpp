#include "norel/Desktop/Domain/Payloads/LidarCoveragePreview.h"

#include "AllowedValues.h"
#include "Building.h"
#include "norel/Desktop/Utils/ConvertToGenericString.h"

#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {

using Utils::ConvertToGenericString::convertToGenericString;

void checkFields(const LidarCoveragePreview::Builder& builder) {
    const double rate = builder.downsamplingRate.value;
    const auto rateRule = [rate](const char* rule) {
        return std::invalid_argument("Profile LidarCoveragePreview: downsampling rate (" +
                                     convertToGenericString(rate) + ") must be " + rule);
    };
    if (rate <= AllowedValues::DOWNSAMPLING_RATE.first)
        throw rateRule("greater than zero");
    if (rate >= AllowedValues::DOWNSAMPLING_RATE.second)
        throw rateRule("smaller than one");
}

LidarCoveragePreview LidarCoveragePreview::Builder::build() const {
    return buildLastToFirst<LidarCoveragePreview>(*this);
}

} // namespace norel::Desktop::Domain::Payloads
