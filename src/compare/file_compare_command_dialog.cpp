#include "compare/file_compare_commands.h"
#include "compare/file_compare_dialog.h"
#include "compare/file_compare_manager.h"
#include "frame/host_interface.h"
#include "frame/resource_scope.h"

void cmdFileCompare() {
  bool compared = false;
  VnFileCompareManager manager;
  {
    ResourceScope resources;
    CFileCompareDlg dialog;
    if (dialog.DoModal() != kQxUiIdOk) return;
    // What counts is what Apply or Reset stored; changes not applied are left out.
    manager.LoadOptions();
    compared = manager.CompareFiles(dialog.OldPath(), dialog.NewPath());
    if (compared && dialog.WantsLog()) manager.SaveLog(dialog.LogPath().c_str());
  }
  if (compared) manager.OpenResultFiles();
  qxedRetVoid();
}
