#include "RunCommand.h"

#include "text/windows/Utf16.h"

#include <gtest/gtest.h>
#include <mutex>
#include <vector>
#include <windows.h>

namespace norel::Desktop::PayloadProfiles::Test {
namespace {

/// The words of a line, without their quotation marks.
std::vector<std::string> splitWords(const std::string& line) {
    std::vector<std::string> words;
    bool isInWord = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == ' ') {
            isInWord = false;
            continue;
        }
        if (!isInWord)
            words.emplace_back();
        isInWord = true;
        const std::size_t end = line[i] == '\'' || line[i] == '"' ? line.find(line[i], i + 1) : i;
        words.back() += end == i ? line.substr(i, 1) : line.substr(i + 1, end - i - 1);
        i = end;
    }
    return words;
}

/// The word as a program takes it apart again: backslashes count only before quotation marks.
std::string inQuotes(const std::string& word) {
    std::string quoted = "\"";
    std::size_t backslashes = 0;
    for (const char character : word) {
        if (character == '"')
            quoted.append(backslashes + 1, '\\');
        backslashes = character == '\\' ? backslashes + 1 : 0;
        quoted += character;
    }
    return quoted.append(backslashes, '\\') + '"';
}

HANDLE openInheritable(const std::filesystem::path& path, DWORD access, DWORD creation) {
    SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
    return ::CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                         &inheritable, creation, FILE_ATTRIBUTE_NORMAL, nullptr);
}

void setVariables(const std::string& assignments, bool isEnd) {
    for (const std::string& assignment : splitWords(assignments)) {
        const std::size_t equals = assignment.find('=');
        ASSERT_NE(equals, std::string::npos) << "not an assignment: " << assignment;
        ::SetEnvironmentVariableA(assignment.substr(0, equals).c_str(),
                                  isEnd ? nullptr : assignment.substr(equals + 1).c_str());
    }
}

} // namespace

int runCommand(const std::filesystem::path& folder, const std::string& command, const std::string& before,
               const std::filesystem::path& output, const std::filesystem::path& messages) {
    std::string line = inQuotes(PAYLOAD_PROFILES);
    std::filesystem::path input = "NUL";
    const std::vector<std::string> words = splitWords(command);
    for (std::size_t i = 0; i < words.size(); ++i)
        if (words[i] == "<")
            input = folder / words[++i];
        else
            line += ' ' + inQuotes(words[i]);
    std::wstring wideLine = Text::toUtf16(line);

    static std::mutex startsOne; // a process inherits what is open for others
    std::unique_lock lock(startsOne);
    const HANDLE handles[] = {openInheritable(input, GENERIC_READ, OPEN_EXISTING),
                              openInheritable(folder / output, GENERIC_WRITE, CREATE_ALWAYS),
                              openInheritable(folder / messages, GENERIC_WRITE, CREATE_ALWAYS)};
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = handles[0];
    start.hStdOutput = handles[1];
    start.hStdError = handles[2];
    PROCESS_INFORMATION process{};
    setVariables(before, false);
    const bool isStarted = ::CreateProcessW(nullptr, wideLine.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                            folder.c_str(), &start, &process) != 0;
    setVariables(before, true);
    for (const HANDLE handle : handles)
        ::CloseHandle(handle);
    lock.unlock();
    if (!isStarted)
        return -1;
    ::WaitForSingleObject(process.hProcess, INFINITE);
    DWORD exitCode = 0;
    ::GetExitCodeProcess(process.hProcess, &exitCode);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
    return static_cast<int>(exitCode);
}

} // namespace norel::Desktop::PayloadProfiles::Test
