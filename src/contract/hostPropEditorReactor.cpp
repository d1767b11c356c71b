#include "hostPropEditorReactor.h"

hostPropEditorReactor::~hostPropEditorReactor() = default;

void hostPropEditorReactor::focusChanged(int, unsigned long, bool) {}

void hostPropEditorReactor::currentChanged(int, PropVariant&, PropVariant&) {}

void hostPropEditorReactor::selectionChanged(int, PropVariant&) {}

void hostPropEditorReactor::pinnedChanged(int, PropVariant&) {}
