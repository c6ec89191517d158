#pragma once

#include <stdexcept>
#include <string>

namespace orvex::store {

/// The run-time failures that the program tells apart, under the numbers that its error reports show.
enum class ErrorNumber : int {
  kNone = 0,                  ///< a routine was left because one that it called had failed and told so
  kInvalidProcedureCall = 5,  ///< a logarithm, root or power that has no value
  kOverflow = 6,              ///< a number outside the range of its type, an infinite result
  kDivisionByZero = 11,
  kTypeMismatch = 13,  ///< text where a number is needed
  kInvalidUseOfNull = 94,
  kAlreadyExists = 3010,
  kObjectNotFound = 3011,  ///< a table that the database does not hold
  kNoEditPending = 3020,   ///< Update without AddNew or Edit
  kNoCurrentRecord = 3021,
  kDuplicateKey = 3022,  ///< a unique index would hold a key twice
  kFileNotFound = 3024,
  kReadOnly = 3027,
  kInvalidPath = 3044,
  kRecordTooLarge = 3047,  ///< for the file format it is written in
  kDamagedFile = 3049,
  kNoSuchField = 3061,  ///< a query names a field that its tables do not hold
  kQuerySyntax = 3075,
  kInvalidName = 3125,  ///< of a file, table or sheet, that its format does not allow
  kTextTooLong = 3163,  ///< a text wider than its field
  kRecordDeleted = 3167,
  kUnknownFormat = 3170,  ///< a query target in a file format that is not at hand
  kTooManyFields = 3190,  ///< for the file format
  kFileLocked = 3260,
  kWrongFormat = 3274,  ///< a file of another program that is not of the format it is taken for, or is damaged
  kOperationNotSupported = 3251,
  kItemNotFound = 3265,  ///< a field name that the record set does not hold
  kNotADatabase = 3343,
  kObjectClosed = 3420,     ///< a record set that was closed or handed on
  kDataConversion = 3421,   ///< a value that the field's type cannot hold
  kSheetFull = 3434,        ///< a sheet of a workbook holds as many rows as it can
  kDiskFailure = 3043,      ///< reading or writing the disk failed, or it is full
  kTransactionLost = 3034,  ///< the store had to undo the transaction that a command was writing in
  kDialogCancelled = 32755,
};

/// The one error type: a number, and a description for the person that names the file, table or field.
class RunTimeError : public std::runtime_error {
 public:
  RunTimeError(ErrorNumber number, const std::string& description) : std::runtime_error(description), number_(number) {}

  [[nodiscard]] ErrorNumber Number() const { return number_; }
  [[nodiscard]] std::string Description() const { return what(); }

 private:
  ErrorNumber number_;
};

}  // namespace orvex::store
