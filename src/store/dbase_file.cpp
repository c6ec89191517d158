#include "store/dbase_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <optional>
#include <system_error>
#include <unordered_map>
#include <utility>

#include "store/blanks.h"
#include "store/file_check.h"
#include "store/letter_case.h"
#include "store/number_text.h"
#include "store/run_time_error.h"

namespace orvex::store {
namespace {

/// Records are read in blocks of about so many bytes.
constexpr std::size_t kBlockSize = std::size_t{1} << 16U;

/// Fields of bytes that are blank, filled with NUL by some programs.
constexpr std::string_view kBlanks(" \0", 2);

/// A file that is only read, at any place.
class InputFile {
 public:
  explicit InputFile(std::filesystem::path path) : path_(std::move(path)) {
    CheckFolder(path_);
    // A pipe that nobody writes to must not keep the program waiting.
    file_ = open(path_.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (file_ < 0 && errno == ENOENT)
      throw RunTimeError(ErrorNumber::kFileNotFound, fmt::format("The file '{}' was not found.", path_.string()));
    if (file_ < 0) FailToRead(errno);
    struct stat status = {};
    if (fstat(file_, &status) != 0) {
      const int cause = errno;
      close(file_);
      FailToRead(cause);
    }
    if (S_ISREG(status.st_mode)) size_ = static_cast<std::uint64_t>(status.st_size);
  }
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  ~InputFile() {
    if (file_ >= 0) close(file_);
  }

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  /// 0 for what is no file.
  [[nodiscard]] std::uint64_t Size() const { return size_; }

  /// As many of these bytes as there are.
  [[nodiscard]] std::string Read(std::uint64_t place, std::size_t size) const {
    std::string bytes(size, '\0');
    std::size_t done = 0;
    while (done < size) {
      const auto read = pread(file_, bytes.data() + done, size - done, static_cast<off_t>(place + done));
      if (read < 0 && errno == EINTR) continue;
      if (read < 0) FailToRead(errno);
      if (read == 0) break;
      done += static_cast<std::size_t>(read);
    }
    bytes.resize(done);
    return bytes;
  }

  [[noreturn]] void FailToRead(int cause) const {
    throw RunTimeError(ErrorNumber::kDiskFailure, fmt::format("The file '{}' cannot be read: {}.", path_.string(),
                                                              std::generic_category().message(cause)));
  }

 private:
  std::filesystem::path path_;
  int file_ = -1;
  std::uint64_t size_ = 0;
};

DbaseHead ReadHead(const InputFile& file) {
  try {
    const std::string fixed = file.Read(0, std::min<std::uint64_t>(DbaseHead::kFixedSize, file.Size()));
    const std::size_t size = DbaseHead::SizeFrom(fixed, file.Size());
    const std::string bytes = file.Read(0, size);
    if (bytes.size() < size) throw DbaseHeadError{"it is cut off"};
    return DbaseHead::Parse(bytes, file.Size());
  } catch (const DbaseHeadError& error) {
    throw RunTimeError(ErrorNumber::kWrongFormat, fmt::format("'{}' is no dBASE table that could be read: {}.",
                                                              file.Path().string(), error.reason));
  }
}

/// What a field holds, or why it holds nothing that could be read, as the end of a sentence.
struct Content {
  Value value = {};
  std::string wrong = {};
};

/// A piece of the field for a message, which may hold anything.
std::string Shown(std::string_view bytes) {
  constexpr std::size_t kLongest = 40;
  std::string shown(bytes.substr(0, kLongest));
  std::ranges::replace_if(
      shown, [](char c) { return c < ' ' || c > '~'; }, '?');
  return shown;
}

Content ReadText(std::string_view bytes, const CodePage& code_page) {
  bytes = bytes.substr(0, bytes.find('\0'));
  bytes = bytes.substr(0, bytes.find_last_not_of(' ') + 1);
  if (bytes.empty()) return {};
  if (auto text = code_page.Decode(bytes)) return {.value = Value(*text)};
  return {.wrong = fmt::format("'{}' is in a code page that is not known", Shown(bytes))};
}

Content ReadNumber(std::string_view bytes, const CodePage&) {
  std::string_view text = WithoutBlanks(bytes, kBlanks);
  if (text.empty()) return {};
  if (text.find_first_not_of('*') == std::string_view::npos) return {.wrong = "the number was too wide for the field"};
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  if (const auto number = ParseNumber(text)) return {.value = Value(*number)};
  return {.wrong = fmt::format("'{}' is not a number", Shown(text))};
}

Content ReadLogical(std::string_view bytes, const CodePage&) {
  const char c = bytes.front();
  if (std::string_view("TtYy").find(c) != std::string_view::npos) return {.value = Value(true)};
  if (std::string_view("FfNn").find(c) != std::string_view::npos) return {.value = Value(false)};
  if (c == '?' || kBlanks.find(c) != std::string_view::npos) return {};
  return {.wrong = fmt::format("'{}' is neither true nor false", Shown(bytes))};
}

Content ReadDate(std::string_view bytes, const CodePage&) {
  const std::string_view text = WithoutBlanks(bytes, kBlanks);
  if (text.find_first_not_of('0') == std::string_view::npos) return {};
  const bool digits = text.size() == 8 && text.find_first_not_of("0123456789") == std::string_view::npos;
  const auto number = digits ? ParseNumber(text) : std::nullopt;
  if (number) {
    const auto day = static_cast<unsigned>(*number);
    const std::chrono::year_month_day date(std::chrono::year(static_cast<int>(day / 10000)),
                                           std::chrono::month(day / 100 % 100), std::chrono::day(day % 100));
    if (date.ok()) return {.value = Value(text)};
  }
  return {.wrong = fmt::format("'{}' is not a date", Shown(text))};
}

Content ReadReference(std::string_view bytes, std::string_view what) {
  if (WithoutBlanks(bytes, kBlanks).find_first_not_of('0') == std::string_view::npos) return {};
  return {.wrong = fmt::format("{} are not read", what)};
}

Content ReadMemo(std::string_view bytes, const CodePage&) { return ReadReference(bytes, "memos"); }
Content ReadUnknown(std::string_view bytes, const CodePage&) { return ReadReference(bytes, "fields of its type"); }

struct TypeReader {
  char type;
  Content (*read)(std::string_view bytes, const CodePage& code_page);
};

constexpr TypeReader kReaders[] = {
    {'C', ReadText}, {'N', ReadNumber}, {'F', ReadNumber}, {'L', ReadLogical}, {'D', ReadDate}, {'M', ReadMemo},
};

struct Column {
  std::size_t offset;
  std::size_t width;
  Content (*read)(std::string_view bytes, const CodePage& code_page);
};

}  // namespace

struct DbaseTable::Impl {
  explicit Impl(const std::filesystem::path& path) : file(path), head(ReadHead(file)) {
    std::size_t offset = 1;
    for (const auto& field : head.fields) {
      const auto width = static_cast<std::size_t>(field.width);
      const auto* const reader = std::ranges::find(kReaders, field.type, &TypeReader::type);
      columns.emplace(field.name, Column{offset, width, reader == std::end(kReaders) ? ReadUnknown : reader->read});
      offset += width;
    }
  }

