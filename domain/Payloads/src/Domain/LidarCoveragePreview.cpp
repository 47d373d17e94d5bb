#include "norel/Desktop/Domain/Payloads/LidarCoveragePreview.h"

#include "AllowedValues.h"
#include "Building.h"
#include "norel/Desktop/Utils/ConvertToGenericString.h"

#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {

using Utils::ConvertToGenericString::convertToGenericString;

void checkFields(const LidarCoveragePreview::Builder& builder, RuleCheck& check) {
    const double& rate = builder.downsamplingRate.value;
    const auto fail = [&](const char* rule) {
        check.fail(&rate, std::invalid_argument("Profile LidarCoveragePreview: downsampling rate (" +
                                                convertToGenericString(rate) + ") must be " + rule));
    };
    if (rate <= AllowedValues::DOWNSAMPLING_RATE.first)
        fail("greater than zero");
    if (rate >= AllowedValues::DOWNSAMPLING_RATE.second)
        fail("smaller than one");
}

LidarCoveragePreview LidarCoveragePreview::Builder::build() const {
    return buildLastToFirst<LidarCoveragePreview>(*this);
}

} // namespace norel::Desktop::Domain::Payloads
