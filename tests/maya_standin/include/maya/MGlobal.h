// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MSelectionList.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

namespace lipvane_standin {

class MGlobal {
 public:
  enum ListAdjustment { kReplaceList = 0, kAddToList = 2 };
  static MStatus selectByName(const MString& name, ListAdjustment adjustment = kAddToList);
  static MStatus getActiveSelectionList(MSelectionList& list,
                                        bool orderedSelectionIfAvailable = false);
  static MStatus clearSelectionList();
  static void displayInfo(const MString& text);
  static MStatus executeCommand(const MString& command, bool displayEnabled = false,
                                bool undoEnabled = false);
  static MStatus executeCommand(const MString& command, int& result, bool displayEnabled = false,
                                bool undoEnabled = false);
};

}  // namespace lipvane_standin
