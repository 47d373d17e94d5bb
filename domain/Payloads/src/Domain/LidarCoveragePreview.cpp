#include "norel/Desktop/Domain/Payloads/LidarCoveragePreview.h"

#include "Building.h"
#include "norel/Desktop/Utils/ConvertToGenericString.h"

#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {

using Utils::ConvertToGenericString::convertToGenericString;

LidarCoveragePreview LidarCoveragePreview::Builder::build() const {
    const auto rateRule = [rate = downsamplingRate.value](const char* rule) {
        return std::invalid_argument("Profile LidarCoveragePreview: downsampling rate (" +
                                     convertToGenericString(rate) + ") must be " + rule);
    };
    if (downsamplingRate.value <= 0)
        throw rateRule("greater than zero");
    if (downsamplingRate.value >= 1)
        throw rateRule("smaller than one");
    return buildLastToFirst<LidarCoveragePreview>(downsamplingRate);
}

} // namespace norel::Desktop::Domain::Payloads
