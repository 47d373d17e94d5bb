#pragma once

#include "norel/Desktop/Domain/Payloads/Cameras.h"
#include "norel/Desktop/Domain/Payloads/FieldOfViews.h"
#include "norel/Desktop/Domain/Payloads/Lidar.h"
#include "norel/Desktop/Domain/Payloads/LidarCoveragePreview.h"
#include "norel/Desktop/Domain/Payloads/Parameter.h"
#include "norel/Desktop/Domain/Payloads/Trajectory.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace norel::Desktop::Domain::Payloads {

// The rules of the plain fields of a builder, which are checked before its members are built. Each is defined
// in the source of its type. The rules of built members are checked by the checkRules of the type.

void checkFields(const Parameter<double>::Builder& builder);
void checkFields(const Parameter<unsigned int>::Builder& builder);
void checkFields(const Parameter<int>::Builder& builder);
void checkFields(const FieldOfViewRange::Builder& builder);
void checkFields(const Camera::Builder& builder);
void checkFields(const Imu::Builder& builder);
void checkFields(const Trajectory::Builder& builder);
void checkFields(const LidarCoveragePreview::Builder& builder);
void checkFields(const Lidar::Builder& builder);

/// Every other type has no such rule.
template <typename Builder>
void checkFields(const Builder& /*builder*/) {}

/// The text, truncated to 500 bytes and "..." if it is longer, so that messages that quote a document have a
/// bounded length.
std::string shortened(const std::string& text);

/// Whether `text` is one of `list`, byte for byte.
template <std::size_t Size>
bool isOneOf(const std::array<std::string_view, Size>& list, std::string_view text) {
    return std::find(list.begin(), list.end(), text) != list.end();
}

} // namespace norel::Desktop::Domain::Payloads
