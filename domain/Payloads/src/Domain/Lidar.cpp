#include "norel/Desktop/Domain/Payloads/Lidar.h"

#include "AllowedValues.h"
#include "Building.h"
#include "norel/Desktop/Utils/Errors.h"
#include "norel/Desktop/Utils/StringFunctions.h"

#include <regex>
#include <set>
#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {
namespace {

/// Whether the text names each of the axes x, y and z once, each with or without a minus sign.
bool isSignedPermutation(const std::string& alignment) {
    static const std::regex form(AllowedValues::ALIGNMENT_FORM);
    if (!std::regex_match(alignment, form))
        return false;
    std::set<char> axes;
    for (const std::string& term : Utils::StringFunctions::split(alignment, " ")) {
        if (term.empty())
            Utils::throwAssertionFailure("alignment term is expected to be at least one letter long",
                                         "term.size() >= 1", {"domain/Payloads/src/Domain/Lidar", __LINE__});
        axes.insert(term.front() == '-' ? term[1] : term.front());
    }
    return axes.size() == 3;
}

} // namespace

void checkFields(const Lidar::Builder& builder, RuleCheck& check) {
    if (!isSignedPermutation(builder.alignment))
        check.fail(&builder.alignment, std::invalid_argument("Profile Lidar: alignment \"" +
                                                             shortened(builder.alignment) + "\" is invalid"));
}

Lidar::Lidar(const Lidar&) = default;
Lidar::Lidar(Lidar&&) noexcept = default;
Lidar& Lidar::operator=(const Lidar&) = default;
Lidar& Lidar::operator=(Lidar&&) noexcept = default;
Lidar::~Lidar() = default;

Lidar Lidar::Builder::build() const { return buildLastToFirst<Lidar>(*this); }

} // namespace norel::Desktop::Domain::Payloads
