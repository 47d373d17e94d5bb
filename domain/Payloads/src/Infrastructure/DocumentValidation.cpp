#include "DocumentValidation.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace norel::Desktop::Domain::Payloads {

using DataFormat::Json;

Json DocumentValidator::standInFor(std::string_view text) {
    static const Json emptyObject = Json::fromString("{}");
    static const Json emptyArray = Json::fromString("[]");
    if (text.front() == '{')
        return emptyObject;
    return text.front() == '[' ? emptyArray : Json::fromString(std::string(text));
}

Json DocumentValidator::outlineOf(std::string_view text) {
    const bool isObject = text.front() == '{';
    if (!isObject && text.front() != '[')
        return standInFor(text);
    std::string outline(1, text.front());
    for (JsonItems items(text); items.next();) {
        const std::string_view value = items.getValueText();
        outline += outline.size() > 1 ? "," : "";
        if (isObject)
            outline.append(items.getKeyText()) += ':';
        outline += value.front() == '{' ? "{}" : value.front() == '[' ? "[]" : value;
    }
    return Json::fromString(outline += isObject ? '}' : ']');
}

bool DocumentValidator::isChecked(const JsonPath& object, const std::string& key) const {
    return std::ranges::none_of(uncheckedSections, [&](const Section& section) {
        if (section.back() != key)
            return false;
        const auto& steps = object.getPath(); // the index of the profile, then keys
        return steps.size() == section.size() && std::equal(steps.begin() + 1, steps.end(), section.begin());
    });
}

void DocumentValidator::checkIsArray(const JsonPath& path) const {
    if (path.getPath().empty())
        path.getValue().begin(); // the serializer reports the error of the document as a whole without a path
    else
        withPath(path, [&] { path.getValue().begin(); });
}

void DocumentValidator::checkId(const Profile::Builder& builder, RuleCheck& check) {
    if (!check.isKnown(&builder.id))
        return;
    const std::string id = "the id " + std::to_string(builder.id);
    if (builder.id == Profile::ID_IS_UNASSIGNED)
        check.fail(&builder.id, std::invalid_argument(id + " requests a new id"));
    else if (!ids.insert(builder.id).second)
        check.fail(&builder.id,
                   std::invalid_argument(id + " is taken by an earlier profile; reading assigns another id"));
}

} // namespace norel::Desktop::Domain::Payloads
