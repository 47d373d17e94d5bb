#include "norel/Desktop/Domain/Payloads/PrecisionEnhancement.h"

#include "Building.h"

namespace norel::Desktop::Domain::Payloads {

MorphologicalRejection MorphologicalRejection::Builder::build() const {
    return buildLastToFirst<MorphologicalRejection>(*this);
}

PrecisionEnhancement PrecisionEnhancement::Builder::build() const {
    return buildLastToFirst<PrecisionEnhancement>(*this);
}

} // namespace norel::Desktop::Domain::Payloads
