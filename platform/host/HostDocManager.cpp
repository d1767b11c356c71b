#include "HostDocManager.h"

static HostDocumentManager* g_docManager = nullptr;

HostDocumentManager* HostDocManager()
{
  return g_docManager;
}

void hostSetDocManager(HostDocumentManager* manager)
{
  g_docManager = manager;
}

void HostUpdateDisplay()
{
  if (g_docManager)
    g_docManager->updateDisplay();
}
