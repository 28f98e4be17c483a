// The families of host commands; registerHostCommands() calls each.
#pragma once

namespace korva::cmd {

void registerDrawingCommands();  // LINE, CIRCLE, ARC, PLINE, POINT, -TEXT, ERASE, COPY, MOVE,
                                 // UCS, ZOOM, REDRAW, REDRAWALL, REGEN, LIST, AREA, ID, DIST,
                                 // SETVAR
void registerTableCommands();    // -LAYER, -LINETYPE
void registerFileCommands();     // NEW, OPEN, SAVE, SAVEAS, QSAVE
void registerUndoCommands();     // UNDO, U, and the undo journal's command listener
void registerSelectCommands();   // SELECT
void registerModuleCommands();   // APPLOAD, UNLOAD
void registerEditCommands();     // PEDIT, EXPLODE, RECTANG
void registerModifyCommands();   // OFFSET, TRIM, FILLET
void registerBlockCommands();    // BLOCK, INSERT, -INSERT, -PURGE, PURGE, ORTHO, SNAP, GRID

}  // namespace korva::cmd
