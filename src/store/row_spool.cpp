#include "store/row_spool.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <system_error>
#include <utility>

#include "store/run_time_error.h"

namespace orvex::store {

RowSpool::RowSpool(std::filesystem::path target, std::size_t values_a_row)
    : target_(std::move(target)), values_a_row_(values_a_row) {
  std::string name = target_.string() + ".rows-XXXXXX";
  const int file = mkostemp(name.data(), O_CLOEXEC);
  if (file < 0) Fail(errno);
  unlink(name.c_str());
  file_.reset(fdopen(file, "w+b"));
  if (!file_) {
    const int cause = errno;
    close(file);
    Fail(cause);
  }
}

void RowSpool::Add(std::span<const Value> row) {
  for (const Value& value : row) {
    const auto kind = value.GetKind();
    Write(&kind, sizeof kind);
    if (kind == Value::Kind::kInteger) {
      const std::int64_t number = value.RawInteger();
      Write(&number, sizeof number);
    } else if (kind == Value::Kind::kReal) {
      const double number = value.RawReal();
      Write(&number, sizeof number);
    } else if (kind == Value::Kind::kText) {
      const std::size_t size = value.RawText().size();
      Write(&size, sizeof size);
      Write(value.RawText().data(), size);
    }
  }
}

void RowSpool::Rewind() {
  if (std::fflush(file_.get()) != 0 || std::fseek(file_.get(), 0, SEEK_SET) != 0) Fail(errno);
}

void RowSpool::Read(std::vector<Value>& row) {
  row.resize(values_a_row_);
  std::string text;
  for (Value& value : row) {
    Value::Kind kind{};
    Read(&kind, sizeof kind);
    value.SetNull();
    if (kind == Value::Kind::kInteger) {
      std::int64_t number = 0;
      Read(&number, sizeof number);
      value.SetInteger(number);
    } else if (kind == Value::Kind::kReal) {
      double number = 0;
      Read(&number, sizeof number);
      value.SetReal(number);
    } else if (kind == Value::Kind::kText) {
      std::size_t size = 0;
      Read(&size, sizeof size);
      text.resize(size);
      Read(text.data(), size);
      value.SetText(text);
    }
  }
}

void RowSpool::Write(const void* bytes, std::size_t size) {
  if (std::fwrite(bytes, 1, size, file_.get()) != size) Fail(errno);
}

void RowSpool::Read(void* bytes, std::size_t size) {
  if (std::fread(bytes, 1, size, file_.get()) != size) Fail(EIO);
}

void RowSpool::Fail(int cause) const {
  throw RunTimeError(ErrorNumber::kDiskFailure, fmt::format("The rows for '{}' cannot be kept on the disk: {}.",
                                                            target_.string(), std::generic_category().message(cause)));
}

}  // namespace orvex::store
