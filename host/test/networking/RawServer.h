#pragma once

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace norel::Desktop::Test {

/// A server on a free port of the loopback address that need not keep to HTTP: it answers the first bytes of
/// each connection with the given pieces, pauses after each, and closes. An endless answer repeats its last
/// piece until the client closes.
class RawServer {
public:
    explicit RawServer(std::vector<std::string> answer, std::chrono::milliseconds pauseAfterEach = {},
                       bool isAnswerEndless = false)
        : pieces(std::move(answer)),
          pause(pauseAfterEach),
          isEndless(isAnswerEndless),
          listener(::socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* const generic = reinterpret_cast<sockaddr*>(&address);
        if (::bind(listener, generic, size) != 0 || ::listen(listener, 8) != 0 ||
            ::getsockname(listener, generic, &size) != 0)
            throw std::runtime_error("no server on the loopback address");
        port = ntohs(address.sin_port);
        thread = std::thread([this] { serve(); });
    }

    ~RawServer() {
        stop();
        ::close(listener);
    }

    RawServer(const RawServer&) = delete;
    RawServer& operator=(const RawServer&) = delete;

    /// "127.0.0.1:PORT"
    std::string authority() const { return "127.0.0.1:" + std::to_string(port); }

    /// Stops the server and gives what all connections began with.
    std::string stop() {
        isStopping = true;
        ::shutdown(listener, SHUT_RDWR); // ends accept()
        if (thread.joinable())
            thread.join();
        return received;
    }

private:
    void serve() {
        for (int peer = ::accept(listener, nullptr, nullptr); peer >= 0;
             peer = ::accept(listener, nullptr, nullptr)) {
            char request[4096];
            const ssize_t size = ::recv(peer, request, sizeof request, 0);
            received.append(request, size > 0 ? static_cast<std::size_t>(size) : 0);
            std::size_t next = 0;
            while (next < pieces.size() && !isStopping && send(peer, pieces[next])) {
                std::this_thread::sleep_for(pause);
                next += isEndless && next + 1 == pieces.size() ? 0U : 1U;
            }
            ::close(peer);
        }
    }

    static bool send(int peer, const std::string& piece) {
        return ::send(peer, piece.data(), piece.size(), MSG_NOSIGNAL) >= 0;
    }

    std::vector<std::string> pieces;
    std::chrono::milliseconds pause;
    bool isEndless;
    int listener;
    int port = 0;
    std::atomic<bool> isStopping = false;
    std::string received;
    std::thread thread;
};

} // namespace norel::Desktop::Test
