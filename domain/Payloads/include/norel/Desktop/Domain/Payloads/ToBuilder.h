#pragma once

#include "norel/Desktop/Domain/Payloads/Export.h"

namespace norel::Desktop::Domain::Payloads {

/// A builder with the contents of a value, to make another value that differs in some of them:
///
///     Profile::Builder builder = toBuilder(profile);
///     builder.lidar->imuLatency.value = 0.002; // a profile without a lidar has none in its builder either
///     list.update(builder.build());
///
/// Building it unchanged gives an equal value. Defined for every value type with a Builder, from Parameter to
/// Profile. Throws only std::bad_alloc. Thread-safe.
template <typename Value>
NOREL_PAYLOADS_EXPORT typename Value::Builder toBuilder(const Value& value);

} // namespace norel::Desktop::Domain::Payloads
