#pragma once

#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/ProfileListSerializer.h"
#include "norel/Desktop/Domain/Payloads/ProfileListStorage.h"
#include "norel/Desktop/Networking/Http/HttpClient.h"

#include <memory>
#include <string>

namespace norel::Desktop::Domain::Payloads {

/// The profile list of the processing web service; read only. Each read sends one request and does not retry.
/// Several threads may read at once if the client allows it.
class NOREL_PAYLOADS_EXPORT ProfileListHttpStorage : public ProfileListStorage {
public:
    /// The service gave no usable response. `read` rethrows it as CannotReadProfileList.
    struct NOREL_PAYLOADS_EXPORT CannotCompleteRequest : std::runtime_error {
        using std::runtime_error::runtime_error;
    };

    /// `baseUrl` is prepended to "api/processing/v1/payload", so it must end with "/"; `requestKey` is sent
    /// with every request. Nothing is validated and nothing is sent. The pointers must not be null.
    ProfileListHttpStorage(const std::string& baseUrl,
                           const std::shared_ptr<Networking::Http::HttpClient>& httpClient,
                           const std::string& requestKey,
                           const std::shared_ptr<ProfileListSerializer>& serializer);

    /// Not supported: throws the host's unreachable-code error.
    void remove() override;

    ProfileList read() override;

    /// Not supported: throws the host's unreachable-code error.
    void write(const ProfileList& list) override;

private:
    Networking::Http::HttpClient::Response request() const;

    std::string address;
    std::shared_ptr<Networking::Http::HttpClient> client;
    std::string key;
    std::shared_ptr<ProfileListSerializer> documentSerializer;
};

} // namespace norel::Desktop::Domain::Payloads
