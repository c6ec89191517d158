#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Numbers of files that have their lowest byte first, whatever the machine.
namespace orvex::store {

/// The number of `size` bytes that begins at `place`; the text must hold them.
constexpr std::uint64_t ReadLittle(std::string_view bytes, std::size_t place, std::size_t size) {
  std::uint64_t number = 0;
  for (std::size_t i = size; i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes[place + i]);
  return number;
}

constexpr std::uint16_t Read16(std::string_view bytes, std::size_t place) {
  return static_cast<std::uint16_t>(ReadLittle(bytes, place, 2));
}

constexpr std::uint32_t Read32(std::string_view bytes, std::size_t place) {
  return static_cast<std::uint32_t>(ReadLittle(bytes, place, 4));
}

inline void AppendLittle(std::string& bytes, std::uint64_t number, std::size_t size) {
  for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>(number >> (8 * i) & 0xFF);
}

inline void Append16(std::string& bytes, std::uint64_t number) { AppendLittle(bytes, number, 2); }
inline void Append32(std::string& bytes, std::uint64_t number) { AppendLittle(bytes, number, 4); }

inline void Replace32(std::string& bytes, std::size_t place, std::uint64_t number) {
  for (std::size_t i = 0; i < 4; ++i) bytes[place + i] = static_cast<char>(number >> (8 * i) & 0xFF);
}

}  // namespace orvex::store
