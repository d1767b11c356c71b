#pragma once

#include "HostExport.h"

/** The host application's documents; the property editors only ask it to redraw. */
class HOST_EXPORT HostDocumentManager
{
public:
  virtual ~HostDocumentManager() = default;
  virtual void updateDisplay() = 0;
};

/** The document manager the host application installed, or null when it has none. */
HOST_EXPORT HostDocumentManager* HostDocManager();
/** Installs (or with null, removes) the application's document manager. */
HOST_EXPORT void hostSetDocManager(HostDocumentManager* manager);
/** Redraws the active document; nothing without a document manager. */
HOST_EXPORT void HostUpdateDisplay();
