#include "store/dbase_head.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <optional>

#include "store/letter_case.h"
#include "store/little_endian.h"

namespace orvex::store {
namespace {

constexpr std::size_t kRecordCountOffset = 4;
constexpr std::size_t kSizeOffset = 8;
constexpr std::size_t kRecordSizeOffset = 10;
constexpr std::size_t kEncryptedOffset = 15;
constexpr std::size_t kFieldNameSize = 11;
constexpr std::size_t kFieldWidthOffset = 16;
constexpr std::size_t kFieldDecimalsOffset = 17;

/// The programs whose tables have the layout above: dBASE III to V with and without memos, FoxPro 2 with memos and its
/// successors. dBASE II and 7 have another one.
constexpr unsigned char kPrograms[] = {0x03, 0x04, 0x05, 0x30, 0x31, 0x32, 0x43, 0x63,
                                       0x7B, 0x83, 0x8B, 0x8E, 0xCB, 0xF5, 0xFB};

struct Language {
  unsigned char driver;
  const char* code_page;
};

/// Language drivers with code pages of one byte a character. Without one, the code page is that of the system the
/// program was made for.
constexpr Language kLanguages[] = {
    {0x00, "CP1252"}, {0x01, "CP437"},  {0x02, "CP850"},  {0x03, "CP1252"}, {0x04, "MACINTOSH"}, {0x08, "CP865"},
    {0x09, "CP437"},  {0x0A, "CP850"},  {0x0B, "CP437"},  {0x0D, "CP437"},  {0x0E, "CP850"},     {0x0F, "CP437"},
    {0x10, "CP850"},  {0x11, "CP437"},  {0x12, "CP850"},  {0x14, "CP850"},  {0x15, "CP437"},     {0x16, "CP850"},
    {0x17, "CP865"},  {0x18, "CP437"},  {0x19, "CP437"},  {0x1A, "CP850"},  {0x1B, "CP437"},     {0x1C, "CP863"},
    {0x1D, "CP850"},  {0x1F, "CP852"},  {0x22, "CP852"},  {0x23, "CP852"},  {0x24, "CP860"},     {0x25, "CP850"},
    {0x26, "CP866"},  {0x37, "CP850"},  {0x40, "CP852"},  {0x57, "CP1252"}, {0x58, "CP1252"},    {0x59, "CP1252"},
    {0x64, "CP852"},  {0x65, "CP866"},  {0x66, "CP865"},  {0x67, "CP861"},  {0x6A, "CP737"},     {0x6B, "CP857"},
    {0x6C, "CP863"},  {0x7D, "CP1255"}, {0x7E, "CP1256"}, {0x86, "CP737"},  {0x87, "CP852"},     {0x88, "CP857"},
    {0xC8, "CP1250"}, {0xC9, "CP1251"}, {0xCA, "CP1254"}, {0xCB, "CP1253"}, {0xCC, "CP1257"},
};

unsigned char Byte(std::string_view bytes, std::size_t place) { return static_cast<unsigned char>(bytes[place]); }

[[noreturn]] void Refuse(std::string reason) { throw DbaseHeadError{std::move(reason)}; }

CodePage CodePageOf(unsigned char driver) {
  const auto* const found = std::ranges::find(kLanguages, driver, &Language::driver);
  return found == std::end(kLanguages) ? CodePage() : CodePage(found->code_page);
}

bool IsPrintable(char c) { return static_cast<unsigned char>(c) >= ' '; }

DbaseField ParseField(std::string_view bytes, std::size_t number, const CodePage& code_page) {
  std::string_view name = bytes.substr(0, kFieldNameSize);
  name = name.substr(0, name.find('\0'));
  name = name.substr(0, name.find_last_not_of(' ') + 1);
  const auto text = code_page.Decode(name);
  if (name.empty() || !text || !std::ranges::all_of(name, IsPrintable))
    Refuse(fmt::format("field {} has no name", number));

  DbaseField field{*text, bytes[DbaseHead::kFieldTypeOffset], Byte(bytes, kFieldWidthOffset),
                   Byte(bytes, kFieldDecimalsOffset)};
  const auto refuse = [&](std::string_view what) { Refuse(fmt::format("the field '{}' has {}", field.name, what)); };
  const bool letter = field.type >= 'A' && field.type <= 'Z';
  if (!letter && std::string_view("0+@").find(field.type) == std::string_view::npos) refuse("no type");
  if ((field.type == 'L' && field.width != 1) || (field.type == 'D' && field.width != 8)) refuse("a wrong width");
  return field;
}

std::size_t WidthOf(const std::vector<DbaseField>& fields) {
  return std::accumulate(fields.begin(), fields.end(), std::size_t{0}, [](std::size_t sum, const DbaseField& field) {
    return sum + static_cast<std::size_t>(field.width);
  });
}

/// Some programs keep the upper half of a text's width where the decimals of a number are.
void WidenTexts(std::vector<DbaseField>& fields) {
  for (auto& field : fields) {
    if (field.type == 'C') field.width += field.decimals * 256;
  }
}

std::vector<DbaseField> ParseFields(std::string_view bytes, const CodePage& code_page) {
  std::vector<DbaseField> fields;
  std::size_t place = DbaseHead::kFixedSize;
  for (; place < bytes.size() && bytes[place] != DbaseHead::kFieldsEnd; place += DbaseHead::kFieldSize) {
    if (bytes.size() - place < DbaseHead::kFieldSize) break;
    fields.push_back(ParseField(bytes.substr(place, DbaseHead::kFieldSize), fields.size() + 1, code_page));
  }
  if (place >= bytes.size() || bytes[place] != DbaseHead::kFieldsEnd) Refuse("the end of its fields is not marked");
  if (fields.empty()) Refuse("it has no fields");
  return fields;
}

void RequireDifferentNames(const std::vector<DbaseField>& fields) {
  std::vector<std::string> names;
  for (const auto& field : fields) names.push_back(LowerCase(field.name));
  std::ranges::sort(names);
  const auto twice = std::ranges::adjacent_find(names);
  if (twice != names.end()) Refuse(fmt::format("two of its fields are called '{}'", *twice));
}

}  // namespace

std::size_t DbaseHead::SizeFrom(std::string_view fixed, std::uint64_t file_size) {
  if (file_size == 0) Refuse("the file is empty");
  const bool known = !fixed.empty() && std::ranges::find(kPrograms, Byte(fixed, 0)) != std::end(kPrograms);
  if (!known) Refuse("it does not begin as one");
  if (fixed.size() < kFixedSize) Refuse("it is cut off");
  if (fixed[kEncryptedOffset] != 0) Refuse("it is encrypted");
  const std::size_t size = Read16(fixed, kSizeOffset);
  if (size <= kFixedSize) Refuse("its head is too short");
  if (size > file_size) Refuse("it is cut off");
  return size;
}

DbaseHead DbaseHead::Parse(std::string_view bytes, std::uint64_t file_size) {
  DbaseHead head;
  head.size = bytes.size();
  head.record_size = Read16(bytes, kRecordSizeOffset);
  head.record_count = Read32(bytes, kRecordCountOffset);
  head.code_page = CodePageOf(Byte(bytes, DbaseHead::kLanguageOffset));
  head.fields = ParseFields(bytes, head.code_page);
  RequireDifferentNames(head.fields);

  // The first byte of a record tells whether it is deleted.
  if (1 + WidthOf(head.fields) != head.record_size) WidenTexts(head.fields);
  if (1 + WidthOf(head.fields) != head.record_size) Refuse("the widths of its fields do not add up to its records");
  const auto empty = std::ranges::find(head.fields, 0, &DbaseField::width);
  if (empty != head.fields.end()) Refuse(fmt::format("the field '{}' has no width", empty->name));
  const auto records = static_cast<std::uint64_t>(head.record_count);
  if (records * head.record_size > file_size - head.size) Refuse("records are missing at its end");
  return head;
}

}  // namespace orvex::store
