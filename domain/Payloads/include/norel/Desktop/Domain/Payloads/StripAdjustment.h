#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/Parameter.h"

/// The settings of the strip adjustment.
namespace norel::Desktop::Domain::Payloads::StripAdjustment {

/// How the points of a strip are prepared: their neighbourhoods, and the intersections and lines between
/// strips.
class NOREL_PAYLOADS_EXPORT Preprocessing {
public:
    struct Builder;

    Parameter<double> getNeighborsSearchRadius() const { return fields.neighborsSearchRadius; } ///< "m"
    Parameter<unsigned int> getMinimumNeighborsToBeProcessed() const {
        return fields.minimumNeighborsToBeProcessed;
    }
    Parameter<double> getMaximumRoughness() const { return fields.maximumRoughness; }         ///< no unit
    Parameter<double> getIntersectionDistance() const { return fields.intersectionDistance; } ///< "m"
    Parameter<unsigned int> getIntersectionMinimumPoints() const { return fields.intersectionMinimumPoints; }
    /// "m"
    Parameter<double> getIntersectionMaximumVerticalDistance() const {
        return fields.intersectionMaximumVerticalDistance;
    }
    Parameter<unsigned int> getLineMinimumPoints() const { return fields.lineMinimumPoints; }
    Parameter<unsigned int> getReferenceLineMinimumPoints() const {
        return fields.referenceLineMinimumPoints;
    }

