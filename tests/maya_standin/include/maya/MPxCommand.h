// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MArgList.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

namespace lipvane_standin {

class MPxCommand {
 public:
  MPxCommand();
  MPxCommand(const MPxCommand&) = delete;
  MPxCommand& operator=(const MPxCommand&) = delete;
  virtual ~MPxCommand();
  virtual MStatus doIt(const MArgList& args);
  virtual MStatus undoIt();
  virtual MStatus redoIt();
  virtual bool isUndoable() const;
  virtual bool hasSyntax() const;
  static void displayError(const MString& text, bool showLineNumber = false);
  static void displayWarning(const MString& text, bool showLineNumber = false);
};

}  // namespace lipvane_standin
