#pragma once

#include <array>
#include <string_view>
#include <utility>

/// The values that the rules of the model allow; the document's schema lists them too.
namespace norel::Desktop::Domain::Payloads::AllowedValues {

inline constexpr std::array<std::string_view, 7> UNITS{"sec", "m", "deg", "arcmin", "pts/m^2", "px", ""};
inline constexpr std::array<std::string_view, 1> FIELD_OF_VIEW_UNITS{"deg"};
inline constexpr std::array<std::string_view, 6> ORIENTATIONS{"a-left", "d-right", "w-front",
                                                              "x-rear", "s-nadir", "nadir"};
inline constexpr std::array<std::string_view, 5> GNSS_STANDARD_DEVIATIONS{"SDLessthan3cm", "SD10cm", "SD50cm",
                                                                          "SD1m", "SD10m"};
inline constexpr std::array<std::string_view, 2> STABILIZED_MOUNTS{"none", "synthetize gimbal data"};

/// Of the coverage preview; both limits are exclusive.
inline constexpr std::pair<double, double> DOWNSAMPLING_RATE{0, 1};

/// Of an alignment, as a regular expression; each axis must also occur once.
inline constexpr const char* ALIGNMENT_FORM = "-?[xyz] -?[xyz] -?[xyz]";

} // namespace norel::Desktop::Domain::Payloads::AllowedValues
