// A line costs the line and not the log: counted in bytes asked of the allocator, since a text that is rewritten whole
// is a text that is copied whole.
#include <cstdlib>
#include <new>

#include "support/app_fixture.h"

namespace {
std::size_t allocatedBytes = 0;
}

// Replaced for this test program: counts, and does nothing else. Never inlined: the compiler would see one of the pair
// and take it for a mismatch.
[[gnu::noinline]] void* operator new(std::size_t size) {
    allocatedBytes += size;
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace tidvane::tests {

struct LogCost : AppFixture {
    LogCost() { store({"chkLogTimestamp=1", "txtPurgeSpeed=0", "txtLogAutoTruncated=99999999"}); }
    std::size_t bytesFor(int lines, const std::string& text) {
        main().log().empty();
        const std::size_t before = allocatedBytes;
        for (int i = 0; i < lines; ++i) main().AddLogLine(text);
        return allocatedBytes - before;
    }
};

TEST_F(LogCost, GrowsWithTheLines) {
    const std::size_t few = bytesFor(1000, "C:\\Windows\\Temp\\file.tmp <OK>");
    const std::size_t many = bytesFor(16000, "C:\\Windows\\Temp\\file.tmp <OK>");
    // 16 times the lines; 256 times the bytes if every line touched the whole log.
    EXPECT_LT(many, 32 * few);
}

TEST_F(LogCost, GrowsWithTheLinesAlsoWhenUmlautsAreReplaced) {
    options().chkReplaceGerUmlaut.Value = 1;
    const std::size_t few = bytesFor(1000, "C:\\Windows\\Temp\\Größe.tmp <OK>");
    const std::size_t many = bytesFor(16000, "C:\\Windows\\Temp\\Größe.tmp <OK>");
    EXPECT_LT(many, 32 * few);
}

}  // namespace tidvane::tests
