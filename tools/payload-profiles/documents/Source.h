#pragma once

#include "documents/DocumentAccess.h"

#include <string>

namespace norel::Desktop::PayloadProfiles {

/// Where profiles are read from, as given on the command line.
struct Source {
    std::string location; ///< a file, "factory" or a base address
    std::string keyFile;  ///< contains the key of the web service; none when empty

    bool isBuiltIn() const;

    /// Whether it begins with "http:" or "https:", in any case.
    bool isAddress() const;

    /// The location for messages, without anything that may be the user and password of an address, even of
    /// a mistyped one.
    std::string getName() const;
};

/// The profiles of a source. `onText` is not called for the built-in ones. Throws Failure.
ProfileList readSource(const DocumentAccess& documents, const Source& source,
                       const TextObserver& onText = {});

} // namespace norel::Desktop::PayloadProfiles
