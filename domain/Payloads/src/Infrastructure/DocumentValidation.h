#pragma once

#include "FindingList.h"
#include "MemberTexts.h"
#include "Rules.h"
#include "norel/Desktop/Domain/Payloads/DocumentVersions.h"

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_set>
#include <utility>
#include <vector>

namespace norel::Desktop::Domain::Payloads {

/// Finds what is wrong with a JSON text by the tables of the document, the leaf readers of the serializer and
/// the rules of the builders. It reads the members where they are in the text, and goes on after an error.
class DocumentValidator {
public:
    using Section = DocumentVersions::Section;

    /// The sections `leftOut` of the profiles are not checked.
    DocumentValidator(FindingList& target, std::vector<Section> leftOut)
        : findings(target), uncheckedSections(std::move(leftOut)) {}

    /// `list` is the JSON value of the document; `onProfile` is called with the text of each profile that was
    /// checked.
    template <typename OnProfile>
    void validate(std::string_view list, const OnProfile& onProfile) {
        const JsonPath root(standInFor(list, '['));
        if (!isArray(root, list))
            return;
        JsonItems items(list);
        for (unsigned int index = 0; !findings.isFull() && items.next(); ++index) {
            const std::string_view text = items.getValueText();
            Profile::Builder builder;
            knownFields.clear();
            read(ChildPath::make(root, index, standInFor(text, '{')), text, builder, {});
            onProfile(text);
        }
    }

private:
    using Json = DataFormat::Json;
    using JsonPath = JsonProfileListSerializer::JsonPath;
    using Options = JsonProfileListSerializer::Options;
    using Kind = ProfileListValidator::Kind;
    using Severity = ProfileListValidator::Severity;

    // Reading

    /// The value of a text for the errors about it. An array or object that begins as expected is read item
    /// by item, so an empty object stands in for it.
    static Json standInFor(std::string_view text, char expected) {
        static const Json emptyObject = Json::fromString("{}");
        return text.front() == expected ? emptyObject : Json::fromString(std::string(text));
    }

    template <typename Member>
    static Json valueFor(const Member& /*member*/, std::string_view text) {
        constexpr bool isList =
            std::is_same_v<Member, Cameras::Builder> || std::is_same_v<Member, FieldOfViews::Builder>;
        if constexpr (requires(const Member& member) { member.build(); })
            return standInFor(text, isList ? '[' : '{');
        else
            return Json::fromString(std::string(text));
    }

    template <typename Leaf>
    void read(const JsonPath& path, std::string_view text, Leaf& leaf, Options options) {
        if (attempt(Kind::WrongKind, path, text, [&] { serializer.fromJson(path, leaf, options); }))
            knownFields.insert(&leaf);
    }

    template <typename Builder>
    requires requires(const Builder& builder) { builder.build(); }
    void read(const JsonPath& path, std::string_view text, Builder& builder, Options options) {
        using Value = decltype(builder.build());
        const std::size_t before = findings.size();
        const bool isObject = text.front() == '{';
        const auto texts = findMembers<Value>(
            text, options, [&](Kind kind, const JsonItems& items) { warnOfMember(kind, path, items); });
        bool isReadable = true;
        forEachRow<Value>(texts, [&](const auto& row, std::string_view textOfMember) {
            if (isReadable && !findings.isFull() && row.isIncluded(options) && isChecked(path, row.key))
                isReadable = readRow(row, path, text, textOfMember, builder, options) || isObject;
        });
        if (!isObject)
            return;
        checkBuilder(path, text, builder, options);
        forEachRow<Value>(texts, [&](const auto& row, std::string_view textOfMember) {
            const auto& member = builder.*(row.member);
            if (knownFields.contains(&member))
                warnOfNumbers(ChildPath::make(path, row.key), textOfMember, member);
        });
        constrainFrom(before, builder, options);
    }

    void read(const JsonPath& path, std::string_view text, Cameras::Builder& builder, Options /*options*/) {
        readList(path, text, builder, builder.listOfCameras);
    }

    void read(const JsonPath& path, std::string_view text, FieldOfViews::Builder& builder,
              Options /*options*/) {
        readList(path, text, builder, builder.listOfFieldOfViews);
    }

    bool isChecked(const JsonPath& object, const std::string& key) const;

    /// Whether the object has the member or may lack it.
    template <typename Row, typename Builder>
    bool readRow(const Row& row, const JsonPath& path, std::string_view object, std::string_view text,
                 Builder& builder, Options options) {
        if (text.empty())
            return Row::presence != Presence::Required ||
                   attempt(object.front() == '{' ? Kind::Missing : Kind::WrongKind, path, object,
                           [&] { path.makePathToKey(row.key); });
        const auto readInto = [&](auto& target) {
            read(ChildPath::make(path, row.key, valueFor(target, text)), text, target,
                 row.getOptions(options));
        };
        auto& member = builder.*(row.member);
        if constexpr (Row::presence != Presence::Optional)
            readInto(member);
        else if (text != "null") {
            if constexpr (requires { member.emplace(); })
                readInto(member.emplace());
            else
                readInto(member);
        }
        return true;
    }

    /// The rules refer to fields by their address, so the items must not move: the list never takes more of
    /// them than are reserved. An item that adds no error is longer than `shortestItem`.
    template <typename Builder, typename Item>
    void readList(const JsonPath& path, std::string_view text, Builder& builder, std::vector<Item>& list) {
        constexpr std::size_t shortestItem = 32;
        if (!isArray(path, text))
            return;
        std::size_t count = 0;
        for (JsonItems items(text); items.next();)
            ++count;
        list.reserve(
            std::min(count, text.size() / shortestItem + ProfileListValidator::MAXIMUM_FINDINGS + 1));
        JsonItems items(text);
        for (unsigned int index = 0; !findings.isFull() && items.next(); ++index) {
            const std::string_view item = items.getValueText();
            read(ChildPath::make(path, index, standInFor(item, '{')), item, list.emplace_back(), {});
        }
        checkList(path, text, builder, list);
    }

