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

// The rules of a builder's plain fields, which are checked before its members are built. Each stands in the
// source of its type. The rules of built members are the type's own checkRules.

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

/// The text of a document as a message quotes it: what follows its first 500 bytes becomes "...", so that a
/// message stays short whatever a document holds.
std::string shortened(const std::string& text);

/// Whether `text` is one of `list`, byte for byte.
template <std::size_t Size>
bool isOneOf(const std::array<std::string_view, Size>& list, std::string_view text) {
    return std::find(list.begin(), list.end(), text) != list.end();
}

} // namespace norel::Desktop::Domain::Payloads
