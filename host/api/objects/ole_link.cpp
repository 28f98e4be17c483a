#include "ole_link.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

namespace korva::api {
namespace {

constexpr std::uint32_t kEndOfChain = 0xFFFFFFFE;
constexpr std::uint32_t kNoStream = 0xFFFFFFFF;
constexpr unsigned char kCompoundSignature[] = {0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1};
constexpr std::size_t kHeaderSize = 512;
constexpr std::size_t kDirectoryEntrySize = 128;
constexpr int kHeaderFatSectors = 109;
constexpr int kStreamEntry = 2;
constexpr std::uint32_t kLinkedObject = 1;

// Moniker classes, as their identifiers are stored (little-endian fields).
constexpr unsigned char kFileMoniker[16] = {3, 3, 0, 0, 0, 0, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46};
constexpr unsigned char kItemMoniker[16] = {4, 3, 0, 0, 0, 0, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46};
constexpr unsigned char kCompositeMoniker[16] = {9,    3, 0, 0, 0, 0, 0, 0,
                                                 0xC0, 0, 0, 0, 0, 0, 0, 0x46};

// Little-endian reads that fail past the end instead of reading beyond it.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}
  bool ok() const { return ok_; }
  std::size_t position() const { return position_; }
  std::size_t left() const { return ok_ ? bytes_.size() - position_ : 0; }
  std::uint32_t u32() { return static_cast<std::uint32_t>(take(4)); }
  std::uint16_t u16() { return static_cast<std::uint16_t>(take(2)); }
  std::string_view bytes(std::size_t count) {
    if (!ok_ || count > left()) {
      ok_ = false;
      return {};
    }
    std::string_view part = bytes_.substr(position_, count);
    position_ += count;
    return part;
  }
  void skip(std::size_t count) { bytes(count); }

 private:
  std::uint64_t take(int size) {
    std::string_view part = bytes(static_cast<std::size_t>(size));
    std::uint64_t value = 0;
    for (int i = size - 1; i >= 0 && ok_; --i) {
      value = (value << 8) | static_cast<unsigned char>(part[static_cast<std::size_t>(i)]);
    }
    return value;
  }
  std::string_view bytes_;
  std::size_t position_ = 0;
  bool ok_ = true;
};

std::uint32_t u32At(std::string_view bytes, std::size_t at) {
  Reader reader(bytes.substr(std::min(at, bytes.size())));
  const std::uint32_t value = reader.u32();
  return reader.ok() ? value : kNoStream;
}

// A compound file: sectors chained through the allocation table, small streams in the
// mini stream.
class CompoundFile {
 public:
  explicit CompoundFile(std::string_view file) : file_(file) {}

  bool open() {
    if (file_.size() < kHeaderSize) return false;
    const unsigned sectorShift = static_cast<unsigned char>(file_[0x1E]);
    const unsigned miniShift = static_cast<unsigned char>(file_[0x20]);
    if (sectorShift < 7 || sectorShift > 16 || miniShift > sectorShift) return false;
    sectorSize_ = std::size_t{1} << sectorShift;
    miniSectorSize_ = std::size_t{1} << miniShift;
    miniCutoff_ = u32At(file_, 0x38);
    // The table's own sectors: those the header lists are enough for small files.
    const std::uint32_t fatSectors = u32At(file_, 0x2C);
    for (std::uint32_t i = 0; i < fatSectors && i < kHeaderFatSectors; ++i) {
      std::string_view sector = sectorAt(u32At(file_, 0x4C + 4 * i));
      if (sector.empty()) return false;
      for (std::size_t at = 0; at + 4 <= sector.size(); at += 4) fat_.push_back(u32At(sector, at));
    }
    directory_ = chain(u32At(file_, 0x30), fat_, [this](std::uint32_t s) { return sectorAt(s); });
    if (directory_.size() < kDirectoryEntrySize) return false;
    const std::string miniFat =
        chain(u32At(file_, 0x3C), fat_, [this](std::uint32_t s) { return sectorAt(s); });
    for (std::size_t at = 0; at + 4 <= miniFat.size(); at += 4)
      miniFat_.push_back(u32At(miniFat, at));
    // The root entry's stream is the mini stream.
    miniStream_ = streamAt(0, false);
    return true;
  }

  // The first stream of that name, whichever storage holds it.
  std::optional<std::string> stream(std::u16string_view name) const {
    for (std::size_t entry = 0; (entry + 1) * kDirectoryEntrySize <= directory_.size(); ++entry) {
      std::string_view record(directory_.data() + entry * kDirectoryEntrySize, kDirectoryEntrySize);
      if (record[0x42] != kStreamEntry) continue;
      const std::size_t nameBytes = std::min<std::size_t>(u32At(record, 0x40) & 0xFFFF, 64);
      if (nameBytes < 2 || (nameBytes - 2) / 2 != name.size()) continue;
      bool same = true;
      for (std::size_t i = 0; i < name.size() && same; ++i) {
        const auto unit = static_cast<char16_t>(static_cast<unsigned char>(record[2 * i]) |
                                                static_cast<unsigned char>(record[2 * i + 1]) << 8);
        same = unit == name[i];
      }
      if (same) return streamAt(entry, true);
    }
    return std::nullopt;
  }

