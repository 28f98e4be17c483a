#include "frame/command_table.h"

#include "cal_command.h"
#include "compare/file_compare_commands.h"
#include "frame/commands/small_commands.h"
#include "frame/unavailable_command.h"

namespace frame {
namespace {

constexpr int kModal = QXRX_CMD_MODAL;
constexpr int kTransparent = QXRX_CMD_TRANSPARENT;
constexpr int kPickSet = QXRX_CMD_USEPICKSET;
constexpr int kPickSetKept = QXRX_CMD_USEPICKSET | QXRX_CMD_REDRAW;
constexpr int kChangeSpace =
    QXRX_CMD_NOBEDIT | QXRX_CMD_NOTILEMODE | QXRX_CMD_NOPERSPECTIVE | QXRX_CMD_USEPICKSET;
static_assert(kPickSetKept == 6 && kChangeSpace == 0x200002A);

// In registration order.
constexpr CommandRow kCommands[] = {
    {L"DIMEX", 6000, kModal, notBuilt<L"DIMEX">},
    {L"DIMIM", 6001, kModal, notBuilt<L"DIMIM">},
    {L"QLDETACHSET", 6002, kModal, notBuilt<L"QLDETACHSET">},
    {L"QLATTACHSET", 6003, kModal, notBuilt<L"QLATTACHSET">},
    {L"DIMREASSOC", 6004, kModal, notBuilt<L"DIMREASSOC">},
    {L"EXTRIM", 6005, kModal, notBuilt<L"EXTRIM">},
    {L"MPEDIT", 6006, kModal, cmdMpEdit},
    {L"SYSVDLG", 6007, kModal, notBuilt<L"SYSVDLG">},
    {L"BREAKLINE", 6008, kModal, notBuilt<L"BREAKLINE">},
    {L"EXOFFSET", 6009, kModal, notBuilt<L"EXOFFSET">},
    {L"COPYM", 6010, kPickSetKept, notBuilt<L"COPYM">},
    {L"EXPLAN", 6011, kModal, notBuilt<L"EXPLAN">},
    {L"XDATA", 6012, kModal, notBuilt<L"XDATA">},
    {L"XDLIST", 6013, kModal, notBuilt<L"XDLIST">},
    {L"TEXTFIT", 6031, kModal, notBuilt<L"TEXTFIT">},
    {L"TXT2MTXT", 6032, kModal, notBuilt<L"TXT2MTXT">},
    {L"TJUST", 6033, kPickSet, notBuilt<L"TJUST">},
    {L"TORIENT", 6034, kModal, notBuilt<L"TORIENT">},
    {L"TCIRCLE", 6035, kModal, notBuilt<L"TCIRCLE">},
    {L"TCOUNT", 6036, kModal, notBuilt<L"TCOUNT">},
    {L"TCASE", 6037, kModal, notBuilt<L"TCASE">},
    {L"CHGTHEI", 6038, kModal, notBuilt<L"CHGTHEI">},
    {L"CURSTYLE", 6039, kModal, notBuilt<L"CURSTYLE">},
    {L"TXTULINE", 6040, kModal, notBuilt<L"TXTULINE">},
    {L"DELULINE", 6041, kModal, notBuilt<L"DELULINE">},
    {L"TEXTMASK", 6042, kModal, notBuilt<L"TEXTMASK">},
    {L"TEXTUNMASK", 6043, kModal, notBuilt<L"TEXTUNMASK">},
    {L"MATHEI", 6044, kModal, notBuilt<L"MATHEI">},
    {L"MTEXP", 6045, kModal, notBuilt<L"MTEXP">},
    {L"TXTALIGN", 6046, kModal, notBuilt<L"TXTALIGN">},
    {L"NCOPY", 6177, kModal, notBuilt<L"NCOPY">},
    {L"BURST", 6047, kPickSetKept, notBuilt<L"BURST">},
    {L"ATTOUT", 6048, kModal, notBuilt<L"ATTOUT">},
    {L"ATTIN", 6049, kModal, notBuilt<L"ATTIN">},
    {L"BSCALE", 6050, kPickSetKept, notBuilt<L"BSCALE">},
    {L"BLOCK?", 6051, kModal, notBuilt<L"BLOCK?">},
    {L"BCOUNT", 6052, kModal, notBuilt<L"BCOUNT">},
    {L"CHGBWID", 6053, kPickSetKept, notBuilt<L"CHGBWID">},
    {L"CHGBANG", 6054, kPickSetKept, notBuilt<L"CHGBANG">},
    {L"CHGBHEI", 6055, kPickSetKept, notBuilt<L"CHGBHEI">},
    {L"CHGBLAY", 6056, kPickSetKept, notBuilt<L"CHGBLAY">},
    {L"CHGBCOL", 6057, kPickSetKept, notBuilt<L"CHGBCOL">},
    {L"EXF", 6058, kModal, notBuilt<L"EXF">},
    {L"EXP1", 6059, kPickSetKept, notBuilt<L"EXP1">},
    {L"EXW", 6060, kModal, notBuilt<L"EXW">},
    {L"EXC", 6061, kModal, notBuilt<L"EXC">},
    {L"EXWP", 6062, kModal, notBuilt<L"EXWP">},
    {L"EXCP", 6063, kModal, notBuilt<L"EXCP">},
    {L"GETSEL", 6064, kModal, notBuilt<L"GETSEL">},
    {L"MKLTYPE", 6065, kModal, notBuilt<L"MKLTYPE">},
    {L"EXSCALE", 6066, kPickSetKept, notBuilt<L"EXSCALE">},
    {L"EXCEL", 6067, kModal, cmdExcel},
    {L"WORD", 6068, kModal, cmdWord},
    {L"ARCSUM", 6069, kModal, cmdArcSum},
    {L"DELDIM", 6070, kModal, notBuilt<L"DELDIM">},
    {L"DIMTXTREV", 6071, kModal, notBuilt<L"DIMTXTREV">},
    {L"DIMASBX", 6072, kModal, notBuilt<L"DIMASBX">},
    {L"DIMTXTCOL", 6073, kModal, notBuilt<L"DIMTXTCOL">},
    {L"QLATTACH", 6074, kModal, cmdQlAttach},
    {L"AREASUM", 6075, kModal, cmdAreaSum},
    {L"DELHATCH", 6076, kPickSet, cmdDelHatch},
    {L"LINESUM", 6077, kModal, cmdLineSum},
    {L"ZVALTO0", 6078, kModal, cmdZValTo0},
    {L"BLOCKSUM", 6079, kModal, notBuilt<L"BLOCKSUM">},
    {L"AI_DIM_TEXTHOME", 6080, kPickSetKept, notBuilt<L"AI_DIM_TEXTHOME">},
    {L"AI_DIM_TEXTCENTER", 6081, kPickSetKept, notBuilt<L"AI_DIM_TEXTCENTER">},
    {L"AI_DIM_TEXTABOVE", 6082, kPickSetKept, notBuilt<L"AI_DIM_TEXTABOVE">},
    {L"DESELECT", 6083, kModal, cmdDeselect},
    {L"CON2DASH", 6084, kModal, cmdCon2Dash},
    {L"CHGLTSCA", 6085, kModal, cmdChgLtSca},
    {L"3DARRAY", 6088, kPickSetKept, notBuilt<L"3DARRAY">},
    {L"AI_TORUS", 6098, kModal, notBuilt<L"AI_TORUS">},
    {L"AI_CONE", 6094, kModal, notBuilt<L"AI_CONE">},
    {L"AI_WEDGE", 6092, kModal, notBuilt<L"AI_WEDGE">},
    {L"AI_SPHERE", 6095, kModal, notBuilt<L"AI_SPHERE">},
    {L"AI_PYRAMID", 6093, kModal, notBuilt<L"AI_PYRAMID">},
    {L"AI_DOME", 6096, kModal, notBuilt<L"AI_DOME">},
    {L"AI_DISH", 6097, kModal, notBuilt<L"AI_DISH">},
    {L"AI_BOX", 6091, kModal, notBuilt<L"AI_BOX">},
    {L"PLT2DWG", 6089, kModal, notBuilt<L"PLT2DWG">},
    {L"LOCKUP", 6350, kModal, notBuilt<L"LOCKUP">},
    {L"UNLOCK", 6351, kModal, notBuilt<L"UNLOCK">},
    {L"3D", 6090, kModal, notBuilt<L"3D">},
    {L"AI_CYLINDER", 6100, kModal, notBuilt<L"AI_CYLINDER">},
    {L"TXTEXP", 6108, kModal, notBuilt<L"TXTEXP">},
    {L"SSX", 6110, kModal, notBuilt<L"SSX">},
    {L"DELDUPL", 6111, kPickSet, notBuilt<L"DELDUPL">},
    {L"ARCCMP", 6112, kModal, notBuilt<L"ARCCMP">},
    {L"ANGDIV", 6113, kModal, notBuilt<L"ANGDIV">},
    {L"JOINL", 6114, kModal, notBuilt<L"JOINL">},
    {L"GATTE", 5999, kModal, notBuilt<L"GATTE">},
    {L"BLOCKEXTRACT", 6165, kModal, notBuilt<L"BLOCKEXTRACT">},
    {L"BROWSER", 6109, kModal, cmdBrowser},
    {L"CHSPACE", 6103, kChangeSpace, notBuilt<L"CHSPACE">},
    {L"GB2BIG5", 6107, kModal, notBuilt<L"GB2BIG5">},
    {L"ISOLATEOBJECTS", 6104, kPickSetKept, notBuilt<L"ISOLATEOBJECTS">},
    {L"HIDEOBJECTS", 6105, kPickSetKept, notBuilt<L"HIDEOBJECTS">},
    {L"UNISOLATEOBJECTS", 6106, kPickSetKept, notBuilt<L"UNISOLATEOBJECTS">},
    {L"GROUPUNNAME", 6086, kPickSetKept, cmdGroupUnname},
    {L"UNGROUP", 6087, kPickSetKept, cmdUngroup},
    {L"LAYCUR1", 6014, kModal, notBuilt<L"LAYCUR1">},
    {L"LAYDEL", 6015, kModal, notBuilt<L"LAYDEL">},
    {L"LAYTHW", 6016, kModal, notBuilt<L"LAYTHW">},
    {L"LAYISO", 6017, kPickSetKept, notBuilt<L"LAYISO">},
    {L"LAYUNISO", 6018, kModal, notBuilt<L"LAYUNISO">},
    {L"LAYLCK", 6019, kModal, notBuilt<L"LAYLCK">},
    {L"LAYULK", 6020, kModal, notBuilt<L"LAYULK">},
    {L"LAYMCH", 6021, kModal, notBuilt<L"LAYMCH">},
    {L"LAYON", 6022, kModal, notBuilt<L"LAYON">},
    {L"LAYOFF", 6023, kModal, notBuilt<L"LAYOFF">},
    {L"LAYCUR", 6024, kPickSetKept, notBuilt<L"LAYCUR">},
    {L"LAYMRG", 6025, kModal, notBuilt<L"LAYMRG">},
    {L"COPYTOLAYER", 6026, kPickSetKept, notBuilt<L"COPYTOLAYER">},
    {L"LAYWALK", 6027, kModal, notBuilt<L"LAYWALK">},
    {L"-LAYDEL", 6028, kModal, notBuilt<L"-LAYDEL">},
    {L"-LAYMCH", 6029, kModal, notBuilt<L"-LAYMCH">},
    {L"-LAYMRG", 6030, kModal, notBuilt<L"-LAYMRG">},
    {L"FCMP", 6101, kModal, cmdFileCompare},
    {L"-FCMP", 6102, kModal, cmdFileCompareCommandLine},
    {L"CAL", 6121, kTransparent, cmdCal},
    {L"GEOUT", 6200, kTransparent, notBuilt<L"GEOUT">},
    {L"SCALELISTEDIT", 6321, kModal, notBuilt<L"SCALELISTEDIT">},
};
static_assert(std::size(kCommands) == 122);

}  // namespace

std::span<const CommandRow> commandTable() {
  return kCommands;
}

QxRxFunctionPtr handlerOf(const wchar_t* globalName) {
  if (!globalName) return nullptr;
  for (const CommandRow& row : kCommands) {
    if (std::wcscmp(row.globalName, globalName) == 0) return row.handler;
  }
  return nullptr;
}

}  // namespace frame
