#pragma once

#include <memory>

#include "windows/model_dialog.h"

/// One view a window, each in a file of its window's name; those of the reference editors in `record_editor_view.cpp`.
/// They open their model themselves.
namespace orvex::windows {

std::unique_ptr<ModelDialog> MakeFrmstart(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmNotice(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmoverview(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmqmenu(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmChange(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmtankdata(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmclientdata(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmtankrep(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmmonth(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmreptyp(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmprintrep(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmrepselect(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmeditrec(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmrecdelete(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmchemical(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmMet(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmFitting(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmRimSeal(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmDeckSeam(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmProfile(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmImport(const ViewPlace& place);
// What an export asks for.
std::unique_ptr<ModelDialog> MakeFrmexformat(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmexname(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmexptbl(const ViewPlace& place);
// Of the tank that is open in the editor.
std::unique_ptr<ModelDialog> MakeFrmTank(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmCopyData(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmcomponent(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmspecpro(const ViewPlace& place);
std::unique_ptr<ModelDialog> MakeFrmrecfit(const ViewPlace& place);

}  // namespace orvex::windows
