#include "Fuzzing.h"
#include "Outcome.h"

using namespace norel::Desktop::Domain::Payloads;

/// A text is read and written the same with JSON values and without, whether it is a document or not.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = norel::Fuzzing::toText(data, size);
    norel::Fuzzing::require(Test::outcomeOf(JsonProfileListSerializer(), text) ==
                                Test::outcomeOf(Test::DerivedSerializer(), text),
                            "both serializers give the same");
    return 0;
}
