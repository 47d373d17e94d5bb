#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/Parameter.h"

namespace norel::Desktop::Domain::Payloads {

/// The rejection of outliers from the surrounding surface.
class NOREL_PAYLOADS_EXPORT MorphologicalRejection {
public:
    struct Builder;

    /// "pts/m^2"
    Parameter<unsigned int> getAveragePointCloudDensity() const { return fields.averagePointCloudDensity; }
    /// no unit
    Parameter<double> getOutlyingScoreThreshold() const { return fields.outlyingScoreThreshold; }
    Parameter<double> getCopWeighting() const { return fields.copWeighting; } ///< no unit

    bool operator==(const MorphologicalRejection&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<unsigned int> averagePointCloudDensity;
        Parameter<double> outlyingScoreThreshold;
        Parameter<double> copWeighting;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit MorphologicalRejection(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Throws only what its members throw; a default-constructed Builder is valid.
struct NOREL_PAYLOADS_EXPORT MorphologicalRejection::Builder {
    Parameter<unsigned int>::Builder averagePointCloudDensity;
    Parameter<double>::Builder outlyingScoreThreshold;
    Parameter<double>::Builder copWeighting;

    MorphologicalRejection build() const;
};

/// The settings of the precision enhancement of the point cloud. Units are those of the factory profiles; no
/// rule relates one setting to another.
class NOREL_PAYLOADS_EXPORT PrecisionEnhancement {
public:
    struct Builder;

    /// "m"
    Parameter<double> getAveragePointCloudThickness() const { return fields.averagePointCloudThickness; }
    Parameter<double> getSuppressionThreshold() const { return fields.suppressionThreshold; } ///< "m"
    Parameter<unsigned int> getSharpener() const { return fields.sharpener; }
    Parameter<unsigned int> getMinimumNeighborsToBeProcessed() const {
        return fields.minimumNeighborsToBeProcessed;
    }
    Parameter<unsigned int> getMaximumNeighborsToConsider() const {
        return fields.maximumNeighborsToConsider;
    }
    Parameter<unsigned int> getMinimumNeighborsToBeIsolated() const {
        return fields.minimumNeighborsToBeIsolated;
    }
    MorphologicalRejection getMorphologicalRejection() const { return fields.morphologicalRejection; }

    bool operator==(const PrecisionEnhancement&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<double> averagePointCloudThickness;
        Parameter<double> suppressionThreshold;
        Parameter<unsigned int> sharpener;
        Parameter<unsigned int> minimumNeighborsToBeProcessed;
        Parameter<unsigned int> maximumNeighborsToConsider;
        Parameter<unsigned int> minimumNeighborsToBeIsolated;
        MorphologicalRejection morphologicalRejection;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit PrecisionEnhancement(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Throws only what its members throw; a default-constructed Builder is valid.
struct NOREL_PAYLOADS_EXPORT PrecisionEnhancement::Builder {
    Parameter<double>::Builder averagePointCloudThickness;
    Parameter<double>::Builder suppressionThreshold;
    Parameter<unsigned int>::Builder sharpener;
    Parameter<unsigned int>::Builder minimumNeighborsToBeProcessed;
    Parameter<unsigned int>::Builder maximumNeighborsToConsider;
    Parameter<unsigned int>::Builder minimumNeighborsToBeIsolated;
    MorphologicalRejection::Builder morphologicalRejection;

    PrecisionEnhancement build() const;
};

} // namespace norel::Desktop::Domain::Payloads
