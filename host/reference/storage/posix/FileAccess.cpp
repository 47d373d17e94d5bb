#include "FileAccess.h"

#include "Wording.h"

#include <string_view>
#include <system_error>
#include <utility>

namespace norel::Desktop::Storage {
namespace {

constexpr char LIST_ATTRIBUTE[] = "system.posix_acl_access";
constexpr std::size_t MAXIMUM_ATTRIBUTE_SIZE = 65536; // also that of all names of a file
constexpr mode_t PERMISSIONS = 0777;
constexpr mode_t SET_ID_BITS = 07000; // and the sticky bit

bool isNotSupported(int error) { return error == ENOTSUP || error == EOPNOTSUPP || error == ENOSYS; }

/// Whether the operation is not permitted or not supported, as opposed to having failed.
bool isRefusal(int error) {
    return error == EPERM || error == EACCES || error == EINVAL || isNotSupported(error);
}

/// Signatures of the text and rights that a program has; every change of a file makes the system drop them.
bool isBoundToText(std::string_view attribute) {
    return attribute == "security.ima" || attribute == "security.evm" || attribute == "security.capability";
}

/// The value of LIST_ATTRIBUTE: a version, then for each entry a tag, its permissions (two bytes each, the
/// lower one first) and an id.
class AccessControlList {
public:
    explicit AccessControlList(std::string attribute) : bytes(std::move(attribute)) {
        if (bytes.size() % ENTRY_SIZE != HEADER_SIZE)
            bytes.clear();
    }

    const std::string& getBytes() const { return bytes; }

    /// Limits all entries to the permissions of the owner, since any of them may now apply to the former
    /// owner.
    void limitToOwner() {
        const int owner = getPermissions(OWNER);
        for (std::size_t entry = HEADER_SIZE; entry < bytes.size(); entry += ENTRY_SIZE)
            bytes[entry + 2] = static_cast<char>(bytes[entry + 2] & owner);
    }

    /// The mode of a file that loses the list. Its group gets the permissions that the list gives to all
    /// members of the group. Others get none, since the list may have excluded some of them.
    mode_t getModeWithoutList(bool keepsGroup) const {
        const int group = keepsGroup ? getPermissions(NAMED_USER | GROUP | MASK) : 0;
        return static_cast<mode_t>(getPermissions(OWNER) << 6 | group << 3);
    }

private:
    static constexpr std::size_t HEADER_SIZE = 4, ENTRY_SIZE = 8;
    static constexpr int OWNER = 1, NAMED_USER = 2, GROUP = 4, MASK = 16;

    /// What all entries with these tags permit.
    int getPermissions(int tags) const {
        int result = bytes.empty() ? 0 : 7;
        for (std::size_t entry = HEADER_SIZE; entry < bytes.size(); entry += ENTRY_SIZE)
            if ((bytes[entry] & tags) != 0)
                result &= bytes[entry + 2];
        return result;
    }

    std::string bytes; // empty when it is no such list; it then permits nothing
};

class AccessCopy {
public:
    AccessCopy(const Operation& currentOperation, int source, int copy, const std::filesystem::path& path,
               const std::function<void(const std::string&)>& notice)
        : operation(currentOperation),
          system(currentOperation.getSystem()),
          from(source),
          to(copy),
          ofOriginal(Wording::ofFile(path)),
          onNotCarriedOver(notice),
          original(currentOperation.getStatus(source)) {}

    void run() {
        giveAway();
        copyAttributes(); // while the owner may write the file, whatever its mode will be
        const mode_t permissions = copyList();
        const mode_t mode = permissions | (keepsOwner && keepsGroup ? original.st_mode & SET_ID_BITS : 0);
        if ((operation.getStatus(to).st_mode & (SET_ID_BITS | PERMISSIONS)) != mode)
            operation.run([&] { return system.fchmod(to, mode); });
    }

private:
    void giveAway() {
        constexpr auto sameOwner = static_cast<uid_t>(-1);
        constexpr auto sameGroup = static_cast<gid_t>(-1);
        const struct stat made = operation.getStatus(to);
        keepsGroup = made.st_gid == original.st_gid || changeOwner(sameOwner, original.st_gid, "the group");
        keepsOwner = made.st_uid == original.st_uid || changeOwner(original.st_uid, sameGroup, "the owner");
    }

    bool changeOwner(uid_t owner, gid_t group, const std::string& what) const {
        const bool isChanged = Operation::attempt([&] { return system.fchown(to, owner, group); }) == 0;
        if (!isChanged)
            refuse(what, errno);
        return isChanged;
    }

