#pragma once

#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/ProfileList.h"

#include <stdexcept>
#include <string>

namespace norel::Desktop::Domain::Payloads {

/// Converts profile lists to the text of a document and back.
class NOREL_PAYLOADS_EXPORT ProfileListSerializer {
public:
    /// A text is not a profile-list document; what() gives the reason and the path.
    struct NOREL_PAYLOADS_EXPORT ParsingError : std::runtime_error {
        using std::runtime_error::runtime_error;
    };

    ProfileListSerializer() = default;
    ProfileListSerializer(const ProfileListSerializer&) = default;
    ProfileListSerializer& operator=(const ProfileListSerializer&) = default;
    virtual ~ProfileListSerializer();

    /// Throws the host's error for a value that its format cannot represent, such as text that is not UTF-8.
    virtual std::string serialize(const ProfileList& list) const = 0;

    /// Throws ParsingError for a text that is not a document, and the exceptions of the Builders for a
    /// profile that violates a rule. The first failure ends the read; no partial list is returned.
    virtual ProfileList deserialize(const std::string& text) const = 0;
};

} // namespace norel::Desktop::Domain::Payloads
