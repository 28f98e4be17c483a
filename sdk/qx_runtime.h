// Modules and their services: the entry point messages, the system registry, services,
// the dynamic linker, module loading, documents, and the crash recorder.
#pragma once

#include <cstddef>

#include "qx_db_core.h"

class QxDbDatabase;

namespace QxRx {
// Messages to a module's qxrxEntryPoint(message, packet).
enum AppMsgCode : int {
  kNullMsg = 0,
  kInitAppMsg = 1,  // packet: the application pointer (the module's id)
  kUnloadAppMsg = 2,
  kLoadDwgMsg = 3,  // once per open drawing
  kUnloadDwgMsg = 4,
  kInvkSubrMsg = 5,  // a LISP call of a function the module defined
  kCfgMsg = 6,
  kEndMsg = 7,
  kQuitMsg = 8,  // the program ends
  kSaveMsg = 9,
  kDependencyMsg = 10,  // packet: the dependency key
  kNoDependencyMsg = 11,
};
enum AppRetCode : int { kRetOK = 0, kRetError = 3 };
}  // namespace QxRx

// The entry point every module exports.
extern "C" {
using QxRxEntryPointFunction = int (*)(int message, void* packet);
}

// A dictionary of named objects. Keys are compared without regard to case.
class QxRxDictionary : public QxRxObject {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxRxDictionary)
  QxRxDictionary();
  ~QxRxDictionary() override;
  QxRxObject* at(const wchar_t* key) const;
  // Stores object under key and returns what was there before (the caller owns it).
  QxRxObject* atPut(const wchar_t* key, QxRxObject* object);
  // Takes the entry out and returns it (the caller owns it); null when absent.
  QxRxObject* remove(const wchar_t* key);
  bool has(const wchar_t* key) const;
  std::size_t numEntries() const;

 private:
  struct Entries;
  Entries* entries_;
};

// The root of the system registry: "QXAD_REGISTERED_COMMANDS" (QxEdCommandStack),
// "DynamicLinker" (QxRxDynamicLinker), "ServiceDictionary" (QxRxDictionary).
QxRxDictionary* qxrxSysRegistry();

// A registered service.
class QxRxService : public QxRxObject {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxRxService)
};

// Registers a service in "ServiceDictionary" (returning the existing one when the name
// is taken) and gives it back.
QxRxObject* qxrxRegisterService(const wchar_t* serviceName);
bool qxrxServiceIsRegistered(const wchar_t* serviceName);

// Loading and unloading of modules.
class QxRxDynamicLinker : public QxRxObject {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxRxDynamicLinker)
  // A locked module can't be unloaded on demand; modules start locked.
  virtual bool unlockApplication(void* appId) const = 0;
  virtual bool lockApplication(void* appId) const = 0;
  virtual bool isApplicationLocked(const wchar_t* moduleName) const = 0;
  // Loads a module (a path, or a name found on the support path) and sends it message 1
  // and message 3 for each open drawing. false when it can't be loaded or refused.
  virtual bool loadModule(const wchar_t* moduleName, bool printIt = false,
                          bool asCommand = false) = 0;
  // Sends messages 2 and unloads; false when not loaded or locked.
  virtual bool unloadModule(const wchar_t* moduleName, bool asCommand = false) = 0;
};

// Declares that the module with this id works with several open documents.
bool qxrxRegisterAppMDIAware(void* appId);
bool qxrxRegisterAppNotMDIAware(void* appId);
// By the module's file name with or without folder and extension.
bool qxrxAppIsLoaded(const wchar_t* moduleName);
bool qxrxLoadApp(const wchar_t* moduleName, bool asCommand = false);
bool qxrxUnloadApp(const wchar_t* moduleName, bool asCommand = false);
// RTNORM when the module was loaded, RTERROR otherwise.
int qxedQrxLoad(const wchar_t* moduleName);
int qxedQrxUnload(const wchar_t* moduleName);
// The version of the host's programming interface.
extern "C" int qxrxGetApiVersion();

// Open drawings as documents.
class QxApDocument {
 public:
  virtual ~QxApDocument() = default;
  virtual QxDbDatabase* database() const = 0;
  // The drawing's path; "" for a new drawing not yet saved.
  virtual const wchar_t* fileName() const = 0;
  virtual const wchar_t* docTitle() const = 0;
};

class QxApDocManager {
 public:
  virtual ~QxApDocManager() = default;
  virtual QxApDocument* curDocument() const = 0;
  virtual QxApDocument* mdiActiveDocument() const = 0;
  virtual int documentCount() const = 0;
  virtual QxApDocument* documentAt(int index) const = 0;
  virtual Qxad::ErrorStatus setCurDocument(QxApDocument* document, bool activate = true) = 0;
  // True while no document can be opened: a command is running, and documents open
  // only between commands, in the application's context.
  virtual bool isDocumentOpeningBlocked() const = 0;
  // Opens a drawing as a further document and says so on the command line; the current
  // one stays current unless makeCurrent is set.
  virtual Qxad::ErrorStatus appContextOpenDocument(const wchar_t* path,
                                                   bool makeCurrent = false) = 0;
  virtual Qxad::ErrorStatus appContextNewDocument(const wchar_t* templatePath = nullptr) = 0;
  virtual Qxad::ErrorStatus closeDocument(QxApDocument* document) = 0;
  // Runs function(data) in the application's context, outside any command.
  virtual void executeInApplicationContext(void (*function)(void*), void* data) = 0;
  // Where resource strings and dialog templates are looked up while a command runs.
  virtual void pushResourceHandle(void* resourceHandle) = 0;
  virtual void popResourceHandle() = 0;
  virtual void* currentResourceHandle() const = 0;
};
QxApDocManager* qxDocManagerPtr();

// Receives exceptions before they are thrown out of a command.
class QxCrashRecorder {
 public:
  virtual ~QxCrashRecorder() = default;
  // exception: the object about to be thrown; what: its message, or null.
  virtual void record(const void* exception, const wchar_t* what) = 0;
};
// korva's recorder; never null while korva runs.
QxCrashRecorder* qxadGetCrashRecorder();
