#pragma once

namespace norel::Desktop::Domain::Payloads {

/// The library's own way to the private fields of its values, which befriend it; defined in its sources only.
/// It is no part of the interface: a program that defines it can make values that break their rules.
struct ValueAccess;

} // namespace norel::Desktop::Domain::Payloads
