#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace norel::Desktop::PayloadProfiles {

/// Something in the text of a document. The path is as in the serializer's errors; the line counts from 1.
struct Finding {
    std::string path; ///< empty for the document as a whole
    std::size_t line = 1;
    std::string message; ///< without the path
};

/// The members that are lost when the document is read and written again; a null is no loss. Empty for a
/// document that cannot be read.
std::vector<Finding> findDroppedMembers(const std::string& text);

/// Why and where the serializer refuses the document; empty when it does not.
std::optional<Finding> findFirstError(const std::string& text);

} // namespace norel::Desktop::PayloadProfiles
