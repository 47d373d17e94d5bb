#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"
#include "norel/Desktop/Domain/Payloads/Angles3.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/FieldOfViews.h"
#include "norel/Desktop/Domain/Payloads/Parameter.h"
#include "norel/Desktop/Domain/Payloads/Vector3.h"

namespace norel::Desktop::Domain::Payloads {

/// The settings of the boresight calibration: the field of view to calibrate, the initial angles and the
/// assumed accuracies.
class NOREL_PAYLOADS_EXPORT BoresightCalibration {
public:
    struct Builder;

    /// the field of view to calibrate
    FieldOfViewRange getFieldOfView() const { return fields.fieldOfView; }
    Angles3 getInitialBoresightAngles() const { return fields.initialBoresightAngles; } ///< "deg"
    Parameter<unsigned int> getNumberOfCriteria() const { return fields.numberOfCriteria; }
    Vector3 getLeverArmAccuracy() const { return fields.leverArmAccuracy; } ///< "m"
    Vector3 getPositionAccuracy() const { return fields.positionAccuracy; } ///< "m"
    /// with the unit "m" in the factory profiles
    Angles3 getAttitudeAccuracy() const { return fields.attitudeAccuracy; }
    Vector3 getLidarAccuracy() const { return fields.lidarAccuracy; } ///< "m"

    bool operator==(const BoresightCalibration&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        FieldOfViewRange fieldOfView;
        Angles3 initialBoresightAngles;
        Parameter<unsigned int> numberOfCriteria;
        Vector3 leverArmAccuracy;
        Vector3 positionAccuracy;
        Angles3 attitudeAccuracy;
        Vector3 lidarAccuracy;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit BoresightCalibration(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// A default-constructed Builder is not valid: its field of view has no unit.
struct NOREL_PAYLOADS_EXPORT BoresightCalibration::Builder {
    FieldOfViewRange::Builder fieldOfView;
    Angles3::Builder initialBoresightAngles;
    Parameter<unsigned int>::Builder numberOfCriteria;
    Vector3::Builder leverArmAccuracy;
    Vector3::Builder positionAccuracy;
    Angles3::Builder attitudeAccuracy;
    Vector3::Builder lidarAccuracy;

    BoresightCalibration build() const;
};

} // namespace norel::Desktop::Domain::Payloads
