#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"
#include "norel/Desktop/Domain/Payloads/BoresightCalibration.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/Georeferencing.h"
#include "norel/Desktop/Domain/Payloads/GroundClassification.h"
#include "norel/Desktop/Domain/Payloads/LidarCoveragePreview.h"
#include "norel/Desktop/Domain/Payloads/PointCloudDirectColorization.h"
#include "norel/Desktop/Domain/Payloads/PrecisionEnhancement.h"
#include "norel/Desktop/Domain/Payloads/StripAdjustment.h"
#include "norel/Desktop/Domain/Payloads/Vector3.h"

#include <string>

namespace norel::Desktop::Domain::Payloads {

/// The lidar sensor of a payload and all of its settings.
class NOREL_PAYLOADS_EXPORT Lidar {
public:
    struct Builder;

    // Compiled once, as those of Profile.
    Lidar(const Lidar&);
    Lidar(Lidar&&) noexcept;
    Lidar& operator=(const Lidar&);
    Lidar& operator=(Lidar&&) noexcept;
    ~Lidar();

    /// of the data files of the sensor, without a dot, such as "rxp"; may be empty
    std::string getFileExtension() const { return fields.fileExtension; }
    Parameter<double> getImuLatency() const { return fields.imuLatency; } ///< "sec"
    /// a signed permutation of the axes, such as "z y -x"
    std::string getAlignment() const { return fields.alignment; }
    Vector3 getLeverArm() const { return fields.leverArm; } ///< "m"
    Georeferencing getGeoreferencing() const { return fields.georeferencing; }
    BoresightCalibration getBoresightCalibration() const { return fields.boresightCalibration; }
    PrecisionEnhancement getPrecisionEnhancement() const { return fields.precisionEnhancement; }
    LidarCoveragePreview getLidarCoveragePreview() const { return fields.lidarCoveragePreview; }
    StripAdjustment::StripAdjustment getStripAdjustment() const { return fields.stripAdjustment; }
    GroundClassification::GroundClassification getGroundClassification() const {
        return fields.groundClassification;
    }
    PointCloudDirectColorization::PointCloudDirectColorization getPointCloudDirectColorization() const {
        return fields.pointCloudDirectColorization;
    }

    bool operator==(const Lidar&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        std::string fileExtension;
        Parameter<double> imuLatency;
        std::string alignment;
        Vector3 leverArm;
        Georeferencing georeferencing;
        BoresightCalibration boresightCalibration;
        PrecisionEnhancement precisionEnhancement;
        LidarCoveragePreview lidarCoveragePreview;
        StripAdjustment::StripAdjustment stripAdjustment;
        GroundClassification::GroundClassification groundClassification;
        PointCloudDirectColorization::PointCloudDirectColorization pointCloudDirectColorization;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit Lidar(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Checks the alignment first; a default-constructed Builder is not valid.
struct NOREL_PAYLOADS_EXPORT Lidar::Builder {
    std::string fileExtension;
    Parameter<double>::Builder imuLatency;
    std::string alignment;
    Vector3::Builder leverArm;
    Georeferencing::Builder georeferencing;
    BoresightCalibration::Builder boresightCalibration;
    PrecisionEnhancement::Builder precisionEnhancement;
    LidarCoveragePreview::Builder lidarCoveragePreview;
    StripAdjustment::StripAdjustment::Builder stripAdjustment;
    GroundClassification::GroundClassification::Builder groundClassification;
    PointCloudDirectColorization::PointCloudDirectColorization::Builder pointCloudDirectColorization;

    Lidar build() const;
};

} // namespace norel::Desktop::Domain::Payloads
