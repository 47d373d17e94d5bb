#pragma once

#include "norel/Desktop/Domain/Payloads/Cameras.h"
#include "norel/Desktop/Domain/Payloads/FieldOfViews.h"
#include "norel/Desktop/Domain/Payloads/Lidar.h"
#include "norel/Desktop/Domain/Payloads/LidarCoveragePreview.h"
#include "norel/Desktop/Domain/Payloads/Parameter.h"
#include "norel/Desktop/Domain/Payloads/Profile.h"
#include "norel/Desktop/Domain/Payloads/Trajectory.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace norel::Desktop::Domain::Payloads {

/// Takes the violations that the rules of a builder find. Throws the first, unless it is given the fields
/// that are known: then it collects those that are about known fields.
class RuleCheck {
public:
    struct Violation {
        const void*
            field; ///< of the builder, or within one of its fields; null: about the builder as a whole
        std::string message;
        std::span<const std::string_view> choices; ///< all that the field accepts, where that is a list
    };

    RuleCheck() = default;
    /// Fields that violate a rule are removed from `known`.
    explicit RuleCheck(std::unordered_set<const void*>& known) : knownFields(&known) {}

    /// Whether the rules can rely on the field.
    bool isKnown(const void* field) const { return !knownFields || knownFields->contains(field); }

    template <typename Error>
    void fail(const void* field, const Error& error, std::span<const std::string_view> choices = {}) {
        if (!knownFields)
            throw error;
        if (!field || knownFields->erase(field) != 0)
            violations.push_back({field, error.what(), choices});
    }

    const std::vector<Violation>& getViolations() const { return violations; }

private:
    std::unordered_set<const void*>* knownFields = nullptr;
    std::vector<Violation> violations;
};

// The rules of the plain fields of a builder, which are checked before its members are built. Each is defined
// in the source of its type.

void checkFields(const Parameter<double>::Builder& builder, RuleCheck& check);
void checkFields(const Parameter<unsigned int>::Builder& builder, RuleCheck& check);
void checkFields(const Parameter<int>::Builder& builder, RuleCheck& check);
void checkFields(const FieldOfViewRange::Builder& builder, RuleCheck& check);
void checkFields(const Camera::Builder& builder, RuleCheck& check);
void checkFields(const Imu::Builder& builder, RuleCheck& check);
void checkFields(const Trajectory::Builder& builder, RuleCheck& check);
void checkFields(const LidarCoveragePreview::Builder& builder, RuleCheck& check);
void checkFields(const Lidar::Builder& builder, RuleCheck& check);

/// Every other type has no such rule.
template <typename Builder>
void checkFields(const Builder& /*builder*/, RuleCheck& /*check*/) {}

// The rules that are checked after the members are built.

void checkRules(const Cameras::Builder& builder, RuleCheck& check);
void checkRules(const FieldOfViews::Builder& builder, RuleCheck& check);
void checkRules(const Georeferencing::Builder& builder, RuleCheck& check);
void checkRules(const Profile::Builder& builder, RuleCheck& check);

/// Every other type has no such rule.
template <typename Builder>
void checkRules(const Builder& /*builder*/, RuleCheck& /*check*/) {}

/// The text, truncated to 500 bytes and "..." if it is longer, so that messages that quote a document have a
/// bounded length.
std::string shortened(const std::string& text);

/// Whether `text` is one of `list`, byte for byte.
template <std::size_t Size>
bool isOneOf(const std::array<std::string_view, Size>& list, std::string_view text) {
    return std::find(list.begin(), list.end(), text) != list.end();
}

} // namespace norel::Desktop::Domain::Payloads
