#pragma once

/** Registers the library's own controls under their GUIDs, in the registry's fixed order. */
void registerBuiltinFactories();
