#pragma once

#include "DocumentFindings.h"
#include "MemberTexts.h"
#include "Rules.h"
#include "norel/Desktop/Domain/Payloads/DocumentVersions.h"

#include <algorithm>
#include <string>
#include <string_view>
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
        const JsonPath root(standInFor(list));
        if (!isArray(root, list))
            return;
        JsonItems items(list);
        for (unsigned int index = 0; !findings.isFull() && items.next(); ++index) {
            const std::string_view text = items.getValueText();
            Profile::Builder builder;
            knownFields = std::unordered_set<const void*>(); // clear() would keep the room of a large profile
            read(ChildPath::make(root, index, standInFor(text)), text, builder, {});
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

    /// The value of a text for the errors about it, which name its kind: an empty array or object stands in
    /// for one that is read item by item.
    static Json standInFor(std::string_view text);

    /// The same with the items of an array or object, for leaves.
    static Json outlineOf(std::string_view text);

    template <typename Member>
    static Json valueFor(const Member& /*member*/, std::string_view text) {
        if constexpr (requires(const Member& member) { member.build(); })
            return standInFor(text);
        else
            return outlineOf(text);
    }

    template <typename Leaf>
    void read(const JsonPath& path, std::string_view text, Leaf& leaf, Options options) {
        if (findings.attempt(Kind::WrongKind, path, text, [&] { serializer.fromJson(path, leaf, options); }))
            knownFields.insert(&leaf);
    }

    template <typename Builder>
    requires requires(const Builder& builder) { builder.build(); }
    void read(const JsonPath& path, std::string_view text, Builder& builder, Options options) {
        using Value = decltype(builder.build());
        const std::size_t before = findings.size();
        const bool isObject = text.front() == '{';
        const auto texts = findMembers<Value>(text, options, [&](Kind kind, const JsonItems& items) {
            findings.warnOfMember(kind, path, items);
        });
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
                findings.warnOfNumbers(ChildPath::make(path, row.key), textOfMember, member);
        });
        if constexpr (requires { builder.presets; })
            findings.constrainFrom(before, findConstraints(builder, options));
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
                   findings.attempt(object.front() == '{' ? Kind::Missing : Kind::WrongKind, path, object,
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
    /// them than are reserved. The text of an item that adds no error takes at least a quarter of the memory
    /// of its builder.
    template <typename Builder, typename Item>
    void readList(const JsonPath& path, std::string_view text, Builder& builder, std::vector<Item>& list) {
        constexpr std::size_t shortestItem = sizeof(Item) / 4;
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
            read(ChildPath::make(path, index, standInFor(item)), item, list.emplace_back(), {});
        }
        checkList(path, text, builder, list);
    }

    bool isArray(const JsonPath& path, std::string_view text) {
        return findings.attempt(Kind::WrongKind, path, text, [&] {
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
                           findings.addViolation(severity, kind, place, textAt, violation);
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
                findings.addViolation(Severity::Error, Kind::RuleBroken, place, textAt, violation);
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

    /// What the members of a parameter's builder that are known say about its value.
    template <typename Builder>
    ProfileListValidator::Constraints findConstraints(const Builder& builder, Options options) const {
        ProfileListValidator::Constraints constraints;
        if (!options.hasAny(VALUE_ONLY | NO_CONSTRAINTS) && builder.minimum <= builder.maximum &&
            knownFields.contains(&builder.minimum) && knownFields.contains(&builder.maximum))
            constraints.range = {static_cast<double>(builder.minimum), static_cast<double>(builder.maximum)};
        if (knownFields.contains(&builder.unit))
            constraints.unit = builder.unit;
        return constraints;
    }

    DocumentFindings findings;
    const std::vector<Section> uncheckedSections;
    const JsonProfileListSerializer serializer;
    std::unordered_set<const void*> knownFields; // of the current profile: those that were read
    std::unordered_set<unsigned int> ids;        // of the profiles so far
};

} // namespace norel::Desktop::Domain::Payloads
