#pragma once

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <string>
#include <system_error>

#ifdef _WIN32
#    include <winsock2.h>
#    include <ws2tcpip.h>
#else
#    include <netinet/in.h>
#    include <sys/socket.h>
#    include <unistd.h>
#endif

/// What systems name differently.
namespace norel::Desktop::Test {

#ifdef _WIN32

using Socket = SOCKET;
using Size = int; ///< of what is sent
constexpr int SEND_FLAGS = 0;
inline void closeSocket(Socket socket) { ::closesocket(socket); }
inline int connectionRefused() { return WSAECONNREFUSED; }

/// An empty value removes the variable of the environment.
inline void setVariable(const char* name, const std::string& value) { ::_putenv_s(name, value.c_str()); }

#else

using Socket = int;
using Size = std::size_t; ///< of what is sent
constexpr int SEND_FLAGS = MSG_NOSIGNAL;
inline void closeSocket(Socket socket) { ::close(socket); }
inline int connectionRefused() { return ECONNREFUSED; }

/// An empty value removes the variable of the environment.
inline void setVariable(const char* name, const std::string& value) {
    value.empty() ? ::unsetenv(name) : ::setenv(name, value.c_str(), 1);
}

#endif

/// "cannot connect: " and the system's reason.
inline std::string cannotConnect() {
    return "cannot connect: " + std::system_category().message(connectionRefused());
}

} // namespace norel::Desktop::Test
