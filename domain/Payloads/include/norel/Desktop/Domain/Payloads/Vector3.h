#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/Parameter.h"

namespace norel::Desktop::Domain::Payloads {

/// Three coordinates: a lever arm, an offset or a per-axis accuracy, in metres ("m") in the factory
/// profiles.
class NOREL_PAYLOADS_EXPORT Vector3 {
public:
    struct Builder;

    Parameter<double> getX() const { return fields.x; }
    Parameter<double> getY() const { return fields.y; }
    Parameter<double> getZ() const { return fields.z; }

    bool operator==(const Vector3&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Parameter<double> x;
        Parameter<double> y;
        Parameter<double> z;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit Vector3(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Throws only what its members throw; a default-constructed Builder is valid.
struct NOREL_PAYLOADS_EXPORT Vector3::Builder {
    Parameter<double>::Builder x;
    Parameter<double>::Builder y;
    Parameter<double>::Builder z;

    Vector3 build() const;
};

} // namespace norel::Desktop::Domain::Payloads
