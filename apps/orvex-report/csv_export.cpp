#include "orvex-report/csv_export.h"

#include <utility>

#include "store/csv_cell.h"
#include "store/file_replacement.h"

namespace orvex::report_app {

void WriteEmissionCsv(store::Database& client, const std::vector<ChosenTank>& tanks,
                      const std::filesystem::path& path) {
  store::FileReplacement file(path);
  store::Transaction view(client, store::Transaction::Purpose::kRead);
  std::vector<store::CsvCell> cells;
  for (auto& field : client.Fields("emission")) cells.emplace_back(std::move(field.name));
  file.Write(store::CsvLine(cells));
  for (const auto& tank : tanks) {
    for (auto rows = client.OpenMatching("emission", "COMPID", {tank.id}); !rows.AtEnd(); rows.MoveNext()) {
      for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = store::ToCell(rows.Get(static_cast<int>(i)));
      file.Write(store::CsvLine(cells));
    }
  }
  view.Commit();
  file.Commit();
}

}  // namespace orvex::report_app
