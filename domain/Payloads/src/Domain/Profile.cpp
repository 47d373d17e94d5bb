#include "norel/Desktop/Domain/Payloads/Profile.h"

#include "Building.h"

namespace norel::Desktop::Domain::Payloads {

void Profile::checkRules() const {
    if (fields.name.empty())
        throw InvalidProfile("The \"name\" string cannot be empty.");
    if (fields.product.empty())
        throw InvalidProfile("The \"product\" string cannot be empty.");
}

Profile Profile::Builder::build() const { return buildLastToFirst<Profile>(*this); }

} // namespace norel::Desktop::Domain::Payloads
