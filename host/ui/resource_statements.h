// Readers of the resource statements with bodies: a dialog template and a menu. Each
// starts behind the statement's type word and ends behind its closing END.
#pragma once

#include "ui/resource_module.h"
#include "ui/resource_script_cursor.h"

namespace korva::ui {

bool readDialogStatement(ResourceScriptCursor& cursor, DialogTemplate& dialog);
bool readMenuStatement(ResourceScriptCursor& cursor, MenuTemplate& menu);

// Control ids: 0-65535, with -1 (IDC_STATIC) standing for 65535.
bool readControlId(ResourceScriptCursor& cursor, unsigned& id, const char* what);

}  // namespace korva::ui
