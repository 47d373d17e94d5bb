#pragma once

/// The keys of the document that are also used outside of its tables.
namespace norel::Desktop::Domain::Payloads::Keys {

inline constexpr const char* VALUE = "value";
inline constexpr const char* LIDAR = "lidar";
inline constexpr const char* PRODUCT = "product";
inline constexpr const char* PRECISION_ENHANCEMENT = "precision_enhancement";
inline constexpr const char* STRIP_ADJUSTMENT = "strip_adjustment";
inline constexpr const char* GROUND_CLASSIFICATION = "ground_classification";
inline constexpr const char* POINT_CLOUD_DIRECT_COLORIZATION = "point_cloud_direct_colorization";
inline constexpr const char* AVERAGE_POINT_CLOUD_THICKNESS = "average_point_cloud_thickness";
inline constexpr const char* MORPHOLOGICAL_REJECTION = "morphological_rejection";
inline constexpr const char* AVERAGE_POINT_CLOUD_DENSITY = "average_point_cloud_density";
inline constexpr const char* DSM = "dsm";

} // namespace norel::Desktop::Domain::Payloads::Keys
