#pragma once

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "refdata/frmprofile.h"
#include "store/database.h"
#include "support/query_rows.h"
#include "support/scripted_host.h"
#include "support/test_databases.h"

namespace orvex::test {

/// The editor of profiles over the delivered reference database. A question that a test does not expect fails it.
class ProfileTest : public testing::Test {
 protected:
  using Answer = shell::Answer;
  using Texts = std::vector<std::string>;
  /// A component's chemical and share.
  using Parts = std::vector<std::pair<std::string, std::string>>;

  ProfileTest() {
    const auto reference = folder_.Path() / "tankdata.mdb";
    std::filesystem::copy_file(ORVEX_REFERENCE_DATABASE, reference);
    session_.TankPath = reference.string();
    session_.ReferenceDb = store::Database::Open(reference);
    Open();
  }

  void Open() {
    form_ = {};
    form_ = refdata::OpenFrmProfile(session_);
  }

  /// The text of an entry.
  std::string& Text(std::string_view control) {
    auto& form = form_;
    for (const auto& [name, list] : {std::pair("dbcboProfName", &form.dbcboProfName),
                                     {"cboType", &form.cboType},
                                     {"dbcboChemName", &form.dbcboChemName},
                                     {"dbcboCAS", &form.dbcboCAS}}) {
      if (name == control) return list->text;
    }
    for (const auto& [name, box] : {std::pair("txtMOLWT", &form.txtMOLWT),
                                    {"txtVP_MOLWT", &form.txtVP_MOLWT},
                                    {"txtWT_FRACT", &form.txtWT_FRACT},
                                    {"txtVP_FRACT", &form.txtVP_FRACT},
                                    {"txtWEIGHT", &form.txtWEIGHT}}) {
      if (name == control) return box->text;
    }
    throw std::logic_error("no such entry");
  }

  // What a person does.
  void Pick(const std::string& profile) {
    form_.dbcboProfName.text = profile;
    refdata::PickProfile(session_, form_);
  }
  void Type(std::string_view control, const std::string& text) {
    Text(control) = text;
    refdata::TypeText(session_, form_, control);
    refdata::LeaveEntry(session_, form_, control);
  }
  void Choose(std::string_view control, const std::string& item) {
    Text(control) = item;
    refdata::ChooseItem(session_, form_, control);
    refdata::LeaveEntry(session_, form_, control);
  }
  void Next() { refdata::ClickNextComp(session_, form_); }
  void Previous() { refdata::ClickPrevComp(session_, form_); }
  void AddComponent() { refdata::ClickAdd(session_, form_); }
  void Switch() { refdata::ClickRelLiq(session_, form_); }
  void AddNew() { refdata::ClickAddNew(session_, form_); }
  void Save() { refdata::ClickSave(session_, form_); }
  void Close() { refdata::ClickClose(session_, form_); }

  /// The entry of the share that is asked for.
  [[nodiscard]] std::string_view ShareEntry() const {
    if (form_.txtWT_FRACT.visible) return "txtWT_FRACT";
    return form_.txtVP_FRACT.visible ? "txtVP_FRACT" : "txtWEIGHT";
  }
  void Fill(const std::string& chemical, const std::string& share) {
    Choose("dbcboChemName", chemical);
    Type(ShareEntry(), share);
  }
  /// Fills a profile that has nothing yet.
  void FillNew(const std::string& name, const std::string& type, const Parts& parts, bool relative = false) {
    Type("dbcboProfName", name);
    Choose("cboType", type);
    if (relative) Switch();
    bool first = true;
    for (const auto& [chemical, share] : parts) {
      if (!std::exchange(first, false)) AddComponent();
      Fill(chemical, share);
    }
  }
  /// @param another the answer to "Add Another Profile?", which only a new profile brings
  void SaveNew(Answer another = Answer::kNo) {
    ExpectAnother(another);
    Save();
  }
  void AddSaved(const std::string& name, const std::string& type, const Parts& parts, bool relative = false) {
    AddNew();
    FillNew(name, type, parts, relative);
    SaveNew();
  }

  // What the person is told and asked, with title, buttons and icon.
  void ExpectTold(const std::string& text) {
    host_.ExpectMessage(text, "ORVEX", shell::Buttons::kOk, shell::Icon::kNone);
  }
  /// With the focus led to an entry.
  void ExpectRefused(const std::string& text) {
    host_.ExpectMessage(text, "ORVEX", shell::Buttons::kOk, shell::Icon::kExclamation);
  }
  void ExpectAnother(Answer answer) {
    host_.ExpectMessage("Add Another Profile?", "Add New?", shell::Buttons::kYesNo, shell::Icon::kNone, answer);
  }
  void ExpectSaveQuestion(const std::string& question, Answer answer) {
    host_.ExpectMessage(question, "Save?", shell::Buttons::kYesNo, shell::Icon::kNone, answer);
  }
  void ExpectDeleteQuestion(const std::string& question, Answer answer) {
    host_.ExpectMessage(question, "Delete?", shell::Buttons::kOkCancel, shell::Icon::kNone, answer);
  }

  [[nodiscard]] const std::string& Counter() const { return form_.lblComponentXofX.text; }
  [[nodiscard]] Rows Query(const std::string& sql, std::initializer_list<std::string_view> fields) {
    return QueryRows(*session_.ReferenceDb, sql, fields);
  }
  [[nodiscard]] Rows Profiles() {
    return Query("SELECT * FROM [profile names] WHERE User = True", {"Profile Name", "TYPE"});
  }
  /// The stored components of a profile: name and shares.
  [[nodiscard]] Rows Stored(const std::string& profile) {
    auto row = session_.ReferenceDb->OpenAt("profile names", "Profile Name", {profile});
    return Query(fmt::format("SELECT * FROM [profile components] WHERE [spec id] = {}", row.Long("SPEC ID")),
                 {"NAME", "WT_FRACT", "VP_FRACT", "WEIGHT"});
  }

  TemporaryFolder folder_;
  ScriptedHost host_;
  shell::Session session_{host_};
  refdata::FrmProfile form_;
};

}  // namespace orvex::test
