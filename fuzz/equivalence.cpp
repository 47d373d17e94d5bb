#include "Fuzzing.h"
#include "Outcome.h"

using namespace norel::Desktop::Domain::Payloads;

/// Reading and writing give the same outcome with and without JSON values, also for invalid documents.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = norel::Fuzzing::toText(data, size);
    norel::Fuzzing::require(Test::outcomeOf(JsonProfileListSerializer(), text) ==
                                Test::outcomeOf(Test::DerivedSerializer(), text),
                            "both serializers give the same outcome");
    return 0;
}
