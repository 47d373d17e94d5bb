#pragma once

#include <cstddef>
#include <string>

namespace norel::Benchmark {

/// The number of factory profiles.
constexpr std::size_t FACTORY_PROFILES = 14;

/// A document of that many profiles: the factory document itself, or its profiles repeated with other ids and
/// names. `profiles` is a multiple of FACTORY_PROFILES. Each document is made once and kept.
const std::string& documentOf(std::size_t profiles);

} // namespace norel::Benchmark
