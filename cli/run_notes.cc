#include "cli/run_notes.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>

#include "lipvane/check/finding.h"
#include "lipvane/check/joint_names.h"
#include "lipvane/check/lbp_check.h"
#include "lipvane/check/namespace_hint.h"
#include "lipvane/check/rules.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/formats/phonemes.h"
#include "lipvane/host/standalone/namespaces.h"
#include "lipvane/host/standalone/words.h"
#include "lipvane/plugin/export_poses_command.h"
#include "lipvane/plugin/facial_anim_command.h"
#include "lipvane/text/file.h"
#include "lipvane/text/lists.h"
#include "lipvane/text/printable.h"

namespace lipvane::cli {
namespace {

using standalone::NodeId;
using standalone::PathId;
using standalone::Scene;
using Names = std::vector<std::string>;

constexpr std::size_t kMostListed = 10;

/// The nodes of some names, as the commands find them.
class NamedNodes {
 public:
  struct Found {
    std::size_t paths = 0;
    NodeId last = 0;
  };

  NamedNodes(const standalone::StandaloneHost& host, const Names& names) : scene_(host.GetScene()) {
    for (const std::string& name : names)
      found_.try_emplace(name);
    for (PathId path = 0; path < scene_.PathCount(); ++path) {
      const NodeId node = scene_.NodeOf(path);
      const auto wanted = found_.find(RelativeName(scene_, node, host.Namespace()));
      if (wanted == found_.end()) continue;
      ++wanted->second.paths;
      wanted->second.last = node;
    }
  }

  const Found& Of(const std::string& name) const { return found_.at(name); }
  bool IsJoint(const Found& found) const {
    return found.paths > 0 && scene_.Kind(found.last) == standalone::NodeKind::kJoint;
  }
  std::string TypeOf(const Found& found) const { return scene_.Type(found.last); }

