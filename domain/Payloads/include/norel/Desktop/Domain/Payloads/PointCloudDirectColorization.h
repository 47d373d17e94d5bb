#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/Parameter.h"

#include <string>
#include <vector>

/// The settings of the direct colorization of the point cloud.
namespace norel::Desktop::Domain::Payloads::PointCloudDirectColorization {

/// The lens distortion of the camera model, without unit.
class NOREL_PAYLOADS_EXPORT Distortion {
public:
    struct Builder;

    Parameter<double> getRadial1() const { return fields.radial1; }
    Parameter<double> getRadial2() const { return fields.radial2; }
    Parameter<double> getRadial3() const { return fields.radial3; }
    Parameter<double> getTangential1() const { return fields.tangential1; }
    Parameter<double> getTangential2() const { return fields.tangential2; }

    bool operator==(const Distortion&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<double> radial1;
        Parameter<double> radial2;
        Parameter<double> radial3;
        Parameter<double> tangential1;
        Parameter<double> tangential2;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit Distortion(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Builds its members from the first to the last.
struct NOREL_PAYLOADS_EXPORT Distortion::Builder {
    Parameter<double>::Builder radial1;
    Parameter<double>::Builder radial2;
    Parameter<double>::Builder radial3;
    Parameter<double>::Builder tangential1;
    Parameter<double>::Builder tangential2;

    Distortion build() const;
};

/// The images of the camera model, all in pixels ("px").
class NOREL_PAYLOADS_EXPORT Images {
public:
    struct Builder;

    Parameter<unsigned int> getWidth() const { return fields.width; }
    Parameter<unsigned int> getHeight() const { return fields.height; }
    Parameter<double> getFocalLength() const { return fields.focalLength; }
    /// from the left; may lie outside the image
    Parameter<double> getPrincipalPointX() const { return fields.principalPointX; }
    /// from the top; may lie outside the image
    Parameter<double> getPrincipalPointY() const { return fields.principalPointY; }

    bool operator==(const Images&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<unsigned int> width;
        Parameter<unsigned int> height;
        Parameter<double> focalLength;
        Parameter<double> principalPointX;
        Parameter<double> principalPointY;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit Images(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Builds its members from the first to the last.
struct NOREL_PAYLOADS_EXPORT Images::Builder {
    Parameter<unsigned int>::Builder width;
    Parameter<unsigned int>::Builder height;
    Parameter<double>::Builder focalLength;
    Parameter<double>::Builder principalPointX;
    Parameter<double>::Builder principalPointY;

    Images build() const;
};

/// The settings of the direct colorization of the point cloud from camera images. Units are those of the
/// factory profiles; no rule relates one setting to another.
class NOREL_PAYLOADS_EXPORT PointCloudDirectColorization {
public:
    struct Builder;

    Parameter<double> getFlightHeight() const { return fields.flightHeight; } ///< "m"
    Parameter<unsigned int> getImageReadSamplingFactor() const { return fields.imageReadSamplingFactor; }
    Parameter<unsigned int> getImageResizingFactor() const { return fields.imageResizingFactor; }
    /// no unit
    Parameter<double> getPointCloudSamplingReadFactor() const { return fields.pointCloudSamplingReadFactor; }
    Parameter<double> getSamplingResolution() const { return fields.samplingResolution; } ///< "m"
    Parameter<double> getOctreeResolution() const { return fields.octreeResolution; }     ///< "m"
    Parameter<unsigned int> getOctreeMinimumPointsPerBlock() const {
        return fields.octreeMinimumPointsPerBlock;
    }
    Parameter<double> getOcclusionFactor() const { return fields.occlusionFactor; } ///< no unit
    Parameter<unsigned int> getOcclusionNumberOfNeighbors() const {
        return fields.occlusionNumberOfNeighbors;
    }
    /// no unit
    Parameter<double> getVerticalAngleThreshold() const { return fields.verticalAngleThreshold; }
    Parameter<unsigned int> getNumberOfImagesUsedPerPoint() const {
        return fields.numberOfImagesUsedPerPoint;
    }
    Distortion getDistortion() const { return fields.distortion; }
    Images getImages() const { return fields.images; }
    /// free-form names in a significant order; the presets need not match them
    std::vector<std::string> getTerrainTypology() const { return fields.terrainTypology; }

    bool operator==(const PointCloudDirectColorization&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<double> flightHeight;
        Parameter<unsigned int> imageReadSamplingFactor;
        Parameter<unsigned int> imageResizingFactor;
        Parameter<double> pointCloudSamplingReadFactor;
        Parameter<double> samplingResolution;
        Parameter<double> octreeResolution;
        Parameter<unsigned int> octreeMinimumPointsPerBlock;
        Parameter<double> occlusionFactor;
        Parameter<unsigned int> occlusionNumberOfNeighbors;
        Parameter<double> verticalAngleThreshold;
        Parameter<unsigned int> numberOfImagesUsedPerPoint;
        Distortion distortion;
        Images images;
        std::vector<std::string> terrainTypology;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit PointCloudDirectColorization(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Throws only what its members throw; a default-constructed Builder is valid.
struct NOREL_PAYLOADS_EXPORT PointCloudDirectColorization::Builder {
    Parameter<double>::Builder flightHeight;
    Parameter<unsigned int>::Builder imageReadSamplingFactor;
    Parameter<unsigned int>::Builder imageResizingFactor;
    Parameter<double>::Builder pointCloudSamplingReadFactor;
    Parameter<double>::Builder samplingResolution;
    Parameter<double>::Builder octreeResolution;
    Parameter<unsigned int>::Builder octreeMinimumPointsPerBlock;
    Parameter<double>::Builder occlusionFactor;
    Parameter<unsigned int>::Builder occlusionNumberOfNeighbors;
    Parameter<double>::Builder verticalAngleThreshold;
    Parameter<unsigned int>::Builder numberOfImagesUsedPerPoint;
    Distortion::Builder distortion;
    Images::Builder images;
    std::vector<std::string> terrainTypology;

    PointCloudDirectColorization build() const;
};

} // namespace norel::Desktop::Domain::Payloads::PointCloudDirectColorization
