#pragma once

#include <cstddef>
#include <string>

namespace norel::Benchmark {

/// The number of factory profiles.
constexpr std::size_t FACTORY_PROFILES = 14;

/// A document of that many profiles: the factory document itself, or its profiles repeated with ids and names
/// of their own. Made once for each number, which is a multiple of FACTORY_PROFILES.
const std::string& documentOf(std::size_t profiles);

} // namespace norel::Benchmark
