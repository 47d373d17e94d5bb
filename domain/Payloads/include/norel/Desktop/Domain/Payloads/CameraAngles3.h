#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/Parameter.h"

namespace norel::Desktop::Domain::Payloads {

/// The boresight angles of a camera, in minutes of arc ("arcmin") in the factory profiles.
class NOREL_PAYLOADS_EXPORT CameraAngles3 {
public:
    struct Builder;

    Parameter<double> getTx() const { return fields.tx; }
    Parameter<double> getTy() const { return fields.ty; }
    Parameter<double> getTz() const { return fields.tz; }

    bool operator==(const CameraAngles3&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<double> tx;
        Parameter<double> ty;
        Parameter<double> tz;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit CameraAngles3(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Throws only what its members throw; a default-constructed Builder is valid.
struct NOREL_PAYLOADS_EXPORT CameraAngles3::Builder {
    Parameter<double>::Builder tx;
    Parameter<double>::Builder ty;
    Parameter<double>::Builder tz;

    CameraAngles3 build() const;
};

} // namespace norel::Desktop::Domain::Payloads
