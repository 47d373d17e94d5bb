#pragma once

#include <string_view>

/// The factory documents, made of data/default-products by the build.
namespace norel::Desktop::Domain::Payloads::EmbeddedDocuments {

std::string_view version2();
std::string_view version3();
std::string_view version4();
std::string_view version5();

} // namespace norel::Desktop::Domain::Payloads::EmbeddedDocuments
