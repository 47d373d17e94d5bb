#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/Parameter.h"

namespace norel::Desktop::Domain::Payloads {

/// The mounting angles of an IMU, in whole degrees ("deg").
class NOREL_PAYLOADS_EXPORT MountingAngles3 {
public:
    struct Builder;

    Parameter<int> getX() const { return fields.x; }
    Parameter<int> getY() const { return fields.y; }
    Parameter<int> getZ() const { return fields.z; }

    bool operator==(const MountingAngles3&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<int> x;
        Parameter<int> y;
        Parameter<int> z;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit MountingAngles3(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Throws only what its members throw; a default-constructed Builder is valid.
struct NOREL_PAYLOADS_EXPORT MountingAngles3::Builder {
    Parameter<int>::Builder x;
    Parameter<int>::Builder y;
    Parameter<int>::Builder z;

    MountingAngles3 build() const;
};

} // namespace norel::Desktop::Domain::Payloads
