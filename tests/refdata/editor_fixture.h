#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "refdata/record_editor.h"
#include "store/database.h"
#include "support/delivered_databases.h"
#include "support/query_rows.h"
#include "support/scripted_host.h"
#include "support/test_databases.h"

namespace orvex::test {

/// A reference editor over the delivered reference database. A question that a test does not expect fails it.
class EditorTest : public testing::Test {
 protected:
  EditorTest() { OpenDelivered(folder_, session_); }

  void Open(refdata::RecordEditor (*open)(shell::Session&)) { form_ = open(session_); }

  // What a person does.
  void Pick(const std::string& control, const std::string& item) {
    refdata::At(form_, control).box.text = item;
    refdata::PickRecord(session_, form_, control);
  }
  void Type(const std::string& control, const std::string& text) {
    refdata::At(form_, control).box.text = text;
    refdata::TypeText(session_, form_, control);
    refdata::LeaveEntry(session_, form_, control);
  }
  void Choose(const std::string& control, const std::string& item) {
    refdata::At(form_, control).box.text = item;
    refdata::ChooseItem(session_, form_, control);
    refdata::LeaveEntry(session_, form_, control);
  }
  void Add() { refdata::ClickAddNew(session_, form_); }
  /// @param another the answer to "Add Another Record?", which only a record that was added brings
  void SaveAdded(shell::Answer another = shell::Answer::kNo) {
    host_.ExpectMessage("Add Another Record?", "Add New?", shell::Buttons::kYesNo, shell::Icon::kNone, another);
    refdata::ClickSave(session_, form_);
  }
  void Save() { refdata::ClickSave(session_, form_); }
  void Delete(shell::Answer answer = shell::Answer::kOk) {
    host_.ExpectMessage("Are you sure you want to delete this record?", "Delete?", shell::Buttons::kOkCancel,
                        shell::Icon::kNone, answer);
    refdata::ClickDelete(session_, form_);
  }

  /// A message that can only be acknowledged.
  void ExpectTold(const std::string& text) {
    host_.ExpectMessage(text, "ORVEX", shell::Buttons::kOk, shell::Icon::kNone);
  }

  [[nodiscard]] std::string Shown(const std::string& control) const { return refdata::At(form_, control).box.text; }
  [[nodiscard]] const std::vector<std::string>& Items(const std::string& control) const {
    return refdata::At(form_, control).box.items;
  }
  [[nodiscard]] Rows Query(const std::string& sql, std::initializer_list<std::string_view> fields) {
    return QueryRows(*session_.ReferenceDb, sql, fields);
  }

  TemporaryFolder folder_;
  ScriptedHost host_;
  shell::Session session_{host_};
  refdata::RecordEditor form_{};
};

}  // namespace orvex::test
