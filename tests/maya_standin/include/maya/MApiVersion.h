// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MTypes.h>

// Definitions, as the host's header has them: for one source file of a plug-in.
#ifndef MNoVersionString
#define LIPVANE_STANDIN_TEXT_OF(x) #x
#define LIPVANE_STANDIN_TEXT(x) LIPVANE_STANDIN_TEXT_OF(x)
extern "C" {
PLUGIN_EXPORT char MApiVersion[] = LIPVANE_STANDIN_TEXT(MAYA_API_VERSION);
PLUGIN_EXPORT char ADSK_PLUGIN_SIGNATURE[] = "none";
}
#endif
