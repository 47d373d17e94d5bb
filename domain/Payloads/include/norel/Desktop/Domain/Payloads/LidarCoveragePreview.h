#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/Parameter.h"

namespace norel::Desktop::Domain::Payloads {

/// The settings of the coverage preview, which is computed from a downsampled point cloud.
class NOREL_PAYLOADS_EXPORT LidarCoveragePreview {
public:
    struct Builder;

    /// no unit, greater than 0 and less than 1
    Parameter<double> getDownsamplingRate() const { return fields.downsamplingRate; }

    bool operator==(const LidarCoveragePreview&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<double> downsamplingRate;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit LidarCoveragePreview(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Checks the rate first; a default-constructed Builder is not valid.
struct NOREL_PAYLOADS_EXPORT LidarCoveragePreview::Builder {
    Parameter<double>::Builder downsamplingRate;

    LidarCoveragePreview build() const;
};

} // namespace norel::Desktop::Domain::Payloads
