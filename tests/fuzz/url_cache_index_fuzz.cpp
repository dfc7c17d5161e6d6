// Any bytes as an index of the WinINet cache: what is listed can be removed, one by one, and then it is gone from the
// bytes. No file is named that could lie outside the cache's own folders.
#include "fuzz/fuzz.h"
#include "platform/common/url_cache_index.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tidvane;
    auto index = platform::UrlCacheIndex::read(std::string(fuzz::textOf(data, size)));
    if (!index) return 0;
    const std::size_t count = index->records().size();
    for (std::size_t i = 0; i < count; ++i) {
        const platform::UrlCacheIndex::Record& record = index->records()[i];
        fuzz::require(record.file.empty() || platform::isCachedFileName(record.file), "a listed file is one name");
        fuzz::require(record.folder.empty() || platform::isCacheFolderName(record.folder), "so is its folder");
        index->remove(i);
        fuzz::require(index->isRemoved(i), "a removed record stays removed");
    }
    fuzz::require(index->bytes().size() == size, "removing does not change the size");
    const auto again = platform::UrlCacheIndex::read(index->bytes());
    fuzz::require(again.has_value(), "an index without its records is still one");
    // What lay hidden below a record that was on top of it may come to light; nothing that was removed comes back.
    for (const platform::UrlCacheIndex::Record& record : again->records()) {
        fuzz::require(again->find(record.url).size() <= again->records().size(), "look-ups agree with the list");
    }
    return 0;
}
