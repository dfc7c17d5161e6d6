// Where the project's pages and files lie. Placeholders under a reserved domain until the project has its own server:
// they lead nowhere.
#pragma once

#include <array>

namespace tidvane::settings::address {

inline constexpr const char* kHomepage = "https://tidvane.example/";
inline constexpr const char* kApps = "https://tidvane.example/plugins";
inline constexpr const char* kAddOns = "https://tidvane.example/addons";
inline constexpr const char* kLanguages = "https://tidvane.example/languages";
inline constexpr const char* kOnlineHelp = "https://tidvane.example/help";
inline constexpr const char* kForum = "https://tidvane.example/forum";
inline constexpr const char* kCommunity = "https://tidvane.example/community";
inline constexpr const char* kFacebook = "https://tidvane.example/community/like";
inline constexpr const char* kTwitter = "https://tidvane.example/community/follow";
inline constexpr const char* kRegister = "https://tidvane.example/community/register";
// A web search service; its path and query follow.
inline constexpr const char* kWebSearch = "https://search.example";

inline constexpr const char* kSetup = "https://tidvane.example/download/tidvane-setup.exe";
inline constexpr const char* kNews = "https://tidvane.example/td_updates/news, product updates, support.txt";

// The project's own page first, then download portals.
inline constexpr std::array kChangelogs = {
    "https://tidvane.example/changelog",    "https://portal-one.example/tidvane",  "https://portal-two.example/tidvane",
    "https://portal-three.example/tidvane", "https://portal-four.example/tidvane",
};
inline constexpr std::array kRatings = {
    "https://tidvane.example/rate",
    "https://portal-one.example/tidvane/rate",
    "https://portal-two.example/tidvane/rate",
    "https://portal-three.example/tidvane/rate",
};

}  // namespace tidvane::settings::address