    bool operator==(const Preprocessing&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<double> neighborsSearchRadius;
        Parameter<unsigned int> minimumNeighborsToBeProcessed;
        Parameter<double> maximumRoughness;
        Parameter<double> intersectionDistance;
        Parameter<unsigned int> intersectionMinimumPoints;
        Parameter<double> intersectionMaximumVerticalDistance;
        Parameter<unsigned int> lineMinimumPoints;
        Parameter<unsigned int> referenceLineMinimumPoints;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit Preprocessing(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Throws only what its members throw; a default-constructed Builder is valid.
struct NOREL_PAYLOADS_EXPORT Preprocessing::Builder {
    Parameter<double>::Builder neighborsSearchRadius;
    Parameter<unsigned int>::Builder minimumNeighborsToBeProcessed;
    Parameter<double>::Builder maximumRoughness;
    Parameter<double>::Builder intersectionDistance;
    Parameter<unsigned int>::Builder intersectionMinimumPoints;
    Parameter<double>::Builder intersectionMaximumVerticalDistance;
    Parameter<unsigned int>::Builder lineMinimumPoints;
    Parameter<unsigned int>::Builder referenceLineMinimumPoints;

    Preprocessing build() const;
};

/// Which points take part in the adjustment.
class NOREL_PAYLOADS_EXPORT Sampling {
public:
    struct Builder;

    /// N: one of N points is read
    Parameter<unsigned int> getReadFractionDenominator() const { return fields.readFractionDenominator; }
    Parameter<unsigned int> getNormalSampleSize() const { return fields.normalSampleSize; }
    Parameter<double> getUniformSamplingRadius() const { return fields.uniformSamplingRadius; } ///< "m"
    /// "deg"
    Parameter<double> getNormalSamplingSlopeInterval() const { return fields.normalSamplingSlopeInterval; }
    Parameter<double> getRandomSamplingFactor() const { return fields.randomSamplingFactor; } ///< no unit

    bool operator==(const Sampling&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<unsigned int> readFractionDenominator;
        Parameter<unsigned int> normalSampleSize;
        Parameter<double> uniformSamplingRadius;
        Parameter<double> normalSamplingSlopeInterval;
        Parameter<double> randomSamplingFactor;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit Sampling(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Throws only what its members throw; a default-constructed Builder is valid.
struct NOREL_PAYLOADS_EXPORT Sampling::Builder {
    Parameter<unsigned int>::Builder readFractionDenominator;
    Parameter<unsigned int>::Builder normalSampleSize;
    Parameter<double>::Builder uniformSamplingRadius;
    Parameter<double>::Builder normalSamplingSlopeInterval;
    Parameter<double>::Builder randomSamplingFactor;

    Sampling build() const;
};

/// Which correspondences between strips are rejected.
class NOREL_PAYLOADS_EXPORT Rejection {
public:
    struct Builder;

    Parameter<double> getMaximumAngle() const { return fields.maximumAngle; }               ///< "deg"
    Parameter<double> getStdEstimationFactor() const { return fields.stdEstimationFactor; } ///< no unit
    Parameter<double> getZDistanceScore() const { return fields.zDistanceScore; }           ///< no unit

    bool operator==(const Rejection&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<double> maximumAngle;
        Parameter<double> stdEstimationFactor;
        Parameter<double> zDistanceScore;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit Rejection(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Throws only what its members throw; a default-constructed Builder is valid.
struct NOREL_PAYLOADS_EXPORT Rejection::Builder {
    Parameter<double>::Builder maximumAngle;
    Parameter<double>::Builder stdEstimationFactor;
    Parameter<double>::Builder zDistanceScore;

    Rejection build() const;
};

/// The termination criteria of the least-squares minimization.
class NOREL_PAYLOADS_EXPORT Minimization {
public:
    struct Builder;

    Parameter<double> getLsAngleEpsilon() const { return fields.lsAngleEpsilon; }       ///< "deg"
    Parameter<double> getLsDistanceEpsilon() const { return fields.lsDistanceEpsilon; } ///< "m"
    Parameter<double> getLsProbability() const { return fields.lsProbability; }         ///< no unit
    Parameter<unsigned int> getMaximumInnerLoopCount() const { return fields.maximumInnerLoopCount; }
    Parameter<unsigned int> getMaximumOuterLoopCount() const { return fields.maximumOuterLoopCount; }
    /// no unit
    Parameter<double> getCounterChi2LoopMaximum() const { return fields.counterChi2LoopMaximum; }

    bool operator==(const Minimization&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<double> lsAngleEpsilon;
        Parameter<double> lsDistanceEpsilon;
        Parameter<double> lsProbability;
        Parameter<unsigned int> maximumInnerLoopCount;
        Parameter<unsigned int> maximumOuterLoopCount;
        Parameter<double> counterChi2LoopMaximum;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit Minimization(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Throws only what its members throw; a default-constructed Builder is valid.
struct NOREL_PAYLOADS_EXPORT Minimization::Builder {
    Parameter<double>::Builder lsAngleEpsilon;
    Parameter<double>::Builder lsDistanceEpsilon;
    Parameter<double>::Builder lsProbability;
    Parameter<unsigned int>::Builder maximumInnerLoopCount;
    Parameter<unsigned int>::Builder maximumOuterLoopCount;
    Parameter<double>::Builder counterChi2LoopMaximum;

    Minimization build() const;
};

/// The settings of the strip adjustment. Units are those of the factory profiles; no rule relates one
/// setting to another.
class NOREL_PAYLOADS_EXPORT StripAdjustment {
public:
    struct Builder;

    Parameter<double> getTemporalTimeFrame() const { return fields.temporalTimeFrame; } ///< "sec"
    Sampling getSampling() const { return fields.sampling; }
    Rejection getRejection() const { return fields.rejection; }
    Preprocessing getPreprocessing() const { return fields.preprocessing; }
    Minimization getMinimization() const { return fields.minimization; }

    bool operator==(const StripAdjustment&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<double> temporalTimeFrame;
        Sampling sampling;
        Rejection rejection;
        Preprocessing preprocessing;
        Minimization minimization;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit StripAdjustment(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Throws only what its members throw; a default-constructed Builder is valid.
struct NOREL_PAYLOADS_EXPORT StripAdjustment::Builder {
    Parameter<double>::Builder temporalTimeFrame;
    Sampling::Builder sampling;
    Rejection::Builder rejection;
    Preprocessing::Builder preprocessing;
    Minimization::Builder minimization;

    StripAdjustment build() const;
};

} // namespace norel::Desktop::Domain::Payloads::StripAdjustment
