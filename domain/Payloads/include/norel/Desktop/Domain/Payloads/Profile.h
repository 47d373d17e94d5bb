#pragma once

#include "norel/Desktop/DateTime/DateTime.h"
#include "norel/Desktop/Domain/Payloads/Access.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/Lidar.h"
#include "norel/Desktop/Domain/Payloads/Trajectory.h"

#include <optional>
#include <stdexcept>
#include <string>

namespace norel::Desktop::Domain::Payloads {

/// A payload profile: the identity of one product configuration and its sensor setup.
///
/// Immutable once built, except for the id and the two times, which lists and use cases set: several threads
/// may read one profile at once as long as none sets them.
class NOREL_PAYLOADS_EXPORT Profile {
public:
    struct Builder;

    /// A profile has no name or no product.
    struct NOREL_PAYLOADS_EXPORT InvalidProfile : std::runtime_error {
        using std::runtime_error::runtime_error;
    };

    /// The id of a profile to which no list has assigned one.
    static constexpr unsigned int ID_IS_UNASSIGNED = 4294967295;

    // Compiled once: implicit ones add some 30 KB to every file that copies or destroys a profile.
    Profile(const Profile&);
    Profile(Profile&&) noexcept;
    Profile& operator=(const Profile&);
    Profile& operator=(Profile&&) noexcept;
    ~Profile();

    unsigned int getId() const { return fields.id; }
    std::string getName() const { return fields.name; }                 ///< for display, never empty
    std::string getProduct() const { return fields.product; }           ///< never empty
    std::string getSerialNumber() const { return fields.serialNumber; } ///< may be empty
    DateTime::DateTime getCreationTime() const { return fields.creationTime; }
    DateTime::DateTime getLastModificationTime() const { return fields.lastModificationTime; }
    std::optional<Lidar> getLidar() const { return fields.lidar; } ///< empty for a product without one
    Trajectory getTrajectory() const { return fields.trajectory; }

    // The setters do not validate.
    void setId(unsigned int id) { fields.id = id; }
    void setCreationTime(const DateTime::DateTime& time) { fields.creationTime = time; }
    void setLastModificationTime(const DateTime::DateTime& time) { fields.lastModificationTime = time; }

    bool operator==(const Profile&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        unsigned int id;
        std::string name;
        std::string product;
        std::string serialNumber;
        DateTime::DateTime creationTime;
        DateTime::DateTime lastModificationTime;
        std::optional<Lidar> lidar;
        Trajectory trajectory;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit Profile(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Also throws InvalidProfile, once its members are built; a default-constructed Builder is not valid.
struct NOREL_PAYLOADS_EXPORT Profile::Builder {
    unsigned int id = ID_IS_UNASSIGNED;
    std::string name;
    std::string product;
    std::string serialNumber;
    DateTime::DateTime creationTime;
    DateTime::DateTime lastModificationTime;
    std::optional<Lidar::Builder> lidar;
    Trajectory::Builder trajectory;

    Profile build() const;
};

} // namespace norel::Desktop::Domain::Payloads
