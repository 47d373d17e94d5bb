#pragma once

#include "commands/ProfileEdit.h"
#include "norel/Desktop/Domain/Payloads/JsonProfileListSerializer.h"
#include "reports/ProfileMembers.h"

#include <map>
#include <set>

namespace norel::Desktop::PayloadProfiles {

/// Reads a profile with the values of assignments in place of its own, so that its document's tables decide
/// which members exist and what kind of value each takes. Throws std::runtime_error, which names the
/// assignment, for a value of another kind and for a parameter that violates a rule.
class EditReader : public Domain::Payloads::JsonProfileListSerializer {
public:
    using Edits = std::map<MemberPath, Assignment>;

    explicit EditReader(const Edits& newValues) : edits(newValues) {}

    /// An assignment that no member took; null when there is none.
    const Assignment* findUnused() const;

    using JsonProfileListSerializer::fromJson;

    void fromJson(const JsonPath& path, Domain::Payloads::Parameter<int>::Builder& builder,
                  Options options) const override;
    void fromJson(const JsonPath& path, Domain::Payloads::Parameter<unsigned int>::Builder& builder,
                  Options options) const override;
    void fromJson(const JsonPath& path, Domain::Payloads::Parameter<double>::Builder& builder,
                  Options options) const override;
    void fromJson(const JsonPath& path, std::map<std::string, int>& target, Options options) const override;
    void fromJson(const JsonPath& path, std::map<std::string, unsigned int>& target,
                  Options options) const override;
    void fromJson(const JsonPath& path, std::map<std::string, double>& target,
                  Options options) const override;
    void fromJson(const JsonPath& path, std::vector<std::string>& target, Options options) const override;
    void fromJson(const JsonPath& path, std::string& target, Options options) const override;
    void fromJson(const JsonPath& path, bool& target, Options options) const override;
    void fromJson(const JsonPath& path, int& target, Options options) const override;
    void fromJson(const JsonPath& path, unsigned int& target, Options options) const override;
    void fromJson(const JsonPath& path, double& target, Options options) const override;

private:
    /// The assignment to the member at a path; null when there is none.
    const Assignment* take(const MemberPath& path) const;

    template <typename Leaf>
    void readLeaf(const JsonPath& path, Leaf& target, Options options) const;
    template <typename Number>
    void readPresets(const JsonPath& path, std::map<std::string, Number>& target, Options options) const;
    template <typename Builder>
    void readParameter(const JsonPath& path, Builder& builder, Options options) const;

    const Edits& edits;
    mutable std::set<MemberPath> used;
};

/// Whether some profile has a member at the path.
bool isMember(const MemberPath& path);

/// "PATH=VALUE: reason", printable, with the values that the member allows where they are a list.
std::string describeRefusal(const MemberPath& path, const Assignment& assignment, const std::string& reason);

} // namespace norel::Desktop::PayloadProfiles