    bool isArray(const JsonPath& path, std::string_view text) {
        return attempt(Kind::WrongKind, path, text, [&] {
            if (text.front() != '[')
                checkIsArray(path);
        });
    }

    void checkIsArray(const JsonPath& path) const;

    // Rules

    template <typename Builder>
    void checkBuilder(const JsonPath& path, std::string_view text, const Builder& builder, Options options) {
        RuleCheck rules(knownFields);
        checkFields(builder, rules);
        checkRules(builder, rules);
        RuleCheck rulesOfLists(knownFields);
        checkId(builder, rulesOfLists);
        const auto addEach = [&](Severity severity, Kind kind, const RuleCheck& check) {
            for (const auto& violation : check.getViolations())
                locate(violation.field, path, text, builder, options,
                       [&](const JsonPath& place, std::string_view textAt) {
                           addViolation(severity, kind, place, textAt, violation);
                       });
        };
        addEach(Severity::Error, Kind::RuleBroken, rules);
        addEach(Severity::Warning, Kind::Id, rulesOfLists);
    }

    /// The rules report the items of a list from the first to the last.
    template <typename Builder, typename Item>
    void checkList(const JsonPath& path, std::string_view text, const Builder& builder,
                   const std::vector<Item>& list) {
        RuleCheck rules(knownFields);
        checkRules(builder, rules);
        JsonItems items(text);
        unsigned int count = 0; // of the items so far
        for (const auto& violation : rules.getViolations()) {
            const auto add = [&](const JsonPath& place, std::string_view textAt) {
                addViolation(Severity::Error, Kind::RuleBroken, place, textAt, violation);
            };
            if (!violation.field) {
                add(path, text);
                continue;
            }
            for (; count == 0 || !isWithin(violation.field, list[count - 1]); ++count)
                items.next();
            locate(violation.field, ChildPath::make(path, count - 1), items.getValueText(), list[count - 1],
                   {}, add);
        }
    }

    /// A profile list gives another id to a profile whose own is taken or unassigned.
    void checkId(const Profile::Builder& builder, RuleCheck& check);
    template <typename Builder>
    void checkId(const Builder& /*builder*/, RuleCheck& /*check*/) {}

    // What reading accepts, but not as it is written

    void warnOfMember(Kind kind, const JsonPath& object, const JsonItems& member);

    void warnOfNumbers(const JsonPath& path, std::string_view text, const unsigned int& number) {
        warnOfNumber(path, text, number);
    }
    void warnOfNumbers(const JsonPath& path, std::string_view text, const int& number) {
        warnOfNumber(path, text, number);
    }
    template <typename Number>
    void warnOfNumbers(const JsonPath& path, std::string_view text,
                       const std::map<std::string, Number>& numbers) {
        std::map<std::string, std::string_view> texts;
        for (JsonItems items(text); items.next();) {
            std::string_view& textOfNumber = texts[items.getKey()];
            if (!textOfNumber.empty())
                warnOfMember(Kind::RepeatedMember, path, items);
            textOfNumber = items.getValueText();
        }
        for (const auto& [key, textOfNumber] : texts)
            warnOfNumbers(ChildPath::make(path, key), textOfNumber, numbers.at(key));
    }
    /// Every other type is read as it is.
    template <typename Other>
    void warnOfNumbers(const JsonPath& /*path*/, std::string_view /*text*/, const Other& /*value*/) {}

    void warnOfNumber(const JsonPath& path, std::string_view text, std::int64_t number);

    // Findings

    /// Runs `operation`; its error, if any, is a finding. Whether there was none.
    template <typename Operation>
    bool attempt(Kind kind, const JsonPath& path, std::string_view text, const Operation& operation) {
        try {
            operation();
            return true;
        } catch (const ProfileListSerializer::ParsingError& error) {
            addError(kind, path, text, error.what());
        } catch (const Json::JsonError& error) {
            addError(kind, path, text, error.what());
        }
        return false;
    }

    void addError(Kind kind, const JsonPath& path, std::string_view text, std::string message);
    void addViolation(Severity severity, Kind kind, const JsonPath& path, std::string_view text,
                      const RuleCheck::Violation& violation);
    void addWarning(Kind kind, const JsonPath& path, std::string_view text, const std::string& message);

    /// Adds the constraints of a parameter to the findings about it, those after the first `before`.
    template <typename Builder>
    void constrainFrom(std::size_t before, const Builder& builder, Options options) {
        if constexpr (requires { builder.presets; }) {
            ProfileListValidator::Constraints constraints;
            if (!options.hasAny(VALUE_ONLY | NO_CONSTRAINTS) && builder.minimum <= builder.maximum &&
                knownFields.contains(&builder.minimum) && knownFields.contains(&builder.maximum))
                constraints.range = {static_cast<double>(builder.minimum),
                                     static_cast<double>(builder.maximum)};
            if (knownFields.contains(&builder.unit))
                constraints.unit = builder.unit;
            findings.constrainFrom(before, constraints);
        }
    }

    FindingList& findings;
    const std::vector<Section> uncheckedSections;
    const JsonProfileListSerializer serializer;
    std::unordered_set<const void*> knownFields; // of the current profile: those that were read
    std::unordered_set<unsigned int> ids;        // of the profiles so far
};

} // namespace norel::Desktop::Domain::Payloads
