#include "Operation.h"

#include "Wording.h"

#include <fcntl.h>
#include <system_error>

namespace norel::Desktop::Storage {

namespace fs = std::filesystem;

Operation::Operation(SystemCalls& systemCalls, const std::string& verb, const fs::path& path)
    : system(systemCalls), description(Wording::describeOperation(verb, path)) {}

void Operation::fail(int error, const std::string& detail) const {
    throw std::system_error(error, std::generic_category(), description + detail);
}

struct stat Operation::getStatus(int file) const {
    struct stat status {};
    run([&] { return system.fstat(file, status); });
    return status;
}

void Operation::requireRegularFile(const struct stat& status) const {
    if (S_ISDIR(status.st_mode))
        fail(EISDIR);
    if (!S_ISREG(status.st_mode))
        fail(EINVAL, Wording::NOT_REGULAR);
}

int Operation::openForReading(const fs::path& path) const {
    constexpr int flags = O_RDONLY | O_NONBLOCK | O_NOCTTY; // not blocking: a FIFO would wait for a writer
    return run([&] { return system.openat(AT_FDCWD, path.c_str(), flags); });
}

Entry::Entry(const Operation& currentOperation, const fs::path& path)
    : operation(currentOperation),
      folder(operation.run(
          [&] {
              const fs::path parent = path.parent_path();
              return operation.getSystem().openat(AT_FDCWD, parent.empty() ? "." : parent.c_str(),
                                                  O_RDONLY | O_DIRECTORY);
          },
          Wording::NO_FOLDER)),
      name(path.has_filename() ? path.filename().string() : ".") {}

std::optional<struct stat> Entry::findStatus() const {
    struct stat status {};
    if (Operation::attempt([&] { return operation.getSystem().fstatat(folder, getName(), status); }) == 0)
        return status;
    if (errno != ENOENT)
        operation.fail(errno);
    return std::nullopt;
}

void Entry::syncFolder(const std::string& detail) const {
    const int result = Operation::attempt([&] { return operation.getSystem().fsync(folder); });
    if (result != 0 && errno != EINVAL && errno != ENOTSUP && errno != EOPNOTSUPP)
        operation.fail(errno, detail);
}

} // namespace norel::Desktop::Storage
