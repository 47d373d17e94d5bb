#pragma once

namespace norel::Desktop::Domain::Payloads {

/// The library's own way to the private fields of its values, which befriend it; defined in its sources only.
struct ValueAccess;

} // namespace norel::Desktop::Domain::Payloads
