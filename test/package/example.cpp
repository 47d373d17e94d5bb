#include <norel/Desktop/DateTime/SystemClockProvider.h>
#include <norel/Desktop/Domain/Payloads/Payloads.h>
#include <norel/Desktop/Storage/DurableTextFileStorage.h>

#include <iostream>

int main() {
    using namespace norel::Desktop;
    using namespace norel::Desktop::Domain::Payloads;
    const auto storage = std::make_shared<ProfileListFileStorage>(
        "profiles.json", std::make_shared<Storage::DurableTextFileStorage>(),
        std::make_shared<JsonProfileListSerializer>());
    const ProfileList factory = ProfileListDefaultProductsStorage().read();
    Profile::Builder builder = toBuilder(*factory.getProfileByName("Korvane Alpha Fine"));
    builder.id = Profile::ID_IS_UNASSIGNED;
    builder.name = "Coast survey";
    builder.lidar->imuLatency.value = 0.002; // seconds
    Profile profile = builder.build();       // throws when a rule is violated
    UseCase::AddOrUpdateProfile(storage, std::make_shared<DateTime::SystemClockProvider>()).execute(profile);
    for (const Profile& stored : UseCase::GetProfileListFromStorage(storage).execute())
        std::cout << stored.getId() << " " << stored.getName() << "\n";
}
