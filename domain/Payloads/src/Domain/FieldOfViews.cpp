#include "norel/Desktop/Domain/Payloads/FieldOfViews.h"

#include "Building.h"
#include "norel/Desktop/Utils/ConvertToGenericString.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <set>
#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {

using Utils::ConvertToGenericString::convertToGenericString;

FieldOfViewRange FieldOfViewRange::Builder::build() const {
    if (minimum > maximum)
        throw std::invalid_argument("Profile FieldOfViewRange: minimum (" + convertToGenericString(minimum) +
                                    ") must be smaller or equal to maximum (" +
                                    convertToGenericString(maximum) + ")");
    if (unit != "deg")
        throw std::invalid_argument("Profile FieldOfViewRange: unit must be \"deg\"");
    return FieldOfViewRange(Fields(*this));
}

FieldOfView FieldOfView::Builder::build() const {
    return buildLastToFirst<FieldOfView>(view, filter, isDefault);
}

FieldOfViews::FieldOfViews(Fields&& fields) : fields(std::move(fields)) {
    const std::vector<FieldOfView>& list = this->fields.listOfFieldOfViews;
    if (list.empty())
        throw std::invalid_argument("Profile FieldOfViews: at least one FieldOfView is required");
    if (std::count_if(list.begin(), list.end(), std::mem_fn(&FieldOfView::getIsDefault)) != 1)
        throw std::invalid_argument("Profile FieldOfViews: exactly one FieldOfView must be default");
    std::set<std::pair<double, double>> bounds;
    for (const FieldOfView& item : list) {
        const FieldOfViewRange view = item.getView();
        if (std::isnan(view.getMinimum()) || std::isnan(view.getMaximum())) // equal to none, and in no order
            continue;
        if (!bounds.emplace(view.getMinimum(), view.getMaximum()).second)
            throw std::invalid_argument("Profile FieldOfViews: all FieldOfView must be unique");
    }
}

FieldOfViews FieldOfViews::Builder::build() const {
    return buildFirstToLast<FieldOfViews>(listOfFieldOfViews);
}

} // namespace norel::Desktop::Domain::Payloads