  /// Onto the first record from `number` on that is not deleted, or to the end.
  void MoveToLive(std::int64_t number) {
    position = head.record_count + 1;
    while (number <= head.record_count && Record(number).front() == DbaseHead::kDeleted) ++number;
    position = number;
  }

  [[nodiscard]] bool AtEnd() const { return position > head.record_count; }
  void RequireCurrent() const {
    if (AtEnd()) throw RunTimeError(ErrorNumber::kNoCurrentRecord, "No current record.");
  }

  std::string_view Record(std::int64_t number) {
    const auto held = static_cast<std::int64_t>(block.size() / head.record_size);
    if (number < block_first || number >= block_first + held) {
      const auto count = std::min(std::max<std::int64_t>(static_cast<std::int64_t>(kBlockSize / head.record_size), 1),
                                  head.record_count - number + 1);
      const std::size_t size = static_cast<std::size_t>(count) * head.record_size;
      block = file.Read(head.size + static_cast<std::uint64_t>(number - 1) * head.record_size, size);
      block_first = number;
      // Another program has made it shorter since.
      if (block.size() < head.record_size) file.FailToRead(EIO);
    }
    return std::string_view(block).substr(static_cast<std::size_t>(number - block_first) * head.record_size,
                                          head.record_size);
  }

  Value Get(std::string_view field) {
    RequireCurrent();
    const auto found = columns.find(field);
    if (found == columns.end())
      throw RunTimeError(ErrorNumber::kItemNotFound,
                         fmt::format("'{}' has no field '{}'.", file.Path().string(), field));
    const std::string_view record = Record(position);
    if (record.front() != DbaseHead::kLive)
      throw RunTimeError(ErrorNumber::kWrongFormat,
                         fmt::format("'{}' is damaged: record {} begins with neither a blank nor an asterisk.",
                                     file.Path().string(), position));
    const Column& column = found->second;
    Content content = column.read(record.substr(column.offset, column.width), head.code_page);
    if (!content.wrong.empty())
      throw RunTimeError(
          ErrorNumber::kDataConversion,
          fmt::format("'{}', record {}, field '{}': {}.", file.Path().string(), position, field, content.wrong));
    return std::move(content.value);
  }

  InputFile file;
  DbaseHead head;
  std::unordered_map<std::string, Column, NameHash, NameEqual> columns;
  std::string block;
  std::int64_t block_first = 1;
  std::int64_t position = 1;
};

DbaseTable::DbaseTable(const std::filesystem::path& path) : impl_(std::make_unique<Impl>(path)) { MoveFirst(); }
DbaseTable::DbaseTable(DbaseTable&&) noexcept = default;
DbaseTable& DbaseTable::operator=(DbaseTable&&) noexcept = default;
DbaseTable::~DbaseTable() = default;

const std::vector<DbaseField>& DbaseTable::Fields() const { return impl_->head.fields; }
bool DbaseTable::HasField(std::string_view field) const { return impl_->columns.contains(field); }
std::int64_t DbaseTable::RecordCount() const { return impl_->head.record_count; }

bool DbaseTable::AtEnd() const { return impl_->AtEnd(); }
void DbaseTable::MoveFirst() { impl_->MoveToLive(1); }

void DbaseTable::MoveNext() {
  impl_->RequireCurrent();
  impl_->MoveToLive(impl_->position + 1);
}

std::int64_t DbaseTable::Position() const {
  impl_->RequireCurrent();
  return impl_->position;
}

void DbaseTable::MoveTo(std::int64_t position) {
  if (position < 1 || position > impl_->head.record_count || impl_->Record(position).front() == DbaseHead::kDeleted)
    throw RunTimeError(ErrorNumber::kNoCurrentRecord, "No current record.");
  impl_->position = position;
}

Value DbaseTable::Get(std::string_view field) const { return impl_->Get(field); }
bool DbaseTable::IsNull(std::string_view field) const { return Get(field).IsNull(); }
std::string DbaseTable::TextOrEmpty(std::string_view field) const { return Get(field).TextOrEmpty(); }
double DbaseTable::DoubleOrZero(std::string_view field) const { return Get(field).DoubleOrZero(); }
bool DbaseTable::BoolOrFalse(std::string_view field) const { return Get(field).BoolOrFalse(); }

}  // namespace orvex::store
