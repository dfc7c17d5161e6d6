#include "platform/machine/recycle_record.h"

#include "platform/common/utf16.h"

namespace tidvane::platform::machine {

namespace {

constexpr std::size_t kHeader = 24;
constexpr std::size_t kFixedPath = 520;

void appendNumber(std::string& out, std::uint64_t number, int bytes) {
    for (int i = 0; i < bytes; ++i) out.push_back(static_cast<char>((number >> (8 * i)) & 0xFF));
}

std::uint64_t numberAt(std::string_view bytes, std::size_t at, int count) {
    std::uint64_t number = 0;
    for (int i = count - 1; i >= 0; --i)
        number = (number << 8) | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
    return number;
}

}  // namespace

std::string encodeRecycleRecord(const RecycleRecord& record, int version) {
    std::string path = utf16leFromUtf8(record.path);
    path.append(2, '\0');
    if (path.size() > kFixedPath) version = 2;
    std::string out;
    appendNumber(out, static_cast<std::uint64_t>(version), 8);
    appendNumber(out, record.bytes, 8);
    appendNumber(out, record.removed, 8);
    if (version == 1) {
        path.resize(kFixedPath, '\0');
    } else {
        appendNumber(out, path.size() / 2, 4);
    }
    return out + path;
}

std::optional<RecycleRecord> decodeRecycleRecord(std::string_view bytes) {
    if (bytes.size() < kHeader) return std::nullopt;
    RecycleRecord record;
    const std::uint64_t version = numberAt(bytes, 0, 8);
    record.bytes = numberAt(bytes, 8, 8);
    record.removed = numberAt(bytes, 16, 8);
    std::string_view path = bytes.substr(kHeader);
    if (version == 2 && path.size() >= 4) {
        const std::uint64_t units = numberAt(path, 0, 4);
        path = path.substr(4);
        if (units > path.size() / 2) return std::nullopt;
        path = path.substr(0, static_cast<std::size_t>(units) * 2);
    } else if (version != 1) {
        return std::nullopt;
    }
    record.path = utf8FromUtf16le(path);
    record.path.resize(std::min(record.path.find('\0'), record.path.size()));
    return record;
}

}  // namespace tidvane::platform::machine
