#include "norel/Desktop/Domain/Payloads/PointCloudDirectColorization.h"

#include "Building.h"

namespace norel::Desktop::Domain::Payloads::PointCloudDirectColorization {

Distortion Distortion::Builder::build() const { return buildFirstToLast<Distortion>(*this); }

Images Images::Builder::build() const { return buildFirstToLast<Images>(*this); }

PointCloudDirectColorization PointCloudDirectColorization::Builder::build() const {
    return buildLastToFirst<PointCloudDirectColorization>(*this);
}

} // namespace norel::Desktop::Domain::Payloads::PointCloudDirectColorization
