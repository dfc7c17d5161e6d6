#include "e2e/local_page.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

namespace tidvane::tests {

namespace {

constexpr const char* kPage =
    "<!DOCTYPE html><html><head><title>A page</title></head><body><form><input name=q></form>"
    "<script>localStorage.setItem('visited', 'yes'); document.title = 'done';</script></body></html>";

std::string headerOf(const std::string& request, const std::string& name) {
    const std::size_t start = request.find("\r\n" + name + ": ");
    if (start == std::string::npos) return {};
    const std::size_t value = start + name.size() + 4;
    return request.substr(value, request.find("\r\n", value) - value);
}

}  // namespace

LocalPage::LocalPage() : listener_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof place;
    auto* address = reinterpret_cast<sockaddr*>(&place);
    if (::bind(listener_, address, size) != 0 || ::listen(listener_, 16) != 0 ||
        ::getsockname(listener_, address, &size) != 0) {
        throw std::runtime_error("no page can be served on the loopback interface");
    }
    port_ = ntohs(place.sin_port);
    thread_ = std::thread([this] { serve(); });
}

LocalPage::~LocalPage() {
    ending_ = true;
    thread_.join();
    ::close(listener_);
}

std::string LocalPage::address(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + path;
}

std::vector<std::string> LocalPage::cookiesOf(const std::string& path) const {
    const std::lock_guard<std::mutex> lock(mutex_);
    std::vector<std::string> found;
    for (const auto& [requested, cookies] : requests_) {
        if (requested == path) found.push_back(cookies);
    }
    return found;
}

void LocalPage::serve() {
    constexpr int kLookAgain = 50;  // milliseconds
    while (!ending_) {
        pollfd waiting{listener_, POLLIN, 0};
        if (::poll(&waiting, 1, kLookAgain) <= 0) continue;
        const int connection = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0) continue;
        answer(connection);
        ::close(connection);
    }
}

// One request a connection. A browser opens connections ahead that it never uses: these are given up soon.
void LocalPage::answer(int connection) {
    constexpr int kPatience = 500;  // milliseconds
    std::string request;
    while (request.find("\r\n\r\n") == std::string::npos) {
        pollfd waiting{connection, POLLIN, 0};
        char buffer[4096];
        if (::poll(&waiting, 1, kPatience) <= 0) return;
        const ssize_t count = ::recv(connection, buffer, sizeof buffer, 0);
        if (count <= 0) return;
        request.append(buffer, static_cast<std::size_t>(count));
    }
    const std::size_t path = request.find(' ') + 1;
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        requests_.emplace_back(request.substr(path, request.find(' ', path) - path), headerOf(request, "Cookie"));
    }
    const std::string body = kPage;
    const std::string response =
        "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nCache-Control: max-age=86400\r\n"
        "Set-Cookie: trace=left; Max-Age=86400; Path=/\r\nConnection: close\r\nContent-Length: " +
        std::to_string(body.size()) + "\r\n\r\n" + body;
    (void)::send(connection, response.data(), response.size(), MSG_NOSIGNAL);
}

}  // namespace tidvane::tests
