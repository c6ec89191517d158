#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// The places and marks in a compound file that reading and writing share. The file is a header and sectors; a table
/// (FAT) tells for each sector which one follows it. Streams of less than 4096 bytes lie in pieces of 64 bytes, with a
/// table of their own, in the "mini" stream, which belongs to the first entry of the directory.
namespace orvex::store::ole {

inline constexpr std::string_view kSignature = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";

inline constexpr std::size_t kHeaderSize = 512;
inline constexpr std::size_t kVersionAt = 26;
inline constexpr std::size_t kSectorShiftAt = 30;
inline constexpr std::size_t kMiniShiftAt = 32;
inline constexpr std::size_t kFatCountAt = 44;
inline constexpr std::size_t kDirectoryAt = 48;
inline constexpr std::size_t kMiniCutoffAt = 56;
inline constexpr std::size_t kMiniFatAt = 60;
inline constexpr std::size_t kDifatAt = 68;       ///< the first sector with more places of FAT sectors
inline constexpr std::size_t kFatSectorsAt = 76;  ///< the places of the first FAT sectors
inline constexpr std::size_t kFatSectorsInHeader = 109;

inline constexpr std::size_t kMiniSectorSize = 64;
inline constexpr std::uint32_t kMiniCutoff = 4096;

inline constexpr std::uint32_t kDifatSector = 0xFFFFFFFC;
inline constexpr std::uint32_t kFatSector = 0xFFFFFFFD;
inline constexpr std::uint32_t kEndOfChain = 0xFFFFFFFE;
inline constexpr std::uint32_t kFree = 0xFFFFFFFF;  ///< also: no entry

inline constexpr std::size_t kEntrySize = 128;
inline constexpr std::size_t kNameBytesAt = 64;
inline constexpr std::size_t kTypeAt = 66;
inline constexpr std::size_t kClassIdAt = 80;
inline constexpr std::size_t kClassIdSize = 16;
inline constexpr std::size_t kStartAt = 116;
inline constexpr std::size_t kSizeAt = 120;

enum EntryType : char { kUnused = 0, kStorage = 1, kStream = 2, kRoot = 5 };

}  // namespace orvex::store::ole
