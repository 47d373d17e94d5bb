#include "norel/Desktop/Domain/Payloads/FieldOfViews.h"

#include "AllowedValues.h"
#include "Building.h"
#include "norel/Desktop/Utils/ConvertToGenericString.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {

using Utils::ConvertToGenericString::convertToGenericString;

void checkFields(const FieldOfViewRange::Builder& builder, RuleCheck& check) {
    if (builder.minimum > builder.maximum && check.isKnown(&builder.maximum))
        check.fail(&builder.minimum, std::invalid_argument("Profile FieldOfViewRange: minimum (" +
                                                           convertToGenericString(builder.minimum) +
                                                           ") must be smaller or equal to maximum (" +
                                                           convertToGenericString(builder.maximum) + ")"));
    if (!isOneOf(AllowedValues::FIELD_OF_VIEW_UNITS, builder.unit))
        check.fail(&builder.unit, std::invalid_argument("Profile FieldOfViewRange: unit must be \"deg\""),
                   AllowedValues::FIELD_OF_VIEW_UNITS);
}

FieldOfViewRange FieldOfViewRange::Builder::build() const { return buildPlain<FieldOfViewRange>(*this); }

FieldOfView FieldOfView::Builder::build() const { return buildLastToFirst<FieldOfView>(*this); }

void checkRules(const FieldOfViews::Builder& builder, RuleCheck& check) {
    const std::vector<FieldOfView::Builder>& list = builder.listOfFieldOfViews;
    if (list.empty())
        check.fail(nullptr,
                   std::invalid_argument("Profile FieldOfViews: at least one FieldOfView is required"));
    else if (std::ranges::all_of(list, [&](const auto& item) { return check.isKnown(&item.isDefault); }) &&
             std::ranges::count(list, true, &FieldOfView::Builder::isDefault) != 1)
        check.fail(nullptr,
                   std::invalid_argument("Profile FieldOfViews: exactly one FieldOfView must be default"));
    std::set<std::pair<double, double>> bounds;
    for (const FieldOfView::Builder& item : list) {
        const auto& [minimum, maximum, unit] = item.view;
        if (std::isnan(minimum) || std::isnan(maximum)) // NaN equals nothing and breaks the order of a set
            continue;
        if (check.isKnown(&minimum) && check.isKnown(&maximum) && !bounds.emplace(minimum, maximum).second)
            check.fail(&minimum,
                       std::invalid_argument("Profile FieldOfViews: all FieldOfView must be unique"));
    }
}

FieldOfViews FieldOfViews::Builder::build() const { return buildFirstToLast<FieldOfViews>(*this); }

} // namespace norel::Desktop::Domain::Payloads
