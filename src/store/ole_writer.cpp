#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "store/little_endian.h"
#include "store/ole_file.h"
#include "store/ole_format.h"

namespace orvex::store {
namespace {

constexpr std::size_t kSectorSize = 512;
constexpr std::size_t kNumbersPerSector = kSectorSize / 4;
constexpr std::size_t kPlacesPerSector = kNumbersPerSector - 1;  ///< the last number leads to the next such sector

using Chain = std::vector<std::uint32_t>;

constexpr std::size_t Pieces(std::size_t size, std::size_t of) { return (size + of - 1) / of; }

void Pad(std::string& bytes, std::size_t to) { bytes.resize(Pieces(bytes.size(), to) * to); }

/// Adds a run of so many pieces to a table; the number of the first one.
std::uint32_t AddRun(Chain& table, std::size_t count) {
  if (count == 0) return ole::kEndOfChain;
  const auto start = static_cast<std::uint32_t>(table.size());
  for (std::size_t i = 1; i < count; ++i) table.push_back(static_cast<std::uint32_t>(start + i));
  table.push_back(ole::kEndOfChain);
  return start;
}

std::string Bytes(const Chain& numbers) {
  std::string bytes;
  for (const auto number : numbers) Append32(bytes, number);
  return bytes;
}

struct Entry {
  std::u16string_view name;
  ole::EntryType type;
  std::uint32_t right = ole::kFree;
  std::uint32_t child = ole::kFree;
  std::string_view class_id = {};
  std::uint32_t start = ole::kEndOfChain;
  std::size_t size = 0;
};

void AppendEntry(std::string& directory, const Entry& entry) {
  const std::size_t at = directory.size();
  for (const char16_t c : entry.name) Append16(directory, c);
  directory.resize(at + ole::kNameBytesAt);
  Append16(directory, entry.type == ole::kUnused ? 0 : (entry.name.size() + 1) * 2);
  directory += static_cast<char>(entry.type);
  directory += '\x01';  // black
  Append32(directory, ole::kFree);
  Append32(directory, entry.right);
  Append32(directory, entry.child);
  directory += entry.class_id;
  directory.resize(at + ole::kStartAt);
  Append32(directory, entry.start);
  Append32(directory, entry.size);
  directory.resize(at + ole::kEntrySize);
}

/// The order of names in a directory: the shorter first, then without regard to case.
bool Precedes(const OleStream* a, const OleStream* b) {
  if (a->name.size() != b->name.size()) return a->name.size() < b->name.size();
  const auto folded = [](char16_t c) { return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c; };
  return std::ranges::lexicographical_compare(a->name, b->name, {}, folded, folded);
}

class OleWriter {
 public:
  std::string Write(const OleFile& file) {
    const auto directory = AddRun(AppendStreams(file));
    const auto mini_fat = AddRun(PaddedBytes(mini_fat_));
    return Finished(directory, mini_fat);
  }

 private:
  /// The sectors of some bytes; the number of the first one.
  std::uint32_t AddRun(std::string_view content) {
    bytes_ += content;
    Pad(bytes_, kSectorSize);
    return store::AddRun(fat_, Pieces(content.size(), kSectorSize));
  }

  std::uint32_t AddMiniRun(std::string_view content) {
    mini_ += content;
    Pad(mini_, ole::kMiniSectorSize);
    return store::AddRun(mini_fat_, Pieces(content.size(), ole::kMiniSectorSize));
  }

  static std::string PaddedBytes(Chain numbers) {
    numbers.resize(Pieces(numbers.size(), kNumbersPerSector) * kNumbersPerSector, ole::kFree);
    return Bytes(numbers);
  }

  /// Writes the streams and gives the directory: the root, then a list of the streams, each one the right-hand
  /// neighbour of that in front of it.
  std::string AppendStreams(const OleFile& file) {
    std::vector<const OleStream*> streams;
    for (const auto& stream : file.streams) streams.push_back(&stream);
    std::ranges::sort(streams, Precedes);
    std::string entries;
    for (std::size_t i = 0; i < streams.size(); ++i) {
      const auto& content = streams[i]->content;
      const auto start = content.size() < ole::kMiniCutoff ? AddMiniRun(content) : AddRun(content);
      const auto right = i + 1 < streams.size() ? static_cast<std::uint32_t>(i + 2) : ole::kFree;
      AppendEntry(entries, {streams[i]->name, ole::kStream, right, ole::kFree, {}, start, content.size()});
    }
    std::string directory;
    AppendEntry(directory, {u"Root Entry", ole::kRoot, ole::kFree, streams.empty() ? ole::kFree : 1, file.class_id,
                            AddRun(mini_), mini_.size()});
    directory += entries;
    while (directory.size() % kSectorSize != 0) AppendEntry(directory, {u"", ole::kUnused});
    return directory;
  }

  /// Puts the table and, for a large file, the list of its sectors behind everything else, and the header in front.
  std::string Finished(std::uint32_t directory, std::uint32_t mini_fat) {
    const std::size_t data = fat_.size();
    std::size_t fat = 0, difat = 0;
    for (std::size_t before = 1; before != fat + difat;) {
      before = fat + difat;
      fat = Pieces(data + fat + difat, kNumbersPerSector);
      difat = fat > ole::kFatSectorsInHeader ? Pieces(fat - ole::kFatSectorsInHeader, kPlacesPerSector) : 0;
    }
    fat_.insert(fat_.end(), fat, ole::kFatSector);
    fat_.insert(fat_.end(), difat, ole::kDifatSector);
    bytes_ += PaddedBytes(fat_);

    Chain places;
    for (std::size_t i = 0; i < fat; ++i) places.push_back(static_cast<std::uint32_t>(data + i));
    places.resize(std::max(places.size(), ole::kFatSectorsInHeader), ole::kFree);
    const Chain more(places.begin() + ole::kFatSectorsInHeader, places.end());
    places.resize(ole::kFatSectorsInHeader);
    for (std::size_t i = 0; i < difat; ++i) {
      const auto first = more.begin() + static_cast<std::ptrdiff_t>(i * kPlacesPerSector);
      const auto left = static_cast<std::size_t>(more.end() - first);
      Chain sector(first, first + static_cast<std::ptrdiff_t>(std::min(kPlacesPerSector, left)));
      sector.resize(kPlacesPerSector, ole::kFree);
      sector.push_back(i + 1 < difat ? static_cast<std::uint32_t>(data + fat + i + 1) : ole::kEndOfChain);
      bytes_ += Bytes(sector);
    }

    std::string header(ole::kSignature);
    header.resize(header.size() + 16);
    for (const int number : {0x3E, 3, 0xFFFE, 9, 6}) Append16(header, static_cast<std::uint64_t>(number));
    header.resize(ole::kFatCountAt);
    for (const std::uint64_t number :
         {std::uint64_t{fat}, std::uint64_t{directory}, std::uint64_t{0}, std::uint64_t{ole::kMiniCutoff},
          std::uint64_t{mini_fat}, std::uint64_t{Pieces(mini_fat_.size(), kNumbersPerSector)},
          difat > 0 ? std::uint64_t{data + fat} : std::uint64_t{ole::kEndOfChain}, std::uint64_t{difat}})
      Append32(header, number);
    return header + Bytes(places) + bytes_;
  }

  std::string bytes_;
  std::string mini_;
  Chain fat_;
  Chain mini_fat_;
};

}  // namespace

std::string WriteOleFile(const OleFile& file) { return OleWriter().Write(file); }

}  // namespace orvex::store
