#pragma once

#include <memory>
#include <string>
#include <vector>

#include "lipvane/formats/phonemes.h"
#include "lipvane/host/command.h"
#include "lipvane/host/host.h"
#include "lipvane/scene/skeleton_capture.h"
#include "lipvane/text/file.h"

namespace lipvane::plugin {

/// `demBonesExportPoses`: writes the joints of a face, posed every ten frames, into a bone pose
/// file. The time line rests on frame 0 afterwards.
class ExportPosesCommand : public host::Command {
 public:
  explicit ExportPosesCommand(host::Host& host) : host_(host) {}

  static std::unique_ptr<host::Command> Create(host::Host& host);
  static host::Syntax NewSyntax();
  /// The bones that a command line lists, the head bone (empty when it is not given) last.
  static std::vector<std::string> BoneNames(const host::ArgDatabase& flags);

  host::Status DoIt(const host::Arguments& arguments) override;

 private:
  host::Status ParseArgs(const host::Arguments& arguments);
  /// Reads the speech targets from the mapping file, or says why it cannot.
  host::Status LoadMapping();
  /// False when a mapping weight could not be read; the file is closed then.
  bool WriteHeader(scene::SkeletonCapture& skeleton);
  void WritePoses(scene::SkeletonCapture& skeleton);
  void SayWhoseBonesTheyAre();

  host::Host& host_;
  std::vector<std::string> boneNames_;
  std::string headBoneName_;
  std::string lbpFileName_;
  std::string mapFileName_;
  int numPoses_ = 0;
  bool mappingFlag_ = false;
  PhonemeMapping phonemeMapping_;
  text::OutputFile output_;
};

}  // namespace lipvane::plugin
