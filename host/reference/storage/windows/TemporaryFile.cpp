#include "TemporaryFile.h"

#include "Wording.h"

#include <algorithm>
#include <cstdint>

namespace norel::Desktop::Storage {
namespace {

constexpr std::uint64_t TICKS_PER_SECOND = 10'000'000;

std::uint64_t toTicks(const FILETIME& time) {
    return (std::uint64_t{time.dwHighDateTime} << 32U) | time.dwLowDateTime;
}

} // namespace

TemporaryFile::TemporaryFile(const Operation& currentOperation, const Entry& finalName, DWORD attributes,
                             const Security* security)
    : operation(currentOperation),
      system(currentOperation.getSystem()),
      target(finalName),
      name(Text::toUtf8(std::filesystem::path(finalName.getPath()).filename())),
      path(finalName.getSibling(std::filesystem::path(name.get()).native())) {
    operation.run([&] { return system.create(path, attributes, security, file); },
                  Wording::NO_FILE_IN_FOLDER);
}

TemporaryFile::~TemporaryFile() {
    if (hasTemporaryName)
        system.remove(file);
}

void TemporaryFile::removeAbandonedFiles() const {
    BY_HANDLE_FILE_INFORMATION own{};
    std::vector<std::wstring> names; // whatever fails from here on, the next write tries again
    if (!system.getInformation(file, own) || !system.listNames(target.getSibling(L".norel-*.tmp"), names))
        return;
    for (const std::wstring& found : names)
        if (name.isSibling(Text::toUtf8(found)))
            removeAbandonedFile(target.getSibling(found), own.ftLastWriteTime);
}

void TemporaryFile::removeAbandonedFile(const std::wstring& abandoned, const FILETIME& now) const {
    Handle opened;
    BY_HANDLE_FILE_INFORMATION information{};
    // Both times are from the clock of the file system.
    constexpr std::uint64_t age = TemporaryName::ABANDONED_AFTER.count() * TICKS_PER_SECOND;
    // It cannot be opened for writing while its writer has it open.
    if (system.open(abandoned, DELETE | FILE_WRITE_DATA | FILE_READ_ATTRIBUTES, opened,
                    FILE_FLAG_OPEN_REPARSE_POINT) &&
        system.getInformation(opened, information) &&
        (information.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)) == 0 &&
        toTicks(now) >= toTicks(information.ftLastWriteTime) + age)
        system.remove(opened);
}

void TemporaryFile::write(std::string_view text) const {
    constexpr std::size_t longest = std::size_t{1} << 30U;
    while (!text.empty()) {
        DWORD count = 0;
        operation.run([&] {
            return system.write(file, text.data(), static_cast<DWORD>(std::min(text.size(), longest)), count);
        });
        text.remove_prefix(count);
    }
}

void TemporaryFile::flush() const {
    operation.run([this] { return system.flush(file); });
}

void TemporaryFile::takeName(bool replaces) {
    operation.runPatiently([&] { return system.rename(file, path, target.getPath(), replaces); },
                           [](DWORD error) { return isBusy(error) || error == ERROR_ACCESS_DENIED; });
    hasTemporaryName = false;
    file.reset(INVALID_HANDLE_VALUE); // others may write it from now on
}

} // namespace norel::Desktop::Storage
