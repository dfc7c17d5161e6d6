// Any bytes as an index of the WinINet cache: what is listed can be removed, one by one, and then it is gone from the
// bytes. No file is named that could lie outside the cache's own folders.
#include <algorithm>

#include "fuzz/fuzz.h"
#include "platform/common/url_cache_format.h"
#include "platform/common/url_cache_index.h"

namespace {

using namespace tidvane;

// Blocks that look like the begin of a record, whether a hash table leads there or not.
std::size_t recordStarts(std::string_view bytes) {
    using namespace platform::url_cache;
    std::size_t count = 0;
    for (std::size_t at = kFirstBlock; at < bytes.size(); at += kBlockSize) {
        if (bytes.substr(at, kRecordSignature.size()) == kRecordSignature) ++count;
    }
    return count;
}

bool finds(const platform::UrlCacheIndex& index, std::size_t record) {
    const std::vector<std::size_t> found = index.find(index.records()[record].url);
    return std::find(found.begin(), found.end(), record) != found.end();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view given = fuzz::textOf(data, size);
    auto index = platform::UrlCacheIndex::read(std::string(given));
    if (!index) return 0;
    const std::size_t count = index->records().size();
    for (std::size_t i = 0; i < count; ++i) {
        const platform::UrlCacheIndex::Record& record = index->records()[i];
        fuzz::require(record.file.empty() || platform::isCachedFileName(record.file), "a listed file is one name");
        fuzz::require(record.folder.empty() || platform::isCacheFolderName(record.folder), "so is its folder");
        // Among very many of one address a look for each would take too long.
        if (i < 1000) fuzz::require(finds(*index, i), "a listed record is found by its address");
        index->remove(i);
        fuzz::require(index->isRemoved(i), "a removed record stays removed");
    }
    for (const platform::UrlCacheIndex::Record& record : index->records()) {
        fuzz::require(index->find(record.url).empty(), "a removed record is not found");
    }
    fuzz::require(index->bytes().size() == size, "removing does not change the size");
    const auto again = platform::UrlCacheIndex::read(index->bytes());
    fuzz::require(again.has_value(), "an index without its records is still one");
    // What lay hidden below a record that was on top of it may come to light; nothing that was removed comes back.
    const std::size_t left = recordStarts(index->bytes());
    fuzz::require(left + count <= recordStarts(given), "the begin of each removed record is gone from the bytes");
    fuzz::require(again->records().size() <= left, "no more is listed than is left");
    return 0;
}
