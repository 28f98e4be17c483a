// Entity lists and symbol tables of the current drawing through the flat layer.
//
// An entity list starts with (-1 . name) (0 . type), then the owner (330), the handle
// (5), and the record's groups with points joined (10 for 10/20/30) and object
// references (330-369, 390-399, 480-481) as entity names. Lists returned here belong
// to the caller, who releases them with qxutRelRb.
#pragma once

#include "qx_types.h"

// The entity's list, or null for an unknown name. Extended data is left out.
ResultBuffer* qxdbEntGet(const EntityName name);
// As qxdbEntGet, followed by group -3 and the extended data of every application whose
// name matches one of the RTSTR patterns in `applications` ("*" for all).
ResultBuffer* qxdbEntGetX(const EntityName name, const ResultBuffer* applications);

// Writes a list back into the record named by its -1 group. RTERROR for a malformed
// list, an erased entity, or an entity on a locked layer.
int qxdbEntMod(const ResultBuffer* list);
// Appends an entity, table record or block definition part to the current space.
// Complex entities and block definitions are held until their SEQEND or ENDBLK;
// a null list drops what is held.
int qxdbEntMake(const ResultBuffer* list);
// As qxdbEntMake; `result` (may be null) receives the name of the finished record,
// or a null name while a complex entity or block definition is still open.
int qxdbEntMakeX(const ResultBuffer* list, EntityName result);

// Erases an entity; a second call brings it back.
int qxdbEntDel(const EntityName name);
// The newest main entity of model space and the layouts.
int qxdbEntLast(EntityName result);
// The first entity (name null), or the entity after `name`: sub-entities follow their
// complex entity, and a block's BLOCK header leads to the block's entities.
int qxdbEntNext(const EntityName name, EntityName result);
// The record with this hexadecimal handle.
int qxdbHandEnt(const wchar_t* handle, EntityName result);
// There is no screen to regenerate: RTNORM for a live entity.
int qxdbEntUpd(const EntityName name);

// Registers an application for extended data; RTERROR when it is registered already.
int qxdbRegApp(const wchar_t* application);
// Bytes of extended data the entity can still take.
int qxdbXdRoom(const EntityName name, long* result);

// Table names: "LAYER", "LTYPE", "STYLE", "BLOCK", "DIMSTYLE", "UCS", "VIEW", "APPID",
// "VPORT"; record names compare without regard to case.
// The record's list, or null. With `setNext` non-zero, qxdbTblNext goes on after it.
ResultBuffer* qxdbTblSearch(const wchar_t* table, const wchar_t* name, int setNext);
// The next record's list, the first one with `rewind` non-zero; null at the end.
ResultBuffer* qxdbTblNext(const wchar_t* table, int rewind);
// The record's name, for qxdbEntGet and qxdbEntMod.
int qxdbTblObjName(const wchar_t* table, const wchar_t* name, EntityName result);