    void copyAttributes() const {
        std::string names(MAXIMUM_ATTRIBUTE_SIZE, '\0');
        const auto list = [&] { return system.flistxattr(from, names.data(), names.size()); };
        const ssize_t size = Operation::attempt(list);
        if (size < 0 && !isNotSupported(errno))
            refuse("the extended attributes", errno);
        names.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
        for (std::size_t begin = 0; begin < names.size();) { // each ends with a NUL
            const std::string name = names.c_str() + begin;
            if (name != LIST_ATTRIBUTE && !isBoundToText(name))
                if (const int error = copyAttribute(name); error != 0)
                    refuse("the extended attribute \"" + name + '"', error);
            begin += name.size() + 1;
        }
    }

    /// These return the system's error, or 0.
    int copyAttribute(const std::string& name) const {
        if (name.starts_with("system.")) // an access control list of another kind, which may name a group
            return ENOTSUP;
        std::string value, present;
        if (const int error = readAttribute(from, name, value); error != 0)
            return error == ENODATA ? 0 : error; // removed meanwhile
        if (readAttribute(to, name, present) == 0 && present == value)
            return 0;
        return setAttribute(name, value);
    }

    int readAttribute(int file, const std::string& name, std::string& value) const {
        value.resize(MAXIMUM_ATTRIBUTE_SIZE);
        const auto get = [&] { return system.fgetxattr(file, name.c_str(), value.data(), value.size()); };
        const ssize_t size = Operation::attempt(get);
        const int error = size < 0 ? errno : 0;
        value.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
        return error;
    }

    int setAttribute(const std::string& name, const std::string& value) const {
        const auto set = [&] { return system.fsetxattr(to, name.c_str(), value.data(), value.size()); };
        return Operation::attempt(set) == 0 ? 0 : errno;
    }

    /// Returns the permissions that the mode is to have.
    mode_t copyList() const {
        const std::string what = "the access control list";
        std::string value;
        const int error = readAttribute(from, LIST_ATTRIBUTE, value);
        const bool hasList = error != ENODATA && !isNotSupported(error);
        if (hasList && error != 0)
            fail(what, error);
        AccessControlList list(value);
        if (hasList) {
            if (!keepsOwner)
                list.limitToOwner();
            const int setError = keepsGroup ? setAttribute(LIST_ATTRIBUTE, list.getBytes()) : EPERM;
            if (setError == 0)
                return operation.getStatus(to).st_mode & PERMISSIONS;
            refuse(what, setError);
        }
        removeInheritedList();
        return hasList ? list.getModeWithoutList(keepsGroup) : getModeWithoutList();
    }

    /// The folder's default list, which the mode so far gives no effect.
    void removeInheritedList() const {
        const auto remove = [this] { return system.fremovexattr(to, LIST_ATTRIBUTE); };
        if (Operation::attempt(remove) != 0 && errno != ENODATA && !isNotSupported(errno))
            operation.fail(errno, ": cannot remove the access control list that its folder gives it");
    }

    mode_t getModeWithoutList() const {
        const mode_t owner = original.st_mode >> 6 & 7U;
        mode_t group = original.st_mode >> 3 & 7U;
        mode_t others = original.st_mode & 7U;
        if (!keepsGroup) // members of the former group are now among the others, and some of them in the
                         // group
            group = others = group & others;
        if (!keepsOwner) // the former owner may be in the group or among the others
            group &= owner, others &= owner;
        return owner << 6 | group << 3 | others;
    }

    /// Fails unless the operation is not permitted or not supported.
    void refuse(const std::string& what, int error) const {
        if (!isRefusal(error))
            fail(what, error);
        if (onNotCarriedOver)
            onNotCarriedOver(what + ofOriginal + Wording::NOT_CARRIED_OVER +
                             std::generic_category().message(error));
    }

    [[noreturn]] void fail(const std::string& what, int error) const {
        operation.fail(error, ": cannot carry over " + what + ofOriginal);
    }

    const Operation& operation;
    SystemCalls& system;
    const int from, to;
    const std::string ofOriginal;
    const std::function<void(const std::string&)>& onNotCarriedOver;
    const struct stat original;
    bool keepsOwner = false, keepsGroup = false;
};

} // namespace

void copyAccess(const Operation& operation, int from, int to, const std::filesystem::path& path,
                const std::function<void(const std::string&)>& onNotCarriedOver) {
    AccessCopy(operation, from, to, path, onNotCarriedOver).run();
}

} // namespace norel::Desktop::Storage
