#include "windows/window_table.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "entry/frmcomponent.h"
#include "entry/frmcopydata.h"
#include "entry/frmeditrec.h"
#include "entry/frmrecdelete.h"
#include "entry/frmrecfit.h"
#include "entry/frmspecpro.h"
#include "entry/frmtank_text.h"
#include "exchange/frmimport.h"
#include "refdata/frmchemical.h"
#include "refdata/frmdeckseam.h"
#include "refdata/frmfitting.h"
#include "refdata/frmmet.h"
#include "refdata/frmprofile.h"
#include "refdata/frmrimseal.h"
#include "reports/frmexformat.h"
#include "reports/frmexname.h"
#include "reports/frmexptbl.h"
#include "reports/frmmonth.h"
#include "reports/frmprintrep.h"
#include "reports/frmrepselect.h"
#include "reports/frmreptyp.h"
#include "reports/frmtankrep.h"
#include "shell/frmchange.h"
#include "shell/frmclientdata.h"
#include "shell/frmnotice.h"
#include "shell/frmoverview.h"
#include "shell/frmqmenu.h"
#include "shell/frmstart.h"
#include "shell/frmtankdata.h"
#include "windows/views.h"

namespace orvex::windows {
namespace {

constexpr WindowEntry kWindows[] = {
    {shell::kFrmstartText, MakeFrmstart},
    {shell::kFrmNoticeText, MakeFrmNotice},
    {shell::kFrmoverviewText, MakeFrmoverview},
    {shell::kFrmqmenuText, MakeFrmqmenu},
    {shell::kFrmChangeText, MakeFrmChange},
    {shell::kFrmtankdataText, MakeFrmtankdata},
    {shell::kFrmclientdataText, MakeFrmclientdata},
    {reports::kFrmtankrepText, MakeFrmtankrep},
    {reports::kFrmmonthText, MakeFrmmonth},
    {reports::kFrmreptypText, MakeFrmreptyp},
    {reports::kFrmrepselectText, MakeFrmrepselect},
    {reports::kFrmprintrepText, MakeFrmprintrep},
    {reports::kFrmexformatText, MakeFrmexformat},
    {reports::kFrmexnameText, MakeFrmexname},
    {reports::kFrmexptblText, MakeFrmexptbl},
    {exchange::kFrmImportText, MakeFrmImport},
    {entry::kFrmeditrecText, MakeFrmeditrec},
    {entry::kFrmrecdeleteText, MakeFrmrecdelete},
    {refdata::kFrmchemicalText, MakeFrmchemical},
    {refdata::kFrmMetText, MakeFrmMet},
    {refdata::kFrmFittingText, MakeFrmFitting},
    {refdata::kFrmRimSealText, MakeFrmRimSeal},
    {refdata::kFrmDeckSeamText, MakeFrmDeckSeam},
    {refdata::kFrmProfileText, MakeFrmProfile},
    {entry::kFrmTankText, MakeFrmTank, true},
    {entry::kFrmCopyDataText, MakeFrmCopyData, true},
    {entry::kFrmcomponentText, MakeFrmcomponent, true},
    {entry::kFrmspecproText, MakeFrmspecpro, true},
    {entry::kFrmrecfitText, MakeFrmrecfit, true},
};

}  // namespace

std::span<const WindowEntry> WindowTable() { return kWindows; }

const WindowEntry& FindWindow(std::string_view name) {
  const auto* found =
      std::ranges::find_if(kWindows, [&](const WindowEntry& window) { return window.text.name == name; });
  if (found == std::end(kWindows)) throw std::logic_error("There is no window " + std::string(name) + ".");
  return *found;
}

}  // namespace orvex::windows
