#include "norel/Desktop/Domain/Payloads/Profile.h"

#include "Building.h"

namespace norel::Desktop::Domain::Payloads {

Profile::InvalidProfile::~InvalidProfile() = default;

Profile::Profile(Fields&& fields) : fields(std::move(fields)) {
    if (this->fields.name.empty())
        throw InvalidProfile("The \"name\" string cannot be empty.");
    if (this->fields.product.empty())
        throw InvalidProfile("The \"product\" string cannot be empty.");
}

Profile Profile::Builder::build() const {
    return buildLastToFirst<Profile>(id, name, product, serialNumber, creationTime, lastModificationTime,
                                     lidar, trajectory);
}

} // namespace norel::Desktop::Domain::Payloads
