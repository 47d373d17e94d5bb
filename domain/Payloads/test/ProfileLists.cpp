#include "ProfileLists.h"

#include "Sample.h"

namespace norel::Desktop::Domain::Payloads::Test {

ProfileList makeFullList() {
    Profile::Builder builder;
    const Sample sample(builder);
    Profile profile = builder.build();
    ProfileList list;
    list.add(profile);
    return list;
}

} // namespace norel::Desktop::Domain::Payloads::Test
