#include "compare/open_documents.h"

bool IsInOpenDocument(const QxDbObject* object) {
  QxApDocManager* documents = qxDocManagerPtr();
  if (!documents || !object) return false;
  for (int i = 0; i < documents->documentCount(); ++i) {
    QxApDocument* document = documents->documentAt(i);
    if (document && document->database() == object->database()) return true;
  }
  return false;
}
