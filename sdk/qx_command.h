// Commands: registering them with the command stack, and running host commands from a
// running command.
#pragma once

#include "qx_db_core.h"
#include "qx_types.h"

// Command flags, handed to the host unchanged.
constexpr int QXRX_CMD_MODAL = 0;            // can't run while another command is active
constexpr int QXRX_CMD_TRANSPARENT = 1;      // may run while another command waits for input
constexpr int QXRX_CMD_USEPICKSET = 2;       // the pick-first set stays available to it
constexpr int QXRX_CMD_REDRAW = 4;           // the pick-first set is kept across the command
constexpr int QXRX_CMD_NOPERSPECTIVE = 8;    // refused in a perspective view
constexpr int QXRX_CMD_NOTILEMODE = 0x20;    // refused while TILEMODE is 1
constexpr int QXRX_CMD_NOBEDIT = 0x2000000;  // refused in the block editor

using QxRxFunctionPtr = void (*)();

class QxEdUIContext;
class QxEdCommand;

// The host's command stack, registered in qxrxSysRegistry() as "QXAD_REGISTERED_COMMANDS".
class QxEdCommandStack : public QxRxObject {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxEdCommandStack)
  // Registers a command in a group. eDuplicateKey when the group already has the global
  // name; eInvalidInput for a null or empty global name or a null handler.
  virtual Qxad::ErrorStatus addCommand(const wchar_t* groupName, const wchar_t* globalName,
                                       const wchar_t* localName, int flags, QxRxFunctionPtr handler,
                                       QxEdUIContext* uiContext = nullptr, int functionCode = -1,
                                       void* resourceHandle = nullptr,
                                       QxEdCommand** commandOut = nullptr) = 0;
  // eKeyNotFound when the group has no such command.
  virtual Qxad::ErrorStatus removeCmd(const wchar_t* groupName, const wchar_t* globalName) = 0;
  // Removes every command of the group; eKeyNotFound when there is no such group.
  virtual Qxad::ErrorStatus removeGroup(const wchar_t* groupName) = 0;
};

// Runs host commands as if typed: pairs of a value type and a value, ended by 0 or
// RTNONE. RTSTR takes const wchar_t* ("" is Enter, "\\" pauses for the user), RTREAL and
// RTANG double, RTSHORT int, RTLONG int32, RTPOINT and RT3DPOINT const double*, RTENAME
// and RTPICKS an EntityName or SelectionSet, RTLB and RTLE no value (a list of an
// entity and a point is a pick at that point). Returns after the tokens are consumed; a
// host command still waiting takes the next qxedCommand's tokens, or the user's input
// once the calling command has ended. RTNORM, RTCAN when a host command was cancelled,
// RTERROR when a token was refused or a command is unknown.
int qxedCommand(int type, ...);
// The same with a ready-made list.
int qxedCmd(const ResultBuffer* list);
