#include "linked_ole_data.h"

#include <cstdint>

namespace korva::test {
namespace {

constexpr std::uint32_t kEndOfChain = 0xFFFFFFFE;
constexpr std::uint32_t kFree = 0xFFFFFFFF;
constexpr std::size_t kSector = 512;
constexpr std::size_t kMiniSector = 64;

void put16(std::string& out, std::uint32_t value) {
  out += static_cast<char>(value & 0xFF);
  out += static_cast<char>((value >> 8) & 0xFF);
}
void put32(std::string& out, std::uint32_t value) {
  put16(out, value & 0xFFFF);
  put16(out, value >> 16);
}
void set32(std::string& out, std::size_t at, std::uint32_t value) {
  std::string bytes;
  put32(bytes, value);
  out.replace(at, 4, bytes);
}
std::string classId(std::uint8_t kind) {
  return std::string({static_cast<char>(kind), 3, 0, 0, 0, 0, 0, 0, static_cast<char>(0xC0), 0, 0,
                      0, 0, 0, 0, 0x46});
}

std::string fileMoniker(const std::string& ansiPath, const std::u16string& unicodePath) {
  std::string moniker = classId(3);
  put16(moniker, 0);
  put32(moniker, static_cast<std::uint32_t>(ansiPath.size() + 1));
  moniker += ansiPath + '\0';
  put16(moniker, 0xFFFF);
  put16(moniker, 0xDEAD);
  moniker.append(20, '\0');
  const auto unicodeBytes = static_cast<std::uint32_t>(2 * unicodePath.size());
  put32(moniker, unicodePath.empty() ? 0 : unicodeBytes + 6);
  if (!unicodePath.empty()) {
    put32(moniker, unicodeBytes);
    put16(moniker, 3);
    for (char16_t unit : unicodePath) put16(moniker, unit);
  }
  return moniker;
}

std::string itemMoniker(const std::string& item) {
  std::string moniker = classId(4);
  put32(moniker, 2);
  moniker += std::string("!\0", 2);
  put32(moniker, static_cast<std::uint32_t>(item.size() + 1));
  moniker += item + '\0';
  return moniker;
}

std::string oleStream(const std::string& absoluteMoniker) {
  std::string stream;
  put32(stream, 0x02000001);
  put32(stream, 1);  // linked
  put32(stream, 0);
  put32(stream, 0);
  put32(stream, 0);  // no reserved moniker
  put32(stream, 0);  // no relative source
  put32(stream, static_cast<std::uint32_t>(absoluteMoniker.size() + 4));
  stream += absoluteMoniker;
  put32(stream, kFree);  // what follows the sources isn't read
  stream.append(16, '\0');
  return stream;
}

std::string directoryEntry(const std::u16string& name, int type, std::uint32_t start,
                           std::uint32_t size) {
  std::string entry(128, '\0');
  for (std::size_t i = 0; i < name.size(); ++i) {
    entry[2 * i] = static_cast<char>(name[i] & 0xFF);
    entry[2 * i + 1] = static_cast<char>(name[i] >> 8);
  }
  set32(entry, 0x40, static_cast<std::uint32_t>(2 * name.size() + 2));
  entry[0x42] = static_cast<char>(type);
  set32(entry, 0x44, kFree);
  set32(entry, 0x48, kFree);
  set32(entry, 0x4C, kFree);
  set32(entry, 0x74, start);
  set32(entry, 0x78, size);
  return entry;
}

// Sector 0 the allocation table, 1 the directory, 2 the mini table, 3 on the mini stream.
std::string compoundFile(const std::string& stream) {
  std::string mini = stream;
  mini.resize((stream.size() + kMiniSector - 1) / kMiniSector * kMiniSector, '\0');
  const std::size_t miniSectors = mini.size() / kMiniSector;
  std::string miniStream = mini;
  miniStream.resize((mini.size() + kSector - 1) / kSector * kSector, '\0');
  const std::size_t streamSectors = miniStream.size() / kSector;

  std::string header(kSector, '\xFF');
  header.replace(0, 8, "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
  header.replace(8, 0x4C - 8, std::string(0x4C - 8, '\0'));
  set32(header, 0x18, 0x0003003E);
  set32(header, 0x1C, 0x0009FFFE);
  set32(header, 0x20, 6);
  set32(header, 0x2C, 1);
  set32(header, 0x30, 1);
  set32(header, 0x38, 4096);
  set32(header, 0x3C, 2);
  set32(header, 0x40, 1);
  set32(header, 0x44, kEndOfChain);
  set32(header, 0x4C, 0);

  std::string fat(kSector, '\xFF');
  set32(fat, 0, 0xFFFFFFFD);
  set32(fat, 4, kEndOfChain);
  set32(fat, 8, kEndOfChain);
  for (std::size_t i = 0; i < streamSectors; ++i) {
    set32(fat, 4 * (3 + i),
          i + 1 == streamSectors ? kEndOfChain : static_cast<std::uint32_t>(4 + i));
  }
  std::string directory =
      directoryEntry(u"Root Entry", 5, 3, static_cast<std::uint32_t>(mini.size())) +
      directoryEntry(u"\x01Ole", 2, 0, static_cast<std::uint32_t>(stream.size())) +
      std::string(256, '\0');
  std::string miniFat(kSector, '\xFF');
  for (std::size_t i = 0; i < miniSectors; ++i) {
    set32(miniFat, 4 * i, i + 1 == miniSectors ? kEndOfChain : static_cast<std::uint32_t>(i + 1));
  }
  return header + fat + directory + miniFat + miniStream;
}

}  // namespace

std::string linkedOleData(const std::string& ansiPath, const std::u16string& unicodePath,
                          const std::string& item) {
  std::string composite = classId(9);
  put32(composite, 2);
  composite += fileMoniker(ansiPath, unicodePath) + itemMoniker(item);
  return std::string("\x80\x00\x55\x00\x00\x00\x00\x00", 8) + compoundFile(oleStream(composite));
}

std::vector<db::OwnedGroup> oleFrameGroups(int type, const std::string& data) {
  std::vector<db::OwnedGroup> groups = {{100, "AcDbOle2Frame"},
                                        {70, "2"},
                                        {3, "Worksheet"},
                                        {10, "1"},
                                        {20, "9"},
                                        {30, "0"},
                                        {11, "6"},
                                        {21, "2"},
                                        {31, "0"},
                                        {71, std::to_string(type)},
                                        {72, "0"},
                                        {90, std::to_string(data.size())}};
  static const char kHex[] = "0123456789ABCDEF";
  for (std::size_t start = 0; start < data.size(); start += 127) {
    std::string chunk;
    for (std::size_t i = start; i < data.size() && i < start + 127; ++i) {
      const auto byte = static_cast<unsigned char>(data[i]);
      chunk += kHex[byte >> 4];
      chunk += kHex[byte & 15];
    }
    groups.push_back({310, chunk});
  }
  groups.push_back({1, "OLE"});
  return groups;
}

}  // namespace korva::test
