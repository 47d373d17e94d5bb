#include "norel/Desktop/Domain/Payloads/Profile.h"

#include "Building.h"

namespace norel::Desktop::Domain::Payloads {

void checkRules(const Profile::Builder& builder, RuleCheck& check) {
    if (builder.name.empty())
        check.fail(&builder.name, Profile::InvalidProfile("The \"name\" string cannot be empty."));
    if (builder.product.empty())
        check.fail(&builder.product, Profile::InvalidProfile("The \"product\" string cannot be empty."));
}

Profile::Profile(const Profile&) = default;
Profile::Profile(Profile&&) noexcept = default;
Profile& Profile::operator=(const Profile&) = default;
Profile& Profile::operator=(Profile&&) noexcept = default;
Profile::~Profile() = default;

Profile Profile::Builder::build() const { return buildLastToFirst<Profile>(*this); }

} // namespace norel::Desktop::Domain::Payloads
