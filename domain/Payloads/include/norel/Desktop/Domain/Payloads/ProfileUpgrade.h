#pragma once

#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Storage/TextFileStorage.h"

#include <filesystem>
#include <memory>
#include <string>

#ifdef __GNUC__
#    pragma GCC diagnostic push
#    pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

namespace norel::Desktop::Domain::Payloads {

/// Upgrades a stored profile-list document, one version at a time: the sections that the next version added
/// or whose values it changed are copied from the factory profile of the same product. Stateless.
///
/// It has no virtual destructor: do not delete a derived object through a pointer to this class.
class NOREL_PAYLOADS_EXPORT ProfileUpgrade {
public:
    /// Replaces, in every profile of the file that has a lidar (null means none), the sections
    /// that belong to `version` (DocumentVersions::getSections) by those of its product in
    /// `defaultsDocument`, which is DefaultProducts::getSourceDocumentFromVersionInfo(version). The product
    /// is matched ignoring the case of ASCII letters. A version without sections changes no value, but
    /// rewrites the file in the layout of the library.
    ///
    /// The file is written once, at the end; a failure leaves it unchanged. Throws std::invalid_argument
    /// for a product that the defaults lack and for a null on the path to a section, the host's JsonError for
    /// a text that is not JSON or lacks a section, and what the store throws. The file must not be changed by
    /// others meanwhile.
    virtual void upgradeToVersion(unsigned int version,
                                  const std::shared_ptr<Storage::TextFileStorage>& textFileStorage,
                                  const std::filesystem::path& path, const std::string& defaultsDocument);
};

} // namespace norel::Desktop::Domain::Payloads

#ifdef __GNUC__
#    pragma GCC diagnostic pop
#endif
