#pragma once

#include <string>
#include <vector>

#include "lipvane/host/standalone/standalone_host.h"
#include "lipvane/host/standalone/words.h"

/// Of the host's own commands those that a script of keys is made of, as far as translate, rotate
/// and scale go.
namespace lipvane::standalone {

/// What `setKeyframe` accepts: -t/-time (a frame), -v/-value (in the scene's units) and
/// -at/-attribute, the first and the last any number of times; -itt/-inTangentType and
/// -ott/-outTangentType; nodes, or their attributes as "node.attribute".
CommandSyntax SetKeyframeSyntax();
/// Sets keys, or displays an error and sets none. What is not given: the selection, all nine
/// channels, the current time, the value at the current time, automatic tangents on new keys.
host::Status SetKeyframe(StandaloneHost& host, const WordArgDatabase& flags,
                         const std::vector<std::string>& objects);

/// What `getAttr` accepts: one "node.attribute".
CommandSyntax GetAttrSyntax();
/// Displays an error when there is no such node or attribute. Command lines have no results, so
/// nothing is done with the value.
host::Status GetAttr(StandaloneHost& host, const WordArgDatabase& flags,
                     const std::vector<std::string>& objects);

/// What `undoInfo` accepts: -ock/-openChunk, -cck/-closeChunk and -cn/-chunkName.
CommandSyntax UndoInfoSyntax();
/// Does nothing: there is no undo.
host::Status UndoInfo(StandaloneHost& host, const WordArgDatabase& flags,
                      const std::vector<std::string>& objects);

}  // namespace lipvane::standalone
