#pragma once

#include "DocumentTables.h"
#include "JsonItems.h"
#include "ParsingErrors.h"
#include "norel/Desktop/Domain/Payloads/ProfileListValidator.h"

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

/// Finds the members of a document's objects in its text, by the tables of the document.
namespace norel::Desktop::Domain::Payloads {

/// The texts of the members of an object, by row; empty for absent ones.
template <typename Value>
using MemberTexts = std::array<std::string_view, NUMBER_OF_ROWS<Value>>;

/// Calls `visit` with each row and its text, in the order of reading.
template <typename Value, typename Texts, typename Visit>
void forEachRow(Texts& texts, const Visit& visit) {
    [&]<std::size_t... I>(std::index_sequence<I...> /*positions*/) {
        (visit(std::get<I>(DocumentTable<Value>::rows()), texts[I]), ...);
    }
    (typename ReadingOrder<Value>::Positions());
}

// The callbacks of the following functions have one type for all callers: with a type for each, the functions
// would be compiled anew for each, for all members of members.

using OnMember = std::function<void(ProfileListValidator::Kind kind, const JsonItems& member)>;

/// `onOther` is called for each unknown member, and for each that replaces an earlier one of the same key.
template <typename Value>
MemberTexts<Value> findMembers(std::string_view object, JsonProfileListSerializer::Options options,
                               const OnMember& onOther) {
    using Kind = ProfileListValidator::Kind;
    MemberTexts<Value> texts;
    if (object.front() != '{')
        return texts;
    for (JsonItems items(object); items.next();) {
        const std::string key = items.getKey();
        bool isKnown = false;
        forEachRow<Value>(texts, [&](const auto& row, std::string_view& text) {
            if (isKnown || row.key != key || !row.isIncluded(options))
                return;
            isKnown = true;
            if (!text.empty())
                onOther(Kind::RepeatedMember, items);
            text = items.getValueText();
        });
        if (!isKnown && !isObsolete<Value>(key))
            onOther(Kind::UnknownMember, items);
    }
    return texts;
}

template <typename Object>
bool isWithin(const void* field, const Object& object) {
    const std::less<const void*> less;
    return !less(field, &object) && less(field, &object + 1);
}

using OnPlace = std::function<void(const JsonProfileListSerializer::JsonPath& path, std::string_view text)>;

/// Calls `report` with the path and the text of the innermost member that contains `field`. `value` is a
/// builder or a member of one, and `text` its text.
template <typename Value>
void locate(const void* field, const JsonProfileListSerializer::JsonPath& path, std::string_view text,
            const Value& value, JsonProfileListSerializer::Options options, const OnPlace& report) {
    bool isFound = false;
    if constexpr (requires { value.has_value(); }) {
        return locate(field, path, text, *value, options, report);
    } else if constexpr (requires { DocumentTable<decltype(value.build())>::rows(); }) {
        using Built = decltype(value.build());
        const auto ignore = [](ProfileListValidator::Kind, const JsonItems&) {};
        const auto texts = findMembers<Built>(text, options, ignore);
        forEachRow<Built>(texts, [&](const auto& row, std::string_view textOfMember) {
            const auto& member = value.*(row.member);
            if (isFound || textOfMember.empty() || !isWithin(field, member))
                return;
            isFound = true;
            locate(field, ChildPath::make(path, row.key), textOfMember, member, row.getOptions(options),
                   report);
        });
    }
    if (!isFound)
        report(path, text);
}

} // namespace norel::Desktop::Domain::Payloads
