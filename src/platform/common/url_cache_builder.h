// Makes an index of the WinINet cache, for sample machines and for tests. What it makes, Wine reads and goes on with.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/common/url_cache_format.h"

namespace tidvane::platform {

// The bits of an entry's type that are used here.
namespace url_cache_type {
inline constexpr std::uint32_t Normal = 0x1;
inline constexpr std::uint32_t Cookie = 0x100000;
inline constexpr std::uint32_t History = 0x200000;
}  // namespace url_cache_type

struct UrlCacheItem {
    static constexpr std::size_t besideIndex = 0xFE;

    // In the system's code page. A cookie is listed as "Cookie:user@site/", a visit as "Visited: user@address", a visit
    // in the container of a day as ":2009110320091104: user@address".
    std::string url;
    std::string file;                  // the cached file's name alone; empty for a visit
    std::size_t folder = besideIndex;  // number in the list of folders
    std::uint64_t size = 0;            // of the cached file
    std::uint32_t type = url_cache_type::Normal;
    std::uint64_t lastAccess = 0;    // FILETIME
    std::uint64_t lastModified = 0;  // FILETIME, as the server told it
    // FILETIME of the cached file's last write. Of a file that was written since, Wine deletes the entry alone.
    std::uint64_t fileWritten = 0;
    std::string headers;  // as the server sent them; may be empty
};

// The bytes of an index.dat. `folders`: names of the folders beside it, eight letters and digits each, 32 at most; only
// the index of cached pages has some (Windows makes four). The caller makes the folders and the files.
//
// For a machine with pages of one user:
//
//     const std::string bytes = makeUrlCacheIndex(
//         {"0A1B2C3D", "4E5F6G7H"},
//         {{"http://news.example/", "news[1].htm", 0, page.size(), url_cache_type::Normal, visited}});
//     // to "<special folder 32>\Content.IE5\index.dat", the page to "...\Content.IE5\0A1B2C3D\news[1].htm"
//
// Cookies: "<33>\index.dat" with the cookies beside it (besideIndex). Visits: "<34>\History.IE5\index.dat".
std::string makeUrlCacheIndex(const std::vector<std::string>& folders, const std::vector<UrlCacheItem>& items,
                              std::string_view signature = url_cache::kWindowsSignature);

// The number that spreads addresses over the rows of the hash table; the row is told by its low six bits.
std::uint32_t urlCacheHash(std::string_view url);

}  // namespace tidvane::platform
