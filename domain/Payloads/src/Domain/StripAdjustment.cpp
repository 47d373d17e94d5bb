#include "norel/Desktop/Domain/Payloads/StripAdjustment.h"

#include "Building.h"

namespace norel::Desktop::Domain::Payloads::StripAdjustment {

Preprocessing Preprocessing::Builder::build() const { return buildLastToFirst<Preprocessing>(*this); }

Sampling Sampling::Builder::build() const { return buildLastToFirst<Sampling>(*this); }

Rejection Rejection::Builder::build() const { return buildLastToFirst<Rejection>(*this); }

Minimization Minimization::Builder::build() const { return buildLastToFirst<Minimization>(*this); }

StripAdjustment StripAdjustment::Builder::build() const { return buildLastToFirst<StripAdjustment>(*this); }

} // namespace norel::Desktop::Domain::Payloads::StripAdjustment
