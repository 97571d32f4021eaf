#pragma once

#include <map>
#include <string>
#include <string_view>

/// The bone hierarchy of a bone pose file, which the reader of the poses leaves out.
namespace lipvane {

/// The plug-in's tables: those of the file that was loaded last. Bones are numbered from 1, in the
/// order of the file's hierarchy lines; the engine's bone index of the same line is one less.
extern std::map<int, std::string> BoneNameByNumber;
extern std::map<std::string, int> BoneNumberByName;
extern std::map<std::string, std::string> BoneParentByName;

/// Adds the bones of a file to three tables, as they were given. A key that a table has already
/// keeps its entry, so of bones of the same name the first counts. False, with nothing added, when
/// the version is not 2 or the text ends early.
///
/// A file that cannot be read is deliberately no failure: it adds nothing. Whoever loads a file has
/// read its poses before and told the user then.
bool ReadLbpHierarchy(const std::string& fileName, std::map<int, std::string>& boneNameByNumber,
                      std::map<std::string, int>& boneNumberByName,
                      std::map<std::string, std::string>& boneParentByName);
/// The same for a file's content.
bool ReadLbpHierarchyText(std::string_view text, std::map<int, std::string>& boneNameByNumber,
                          std::map<std::string, int>& boneNumberByName,
                          std::map<std::string, std::string>& boneParentByName);

}  // namespace lipvane
