#include "norel/Desktop/Domain/Payloads/ProfileListHttpStorage.h"

#include "StorageErrors.h"
#include "norel/Desktop/Utils/Errors.h"

namespace norel::Desktop::Domain::Payloads {
namespace {

using Networking::Http::HttpClient;

constexpr const char* RESOURCE = "api/processing/v1/payload";
constexpr const char* HTTP_STORAGE_FILE = "Infrastructure/ProfileListHttpStorage";

} // namespace

ProfileListHttpStorage::ProfileListHttpStorage(const std::string& baseUrl,
                                               const std::shared_ptr<HttpClient>& httpClient,
                                               const std::string& requestKey,
                                               const std::shared_ptr<ProfileListSerializer>& serializer)
    : address(baseUrl), client(httpClient), key(requestKey), documentSerializer(serializer) {}

void ProfileListHttpStorage::remove() {
    Utils::throwUnreachableCodeError(
        "an unexpected ProfileListHttpStorage::remove was called, storage is not removable",
        {HTTP_STORAGE_FILE, __LINE__});
}

ProfileList ProfileListHttpStorage::read() {
    return withReadErrors([&] { return documentSerializer->deserialize(request().body); });
}

void ProfileListHttpStorage::write(const ProfileList& /*list*/) {
    Utils::throwUnreachableCodeError(
        "an unexpected ProfileListHttpStorage::write was called, storage is read only",
        {HTTP_STORAGE_FILE, __LINE__});
}

HttpClient::Response ProfileListHttpStorage::request() const {
    HttpClient::Request::Builder request;
    request.method = {}; // GET
    request.url = address + RESOURCE;
    request.key = key;
    HttpClient::Response response = [&] {
        try {
            return client->send(request.build());
        } catch (const HttpClient::HttpRequestFailed& error) {
            throw CannotCompleteRequest(std::string("Cannot contact profile service; cause is \"") +
                                        error.what() + "\".");
        }
    }();
    if (!response.isSuccess())
        throw CannotCompleteRequest("HTTP \"profile\" request was unsuccessful; cause is " +
                                    Utils::ConvertToGenericString::convertToGenericString(response) + ".");
    return response;
}

} // namespace norel::Desktop::Domain::Payloads