 private:
  std::string_view sectorAt(std::uint32_t sector) const {
    const std::size_t start = (static_cast<std::size_t>(sector) + 1) * sectorSize_;
    if (sector >= kEndOfChain - 1 || start + sectorSize_ > file_.size()) return {};
    return file_.substr(start, sectorSize_);
  }
  std::string_view miniSectorAt(std::uint32_t sector) const {
    const std::size_t start = static_cast<std::size_t>(sector) * miniSectorSize_;
    if (start + miniSectorSize_ > miniStream_.size()) return {};
    return std::string_view(miniStream_).substr(start, miniSectorSize_);
  }
  // The sectors of a chain, one after the other; a broken or looping chain ends it.
  template <class SectorOf>
  std::string chain(std::uint32_t first, const std::vector<std::uint32_t>& table,
                    SectorOf sectorOf) const {
    std::string bytes;
    std::uint32_t sector = first;
    for (std::size_t steps = 0; sector < table.size() && steps <= table.size(); ++steps) {
      std::string_view part = sectorOf(sector);
      if (part.empty()) break;
      bytes.append(part);
      sector = table[sector];
    }
    return bytes;
  }
  std::string streamAt(std::size_t entry, bool mayBeMini) const {
    const std::string_view record =
        std::string_view(directory_).substr(entry * kDirectoryEntrySize);
    const std::uint32_t start = u32At(record, 0x74);
    const std::size_t size = u32At(record, 0x78);
    std::string bytes =
        mayBeMini && size < miniCutoff_
            ? chain(start, miniFat_, [this](std::uint32_t s) { return miniSectorAt(s); })
            : chain(start, fat_, [this](std::uint32_t s) { return sectorAt(s); });
    if (bytes.size() > size) bytes.resize(size);
    return bytes;
  }

  std::string_view file_;
  std::size_t sectorSize_ = 512;
  std::size_t miniSectorSize_ = 64;
  std::size_t miniCutoff_ = 4096;
  std::vector<std::uint32_t> fat_;
  std::vector<std::uint32_t> miniFat_;
  std::string directory_;
  std::string miniStream_;
};

// An 8-bit string of the file's code page; the characters above 127 are taken as Latin-1.
std::wstring widened(std::string_view text) {
  std::wstring wide;
  for (char c : text) {
    if (c == '\0') break;
    wide += static_cast<wchar_t>(static_cast<unsigned char>(c));
  }
  return wide;
}

std::wstring fromUtf16(std::string_view bytes) {
  std::wstring wide;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    wide += static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]) |
                                 static_cast<unsigned char>(bytes[i + 1]) << 8);
  }
  return wide;
}

// An item moniker's text: an 8-bit string with its terminator, then optionally the same
// as UTF-16 within the stated length.
std::wstring itemText(Reader& reader) {
  const std::uint32_t length = reader.u32();
  std::string_view text = reader.bytes(length);
  const std::size_t end = text.find('\0');
  if (end != std::string_view::npos && end + 1 < text.size())
    return fromUtf16(text.substr(end + 1));
  return widened(text);
}

bool readMoniker(Reader& reader, OleLinkSource& source, int depth) {
  std::string_view kind = reader.bytes(16);
  if (!reader.ok() || depth > 8) return false;
  if (std::memcmp(kind.data(), kCompositeMoniker, 16) == 0) {
    const std::uint32_t count = reader.u32();
    for (std::uint32_t i = 0; i < count && reader.ok(); ++i) {
      if (!readMoniker(reader, source, depth + 1)) return false;
    }
    return reader.ok();
  }
  if (std::memcmp(kind.data(), kItemMoniker, 16) == 0) {
    std::wstring delimiter = itemText(reader);
    std::wstring item = itemText(reader);
    source.displayName += delimiter + item;
    return reader.ok();
  }
  if (std::memcmp(kind.data(), kFileMoniker, 16) == 0) {
    reader.u16();  // how many levels up a relative path climbs
    std::wstring path = widened(reader.bytes(reader.u32()));
    reader.skip(2 + 2 + 16 + 4);  // end of server, version, reserved
    if (reader.u32() > 0) {
      const std::uint32_t unicodeBytes = reader.u32();
      reader.u16();
      path = fromUtf16(reader.bytes(unicodeBytes));
    }
    source.path = path;
    source.displayName += path;
    return reader.ok();
  }
  return false;
}

// A moniker stream whose size field counts itself; 0 means there is none.
std::string_view sizedStream(Reader& reader) {
  const std::uint32_t size = reader.u32();
  return size >= 4 ? reader.bytes(size - 4) : std::string_view();
}

}  // namespace

std::optional<OleLinkSource> oleLinkSourceOf(std::string_view data) {
  const std::string_view signature(reinterpret_cast<const char*>(kCompoundSignature), 8);
  const std::size_t start = data.find(signature);
  if (start == std::string_view::npos) return std::nullopt;
  CompoundFile file(data.substr(start));
  if (!file.open()) return std::nullopt;
  const std::optional<std::string> stream = file.stream(u"\x01Ole");
  if (!stream) return std::nullopt;
  Reader reader(*stream);
  reader.u32();  // version
  const std::uint32_t flags = reader.u32();
  reader.skip(8);  // update option, reserved
  sizedStream(reader);
  if (!reader.ok() || !(flags & kLinkedObject)) return std::nullopt;
  const std::string_view relative = sizedStream(reader);
  const std::string_view absolute = sizedStream(reader);
  // The absolute source names the file where it was linked; the relative one is the
  // fallback when that is missing.
  for (std::string_view moniker : {absolute, relative}) {
    if (moniker.empty()) continue;
    Reader monikerReader(moniker);
    OleLinkSource source;
    if (readMoniker(monikerReader, source, 0) && !source.path.empty()) return source;
  }
  return std::nullopt;
}

}  // namespace korva::api