 private:
  const Scene& scene_;
  std::unordered_map<std::string, Found> found_;
};

Names NotesOnExport(const host::ArgDatabase& flags, const standalone::StandaloneHost& host) {
  const Names bones = plugin::ExportPosesCommand::BoneNames(flags);
  const NamedNodes nodes(host, bones);
  check::JointNames joints(host.GetScene(), host.Namespace());
  Names missing;
  Names repeated;
  Names noLine;
  Names noJoint;
  for (const std::string& bone : bones) {
    const NamedNodes::Found& found = nodes.Of(bone);
    const std::string shown = text::QuotedLine(bone);
    if (bone.empty()) {
      missing.emplace_back("the head bone, which is not given");
    } else if (found.paths == 0) {
      missing.push_back(shown + joints.DidYouMean(bone, " (", ")"));
    } else if (found.last == 0) {
      noLine.push_back(shown);
    } else if (found.paths > 1) {
      repeated.push_back(shown + " (" + std::to_string(found.paths) + " times)");
    } else if (!nodes.IsJoint(found)) {
      noJoint.push_back(shown + " (a " + nodes.TypeOf(found) + ")");
    }
  }

  std::string file;
  flags.GetFlagArgument("-lbp", 0, file);
  Names notes;
  const auto add = [&](const Names& names, const char* one, const char* many,
                       const std::string& consequence) {
    if (names.empty()) return;
    notes.push_back("demBonesExportPoses: " + std::to_string(names.size()) + " of " +
                    std::to_string(bones.size()) + (bones.size() == 1 ? " bone " : " bones ") +
                    (names.size() == 1 ? one : many) + ": " + text::Listed(names, kMostListed) +
                    "; " + consequence);
  };
  const std::string misread =
      ", so it cannot be read as it was meant: mend the list of bones and export again";
  const std::string hint =
      missing.size() == bones.size() ? check::NamespaceHint(host.GetScene(), bones) : std::string();
  add(missing, "matches no joint", "match no joint",
      hint.empty() ? file + " counts bones that it has no lines for" + misread : hint);
  add(repeated, "matches several nodes", "match several nodes",
      file + " has a line for each" + misread);
  add(noLine, "has no bone line", "have no bone line", file + " lacks lines" + misread);
  add(noJoint, "matches no joint", "match no joint", "an import gives no keys to what is no joint");
  int poses = 0;
  flags.GetFlagArgument("-np", 0, poses);
  if (poses <= 0) {
    notes.push_back("demBonesExportPoses: " + file + " has no poses: -numposes asks for none");
  }
  return notes;
}

/// Why bones got no keys, a part for each reason.
std::string ReasonsFor(const Names& bones, const NamedNodes& nodes,
                       const standalone::StandaloneHost& host) {
  check::JointNames joints(host.GetScene(), host.Namespace());
  Names missing;
  Names noJoint;
  std::size_t refused = 0;  // the host has named them
  for (const std::string& bone : bones) {
    const NamedNodes::Found& found = nodes.Of(bone);
    if (found.paths > 0 && host.IsKeyed(found.last)) continue;
    if (found.paths == 0) {
      missing.push_back(text::QuotedLine(bone) + joints.DidYouMean(bone, " (", ")"));
    } else if (nodes.IsJoint(found)) {
      ++refused;
    } else {
      noJoint.push_back(text::QuotedLine(bone));
    }
  }
  std::string reasons;
  const auto add = [&](const Names& names, const std::string& what) {
    if (!names.empty()) reasons += "; " + what + ": " + text::Listed(names, kMostListed);
  };
  if (missing.size() == bones.size()) {
    const std::string hint = check::NamespaceHint(host.GetScene(), bones);
    if (!hint.empty()) return "; " + hint;
  }
  add(missing, "not in the scene");
  add(noJoint, "no joint");
  if (refused > 0) reasons += "; no channel of " + std::to_string(refused) + " takes keys";
  return reasons;
}

/// What check says first of counts that do not agree; the bones have others' poses then, if any.
std::string Misreading(const std::string& file, const std::string& content) {
  std::vector<check::Finding> findings;
  check::CheckLbp(file, content, findings);
  for (const check::Finding& finding : findings) {
    if (finding.rule == check::rule::kBoneCount || finding.rule == check::rule::kBoneLineCount)
      return "; it is misread: on line " + std::to_string(finding.line) + " " + finding.text;
  }
  return {};
}

Names NotesOnImport(const std::string& file, const standalone::StandaloneHost& host) {
  std::string content;
  ReadProblem problem;
  TBonePoseInfo rig;
  PhonemeMapping unused;
  if (!text::ReadFile(file, content, problem.reason) ||
      !ReadLbpText(content, rig, unused, problem)) {
    return {};  // the command has said so
  }
  const Names& bones = rig.boneNames;
  const NamedNodes nodes(host, bones);
  std::size_t keyed = 0;
  Names repeated;
  for (const std::string& bone : bones) {
    const NamedNodes::Found& found = nodes.Of(bone);
    const bool isKeyed = found.paths > 0 && host.IsKeyed(found.last);
    keyed += isKeyed ? 1 : 0;
    if (isKeyed && found.paths > 1) repeated.push_back(text::QuotedLine(bone));
  }
  std::string note = "facialAnim: " + std::to_string(keyed) + " of " +
                     std::to_string(bones.size()) +
                     (bones.size() == 1 ? " bone of " : " bones of ") + file + " got keys";
  if (keyed == 0) note += ": NOTHING WAS IMPORTED";
  const std::string misreading = Misreading(file, content);
  if (rig.poses.empty()) return {note + "; it reads as a file without poses" + misreading};
  note += ReasonsFor(bones, nodes, host);
  if (!repeated.empty()) {
    note += "; more than once in the scene, where the last one got the keys: " +
            text::Listed(repeated, kMostListed);
  }
  return {note + misreading};
}

Names NotesOnSelection(const std::string& file, const standalone::StandaloneHost& host) {
  TBonePoseInfo rig;
  PhonemeMapping unused;
  if (!host.Selection().empty() || !ReadLbpFile(file, rig, unused)) return {};
  if (rig.boneNames.empty()) return {"facialAnim: nothing is selected: " + file + " has no bones"};
  return {"facialAnim: nothing is selected, since the last bone of " + file + ", " +
          text::QuotedLine(rig.boneNames.back()) +
          ", was selected before or is not in the scene exactly once"};
}

}  // namespace

std::vector<std::string> NotesOnCommand(const std::vector<std::string>& words,
                                        const standalone::StandaloneHost& host) {
  const standalone::WordArguments arguments({words.begin() + 1, words.end()});
  if (words[0] == "demBonesExportPoses") {
    return NotesOnExport(
        standalone::WordArgDatabase(plugin::ExportPosesCommand::NewSyntax(), arguments), host);
  }
  if (words[0] != "facialAnim") return {};
  const standalone::WordArgDatabase flags(plugin::FacialAnimCommand::NewSyntax(), arguments);
  std::string file;
  flags.GetFlagArgument("-lbp", 0, file);
  if (flags.IsFlagSet("-imp")) return NotesOnImport(file, host);
  if (flags.IsFlagSet("-sel")) return NotesOnSelection(file, host);
  return {};
}

}  // namespace lipvane::cli
