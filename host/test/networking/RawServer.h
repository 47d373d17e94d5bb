#pragma once

#include "System.h"

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

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
        address = {};
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
        closeSocket(listener);
    }

    RawServer(const RawServer&) = delete;
    RawServer& operator=(const RawServer&) = delete;

    /// "127.0.0.1:PORT"
    std::string authority() const { return "127.0.0.1:" + std::to_string(port); }

    /// Stops the server and gives what all connections began with.
    std::string stop() {
        isStopping = true;
        if (!thread.joinable())
            return received;
        const Socket waker = ::socket(AF_INET, SOCK_STREAM, 0); // ends accept()
        ::connect(waker, reinterpret_cast<sockaddr*>(&address), sizeof address);
        thread.join();
        closeSocket(waker);
        return received;
    }

private:
    void serve() {
        while (!isStopping) {
            const Socket peer = ::accept(listener, nullptr, nullptr);
            if (peer == static_cast<Socket>(-1))
                return;
            char request[4096];
            const auto size = isStopping ? 0 : ::recv(peer, request, sizeof request, 0);
            received.append(request, size > 0 ? static_cast<std::size_t>(size) : 0);
            std::size_t next = 0;
            while (next < pieces.size() && !isStopping && send(peer, pieces[next])) {
                std::this_thread::sleep_for(pause);
                next += isEndless && next + 1 == pieces.size() ? 0U : 1U;
            }
            closeSocket(peer);
        }
    }

    static bool send(Socket peer, const std::string& piece) {
        return ::send(peer, piece.data(), static_cast<Size>(piece.size()), SEND_FLAGS) >= 0;
    }

    std::vector<std::string> pieces;
    std::chrono::milliseconds pause;
    bool isEndless;
    Socket listener;
    sockaddr_in address{};
    int port = 0;
    std::atomic<bool> isStopping = false;
    std::string received;
    std::thread thread;
};

} // namespace norel::Desktop::Test
