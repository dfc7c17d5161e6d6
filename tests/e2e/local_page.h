// A web page on the loopback interface that leaves every trace a browser keeps: history, cookie, cache, local storage.
#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace tidvane::tests {

// Serves until it goes. Every path gets the same page; its title is "done" once its script has run.
class LocalPage {
public:
    LocalPage();
    ~LocalPage();
    LocalPage(const LocalPage&) = delete;
    LocalPage& operator=(const LocalPage&) = delete;

    [[nodiscard]] std::string address(const std::string& path) const;
    // The cookies that came with the requests for a path, one text a request; empty where none came.
    [[nodiscard]] std::vector<std::string> cookiesOf(const std::string& path) const;

private:
    void serve();
    void answer(int connection);

    int listener_ = -1;
    int port_ = 0;
    std::atomic<bool> ending_{false};
    mutable std::mutex mutex_;
    std::vector<std::pair<std::string, std::string>> requests_;  // path, cookies
    std::thread thread_;
};

}  // namespace tidvane::tests
