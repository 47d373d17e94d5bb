#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/Parameter.h"

namespace norel::Desktop::Domain::Payloads {

/// Roll, pitch and yaw, in degrees ("deg") in the factory profiles.
class NOREL_PAYLOADS_EXPORT Angles3 {
public:
    struct Builder;

    Parameter<double> getRoll() const { return fields.roll; }
    Parameter<double> getPitch() const { return fields.pitch; }
    Parameter<double> getYaw() const { return fields.yaw; }

    bool operator==(const Angles3&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<double> roll;
        Parameter<double> pitch;
        Parameter<double> yaw;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit Angles3(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Throws only what its members throw; a default-constructed Builder is valid.
struct NOREL_PAYLOADS_EXPORT Angles3::Builder {
    Parameter<double>::Builder roll;
    Parameter<double>::Builder pitch;
    Parameter<double>::Builder yaw;

    Angles3 build() const;
};

} // namespace norel::Desktop::Domain::Payloads
