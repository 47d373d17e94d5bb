#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/Parameter.h"

#include <string>
#include <vector>

/// The settings of the ground classification and of the digital surface model.
namespace norel::Desktop::Domain::Payloads::GroundClassification {

/// How points are segmented into planar regions; used for the interior and for the hull.
class NOREL_PAYLOADS_EXPORT Segmentation {
public:
    struct Builder;

    Parameter<double> getMaximumNormalDeviation() const { return fields.maximumNormalDeviation; } ///< "deg"
    /// "m"
    Parameter<double> getMaximumOrthogonalDistance() const { return fields.maximumOrthogonalDistance; }
    Parameter<unsigned int> getMinimumPointsPerRegion() const { return fields.minimumPointsPerRegion; }

    bool operator==(const Segmentation&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<double> maximumNormalDeviation;
        Parameter<double> maximumOrthogonalDistance;
        Parameter<unsigned int> minimumPointsPerRegion;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit Segmentation(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Builds its members from the first to the last.
struct NOREL_PAYLOADS_EXPORT Segmentation::Builder {
    Parameter<double>::Builder maximumNormalDeviation;
    Parameter<double>::Builder maximumOrthogonalDistance;
    Parameter<unsigned int>::Builder minimumPointsPerRegion;

    Segmentation build() const;
};

/// How points are added to the ground surface.
class NOREL_PAYLOADS_EXPORT Densification {
public:
    struct Builder;

    /// "deg"
    Parameter<double> getMaximumAngularDeviation() const { return fields.maximumAngularDeviation; }
    /// "m"
    Parameter<double> getMaximumOrthogonalDistance() const { return fields.maximumOrthogonalDistance; }

    bool operator==(const Densification&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<double> maximumAngularDeviation;
        Parameter<double> maximumOrthogonalDistance;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit Densification(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Builds its members from the first to the last.
struct NOREL_PAYLOADS_EXPORT Densification::Builder {
    Parameter<double>::Builder maximumAngularDeviation;
    Parameter<double>::Builder maximumOrthogonalDistance;

    Densification build() const;
};

/// The grid of the digital surface model and its tiles.
class NOREL_PAYLOADS_EXPORT DigitalSurfaceModel {
public:
    struct Builder;

    Parameter<double> getGridSize() const { return fields.gridSize; }         ///< "m"
    Parameter<double> getTilesSize() const { return fields.tilesSize; }       ///< "px"
    Parameter<double> getTilesOverlap() const { return fields.tilesOverlap; } ///< "px"

    bool operator==(const DigitalSurfaceModel&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<double> gridSize;
        Parameter<double> tilesSize;
        Parameter<double> tilesOverlap;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit DigitalSurfaceModel(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Builds its members from the first to the last.
struct NOREL_PAYLOADS_EXPORT DigitalSurfaceModel::Builder {
    Parameter<double>::Builder gridSize;
    Parameter<double>::Builder tilesSize;
    Parameter<double>::Builder tilesOverlap;

    DigitalSurfaceModel build() const;
};

/// The settings for the interior of the surveyed area.
class NOREL_PAYLOADS_EXPORT InteriorProcessing {
public:
    struct Builder;

    Densification getDensification() const { return fields.densification; }
    Segmentation getSegmentation() const { return fields.segmentation; }

    bool operator==(const InteriorProcessing&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Densification densification;
        Segmentation segmentation;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit InteriorProcessing(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Builds its members from the first to the last.
struct NOREL_PAYLOADS_EXPORT InteriorProcessing::Builder {
    Densification::Builder densification;
    Segmentation::Builder segmentation;

    InteriorProcessing build() const;
};

/// The settings for the band along the convex hull of the surveyed area.
class NOREL_PAYLOADS_EXPORT HullProcessing {
public:
    struct Builder;

    Parameter<double> getConvexBandWidth() const { return fields.convexBandWidth; } ///< "m"
    Segmentation getSegmentation() const { return fields.segmentation; }

    bool operator==(const HullProcessing&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<double> convexBandWidth;
        Segmentation segmentation;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit HullProcessing(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Builds its members from the first to the last.
struct NOREL_PAYLOADS_EXPORT HullProcessing::Builder {
    Parameter<double>::Builder convexBandWidth;
    Segmentation::Builder segmentation;

    HullProcessing build() const;
};

/// The settings of the ground classification and of the digital surface model derived from it. Units are
/// those of the factory profiles; no rule relates one setting to another.
class NOREL_PAYLOADS_EXPORT GroundClassification {
public:
    struct Builder;

    Parameter<double> getMaximumBuildingSize() const { return fields.maximumBuildingSize; } ///< "m"
    Parameter<double> getMaximumTerrainSlope() const { return fields.maximumTerrainSlope; } ///< "deg"
    Parameter<unsigned int> getNumberOfNeighbors() const { return fields.numberOfNeighbors; }
    InteriorProcessing getInteriorProcessing() const { return fields.interiorProcessing; }
    HullProcessing getHullProcessing() const { return fields.hullProcessing; }
    /// free-form names in a significant order; the presets need not match them
    std::vector<std::string> getTerrainTypology() const { return fields.terrainTypology; }
    DigitalSurfaceModel getDigitalSurfaceModel() const { return fields.digitalSurfaceModel; }

    bool operator==(const GroundClassification&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<double> maximumBuildingSize;
        Parameter<double> maximumTerrainSlope;
        Parameter<unsigned int> numberOfNeighbors;
        InteriorProcessing interiorProcessing;
        HullProcessing hullProcessing;
        std::vector<std::string> terrainTypology;
        DigitalSurfaceModel digitalSurfaceModel;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit GroundClassification(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Builds its members from the first to the last.
struct NOREL_PAYLOADS_EXPORT GroundClassification::Builder {
    Parameter<double>::Builder maximumBuildingSize;
    Parameter<double>::Builder maximumTerrainSlope;
    Parameter<unsigned int>::Builder numberOfNeighbors;
    InteriorProcessing::Builder interiorProcessing;
    HullProcessing::Builder hullProcessing;
    std::vector<std::string> terrainTypology;
    DigitalSurfaceModel::Builder digitalSurfaceModel;

    GroundClassification build() const;
};

} // namespace norel::Desktop::Domain::Payloads::GroundClassification
