#pragma once

#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/ProfileList.h"

#include <stdexcept>
#include <string>

namespace norel::Desktop::Domain::Payloads {

/// Turns profile lists into the text of a document and back; storages hold one.
class NOREL_PAYLOADS_EXPORT ProfileListSerializer {
public:
    /// A text is not a profile-list document; what() says why and where.
    struct NOREL_PAYLOADS_EXPORT ParsingError : std::runtime_error {
        using std::runtime_error::runtime_error;
        ParsingError(const ParsingError&) = default;
        ParsingError& operator=(const ParsingError&) = default;
        ~ParsingError() override;
    };

    ProfileListSerializer() = default;
    ProfileListSerializer(const ProfileListSerializer&) = default;
    ProfileListSerializer& operator=(const ProfileListSerializer&) = default;
    virtual ~ProfileListSerializer();

    /// Throws what the host throws for a value that its format cannot hold, such as text that is not UTF-8.
    virtual std::string serialize(const ProfileList& list) const = 0;

    /// Throws ParsingError for what is no document, and the exceptions of the Builders for a profile that
    /// breaks a rule. The first failure ends the read; nothing of the list is returned.
    virtual ProfileList deserialize(const std::string& text) const = 0;
};

} // namespace norel::Desktop::Domain::Payloads
