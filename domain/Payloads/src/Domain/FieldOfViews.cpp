#include "norel/Desktop/Domain/Payloads/FieldOfViews.h"

#include "AllowedValues.h"
#include "Building.h"
#include "norel/Desktop/Utils/ConvertToGenericString.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <set>
#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {

using Utils::ConvertToGenericString::convertToGenericString;

void checkFields(const FieldOfViewRange::Builder& builder) {
    if (builder.minimum > builder.maximum)
        throw std::invalid_argument(
            "Profile FieldOfViewRange: minimum (" + convertToGenericString(builder.minimum) +
            ") must be smaller or equal to maximum (" + convertToGenericString(builder.maximum) + ")");
    if (!isOneOf(AllowedValues::FIELD_OF_VIEW_UNITS, builder.unit))
        throw std::invalid_argument("Profile FieldOfViewRange: unit must be \"deg\"");
}

FieldOfViewRange FieldOfViewRange::Builder::build() const { return buildPlain<FieldOfViewRange>(*this); }

FieldOfView FieldOfView::Builder::build() const { return buildLastToFirst<FieldOfView>(*this); }

void FieldOfViews::checkRules() const {
    const std::vector<FieldOfView>& list = fields.listOfFieldOfViews;
    if (list.empty())
        throw std::invalid_argument("Profile FieldOfViews: at least one FieldOfView is required");
    if (std::count_if(list.begin(), list.end(), std::mem_fn(&FieldOfView::getIsDefault)) != 1)
        throw std::invalid_argument("Profile FieldOfViews: exactly one FieldOfView must be default");
    std::set<std::pair<double, double>> bounds;
    for (const FieldOfView& item : list) {
        const FieldOfViewRange view = item.getView();
        if (std::isnan(view.getMinimum()) ||
            std::isnan(view.getMaximum())) // NaN equals nothing and breaks the order of a set
            continue;
        if (!bounds.emplace(view.getMinimum(), view.getMaximum()).second)
            throw std::invalid_argument("Profile FieldOfViews: all FieldOfView must be unique");
    }
}

FieldOfViews FieldOfViews::Builder::build() const { return buildFirstToLast<FieldOfViews>(*this); }

} // namespace norel::Desktop::Domain::Payloads
