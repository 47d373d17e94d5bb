#pragma once

namespace norel::Desktop::Domain::Payloads {

/// Gives the library's sources access to the private fields of its values, which declare it a friend. Not
/// part of the interface: a program that defines it can make values that violate their rules.
struct ValueAccess;

} // namespace norel::Desktop::Domain::Payloads
