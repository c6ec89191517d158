#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "store/little_endian.h"
#include "store/ole_file.h"
#include "store/ole_format.h"

namespace orvex::store {
namespace {

using Chain = std::vector<std::uint32_t>;

/// Thrown and caught in here: the file is not what it says.
struct Damaged {};

void Require(bool condition) {
  if (!condition) throw Damaged{};
}

class OleReader {
 public:
  explicit OleReader(std::string_view bytes) : bytes_(bytes), unread_(bytes.size()) {
    Require(bytes.size() >= ole::kHeaderSize && bytes.starts_with(ole::kSignature));
    const std::size_t shift = Read16(bytes, ole::kSectorShiftAt);
    Require(shift == 9 || shift == 12);
    Require(Read16(bytes, ole::kMiniShiftAt) == 6 && Read32(bytes, ole::kMiniCutoffAt) == ole::kMiniCutoff);
    sector_size_ = std::size_t{1} << shift;
    // The header takes a sector's place. What is left of a sector that is cut off cannot be used.
    sector_count_ = bytes.size() / sector_size_ - 1;
    ReadFat();
    mini_fat_ = Numbers(Content(Follow(Read32(bytes, ole::kMiniFatAt), fat_)));
  }

  OleFile Read() {
    const std::string directory = Content(Follow(Read32(bytes_, ole::kDirectoryAt), fat_));
    Require(directory.size() >= ole::kEntrySize && directory[ole::kTypeAt] == ole::kRoot);
    const std::string_view root = std::string_view(directory).substr(0, ole::kEntrySize);
    mini_ = Content(Follow(Read32(root, ole::kStartAt), fat_));
    mini_unread_ = mini_.size();
    OleFile file;
    file.class_id = root.substr(ole::kClassIdAt, ole::kClassIdSize);
    for (std::size_t at = ole::kEntrySize; at < directory.size(); at += ole::kEntrySize) {
      const auto entry = std::string_view(directory).substr(at, ole::kEntrySize);
      const char type = entry[ole::kTypeAt];
      Require(type == ole::kUnused || type == ole::kStorage || type == ole::kStream);
      if (type == ole::kStorage) file.has_storages = true;
      if (type == ole::kStream) file.streams.push_back({Name(entry), StreamContent(entry)});
    }
    return file;
  }

 private:
  [[nodiscard]] std::string_view Sector(std::uint32_t number) const {
    Require(number < sector_count_);
    return bytes_.substr((number + std::size_t{1}) * sector_size_, sector_size_);
  }

  void ReadFat() {
    std::size_t missing = Read32(bytes_, ole::kFatCountAt);
    Require(missing <= sector_count_);
    const auto take = [&](std::string_view places) {
      for (std::size_t at = 0; at < places.size() && missing > 0; at += 4, --missing) {
        const auto numbers = Numbers(Sector(Read32(places, at)));
        fat_.insert(fat_.end(), numbers.begin(), numbers.end());
      }
    };
    take(bytes_.substr(ole::kFatSectorsAt, ole::kFatSectorsInHeader * 4));
    auto next = Read32(bytes_, ole::kDifatAt);
    // Each of these sectors takes at least one from the missing, so that a ring of them ends.
    while (missing > 0) {
      const auto places = Sector(next);
      take(places.substr(0, places.size() - 4));
      next = Read32(places, places.size() - 4);
    }
  }

  static Chain Numbers(std::string_view bytes) {
    Chain numbers;
    for (std::size_t at = 0; at < bytes.size(); at += 4) numbers.push_back(Read32(bytes, at));
    return numbers;
  }

  static Chain Follow(std::uint32_t start, const Chain& table) {
    Chain chain;
    for (auto next = start; next != ole::kEndOfChain; next = table[next]) {
      Require(next < table.size() && chain.size() < table.size());
      chain.push_back(next);
    }
    return chain;
  }

  /// Counts what is read: nothing of a sound file is read twice, and one that leads to the same bytes again and again
  /// would grow without end.
  static void Spend(std::size_t& unread, std::size_t size) {
    Require(unread >= size);
    unread -= size;
  }

  /// What sectors hold, one after the other.
  std::string Content(const Chain& chain) {
    std::string content;
    for (const auto number : chain) {
      Spend(unread_, sector_size_);
      content += Sector(number);
    }
    return content;
  }

  std::string StreamContent(std::string_view entry) {
    const auto start = Read32(entry, ole::kStartAt);
    const std::size_t size = Read32(entry, ole::kSizeAt);
    if (size == 0) return {};
    std::string content;
    if (size >= ole::kMiniCutoff) {
      content = Content(Follow(start, fat_));
    } else {
      for (const auto number : Follow(start, mini_fat_)) {
        Require(number < mini_.size() / ole::kMiniSectorSize);
        Spend(mini_unread_, ole::kMiniSectorSize);
        content.append(mini_, number * ole::kMiniSectorSize, ole::kMiniSectorSize);
      }
    }
    Require(content.size() >= size);
    content.resize(size);
    return content;
  }

  static std::u16string Name(std::string_view entry) {
    const std::size_t size = Read16(entry, ole::kNameBytesAt);
    Require(size >= 4 && size <= ole::kNameBytesAt && size % 2 == 0);
    std::u16string name;
    for (std::size_t at = 0; at < size - 2; at += 2) name += static_cast<char16_t>(Read16(entry, at));
    return name;
  }

  std::string_view bytes_;
  std::size_t unread_;
  std::size_t sector_size_ = 0;
  std::size_t sector_count_ = 0;
  Chain fat_;
  Chain mini_fat_;
  std::string mini_;
  std::size_t mini_unread_ = 0;
};

bool HasNamesakes(const std::vector<OleStream>& streams) {
  std::vector<std::u16string_view> names;
  for (const auto& stream : streams) names.push_back(stream.name);
  std::ranges::sort(names);
  return std::ranges::adjacent_find(names) != names.end();
}

}  // namespace

std::optional<OleFile> ReadOleFile(std::string_view bytes) {
  try {
    auto file = OleReader(bytes).Read();
    if (HasNamesakes(file.streams)) return std::nullopt;
    return file;
  } catch (const Damaged&) {
    return std::nullopt;
  }
}

}  // namespace orvex::store
