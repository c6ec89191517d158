#include "windows/keyboard_walk.h"

#include <fmt/format.h>

#include "emission/run_report.h"
#include "reports/detail_report.h"
#include "shell/periods.h"
#include "shell/session.h"
#include "store/field_table.h"
#include "support/file_content.h"
#include "support/scripted_host.h"
#include "windows/desktop_program.h"

namespace orvex::test {
namespace {

namespace fs = std::filesystem;

const QString kMain = "MDIForm1";
const QString kEditor = "frmTank";
constexpr const char* kDescription = "Entered without a mouse";
constexpr const char* kCompany = "Lakeside Chemical Works";
constexpr int kDifferencesTold = 10;

}  // namespace

KeyboardWalk::KeyboardWalk() { fs::create_directories(ApplicationFolder()); }

void KeyboardWalk::ComeToQuickMenu() {
  typist_.At("frmstart");
  typist_.Keys({"Esc"});
  typist_.At("frmNotice");
  typist_.Keys({"Return"});
  typist_.At("frmqmenu");
}

void KeyboardWalk::ComeToMenus() {
  ComeToQuickMenu();
  typist_.Keys({"Esc"});
  typist_.At(kMain);
}

void KeyboardWalk::NewByQuickMenu(const QString& tank_type) {
  ComeToQuickMenu();
  typist_.Row("lstTankTypes", tank_type);
  typist_.Keys({"Return"});
  typist_.At(kEditor);
}

void KeyboardWalk::NewByMenus(const QString& type_key) {
  ComeToMenus();
  typist_.Keys({"Alt+D", "T", "N", type_key});
  typist_.At(kEditor);
}

void KeyboardWalk::Identify(const QString& user_id, const QString& city, const QString& state) {
  typist_.ExpectFocus("txtUserID");
  typist_.Type(user_id);
  typist_.Fill("txtDesc", kDescription);
  typist_.Fill("txtCompany", kCompany);
  typist_.Fill("txtCity", city);
  typist_.Fill("txtState", state);
}

void KeyboardWalk::ChooseCity(const QString& part, const QString& city) {
  typist_.Keys({"Alt+T"});
  typist_.ExpectFocus("dbcboCity");
  typist_.Find("dbcboCity", part, city);
}

void KeyboardWalk::ChooseKind(const QString& category, const QString& option) {
  typist_.Keys({"Alt+Q"});
  typist_.ExpectFocus("cboChemCat");
  typist_.Arrow("cboChemCat", category);
  typist_.Arrow("cboSingleMultiple", option.isEmpty() ? "Single" : "Multiple");
  if (!option.isEmpty()) typist_.Open("cboSpecOpt", option);
}

void KeyboardWalk::UseAllMonths(const QString& total) {
  typist_.Keys({"Alt+U"});
  typist_.ExpectFocus("chkJAN");
  for (const auto& month : shell::kMonths) typist_.Tick("chk" + QString::fromLatin1(month.suffix.data()));
  typist_.Keys({"Alt+D", "Alt+F"});
  typist_.Read("txtTotalMonths", total);
}

void KeyboardWalk::CopyProfile(const QString& profile) {
  typist_.Keys({"Alt+O"});
  typist_.At("Frmspecpro");
  typist_.Row("lstProfiles", profile);
  typist_.Keys({"Return"});
  typist_.At(kEditor);
}

void KeyboardWalk::RunDetailReport() {
  typist_.At(kEditor);
  typist_.Keys({"Alt+R"});
  typist_.At("Frmreptyp");
  typist_.Arrow("cboRepTime", "Annual");
  typist_.Arrow("cboRepType", "Detail");
  typist_.Keys({"Return"});
  typist_.At("frmprintrep");
  typist_.Keys({"Return"});
  typist_.Reply("Please set your Page Setup to Landscape before printing these reports.", "Return");
  typist_.Keys({"Esc"});
  typist_.At("Frmreptyp");
  typist_.Keys({"Esc"});
  typist_.At(kEditor);
}

void KeyboardWalk::CloseEditor(const QString& answer) {
  typist_.At(kEditor);
  typist_.Keys({"Alt+L"});
  typist_.Reply("Save Changes?", answer);
}

void KeyboardWalk::Exit() {
  typist_.At(kMain);
  typist_.Keys({"Alt+F", "E"});
  typist_.Reply("Do you want to backup your data now?", "Alt+N");
}

void KeyboardWalk::Run() {
  const windows::ProgramPlaces places{ApplicationFolder(), folder_.Path() / "settings", ORVEX_PROGRAM};
  EXPECT_EQ(windows::RunDesktopProgram(places), 0);
  EXPECT_TRUE(typist_.IsDone());
}

std::string KeyboardWalk::Report() const { return FileContent(ApplicationFolder() / "summarydata.xml"); }

std::string KeyboardWalk::ReportOfRows(const std::string& user_id,
                                       const std::function<void(store::Database& client)>& fill) const {
  const auto path = folder_.Path() / "rows.mdb";
  fill(*store::Database::Create(path, store::ClientTables()));
  return ReportOf(path, user_id);
}

std::string KeyboardWalk::ReportOfSample(const std::string& user_id,
                                         const std::function<void(store::Database& client)>& change) const {
  const auto path = folder_.Path() / "sample.mdb";
  fs::copy_file(ORVEX_SAMPLE_DATABASE, path);
  change(*store::Database::Open(path));
  return ReportOf(path, user_id);
}

std::string KeyboardWalk::ReportOf(const fs::path& client, const std::string& user_id) {
  ScriptedHost host;
  shell::Session session(host);
  session.ClientDb = store::Database::Open(client);
  session.ReferenceDb = store::Database::Open(ORVEX_REFERENCE_DATABASE, store::OpenMode::kReadOnly);
  session.application_folder = client.parent_path();
  session.ReportType = "Detail";
  session.ReportTime = shell::kAnnual;
  session.TankList = {user_id};
  emission::RunReport(session);
  EXPECT_EQ(session.PrintMode, "Report");
  reports::DetailReport(session);
  return FileContent(client.parent_path() / "summarydata.xml");
}

void ExpectSameReport(const std::string& entered, const std::string& computed) {
  ASSERT_FALSE(entered.empty());
  const auto lines = QString::fromStdString(entered).split('\n'), others = QString::fromStdString(computed).split('\n');
  EXPECT_EQ(lines.size(), others.size());
  int told = 0;
  for (qsizetype i = 0; i < qMin(lines.size(), others.size()) && told < kDifferencesTold; ++i) {
    if (lines[i] == others[i]) continue;
    ADD_FAILURE() << "entered: " << lines[i].toStdString() << "\ncomputed: " << others[i].toStdString();
    ++told;
  }
}

void SetIdentity(store::Database& client, const char* user_id, const char* city, const char* state) {
  auto tanks = client.OpenTable("tank");
  tanks.Edit();
  tanks.Set("USER ID", user_id);
  tanks.Set("DESC", kDescription);
  tanks.Set("COMPANY", kCompany);
  tanks.Set("CITY", city);
  tanks.Set("STATE", state);
  tanks.Update();
}

void AddProfile(store::Database& client, int profile) {
  const auto reference = store::Database::Open(ORVEX_REFERENCE_DATABASE, store::OpenMode::kReadOnly);
  auto rows = reference->OpenQuery(fmt::format("SELECT * FROM [profile components] WHERE [SPEC ID] = {}", profile));
  for (int component = 1; !rows.AtEnd(); rows.MoveNext(), ++component) {
    AddRow(client, "components",
           {{"ID", 1},
            {"MIX ID", 1},
            {"COMP ID", component},
            {"NAME", rows.Get("NAME")},
            {"CAS", rows.Get("CAS")},
            {"WT_FRACT", rows.Get("WT_FRACT")},
            {"VP_FRACT", rows.Get("VP_FRACT")},
            {"WEIGHT", rows.Get("WEIGHT")},
            {"MOLWT", rows.Get("MOLWT")},
            {"VP_MOLWT", rows.Get("VP_MOLWT")}});
  }
}

void AddMixtureOfMonths(store::Database& client, std::size_t first, std::size_t last, double gallons_a_month,
                        FieldValues fields) {
  auto mixtures = client.OpenTable("mixtures");
  mixtures.AddNew();
  for (const auto& [name, value] : fields) mixtures.Set(name, value);
  for (std::size_t month = first; month <= last; ++month) {
    mixtures.Set(shell::kMonths[month].name, true);
    mixtures.Set(shell::kMonths[month].throughput, gallons_a_month);
  }
  mixtures.Update();
}

}  // namespace orvex::test
