#pragma once

#include "norel/Desktop/Domain/Payloads/JsonProfileListSerializer.h"

#include <cstdint>
#include <exception>
#include <stdexcept>
#include <string>

namespace norel::Desktop::Domain::Payloads::Test {

/// The FNV-1a digest of the text, continued from that of what precedes it.
inline std::uint64_t digestOf(const std::string& text, std::uint64_t digest = 14695981039346656037U) {
    for (const char character : text)
        digest = (digest ^ static_cast<unsigned char>(character)) * 1099511628211U;
    return digest;
}

/// Always reads and writes with JSON values, as any part of a derived serializer may be overridden.
class DerivedSerializer : public JsonProfileListSerializer {};

/// The outcome of reading a text: the list, serialized again, or the type and message of the error.
inline std::string outcomeOf(const JsonProfileListSerializer& serializer, const std::string& text) {
    const auto describe = [](const char* type, const std::exception& error) {
        return std::string(type) + ": " + error.what();
    };
    try {
        return serializer.serialize(serializer.deserialize(text));
    } catch (const ProfileListSerializer::ParsingError& error) {
        return describe("ParsingError", error);
    } catch (const Profile::InvalidProfile& error) {
        return describe("InvalidProfile", error);
    } catch (const DataFormat::Json::IncompatibleTypeError& error) {
        return describe("IncompatibleTypeError", error);
    } catch (const DataFormat::Json::JsonError& error) {
        return describe("JsonError", error);
    } catch (const std::invalid_argument& error) {
        return describe("invalid_argument", error);
    } catch (const std::runtime_error& error) {
        return describe("runtime_error", error);
    }
}

} // namespace norel::Desktop::Domain::Payloads::Test
